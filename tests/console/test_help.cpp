#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include "console/help_desk.h"
#include "console/key_sheet.h"
#include "support/recording_opener.h"
#include "support/scripted_prompt.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QString HelpFolder() { return qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + QStringLiteral("/assets/help"); }

QString TextOf(const QString &path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestHelp : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), store(app) { QDir(folder.path()).mkdir(QStringLiteral("Data")); }
    HelpDesk Desk(const QString &pages) { return {endpoints, prompt, opener, pages}; }
    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    Endpoints endpoints{store};
    ScriptedPrompt prompt;
    RecordingOpener opener;
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void helpOpensInTheBrowser() {
    Room room;
    room.Desk(HelpFolder()).AbreAjuda();
    QCOMPARE(room.opener.opened, QList<QUrl>{QUrl::fromLocalFile(HelpFolder() + QStringLiteral("/index.html"))});
    QVERIFY(room.prompt.shown.isEmpty());

    room.opener.answers = false; // no browser: the operator can still find the page
    room.Desk(HelpFolder()).AbreAjuda();
    QVERIFY(room.prompt.shown.last().text.contains(QStringLiteral("index.html")));
    room.Desk(QString()).AbreAjuda();
    QCOMPARE(room.prompt.shown.last().text, QStringLiteral("The help pages were not found."));
    QCOMPARE(room.opener.opened.size(), 2);
  }

  void supportNeedsAnAddress_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("opened");
    const QString none;
    QTest::newRow("no file") << QByteArray() << none;
    QTest::newRow("blank") << QByteArray("[Endpoints]\r\nSuporte= \r\n") << none;
    QTest::newRow("host") << QByteArray("[Endpoints]\r\nSuporte=help.example.org\r\n")
                          << QStringLiteral("https://help.example.org?prog=Tolmira");
    QTest::newRow("host and path") << QByteArray("[Endpoints]\r\nSuporte=example.org/desk\r\n")
                                   << QStringLiteral("https://example.org/desk?prog=Tolmira");
    QTest::newRow("address") << QByteArray("[Endpoints]\r\nSuporte=http://localhost:8080/a?b=c\r\n")
                             << QStringLiteral("http://localhost:8080/a?b=c&prog=Tolmira");
    QTest::newRow("a file") << QByteArray("[Endpoints]\r\nSuporte=file:///etc/passwd\r\n") << none;
    QTest::newRow("a script") << QByteArray("[Endpoints]\r\nSuporte=javascript://x/%0aalert(1)\r\n") << none;
    QTest::newRow("nonsense") << QByteArray("[Endpoints]\r\nSuporte=not an address\r\n") << none;
  }
  void supportNeedsAnAddress() {
    QFETCH(QByteArray, file);
    QFETCH(QString, opened);
    Room room;
    if (!file.isEmpty()) {
      QFile endpoints(room.folder.filePath(QStringLiteral("Data/Endpoints.dat")));
      QVERIFY(endpoints.open(QIODevice::WriteOnly));
      endpoints.write(file);
    }
    room.Desk(QString()).AbreSuporte();
    QCOMPARE(room.opener.opened.size(), opened.isEmpty() ? 0 : 1);
    QCOMPARE(room.prompt.shown.size(), opened.isEmpty() ? 1 : 0); // and somebody hears of it
    if (!opened.isEmpty())
      QCOMPARE(room.opener.opened.first().toString(), opened);
  }

  // Pages that link to each other, need nothing from elsewhere, and name every key of the sheet.
  void pagesAreWholeAndTellEveryKey() {
    const QDir folder(HelpFolder());
    const QStringList pages = folder.entryList({QStringLiteral("*.html")});
    QVERIFY(pages.contains(QStringLiteral("index.html")));
    const QRegularExpression link(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    for (const QString &page : pages) {
      auto links = link.globalMatch(TextOf(folder.filePath(page)));
      while (links.hasNext()) {
        const QString target = links.next().captured(1);
        QVERIFY2(folder.exists(target), qPrintable(page + QStringLiteral(" names ") + target));
      }
    }
    const QString keys = TextOf(folder.filePath(QStringLiteral("keys.html")));
    for (const GrupoDeAtalhos &grupo : FolhaDeAtalhos())
      for (const Atalho &atalho : grupo.atalhos)
        if (!atalho.tecla.isEmpty())
          QVERIFY2(keys.contains(QStringLiteral("<kbd>%1</kbd>").arg(atalho.tecla.toString())),
                   qPrintable(atalho.teclas));
  }

  void noKeyIsGivenTwice() {
    QStringList given;
    for (const GrupoDeAtalhos &grupo : FolhaDeAtalhos())
      for (const Atalho &atalho : grupo.atalhos) {
        QVERIFY(!TextoDaFolha(atalho).isEmpty() && !atalho.teclas.isEmpty());
        QVERIFY2(!given.contains(atalho.teclas), qPrintable(atalho.teclas));
        given << atalho.teclas;
      }
  }
};

QTEST_GUILESS_MAIN(TestHelp)
#include "test_help.moc"
