#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace tolmira {

// One file of a version in memory, with an index of its chapter headers. A copy shares the text.
//
// A chapter is found as a search through the text would find it: the first header ">book [chapter]" from the book's
// SearchStart on, in any case and as whole words (no letter or digit touches it on either side). A header in front of
// that, or a second one of the same chapter, counts for nothing.
class VersionText {
public:
  VersionText() = default;
  explicit VersionText(QString text);

  bool IsEmpty() const { return m_text.isEmpty(); }
  const QString &Text() const { return m_text; }

  // Position behind the header of that chapter; -1 for none. `chapter` is the text between the brackets.
  qsizetype BehindHeader(int book, const QString &chapter) const;

  // What stands between such a position and the next ">", split on CR LF, or on LF where that gives one piece only.
  // Element 0 is the rest of the header line, and the last one is empty when the chapter ends with a line end.
  QStringList ChapterLines(qsizetype behindHeader) const;

  // Line `verse` behind the header, with its number and without its line end (LF, with or without a CR in front). Empty
  // at and behind a line that begins with ">". A ">" inside a line does not end it here.
  QStringView VerseLine(qsizetype behindHeader, int verse) const;

  // For browsing and searching: the chapters that a book has here, ascending (1 to 999), and the lines of one up to the
  // next ">", so that element n - 1 is verse n. Blank lines at its end are left out, the others count.
  QList<int> Chapters(int book) const;
  QList<QStringView> VerseLines(int book, int chapter) const;

private:
  struct Header {
    int key; // book and chapter
    qsizetype behind;
  };
  qsizetype FindHeader(int book, int chapter) const;

  QString m_text;
  QList<Header> m_headers; // by key
};

// A verse line without its number: what stands behind the first blank, the whole line where it has none.
QStringView TextBehindNumber(QStringView line);

} // namespace tolmira
