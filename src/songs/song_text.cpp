#include "songs/song_text.h"

#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "songs/line_ends.h"

#include <algorithm>

namespace tolmira {

namespace {

// A song that repeats its chorus beyond this is no song; it is shown as it stands instead of filling the memory.
constexpr qsizetype LargestRepeatedSong = 16 * 1024 * 1024;

// Stored paths come with both separators and in any case; for comparison they are made alike.
QString ComparablePath(const QString &path) {
  return QString(path).replace(u'/', u'\\').toLower();
}

bool IsRepaired(const AppFolder &app, const QString &path) {
  const QString comparable = ComparablePath(path);
  return comparable.contains(ComparablePath(app.At(u"\\Harpa\\"))) ||
         comparable.contains(ComparablePath(app.At(u"\\Lyrics\\")));
}

bool IsPath(const QString &pathOrText) {
  return pathOrText.endsWith(u".txt", Qt::CaseInsensitive);
}

// Takes off blanks only: a tab or a lone line feed at the end of a line belongs to the line.
QStringView WithoutOuterBlanks(QStringView line) {
  while (line.startsWith(u' '))
    line = line.sliced(1);
  while (line.endsWith(u' '))
    line.chop(1);
  return line;
}

bool BeginsWithSmallLetter(QStringView line) {
  return !line.isEmpty() && line.front() == line.front().toLower() && line.front() != line.front().toUpper();
}

// Lines end at CR or CR LF. The piece behind the last line end is a line only when it holds something.
QList<QStringView> LinesOf(const QString &text) {
  const QStringView all(text);
  QList<QStringView> lines;
  qsizetype from = 0;
  while (from < all.size()) {
    const qsizetype end = all.indexOf(u'\r', from);
    if (end < 0) {
      lines.append(all.sliced(from));
      break;
    }
    lines.append(all.sliced(from, end - from));
    from = end + 1;
    if (from < all.size() && all[from] == u'\n')
      ++from;
  }
  return lines;
}

QString JoinAsTyped(const QList<QStringView> &lines) {
  QString text;
  for (const QStringView line : lines)
    text.append(LineEnd).append(line);
  return text;
}

// A line that begins with a small letter is the rest of the line before it.
QString JoinBrokenLines(const QList<QStringView> &lines) {
  QString text;
  QStringView previous;
  for (const QStringView whole : lines) {
    const QStringView line = WithoutOuterBlanks(whole);
    if (!previous.isEmpty() && BeginsWithSmallLetter(line))
      text.append(u' ').append(line);
    else
      text.append(LineEnd).append(line);
    previous = line;
  }
  return text;
}

// Replaces at most `times` occurrences from the start, in one pass.
QString ReplaceFirst(const QString &text, QStringView old, QStringView replacement, int times) {
  QString result;
  qsizetype from = 0;
  for (qsizetype found; times > 0 && (found = text.indexOf(old, from)) >= 0; --times) {
    result.append(QStringView(text).sliced(from, found - from)).append(replacement);
    from = found + old.size();
  }
  return result.append(QStringView(text).sliced(from));
}

QString Repair(const QString &text) {
  QString repaired = TrimAll(CollapseBlankRuns(JoinBrokenLines(LinesOf(text))));
  // A typist's small L in place of the first stanza's number.
  if (repaired.startsWith(u"l."))
    repaired = ReplaceFirst(repaired, u"l.", u"1.", 4);
  return repaired.replace(QStringLiteral("  "), QStringLiteral(" "));
}

QString WithoutLeadingLineEnds(const QString &text) {
  qsizetype from = 0;
  while (QStringView(text).sliced(from).startsWith(LineEnd))
    from += LineEnd.size();
  return text.sliced(from);
}

bool IsHymn(const QStringList &stanzas) {
  if (stanzas.size() < 2 || NumericPrefix(stanzas[0]) != 1 || stanzas[1] != stanzas[1].toUpper())
    return false;
  for (qsizetype i = 2; i < stanzas.size(); ++i) {
    if (NumericPrefix(stanzas[i]) != static_cast<double>(i))
      return false;
  }
  return true;
}

} // namespace

TipoLouvor TipoDoCaminho(const QString &path) {
  const QString comparable = ComparablePath(path);
  return comparable.contains(u"\\harpa\\") || comparable.contains(u"\\cantor\\") ? TipoLouvor::Harpa
                                                                                 : TipoLouvor::Louvor;
}

QString ReadSongFile(const AppFolder &app, const QString &path) {
  const FileContent content = ReadFileContent(path);
  if (!content.exists)
    return {};
  const DecodedText decoded = DecodeText(content.bytes);
  if (!IsRepaired(app, path))
    return JoinAsTyped(LinesOf(decoded.text));

  const QString repaired = Repair(decoded.text);
  // What was cut off by a read error, or is no text at all, must not be lost by writing back the rest.
  const bool isWholeText = content.complete && !content.bytes.contains('\0');
  if (isWholeText) {
    const QByteArray bytes = EncodeText(repaired, decoded.encoding);
    if (bytes != content.bytes)
      WriteFileAtomically(path, bytes); // a file that cannot be written keeps its text and is repaired in memory only
  }
  return repaired;
}

bool WriteSongFile(const QString &path, const QString &text, TextEncoding &encoding) {
  const QByteArray bytes = EncodeText(text.isEmpty() ? text : QString(text + LineEnd), encoding);
  if (!WriteFileAtomically(path, bytes))
    return false;
  const FileContent written = ReadFileContent(path);
  if (!written.complete || written.bytes != bytes)
    return false;
  encoding = DecodeText(bytes).encoding;
  return true;
}

QString CollapseBlankRuns(const QString &text) {
  return QString(text)
      .replace(FourLineEnds, ThreeLineEnds)
      .replace(FourLineEnds, ThreeLineEnds)
      .replace(ThreeLineEnds, TwoLineEnds);
}

QString CleanSongText(const QString &text) {
  const QString twoFeeds = QStringLiteral("\n\n");
  const QString feed = QStringLiteral("\n");
  const QString placeholder = QStringLiteral("TEMP_CRLF");
  return QString(text)
      .replace(twoFeeds, feed)
      .replace(LineEnd, placeholder)
      .replace(feed, LineEnd)
      .replace(placeholder, LineEnd)
      .replace(twoFeeds, feed)
      .remove(QStringLiteral("<article>"))
      .remove(QStringLiteral("</article>"))
      .remove(u'<')
      .remove(u'>')
      .replace(QStringLiteral("&#039;"), QStringLiteral("'"));
}

QStringList SplitStanzas(const QString &text) {
  QStringList stanzas = SplitText(text, TwoLineEnds);
  for (QString &stanza : stanzas)
    stanza = TrimAll(stanza).replace(QStringLiteral("\r\n-\r\n"), QStringLiteral("\r\n \r\n"));
  return stanzas;
}

QString RepeatChorus(const QString &text) {
  QString spaced = QString(text).replace(FourLineEnds, ThreeLineEnds);
  spaced = TrimAll(spaced.replace(FourLineEnds, ThreeLineEnds));
  spaced.replace(ThreeLineEnds, TwoLineEnds).replace(ThreeLineEnds, TwoLineEnds);

  const QStringList stanzas = SplitStanzas(spaced);
  if (!IsHymn(stanzas))
    return text;
  const QString chorus = stanzas[1];
  if (spaced.size() + (stanzas.size() - 1) * (chorus.size() + 2 * TwoLineEnds.size()) > LargestRepeatedSong)
    return text;

  QString result;
  for (qsizetype i = 0; i < stanzas.size(); ++i) {
    if (i != 1)
      result += stanzas[i] + TwoLineEnds + chorus + TwoLineEnds;
  }
  return result;
}

QString ResolveSongPath(const AppFolder &app, const QString &name) {
  if (FileExists(name))
    return name;
  QStringList candidates;
  if (NumericPrefix(name) > 0)
    candidates << app.At(u"\\Harpa\\") + name << app.At(u"\\Cantor\\") + name;
  candidates << app.At(u"\\Lyrics\\") + name;
  for (const QString &candidate : candidates) {
    if (FileExists(candidate))
      return candidate;
  }
  return {};
}

PreparedSong PrepareSongText(const AppFolder &app, const QString &pathOrText, bool capitals) {
  PreparedSong song;
  song.tipo = TipoDoCaminho(pathOrText);
  QString text = pathOrText;
  if (IsPath(pathOrText)) {
    song.fileName = FileNameOf(pathOrText).chopped(4);
    text = CleanSongText(ReadSongFile(app, pathOrText));
  }

  if (song.tipo == TipoLouvor::Harpa) {
    text.replace(QStringLiteral("\r\nCoro\r\n"), LineEnd);
    text.remove(CharacterOfByte(147)).remove(CharacterOfByte(148));
  }
  for (int pass = 0; pass < 10; ++pass)
    text.replace(ThreeLineEnds, TwoLineEnds);
  text = WithoutLeadingLineEnds(text);
  if (song.tipo == TipoLouvor::Harpa)
    text = RepeatChorus(text);

  // The chorus is known by its capitals, so nothing may be upper-cased before this point.
  song.sourceText = text;
  song.maiusculo = capitals;
  song.text = capitals ? text.toUpper() : text;
  return song;
}

QString StanzaAtCaret(const QString &text, int caret) {
  qsizetype from = 0;
  if (caret > 4) {
    const qsizetype before = text.lastIndexOf(TwoLineEnds, std::min<qsizetype>(caret, text.size()) - 1);
    if (before >= 0)
      from = before + TwoLineEnds.size();
  }
  const qsizetype end = text.indexOf(TwoLineEnds, from);
  return TrimAll(end < 0 ? text.sliced(from) : text.sliced(from, end - from));
}

} // namespace tolmira
