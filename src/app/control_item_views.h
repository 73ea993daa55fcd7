#pragma once

#include <QJsonValue>
#include <QModelIndex>
#include <QString>
#include <QStringList>

class QAbstractItemView;

namespace tolmira {

// The items of a list, table or tree as a person sees them from top to bottom: row by row, the entries of an open
// branch below it, those of a closed one not at all. The text of a row is that of its first column.
QStringList ItemTexts(const QAbstractItemView *view);
QString CurrentItemText(const QAbstractItemView *view);
// By row, from 0, or by text; invalid for none.
QModelIndex FindItem(const QAbstractItemView *view, const QJsonValue &wish);

} // namespace tolmira
