#include "controls/ui/resize_edge.h"

#include <QMouseEvent>

namespace tolmira {

namespace {
constexpr int CornerPx = 3 * ResizeEdge::WidthPx;
} // namespace

ResizeEdge::ResizeEdge(Qt::Edges edges, QWidget *parent) : QWidget(parent), m_edges(edges) {
  setCursor(edges == Qt::RightEdge ? Qt::SizeHorCursor : edges == Qt::BottomEdge ? Qt::SizeVerCursor : Qt::SizeFDiagCursor);
  setFocusPolicy(Qt::NoFocus);
}

void ResizeEdge::Place() {
  const QSize whole = parentWidget()->size();
  const bool corner = m_edges == (Qt::RightEdge | Qt::BottomEdge);
  if (corner)
    setGeometry(whole.width() - CornerPx, whole.height() - CornerPx, CornerPx, CornerPx);
  else if (m_edges == Qt::RightEdge)
    setGeometry(whole.width() - WidthPx, 0, WidthPx, whole.height() - CornerPx);
  else
    setGeometry(0, whole.height() - WidthPx, whole.width() - CornerPx, WidthPx);
  raise();
}

void ResizeEdge::mousePressEvent(QMouseEvent *event) {
  m_pressed = event->globalPosition().toPoint();
  m_size = window()->size();
}

void ResizeEdge::mouseMoveEvent(QMouseEvent *event) {
  if (!event->buttons().testFlag(Qt::LeftButton))
    return;
  const QPoint way = event->globalPosition().toPoint() - m_pressed;
  const QSize wanted(m_size.width() + (m_edges.testFlag(Qt::RightEdge) ? way.x() : 0),
                     m_size.height() + (m_edges.testFlag(Qt::BottomEdge) ? way.y() : 0));
  window()->resize(wanted.expandedTo(window()->minimumSize()));
}

} // namespace tolmira
