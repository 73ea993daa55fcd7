#pragma once

#include <QList>
#include <QString>

namespace tolmira {

// What an operator types to narrow the books, chapters and verses of the browser: letters of a book, then a chapter,
// then a verse ("joh 3 16", "1 sam 17", "songs 2:1"). Case and accents do not matter; the roman number of a book may be
// typed as a digit.
struct PassageFilter {
  QString livro;     // folded; empty for every book
  int capitulo = 0;  // 0: none typed
  int versiculo = 0; // 0: none typed
};

PassageFilter ParsePassageFilter(const QString &text);

// The books that the letters leave, in their order: first those whose name begins with the letters, then those in which a
// later word does.
QList<int> BooksOf(const PassageFilter &filter);

} // namespace tolmira
