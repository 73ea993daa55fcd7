#include "foundation/real_path.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace tolmira {
namespace {

// A dangling link counts as there: to look for another spelling of its name would be wrong.
bool IsThere(const QString &path) {
  return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

// The entry of `folder` that is `name` in another case; the first in name order, empty when there is none.
QString FindInAnyCase(const QString &folder, QStringView name) {
  QString best;
  QDirIterator entries(folder.isEmpty() ? QStringLiteral(".") : folder,
                       QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  while (entries.hasNext()) {
    entries.next();
    const QString entry = entries.fileName();
    if (name.compare(entry, Qt::CaseInsensitive) == 0 && (best.isEmpty() || entry < best))
      best = entry;
  }
  return best;
}

} // namespace

RealPath MapStoredPath(const QString &stored) {
  QString path = stored;
  path.replace(u'\\', u'/');
  path.remove(u'\r').remove(u'\n').remove(QChar(u'\0'));
  // Nearly every path is written as it is on the disk: one look, and no folder is listed.
  if (path.isEmpty() || IsThere(path))
    return RealPath(path);

  QString found;
  found.reserve(path.size());
  qsizetype at = 0;
  while (at < path.size()) {
    if (path.at(at) == u'/') {
      found.append(path.at(at++));
      continue;
    }
    qsizetype end = path.indexOf(u'/', at);
    if (end < 0)
      end = path.size();
    const QStringView name = QStringView(path).sliced(at, end - at);
    QString next = found + name;
    if (!IsThere(next)) {
      const QString other = FindInAnyCase(found, name);
      if (other.isEmpty())
        return RealPath(found + QStringView(path).sliced(at));
      next = found + other;
    }
    found = next;
    at = end;
  }
  return RealPath(found);
}

bool IsSameFile(const QString &one, const QString &other) {
  if (one.isEmpty() || other.isEmpty())
    return false;
  const QString first = MapStoredPath(one).text();
  const QString second = MapStoredPath(other).text();
  if (first == second)
    return true;
  struct stat a = {};
  struct stat b = {};
  return ::stat(QFile::encodeName(first).constData(), &a) == 0 &&
         ::stat(QFile::encodeName(second).constData(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace tolmira
