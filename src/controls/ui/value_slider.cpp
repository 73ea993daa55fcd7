#include "controls/ui/value_slider.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace tolmira {

namespace {
constexpr int FrameMs = 16;
} // namespace

ValueSlider::ValueSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setPageStep(1);
  setMinimumWidth(56);
  m_frame.setSingleShot(true);
  m_frame.setTimerType(Qt::PreciseTimer);
  m_frame.setInterval(FrameMs);
  connect(this, &QSlider::valueChanged, this, &ValueSlider::Take);
  connect(this, &QSlider::sliderReleased, this, &ValueSlider::TakeWaiting);
  connect(&m_frame, &QTimer::timeout, this, &ValueSlider::TakeWaiting);
}

void ValueSlider::Take(int value) {
  m_waiting = isSliderDown() && m_frame.isActive();
  if (m_waiting)
    return;
  emit Changed(value);
  if (isSliderDown())
    m_frame.start(); // behind it, so that keys and paints get their turn however long it took
}

void ValueSlider::TakeWaiting() {
  if (!m_waiting)
    return;
  m_waiting = false;
  emit Changed(value());
  if (isSliderDown())
    m_frame.start();
}

void ValueSlider::wheelEvent(QWheelEvent *event) {
  if (hasFocus())
    QSlider::wheelEvent(event);
  else
    event->ignore();
}

// Some values send the focus away when they are taken. Whoever works by keyboard would have to walk back for each step.
void ValueSlider::keyPressEvent(QKeyEvent *event) {
  const int before = value();
  QSlider::keyPressEvent(event);
  if (value() != before && !hasFocus())
    setFocus(Qt::OtherFocusReason);
}

} // namespace tolmira
