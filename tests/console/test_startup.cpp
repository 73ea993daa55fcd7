#include <QtTest>

#include "console/startup.h"
#include "console_fixture.h"
#include "support/fixed_monitors.h"
#include "support/small_bible.h"

using namespace tolmira;
using namespace tolmira::testing;

class TestStartup : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_startup.reset();
    m_fixture = std::make_unique<ConsoleFixture>();
    m_fixture->core.estado = EstadoConsole();
    m_monitors = FixedMonitors();
    m_monitors.list = {FixedMonitors::At(1, QRect(0, 0, 1280, 800)), FixedMonitors::At(2, QRect(1280, 0, 1280, 720))};
    m_steps.clear();
    m_engineStarts = true;
  }

  void theOrderOfTheStart() {
    const auto startup = Startup();
    startup->Load();
    QVERIFY(!Estado().TelaPronta);
    m_fixture->clock.Advance(10);
    QVERIFY(Estado().TelaPronta);
    QVERIFY(Estado().EnviarAoTelao);
    QCOMPARE(m_steps.join(u' '), QStringLiteral("fonts place preview tiles initial engine display show fade"));
    QCOMPARE(Estado().ActiveAgenda, 1);
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#"));
    QCOMPARE(m_fixture->display.commands.last(), QStringLiteral("Normal"));
    QCOMPARE(Config(QStringLiteral("JImpConfig")), QStringLiteral("1"));
    QCOMPARE(Config(QStringLiteral("WV2_error")), QStringLiteral("0"));
  }

  void anEngineThatCannotStartLeavesTheConsoleRunning() {
    m_engineStarts = false;
    const auto startup = Startup();
    startup->Load();
    m_fixture->clock.Advance(10);
    QCOMPARE(m_fixture->prompt.shown.last().text, QStringLiteral("Unable to initialize coreWebView2."));
    QCOMPARE(Config(QStringLiteral("WV2_error")), QStringLiteral("1"));
    QCOMPARE(Registro(m_fixture->store).ReadValue(QStringLiteral("WebView2error"), QString()), QStringLiteral("1"));
    QVERIFY(Estado().TelaPronta);
  }

  void theBibleIsThereFromTheStart() {
    SmallBible().Chapter(1, 1, {QStringLiteral("a")}).Write(m_fixture->folder.path(), QStringLiteral("KJV"));
    m_fixture->Write(QStringLiteral("Data/Config.dat"), "[Config]\r\nestiloBiblia=5\r\nSombraVerso=3\r\n"
                                                        "FontSizeAjusts=25\r\n[Legendas B\xED""blia]\r\n"
                                                        "maiusculas=True\r\n");
    const auto startup = Startup();
    startup->Load();
    QCOMPARE(Estado().VersaoBiblia, QStringLiteral("KJV"));
    QCOMPARE(m_fixture->core.painel.LbVersao, QStringLiteral("Tradução: KJV"));
    QCOMPARE(m_fixture->core.painel.LabelDicaBiblia, QStringLiteral("Tradução: KJV"));
    QVERIFY(m_fixture->core.legenda.Biblia.maiusculas);
    QCOMPARE(m_fixture->core.ajustes.EstiloBiblia, 5);
    QCOMPARE(m_fixture->core.ajustes.SombraVerso, 3);
    QCOMPARE(m_fixture->core.ajustes.EscalaBiblia, 110.0);
  }

  void whatIsSavedComesBack() {
    m_fixture->Write(QStringLiteral("Data/agenda4.dat"), "2|#|a|#|a\r\n");
    {
      auto startup = Startup();
      startup->Load();
      m_fixture->clock.Advance(10);
      m_fixture->core.agenda.SelectTab(4);
      m_fixture->core.temaControle.SetChkIM(7, false);
      m_fixture->core.temaControle.SetCheckAlteraTemaAleatorio(false);
      m_fixture->core.ajustes.Alinhamento = 0;
      m_fixture->core.ajustes.FonteGrande = true;
      QString message;
      m_fixture->core.agenda.PorNaLista(QStringLiteral("Bendito Seja"), 2, QString(), message);
      startup->Unload();
      startup->Unload();
      QCOMPARE(m_steps.count(QStringLiteral("unload")), 1);
      QVERIFY(!Estado().TelaPronta);
    }
    const Registro registro(m_fixture->store);
    QCOMPARE(registro.ReadValue(QStringLiteral("FonteGrande"), QString()), QStringLiteral("2"));
    m_fixture->core.estado = EstadoConsole();
    m_fixture->core.ajustes = AjustesTexto();
    Startup()->Load();
    QCOMPARE(Estado().ActiveAgenda, 4);
    QCOMPARE(m_fixture->core.agenda.Lista().Count(2), 2);
    QVERIFY(!m_fixture->core.temaControle.ChkIM(7));
    QVERIFY(!m_fixture->core.temaControle.CheckAlteraTemaAleatorio());
    QCOMPARE(m_fixture->core.ajustes.Alinhamento, 0);
    QVERIFY(m_fixture->core.ajustes.FonteGrande);
  }

  void aConsoleClosedBeforeItReadItsStoreLeavesItAlone() {
    const Registro registro(m_fixture->store);
    registro.WriteValue(QStringLiteral("Alinhamento"), QStringLiteral("0"));
    Startup()->Unload();
    QCOMPARE(registro.ReadValue(QStringLiteral("Alinhamento"), QString()), QStringLiteral("0"));
    QCOMPARE(registro.ReadValue(QStringLiteral("chkim3"), QString()), QString());
  }

  void aStoreFullOfNonsenseGivesDefaults() {
    m_fixture->Write(QStringLiteral("Data/Config.dat"),
                     "[Config]\r\nestiloLouvor=abc\r\nTransparencia_Faixa=900\r\nComboFontSize=-4\r\n"
                     "[Registro]\r\nLastIndexListMusicas=77\r\nchkim1=x\r\nAlinhamento=9\r\n");
    const auto startup = Startup();
    startup->Load();
    m_fixture->clock.Advance(10);
    QCOMPARE(m_fixture->core.ajustes.EstiloLouvor, 0);
    QCOMPARE(m_fixture->core.ajustes.TransparenciaFaixa, QStringLiteral("10"));
    QCOMPARE(m_fixture->core.ajustes.FontSizeClass, 0);
    QCOMPARE(m_fixture->core.ajustes.Alinhamento, 2);
    QCOMPARE(Estado().ActiveAgenda, 1);
  }

  void theConsolesRectangle() {
    const QRect screen(0, 0, 1000, 800);
    QCOMPARE(LeRetanguloNormal(m_fixture->store, screen), QRect(100, 80, 800, 640));
    GravaRetanguloNormal(m_fixture->store, QRect(-40, 20, 900, 700));
    QCOMPARE(LeRetanguloNormal(m_fixture->store, screen), QRect(-40, 20, 900, 700));
    QVERIFY(m_fixture->Read(QStringLiteral("Data/FormPositions.dat")).contains("Frm1R=13500"));
    GravaRetanguloPadrao(m_fixture->store, QRect(0, 0, 1366, 768));
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/FormPositions.dat")),
             QByteArray("[Config]\r\nFrm1T=1152\r\nFrm1L=2049\r\nFrm1R=16392\r\nFrm1B=9216\r\n"));
    GravaRetanguloNormal(m_fixture->store, QRect(0, 0, 6, 700)); // 90 twips
    QCOMPARE(LeRetanguloNormal(m_fixture->store, screen), QRect(100, 80, 800, 640));
  }

  void thePreviewHasTheProjectionsAspect_data() {
    QTest::addColumn<QSize>("container");
    QTest::addColumn<QSize>("monitor");
    QTest::addColumn<QRect>("panel");
    QTest::newRow("bound by width") << QSize(322, 300) << QSize(1280, 720) << QRect(1, 60, 320, 180);
    QTest::newRow("two pixels too high still fit") << QSize(322, 178) << QSize(1280, 720) << QRect(1, -1, 320, 180);
    QTest::newRow("bound by height") << QSize(402, 182) << QSize(1024, 768) << QRect(81, 1, 240, 180);
  }
  void thePreviewHasTheProjectionsAspect() {
    QFETCH(QSize, container);
    QFETCH(QSize, monitor);
    QTEST(AjustaPreview(container, monitor), "panel");
  }

private:
  // Lives until the next call: its timer ends the loading.
  ConsoleStartup *Startup() {
    const auto step = [this](const char *name) { return [this, name] { m_steps.append(QLatin1String(name)); }; };
    ConsoleStartup::Janelas janelas;
    janelas.CarregaFontes = step("fonts");
    janelas.AjustaPreview = step("preview");
    janelas.positionInicial = step("initial");
    janelas.CriaPrevia = [this] {
      m_steps.append(QStringLiteral("engine"));
      return m_engineStarts;
    };
    janelas.CriaTelao = [this] {
      m_steps.append(QStringLiteral("display"));
      return m_engineStarts;
    };
    janelas.MostraTelao = step("show");
    janelas.IniciaFade = step("fade");
    janelas.CarregaTiles = step("tiles");
    janelas.DescarregaJanelas = step("unload");
    ConsoleCore &core = m_fixture->core;
    ProjectionPlace::Janelas lugar;
    lugar.Posiciona = [this](const PlacaDoTelao &) { m_steps.append(QStringLiteral("place")); };
    lugar.Tamanho = [] { return QSize(1280, 720); };
    m_startup.reset();
    m_lugar = std::make_unique<ProjectionPlace>(core.contexto, m_monitors, std::move(lugar));
    m_startup = std::make_unique<ConsoleStartup>(core.contexto, core.agenda, core.temaControle, core.loja,
                                                 core.controles, core.loader, core.leitura, *m_lugar, std::move(janelas));
    return m_startup.get();
  }
  EstadoConsole &Estado() { return m_fixture->core.estado; }
  QString Config(const QString &key) {
    return m_fixture->store.ReadConfig(QStringLiteral("Config"), key, QString());
  }

  std::unique_ptr<ConsoleFixture> m_fixture;
  std::unique_ptr<ProjectionPlace> m_lugar;
  std::unique_ptr<ConsoleStartup> m_startup; // refers to the fixture
  FixedMonitors m_monitors;
  QStringList m_steps;
  bool m_engineStarts = true;
};

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"
