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
  const int natural = m_text->fontMetrics().size(0, m_text->text()).width() + 2;
  const bool wrap = natural > px;
  m_text->setWordWrap(wrap);
  const int width = wrap ? px : natural;
  m_text->setFixedSize(width, m_text->heightForWidth(width) > 0 ? m_text->heightForWidth(width)
                                                                 : m_text->fontMetrics().height());
  layout()->activate();
  resize(layout()->minimumSize());
}

} // namespace tolmira
