#pragma once

#include "foundation/seams.h"
#include "songs/verse.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// The console's text label, as far as cutting into verses needs it.
struct PaginationLayout {
  FontSpec font;
  double wrapWidthPx = 0;
  int limitTwips = 0; // H: height of the preview area, already shrunk to 72 per cent
};

struct PaginatedSong {
  TabelaEstrofes Estrofes; // from 1
  int TotalEstrofes = 0;
  QString TextoPaginado; // what the console's label holds: each verse padded so that the next begins a new screen
};

// Cuts `text` (changed when a stanza had to be split) into verses. At most 30 rounds of splitting.
PaginatedSong PaginateVerses(QString &text, const PaginationLayout &layout, TextMeasure &measure);

QString SplitLongStanza(const QString &stanza, int limitTwips, const PaginationLayout &layout, TextMeasure &measure);

} // namespace tolmira
