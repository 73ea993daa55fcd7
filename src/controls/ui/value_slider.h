#pragma once

#include <QSlider>

namespace tolmira {

// A horizontal slider that the wheel moves only while it has the focus, so that scrolling past changes nothing on a
// screen that people look at. PageUp and PageDown go by single steps.
class ValueSlider : public QSlider {
  Q_OBJECT

public:
  explicit ValueSlider(QWidget *parent = nullptr);

protected:
  void wheelEvent(QWheelEvent *event) override;
};

} // namespace tolmira
