#include "foundation/file_name.h"

#include <algorithm>

namespace tolmira {

namespace {

constexpr QStringView Forbidden = u"\\/:*?\"<>|";
// Bytes; below the 255 of common file systems, because a file that is being written bears a longer name for a moment.
constexpr qsizetype LongestFileName = 240;

} // namespace

QString TidyFileName(QString name) {
  std::replace_if(
      name.begin(), name.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(u' '));
  return name.trimmed();
}

QStringList ForbiddenInFileName(const QString &name) {
  QStringList found;
  for (const QChar c : Forbidden)
    if (name.contains(c))
      found.append(c);
  return found;
}

bool IsTooLongForFileName(const QString &nameWithExtension) {
  return nameWithExtension.toUtf8().size() > LongestFileName;
}

} // namespace tolmira
