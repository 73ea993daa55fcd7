#pragma once

#include "songs/pagination.h"

#include <QList>
#include <QString>
#include <functional>

namespace tolmira {

// What the projection and the console make of a song's text.
struct SongRoom {
  PaginationLayout pagina; // by which it is cut into verses
  double tamanhoBase = 0;  // points; the tallest stanza and the longest lines bound it for the whole song
};

// The size of a verse on the projection, in points.
struct VerseSize {
  double pt = 0;
  double wantedPt = 0; // as large as it would be if its lines were short enough
};

// Something the operator should know of a stanza before it is shown.
struct SongWarning {
  enum class Kind {
    SplitStanza, // too tall for a screen
    SmallLine,   // a long line makes its own verse smaller
    SmallSong,   // a long stanza makes the whole song smaller
  };
  Kind kind = Kind::SplitStanza;
  int stanza = 0;         // counted from 1, blank ones not counted
  qsizetype position = 0; // in the text: of the stanza's first line, or of the line that is too wide
  int parts = 0;          // of a stanza that will be split: into how many verses
  VerseSize size;         // of the verse with the long line, or of the song
};

// What CheckSong measures by.
struct SongMeasures {
  PaginationLayout pagina;
  TextMeasure &measure;
  std::function<VerseSize(const QString &verse)> tamanho;  // lines apart by CR LF
  std::function<double(const QString &texto)> tamanhoBase; // of a song of that text; of the empty one the wanted size
};

// Stanzas that will be cut, and lines that make their verse or the whole song smaller than it could be.
QList<SongWarning> CheckSong(const QString &text, const SongMeasures &by);

} // namespace tolmira
