#pragma once

#include "songs/song_folder.h"

#include <QAbstractListModel>

namespace tolmira {

// The rows that the finder lists.
class SongListModel : public QAbstractListModel {
  Q_OBJECT

public:
  using QAbstractListModel::QAbstractListModel;

  void SetRows(const SongRows &rows);
  int rowCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
  SongRows m_rows;
};

} // namespace tolmira
