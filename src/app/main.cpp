#include <QApplication>
#include <QLoggingCategory>

#include <cstdio>

#include "app/command_line.h"
#include "app/program.h"
#include "controls/ui/palette.h"
#include "display/ui/graphics_backend.h"

using namespace tolmira;

int main(int argc, char *argv[]) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i)
    arguments.append(QString::fromLocal8Bit(argv[i]));
  const CommandLine line = ParseCommandLine(arguments);
  if (line.ends) {
    std::fputs(qPrintable(line.text), line.exitCode == 0 ? stdout : stderr);
    return line.exitCode;
  }

  ChooseGraphicsBackend(line.graphics);
  // The engine tells its whole configuration at every start; QT_LOGGING_RULES brings it back for who wants it.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext.debug=false"));
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tolmira"));
  QApplication::setApplicationVersion(QStringLiteral(TOLMIRA_VERSION));
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(application);

  Program program(line);
  if (const std::optional<int> exitCode = program.Start())
    return *exitCode;
  return QApplication::exec();
}
