#include "display/ui/engine_start.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <unistd.h>

namespace tolmira {

bool EngineCanStart() {
  if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX") &&
      !qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--no-sandbox"))
    return false;
  QString program = qEnvironmentVariable("QTWEBENGINEPROCESS_PATH");
  if (program.isEmpty())
    program = QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + u"/QtWebEngineProcess";
  return QFileInfo(program).isExecutable();
}

} // namespace tolmira
