#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace tolmira {

// A combo box that the wheel changes only where it has the focus: what a box on the desk chooses goes to the
// projection, and scrolling past it must change nothing there.
class CalmCombo : public QComboBox {
public:
  using QComboBox::QComboBox;

protected:
  void wheelEvent(QWheelEvent *event) override {
    if (hasFocus())
      QComboBox::wheelEvent(event);
    else
      event->ignore();
  }
};

} // namespace tolmira
