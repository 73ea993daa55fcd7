#include "import/imported_bible.h"

#include "bible/books.h"

namespace tolmira {

namespace {

QString ChapterReference(int book, int chapter) {
  return BookName(book) + u' ' + QString::number(chapter);
}

QString VerseReference(int book, int chapter, int verse) {
  return ChapterReference(book, chapter) + u':' + QString::number(verse);
}

} // namespace

void ImportedBible::Put(int book, int chapter, int verse, const QString &text) {
  if (book < 1 || book > BookCount || chapter < 1 || verse < 1)
    return;
  int &numbered = m_numbering[book][chapter];
  numbered = std::max(numbered, verse);
  if (text.isEmpty())
    return;
  QStringList &verses = m_books[book][chapter];
  while (verses.size() < verse)
    verses << QString();
  verses[verse - 1] = text;
}

const ImportedBible::Chapters &ImportedBible::Book(int book) const {
  static const Chapters nothing;
  const auto found = m_books.find(book);
  return found == m_books.end() ? nothing : found->second;
}

int ImportedBible::BookTotal() const {
  return static_cast<int>(m_books.size());
}

int ImportedBible::ChapterTotal() const {
  std::size_t total = 0;
  for (const auto &[book, chapters] : m_books)
    total += chapters.size();
  return static_cast<int>(total);
}

int ImportedBible::VerseTotal() const {
  int total = 0;
  for (const auto &[book, chapters] : m_books)
    for (const auto &[chapter, verses] : chapters)
      for (const QString &verse : verses)
        total += verse.isEmpty() ? 0 : 1;
  return total;
}

QStringList ImportedBible::MissingBooks() const {
  QStringList missing;
  for (int book = 1; book <= BookCount; ++book)
    if (Book(book).empty())
      missing << BookName(book);
  return missing;
}

QStringList ImportedBible::MissingChapters() const {
  QStringList missing;
  for (const auto &[book, numbering] : m_numbering)
    for (const auto &[chapter, last] : numbering)
      if (!Book(book).empty() && !Book(book).contains(chapter))
        missing << ChapterReference(book, chapter);
  return missing;
}

QStringList ImportedBible::MissingVerses() const {
  QStringList missing;
  for (const auto &[book, chapters] : m_books)
    for (const auto &[chapter, verses] : chapters) {
      const int last = m_numbering.at(book).at(chapter);
      for (int verse = 1; verse <= last; ++verse)
        if (verses.value(verse - 1).isEmpty())
          missing << VerseReference(book, chapter, verse);
    }
  return missing;
}

QStringList ImportedBible::DamagedVerses() const {
  QStringList damaged;
  for (const auto &[book, chapters] : m_books)
    for (const auto &[chapter, verses] : chapters)
      for (int verse = 1; verse <= verses.size(); ++verse)
        if (verses[verse - 1].contains(QChar::ReplacementCharacter))
          damaged << VerseReference(book, chapter, verse);
  return damaged;
}

} // namespace tolmira
