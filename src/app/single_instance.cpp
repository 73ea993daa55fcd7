#include "app/single_instance.h"

#include <QFile>
#include <QSysInfo>

#include "foundation/real_path.h"

namespace tolmira {

namespace {

// A copy that starts at this very moment has made its lock and is about to write who it is.
constexpr int WritingMs = 200;

} // namespace

SingleInstance::SingleInstance(const AppFolder &app)
    : m_lock(std::make_unique<QLockFile>(MapStoredPath(app.At(u"\\Data\\tolmira.lock")).text())) {
  // A service lasts longer than any time-out: only a process that is gone makes a lock stale, never its age.
  m_lock->setStaleLockTime(0);
}

bool SingleInstance::Start(UserPrompt &prompt) {
  const auto started = [this] { return m_lock->tryLock(WritingMs) || m_lock->error() != QLockFile::LockFailedError; };
  if (started())
    return true;

  const QString title = QStringLiteral("Tolmira");
  qint64 pid = 0;
  QString host;
  QString program;
  const bool signedLock = m_lock->getLockInfo(&pid, &host, &program);
  if (signedLock && host == QSysInfo::machineHostName()) {
    prompt.Message(MessageKind::Information, title,
                   QStringLiteral("Tolmira is already running with this program folder."));
    return false;
  }
  // Whether a process of another computer still runs cannot be seen from here: a folder on a stick that was pulled out
  // looks like a folder that is shared. A lock that nobody signed is what a power cut leaves behind.
  if (signedLock) {
    const QString text = QStringLiteral("The computer \"%1\" has opened this program folder and did not close it.\n"
                                        "If Tolmira still runs there, both would write to the same files.")
                             .arg(host);
    if (prompt.Ask(title, text, {QStringLiteral("Start anyway"), QStringLiteral("Cancel")}) != 0)
      return false;
  }
  QFile::remove(m_lock->fileName());
  return started();
}

} // namespace tolmira
