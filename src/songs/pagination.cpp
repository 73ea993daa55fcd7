#include "songs/pagination.h"

#include "foundation/text_fields.h"
#include "songs/line_ends.h"
#include "songs/replace_linear.h"
#include "songs/song_text.h"

#include <QHash>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int MostRounds = 30;
constexpr qsizetype LinesCutInTheMiddle = 8;

// Guards against a measure or a file that makes no sense; no song comes near them.
constexpr int MostPaddingLines = 10000;
constexpr qsizetype LongestMeasuredPiece = 4096;
constexpr double LargestTwips = 1'000'000'000;   // twice that fits an int
constexpr qsizetype LateCutBudget = 200'000'000; // characters searched once the rounds are used up

// Heights in the text strip. The height of a text is the sum of its lines' heights, so every line is measured once,
// however often the song is paged anew.
class StripMeasure {
public:
  StripMeasure(const PaginationLayout &layout, TextMeasure &measure)
      : m_layout(layout), m_measure(measure), m_emptyLinePx(Ask({})) {}

  double EmptyLinePx() const { return m_emptyLinePx; }

  double Px(const QString &text) {
    double px = 0;
    AddLines(text, [&px](double linePx) {
      px += linePx;
      return true;
    });
    return px;
  }

  // Looks no further than it must, so that a song which is one endless stanza costs little in every round.
  bool Reaches(const QString &text, int limitTwips) {
    double px = 0;
    AddLines(text, [&](double linePx) {
      px += linePx;
      return ToTwips(px) < limitTwips;
    });
    return ToTwips(px) >= limitTwips;
  }

  int Twips(const QString &text) { return ToTwips(Px(text)); }

  static int ToTwips(double px) { return RoundHalfEven(std::clamp(px * TwipsPerPixel, 0.0, LargestTwips)); }

private:
  // Hands the height of each line to `add` until that returns false.
  template <typename Add> void AddLines(const QString &text, Add add) {
    qsizetype from = 0;
    for (;;) {
      qsizetype end = from;
      while (end < text.size() && text[end] != u'\r' && text[end] != u'\n')
        ++end;
      if (!add(LinePx(QStringView(text).sliced(from, end - from))) || end == text.size())
        return;
      from = end + (QStringView(text).sliced(end).startsWith(LineEnd) ? 2 : 1);
    }
  }

  double LinePx(QStringView line) {
    if (line.isEmpty())
      return m_emptyLinePx;
    // A line of megabytes is measured in pieces: it fits no screen either way, and its layout would take the memory of
    // a thousand songs.
    double px = 0;
    for (; line.size() > LongestMeasuredPiece; line = line.sliced(LongestMeasuredPiece))
      px += PiecePx(line.first(LongestMeasuredPiece).toString());
    return px + PiecePx(line.toString());
  }

  double PiecePx(const QString &piece) {
    const auto known = m_known.constFind(piece);
    if (known != m_known.constEnd())
      return *known;
    const double px = Ask(piece);
    m_known.insert(piece, px);
    return px;
  }

  // A measure that fails counts as no height.
  double Ask(const QString &text) {
    const double px = m_measure.Height(text, m_layout.font, m_layout.wrapWidthPx);
    return px > 0 ? px : 0;
  }

  const PaginationLayout &m_layout;
  TextMeasure &m_measure;
  QHash<QString, double> m_known;
  double m_emptyLinePx;
};

// A piece of text that grows by empty lines, and its height.
struct PaddedText {
  QString text;
  double px = 0;

  void AppendEmptyLine(const StripMeasure &strip) {
    text += LineEnd;
    px += strip.EmptyLinePx();
  }

  // While `goOn` says so of the height in twips. An empty line without height would never end the padding.
  template <typename Condition> void PadWhile(const StripMeasure &strip, Condition goOn) {
    if (strip.EmptyLinePx() <= 0)
      return;
    for (int lines = 0; lines < MostPaddingLines && goOn(StripMeasure::ToTwips(px)); ++lines)
      AppendEmptyLine(strip);
  }
};

bool IsBlank(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' '; });
}

QString CutInTheMiddle(const QStringList &lines) {
  const qsizetype lastOfUpperPart = (lines.size() - 1) / 2;
  QString result;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    result += lines[i] + LineEnd;
    if (i == lastOfUpperPart)
      result += TwoLineEnds;
  }
  return result;
}

// Fills screen after screen with the lines of a short stanza.
QString CutWhereFull(const QStringList &lines, int limit, StripMeasure &strip) {
  QString result;
  QString screen;
  int sinceCut = -1;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    ++sinceCut;
    const bool blank = IsBlank(lines[i]);
    if (!blank)
      screen += lines[i] + LineEnd;
    if (i == lines.size() - 1) {
      result += screen;
    } else if (blank && sinceCut >= 3 && !screen.isEmpty()) {
      PaddedText padded{screen, strip.Px(screen)};
      padded.PadWhile(strip, [limit](int twips) { return twips < limit; });
      result += padded.text;
      screen.clear();
      sinceCut = -1;
    } else if (limit * 0.9 < strip.Twips(screen)) {
      result += screen + ThreeLineEnds;
      screen.clear();
    }
  }
  return TrimAll(result.replace(FourLineEnds, ThreeLineEnds));
}

QString Recut(const QString &stanza, int limit, StripMeasure &strip) {
  if (stanza.contains(TwoLineEnds))
    return QString(stanza).replace(TwoLineEnds, ThreeLineEnds);
  const QStringList lines = SplitText(stanza, LineEnd);
  return lines.size() >= LinesCutInTheMiddle ? CutInTheMiddle(lines) : CutWhereFull(lines, limit, strip);
}

// Cuts over-tall stanzas of `text` until all fit or the rounds are used up, and returns the stanzas to page.
QStringList StanzasToPage(QString &text, int limit, StripMeasure &strip) {
  int rounds = 0;
  qsizetype lateCutBudget = LateCutBudget;
  for (;;) {
    const QStringList stanzas = SplitStanzas(text);
    bool startOver = false;
    for (const QString &stanza : stanzas) {
      if (!strip.Reaches(stanza, limit))
        continue;
      if (rounds >= MostRounds) {
        lateCutBudget -= text.size();
        if (lateCutBudget < 0)
          break;
      }
      const QString before = text;
      const QString cut = Recut(stanza, limit, strip);
      if (cut != stanza)
        text = ReplaceInLinearTime(text, stanza, cut);
      // Where the cut changes nothing, every further round would come to the same stanza again.
      rounds = text == before ? MostRounds : rounds + 1;
      if (rounds < MostRounds) {
        startOver = true;
        break;
      }
    }
    if (!startOver)
      return stanzas;
  }
}

// The stanza with the empty lines behind it that push the next one to the top of a new screen; `next` is null for the
// last stanza.
PaddedText PadToNextScreen(const QString &stanza, const QString *next, int limit, StripMeasure &strip) {
  PaddedText padded{stanza, strip.Px(stanza)};
  if (next) {
    const int target = RoundHalfEven(limit - (limit - StripMeasure::ToTwips(padded.px)) / 2.0);
    padded.PadWhile(strip, [target](int twips) { return twips <= target; });
  }
  while (!padded.text.endsWith(ThreeLineEnds))
    padded.AppendEmptyLine(strip);
  if (next) {
    // A short stanza stands lower on its screen.
    const qsizetype nextLines = SplitText(*next, LineEnd).size();
    const int extra = nextLines < 2 ? 3 : nextLines < 3 ? 2 : 0;
    for (int i = 0; i < extra; ++i)
      padded.AppendEmptyLine(strip);
  }
  return padded;
}

} // namespace

PaginatedSong PaginateVerses(QString &text, const PaginationLayout &layout, TextMeasure &measure) {
  StripMeasure strip(layout, measure);
  const QStringList stanzas = StanzasToPage(text, layout.limitTwips, strip);

  PaginatedSong song;
  song.Estrofes.resize(2);
  song.Estrofes[1].Topo = 1;
  song.Estrofes[1].Base = 1;
  song.TotalEstrofes = 1;
  double stripPx = 0;
  for (qsizetype i = 0; i < stanzas.size(); ++i) {
    const QString &stanza = stanzas[i];
    const bool last = i == stanzas.size() - 1;
    if (!IsBlank(stanza)) {
      Estrofe &open = song.Estrofes.back();
      open.Base = open.Topo + strip.Twips(stanza);
      open.Texto = stanza;
    }
    const PaddedText padded = PadToNextScreen(stanza, last ? nullptr : &stanzas[i + 1], layout.limitTwips, strip);
    song.TextoPaginado += padded.text;
    stripPx += padded.px;
    if (!last) {
      const int top = StripMeasure::ToTwips(stripPx);
      song.Estrofes.push_back({top, top, {}});
      ++song.TotalEstrofes;
    }
    song.TextoPaginado += LineEnd;
  }
  return song;
}

QString SplitLongStanza(const QString &stanza, int limitTwips, const PaginationLayout &layout, TextMeasure &measure) {
  StripMeasure strip(layout, measure);
  return Recut(stanza, limitTwips, strip);
}

} // namespace tolmira
