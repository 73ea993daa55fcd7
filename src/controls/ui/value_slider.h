#pragma once

#include <QSlider>
#include <QTimer>

namespace tolmira {

// A horizontal slider that the wheel moves only while it has the focus, so that scrolling past changes nothing on a
// screen that people look at. PageUp and PageDown go by single steps, Home and End to the ends.
class ValueSlider : public QSlider {
  Q_OBJECT

public:
  explicit ValueSlider(QWidget *parent = nullptr);

signals:
  // As valueChanged, but while the handle is held at most once a frame: what a value does to a page costs more than the
  // mouse takes to ask for the next. The last value always comes, at the latest when the handle is let go.
  void Changed(int value);

protected:
  void wheelEvent(QWheelEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  void Take(int value);
  void TakeWaiting();

  QTimer m_frame; // runs while a frame has had its value
  bool m_waiting = false;
};

} // namespace tolmira
