#include "foundation/trash.h"

#include "foundation/real_path.h"

#include <QFile>
#include <QFileInfo>

namespace tolmira {

bool RemoveToTrash(const QString &storedPath) {
  const QString path = MapStoredPath(storedPath).text();
  if (!QFileInfo::exists(path)) {
    // Gone, and not merely out of reach: a disk that was pulled out comes back with its files.
    const QFileInfo folder(QFileInfo(path).path());
    return folder.isReadable() && folder.isExecutable();
  }
  return QFileInfo(path).isFile() && (QFile::moveToTrash(path) || QFile::remove(path));
}

} // namespace tolmira
