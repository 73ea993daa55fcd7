#include "foundation/window_position.h"
#include "support/files.h"

#include <QtTest>

using namespace tolmira;

class TestWindowPosition : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_dir;
  std::unique_ptr<IniStore> m_store;

  QString Path() const { return m_dir->path() + QStringLiteral("/Data/FormPositions.dat"); }
  void Put(const QByteArray &bytes) const { testing::WriteBytes(Path(), bytes); }
  // A dialogue of 200 x 100 on a screen of 1000 x 800 that the console fills.
  static WindowPlacement Dialogue() {
    WindowPlacement placement;
    placement.window = QRect(0, 0, 200, 100);
    placement.screen = QRect(0, 0, 1000, 800);
    placement.console = placement.screen;
    return placement;
  }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("Data")));
    m_store = std::make_unique<IniStore>(AppFolder(m_dir->path()));
  }

  void SavedInTwips() {
    SaveFormPosition(*m_store, QStringLiteral("FrmSlides2"), QPoint(-7, 40));
    QCOMPARE(testing::ReadBytes(Path()), "[FrmSlides2]\r\nTOP=600\r\nLEFT=-105\r\n");
  }

  void Restoring_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QPoint>("corner");
    const QPoint centre(400, 350);
    QTest::newRow("nothing saved") << QByteArray() << centre;
    QTest::newRow("saved") << QByteArray("[F]\r\nTOP=150\r\nLEFT=300\r\n") << QPoint(20, 10);
    QTest::newRow("fractions and comma") << QByteArray("[F]\r\nTOP=150.4\r\nLEFT=300,2\r\n") << QPoint(20, 10);
    QTest::newRow("minus one is none") << QByteArray("[F]\r\nTOP=-1\r\nLEFT=300\r\n") << centre;
    QTest::newRow("left missing") << QByteArray("[F]\r\nTOP=150\r\n") << QPoint(0, 10);
    QTest::newRow("last place inside") << QByteArray("[F]\r\nTOP=10485\r\nLEFT=11985\r\n") << QPoint(799, 699);
    QTest::newRow("touches the right edge") << QByteArray("[F]\r\nTOP=150\r\nLEFT=12000\r\n") << centre;
    QTest::newRow("left of the console") << QByteArray("[F]\r\nTOP=150\r\nLEFT=-15\r\n") << centre;
    QTest::newRow("touches the lower edge") << QByteArray("[F]\r\nTOP=10500\r\nLEFT=300\r\n") << centre;
    QTest::newRow("above the console") << QByteArray("[F]\r\nTOP=-30\r\nLEFT=300\r\n") << centre;
    QTest::newRow("lost projector") << QByteArray("[F]\r\nTOP=150\r\nLEFT=22500\r\n") << centre;
    QTest::newRow("absurd") << QByteArray("[F]\r\nTOP=1e300\r\nLEFT=9999999999999\r\n") << centre;
    QTest::newRow("not a number") << QByteArray("[F]\r\nTOP=abc\r\nLEFT=x\r\n") << QPoint(0, 0);
  }
  void Restoring() {
    QFETCH(QByteArray, file);
    Put(file);
    QTEST(RestoredFormPosition(*m_store, QStringLiteral("F"), Dialogue()), "corner");
  }

  void FixedPlaceStandsForTheCentre() {
    WindowPlacement placement = Dialogue();
    placement.fixedTop = 30;
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(400, 30));
    placement.fixedLeft = 50;
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(50, 30));
  }

  void NotAboveTheConsole() {
    WindowPlacement placement = Dialogue();
    placement.console = QRect(0, 500, 1000, 300);
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(400, 500));
    placement.consoleMinimised = true;
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(400, 350));
    placement.consoleMinimised = false;
    placement.isConsole = true;
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(400, 350));
  }

  void CentredOnTheGivenScreen() {
    WindowPlacement placement = Dialogue();
    placement.screen = placement.console = QRect(1280, 100, 1000, 800);
    QCOMPARE(RestoredFormPosition(*m_store, QStringLiteral("F"), placement), QPoint(1680, 450));
  }
};

QTEST_GUILESS_MAIN(TestWindowPosition)
#include "test_window_position.moc"
