#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

namespace tolmira {

// What the system says has happened in a folder. It sees all that programs of this machine do through the folder
// itself, at the moment they do it. It does not see changes made on another machine, through another name of the same
// file, or through a file that was mapped into memory.
class FolderWatch {
public:
  FolderWatch() = default;
  ~FolderWatch();
  FolderWatch(const FolderWatch &) = delete;
  FolderWatch &operator=(const FolderWatch &) = delete;

  // Watches this folder and no other. False when the system cannot: no watch is to be had, or the folder lies on a disk
  // of another machine.
  bool Watch(const QString &realPath);
  void Stop();
  bool IsWatching() const { return m_queue >= 0; }

  struct Changes {
    QSet<QByteArray> files; // whose content or rights may have changed, as the disk spells them
    bool names = false;     // files came, went or changed their names
    bool unknown = false;   // anything may have happened; the watch has ended
  };
  // What happened since the last call.
  Changes Take();

private:
  int m_queue = -1;
};

} // namespace tolmira
