#include "app/program.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include "app/asset_places.h"
#include "app/control_events.h"
#include "app/control_server.h"
#include "app/program_folder.h"
#include "app/single_instance.h"
#include "bible/ui/bible_windows.h"
#include "console/FrmMonitor.h"
#include "console/console_core.h"
#include "console/page_zoom.h"
#include "console/startup.h"
#include "console/ui/qt_monitors.h"
#include "display/FrmQuendar.h"
#include "display/ui/graphics_backend.h"
#include "display/ui/page_profile.h"
#include "display/ui/web_page_host.h"
#include "foundation/real_seams.h"
#include "foundation/ui/form_position.h"
#include "foundation/ui/qt_user_prompt.h"
#include "songs/ui/song_editors.h"
#include "songs/ui/song_windows.h"
#include "themes/ui/theme_windows.h"

namespace tolmira {

namespace {

constexpr int EsperaDasTelas = 300; // ms: a changed desktop announces its screens one by one

} // namespace

struct Program::Impl {
  explicit Impl(const CommandLine &commandLine)
      : line(commandLine), app(ChooseProgramFolder(commandLine.app, QCoreApplication::applicationDirPath())),
        store(app), instance(app), prompt(boxes, events), positions(store, yielder),
        core(ConsoleDoors{app, store, clock, random, yielder, prompt, measure,
                          [this]() -> Display * { return quendar.get(); },
                          [this] { return PageNamed(QStringLiteral("preview")); }}) {
    core.canal.AddObserver(&events);
  }

  void MakeWindows();
  void MakeSongEditors();
  void MakeThemeWindows();
  void MakeDisplay();
  void RemakeDisplay();
  void MakeStartup();
  void ListenForControl();
  void ScreensChanged();
  void PlaceDisplay(const PlacaDoTelao &placa);
  PageObject *PageNamed(const QString &name) const;

  CommandLine line;
  AppFolder app;
  IniStore store;
  SingleInstance instance;

  ControlEvents events;
  QtUserPrompt boxes;
  ObservedPrompt prompt;
  SystemClock clock;
  SystemRandom random;
  LoopYielder yielder;
  FontTextMeasure measure;
  QtMonitors monitors;
  FormPositions positions;
  QTimer screenTimer;
  bool noProjetor = false; // the projection stands, or last stood, on a monitor of its own

  // Windows go before the logic that they refer to, so they stand below it.
  ConsoleCore core;
  bool leaving = false; // closed from outside before the console stood
  PageProfile profile;
  std::unique_ptr<FrmMonitor> console;
  std::unique_ptr<BibleWindows> bible;
  std::unique_ptr<SongEditors> editors;
  std::unique_ptr<SongWindows> songs;
  std::unique_ptr<ThemeWindows> themes;
  std::unique_ptr<FrmQuendar> quendar;
  std::unique_ptr<ConsoleStartup> startup;
  std::unique_ptr<ControlServer> control;
};

PageObject *Program::Impl::PageNamed(const QString &name) const {
  if (name == u"display" || name == u"FrmQuendar")
    return quendar ? quendar->WV() : nullptr;
  if (name == u"preview" || name == u"FrmMonitor")
    return console ? console->PicWV()->WV() : nullptr;
  return nullptr;
}

void Program::Impl::MakeWindows() {
  profile = NewPageProfile();

  console = std::make_unique<FrmMonitor>(ConsoleParts::Of(core), profile);
  console->PicWV()->AddObserver(&events);
  console->PicWV()->OnRecovered = [this] { core.PaginaVoltou(); };
  positions.SetConsole(console.get());
  bible = std::make_unique<BibleWindows>(
      BibleDoors{core.lojaBiblia, store, core.flow, positions, clock, console.get(), [this] {
                   return core.estado.TipoAtual == u"Bíblia" ? core.estado.ReferenciaAtual : QString();
                 }});
  core.flow.FechaAddBiblia = [this] { bible->CloseAdd(); };
  core.lojaBiblia.VersaoMudou = [this] { bible->VersionChanged(); };
  songs = std::make_unique<SongWindows>(
      SongDoors{app, core.flow, positions, clock, prompt, console.get(),
                [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                [this](const QString &path) { return editors->Edita(path, songs.get()); },
                [this](const QString &path) { return editors->EstaAberto(path); }});
  MakeSongEditors();
  MakeThemeWindows();
  FrmMonitor::Windows windows;
  windows.newSong = [this] { editors->Novo(songs.get()); };
  windows.addSong = [this] { songs->OpenAdd(); };
  windows.pictureOnScreen = [this] { themes->AbreGaleriaDoTelao(); };
  windows.addBible = [this] { bible->OpenAdd(); };
  windows.browseBible = [this] { bible->OpenBrowser(); };
  windows.searchBible = [this] { bible->OpenSearch(); };
  windows.agendaChanged = [this] {
    if (songs)
      songs->AgendaChanged();
  };
  console->SetWindows(std::move(windows));
  console->PodeFechar = [this] { return editors->FechaTodos(); };
  console->AoFechar = [this] { startup->Unload(); };
  monitors.SetConsole(console.get());
  MakeDisplay();
  core.canal.CriaTelao = [this] { RemakeDisplay(); };
}

void Program::Impl::MakeSongEditors() {
  const auto telao = [this]() -> Display * { return quendar.get(); };
  const auto sala = [this](const QString &texto, const AjustesTexto &ajustes) {
    return core.loader.Sala(texto, ajustes);
  };
  editors = std::make_unique<SongEditors>(
      SongEditorDoors{store, prompt, clock, random, yielder, measure, core.flow, positions, core.estado, core.ajustes,
                      telao, sala, profile, console.get()},
      TextFormatDoors{[this] { return core.formato.Le(); },
                      [this](const TextFormat &format) { return core.formato.Aplica(format); }});
  core.agenda.editorDeMusicas = {[this](const QString &path) { return editors->AbertoEmOutra(path); },
                                 [this](const QString &path) { return editors->Edita(path, songs.get()); }};
}

void Program::Impl::MakeThemeWindows() {
  themes = std::make_unique<ThemeWindows>(
      ThemeDoors{app, store, positions, prompt, console.get(),
                 [this](const QString &path) { core.controles.trocarFundoPadrao(path); },
                 [this](const QString &path, bool move) { core.efeitos.ImagemDaGaleria(path, move); },
                 [this] { return core.estado.TemaAtual.MoveImagens; }});
  core.controles.AbreGaleria = [this] { themes->AbreGaleriaDoFundo(); };
}

void Program::Impl::MakeDisplay() {
  const bool software = qgetenv("QT_QUICK_BACKEND") == "software";
  quendar = std::make_unique<FrmQuendar>(
      FrmQuendar::Parts{core.estado, app, clock, console.get(),
                        CaptionComposers{[](const QString &, const QString &) { return QString(); },
                                         [](const QString &) { return QString(); }},
                        &events, software ? VideoDrawing::Software : VideoDrawing::Gl, profile});
  quendar->OnRecovered = [this] { core.PaginaVoltou(); };
  console->TakeKeysOf(quendar.get());
  quendar->OnUnload = [this] { quendar.release()->deleteLater(); };
}

// A command came after the one that closes the window. The new one is hidden and black, as every new one is, until a
// command says otherwise; its page is built behind the command.
void Program::Impl::RemakeDisplay() {
  MakeDisplay();
  if (core.painel.SemProjetor)
    quendar->Esconde();
  else
    PlaceDisplay(EscolheTela(monitors));
  quendar->CriaBrowser();
  ApplyZoom(core.contexto);
  QTimer::singleShot(0, quendar.get(), [this] {
    constexpr int Telao = 1;
    if (!core.estado.TelaPronta)
      return;
    core.paginas.MontaPagina(core.estado.TemaAtual, core.estado.EstrofeAtual, Telao);
    core.leitura.ReenviaVersiculo(); // of a passage the builder only tells the preview
  });
}

void Program::Impl::PlaceDisplay(const PlacaDoTelao &placa) {
  noProjetor = placa.segundoMonitor;
  console->DefineTelao(placa.tela.size());
  if (quendar)
    quendar->Posiciona(placa.tela, placa.segundoMonitor);
}

void Program::Impl::MakeStartup() {
  ConsoleStartup::Janelas janelas;
  janelas.CarregaFontes = [this] { console->CarregaFontes(); };
  janelas.PosicionaTelao = [this](const PlacaDoTelao &placa) { PlaceDisplay(placa); };
  janelas.AjustaPreview = [this] { console->AjustaPreview(); };
  janelas.positionInicial = [this] { console->positionInicial(); };
  janelas.CriaPrevia = [this] { return console->CriaPrevia(); };
  janelas.CriaTelao = [this] { return quendar && quendar->CriaBrowser(); };
  // Straight to the window: the channel carries nothing before the start has ended.
  janelas.MostraTelao = [this] {
    if (quendar)
      quendar->ProcessaComando(QStringLiteral("Show"));
    console->activateWindow();
  };
  janelas.IniciaFade = [this] {
    if (quendar)
      quendar->IniciaFade();
  };
  janelas.CarregaTiles = [this] { console->CarregaTiles(); };
  janelas.DescarregaJanelas = [this] {
    // It may be one of its requests that closes the program.
    if (control)
      control->Close();
    if (quendar)
      quendar->hide();
    QCoreApplication::quit();
  };
  // A box must not stand inside the timer that ends the start.
  janelas.InicioTerminou = [this] {
    QTimer::singleShot(0, console.get(), [this] { editors->OfereceRascunhos(songs.get()); });
  };
  startup = std::make_unique<ConsoleStartup>(core.contexto, core.agenda, core.temaControle, core.loja,
                                             core.controles, core.loader, core.leitura, monitors, std::move(janelas));
}

void Program::Impl::ListenForControl() {
  if (line.control.isEmpty())
    return;
  ControlDoors doors =
      DoorsOf(core.estado, core.flow, core.agenda, core.controles, core.temaControle, core.canal,
              [this]() -> Display * { return quendar.get(); });
  doors.pagina = [this](const QString &name) { return PageNamed(name); };
  doors.fechaConsole = [this] {
    if (console) {
      console->close();
      return;
    }
    leaving = true;
    if (QWidget *box = QApplication::activeModalWidget())
      box->close();
  };
  doors.cedendo = [this] { return yielder.IsYielding(); };
  control = std::make_unique<ControlServer>(std::move(doors), events);
  if (const QString error = control->Listen(line.control); !error.isEmpty())
    prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), error);
}

// The projector was plugged in, pulled out or changed its size. Its window follows; one that stood on a projector never
// covers the operator, and a rehearsal window stays what it is.
void Program::Impl::ScreensChanged() {
  if (!quendar || startup->Descarregado())
    return;
  if (!core.estado.TelaPronta) { // the start is under way; afterwards, then
    screenTimer.start();
    return;
  }
  console->AreaDeTrabalhoMudou();
  const PlacaDoTelao placa = EscolheTela(monitors);
  core.painel.SemProjetor = !placa.segundoMonitor && noProjetor;
  core.contexto.Atualiza();
  if (core.painel.SemProjetor) {
    quendar->Esconde();
    return;
  }
  PlaceDisplay(placa);
  console->AjustaPreview();
  core.TelaMudou();
}

Program::Program(const CommandLine &line) : m_impl(std::make_unique<Impl>(line)) {}

Program::~Program() {
  // Pages end before the profile they share, and before the application object.
  m_impl->control.reset();
  m_impl->quendar.reset();
  m_impl->core.flow.FechaAddBiblia = nullptr;
  m_impl->core.agenda.editorDeMusicas = {};
  m_impl->editors.reset();
  m_impl->core.lojaBiblia.VersaoMudou = nullptr;
  m_impl->bible.reset();
  m_impl->songs.reset();
  m_impl->core.controles.AbreGaleria = nullptr;
  m_impl->themes.reset();
  m_impl->console.reset();
}

std::optional<int> Program::Start() {
  Impl &p = *m_impl;
  // First, so that what the start has to say can be answered from outside.
  p.ListenForControl();
  const FillResult filled =
      FillProgramFolder(p.app.path(), FindAssets(p.line.assets, QCoreApplication::applicationDirPath()));
  if (!filled.problem.isEmpty())
    p.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), filled.problem);
  if (!p.instance.Start(p.prompt))
    return 1;
  if (p.leaving)
    return 0;

  p.MakeWindows();
  p.MakeStartup();

  p.screenTimer.setSingleShot(true);
  p.screenTimer.setInterval(EsperaDasTelas);
  connect(&p.screenTimer, &QTimer::timeout, this, [&p] { p.ScreensChanged(); });
  const auto watch = [&p, this](QScreen *screen) {
    connect(screen, &QScreen::geometryChanged, &p.screenTimer, qOverload<>(&QTimer::start));
  };
  for (QScreen *screen : QGuiApplication::screens())
    watch(screen);
  connect(qApp, &QGuiApplication::screenAdded, this, [&p, watch](QScreen *screen) {
    watch(screen);
    p.screenTimer.start();
  });
  connect(qApp, &QGuiApplication::screenRemoved, &p.screenTimer, qOverload<>(&QTimer::start));

  p.startup->Load();
  if (p.startup->Descarregado())
    return 0;
  return std::nullopt;
}

} // namespace tolmira
