#include "remote_program.h"
#include "support/x_desktop.h"

#include <QtTest>

using tolmira::testing::XDesktop;

namespace {

const QRect Desk(0, 0, 1280, 800);
const QRect Projector(1280, 0, 1280, 720);
const QString Verse = QStringLiteral("1 2 3");

} // namespace

// Monitors that come, go and change under the running program.
class TestMonitors : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() {
    m_desktop = std::make_unique<XDesktop>(130, 139);
    if (!m_desktop->Stands())
      QSKIP(qPrintable(QString(u"No desktop with two monitors: " + m_desktop->Reason())));
  }
  void init() {
    m_desktop->TwoMonitors();
    m_folder = std::make_unique<QTemporaryDir>();
    m_program = std::make_unique<RemoteProgram>(m_folder->path());
    m_program->UseDesktop(m_desktop->Environment());
    QVERIFY(m_program->Start());
    QFile song(m_folder->filePath(QStringLiteral("Lyrics/Teste.txt")));
    QVERIFY(song.open(QIODevice::WriteOnly));
    song.write("1 2 3\r\n\r\n4 5 6\r\n");
    song.close();
    m_program->Do(QStringLiteral("show"),
                  {{QStringLiteral("kind"), 2}, {QStringLiteral("label"), QStringLiteral("Teste")}});
    QVERIFY(m_program->WaitFor(QStringLiteral("TituloAtual"), QStringLiteral("Teste"), 30000));
    Key(QStringLiteral("Down"));
    QVERIFY(OnShow(Projector));
  }
  void cleanup() {
    if (m_program) {
      QVERIFY(m_program->Quit());
      QVERIFY2(!m_program->Output().contains("Uncaught"), m_program->Output().constData());
    }
    m_program.reset();
  }
  void cleanupTestCase() { m_desktop.reset(); }

  void theProjectorIsPulledOutAndPluggedIn() {
    for (int round = 0; round < 20; ++round) {
      if (round % 2)
        Key(round % 4 == 1 ? QStringLiteral("Down") : QStringLiteral("Up")); // in the middle of its entrance
      const QString verse = round % 4 == 1 || round % 4 == 2 ? QStringLiteral("4 5 6") : Verse;
      QVERIFY(m_desktop->Set(QStringLiteral("--output DUMMY1 --off")));
      QVERIFY(m_program->WaitFor(QStringLiteral("SemProjetor"), true));
      QVERIFY(!Place(QStringLiteral("FrmQuendar"), true).isValid());
      QCOMPARE(Banner(), QStringLiteral("NO PROJECTOR"));
      QVERIFY(m_desktop->Set(QStringLiteral("--output DUMMY1 --mode 1280x720 --pos 1280x0")));
      QVERIFY(m_program->WaitFor(QStringLiteral("SemProjetor"), false));
      QVERIFY2(OnShow(Projector, verse), qPrintable(QStringLiteral("round %1").arg(round)));
      QVERIFY(!StripStands());
    }
    // The frame of the window too: its title bar is in reach.
    QVERIFY(Desk.contains(Place(QStringLiteral("FrmMonitor"))));
    QCOMPARE_GT(Place(QStringLiteral("FrmMonitor")).top(), 0);
  }

  void theProjectorTurnsIntoAnotherOne_data() {
    QTest::addColumn<QString>("change");
    QTest::addColumn<QRect>("place");
    QTest::newRow("resolution") << QStringLiteral("--output DUMMY1 --mode 1024x768") << QRect(1280, 0, 1024, 768);
    QTest::newRow("position") << QStringLiteral("--output DUMMY1 --pos 0x800") << QRect(0, 800, 1280, 720);
    QTest::newRow("left") << QStringLiteral("--output DUMMY1 --pos 0x0 --output DUMMY0 --pos 1280x0")
                          << QRect(0, 0, 1280, 720);
    QTest::newRow("primary") << QStringLiteral("--output DUMMY1 --primary") << Projector;
    QTest::newRow("the desk's resolution")
        << QStringLiteral("--output DUMMY0 --mode 1024x768 --output DUMMY1 --pos 1024x0") << QRect(1024, 0, 1280, 720);
  }
  void theProjectorTurnsIntoAnotherOne() {
    QFETCH(QString, change);
    QFETCH(QRect, place);
    QVERIFY(m_desktop->Set(QStringLiteral("--addmode DUMMY1 1024x768")));
    QVERIFY(m_desktop->Set(change));
    QVERIFY(OnShow(place));
    QTRY_VERIFY_WITH_TIMEOUT(!Place(QStringLiteral("FrmMonitor")).intersects(place), 15000);
    QVERIFY(m_program->WaitForText(QStringLiteral("preview"), Verse));
    Key(QStringLiteral("Down"));
    QVERIFY(OnShow(place, QStringLiteral("4 5 6")));
  }

  void theDesksOwnMonitorGoes() {
    QVERIFY(m_desktop->Set(QStringLiteral("--output DUMMY0 --off")));
    QVERIFY(m_program->WaitFor(QStringLiteral("SemProjetor"), true));
    const QRect left(0, 0, 1280, 720); // a desktop begins at its first monitor
    QTRY_VERIFY_WITH_TIMEOUT(left.contains(Place(QStringLiteral("FrmMonitor"))), 15000);
    QCOMPARE_GT(Place(QStringLiteral("FrmMonitor")).width(), 1200); // it fills this one too
    Key(QStringLiteral("Down"));
    QCOMPARE(m_program->State().value(QStringLiteral("EstrofeAtual")).toInt(), 2);
    m_desktop->TwoMonitors();
    QVERIFY(OnShow(Projector, QStringLiteral("4 5 6")));
    QTRY_VERIFY_WITH_TIMEOUT(Desk.contains(Place(QStringLiteral("FrmMonitor"))), 15000);
  }

  void theOperatorRehearsesOnTheDesk() {
    Choose(1); // the walk over the desktop meets the desk's monitor first
    const QRect half(320, 200, 640, 400);
    QVERIFY(OnShow(half));
    QVERIFY(StripStands());
    QCOMPARE(m_program->State().value(QStringLiteral("TelaoEm")).toString(), QStringLiteral("DUMMY0"));
    QVERIFY(m_desktop->Set(QStringLiteral("--output DUMMY1 --off")));
    QVERIFY(m_desktop->Set(QStringLiteral("--output DUMMY1 --mode 1280x720 --pos 1280x0")));
    QVERIFY(OnShow(half));
    Choose(0);
    QVERIFY(OnShow(Projector));
  }

private:
  void Key(const QString &key) {
    QVERIFY(m_program->Do(QStringLiteral("key"), {{QStringLiteral("key"), key}}).value(QStringLiteral("ok")).toBool());
  }
  void Choose(int option) {
    QTRY_VERIFY_WITH_TIMEOUT(
        m_program
            ->Do(QStringLiteral("click"), {{QStringLiteral("window"), QStringLiteral("FrmMonitor")},
                                           {QStringLiteral("control"), QStringLiteral("MnProjecao%1").arg(option)}})
            .value(QStringLiteral("ok"))
            .toBool(),
        15000);
  }
  QString Banner() {
    return m_program
        ->Do(QStringLiteral("read"), {{QStringLiteral("window"), QStringLiteral("FrmMonitor")},
                                      {QStringLiteral("control"), QStringLiteral("LbEstadoTela")}})
        .value(QStringLiteral("text"))
        .toString();
  }
  QRect Place(const QString &window, bool visibleOnly = false) {
    const QJsonObject seen = m_program->Window(window);
    const QJsonValue r = seen[QStringLiteral("rectangle")];
    if (visibleOnly && !seen[QStringLiteral("visible")].toBool())
      return {};
    return {r[QStringLiteral("x")].toInt(), r[QStringLiteral("y")].toInt(), r[QStringLiteral("width")].toInt(),
            r[QStringLiteral("height")].toInt()};
  }
  // The strip by which a rehearsal window is moved, over the projection.
  bool StripStands() {
    const QJsonObject answer =
        m_program->Do(QStringLiteral("controls"), {{QStringLiteral("window"), QStringLiteral("FrmQuendar")}});
    const QJsonArray controls = answer[QStringLiteral("controls")].toArray();
    return std::any_of(controls.begin(), controls.end(), [](const QJsonValue &control) {
      return control[QStringLiteral("name")].toString() == u"PicMove" && control[QStringLiteral("visible")].toBool();
    });
  }
  // The projection stands exactly there, and its page has the size and the verse.
  bool OnShow(const QRect &place, const QString &verse = Verse) {
    if (!QTest::qWaitFor([&] { return Place(QStringLiteral("FrmQuendar"), true) == place; }, 20000)) {
      qWarning() << "the projection stands at" << Place(QStringLiteral("FrmQuendar")) << "and not at" << place;
      return false;
    }
    const QString size = QStringLiteral("innerWidth + ' ' + innerHeight");
    const QString wanted = QStringLiteral("%1 %2").arg(place.width()).arg(place.height());
    return m_program->WaitForText(QStringLiteral("display"), verse) &&
           QTest::qWaitFor([&] { return m_program->Eval(QStringLiteral("display"), size) == wanted; }, 20000);
  }

  std::unique_ptr<XDesktop> m_desktop;
  std::unique_ptr<QTemporaryDir> m_folder;
  std::unique_ptr<RemoteProgram> m_program;
};

QTEST_GUILESS_MAIN(TestMonitors)
#include "test_monitors.moc"
