#include "controls/ui/tile_grid.h"

#include <QListView>
#include <QScrollBar>

namespace tolmira {

void MakeTileGrid(QListView &list) {
  list.setFlow(QListView::LeftToRight);
  list.setWrapping(true);
  list.setUniformItemSizes(true);
  list.setResizeMode(QListView::Adjust);
  list.setVerticalScrollMode(QListView::ScrollPerPixel);
  list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // or the columns would depend on the rows
  list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list.setEditTriggers(QListView::NoEditTriggers);
  list.setMouseTracking(true);
  QScrollBar *bar = list.verticalScrollBar();
  const auto ready = [bar] { bar->setEnabled(bar->maximum() > bar->minimum()); }; // one without use shows no handle
  QObject::connect(bar, &QScrollBar::rangeChanged, bar, ready);
  ready();
}

} // namespace tolmira
