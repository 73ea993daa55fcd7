#include "songs/song_search.h"

#include <algorithm>

namespace tolmira {

namespace {

constexpr size_t SongsBetweenLooks = 64; // some microseconds
constexpr size_t SongsAhead = 4;

// The start of the name is taken before it is lowered, which tells where a letter becomes two and shifts the rest.
bool BeginsWith(const SongFile &file, qsizetype place, const QString &term) {
  return file.Parelho() ? place == 0 : file.Arquivo().left(term.size()).toLower() == term;
}

} // namespace

SongSearch::SongSearch(SongFolder &folder, const QString &term, std::optional<SongRows> candidates, bool longer)
    : m_folder(folder), m_term(term), m_candidates(candidates ? *std::move(candidates) : folder.Files()),
      m_longer(longer) {}

SongSearch::~SongSearch() {
  m_folder.Rest();
}

void SongSearch::Look(SongFile *file) {
  auto &[inicio, meio, letra] = m_found;
  const qsizetype place = file->Minusculo().indexOf(m_term.Text());
  const bool begins = BeginsWith(*file, place, m_term.Text());
  if (begins || place >= 0) {
    file->FoundByName();
    (begins ? inicio : meio).push_back(file);
  } else if (m_folder.Holds(*file, m_term, m_longer)) {
    letra.push_back(file);
  }
}

bool SongSearch::Next(const std::function<bool()> &enough) {
  while (m_next < m_candidates.size()) {
    // A song's parts lie apart in memory, and waiting for them is most of the work.
    if (m_next + 2 * SongsAhead < m_candidates.size()) {
      __builtin_prefetch(m_candidates[m_next + 2 * SongsAhead]);
      m_candidates[m_next + SongsAhead]->Prefetch();
    }
    const int reads = m_folder.Reads();
    Look(m_candidates[m_next++]);
    if ((m_folder.Reads() != reads || m_next % SongsBetweenLooks == 0) && enough())
      break;
  }
  return m_next < m_candidates.size();
}

SongRows SongSearch::TakeRows() {
  SongRows rows;
  rows.reserve(m_found[0].size() + m_found[1].size() + m_found[2].size());
  for (SongRows &group : m_found) {
    // Rows of an earlier search come in the order of that search.
    const auto before = [](const SongFile *a, const SongFile *b) { return a->Lugar() < b->Lugar(); };
    if (!std::is_sorted(group.begin(), group.end(), before))
      std::sort(group.begin(), group.end(), before);
    rows.insert(rows.end(), group.begin(), group.end());
  }
  return rows;
}

} // namespace tolmira
