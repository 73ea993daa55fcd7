#include "controls/ui/hint_label.h"

#include <QHBoxLayout>
#include <QLabel>

#include "controls/ui/desk_icon.h"

namespace tolmira {

HintLabel::HintLabel(QLatin1String drawing, const QString &text, QWidget *parent, QRgb colour)
    : QFrame(parent), m_text(new QLabel(text)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setProperty("look", QStringLiteral("hint"));
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(12, 8, 14, 8);
  row->setSpacing(10);
  auto *icon = new QLabel;
  icon->setPixmap(DeskIcon(drawing, colour).pixmap(QSize(medidas::Icon, medidas::Icon), devicePixelRatioF()));
  icon->setFixedSize(medidas::Icon, medidas::Icon);
  row->addWidget(icon, 0, Qt::AlignVCenter);
  m_text->setTextFormat(Qt::PlainText);
  row->addWidget(m_text, 1);
}

void HintLabel::SetText(const QString &text) {
  if (text != m_text->text())
    m_text->setText(text);
}

QString HintLabel::Text() const { return m_text->text(); }

// The text wraps only when it has to, so that a short hint stays a short plate.
void HintLabel::SetMaximumTextWidth(int px) {
  m_text->ensurePolished();
  const QFontMetrics metrics = m_text->fontMetrics();
  const bool wrap = metrics.size(0, m_text->text()).width() + 2 > px;
  m_text->setWordWrap(wrap);
  const QRect room(0, 0, wrap ? px : QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const QRect used = metrics.boundingRect(room, wrap ? Qt::TextWordWrap : 0, m_text->text());
  m_text->setFixedSize(used.width() + 2, used.height());
  layout()->activate();
  resize(layout()->minimumSize());
}

} // namespace tolmira
