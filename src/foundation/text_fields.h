#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <limits>

namespace tolmira {

inline constexpr QStringView CRLF = u"\r\n";

// The n-th field, counted from 1, of `text` split at `delimiter`; empty past the last field.
QString SplitField(const QString &text, const QString &delimiter, int n);

// What stands in front of the last occurrence of `delimiter`; the whole text when there is none.
QString BaseNameBefore(const QString &text, const QString &delimiter);

// CR LF, lone LF and their mixtures as the program keeps them: CR LF stays, a lone LF becomes CR LF.
QString NormalizeLineEnds(const QString &text);

// A plain split with the upper-bound rule of the stores: the empty text has no pieces, "a|b|" has three.
QStringList SplitText(const QString &text, const QString &delimiter);

// The number at the head of a text: leading blanks, sign, digits, one ".", an exponent. 0 when there is none.
double NumericPrefix(const QString &text);

// Float to whole number, halves to the even neighbour, as every such conversion here.
int RoundHalfEven(double value);

// The number at the head of a text in that type of integer, as RoundHalfEven makes it; the nearest one that the type
// has.
template <typename Inteiro> Inteiro WholeNumber(const QString &text) {
  using Limits = std::numeric_limits<Inteiro>;
  return static_cast<Inteiro>(
      RoundHalfEven(std::clamp(NumericPrefix(text), double(Limits::min()), double(Limits::max()))));
}

// A number as its shortest plain decimal text with ".", whatever the locale ("1.5", "60", "-0.25").
QString NumberText(double value);

// Reads a number written with "." or "," as decimal sign; 0 when it is none.
double ReadNumber(const QString &text);

// Removes CRLF pairs from both ends. Works in pairs of characters only: a lone CR or LF stays.
QString TrimCrLf(const QString &text);
// Blanks, TrimCrLf, blanks, TrimCrLf, in that order.
QString TrimAll(const QString &text);

} // namespace tolmira
