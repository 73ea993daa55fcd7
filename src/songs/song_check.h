#pragma once

#include "songs/pagination.h"

#include <QList>
#include <QString>

#include <functional>

namespace tolmira {

// What the projection and the console make of a song's text.
struct SongRoom {
  PaginationLayout pagina; // by which it is cut into verses
  double tamanhoBase = 0;  // points
};

// The size of a verse on the projection, in points.
struct VerseSize {
  double pt = 0;
  double wantedPt = 0; // as large as it would be if its lines were short enough
};

// Something the operator should know of a stanza before it is shown.
struct SongWarning {
  enum class Kind { SplitStanza, SmallLine };
  Kind kind = Kind::SplitStanza;
  int stanza = 0;         // counted from 1, blank ones not counted
  qsizetype position = 0; // in the text: of the stanza's first line, or of the line that is too wide
  int parts = 0;          // of a stanza that will be split: into how many verses
  VerseSize size;         // of the verse with the wide line
};

// Stanzas that will be cut because they are too tall for a screen, and lines that make their verse smaller than the
// others. `sizeOf` gets a verse with CR LF between its lines.
QList<SongWarning> CheckSong(const QString &text, const PaginationLayout &layout, TextMeasure &measure,
                             const std::function<VerseSize(const QString &verse)> &sizeOf);

} // namespace tolmira
