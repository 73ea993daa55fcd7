#pragma once

#include <QString>
#include <QStringList>

#include "display/ui/graphics_backend.h"

namespace tolmira {

// What the command line asked for. Can be read before the application object exists, because the graphics choice has to
// be made before it.
struct CommandLine {
  QString app;     // absolute; empty for the usual folder
  QString control; // absolute path of the control socket; empty for none
  QString assets;  // absolute; empty for the usual place
  GraphicsBackend graphics = GraphicsBackend::Auto;

  // Set when the program is to print `text` and end at once: help, version, or a mistake in the options.
  bool ends = false;
  int exitCode = 0; // 2 for a mistake; its text belongs on standard error
  QString text;
};

CommandLine ParseCommandLine(const QStringList &arguments);

} // namespace tolmira
