#include "songs/song_check.h"

#include "foundation/text_fields.h"
#include "songs/line_ends.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

constexpr qsizetype LargestCheckedText = 200'000; // characters; no song comes near it
constexpr double NoticedPt = 1;                   // a verse that is smaller by less looks like the others

QString WidestLine(const QString &verse, const FontSpec &font, TextMeasure &measure) {
  QString widest;
  double width = -1;
  for (const QString &line : SplitText(verse, LineEnd)) {
    const double px = measure.Width(line, font);
    if (px > width) {
      width = px;
      widest = line;
    }
  }
  return widest;
}

} // namespace

QList<SongWarning> CheckSong(const QString &text, const PaginationLayout &layout, TextMeasure &measure,
                             const std::function<VerseSize(const QString &verse)> &sizeOf) {
  QList<SongWarning> warnings;
  if (text.size() > LargestCheckedText)
    return warnings;
  int number = 0;
  qsizetype from = 0;
  for (const QString &piece : SplitText(text, TwoLineEnds)) {
    const qsizetype at = from;
    from += piece.size() + TwoLineEnds.size();
    QString stanza = SplitStanzas(piece).value(0);
    if (stanza.isEmpty())
      continue;
    ++number;
    const qsizetype start = std::max(at, text.indexOf(SplitText(stanza, LineEnd).value(0), at));

    QString cut = stanza;
    const PaginatedSong paged = PaginateVerses(cut, layout, measure);
    QStringList verses;
    for (const Estrofe &verse : paged.Estrofes) {
      if (!verse.Texto.isEmpty())
        verses.append(verse.Texto);
    }
    if (verses.size() > 1)
      warnings.append({SongWarning::Kind::SplitStanza, number, start, static_cast<int>(verses.size()), {}});
    for (const QString &verse : std::as_const(verses)) {
      const VerseSize size = sizeOf(verse);
      if (size.wantedPt - size.pt < NoticedPt)
        continue;
      const qsizetype line = text.indexOf(WidestLine(verse, layout.font, measure), start);
      warnings.append({SongWarning::Kind::SmallLine, number, line < 0 ? start : line, 0, size});
    }
  }
  return warnings;
}

} // namespace tolmira
