#include "songs/folder_watch.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cstddef>
#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr uint32_t Content = IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB;
constexpr uint32_t Names = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr uint32_t Gone = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED | IN_Q_OVERFLOW;

// File systems that nobody writes to behind this system's back.
bool IsLocal(const QByteArray &path) {
  constexpr std::array<long, 11> Local = {
      EXT4_SUPER_MAGIC,      BTRFS_SUPER_MAGIC, XFS_SUPER_MAGIC,   F2FS_SUPER_MAGIC,       TMPFS_MAGIC, RAMFS_MAGIC,
      OVERLAYFS_SUPER_MAGIC, MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, 0x7366746e /* ntfs3 */, 0x2fc12fc1 /* zfs */};
  struct statfs system {};
  return statfs(path.constData(), &system) == 0 &&
         std::find(Local.begin(), Local.end(), static_cast<long>(system.f_type)) != Local.end();
}

} // namespace

FolderWatch::~FolderWatch() {
  Stop();
}

bool FolderWatch::Watch(const QString &realPath) {
  Stop();
  const QByteArray path = QFile::encodeName(realPath);
  if (!IsLocal(path))
    return false;
  m_queue = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (m_queue >= 0 &&
      inotify_add_watch(m_queue, path.constData(), Content | Names | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR) < 0)
    Stop();
  return IsWatching();
}

void FolderWatch::Stop() {
  if (m_queue >= 0)
    close(m_queue);
  m_queue = -1;
}

FolderWatch::Changes FolderWatch::Take() {
  Changes changes;
  changes.unknown = !IsWatching();
  alignas(inotify_event) std::array<char, 16 * 1024> buffer;
  for (ssize_t got = 0; IsWatching() && (got = read(m_queue, buffer.data(), buffer.size())) > 0;) {
    for (ssize_t at = 0; at < got;) {
      const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + at);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      changes.names |= (event->mask & Names) != 0;
      // Without a name it is the folder itself whose rights changed.
      if ((event->mask & Gone) != 0 || event->len == 0)
        changes.unknown = true;
      else
        changes.files.insert(QByteArray(event->name));
    }
  }
  if (changes.unknown)
    Stop();
  return changes;
}

} // namespace tolmira
