#include "foundation/text_utils.h"

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace tolmira {
namespace {

// Two figures of a year stand for the hundred years from 1930, as date fields of this kind read them.
int FullYear(int year) {
  if (year < 0 || year > 99)
    return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

// The fields of the pattern in the order in which they stand.
QString FieldOrder(const QString &pattern) {
  const std::array<QChar, 3> fields = {u'y', u'm', u'd'};
  QString order;
  for (QChar character : pattern) {
    if (character == u'a')
      character = u'y';
    if (std::find(fields.begin(), fields.end(), character) != fields.end() && !order.contains(character))
      order += character;
  }
  return order;
}

} // namespace

QDate FormatDate(int day, int month, int year, const QString &shortPattern) {
  const QString pattern = shortPattern.toLower();
  QString written = pattern;
  for (const char *mark : {"aaaa", "aa", "yyyy", "yy"})
    written.replace(QLatin1String(mark), QString::number(year));
  for (const char *mark : {"mmm", "mm", "m"})
    written.replace(QLatin1String(mark), QString::number(month));
  for (const char *mark : {"dd", "d"})
    written.replace(QLatin1String(mark), QString::number(day));

  static const QRegularExpression NotDigits(QStringLiteral("[^0-9]+"));
  const QStringList numbers = written.split(NotDigits, Qt::SkipEmptyParts);
  const QString order = FieldOrder(pattern);
  if (numbers.size() != 3 || order.size() != 3)
    return {};
  const auto field = [&](QChar mark) { return numbers.at(order.indexOf(mark)).toInt(); };
  return QDate(FullYear(field(u'y')), field(u'm'), field(u'd'));
}

QDate FormatDate(int day, int month, int year) {
  return FormatDate(day, month, year, QLocale::system().dateFormat(QLocale::ShortFormat));
}

} // namespace tolmira
