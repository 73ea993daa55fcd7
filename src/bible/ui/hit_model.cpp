#include "bible/ui/hit_model.h"

#include "bible/passage.h"

namespace tolmira {

QString ReferenciaDe(const SearchHit &hit) { return ReferenciaDe(Passagem{hit.book, hit.chapter, hit.verse}); }

void HitModel::Clear() {
  beginResetModel();
  m_hits.clear();
  endResetModel();
}

void HitModel::Append(const QList<SearchHit> &hits) {
  if (hits.isEmpty())
    return;
  beginInsertRows({}, static_cast<int>(m_hits.size()), static_cast<int>(m_hits.size() + hits.size()) - 1);
  m_hits += hits;
  endInsertRows();
}

int HitModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_hits.size());
}

int HitModel::columnCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : 2; }

QVariant HitModel::data(const QModelIndex &index, int role) const {
  if (!index.isValid() || index.row() >= m_hits.size())
    return {};
  const SearchHit &hit = m_hits.at(index.row());
  if (role == Qt::DisplayRole)
    return index.column() == 0 ? ReferenciaDe(hit) : hit.text;
  if (role == Qt::AccessibleTextRole)
    return QString(ReferenciaDe(hit) + u". " + hit.text);
  return {};
}

} // namespace tolmira
