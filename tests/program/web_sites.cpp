// Plays the sites that the program reads, for the tour and for trials by hand: web_sites FOLDER
// The program folder FOLDER is pointed at them, and has to be there. It runs until its input ends.
#include "support/files.h"
#include "support/sites/all_sites.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <unistd.h>

using namespace tolmira;
using namespace tolmira::testing;

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  if (argc != 2)
    return 2;
  SiteServer server;
  PlayAllSites(server);
  PointAllAt(IniStore(AppFolder(QString::fromLocal8Bit(argv[1]))), server);
  std::printf("%s\n", qPrintable(server.Host()));
  std::fflush(stdout);
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &app, [] {
    char byte = 0;
    if (read(STDIN_FILENO, &byte, 1) <= 0)
      QCoreApplication::quit();
  });
  return QCoreApplication::exec();
}
