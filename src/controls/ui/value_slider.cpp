#include "controls/ui/value_slider.h"

#include <QWheelEvent>

namespace tolmira {

ValueSlider::ValueSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setPageStep(1);
  setMinimumWidth(56);
}

void ValueSlider::wheelEvent(QWheelEvent *event) {
  if (hasFocus())
    QSlider::wheelEvent(event);
  else
    event->ignore();
}

} // namespace tolmira
