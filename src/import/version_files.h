#pragma once

#include "import/imported_bible.h"

#include <QString>

namespace tolmira {

enum class Testament { Old, New };

struct VersionFileText {
  QString text; // lines end with CR LF; empty when the testament has no text
  int filler =
      0; // characters before the first chapter that are there only to move the books behind their search starts
};

// One file of a version. A book is looked for from its SearchStart on, a place that suits versions of common length; a
// shorter one gets blank lines before its first chapter, where no reader looks.
VersionFileText ComposeVersionFile(const ImportedBible &bible, Testament testament);

// Whether `name` can stand in "OLD_<name>.txt": the rest of the program takes the name apart at "_", ".txt" and "OLD".
// Empty when it can, else the reason.
QString FaultOfShortName(const QString &name);

// Writes both files, the new testament's first, since a version is known by its old one. Makes the folder. Files are
// windows-1252 where that has every character, else UTF-8, and each is replaced as one step. Empty when all went well,
// else what failed.
QString WriteVersion(const ImportedBible &bible, const QString &shortName, const QString &folder, int &filler);

} // namespace tolmira
