#pragma once

#include <QWidget>

namespace tolmira {

// A strip along an edge of its window, or the square in the corner, by which the window is made larger or smaller with
// the mouse held. Nothing of it is to be seen but the pointer's shape.
class ResizeEdge : public QWidget {
  Q_OBJECT

public:
  static constexpr int WidthPx = 5;

  // `edges`: Qt::RightEdge, Qt::BottomEdge or both.
  ResizeEdge(Qt::Edges edges, QWidget *parent);
  void Place(); // on the parent's edge, above everything in it

protected:
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;

private:
  Qt::Edges m_edges;
  QPoint m_pressed; // on the desktop
  QSize m_size;     // of the window at that moment
};

} // namespace tolmira
