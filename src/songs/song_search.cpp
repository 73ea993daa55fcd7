#include "songs/song_search.h"

#include <algorithm>

namespace tolmira {

namespace {

bool BeginsWith(const SongFile &file, const QString &term) {
  const QString &name = file.Arquivo();
  // The start of the name is taken before it is lowered; a letter that becomes two shifts the rest.
  if (name.size() == file.Minusculo().size())
    return file.Minusculo().startsWith(term);
  return name.left(term.size()).toLower() == term;
}

} // namespace

SongSearch::SongSearch(SongFolder &folder, const QString &term, std::optional<SongRows> candidates)
    : m_folder(folder), m_term(term), m_candidates(candidates ? *std::move(candidates) : folder.Files()) {}

SongSearch::~SongSearch() { m_folder.Rest(); }

void SongSearch::Look(const std::shared_ptr<SongFile> &file) {
  auto &[inicio, meio, letra] = m_found;
  if (BeginsWith(*file, m_term.Text()))
    inicio.push_back(file);
  else if (file->Minusculo().contains(m_term.Text()))
    meio.push_back(file);
  else if (m_folder.Holds(*file, m_term))
    letra.push_back(file);
}

bool SongSearch::Next(const std::function<bool()> &enough) {
  while (m_next < m_candidates.size()) {
    Look(m_candidates[m_next++]);
    if (enough())
      break;
  }
  return m_next < m_candidates.size();
}

SongRows SongSearch::TakeRows() {
  SongRows rows;
  rows.reserve(m_found[0].size() + m_found[1].size() + m_found[2].size());
  for (SongRows &group : m_found) {
    // Rows of an earlier search come in the order of that search.
    if (!std::is_sorted(group.begin(), group.end(), ComesBefore))
      std::stable_sort(group.begin(), group.end(), ComesBefore);
    rows.insert(rows.end(), std::make_move_iterator(group.begin()), std::make_move_iterator(group.end()));
  }
  return rows;
}

} // namespace tolmira
