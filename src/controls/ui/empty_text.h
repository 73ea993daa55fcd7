#pragma once

#include <QString>

class QAbstractItemView;

namespace tolmira {

// What a list without rows says instead, in its middle; for its paint event, behind its own painting. `marginPx` stays
// free all round. An empty text draws nothing.
void PaintEmptyText(QAbstractItemView &list, const QString &text, int marginPx);

} // namespace tolmira
