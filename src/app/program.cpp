#include "app/asset_places.h"
#include "app/program_impl.h"
#include "console/page_zoom.h"
#include "display/show_page.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace tolmira {

namespace {

constexpr int EsperaDasTelas = 300;  // ms: a changed desktop announces its screens one by one
constexpr int EsperaDoTamanho = 150; // ms: a window on its way has many sizes
constexpr int CalmaDoInicio = 700;   // ms: until the first pages and previews are drawn

} // namespace

void Program::Impl::MakeDisplay() {
  const bool software = qgetenv("QT_QUICK_BACKEND") == "software";
  quendar =
      std::make_unique<FrmQuendar>(FrmQuendar::Parts{core.estado, core.legenda, app, clock, console.get(), &events,
                                                     software ? VideoDrawing::Software : VideoDrawing::Gl, profile});
  quendar->OnRecovered = [this] { core.PaginaVoltou(Alvo::Telao); };
  quendar->OnLost = [this] { core.show.PaginaCaiu(); };
  quendar->OnResize = [this] { sizeTimer.start(); };
  console->TakeKeysOf(quendar.get());
  quendar->Commands().OnCamera = [this](const QString &uri) { CameraRespondeu(uri, Alvo::Telao); };
  quendar->Commands().PodeDesviar = [this](const QString &uri) { return PodeDesviar(QUrl(uri)); };
  quendar->Commands().OnShowEnding = [this](int ms) { core.show.FimAVista(ms); };
  quendar->Commands().OnImageName = [this](const QString &nome) { shows->ImagemMudou(TextoRelatado(nome)); };
  quendar->OnUnload = [this] { quendar.release()->deleteLater(); };
}

// Where the site sends the projection on to what is not for the hall, the projection goes to its empty page, behind the
// event of the page that is refused.
bool Program::Impl::PodeDesviar(const QUrl &url) {
  const bool pode = core.videoDaWeb.PodeDesviar(url);
  if (!pode)
    QTimer::singleShot(0, quendar.get(), [this] { core.videoDaWeb.Desviou(); });
  return pode;
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
  m_impl->letras.reset();
  m_impl->atualizacao.reset();
  m_impl->conteudo.reset();
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
  m_impl->core.videoDaWeb.AbreControle = m_impl->core.videoDaWeb.FechaControle = nullptr;
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
  p.help = std::make_unique<HelpDesk>(p.endpoints, p.prompt, p.opener, assets.help);
  const FillResult filled = FillProgramFolder(p.app.path(), assets);
  if (!filled.problem.isEmpty())
    p.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), filled.problem);
  if (!p.instance.Start(p.prompt))
    return 1;
  if (p.leaving)
    return 0;

  p.endpoints.GravaPadroes();
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
