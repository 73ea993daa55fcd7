#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "app/program_folder.h"
#include "support/files.h"
#include "support/full_disk.h"

using namespace tolmira;
using namespace tolmira::testing;

class TestProgramFolder : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_temp;
  QString m_app;
  AssetPlaces m_assets;

  QString Temp(const QString &name) const { return m_temp->filePath(name); }

  QByteArray InApp(const QString &name) const { return ReadBytes(m_app + u'/' + name); }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_temp = std::make_unique<QTemporaryDir>();
    m_app = Temp(QStringLiteral("app"));
    WriteBytes(Temp(QStringLiteral("assets/html/imagem.html")), "page 1");
    WriteBytes(Temp(QStringLiteral("libs/jquery.min.js")), "library 1");
    WriteBytes(Temp(QStringLiteral("assets/sample/Data/agenda1.dat")), "2|#|Lamp|#|Lamp\r\n");
    WriteBytes(Temp(QStringLiteral("assets/sample/Slides/Welcome.sld")), "Imagem1=(APP)\\Images\\hills.jpg\r\n");
    WriteBytes(Temp(QStringLiteral("assets/sample/Lyrics/Lamp.txt")), "Lamp\r\n");
    WriteBytes(Temp(QStringLiteral("media/Images/hills.jpg")), "picture");
    WriteBytes(Temp(QStringLiteral("media/made")), "");
    m_assets = {Temp(QStringLiteral("assets/html")), Temp(QStringLiteral("libs")),
                Temp(QStringLiteral("assets/sample")), Temp(QStringLiteral("media")), Temp(QStringLiteral("bibles"))};
    WriteBytes(Temp(QStringLiteral("bibles/OLD_KJV.txt")), "old");
    WriteBytes(Temp(QStringLiteral("bibles/NEW_KJV.txt")), "new");
  }

  void newFolderGetsEverything_data() {
    QTest::addColumn<bool>("exists");
    QTest::newRow("absent") << false;
    QTest::newRow("empty") << true;
  }
  void newFolderGetsEverything() {
    QFETCH(bool, exists);
    if (exists)
      QVERIFY(QDir().mkpath(m_app));
    const FillResult result = FillProgramFolder(m_app, m_assets);
    QVERIFY(result.isNew);
    QVERIFY(result.usable);
    QCOMPARE(result.problem, QString());
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), "page 1");
    QCOMPARE(InApp(QStringLiteral("html/lib/jquery.min.js")), "library 1");
    QCOMPARE(InApp(QStringLiteral("Lyrics/Lamp.txt")), "Lamp\r\n");
    QCOMPARE(InApp(QStringLiteral("Images/hills.jpg")), "picture");
    QCOMPARE(InApp(QStringLiteral("Slides/Welcome.sld")), "Imagem1=" + m_app.toUtf8() + "\\Images\\hills.jpg\r\n");
    QCOMPARE(InApp(QStringLiteral("Bible/NEW_KJV.txt")), "new");
    QVERIFY(QFileInfo(m_app + QStringLiteral("/Imagens/Mini")).isDir());
    QVERIFY(QFileInfo(m_app + QStringLiteral("/SlideShow")).isDir());
    QVERIFY2(!QFileInfo::exists(m_app + QStringLiteral("/made")), "only media are media");
    QVERIFY(!QFileInfo::exists(m_app + QStringLiteral("/.filling")));
  }

  void usedFolderGetsNoStarterService() {
    WriteBytes(m_app + QStringLiteral("/Lyrics/Mine.txt"), "mine");
    const FillResult result = FillProgramFolder(m_app, m_assets);
    QVERIFY(!result.isNew);
    QCOMPARE(InApp(QStringLiteral("Lyrics/Lamp.txt")), "<missing>");
    QCOMPARE(InApp(QStringLiteral("Data/agenda1.dat")), "<missing>");
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), "page 1");
    QVERIFY(QFileInfo(m_app + QStringLiteral("/Data/mini")).isDir());
  }

  void usedFolderGetsBiblesOnlyWithoutOne() {
    WriteBytes(m_app + QStringLiteral("/Bible/old_mine.txt"), "mine");
    FillProgramFolder(m_app, m_assets);
    QCOMPARE(InApp(QStringLiteral("Bible/OLD_KJV.txt")), "<missing>");
    QVERIFY(QFile::remove(m_app + QStringLiteral("/Bible/old_mine.txt")));
    QVERIFY(!FillProgramFolder(m_app, m_assets).isNew);
    QCOMPARE(InApp(QStringLiteral("Bible/OLD_KJV.txt")), "old");
    QCOMPARE(InApp(QStringLiteral("Bible/NEW_KJV.txt")), "new");
    // A version that the operator takes out stays out while there is another.
    WriteBytes(m_app + QStringLiteral("/Bible/OLD_OTHER.txt"), "other");
    QVERIFY(QFile::remove(m_app + QStringLiteral("/Bible/OLD_KJV.txt")));
    FillProgramFolder(m_app, m_assets);
    QCOMPARE(InApp(QStringLiteral("Bible/OLD_KJV.txt")), "<missing>");
  }

  void namesInAnotherCaseAreTheSameNames() {
    WriteBytes(m_app + QStringLiteral("/HTML/Imagem.HTML"), "mine");
    QVERIFY(QDir().mkpath(m_app + QStringLiteral("/data")));
    FillProgramFolder(m_app, m_assets);
    QCOMPARE(InApp(QStringLiteral("HTML/Imagem.HTML")), "mine");
    QVERIFY(!QFileInfo::exists(m_app + QStringLiteral("/html")));
    QVERIFY(!QFileInfo::exists(m_app + QStringLiteral("/Data")));
    QVERIFY(QFileInfo(m_app + QStringLiteral("/data/mini")).isDir());
  }

  void upgradeReplacesOnlyWhatNobodyChanged() {
    WriteBytes(Temp(QStringLiteral("assets/html/video.html")), "video 1");
    WriteBytes(Temp(QStringLiteral("assets/html/backcolor.html")), "back 1");
    FillProgramFolder(m_app, m_assets);
    WriteBytes(m_app + QStringLiteral("/html/video.html"), "changed by hand");
    QVERIFY(QFile::remove(m_app + QStringLiteral("/html/backcolor.html")));
    WriteBytes(m_app + QStringLiteral("/Lyrics/Lamp.txt"), "sung otherwise");
    for (const char *name : {"imagem.html", "video.html", "backcolor.html"})
      WriteBytes(Temp(QStringLiteral("assets/html/") + QLatin1String(name)), "version 2");
    WriteBytes(Temp(QStringLiteral("assets/sample/Lyrics/Lamp.txt")), "version 2");

    const FillResult result = FillProgramFolder(m_app, m_assets);
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), "version 2");
    QCOMPARE(InApp(QStringLiteral("html/video.html")), "changed by hand");
    QCOMPARE(InApp(QStringLiteral("html/backcolor.html")), "version 2");
    QCOMPARE(InApp(QStringLiteral("Lyrics/Lamp.txt")), "sung otherwise");
    QCOMPARE(result.written, QStringList({QStringLiteral("html/backcolor.html"), QStringLiteral("html/imagem.html")}));
    QCOMPARE(FillProgramFolder(m_app, m_assets).written, QStringList());
  }

  void templateOfUnknownOriginIsLeftAlone() {
    WriteBytes(m_app + QStringLiteral("/html/imagem.html"), "older, from somewhere");
    FillProgramFolder(m_app, m_assets);
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), "older, from somewhere");
  }

  void fillingThatWasCutOffGoesOn() {
    FillProgramFolder(m_app, m_assets);
    QVERIFY(QFile::remove(m_app + QStringLiteral("/Lyrics/Lamp.txt")));
    WriteBytes(m_app + QStringLiteral("/Data/agenda1.dat"), "mine");
    WriteBytes(m_app + QStringLiteral("/.filling"), "");
    QVERIFY(FillProgramFolder(m_app, m_assets).isNew);
    QCOMPARE(InApp(QStringLiteral("Lyrics/Lamp.txt")), "Lamp\r\n");
    QCOMPARE(InApp(QStringLiteral("Data/agenda1.dat")), "mine");
    QVERIFY(!QFileInfo::exists(m_app + QStringLiteral("/.filling")));
  }

  void whatAFullDiskLeftOutIsAddedLater() {
    WriteBytes(Temp(QStringLiteral("assets/html/imagem.html")), QByteArray(6000, 'p'));
    {
      const tolmira::testing::FullDisk disk(4096);
      const FillResult result = FillProgramFolder(m_app, m_assets);
      QVERIFY2(result.problem.contains(QStringLiteral("html/imagem.html could not be written")),
               qPrintable(result.problem));
    }
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), "<missing>");
    QCOMPARE(FillProgramFolder(m_app, m_assets).problem, QString());
    QCOMPARE(InApp(QStringLiteral("html/imagem.html")), QByteArray(6000, 'p'));
    QVERIFY(!QFileInfo::exists(m_app + QStringLiteral("/.filling")));
  }

  void failuresAreToldAndSurvived() {
    // A file stands where a folder should be.
    WriteBytes(m_app + QStringLiteral("/html"), "not a folder");
    const FillResult result = FillProgramFolder(m_app, m_assets);
    QVERIFY(result.usable);
    QVERIFY2(result.problem.contains(QStringLiteral("the folder html could not be made")), qPrintable(result.problem));
    QVERIFY(QFileInfo(m_app + QStringLiteral("/Lyrics")).isDir());
    QCOMPARE(InApp(QStringLiteral("html")), "not a folder");
  }

  void fileInPlaceOfTheFolder() {
    WriteBytes(m_app, "a file");
    const FillResult result = FillProgramFolder(m_app, m_assets);
    QVERIFY(!result.usable);
    QVERIFY(result.problem.contains(QStringLiteral("it is a file")));
    QCOMPARE(ReadBytes(m_app), "a file");
  }

  void missingAssetsAreTold() {
    const FillResult result = FillProgramFolder(m_app, {});
    QVERIFY(result.usable);
    QVERIFY(result.problem.contains(QStringLiteral("templates")));
  }

  void folderIsChosen() {
    const QString executables = Temp(QStringLiteral("bin"));
    qputenv("XDG_DATA_HOME", Temp(QStringLiteral("share")).toLocal8Bit());
    QCOMPARE(ChooseProgramFolder(QString(), executables), Temp(QStringLiteral("share/tolmira")));
    QVERIFY(QDir().mkpath(executables + QStringLiteral("/data")));
    QCOMPARE(ChooseProgramFolder(QString(), executables), executables);
    QCOMPARE(ChooseProgramFolder(m_app + u'/', executables), m_app);
  }

  void assetsAreFound() {
    QCOMPARE(FindAssets(Temp(QStringLiteral("assets")), QString()).sample, m_assets.sample);
    QVERIFY(!FindAssets(Temp(QStringLiteral("nowhere")), QString()).Found());
    WriteBytes(Temp(QStringLiteral("usr/share/tolmira/html/imagem.html")), "installed");
    QCOMPARE(FindAssets(QString(), Temp(QStringLiteral("usr/bin"))).html, Temp(QStringLiteral("usr/share/tolmira/html")));
    qputenv("TOLMIRA_ASSETS", Temp(QStringLiteral("assets")).toLocal8Bit());
    QCOMPARE(FindAssets(QString(), Temp(QStringLiteral("usr/bin"))).html, m_assets.html);
    qunsetenv("TOLMIRA_ASSETS");
  }
};

QTEST_GUILESS_MAIN(TestProgramFolder)
#include "test_program_folder.moc"
