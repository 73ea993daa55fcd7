#include "foundation/app_folder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace tolmira {
namespace {

const QLatin1String Token("(APP)");

QString WithoutLastSeparator(QString path) {
  while (path.endsWith(u'/') || path.endsWith(u'\\'))
    path.chop(1);
  return path;
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
  const QString own =
      QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + QStringLiteral("/tolmira/tmp");
  QDir().mkpath(own);
  QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return own;
}

} // namespace tolmira
