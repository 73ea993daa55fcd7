#include <QtTest>

#include "console/projection_place.h"
#include "console_fixture.h"
#include "support/fixed_monitors.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

const QRect Mesa(0, 0, 1280, 800);
const QRect Direita(1280, 0, 1920, 1080);

// A desktop on which windows go where they are told, with what they were told.
class Desktop : public ConsoleFixture {
public:
  Desktop() { monitors.list = {FixedMonitors::At(1, Mesa), FixedMonitors::At(2, Direita)}; }

  std::unique_ptr<ProjectionPlace> Place() {
    ProjectionPlace::Janelas janelas;
    janelas.Posiciona = [this](const PlacaDoTelao &placa) {
      window = placa.tela;
      visible = true;
      ++moves;
    };
    janelas.Esconde = [this] { visible = false; };
    janelas.LevaConsole = [this](const clsMonitor &monitor) {
      monitors.console = monitor.Handle;
      ++consoleMoves;
    };
    janelas.Retangulo = [this] { return window; };
    janelas.Tamanho = [this] { return window.size(); };
    janelas.TelaMudou = [this] { ++refits; };
    auto place = std::make_unique<ProjectionPlace>(core.contexto, monitors, std::move(janelas));
    place->PosicionarFrmQuendar();
    return place;
  }
  void Unplug(quintptr handle) {
    std::erase_if(monitors.list, [handle](const clsMonitor &m) { return m.Handle == handle; });
    if (monitors.console == handle && !monitors.list.empty())
      monitors.console = monitors.list.front().Handle; // the desktop moves the window somewhere
  }
  const PainelConsole &Panel() const { return core.painel; }

  FixedMonitors monitors;
  QRect window;
  bool visible = false;
  int moves = 0;
  int consoleMoves = 0;
  int refits = 0;
};

} // namespace

class TestMonitors : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void whereTheProjectionGoes_data() {
    QTest::addColumn<QList<QRect>>("monitors");
    QTest::addColumn<int>("console"); // index
    QTest::addColumn<QRect>("place");
    QTest::addColumn<bool>("second");
    QTest::newRow("second monitor") << QList<QRect>{Mesa, Direita} << 0 << Direita << true;
    QTest::newRow("to the left") << QList<QRect>{Mesa, {-1024, 32, 1024, 768}} << 0 << QRect(-1024, 32, 1024, 768)
                                 << true;
    QTest::newRow("console on the second") << QList<QRect>{Mesa, Direita} << 1 << Mesa << true;
    QTest::newRow("first that is free of three")
        << QList<QRect>{Mesa, {2080, 0, 640, 480}, {1280, 0, 800, 600}} << 0 << QRect(1280, 0, 800, 600) << true;
    QTest::newRow("one monitor") << QList<QRect>{Mesa} << 0 << QRect(320, 200, 640, 400) << false;
    QTest::newRow("mirrored") << QList<QRect>{Mesa, Mesa} << 1 << QRect(320, 200, 640, 400) << false;
    QTest::newRow("mirrored in part") << QList<QRect>{{0, 0, 640, 480}, Mesa} << 1 << QRect(320, 200, 640, 400)
                                      << false;
    QTest::newRow("behind a larger one") << QList<QRect>{Mesa, {0, 0, 1024, 768}} << 1 << QRect(320, 200, 640, 400)
                                         << false;
    QTest::newRow("too small to be met") << QList<QRect>{Mesa, {1290, 10, 200, 150}} << 0 << QRect(320, 200, 640, 400)
                                         << false;
  }
  void whereTheProjectionGoes() {
    QFETCH(QList<QRect>, monitors);
    QFETCH(int, console);
    Desktop desktop;
    desktop.monitors.list.clear();
    for (int i = 0; i < monitors.size(); ++i)
      desktop.monitors.list.push_back(FixedMonitors::At(static_cast<quintptr>(i) + 1, monitors[i]));
    desktop.monitors.console = static_cast<quintptr>(console) + 1;
    const auto place = desktop.Place();
    QTEST(desktop.window, "place");
    const clsMonitors all(desktop.monitors);
    QTEST(EscolheTela(all, EscolhaDeMonitor(desktop.store)).segundoMonitor, "second");
    QCOMPARE(desktop.prompt.shown.size(), all.Monitors.size() == 1 ? 1 : 0);
    if (all.Monitors.size() == 1) {
      QCOMPARE(desktop.prompt.shown.first().kind, MessageKind::Critical);
      QVERIFY(desktop.prompt.shown.first().text.startsWith(
          QStringLiteral("The second monitor or projector is not activated")));
    }
  }

  void aUnpluggedProjectorComesBackTwentyTimes() {
    Desktop desktop;
    const auto place = desktop.Place();
    for (int round = 0; round < 20; ++round) {
      desktop.Unplug(2);
      place->Reavalia();
      QVERIFY(desktop.Panel().SemProjetor);
      QVERIFY(!desktop.visible);
      QCOMPARE(desktop.Panel().TelaoEm, QStringLiteral("OUT-2"));
      desktop.monitors.list.push_back(FixedMonitors::At(2, Direita));
      place->Reavalia();
      QVERIFY(desktop.visible);
      QVERIFY(!desktop.Panel().SemProjetor);
      QCOMPARE(desktop.window, Direita);
    }
    QCOMPARE(desktop.refits, 0); // the verse stood there all the time
    QCOMPARE(desktop.consoleMoves, 0);
    desktop.monitors.list.back() = FixedMonitors::At(2, QRect(1280, 0, 1024, 768));
    place->Reavalia();
    QCOMPARE(desktop.window, QRect(1280, 0, 1024, 768));
    QCOMPARE(desktop.refits, 1);
  }

  void aRehearsalIsLeftWhereItWasDragged() {
    Desktop desktop;
    desktop.Unplug(2);
    const auto place = desktop.Place();
    QVERIFY(!desktop.Panel().SemProjetor);
    const int moves = desktop.moves;
    place->Reavalia();
    QCOMPARE(desktop.moves, moves);
    desktop.monitors.list.push_back(FixedMonitors::At(2, Direita));
    place->Reavalia();
    QCOMPARE(desktop.window, Direita);
  }

  void aRehearsalReturnsFromAMonitorThatWent() {
    Desktop desktop;
    const auto place = desktop.Place();
    place->EscolheTela(1);
    const QRect centred = desktop.window;
    desktop.window.moveTo(1500, 100);
    place->Reavalia();
    QCOMPARE(desktop.window.topLeft(), QPoint(1500, 100));
    desktop.Unplug(2);
    place->Reavalia();
    QCOMPARE(desktop.window, centred);
  }

  void theConsoleGoesHomeWithItsMonitor() {
    Desktop desktop;
    const auto place = desktop.Place();
    desktop.Unplug(1);
    place->Reavalia();
    QCOMPARE(desktop.monitors.console, quintptr(2));
    QCOMPARE(desktop.consoleMoves, 1);
    QVERIFY(!desktop.visible); // it would cover the console
    desktop.monitors.list.insert(desktop.monitors.list.begin(), FixedMonitors::At(7, Mesa, QStringLiteral("OUT-1")));
    place->Reavalia();
    QCOMPARE(desktop.monitors.console, quintptr(7));
    QCOMPARE(desktop.window, Direita);
    QVERIFY(desktop.visible);
  }

  void aConsoleThatWasTakenElsewhereStaysThere() {
    Desktop desktop;
    const QRect third(3200, 0, 1280, 1024);
    desktop.monitors.list.push_back(FixedMonitors::At(3, third));
    const auto place = desktop.Place();
    desktop.Unplug(1);
    place->Reavalia();
    QCOMPARE(desktop.window, third);
    desktop.monitors.console = 3; // the operator drags it there
    place->Reavalia();
    QCOMPARE(desktop.window, Direita);
    desktop.monitors.list.push_back(FixedMonitors::At(1, Mesa));
    place->Reavalia();
    QCOMPARE(desktop.monitors.console, quintptr(3));
  }

  // All outputs off leaves a screen that is none of them; it goes with the first that returns.
  void theConsoleGoesHomeThroughSeveralRefuges() {
    Desktop desktop;
    const auto place = desktop.Place();
    desktop.monitors.list = {FixedMonitors::At(5, QRect(0, 0, 1280, 800), QStringLiteral(":60.0"))};
    desktop.monitors.console = 5;
    place->Reavalia();
    QVERIFY(!desktop.visible);
    desktop.monitors.list = {FixedMonitors::At(6, Direita, QStringLiteral("OUT-2"))};
    desktop.monitors.console = 6;
    place->Reavalia();
    QVERIFY(!desktop.visible);
    desktop.monitors.list.push_back(FixedMonitors::At(7, Mesa, QStringLiteral("OUT-1")));
    place->Reavalia();
    QCOMPARE(desktop.monitors.console, quintptr(7));
    QCOMPARE(desktop.window, Direita);
    QVERIFY(desktop.visible);
  }

  void aPanelThatComesUpMovesTheConsole() {
    Desktop desktop;
    const auto place = desktop.Place();
    desktop.monitors.list.front().WorkTop = 30;
    place->Reavalia();
    QCOMPARE(desktop.consoleMoves, 1);
    place->Reavalia();
    QCOMPARE(desktop.consoleMoves, 1);
  }

  void theOperatorChooses() {
    Desktop desktop;
    const QRect third(3200, 0, 800, 600);
    const QString edid = QStringLiteral("ACME Beam 7001");
    desktop.monitors.list.push_back(FixedMonitors::At(3, third, QStringLiteral("DP-3"), edid));
    auto place = desktop.Place();
    QCOMPARE(desktop.window, Direita);
    QCOMPARE(desktop.Panel().telas.size(), size_t(4));
    QCOMPARE(desktop.Panel().telas[0].texto, QStringLiteral("Automatic"));
    QVERIFY(desktop.Panel().telas[0].marcada);
    QCOMPARE(desktop.Panel().telas[3].texto, QStringLiteral("ACME Beam 7001, 800 × 600 at 3200, 0"));

    place->EscolheTela(3);
    QCOMPARE(desktop.window, third);
    QVERIFY(desktop.Panel().telas[3].marcada && !desktop.Panel().telas[0].marcada);

    // Gone, the rule holds; back on another connector at another place, it is known again.
    desktop.Unplug(3);
    place->Reavalia();
    QCOMPARE(desktop.window, Direita);
    QVERIFY(!desktop.Panel().SemProjetor);
    QCOMPARE(desktop.Panel().telas.back(), (OpcaoDeTela{QStringLiteral("ACME Beam 7001, not connected"), true, false}));
    const QRect elsewhere(-800, 0, 800, 600);
    desktop.monitors.list.push_back(FixedMonitors::At(9, elsewhere, QStringLiteral("HDMI-1"), edid));
    place->Reavalia();
    QCOMPARE(desktop.window, elsewhere);
    place = desktop.Place(); // the next start
    QCOMPARE(desktop.window, elsewhere);

    // Of two that say the same the connector tells.
    const auto twin = FixedMonitors::At(10, QRect(4000, 0, 800, 600), QStringLiteral("DP-3"), edid);
    desktop.monitors.list.push_back(twin);
    place->Reavalia();
    QCOMPARE(desktop.window, twin.Rect());

    place->EscolheTela(0);
    QCOMPARE(desktop.window, elsewhere); // the first of the walk over the desktop
  }

  void theConsolesOwnMonitorIsAChoiceForRehearsal() {
    Desktop desktop;
    const auto place = desktop.Place();
    place->EscolheTela(1);
    QCOMPARE(desktop.window, QRect(320, 200, 640, 400));
    desktop.Unplug(2);
    place->Reavalia();
    QVERIFY(!desktop.Panel().SemProjetor);
    QVERIFY(desktop.visible);
    place->EscolheTela(7);
    QCOMPARE(desktop.window, QRect(320, 200, 640, 400));
  }

  // The console comes onto the chosen monitor, or only one of the same make as the chosen one is left: that was no choice
  // of a window above the console.
  void aChosenProjectorNeverBecomesARehearsal_data() {
    QTest::addColumn<quintptr>("gone");
    QTest::addColumn<QString>("edid"); // of both
    QTest::newRow("the console's monitor went") << quintptr(1) << QString();
    QTest::newRow("its twin holds the console") << quintptr(2) << QStringLiteral("ACME Panel");
  }
  void aChosenProjectorNeverBecomesARehearsal() {
    QFETCH(quintptr, gone);
    QFETCH(QString, edid);
    Desktop desktop;
    for (clsMonitor &monitor : desktop.monitors.list)
      monitor.Edid = edid;
    const auto all = desktop.monitors.list;
    const auto place = desktop.Place();
    place->EscolheTela(2);
    QCOMPARE(desktop.window, Direita);
    desktop.Unplug(gone);
    place->Reavalia();
    QVERIFY(desktop.Panel().SemProjetor);
    QVERIFY(!desktop.visible);
    QCOMPARE(desktop.Panel().telas.back().texto.endsWith(u"not connected"), gone == 2);
    desktop.monitors.list = all;
    place->Reavalia();
    QVERIFY(desktop.visible);
    QCOMPARE(desktop.window, Direita);
    // The operator asks for it on the console's own, which this start and the next believe.
    place->EscolheTela(1);
    QVERIFY(desktop.visible);
    QCOMPARE(desktop.window, QRect(320, 200, 640, 400));
    desktop.Place();
    QCOMPARE(desktop.window, QRect(320, 200, 640, 400));
    // Chosen for the audience, and then the program opens there.
    place->EscolheTela(2);
    desktop.monitors.console = 2;
    desktop.Place();
    QCOMPARE(desktop.window, Mesa);
  }

  void aDamagedChoiceIsNone_data() {
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("nonsense") << QByteArray("abc|def|g\xFF");
    QTest::newRow("separators") << QByteArray("|||||");
    QTest::newRow("long") << QByteArray(5000, 'x');
  }
  void aDamagedChoiceIsNone() {
    QFETCH(QByteArray, stored);
    Desktop desktop;
    desktop.Write(QStringLiteral("Data/Config.dat"), "[Config]\r\nMonitorDoTelao=" + stored + "\r\n");
    const auto place = desktop.Place();
    QCOMPARE(desktop.window, Direita);
    place->EscolheTela(0);
    QCOMPARE(desktop.Panel().telas.size(), size_t(3));
  }

  void windowsWithinReach_data() {
    QTest::addColumn<QRect>("window");
    QTest::addColumn<bool>("reach");
    QTest::newRow("inside") << QRect(100, 100, 800, 600) << true;
    QTest::newRow("across both") << QRect(1000, 100, 800, 600) << true;
    QTest::newRow("beyond the right") << QRect(3190, 100, 800, 600) << false;
    QTest::newRow("above") << QRect(100, -10, 800, 600) << false;
    QTest::newRow("absurd") << QRect(-60000, 66000, 800, 600) << false;
  }
  void windowsWithinReach() {
    QFETCH(QRect, window);
    const Desktop desktop;
    QTEST(clsMonitors(desktop.monitors).AoAlcance(window), "reach");
  }

  void theSameLinesStayOnAnotherProjection() {
    Desktop desktop;
    desktop.core.faixa.PainelAltura = 2000 * TwipsPerPixel;
    QByteArray song;
    for (int stanza = 0; stanza < 4; ++stanza) {
      for (int line = 0; line < 6; ++line)
        song += "Linha " + QByteArray::number(10 * stanza + line) + "\r\n";
      song += "\r\n";
    }
    desktop.Write(QStringLiteral("Lyrics/Longa.txt"), song);
    EstadoConsole &estado = desktop.core.estado;
    const auto change = [&](const QSize &size) {
      desktop.display.size = size;
      desktop.core.TelaMudou();
    };
    desktop.display.size = QSize(800, 800);
    desktop.Show(QStringLiteral("Longa"));
    QCOMPARE(estado.TotalEstrofes, 4);
    for (int i = 0; i < 3; ++i)
      desktop.core.stepper.TeclaEstrofe(1);
    QVERIFY(estado.VersoTextoAtual.startsWith(u"Linha 20"));
    change(QSize(1280, 300)); // too low for six lines
    QCOMPARE_GT(estado.TotalEstrofes, 4);
    QVERIFY2(estado.VersoTextoAtual.startsWith(u"Linha 20"), qPrintable(estado.VersoTextoAtual));
    change(QSize(800, 800));
    QVERIFY(estado.VersoTextoAtual.startsWith(u"Linha 20"));

    // While Ctrl is held the projection keeps its verse, and the frame its own.
    desktop.core.stepper.CtrlDown();
    desktop.core.stepper.TeclaEstrofe(1);
    change(QSize(900, 900));
    QVERIFY(desktop.VersesSent().last().startsWith(u"Linha 20"));
    QCOMPARE(estado.EstrofeAtual, 4);
    desktop.core.stepper.CtrlUp();
    QVERIFY(desktop.VersesSent().last().startsWith(u"Linha 30"));

    desktop.core.stepper.CtrlDown();
    desktop.core.stepper.TeclaEstrofe(-1);
    change(QSize(1280, 300));
    const auto inFrame = [&] { return estado.TextoEstrofes.value(estado.EstrofeAtual - 1); };
    QVERIFY2(inFrame().startsWith(u"Linha 20"), qPrintable(inFrame()));
    QVERIFY(estado.VersoTextoAtual.startsWith(u"Linha 30"));
    // Ctrl is let go while the page is built.
    desktop.yielder.onYield = [&](int) {
      if (!estado.EnviarAoTelao)
        desktop.core.stepper.CtrlUp();
    };
    change(QSize(800, 800));
    QVERIFY(estado.EnviarAoTelao);
    QVERIFY2(inFrame().startsWith(u"Linha 20"), qPrintable(inFrame()));
    QVERIFY(desktop.VersesSent().last().startsWith(u"Linha 20"));
  }

  void aPageThatComesBackLeavesTheOtherAlone() {
    Desktop desktop;
    desktop.Write(QStringLiteral("Lyrics/Tres.txt"), TresEstrofes);
    desktop.Show(QStringLiteral("Tres"));
    desktop.core.stepper.TeclaEstrofe(1);
    desktop.EndGlide();
    desktop.Forget();
    desktop.core.PaginaVoltou(Alvo::Previa);
    QVERIFY(desktop.display.commands.isEmpty() && desktop.display.page.scripts.isEmpty());
    QCOMPARE(desktop.preview.scripts.filter(QStringLiteral("UpdateTextHtml(")).size(), 1);
    desktop.Forget();
    desktop.core.PaginaVoltou(Alvo::Telao);
    QVERIFY(desktop.preview.scripts.isEmpty());
    QCOMPARE(desktop.VersesSent().size(), 1);
  }

  void textOfThePreviewFollowsItsSize() {
    Desktop desktop;
    desktop.Write(QStringLiteral("Lyrics/Tres.txt"), TresEstrofes);
    desktop.Show(QStringLiteral("Tres"));
    desktop.core.estado.FonteTamanho = QStringLiteral("62");
    desktop.Forget();
    desktop.core.PreviaMudou(); // 320 of 1280 pixels
    QCOMPARE(desktop.preview.scripts.first(), QStringLiteral("ChangeCSS('set_text','font-size','16pt')"));
    QVERIFY(desktop.display.commands.isEmpty() && desktop.display.page.scripts.isEmpty());
  }
};

QTEST_GUILESS_MAIN(TestMonitors)
#include "test_monitors.moc"
