#include "bible/version_text.h"

#include "bible/books.h"
#include "foundation/text_fields.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tolmira {
namespace {

constexpr QChar Mark = u'>';
constexpr qsizetype LongestName = 24;
// Every chapter there is lies far below; a header with another number is found by going through the text.
constexpr int IndexedChapters = 1000;

int KeyOf(int book, int chapter) {
  return book * IndexedChapters + chapter;
}

bool IsWordCharacter(char32_t character) {
  return QChar::isLetterOrNumber(character) || character == U'_';
}

bool WordEndsAt(QStringView text, qsizetype at) {
  if (at == 0)
    return false;
  const QChar last = text.at(at - 1);
  const bool pair = last.isLowSurrogate() && at >= 2 && text.at(at - 2).isHighSurrogate();
  return IsWordCharacter(pair ? QChar::surrogateToUcs4(text.at(at - 2), last) : last.unicode());
}

bool WordBeginsAt(QStringView text, qsizetype at) {
  if (at >= text.size())
    return false;
  const QChar first = text.at(at);
  const bool pair = first.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
  return IsWordCharacter(pair ? QChar::surrogateToUcs4(first, text.at(at + 1)) : first.unicode());
}

bool IsOfNumber(QChar character) {
  return (character >= u'0' && character <= u'9') || character == u'.' || character == u'-';
}

struct FoundHeader {
  int book;
  QStringView chapter;
  qsizetype behind;
};

// The header that begins with the mark at `at`. What stands in its brackets is taken as far as numbers are made of.
std::optional<FoundHeader> HeaderAt(QStringView text, qsizetype at) {
  const QStringView rest = text.sliced(at + 1);
  const qsizetype open = rest.first(std::min(rest.size(), LongestName + 2)).indexOf(u'[');
  if (open < 2 || rest.at(open - 1) != u' ')
    return std::nullopt;
  qsizetype close = open + 1;
  while (close < rest.size() && IsOfNumber(rest.at(close)))
    ++close;
  if (close == rest.size() || rest.at(close) != u']')
    return std::nullopt;
  const qsizetype behind = at + 1 + close + 1;
  if (WordEndsAt(text, at) || WordBeginsAt(text, behind))
    return std::nullopt;
  const int book = BookOfName(rest.first(open - 1));
  if (book == 0)
    return std::nullopt;
  return FoundHeader{book, rest.sliced(open + 1, close - open - 1), behind};
}

// The number of a chapter that the index holds; 0 for any other text.
int IndexedChapter(QStringView chapter) {
  if (chapter.isEmpty() || chapter.size() > 3 || chapter.front() == u'0')
    return 0;
  int number = 0;
  for (const QChar digit : chapter) {
    if (digit < u'0' || digit > u'9')
      return 0;
    number = number * 10 + digit.unicode() - u'0';
  }
  return number;
}

QStringView WithoutLineEnd(QStringView line) {
  return line.endsWith(u'\r') ? line.chopped(1) : line;
}

} // namespace

VersionText::VersionText(QString text) : m_text(std::move(text)) {
  // Decoding reserves as many characters as the file has bytes; a version beyond Latin needs far fewer.
  m_text.squeeze();
  std::vector<bool> seen(static_cast<size_t>(KeyOf(BookCount + 1, 0)));
  for (qsizetype at = m_text.indexOf(Mark); at >= 0; at = m_text.indexOf(Mark, at + 1)) {
    const std::optional<FoundHeader> header = HeaderAt(m_text, at);
    if (!header || at < SearchStart(header->book))
      continue;
    const int chapter = IndexedChapter(header->chapter);
    const int key = KeyOf(header->book, chapter);
    if (chapter == 0 || seen[static_cast<size_t>(key)])
      continue;
    seen[static_cast<size_t>(key)] = true;
    m_headers.append({key, header->behind});
  }
  std::sort(m_headers.begin(), m_headers.end(), [](const Header &a, const Header &b) { return a.key < b.key; });
  m_headers.squeeze();
}

qsizetype VersionText::FindHeader(int book, int chapter) const {
  const int key = KeyOf(book, chapter);
  const auto found = std::lower_bound(m_headers.begin(), m_headers.end(), key,
                                      [](const Header &header, int wanted) { return header.key < wanted; });
  return found != m_headers.end() && found->key == key ? found->behind : -1;
}

qsizetype VersionText::BehindHeader(int book, const QString &chapter) const {
  if (const int indexed = IndexedChapter(chapter); indexed > 0)
    return FindHeader(book, indexed);
  for (qsizetype at = m_text.indexOf(Mark, SearchStart(book)); at >= 0; at = m_text.indexOf(Mark, at + 1)) {
    if (const std::optional<FoundHeader> header = HeaderAt(m_text, at);
        header && header->book == book && header->chapter == chapter)
      return header->behind;
  }
  return -1;
}

QStringList VersionText::ChapterLines(qsizetype behindHeader) const {
  const qsizetype end = m_text.indexOf(Mark, behindHeader);
  const QString chapter = m_text.mid(behindHeader, end < 0 ? -1 : end - behindHeader);
  QStringList lines = SplitText(chapter, CRLF.toString());
  if (lines.size() == 1)
    lines = chapter.split(u'\n');
  return lines;
}

QStringView VersionText::VerseLine(qsizetype behindHeader, int verse) const {
  const QStringView text(m_text);
  qsizetype start = behindHeader;
  for (int line = 0; line <= verse; ++line) {
    const qsizetype lineEnd = text.indexOf(u'\n', start);
    const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
    const QStringView content = text.sliced(start, end - start);
    // Another header on the rest of this chapter's own header line leaves it without verses.
    if (line == 0 ? content.contains(Mark) : content.startsWith(Mark))
      return {};
    if (line == verse)
      return line == 0 ? QStringView() : WithoutLineEnd(content);
    if (lineEnd < 0)
      return {};
    start = end + 1;
  }
  return {};
}

QList<int> VersionText::Chapters(int book) const {
  QList<int> chapters;
  for (const Header &header : m_headers) {
    if (header.key / IndexedChapters == book)
      chapters.append(header.key % IndexedChapters);
  }
  return chapters;
}

QList<QStringView> VersionText::VerseLines(int book, int chapter) const {
  const qsizetype behind = chapter > 0 && chapter < IndexedChapters ? FindHeader(book, chapter) : -1;
  if (behind < 0)
    return {};
  const qsizetype end = m_text.indexOf(Mark, behind);
  QStringView rest = QStringView(m_text).sliced(behind, (end < 0 ? m_text.size() : end) - behind);
  QList<QStringView> lines;
  for (qsizetype lineEnd = rest.indexOf(u'\n'); lineEnd >= 0;) {
    rest = rest.sliced(lineEnd + 1);
    lineEnd = rest.indexOf(u'\n');
    lines.append(WithoutLineEnd(lineEnd < 0 ? rest : rest.first(lineEnd)));
  }
  while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
    lines.removeLast();
  return lines;
}

QStringView TextBehindNumber(QStringView line) {
  return line.sliced(line.indexOf(u' ') + 1);
}

} // namespace tolmira
