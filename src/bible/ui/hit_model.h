#pragma once

#include <QAbstractTableModel>
#include <QList>

#include "bible/word_search.h"

namespace tolmira {

// Verses that a search found, a row each: the reference and the text.
class HitModel : public QAbstractTableModel {
  Q_OBJECT

public:
  using QAbstractTableModel::QAbstractTableModel;

  void Clear();
  void Append(const QList<SearchHit> &hits);
  const SearchHit &At(int row) const { return m_hits.at(row); }

  int rowCount(const QModelIndex &parent = {}) const override;
  int columnCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;

private:
  QList<SearchHit> m_hits;
};

QString ReferenciaDe(const SearchHit &hit);

} // namespace tolmira
