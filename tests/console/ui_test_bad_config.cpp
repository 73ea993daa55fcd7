#include <QComboBox>
#include <QSlider>
#include <QtTest>

#include "console/FrmMonitor.h"
#include "console/startup.h"
#include "console_fixture.h"
#include "controls/ui/palette.h"
#include "support/fixed_monitors.h"
#include "support/small_bible.h"
#include "support/ui_warnings.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

struct Entry {
  const char *section;
  QString key;
};

// What the console reads from Data\Config.dat in the course of a start, a song and a passage.
QList<Entry> EveryEntry() {
  QList<Entry> entries;
  for (const char *key :
       {"ZoomAjust", "ZoomAjustBiblia", "VerticalAlign", "Transparencia_Faixa", "estiloLouvor", "estiloBiblia",
        "FontSizeAjusts", "SombraVerso", "ComboFontSize", "padraodefundo", "ctrlenter", "MonitorDoTelao", "WV2_error",
        "JImpConfig"})
    entries.append({"Config", QLatin1String(key)});
  for (const char *key : {"LastIndexListMusicas", "Alinhamento", "AlinhamentoBiblia", "FonteGrande",
                          "CheckAlteraTemaAleatorio", "chkim1", "chkim16", "WebView2error"})
    entries.append({"Registro", QLatin1String(key)});
  for (const char *key : {"1", "5"})
    entries.append({"Agenda", QLatin1String(key)});
  for (const char *key : {"v1", "Default", "DefaultText"})
    entries.append({"Biblias", QLatin1String(key)});
  entries.append({"Legendas Bíblia", QStringLiteral("maiusculas")});
  return entries;
}

const QList<QPair<const char *, QByteArray>> BadValues = {
    {"empty", ""},
    {"huge", QByteArray(2000, '9')},
    {"negative", "-2147483649"},
    {"not a number", "\xE7'\"<b>%s|#nan"},
};

// A start of the console over that Config.dat, up to the first verse of a song and a Bible verse.
class Service : public ConsoleFixture {
public:
  explicit Service(const QByteArray &config) {
    Write(QStringLiteral("Data/Config.dat"), config);
    Write(QStringLiteral("Lyrics/Rocha Eterna.txt"), TresEstrofes);
    WriteSmallBible(folder.path(), QStringLiteral("KJV"));
    core.estado = EstadoConsole();
    core.ajustes = AjustesTexto();
    frm = std::make_unique<FrmMonitor>(ConsoleParts::Of(core));
    monitors.list = {FixedMonitors::At(1, {0, 0, 1280, 720}), FixedMonitors::At(2, {1280, 0, 1280, 720})};
    ProjectionPlace::Janelas lugar;
    lugar.Posiciona = [this](const PlacaDoTelao &placa) { frm->DefineTelao(placa.tela.size()); };
    lugar.Tamanho = [] { return QSize(1280, 720); };
    place = std::make_unique<ProjectionPlace>(core.contexto, monitors, std::move(lugar));
    startup = std::make_unique<ConsoleStartup>(core.contexto, core.agenda, core.temaControle, core.loja,
                                               core.controles, core.loader, core.leitura, *place, Windows());
    startup->Load();
    clock.Advance(100);
  }
  ~Service() { core.contexto.view = nullptr; }

  FixedMonitors monitors;
  std::unique_ptr<ProjectionPlace> place;
  std::unique_ptr<FrmMonitor> frm;
  std::unique_ptr<ConsoleStartup> startup;

private:
  ConsoleStartup::Janelas Windows() {
    const auto nothing = [] {};
    ConsoleStartup::Janelas janelas;
    janelas.CarregaFontes = [this] { frm->CarregaFontes(); };
    janelas.AjustaPreview = [this] { frm->AjustaPreview(); };
    janelas.positionInicial = [this] { frm->positionInicial(); };
    janelas.CriaPrevia = [] { return true; };
    janelas.CriaTelao = [] { return true; };
    janelas.MostraTelao = janelas.IniciaFade = janelas.DescarregaJanelas = nothing;
    janelas.CarregaTiles = [this] { frm->CarregaTiles(); };
    return janelas;
  }
};

} // namespace

class UiTestBadConfig : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { ApplyLook(*qApp); }

  void oneValueIsBroken_data() {
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<QString>("key");
    for (const Entry &entry : EveryEntry())
      QTest::newRow(qPrintable(QString(QString::fromUtf8(entry.section) + u'/' + entry.key)))
          << QString::fromUtf8(entry.section).toLatin1() << entry.key;
  }
  void oneValueIsBroken() {
    QTest::failOnWarning(UnexpectedWarning());
    QFETCH(QByteArray, section);
    QFETCH(QString, key);
    for (const auto &[name, value] : BadValues) {
      Service service("[" + section + "]\r\n" + key.toLatin1() + "=" + value + "\r\n");
      const QString broken = Unsound(service);
      QVERIFY2(broken.isEmpty(), qPrintable(QString(QLatin1String(name) + u": " + broken)));
    }
  }

private:
  // What is wrong with the console after the start, a song and a passage; empty when it is sound.
  static QString Unsound(Service &service) {
    ConsoleCore &core = service.core;
    if (!core.estado.TelaPronta || !service.frm->isVisible())
      return QStringLiteral("the console did not start");
    if (!service.prompt.shown.isEmpty())
      return QString(u"a box: " + service.prompt.shown.first().text);
    if (core.estado.ActiveAgenda < 1 || core.estado.ActiveAgenda > NumeroDeAgendas)
      return QStringLiteral("no agenda");

    service.Show(QStringLiteral("Rocha Eterna"));
    core.stepper.TeclaEstrofe(1);
    service.EndGlide();
    if (!core.estado.VersoTextoAtual.contains(u"Primeira linha", Qt::CaseInsensitive))
      return QString(u"the song shows " + core.estado.VersoTextoAtual);
    if (const QString of = OutOfBounds(service); !of.isEmpty())
      return of;
    core.flow.ShowEntry(1, 1, QStringLiteral("John 3:16"), QStringLiteral("John 3:16"));
    if (core.estado.ReferenciaAtual != u"John 3:16")
      return QStringLiteral("no passage");
    if (const QString of = OutOfBounds(service); !of.isEmpty())
      return of;

    core.controles.SetScreenState(3); // may open the chooser, and nothing is chosen
    core.controles.SetScreenState(0);
    if (core.estado.EstadoTela != u"Normal")
      return QStringLiteral("the screen state stuck");
    service.startup->Unload();
    return {};
  }

  static QString OutOfBounds(Service &service) {
    const AjustesTexto &ajustes = service.core.ajustes;
    const auto within = [](const char *name, double value, double least, double most) -> QString {
      return value >= least && value <= most ? QString() : QLatin1String(name) + u" is " + QString::number(value);
    };
    const QString of = within("EstiloLouvor", ajustes.EstiloLouvor, 0, TextControls::UltimoEstilo) +
                       within("EstiloBiblia", ajustes.EstiloBiblia, 0, TextControls::UltimoEstiloBiblia) +
                       within("FontSizeClass", ajustes.FontSizeClass, 0, 2) +
                       within("SombraVerso", ajustes.SombraVerso, 0, 10) +
                       within("TransparenciaFaixa", ajustes.TransparenciaFaixa.toDouble(), 0, 10) +
                       within("EscalaBiblia", ajustes.EscalaBiblia, 85, 185) +
                       within("ZoomAjust", ajustes.ZoomAjust, 60, 500) +
                       within("ZoomAjustBiblia", ajustes.ZoomAjustBiblia, 60, 500) +
                       within("Alinhamento", ajustes.Alinhamento, 0, 2) +
                       within("AlinhamentoBiblia", ajustes.AlinhamentoBiblia, 0, 2) +
                       within("the page's zoom", service.display.page.zoom, 0.6, 5) +
                       within("FonteTamanho", service.core.estado.FonteTamanho.toDouble(), 1, 300);
    if (!of.isEmpty())
      return of;
    if (!QStringList{QStringLiteral("flex-start"), QStringLiteral("center"), QStringLiteral("flex-end")}.contains(
            ajustes.AlinhamentoVertical))
      return QString(u"the text stands at " + ajustes.AlinhamentoVertical);
    // What the desk shows is what holds.
    const auto *style = service.frm->findChild<QSlider *>(QStringLiteral("SliderExLouvor"));
    const auto *band = service.frm->findChild<QSlider *>(QStringLiteral("SliderFaixa"));
    const auto *size = service.frm->findChild<QComboBox *>(QStringLiteral("ComboFontSize"));
    if (style->value() != ajustes.EstiloLouvor || band->value() != ajustes.TransparenciaFaixa.toInt() ||
        size->currentIndex() != ajustes.FontSizeClass)
      return QStringLiteral("the sliders show something else");
    // An agenda's title may be anything, as long as its tab stays within the desk.
    const QSize desk = service.frm->size();
    if (desk.width() > 1280 || desk.height() > 1280)
      return QStringLiteral("the desk outgrew its screen");
    return {};
  }
};

QTEST_MAIN(UiTestBadConfig)
#include "ui_test_bad_config.moc"
