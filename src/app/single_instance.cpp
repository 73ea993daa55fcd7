#include "app/single_instance.h"

#include "foundation/real_path.h"

namespace tolmira {

SingleInstance::SingleInstance(const AppFolder &app)
    : m_lock(std::make_unique<QLockFile>(MapStoredPath(app.At(u"\\Data\\tolmira.lock")).text())) {
  // A service lasts longer than any time-out: only a process that is gone makes a lock stale, never its age.
  m_lock->setStaleLockTime(0);
}

bool SingleInstance::Start(UserPrompt &prompt) {
  if (m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError)
    return true;
  prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                 QStringLiteral("Tolmira is already running with this program folder."));
  return false;
}

} // namespace tolmira
