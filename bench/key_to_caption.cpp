// From the key that steps to the caption in a real browser source, over the running program:
//   key_to_caption [TIMES]; TOLMIRA_BIN_DIR names the folder of the programs
#include "program/remote_program.h"
#include "support/real_browser.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <algorithm>
#include <cstdio>

using namespace tolmira::testing;

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  const int times = argc > 1 ? std::max(atoi(argv[1]), 2) : 40;
  QTcpServer free;
  free.listen();
  const QString port = QString::number(free.serverPort());
  free.close();
  QTemporaryDir folder;
  QDir(folder.path()).mkpath(QStringLiteral("a/Data"));
  QFile config(folder.filePath(QStringLiteral("a/Data/Config.dat")));
  if (!config.open(QIODevice::WriteOnly))
    return 1;
  config.write("[Legendas]\r\nstartOnLoad=True\r\nporta=" + port.toLatin1() + "\r\n");
  config.close();
  QDir(folder.path()).mkpath(QStringLiteral("a/Lyrics"));
  QFile song(folder.filePath(QStringLiteral("a/Lyrics/Song.txt")));
  if (!song.open(QIODevice::WriteOnly))
    return 1;
  for (int verse = 1; verse <= 9; ++verse)
    song.write("Verse " + QByteArray::number(verse) + "\r\nof it\r\n\r\n");
  song.close();

  RemoteProgram program(folder.filePath(QStringLiteral("a")));
  RealBrowser browser;
  if (!program.Start() || !browser.Start())
    return 1;
  program.Do(QStringLiteral("show"), {{QStringLiteral("kind"), 2},
                                      {QStringLiteral("label"), QStringLiteral("Song")},
                                      {QStringLiteral("target"), QStringLiteral("Song")}});
  const auto key = [&program](const char *name) {
    program.Do(QStringLiteral("key"), {{QStringLiteral("key"), QLatin1String(name)}});
  };
  key("Down");
  browser.Go(u"http://127.0.0.1:" + port + u"/captions");
  // Resolved by the page itself as soon as the new text is in its document.
  const QString next =
      QStringLiteral("new Promise(d => new MutationObserver((m, o) => { if (m.some(c => [...c.addedNodes]"
                     ".some(n => n.innerText))) { o.disconnect(); d(Date.now()) } })"
                     ".observe(document.body, {subtree: true, childList: true}))");
  browser.Eval(QStringLiteral("new Promise(d => setTimeout(d, 1500))"));
  std::vector<double> waits;
  for (int n = 0; n < times; ++n) {
    browser.Eval(
        QStringLiteral("window.seen = %1; new Promise(d => setTimeout(d, %2))").arg(next).arg(400 + 37 * (n % 8)));
    const qint64 pressed = QDateTime::currentMSecsSinceEpoch();
    key(n / 8 % 2 == 0 ? "Down" : "Up");
    waits.push_back(browser.Eval(QStringLiteral("window.seen")).toDouble() - static_cast<double>(pressed));
  }
  std::sort(waits.begin(), waits.end());
  std::printf("key to the new text in a browser source  %.0f ms median, %.0f ms 95th of %d\n", waits[waits.size() / 2],
              waits[waits.size() * 95 / 100], times);
  return 0;
}
