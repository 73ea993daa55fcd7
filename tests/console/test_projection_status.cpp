#include <QtTest>

#include "console/projection_status.h"
#include "console_fixture.h"

using namespace tolmira;
using namespace tolmira::testing;

// What the desk says about the projection, from the records alone and in a service.
class TestProjectionStatus : public QObject {
  Q_OBJECT

private:
  struct Records {
    EstadoConsole estado;
    PainelConsole painel;
    FaixaTexto faixa;
    ListTarefas lista;
    QStringList capitulo;
    SlideDocument slides;
    SituacaoDaTela Dita() const { return DescreveSituacao({estado, painel, faixa, lista, capitulo, slides}); }
  };

  // A song of three verses with the second one out.
  static Records Song() {
    Records r;
    r.estado.TelaPronta = r.estado.EnviarAoTelao = true;
    r.estado.DefineTipo(QStringLiteral("Louvor"));
    r.estado.TextoEstrofes = {QStringLiteral("Um<br>mais"), QStringLiteral("Dois"), QStringLiteral("<br>Três<br>fim")};
    r.estado.TotalEstrofes = 3;
    r.estado.EstrofeAtual = 2;
    r.estado.VersoHtmlAtual = QStringLiteral("Dois");
    r.faixa.Label1Visible = true;
    r.painel.Label9 = QStringLiteral("Canto");
    return r;
  }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void whatIsOut_data() {
    QTest::addColumn<QString>("estadoTela");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("banner");
    QTest::addColumn<QString>("colour");
    QTest::addColumn<QString>("detail");
    const auto row = [](const char *name, const char *estado, const char *change, const char *banner,
                        const char *colour, const char *detail) {
      QTest::newRow(name) << QString::fromLatin1(estado) << QString::fromLatin1(change) << QString::fromLatin1(banner)
                          << QString::fromLatin1(colour) << QString::fromUtf8(detail);
    };
    row("a verse is out", "Normal", "", "LIVE", "live", "Verse 2 of 3");
    row("no verse yet", "Normal", "no text", "LIVE, NO TEXT", "ready", "");
    row("a video has no verses", "Normal", "video", "LIVE", "live", "");
    row("text hidden", "OcultarTexto", "", "TEXT HIDDEN", "held", "F5 brings the text back");
    row("black", "TelaPreta", "", "BLACK SCREEN", "off", "F5 brings the picture back");
    row("background", "PadraoDeFundo", "", "BACKGROUND ONLY", "held", "F5 brings the text back");
    row("no projection", "Hide", "", "NO PROJECTION", "off", "F5 brings the projection back");
    row("Ctrl", "Normal", "held", "HELD", "held", "The projection stands until Ctrl is released");
    row("Ctrl before the first verse", "Normal", "held, no text", "HELD", "held",
        "The projection stands until Ctrl is released");
    row("Ctrl does not bring hidden text back", "OcultarTexto", "held", "TEXT HIDDEN", "held",
        "F5 brings the text back");
    row("without a monitor nothing else counts", "TelaPreta", "no monitor, held", "NO PROJECTOR", "off",
        "The second monitor is missing: nothing is shown");
    row("rehearsal", "Normal", "rehearsal", "LIVE", "live",
        "Verse 2 of 3 · Rehearsal window: there is no second monitor");
    row("rehearsal, black", "TelaPreta", "rehearsal", "BLACK SCREEN", "off",
        "F5 brings the picture back · Rehearsal window: there is no second monitor");
    row("starting", "Normal", "starting", "STARTING", "", "");
    row("a camera behind the verse", "Normal", "camera 2", "LIVE", "live", "Verse 2 of 3 · Camera: Lens");
    row("a camera that was unplugged", "TelaPreta", "camera 4", "BLACK SCREEN", "off",
        "F5 brings the picture back · Camera unplugged: Lens");
  }
  void whatIsOut() {
    QFETCH(QString, estadoTela);
    QFETCH(QString, change);
    Records r = Song();
    r.estado.EstadoTela = estadoTela;
    r.estado.EnviarAoTelao = !change.contains(u"held");
    r.painel.SemProjetor = change.contains(u"no monitor");
    r.painel.Ensaio = change.contains(u"rehearsal");
    r.estado.TelaPronta = !change.contains(u"starting");
    if (change.startsWith(u"camera"))
      r.painel.camera = {true, static_cast<Cameras::Situacao>(change.back().digitValue()), QStringLiteral("Lens")};
    if (change.contains(u"no text") || change.contains(u"video"))
      r.estado.VersoHtmlAtual.clear();
    if (change.contains(u"video"))
      r.estado.DefineTipo(QStringLiteral("Video"));
    const SituacaoDaTela dita = r.Dita();
    QTEST(dita.LbEstadoTela, "banner");
    QTEST(dita.CorDoEstado, "colour");
    QTEST(dita.LbDetalheTela, "detail");
  }

  void whatComes_data() {
    QTest::addColumn<int>("verse");
    QTest::addColumn<bool>("held");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<int>("theme");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("then");
    const QString none;
    QTest::newRow("before verse 1") << -1 << false << none << -1 << QStringLiteral("Next: Um") << none;
    QTest::newRow("in the song") << 2 << false << none << -1 << QStringLiteral("Next: Três") << none;
    QTest::newRow("at its end") << 3 << false << none << -1 << QStringLiteral("Last verse") << none;
    QTest::newRow("held") << 3 << true << none << -1 << QStringLiteral("On release: Três") << none;
    QTest::newRow("held, the frame is empty")
        << -1 << true << none << -1 << QStringLiteral("On release: no text") << none;
    QTest::newRow("the chosen entry is the one on show")
        << 2 << false << QStringLiteral("Canto") << -1 << QStringLiteral("Next: Três") << none;
    QTest::newRow("another entry is chosen") << 2 << false << QStringLiteral("Outro") << -1
                                             << QStringLiteral("Next: Três") << QStringLiteral("Then: Outro");
    QTest::newRow("a theme waits") << 2 << false << none << 5 << QStringLiteral("Next: Três")
                                   << QStringLiteral("Theme 5 with the next item");
    QTest::newRow("both") << 2 << false << QStringLiteral("Outro") << 5 << QStringLiteral("Next: Três")
                          << QStringLiteral("Then: Outro · Theme 5 with the next item");
  }
  void whatComes() {
    QFETCH(int, verse);
    QFETCH(bool, held);
    QFETCH(QString, chosen);
    QFETCH(int, theme);
    Records r = Song();
    r.estado.EstrofeAtual = verse;
    r.estado.EnviarAoTelao = !held;
    r.estado.ProximoTema = theme;
    for (const QString &name : {QStringLiteral("Canto"), QStringLiteral("Outro")})
      r.lista.Add(2, name, QString());
    r.lista.SelectByName(chosen);
    const SituacaoDaTela dita = r.Dita();
    QTEST(dita.LbProximo, "next");
    QTEST(dita.LbDepois, "then");
  }

  void nothingIsOnShow() {
    Records r;
    r.estado.TelaPronta = r.estado.EnviarAoTelao = true;
    QCOMPARE(r.Dita().LbProximo, QStringLiteral("Nothing is chosen"));
    r.lista.Add(1, QStringLiteral("João 3:16"), QString());
    r.lista.Select(1, 1);
    QCOMPARE(r.Dita().LbProximo, QStringLiteral("Enter shows: João 3:16"));
    QVERIFY(r.Dita().LbDepois.isEmpty());
    r.estado.EnviarAoTelao = false; // Ctrl without a text holds nothing
    QCOMPARE(r.Dita().LbEstadoTela, QStringLiteral("LIVE, NO TEXT"));
  }

  void passages() {
    Records r;
    r.estado.TelaPronta = r.estado.EnviarAoTelao = true;
    r.estado.DefineTipo(QStringLiteral("Bíblia"));
    r.estado.VersoHtmlAtual = QStringLiteral("Texto");
    r.estado.ReferenciaAtual = QStringLiteral("I John 2:1");
    r.painel.biblia.Visible = true;
    r.painel.biblia.Referencia = QStringLiteral("I John 2:1");
    r.capitulo = {QString(), QStringLiteral("1 Um"), QString(), QStringLiteral("3 Três e mais"), QString()};
    QCOMPARE(r.Dita().LbDetalheTela, QStringLiteral("I John 2:1"));
    QCOMPARE(r.Dita().LbProximo, QStringLiteral("Next: verse 3, Três e mais"));
    r.painel.biblia.Referencia = QStringLiteral("I John 2:3");
    QCOMPARE(r.Dita().LbProximo, QStringLiteral("Last verse of the chapter"));
    // An entry from which the operator walked on does not come after itself.
    r.painel.Label9 = QStringLiteral("I John 2:3");
    for (const char *entry : {"I John 2:1", "I John 3:1"})
      r.lista.Add(1, QLatin1String(entry), QLatin1String(entry));
    r.lista.Select(1, 1);
    QCOMPARE(r.Dita().LbDepois, QString());
    r.lista.Select(1, 2);
    QCOMPARE(r.Dita().LbDepois, QStringLiteral("Then: I John 3:1"));
    r.estado.EnviarAoTelao = false;
    QCOMPARE(r.Dita().LbEstadoTela, QStringLiteral("HELD"));
    QCOMPARE(r.Dita().LbProximo, QStringLiteral("On release: I John 2:3"));
  }

  void whoListens_data() {
    QTest::addColumn<ServidorDeLegendas>("server");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("colour");
    QTest::newRow("off") << ServidorDeLegendas::Desligado << QStringLiteral("Captions off") << QString();
    QTest::newRow("on") << ServidorDeLegendas::SemCliente << QStringLiteral("Captions: no client")
                        << QStringLiteral("live");
    QTest::newRow("client") << ServidorDeLegendas::ComCliente << QStringLiteral("Captions: client")
                            << QStringLiteral("live");
  }
  void whoListens() {
    QFETCH(ServidorDeLegendas, server);
    Records r;
    r.painel.Legendas = server;
    QTEST(r.Dita().LbServidorLegenda, "text");
    QTEST(r.Dita().CorDasLegendas, "colour");
  }

  // The line under the banner and the next key agree, from the first verse to the last.
  void theNextKeyShowsWhatWasSaid() {
    ConsoleFixture fixture;
    fixture.Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    fixture.Show(QStringLiteral("Canto"));
    const auto dita = [&fixture] {
      fixture.core.contexto.descreve();
      return fixture.core.painel.situacao;
    };
    for (int verse = 1; verse <= 3; ++verse) {
      const QString said = dita().LbProximo;
      fixture.core.stepper.TeclaEstrofe(1);
      fixture.EndGlide();
      QVERIFY(said.startsWith(u"Next: "));
      QVERIFY2(fixture.core.estado.VersoTextoAtual.contains(said.mid(6), Qt::CaseInsensitive), qPrintable(said));
    }
    QCOMPARE(dita().LbProximo, QStringLiteral("Last verse"));
    fixture.core.stepper.TeclaEstrofe(-1);
    fixture.core.stepper.CtrlDown();
    QCOMPARE(dita().LbEstadoTela, QStringLiteral("HELD"));
    fixture.core.stepper.CtrlUp();
    QCOMPARE(dita().LbEstadoTela, QStringLiteral("LIVE"));
  }
};

QTEST_GUILESS_MAIN(TestProjectionStatus)
#include "test_projection_status.moc"
