#pragma once

#include <QString>

namespace tolmira {

// The 66 books by number: 1 to 39 the Old Testament, 40 to 66 the New. The names are those of the version files; they
// are the same in every version, whatever its language.

inline constexpr int BookCount = 66;
inline constexpr int OldTestamentBooks = 39;

// The book whose whole name, followed by a blank, leads the reference; case and accents do not matter. 0 for none.
int BookNumber(const QString &reference);
QString BookName(int number);         // empty outside 1 to 66
QString BookAbbreviation(int number); // empty outside 1 to 66
// The book of exactly this name in any case, as it stands in the header of a chapter; 0 for none.
int BookOfName(QStringView name);
// The first book, in the books' own order, whose name begins with the typed text; empty for none. The names are
// compared without accents, the typed text as it stands: "gê" finds no book. Every name begins with the empty text.
QString BookFromPrefix(const QString &text);
// Characters to skip before a book is looked for in its file, with a margin for versions shorter than most.
int SearchStart(int number);
int ChapterCount(int number); // chapters that the book has in the common numbering; 0 outside 1 to 66

} // namespace tolmira
