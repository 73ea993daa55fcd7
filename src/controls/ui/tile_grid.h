#pragma once

class QListView;

namespace tolmira {

// A list as a grid of tiles of one size, row by row, with a scroll bar that always has its place.
void MakeTileGrid(QListView &list);

} // namespace tolmira
