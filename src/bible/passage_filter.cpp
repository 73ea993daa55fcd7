#include "bible/passage_filter.h"

#include <QStringList>

#include "bible/books.h"
#include "foundation/text_utils.h"

namespace tolmira {

namespace {

constexpr int MaisDigitos = 3; // no chapter and no verse has more

// Digits as a number, 0 when they are none or more than any reference has.
int SmallNumber(const QString &word) {
  bool digits = false;
  const int number = word.toInt(&digits);
  return digits && word.size() <= MaisDigitos ? number : 0;
}

bool IsDigits(const QString &word) {
  for (const QChar c : word)
    if (c < u'0' || c > u'9')
      return false;
  return !word.isEmpty();
}

} // namespace

PassageFilter ParsePassageFilter(const QString &text) {
  // Whatever parts the numbers is a blank: FoldText would join them.
  QString spaced = text;
  for (QChar &c : spaced)
    if (!c.isLetterOrNumber() && !c.isMark())
      c = u' ';
  const QStringList words = FoldText(spaced).split(u' ', Qt::SkipEmptyParts);

  PassageFilter filter;
  qsizetype at = 0;
  // "1 sam": a digit in front of letters is the book's number.
  if (words.size() >= 2 && words[0].size() == 1 && words[0] >= u"1" && words[0] <= u"3" && !IsDigits(words[1])) {
    filter.livro = QString(words[0].toInt(), u'i');
    at = 1;
  }
  for (; at < words.size() && !IsDigits(words[at]); ++at)
    filter.livro += (filter.livro.isEmpty() ? QString() : QStringLiteral(" ")) + words[at];
  if (at < words.size())
    filter.capitulo = SmallNumber(words[at++]);
  if (at < words.size())
    filter.versiculo = SmallNumber(words[at]);
  return filter;
}

QList<int> BooksOf(const PassageFilter &filter) {
  QList<int> first;
  QList<int> later;
  for (int book = 1; book <= BookCount; ++book) {
    const QString name = FoldText(BookName(book));
    if (name.startsWith(filter.livro))
      first.append(book);
    else if (name.contains(QString(u' ' + filter.livro)))
      later.append(book);
  }
  // A name that begins with the letters is meant before one that only holds them: "john" is John before I John.
  return first + later;
}

} // namespace tolmira
