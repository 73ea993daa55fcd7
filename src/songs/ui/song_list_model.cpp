#include "songs/ui/song_list_model.h"

namespace tolmira {

void SongListModel::SetRows(const SongRows &rows) {
  beginResetModel();
  m_rows = rows;
  endResetModel();
}

int SongListModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SongListModel::data(const QModelIndex &index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount())
    return {};
  // A name may hold line ends; a row has one line.
  return m_rows[static_cast<size_t>(index.row())]->Linha().replace(u'\r', u' ').replace(u'\n', u' ');
}

Qt::ItemFlags SongListModel::flags(const QModelIndex &index) const {
  return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren
                         : Qt::NoItemFlags;
}

} // namespace tolmira
