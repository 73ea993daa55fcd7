#include "app/program.h"

#include "app/asset_places.h"
#include "app/control_events.h"
#include "app/control_server.h"
#include "app/program_folder.h"
#include "app/single_instance.h"
#include "bible/ui/bible_windows.h"
#include "captions/FrmLegendas.h"
#include "captions/qt_winsock.h"
#include "console/FrmMonitor.h"
#include "console/FrmSobre.h"
#include "console/console_core.h"
#include "console/help_desk.h"
#include "console/page_zoom.h"
#include "console/projection_place.h"
#include "console/startup.h"
#include "console/ui/qt_monitors.h"
#include "console/ui/screen_repair.h"
#include "console/ui/themes_panel.h"
#include "controls/ui/context_menu_key.h"
#include "display/FrmQuendar.h"
#include "display/notice_call.h"
#include "display/show_page.h"
#include "display/ui/engine_versions.h"
#include "display/ui/graphics_backend.h"
#include "display/ui/page_profile.h"
#include "display/ui/web_page_host.h"
#include "foundation/real_seams.h"
#include "foundation/ui/form_position.h"
#include "foundation/ui/qt_user_prompt.h"
#include "media/ui/camera_window.h"
#include "media/ui/video_windows.h"
#include "media/video_files.h"
#include "notices/notice_sender.h"
#include "notices/ui/notice_windows.h"
#include "slides/FrmImportar.h"
#include "slides/ui/show_windows.h"
#include "slides/ui/slide_windows.h"
#include "songs/ui/song_editors.h"
#include "songs/ui/song_windows.h"
#include "themes/ui/theme_editors.h"
#include "themes/ui/theme_windows.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace tolmira {

namespace {

constexpr int EsperaDasTelas = 300;  // ms: a changed desktop announces its screens one by one
constexpr int EsperaDoTamanho = 150; // ms: a window on its way has many sizes
constexpr int CalmaDoInicio = 700;   // ms: until the first pages and previews are drawn
constexpr int TentativasDeLugar = 10;

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
  void AbreSobre();
  void MakeSongEditors();
  void MakeThemeWindows();
  void MakeThemeEditors();
  void MakeSlideWindows();
  void ImportaDocumento(const AbreImagens &pronto);
  void MakeShowWindows();
  void MakeVideoWindows();
  void MakeNoticeWindows();
  void MostraServidor();
  void AbreLegendas();
  void MakeDisplay();
  void RemakeDisplay();
  void MakeStartup();
  bool CriaPrevia();
  void CameraRespondeu(const QString &uri, Alvo de);
  void ListenForControl();
  void WatchScreens(QObject *context);
  void ScreensChanged();
  void SizeChanged();
  void PlaceDisplay(const PlacaDoTelao &placa);
  void MakePlace();
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
  ScreenRepair screenRepair;
  SystemOpener opener;
  std::unique_ptr<HelpDesk> help;
  QtMonitors monitors;
  FormPositions positions;
  ContextMenuKey menuKey;
  QTimer screenTimer;
  QTimer sizeTimer;
  int triesLeft = TentativasDeLugar; // to put the projection's window where the desktop would not leave it

  QtWinsock winsock1;

  // Windows go before the logic that they refer to, so they stand below it.
  ConsoleCore core;
  CaptionServer servidor{core.legenda, store, winsock1, clock, &GetIpAddrTable};
  bool leaving = false; // closed from outside before the console stood
  PageProfile profile;
  std::unique_ptr<FrmMonitor> console;
  std::unique_ptr<BibleWindows> bible;
  std::unique_ptr<SongEditors> editors;
  std::unique_ptr<SongWindows> songs;
  std::unique_ptr<ThemeWindows> themes;
  std::unique_ptr<ThemeEditors> themeEditors;
  std::unique_ptr<SlideWindows> slides;
  std::unique_ptr<FrmImportar> importar; // hands its pages to the one above
  std::unique_ptr<ShowWindows> shows;
  std::unique_ptr<VideoWindows> videos;
  std::unique_ptr<NoticeWindows> notices;
  std::unique_ptr<CameraWindow> cameras;
  std::unique_ptr<FrmLegendas> legendas;
  std::unique_ptr<FrmSobre> sobre;
  std::unique_ptr<FrmQuendar> quendar;
  std::unique_ptr<ProjectionPlace> lugar;
  std::unique_ptr<ConsoleStartup> startup;
  std::unique_ptr<ControlServer> control;
};

PageObject *Program::Impl::PageNamed(const QString &name) const {
  if (name == u"display" || name == u"FrmQuendar")
    return quendar ? quendar->WV() : nullptr;
  if (name == u"notice")
    return quendar ? quendar->WVAviso() : nullptr;
  if (name == u"preview" || name == u"FrmMonitor")
    return console ? console->PicWV()->WV() : nullptr;
  if (name == u"FrmConfigTema")
    return themeEditors ? themeEditors->WV() : nullptr;
  if (name == u"FrmSlides")
    return slides ? slides->WV() : nullptr;
  if (name == u"FrmLegendas")
    return legendas ? legendas->WV() : nullptr;
  if (name == u"FrmSlideShow")
    return shows ? shows->WV() : nullptr;
  return nullptr;
}

void Program::Impl::MakeWindows() {
  profile = NewPageProfile();

  console = std::make_unique<FrmMonitor>(ConsoleParts::Of(core), profile);
  console->PicWV()->AddObserver(&events);
  console->PicWV()->OnRecovered = [this] { core.PaginaVoltou(Alvo::Previa); };
  console->PreviaMudou = [this] { core.PreviaMudou(); };
  positions.SetConsole(console.get());
  bible = std::make_unique<BibleWindows>(
      BibleDoors{core.lojaBiblia, store, core.flow, positions, clock, console.get(),
                 [this] { return core.estado.TipoAtual == u"Bíblia" ? core.estado.ReferenciaAtual : QString(); }});
  core.flow.FechaAddBiblia = [this] { bible->CloseAdd(); };
  core.lojaBiblia.VersaoMudou = [this] { bible->VersionChanged(); };
  songs =
      std::make_unique<SongWindows>(SongDoors{app, core.flow, positions, clock, prompt, console.get(),
                                              [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                                              [this](const QString &path) { return editors->Edita(path, songs.get()); },
                                              [this](const QString &path) { return editors->EstaAberto(path); }});
  MakeSongEditors();
  MakeThemeWindows();
  MakeThemeEditors();
  MakeSlideWindows();
  MakeShowWindows();
  MakeVideoWindows();
  MakeNoticeWindows();
  servidor.Mudou = [this] { MostraServidor(); };
  FrmMonitor::Windows windows;
  windows.configTema = [this](int n) { themeEditors->AbreConfigTema(n); };
  windows.newSong = [this] { editors->Novo(songs.get()); };
  windows.addSong = [this] { songs->OpenAdd(); };
  windows.pictureOnScreen = [this] { themes->AbreGaleriaDoTelao(); };
  windows.addBible = [this] { bible->OpenAdd(); };
  windows.addSlides = [this] { slides->AbreLista(); };
  windows.addShows = [this] { shows->AbreLista(); };
  windows.addVideos = [this] { videos->AbreAdicionar(); };
  windows.captions = [this] { AbreLegendas(); };
  windows.notices = [this] { notices->AbreAviso(); };
  windows.videoControl = [this] { videos->AbreControle(true); };
  windows.cameras = [this] { cameras->Abre(); };
  windows.browseBible = [this] { bible->OpenBrowser(); };
  windows.searchBible = [this] { bible->OpenSearch(); };
  windows.chooseScreen = [this](int opcao) {
    if (core.estado.TelaPronta)
      lugar->EscolheTela(opcao);
  };
  windows.help = [this] { help->AbreAjuda(); };
  windows.support = [this] { help->AbreSuporte(); };
  windows.about = [this] { AbreSobre(); };
  windows.restorePosition = [this](QWidget &form) { positions.RestoreFormPosition(form, false); };
  windows.savePosition = [this](QWidget &form) { positions.SaveFormPosition(form, false); };
  windows.agendaChanged = [this] {
    if (songs)
      songs->AgendaChanged();
    if (slides)
      slides->AgendaChanged();
    if (shows)
      shows->AgendaChanged();
    if (videos)
      videos->AgendaChanged();
  };
  console->SetWindows(std::move(windows));
  console->PodeFechar = [this] {
    return editors->FechaTodos() && themeEditors->FechaTodos() && slides->FechaTodos() && shows->FechaTodos();
  };
  console->AoFechar = [this] { startup->Unload(); };
  monitors.SetConsole(console.get());
  MakeDisplay();
  core.canal.CriaTelao = [this] { RemakeDisplay(); };
}

void Program::Impl::AbreSobre() {
  if (!sobre) {
    const EngineVersions versions = ReadEngineVersions();
    sobre = std::make_unique<FrmSobre>(
        MotorDoPrograma{QString::fromLatin1(qVersion()), versions.webEngine, versions.chromium, versions.mpv,
                        qgetenv("QT_QUICK_BACKEND") == "software" ? QObject::tr("by the processor")
                                                                  : QStringLiteral("OpenGL")},
        console.get());
    QObject::connect(sobre.get(), &QDialog::finished, sobre.get(),
                     [this] { positions.SaveFormPosition(*sobre, false); });
  }
  if (!sobre->isVisible())
    positions.RestoreFormPosition(*sobre, false);
  sobre->show();
  sobre->raise();
  sobre->activateWindow();
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
                      [this](const TextFormat &format) {
                        const bool written = core.formato.Aplica(format);
                        themeEditors->MaiusculasMudaram(core.estado.IndiceTema, core.formato.Le().maiusculas);
                        return written;
                      }});
  core.temaControle.RefazFormato = [this] { editors->RefazFormato(); };
  core.agenda.editorDeMusicas = {[this](const QString &path) { return editors->AbertoEmOutra(path); },
                                 [this](const QString &path) { return editors->Edita(path, songs.get()); }};
}

void Program::Impl::MakeThemeWindows() {
  themes = std::make_unique<ThemeWindows>(
      ThemeDoors{app, store, positions, prompt, console.get(),
                 [this](const QString &path) { core.controles.trocarFundoPadrao(path); },
                 [this](const QString &path, bool move) { return core.efeitos.ImagemDaGaleria(path, move); },
                 [this] { return core.estado.TemaAtual.MoveImagens; }});
  core.controles.AbreGaleria = [this] { themes->AbreGaleriaDoFundo(); };
}

void Program::Impl::MakeThemeEditors() {
  const auto salvo = [this](int n) {
    console->RecarregaTile(n);
    core.temaControle.TemaSalvo();
  };
  const auto galeria = [this](int tema, QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmConfigTema"), tema, usa, dono});
  };
  themeEditors = std::make_unique<ThemeEditors>(ThemeEditorDoors{
      store, core.loja, core.temas, prompt, clock, random, yielder, measure, positions, ThemesPanel::TamanhoDoTile,
      [this]() -> Display * { return quendar.get(); }, galeria, salvo, profile, console.get()});
}

void Program::Impl::MakeSlideWindows() {
  const auto galeria = [this](int numero, QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmSlides"), numero, usa, dono});
  };
  slides = std::make_unique<SlideWindows>(
      SlideDoors{store, prompt, clock, random, core.flow, positions, core.estado, core.ajustes,
                 [this]() -> Display * { return quendar.get(); },
                 [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); }, galeria,
                 [this](const AbreImagens &pronto) { ImportaDocumento(pronto); }, profile, console.get()});
  core.agenda.editores[5] = [this](const QString &path) { return slides->Edita(path); };
}

void Program::Impl::ImportaDocumento(const AbreImagens &pronto) {
  if (!importar)
    importar = std::make_unique<FrmImportar>(
        ImportDoors{store, prompt, positions, &DocumentImport::ProgramasInstalados,
                    [this] {
                      const bool rehearsal = core.painel.Ensaio || core.painel.SemProjetor;
                      return quendar && !rehearsal ? quendar->SizePx() * quendar->devicePixelRatioF() : QSize();
                    },
                    [this] { return slides->EditorAberto(); }},
        console.get());
  importar->Pergunta(pronto);
}

void Program::Impl::MakeShowWindows() {
  const auto galeria = [this](QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmSlideShow"), 0, usa, dono});
  };
  shows = std::make_unique<ShowWindows>(ShowDoors{app, prompt, core.flow, positions, core.show,
                                                  [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                                                  galeria, profile, console.get()});
  core.flow.controleDeShows = {[this](const QString &path) { shows->AbreControle(path); },
                               [this] { return shows->FechaControle(); }};
  core.agenda.editores[6] = [this](const QString &path) {
    shows->Edita(path);
    return true;
  };
}

void Program::Impl::MakeVideoWindows() {
  videos = std::make_unique<VideoWindows>(VideoDoors{store, prompt, clock, core.flow, positions, core.controleDeVideo,
                                                     [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                                                     [this] { return core.video.EmExibicao(); },
                                                     [this] { core.video.Encerra(); }, console.get()});
  core.video.AbreControle = [this] { videos->AbreControle(false); };
  core.video.FechaControle = [this] { videos->FechaControle(); };
  const auto aoTexto = [this] {
    console->activateWindow();
    console->FocusStrip();
  };
  cameras = std::make_unique<CameraWindow>(CameraDoors{clock, positions, core.cameras, aoTexto, console.get()});
  core.agenda.outroVideo = [this](const QString &atual) { return EscolheOutroVideo(store, prompt, atual); };
}

// The preview takes no commands, so it gets the page's call beside the projection.
void Program::Impl::MakeNoticeWindows() {
  const auto envia = [this](const QString &comando) {
    core.canal.SendToDisplay(comando);
    if (core.estado.TelaPronta)
      PassaComandoDeAviso(PageNamed(QStringLiteral("preview")), comando);
  };
  const auto mostra = [this](bool aberto) {
    core.painel.AvisoAberto = aberto;
    core.contexto.Atualiza();
  };
  const auto porQueNaoSeVe = [this] { return AvisoDeTelaCoberta(core.painel.SemProjetor, core.estado.EstadoTela); };
  notices = std::make_unique<NoticeWindows>(
      NoticeDoors{store, prompt, positions, envia, porQueNaoSeVe, mostra, console.get()});
}

void Program::Impl::MostraServidor() {
  const ServidorDeLegendas agora = servidor.TemCliente() ? ServidorDeLegendas::ComCliente
                                   : servidor.Ligado()   ? ServidorDeLegendas::SemCliente
                                                         : ServidorDeLegendas::Desligado;
  if (std::exchange(core.painel.Legendas, agora) != agora)
    core.contexto.Atualiza();
}

void Program::Impl::AbreLegendas() {
  if (!legendas)
    legendas = std::make_unique<FrmLegendas>(CaptionDoors{store, prompt, positions, core.legenda, servidor,
                                                          [this] { core.LegendasSalvas(); }, profile, console.get()});
  legendas->Open();
}

void Program::Impl::MakeDisplay() {
  const bool software = qgetenv("QT_QUICK_BACKEND") == "software";
  quendar = std::make_unique<FrmQuendar>(
      FrmQuendar::Parts{core.estado, core.legenda, app, clock, console.get(), &events,
                        software ? VideoDrawing::Software : VideoDrawing::Gl, profile});
  quendar->OnRecovered = [this] { core.PaginaVoltou(Alvo::Telao); };
  quendar->OnLost = [this] { core.show.PaginaCaiu(); };
  quendar->OnResize = [this] { sizeTimer.start(); };
  console->TakeKeysOf(quendar.get());
  quendar->Commands().OnCamera = [this](const QString &uri) { CameraRespondeu(uri, Alvo::Telao); };
  quendar->Commands().OnShowEnding = [this](int ms) { core.show.FimAVista(ms); };
  quendar->Commands().OnImageName = [this](const QString &nome) { shows->ImagemMudou(TextoRelatado(nome)); };
  quendar->OnUnload = [this] { quendar.release()->deleteLater(); };
}

// A command came after the one that closes the window. The new one is hidden and black, as every new one is, until a
// command says otherwise; its page is built behind the command.
void Program::Impl::RemakeDisplay() {
  MakeDisplay();
  lugar->Recoloca();
  quendar->CriaBrowser();
  ApplyZoom(core.contexto);
  QTimer::singleShot(0, quendar.get(), [this] {
    if (core.estado.TelaPronta)
      core.TelaoRefeito();
  });
}

void Program::Impl::PlaceDisplay(const PlacaDoTelao &placa) {
  core.painel.Ensaio = !placa.segundoMonitor;
  console->DefineTelao(placa.tela.size());
  if (quendar)
    quendar->Posiciona(placa.tela, placa.segundoMonitor);
}

void Program::Impl::MakePlace() {
  ProjectionPlace::Janelas janelas;
  janelas.Posiciona = [this](const PlacaDoTelao &placa) { PlaceDisplay(placa); };
  janelas.Esconde = [this] {
    if (quendar)
      quendar->Esconde();
  };
  janelas.LevaConsole = [this](const clsMonitor &monitor) {
    if (QScreen *screen = QtMonitors::Screen(monitor.Handle))
      console->LevaPara(screen);
  };
  janelas.Retangulo = [this] { return quendar ? quendar->geometry() : QRect(); };
  janelas.Tamanho = [this] { return quendar ? quendar->SizePx() : QSize(); };
  janelas.TelaMudou = [this] {
    console->DefineTelao(quendar->SizePx()); // the preview has the aspect that the window really got
    core.TelaMudou();
  };
  lugar = std::make_unique<ProjectionPlace>(core.contexto, monitors, std::move(janelas));
}

// The console's page never leaves; where it wants to go says what cameras there are.
bool Program::Impl::CriaPrevia() {
  if (!console->CriaPrevia())
    return false;
  PageObject *page = PageNamed(QStringLiteral("preview"));
  page->AoPermissao = &DisplayCommands::AoPermissao;
  page->AoNavegar = [this](const QString &uri, bool &cancel) {
    cancel = true;
    CameraRespondeu(uri, Alvo::Previa);
  };
  return true;
}

// Behind the page's event and behind every building of a page, because it may be a box.
void Program::Impl::CameraRespondeu(const QString &uri, Alvo de) {
  QTimer::singleShot(0, console.get(), [this, uri, de] {
    if (yielder.IsYielding())
      QTimer::singleShot(EsperaDoTamanho, console.get(), [this, uri, de] { CameraRespondeu(uri, de); });
    else
      core.cameras.Respondeu(uri, de);
  });
}

void Program::Impl::MakeStartup() {
  ConsoleStartup::Janelas janelas;
  janelas.CarregaFontes = [this] { console->CarregaFontes(); };
  janelas.AjustaPreview = [this] { console->AjustaPreview(); };
  janelas.positionInicial = [this] { console->positionInicial(); };
  janelas.CriaPrevia = [this] { return CriaPrevia(); };
  janelas.CriaTelao = [this] { return quendar && quendar->CriaBrowser(); };
  // Straight to the window: the channel carries nothing before the start has ended.
  janelas.MostraTelao = [this] {
    if (quendar)
      quendar->ProcessaComando(QStringLiteral("Show"));
    if (!QGuiApplication::platformName().startsWith(u"wayland")) // where no window may ask for it
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
    servidor.Encerra();
    if (quendar)
      quendar->hide();
    QCoreApplication::quit();
  };
  // A box must not stand inside the timer that ends the start.
  janelas.InicioTerminou = [this] {
    QTimer::singleShot(0, console.get(), [this] {
      editors->OfereceRascunhos(songs.get());
      slides->OfereceRascunhos();
    });
    QTimer::singleShot(CalmaDoInicio, console.get(), [this] { songs->PrepareAdd(); });
  };
  startup = std::make_unique<ConsoleStartup>(core.contexto, core.agenda, core.temaControle, core.loja, core.controles,
                                             core.loader, core.leitura, *lugar, std::move(janelas));
}

void Program::Impl::ListenForControl() {
  if (line.control.isEmpty())
    return;
  ControlDoors doors = DoorsOf(core.estado, core.flow, core.agenda, core.controles, core.temaControle, core.canal,
                               [this]() -> Display * { return quendar.get(); });
  doors.textoLegenda = [this] { return core.legenda.TextoLegenda; };
  doors.telaoEm = [this] { return core.painel.TelaoEm; };
  doors.semProjetor = [this] { return core.painel.SemProjetor; };
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

// Whatever changes on the desktop is waited out for a moment, and then looked at once.
void Program::Impl::WatchScreens(QObject *context) {
  screenTimer.setInterval(EsperaDasTelas);
  sizeTimer.setInterval(EsperaDoTamanho);
  for (QTimer *timer : {&screenTimer, &sizeTimer})
    timer->setSingleShot(true);
  connect(&screenTimer, &QTimer::timeout, context, [this] { ScreensChanged(); });
  connect(&sizeTimer, &QTimer::timeout, context, [this] { SizeChanged(); });

  const auto changed = [this] {
    if (!screenTimer.isActive() && console)
      console->AnotaTamanho();
    screenTimer.start();
  };
  const auto watch = [changed, context](QScreen *screen) {
    connect(screen, &QScreen::geometryChanged, context, changed);
    connect(screen, &QScreen::availableGeometryChanged, context, changed);
    connect(screen, &QScreen::logicalDotsPerInchChanged, context, changed);
  };
  for (QScreen *screen : QGuiApplication::screens())
    watch(screen);
  connect(qApp, &QGuiApplication::screenAdded, context, [changed, watch](QScreen *screen) {
    watch(screen);
    changed();
  });
  connect(qApp, &QGuiApplication::screenRemoved, context, changed);
  connect(qApp, &QGuiApplication::primaryScreenChanged, context, changed);
  // The operator drags the console to another monitor: the projection must not stay above it there.
  if (QWindow *window = console->windowHandle())
    connect(window, &QWindow::screenChanged, context, changed);
}

void Program::Impl::ScreensChanged() {
  if (startup->Descarregado())
    return;
  if (!core.estado.TelaPronta) { // the start is under way; afterwards, then
    screenTimer.start();
    return;
  }
  triesLeft = TentativasDeLugar;
  lugar->Reavalia(); // without a projection's window too: the console may have to go home
  const bool wholeScreen = quendar && quendar->isFullScreen() && quendar->isVisible();
  for (QWidget *window : QApplication::topLevelWidgets())
    if (window != console.get() && window != quendar.get() && window->isVisible() &&
        !window->windowFlags().testFlag(Qt::Popup))
      positions.TrazDeVolta(*window, wholeScreen ? quendar->geometry() : QRect());
  sizeTimer.start(); // what the window told while the desktop was changing was not looked at
}

void Program::Impl::SizeChanged() {
  if (!core.estado.TelaPronta || startup->Descarregado() || screenTimer.isActive())
    return;
  if (quendar && !quendar->EstaNoLugar() && triesLeft > 0) {
    --triesLeft;
    lugar->Recoloca();
    sizeTimer.start();
  } else {
    lugar->TamanhoMudou();
  }
}

Program::Program(const CommandLine &line) : m_impl(std::make_unique<Impl>(line)) {}

Program::~Program() {
  // Pages end before the profile they share, and before the application object.
  m_impl->control.reset();
  m_impl->quendar.reset();
  m_impl->core.flow.FechaAddBiblia = nullptr;
  m_impl->core.agenda.editorDeMusicas = {};
  m_impl->core.temaControle.RefazFormato = nullptr;
  m_impl->editors.reset();
  m_impl->themeEditors.reset();
  m_impl->core.agenda.editores.clear();
  m_impl->core.agenda.outroVideo = nullptr;
  m_impl->importar.reset();
  m_impl->slides.reset();
  m_impl->core.flow.controleDeShows = {};
  m_impl->shows.reset();
  m_impl->core.video.AbreControle = m_impl->core.video.FechaControle = nullptr;
  m_impl->videos.reset();
  m_impl->core.lojaBiblia.VersaoMudou = nullptr;
  m_impl->bible.reset();
  m_impl->songs.reset();
  m_impl->core.controles.AbreGaleria = nullptr;
  m_impl->themes.reset();
  m_impl->notices.reset();
  m_impl->cameras.reset();
  m_impl->servidor.Mudou = nullptr;
  m_impl->legendas.reset();
  m_impl->sobre.reset();
  m_impl->console.reset();
}

std::optional<int> Program::Start() {
  Impl &p = *m_impl;
  // First, so that what the start has to say can be answered from outside.
  p.ListenForControl();
  const AssetPlaces assets = FindAssets(p.line.assets, QCoreApplication::applicationDirPath());
  p.help = std::make_unique<HelpDesk>(p.store, p.prompt, p.opener, assets.help);
  const FillResult filled = FillProgramFolder(p.app.path(), assets);
  if (!filled.problem.isEmpty())
    p.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), filled.problem);
  if (!p.instance.Start(p.prompt))
    return 1;
  if (p.leaving)
    return 0;

  p.MakeWindows();
  p.MakePlace();
  p.MakeStartup();
  p.startup->Load();
  if (p.startup->Descarregado())
    return 0;
  p.servidor.Inicia();
  p.WatchScreens(this);
  p.screenTimer.start(); // for what changed while the start was under way
  return std::nullopt;
}

} // namespace tolmira
