#include "songs/song_check.h"

#include "foundation/text_fields.h"
#include "songs/line_ends.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

constexpr qsizetype LargestCheckedText = 200'000; // characters; no song comes near it
constexpr double NoticedPt = 1;                   // a verse that is smaller by less looks like the others
constexpr double SmallPart = 0.7;                 // of the wanted size: most songs stay above it

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

// The verses that a stanza becomes.
QStringList VersesOf(QString stanza, const SongMeasures &by) {
  QStringList verses;
  const PaginatedSong paged = PaginateVerses(stanza, by.pagina, by.measure);
  for (const Estrofe &verse : paged.Estrofes) {
    if (!verse.Texto.isEmpty())
      verses.append(verse.Texto);
  }
  return verses;
}

} // namespace

QList<SongWarning> CheckSong(const QString &text, const SongMeasures &by) {
  using Kind = SongWarning::Kind;
  QList<SongWarning> warnings;
  if (text.size() > LargestCheckedText)
    return warnings;
  const double wanted = by.tamanhoBase({});
  int number = 0;
  qsizetype from = 0;
  for (const QString &piece : SplitText(text, TwoLineEnds)) {
    const qsizetype at = from;
    from += piece.size() + TwoLineEnds.size();
    const QString stanza = SplitStanzas(piece).value(0);
    if (stanza.isEmpty())
      continue;
    ++number;
    const qsizetype start = std::max(at, text.indexOf(SplitText(stanza, LineEnd).value(0), at));

    const QStringList verses = VersesOf(stanza, by);
    if (verses.size() > 1)
      warnings.append({Kind::SplitStanza, number, start, static_cast<int>(verses.size()), {}});
    if (const double base = by.tamanhoBase(stanza); base < wanted * SmallPart)
      warnings.append({Kind::SmallSong, number, start, 0, {base, wanted}});
    for (const QString &verse : verses) {
      const VerseSize size = by.tamanho(verse);
      if (size.wantedPt - size.pt < NoticedPt)
        continue;
      const qsizetype line = text.indexOf(WidestLine(verse, by.pagina.font, by.measure), start);
      warnings.append({Kind::SmallLine, number, line < 0 ? start : line, 0, size});
    }
  }
  return warnings;
}

} // namespace tolmira
