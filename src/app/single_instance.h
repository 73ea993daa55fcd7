#pragma once

#include <QLockFile>

#include <memory>

#include "foundation/app_folder.h"
#include "foundation/seams.h"

namespace tolmira {

// Keeps two copies from writing to one program folder. The lock lies in Data and is held while this object lives; one
// that a killed program left behind counts for nothing.
class SingleInstance {
public:
  explicit SingleInstance(const AppFolder &app);

  // False when another copy runs with this folder; the operator has been told then. Where the lock is that of another
  // computer the operator decides. In a folder that cannot be written nobody can hold a lock, and the start goes on.
  bool Start(UserPrompt &prompt);

private:
  std::unique_ptr<QLockFile> m_lock;
};

} // namespace tolmira
