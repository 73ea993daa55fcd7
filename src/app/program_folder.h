#pragma once

#include "app/asset_places.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// Which folder is <app>: `wish` (option --app), else the executable's folder when it holds Data/ (a portable copy),
// else tolmira/ in the user's data folder ($XDG_DATA_HOME, default ~/.local/share). Absolute, without a separator at
// its end. Makes nothing.
QString ChooseProgramFolder(const QString &wish, const QString &executableFolder);

struct FillResult {
  bool isNew = false;  // the folder was absent or empty and got the starter service
  bool usable = false; // the folder exists now
  QStringList written; // files that were added or upgraded, relative to <app>
  QString problem;     // what went wrong, for the operator; empty when all is well
};

// Brings the program folder to what this version needs. Adds the subfolders and the page templates that are missing;
// replaces a template only when it is, byte for byte, one that an earlier version put there (html/.installed keeps
// their checksums). A folder that is absent or empty also gets the starter service; a first filling that was cut off
// is taken up again. A folder that can be written and has no Bible version gets those that are delivered. Nothing else
// is touched, names are compared without regard to case, each file is written as one step, and every failure is
// survived and told in `problem`.
FillResult FillProgramFolder(const QString &app, const AssetPlaces &assets);

} // namespace tolmira
