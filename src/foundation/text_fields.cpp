#include "foundation/text_fields.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace tolmira {
namespace {

bool IsDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

qsizetype SkipDigits(QStringView text, qsizetype at) {
  while (at < text.size() && IsDigit(text.at(at)))
    ++at;
  return at;
}

double ParseFinite(QStringView text) {
  bool ok = false;
  const double value = text.toDouble(&ok);
  return ok && std::isfinite(value) ? value : 0;
}

QStringView TrimBlanks(QStringView text) {
  while (text.startsWith(u' '))
    text = text.sliced(1);
  while (text.endsWith(u' '))
    text.chop(1);
  return text;
}

QStringView TrimLineEnds(QStringView text) {
  while (text.startsWith(CRLF))
    text = text.sliced(CRLF.size());
  while (text.endsWith(CRLF))
    text.chop(CRLF.size());
  return text;
}

} // namespace

QString SplitField(const QString &text, const QString &delimiter, int n) {
  if (n < 1)
    return {};
  if (delimiter.isEmpty())
    return n == 1 ? text : QString();
  qsizetype start = 0;
  for (int field = 1;; ++field) {
    const qsizetype end = text.indexOf(delimiter, start);
    if (field == n)
      return text.mid(start, end < 0 ? -1 : end - start);
    if (end < 0)
      return {};
    start = end + delimiter.size();
  }
}

QString BaseNameBefore(const QString &text, const QString &delimiter) {
  const qsizetype at = delimiter.isEmpty() ? -1 : text.lastIndexOf(delimiter);
  return at < 0 ? text : text.left(at);
}

QString NormalizeLineEnds(const QString &text) {
  const QLatin1String marker("TEMP_CRLF");
  const QLatin1String lineEnd("\r\n");
  return QString(text).replace(lineEnd, marker).replace(QLatin1String("\n"), lineEnd).replace(marker, lineEnd);
}

QStringList SplitText(const QString &text, const QString &delimiter) {
  if (text.isEmpty())
    return {};
  return delimiter.isEmpty() ? QStringList{text} : text.split(delimiter);
}

double NumericPrefix(const QString &text) {
  qsizetype start = 0;
  while (start < text.size() && (text.at(start) == u' ' || text.at(start) == u'\t'))
    ++start;
  const QStringView rest = QStringView(text).sliced(start);
  qsizetype end = !rest.isEmpty() && (rest.front() == u'+' || rest.front() == u'-') ? 1 : 0;
  const qsizetype whole = SkipDigits(rest, end);
  qsizetype digits = whole - end;
  end = whole;
  if (end < rest.size() && rest.at(end) == u'.') {
    const qsizetype fraction = SkipDigits(rest, end + 1);
    digits += fraction - end - 1;
    end = fraction;
  }
  if (digits == 0)
    return 0;
  if (end < rest.size() && rest.at(end).toLower() == u'e') {
    qsizetype exponent = end + 1;
    if (exponent < rest.size() && (rest.at(exponent) == u'+' || rest.at(exponent) == u'-'))
      ++exponent;
    const qsizetype exponentEnd = SkipDigits(rest, exponent);
    if (exponentEnd > exponent)
      end = exponentEnd;
  }
  return ParseFinite(rest.first(end));
}

int RoundHalfEven(double value) {
  using Limits = std::numeric_limits<int>;
  if (std::isnan(value))
    return 0;
  // The default rounding mode is to the nearest, halves to even.
  const double rounded = std::nearbyint(value);
  if (rounded >= Limits::max())
    return Limits::max();
  return rounded <= Limits::min() ? Limits::min() : static_cast<int>(rounded);
}

QString NumberText(double value) {
  if (!std::isfinite(value) || value == 0)
    return QStringLiteral("0");
  return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

double ReadNumber(const QString &text) {
  return ParseFinite(text.trimmed().replace(u',', u'.'));
}

QString TrimCrLf(const QString &text) {
  return TrimLineEnds(text).toString();
}

QString TrimAll(const QString &text) {
  return TrimLineEnds(TrimBlanks(TrimLineEnds(TrimBlanks(text)))).toString();
}

} // namespace tolmira
