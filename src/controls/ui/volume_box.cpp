#include "controls/ui/volume_box.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace tolmira {

namespace {
constexpr int LeastWidth = 120; // px, of the slider
}

VolumeBox::VolumeBox(const QString &spoken, QWidget *parent)
    : QWidget(parent), m_slider(new ValueSlider(this)), m_number(new QLabel(QStringLiteral("100"), this)) {
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Gap);
  auto *icon = new QLabel(this);
  icon->setPixmap(DeskIcon(QLatin1String("volume"), cores::Quiet).pixmap(medidas::Icon, medidas::Icon));
  row->addWidget(icon);
  m_slider->setObjectName(QStringLiteral("sliderVolume"));
  m_slider->setRange(0, 100);
  m_slider->setMinimumWidth(LeastWidth);
  m_slider->setAccessibleName(spoken);
  m_slider->setToolTip(spoken);
  row->addWidget(m_slider, 1);
  m_number->setObjectName(QStringLiteral("LbVolume"));
  m_number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  m_number->setMinimumWidth(m_number->fontMetrics().horizontalAdvance(QStringLiteral("1000")));
  row->addWidget(m_number);
  connect(m_slider, &ValueSlider::valueChanged, m_number, qOverload<int>(&QLabel::setNum));
  connect(m_slider, &ValueSlider::Changed, this, &VolumeBox::Changed);
}

void VolumeBox::Mostra(int volume) {
  const QSignalBlocker quiet(m_slider);
  m_slider->setValue(volume);
  m_number->setNum(m_slider->value());
}

} // namespace tolmira
