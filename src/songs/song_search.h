#pragma once

#include "songs/song_folder.h"

#include <QString>
#include <array>
#include <functional>
#include <optional>

namespace tolmira {

// One search for a term over the songs of a folder, done in slices. Dropping the object cancels it. The folder has been
// observed for it and outlives it.
class SongSearch {
public:
  // Over the whole folder, or over rows that an earlier search left. `longer`: that was the search before this one, and
  // the term begins with its term.
  SongSearch(SongFolder &folder, const QString &term, std::optional<SongRows> candidates, bool longer = false);
  ~SongSearch();
  SongSearch(const SongSearch &) = delete;
  SongSearch &operator=(const SongSearch &) = delete;

  // Goes on until the last song, or until `enough` says so, which is asked after
  // each song that had to be read and every few others. True while songs are left.
  bool Next(const std::function<bool()> &enough);

  // Songs whose file name begins with the term, then those that hold it further inside, then those that hold it in
  // their text only. Sorted within these groups.
  SongRows TakeRows();

private:
  void Look(SongFile *file);

  SongFolder &m_folder;
  SearchTerm m_term;
  SongRows m_candidates;
  bool m_longer;
  size_t m_next = 0;
  std::array<SongRows, 3> m_found; // Inicio, Meio, Letra
};

} // namespace tolmira
