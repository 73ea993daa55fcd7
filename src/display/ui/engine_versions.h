#pragma once

#include <QString>

namespace tolmira {

// Versions of what draws and plays, as the libraries that run report them.
struct EngineVersions {
  QString webEngine;
  QString chromium;
  QString mpv; // empty when the library cannot start
};
EngineVersions ReadEngineVersions();

} // namespace tolmira
