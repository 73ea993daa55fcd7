#pragma once

#include <QLabel>
#include <QWidget>

namespace tolmira {

// PicMove: the strip at the upper edge by which the projection is moved while it is a normal window, with its text
// (Label7) and its sign for the change between window and whole screen (Image4).
class GripStrip : public QWidget {
public:
  explicit GripStrip(QWidget *parent);
  static constexpr int HeightPx = 36;
  QLabel *Label7() { return m_text; }
  QWidget *Image4() { return m_toggle; }

protected:
  void resizeEvent(QResizeEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  QLabel *m_text;
  QWidget *m_toggle;
};

} // namespace tolmira
