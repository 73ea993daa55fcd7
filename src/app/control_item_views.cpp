#include "app/control_item_views.h"

#include <QAbstractItemView>
#include <QListView>
#include <QTreeView>

namespace tolmira {

namespace {

// A list of many thousand entries is told up to here; it can still be reached by text.
constexpr int ListedItems = 20000;

QModelIndex FirstItem(const QAbstractItemView *view) {
  if (!view->model())
    return {};
  const auto *list = qobject_cast<const QListView *>(view);
  return view->model()->index(0, list ? list->modelColumn() : 0, view->rootIndex());
}

QModelIndex Below(const QAbstractItemView *view, const QModelIndex &index) {
  if (const auto *tree = qobject_cast<const QTreeView *>(view))
    return tree->indexBelow(index);
  return index.sibling(index.row() + 1, index.column());
}

} // namespace

QStringList ItemTexts(const QAbstractItemView *view) {
  QStringList texts;
  for (QModelIndex index = FirstItem(view); index.isValid() && texts.size() < ListedItems; index = Below(view, index))
    texts << index.data().toString();
  return texts;
}

QString CurrentItemText(const QAbstractItemView *view) {
  return view->currentIndex().isValid() ? view->currentIndex().data().toString() : QString();
}

QModelIndex FindItem(const QAbstractItemView *view, const QJsonValue &wish) {
  int row = 0;
  for (QModelIndex index = FirstItem(view); index.isValid(); index = Below(view, index), ++row)
    if (wish.isDouble() ? wish.toInt(-1) == row : wish.isString() && index.data().toString() == wish.toString())
      return index;
  return {};
}

} // namespace tolmira
