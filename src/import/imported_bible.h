#pragma once

#include <QString>
#include <QStringList>
#include <map>

namespace tolmira {

// What was read of a Bible: texts by book (1 to 66), chapter and verse, in the numbering of its source. A verse that
// the numbering has and the source left empty is put with an empty text, so that it can be told as missing.
class ImportedBible {
public:
  using Chapters = std::map<int, QStringList>; // by number; element n - 1 is verse n, the last one has a text

  void Put(int book, int chapter, int verse, const QString &text);

  // The chapters of a book that have a text; none for a book that has none.
  const Chapters &Book(int book) const;

  int BookTotal() const;
  int ChapterTotal() const;
  int VerseTotal() const; // those with a text

  QStringList MissingBooks() const;    // names of the books without any text
  QStringList MissingChapters() const; // "Ezra 4", of books that have a text
  QStringList MissingVerses() const;   // "Acts 8:37", of chapters that have a text
  QStringList DamagedVerses() const;   // verses with a character that the source spells wrongly

private:
  std::map<int, Chapters> m_books;
  std::map<int, std::map<int, int>> m_numbering; // verses by book and chapter, as the source's numbering has them
};

} // namespace tolmira
