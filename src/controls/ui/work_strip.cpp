#include "controls/ui/work_strip.h"

#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"
#include "controls/ui/plain_tip.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace tolmira {

WorkStrip::WorkStrip(QWidget *parent)
    : QWidget(parent), m_text(new ElidedLabel(this)), m_bar(new QProgressBar(this)),
      m_stop(new QPushButton(tr("&Stop"), this)) {
  m_text->setObjectName(QStringLiteral("LabelStatus"));
  SetLook(m_text, "look", QStringLiteral("quiet"));
  m_bar->setObjectName(QStringLiteral("Progress1"));
  m_bar->setAccessibleName(tr("Progress"));
  m_bar->setTextVisible(false);
  m_bar->setFixedWidth(140);
  m_stop->setObjectName(QStringLiteral("BtParar"));
  m_stop->setToolTip(tr("Ends what is under way"));
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Gap);
  row->addWidget(m_text, 1);
  row->addWidget(m_bar);
  row->addWidget(m_stop);
  setMinimumHeight(medidas::Control);
  for (QWidget *widget : std::initializer_list<QWidget *>{m_bar, m_stop}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    widget->hide();
  }
  connect(m_stop, &QPushButton::clicked, this, &WorkStrip::Stopped);
}

void WorkStrip::ShowText(const QString &text) {
  m_text->setText(text);
  m_text->setToolTip(PlainTip(text));
}

void WorkStrip::Begin(const QString &text) {
  m_busy = true;
  ShowText(text);
  m_bar->setRange(0, 0);
  m_bar->show();
  m_stop->show();
}

void WorkStrip::Advance(const QString &text, qint64 done, qint64 total) {
  ShowText(text);
  constexpr int Steps = 1000; // the bar counts in whole numbers of 32 bits
  m_bar->setRange(0, total > 0 ? Steps : 0);
  if (total > 0)
    m_bar->setValue(qRound(Steps * qBound(0.0, double(done) / double(total), 1.0)));
}

void WorkStrip::End(const QString &outcome) {
  m_busy = false;
  ShowText(outcome);
  const bool hadFocus = m_stop->hasFocus();
  m_bar->hide();
  m_stop->hide();
  if (hadFocus && window())
    window()->setFocus(Qt::OtherFocusReason); // hiding would hand the keyboard to any neighbour
}

} // namespace tolmira
