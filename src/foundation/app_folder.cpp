#include "foundation/app_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tolmira {
namespace {

const QLatin1String Token("(APP)");

QString WithoutLastSeparator(QString path) {
  while (path.endsWith(u'/') || path.endsWith(u'\\'))
    path.chop(1);
  return path;
}

bool MakePrivate(const QString &folder) {
  return QDir().mkpath(folder) && QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) &&
         QFileInfo(folder).isWritable();
}

} // namespace

AppFolder::AppFolder(QString path) : m_path(WithoutLastSeparator(std::move(path))) {}

QString AppFolder::ExpandAppPath(const QString &text) const {
  return QString(text).replace(Token, m_path);
}

QString AppFolder::CompactAppPath(const QString &text) const {
  return m_path.isEmpty() ? text : QString(text).replace(m_path, Token);
}

QString TempFolder() {
  const QString set = WithoutLastSeparator(qEnvironmentVariable("TEMP"));
  if (!set.isEmpty())
    return set;
  // The session's runtime folder is kept in memory: pages can still be written when the disk is full or read-only, and
  // no theme change waits for a slow disk.
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (QDir::isAbsolutePath(runtime) && QFileInfo(runtime).isDir()) {
    const QString own = runtime + QStringLiteral("/tolmira");
    if (MakePrivate(own))
      return own;
  }
  const QString own =
      QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + QStringLiteral("/tolmira/tmp");
  MakePrivate(own);
  return own;
}

} // namespace tolmira
