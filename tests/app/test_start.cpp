#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>

#include "app/command_line.h"
#include "app/single_instance.h"
#include "support/scripted_prompt.h"

using namespace tolmira;
using tolmira::testing::ScriptedPrompt;

// What is decided before the first window: the command line, and whether this copy may start.
class TestStart : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void secondCopyIsToldAndDoesNotStart() {
    const QTemporaryDir temp;
    QVERIFY(QDir(temp.path()).mkdir(QStringLiteral("data")));
    const AppFolder app(temp.path());
    ScriptedPrompt prompt;
    {
      SingleInstance first(app);
      QVERIFY(first.Start(prompt));
      QVERIFY(prompt.shown.isEmpty());
      SingleInstance second(app);
      QVERIFY(!second.Start(prompt));
      QCOMPARE(prompt.shown.size(), 1);
      QCOMPARE(prompt.shown.first().text, QStringLiteral("Tolmira is already running with this program folder."));
    }
    SingleInstance third(app);
    QVERIFY(third.Start(prompt));
  }

  void locksLeftBehind_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<bool>("starts");
    QTest::addColumn<int>("questions");
    // No process has so high a number.
    const QByteArray killed = "99999999\ntolmira\n";
    const QByteArray here = QSysInfo::machineHostName().toUtf8() + "\n";
    QTest::newRow("by a killed copy") << QByteArray(killed + here) << QList<int>{} << true << 0;
    QTest::newRow("by a power cut") << QByteArray() << QList<int>{} << true << 0;
    QTest::newRow("on another computer, start") << QByteArray(killed + "elsewhere\n") << QList<int>{0} << true << 1;
    QTest::newRow("on another computer, cancel") << QByteArray(killed + "elsewhere\n") << QList<int>{1} << false << 1;
    QTest::newRow("on another computer, box closed") << QByteArray(killed + "elsewhere\n") << QList<int>{} << false << 1;
  }

  void locksLeftBehind() {
    QFETCH(QByteArray, content);
    QFETCH(QList<int>, answers);
    const QTemporaryDir temp;
    QVERIFY(QDir(temp.path()).mkdir(QStringLiteral("Data")));
    QFile lock(temp.filePath(QStringLiteral("Data/tolmira.lock")));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write(content);
    lock.close();
    ScriptedPrompt prompt;
    prompt.answers = answers;
    SingleInstance instance{AppFolder(temp.path())};
    QTEST(instance.Start(prompt), "starts");
    QTEST(int(prompt.shown.size()), "questions");
  }

  void folderThatTakesNoLockDoesNotStopTheStart() {
    const QTemporaryDir temp; // without Data
    ScriptedPrompt prompt;
    SingleInstance instance{AppFolder(temp.path())};
    QVERIFY(instance.Start(prompt));
    QVERIFY(prompt.shown.isEmpty());
  }

  void options() {
    const CommandLine line = ParseCommandLine({QStringLiteral("tolmira"), QStringLiteral("--app"),
                                               QStringLiteral("church"), QStringLiteral("--control=/run/t.sock"),
                                               QStringLiteral("--graphics"), QStringLiteral("software")});
    QVERIFY(!line.ends);
    QCOMPARE(line.app, QDir::current().absoluteFilePath(QStringLiteral("church")));
    QCOMPARE(line.control, QStringLiteral("/run/t.sock"));
    QCOMPARE(line.graphics, GraphicsBackend::Software);
    QVERIFY(line.assets.isEmpty());
  }

  void endings_data() {
    QTest::addColumn<QString>("option");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("holds");
    QTest::newRow("help") << "--help" << 0 << "--control";
    QTest::newRow("version") << "--version" << 0 << "Tolmira 1.";
    QTest::newRow("unknown") << "--nonsense" << 2 << "nonsense";
    QTest::newRow("graphics") << "--graphics=neon" << 2 << "neon";
    QTest::newRow("empty value") << "--app=" << 2 << "--app";
    QTest::newRow("positional") << "song.txt" << 2 << "song.txt";
  }
  void endings() {
    QFETCH(QString, option);
    QFETCH(QString, holds);
    const CommandLine line = ParseCommandLine({QStringLiteral("tolmira"), option});
    QVERIFY(line.ends);
    QTEST(line.exitCode, "exitCode");
    QVERIFY2(line.text.contains(holds), qPrintable(line.text));
    QVERIFY(!line.text.contains(QStringLiteral("<exec")));
  }
};

QTEST_GUILESS_MAIN(TestStart)
#include "test_start.moc"
