#pragma once

#include "import/imported_bible.h"

#include <QString>
#include <memory>
#include <vector>

namespace sword {
class SWMgr;
}

namespace tolmira {

struct SwordBible {
  QString module;      // "engKJV2006eb"
  QString description; // "King James Version"
  QString language;    // "en"
};

// The modules that are installed where the SWORD library looks for them: the folder of SWORD_PATH, the user's ~/.sword,
// the system's.
class SwordLibrary {
public:
  SwordLibrary();
  ~SwordLibrary();
  SwordLibrary(const SwordLibrary &) = delete;
  SwordLibrary &operator=(const SwordLibrary &) = delete;

  std::vector<SwordBible> Bibles() const; // by name of the module

  // Reads the 66 books of a module in its own numbering; further books are passed over. False with the reason, as a
  // sentence for the person who typed the name, when nothing of it can be read.
  bool Read(const QString &module, ImportedBible &bible, QString &reason) const;

private:
  std::unique_ptr<sword::SWMgr> m_library;
};

} // namespace tolmira
