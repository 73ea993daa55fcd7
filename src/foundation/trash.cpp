#include "foundation/trash.h"

#include "foundation/real_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tolmira {

bool MoveToTrash(const QString &path) {
  // On an account without this folder, which the toolkit does not make by itself, it would move the file into the
  // folder "files" wherever the program was started.
  const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
  const QString trash = QStringLiteral("Trash");
  if (!data.exists(trash)) {
    data.mkpath(QStringLiteral("."));
    data.mkdir(trash, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  }
  return QFileInfo(data.filePath(trash)).isDir() && QFile::moveToTrash(path);
}

bool RemoveFile(const QString &storedPath) {
  const QString path = MapStoredPath(storedPath).text();
  if (!QFileInfo::exists(path)) {
    // Gone, and not merely out of reach: a disk that was pulled out comes back with its files.
    const QFileInfo folder(QFileInfo(path).path());
    return folder.isReadable() && folder.isExecutable();
  }
  return QFileInfo(path).isFile() && (MoveToTrash(path) || QFile::remove(path));
}

} // namespace tolmira
