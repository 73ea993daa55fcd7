#include "console/FrmMonitor.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <array>
#include <utility>

#include "console/FrmAtalhos.h"
#include "console/monitors.h"
#include "console/ui/add_bar.h"
#include "bible/ui/reference_box.h"
#include "console/ui/agenda_panel.h"
#include "console/ui/bible_settings.h"
#include "console/ui/console_keys.h"
#include "console/ui/console_menus.h"
#include "console/ui/effects_panel.h"
#include "console/ui/preview_box.h"
#include "console/ui/qt_monitors.h"
#include "console/ui/screen_panel.h"
#include "console/ui/strip_panel.h"
#include "console/ui/text_settings.h"
#include "console/ui/themes_panel.h"
#include "controls/ui/group_list.h"
#include "controls/ui/palette.h"
#include "controls/ui/resize_edge.h"
#include "display/ui/web_page_host.h"

namespace tolmira {

namespace {

constexpr QSize TamanhoMinimo{640, 400}; // below the room that the desk needs it scrolls
// Shares of the width, agenda to text to screen.
constexpr int PartesDaMesa[] = {23, 47, 30};
constexpr int PartesDaMesaLarga[] = {17, 40, 43};
constexpr int LarguraDaMesaLarga = 2400; // px, from where the preview is worth more than a longer list
constexpr int AlturaFolgada = 700;       // px, below which the desk is laid out tightly
constexpr int PartesDosTemas[] = {68, 32};
constexpr int LarguraDaAgenda = 340; // least, px: five tabs with their default titles
constexpr int EsperaDaPrevia = 120;  // ms without another change of its size
// ms after which a window that was shown may have got its frame; nothing tells of it.
constexpr int EsperasDaMoldura[] = {0, 100, 400, 1500};

// There a window has no place that it could know or choose.
bool OnWayland() { return QGuiApplication::platformName().startsWith(u"wayland"); }

} // namespace

struct FrmMonitor::Impl {
  explicit Impl(ConsoleParts given) : parts(given) {}

  ConsoleParts parts;
  ConsoleMenus *menus = nullptr;
  AgendaPanel *agenda = nullptr;
  StripPanel *strip = nullptr;
  TextSettings *settings = nullptr;
  BibleSettings *bibleSettings = nullptr;
  QStackedWidget *settingsPlace = nullptr;
  PreviewBox *preview = nullptr;
  ScreenPanel *screen = nullptr;
  ThemesPanel *themes = nullptr;
  EffectsPanel *effects = nullptr;
  AddBar *addBar = nullptr;
  FrmAtalhos *sheet = nullptr; // once it was asked for
  Windows windows;
  ConsoleKeys *keys = nullptr;
  QHBoxLayout *desk = nullptr;
  QVBoxLayout *rows = nullptr;
  QHBoxLayout *lower = nullptr;
  QVBoxLayout *middle = nullptr;
  void FitTo(const QSize &size);
  bool compact = false;
  bool wide = false;
  bool fillsWorkArea = false;
  bool filledBefore = false; // AnotaTamanho
  QMargins frame; // with which it was filled
  QRect filled; // the rectangle that filled it, without the frame
  std::array<ResizeEdge *, 3> edges{};
  QTimer previewTimer;
};

// The same controls in the same places; a window that is not high gets them closer together.
void FrmMonitor::Impl::FitTo(const QSize &size) {
  if (const bool now = size.height() < AlturaFolgada; now != std::exchange(compact, now)) {
    const int gap = compact ? medidas::Gap : medidas::Margin;
    rows->setContentsMargins(gap, compact ? 0 : medidas::Step, gap, gap);
    rows->setSpacing(gap);
    desk->setSpacing(gap);
    lower->setSpacing(compact ? medidas::Margin : 2 * medidas::Margin);
    middle->setSpacing(compact ? medidas::Step : medidas::Gap);
    agenda->SetCompact(compact);
    screen->SetCompact(compact);
    addBar->SetCompact(compact);
    themes->SetCompact(compact);
  }
  if (const bool now = size.width() >= LarguraDaMesaLarga; now != std::exchange(wide, now))
    for (int i = 0; i < 3; ++i)
      desk->setStretch(i, (wide ? PartesDaMesaLarga : PartesDaMesa)[i]);
}

FrmMonitor::FrmMonitor(Parts parts, PageProfile perfil) : m_impl(std::make_unique<Impl>(parts)) {
  setObjectName(QStringLiteral("FrmMonitor"));
  setWindowTitle(QStringLiteral("Tolmira"));
  setMinimumSize(TamanhoMinimo);
  Impl &d = *m_impl;

  // On a small or strongly scaled screen the desk is larger than the work area, and all of it must be in reach.
  auto *desktop = new QScrollArea(this);
  desktop->setFrameShape(QFrame::NoFrame);
  desktop->setFocusPolicy(Qt::NoFocus);
  desktop->setWidgetResizable(true);
  auto *body = new QWidget;
  auto *rows = d.rows = new QVBoxLayout(body);
  rows->setContentsMargins(medidas::Margin, medidas::Step, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Margin);

  // Made in the order in which Tab goes through them.
  auto *desk = d.desk = new QHBoxLayout;
  desk->setSpacing(medidas::Margin);
  d.agenda = new AgendaPanel(parts, body);
  d.agenda->setMinimumWidth(LarguraDaAgenda);
  desk->addWidget(d.agenda, PartesDaMesa[0]);
  auto *middle = d.middle = new QVBoxLayout;
  middle->setSpacing(medidas::Gap);
  d.strip = new StripPanel(parts, body);
  d.settings = new TextSettings(parts, body);
  middle->addWidget(d.strip, 1);
  // One place for both, as high as the higher one: nothing moves when a song follows a passage.
  d.bibleSettings = new BibleSettings(parts, body);
  d.settingsPlace = new QStackedWidget(body);
  d.settingsPlace->addWidget(d.settings);
  d.settingsPlace->addWidget(d.bibleSettings);
  d.settingsPlace->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  middle->addWidget(d.settingsPlace);
  desk->addLayout(middle, PartesDaMesa[1]);
  d.preview = new PreviewBox(std::move(perfil), body);
  d.screen = new ScreenPanel(parts, d.preview, body);
  desk->addWidget(d.screen, PartesDaMesa[2]);
  rows->addLayout(desk, 1);

  d.addBar = new AddBar(body);
  rows->addWidget(d.addBar);

  auto *lower = d.lower = new QHBoxLayout;
  lower->setSpacing(2 * medidas::Margin);
  d.themes = new ThemesPanel(parts, body);
  d.effects = new EffectsPanel(parts, body);
  lower->addWidget(d.themes, PartesDosTemas[0]);
  lower->addWidget(d.effects, PartesDosTemas[1]);
  rows->addLayout(lower);
  desktop->setWidget(body);
  setCentralWidget(desktop);

  ConsoleMenus::Ways ways;
  ways.close = [this] { close(); };
  ways.toggleSize = [this] { AlternaTamanho(); };
  const auto go = [desktop](QWidget *widget) {
    if (!widget)
      return;
    widget->setFocus(Qt::ShortcutFocusReason);
    // The whole of it: ensureWidgetVisible is content with the caret of a text box.
    const QRect place(widget->mapTo(desktop->widget(), QPoint()), widget->size());
    desktop->ensureVisible(place.right() + 1, place.bottom() + 1, 0, 0);
    desktop->ensureVisible(place.left(), place.top(), 0, 0);
  };
  ways.toAgenda = [&d, go] { go(d.agenda->Lista()); };
  ways.toStrip = [&d, go] { go(d.strip->PicAbac2()); };
  const auto focus = [this, go](const QString &name) { go(findChild<QWidget *>(name)); };
  ways.toScreenStates = [&d, focus] { focus(QStringLiteral("LBTela%1").arg(d.parts.console.painel.LBTelaMarcado)); };
  ways.toThemes = [&d, focus] {
    focus(QStringLiteral("PicImgFundoB%1").arg(qMax(1, d.parts.console.painel.PicTemaAtual)));
  };
  ways.choose = [&d](int delta) { d.agenda->SelectNeighbour(delta); };
  ways.move = [&d](int delta) { d.agenda->MoveSelected(delta); };
  ways.toReference = [&d, go] {
    go(d.screen->Text2());
    d.screen->Text2()->selectAll();
  };
  const auto open = [](const std::function<void()> &window) {
    if (window)
      window();
  };
  ways.chooseScreen = [&d](int index) {
    if (d.windows.chooseScreen)
      d.windows.chooseScreen(index);
  };
  ways.newSong = [&d, open] { open(d.windows.newSong); };
  ways.pictureOnScreen = [&d, open] { open(d.windows.pictureOnScreen); };
  ways.videoControl = [&d, open] { open(d.windows.videoControl); };
  ways.cameras = [&d, open] { open(d.windows.cameras); };
  ways.addBible = [&d, open] { open(d.windows.addBible); };
  ways.browseBible = [&d, open] { open(d.windows.browseBible); };
  ways.searchBible = [&d, open] { open(d.windows.searchBible); };
  ways.searchVersions = [&d, open] { open(d.windows.searchVersions); };
  ways.downloadLyrics = [&d, open] { open(d.windows.downloadLyrics); };
  ways.downloadPictures = [&d, open] { open(d.windows.downloadPictures); };
  ways.downloadVideos = [&d, open] { open(d.windows.downloadVideos); };
  ways.help = [&d, open] { open(d.windows.help); };
  ways.support = [&d, open] { open(d.windows.support); };
  ways.verifyUpdate = [&d, open] { open(d.windows.verifyUpdate); };
  ways.about = [&d, open] { open(d.windows.about); };
  ways.keySheet = [this, &d] {
    if (!d.sheet) {
      d.sheet = new FrmAtalhos(this);
      connect(d.sheet, &QDialog::finished, this, [&d] {
        if (d.windows.savePosition)
          d.windows.savePosition(*d.sheet);
      });
    }
    if (!d.sheet->isVisible() && d.windows.restorePosition)
      d.windows.restorePosition(*d.sheet);
    d.sheet->Open();
  };
  d.menus = new ConsoleMenus(parts, std::move(ways), this);
  setMenuBar(d.menus);
  d.screen->SetVersionMenu(d.menus->Versoes());
  connect(d.screen, &ScreenPanel::CamerasWanted, this, [&d, open] { open(d.windows.cameras); });
  d.addBar->SetWindow(0, tr("Adds a song or a hymn to the agenda, or shows one (Ctrl+M)"),
                      [&d, open] { open(d.windows.addSong); });
  d.addBar->SetWindow(1, tr("Adds a Bible passage to the agenda, or shows one"),
                      [&d, open] { open(d.windows.addBible); });
  d.addBar->SetWindow(2, tr("Adds slides to the agenda, shows or edits them"),
                      [&d, open] { open(d.windows.addSlides); });
  d.addBar->SetWindow(3, tr("Adds slide shows to the agenda, runs or edits them"),
                      [&d, open] { open(d.windows.addShows); });
  d.addBar->SetWindow(4, tr("Adds videos to the agenda"), [&d, open] { open(d.windows.addVideos); });
  d.addBar->SetWindow(5, tr("Searches for videos of the web, plays them or adds them to the agenda"),
                      [&d, open] { open(d.windows.searchVideos); });
  d.addBar->SetWindow(6, tr("The captions of the broadcast: their look and their server (Alt+P)"),
                      [&d, open] { open(d.windows.captions); });
  d.addBar->SetWindow(7, tr("Runs a notice across the projection (Ctrl+A)"), [&d, open] { open(d.windows.notices); });
  parts.teclas.Image9 = [&d] { d.screen->Image9(); };
  parts.teclas.AddBar = [&d](int index) { d.addBar->Press(index); };

  // The platform's frame is a pixel wide on many desktops; these stand inside it, where a hand finds them.
  const std::pair<const char *, Qt::Edges> edges[] = {
      {"PicMoveW", Qt::RightEdge}, {"PicMoveH", Qt::BottomEdge}, {"picResize", Qt::RightEdge | Qt::BottomEdge}};
  for (size_t i = 0; i < d.edges.size(); ++i) {
    d.edges[i] = new ResizeEdge(edges[i].second, this);
    d.edges[i]->setObjectName(QLatin1String(edges[i].first));
  }
  PlaceEdges();
  d.previewTimer.setSingleShot(true);
  d.previewTimer.setInterval(EsperaDaPrevia);
  connect(&d.previewTimer, &QTimer::timeout, this, [this] {
    if (PreviaMudou)
      PreviaMudou();
  });
  d.preview->OnResize = [&d] { d.previewTimer.start(); };

  d.keys = new ConsoleKeys(parts, this, d.agenda->Lista());
  parts.console.view = this;
  AgendaChanged();
  ThemesChanged();
  Atualiza();
  d.agenda->Lista()->setFocus();
}

FrmMonitor::~FrmMonitor() {
  m_impl->parts.teclas.Image9 = nullptr;
  m_impl->parts.teclas.AddBar = nullptr;
  if (m_impl->parts.console.view == this)
    m_impl->parts.console.view = nullptr;
}

void FrmMonitor::SetWindows(Windows windows) {
  m_impl->windows = std::move(windows);
  m_impl->themes->AbreConfigTema = m_impl->windows.configTema;
}

void FrmMonitor::CarregaFontes() { m_impl->effects->CarregaFontes(); }
void FrmMonitor::DefineTelao(const QSize &pixels) { m_impl->preview->DefineMonitor(pixels); }
void FrmMonitor::AjustaPreview() { m_impl->preview->AjustaPreview(); }
void FrmMonitor::CarregaTiles() { m_impl->themes->CarregaTiles(); }
void FrmMonitor::RecarregaTile(int n) { m_impl->themes->RecarregaTile(n); }
bool FrmMonitor::CriaPrevia() { return m_impl->preview->PicWV()->CriaBrowser(); }
void FrmMonitor::TakeKeysOf(QWidget *window) { m_impl->keys->AddWindow(window); }
WebPageHost *FrmMonitor::PicWV() { return m_impl->preview->PicWV(); }

void FrmMonitor::positionInicial() {
  GravaRetanguloPadrao(m_impl->parts.console.store, screen()->geometry());
  FillWorkArea(screen());
  show();
}

// Filled by hand and not by the platform, so that the panel of the desktop stays in sight. The frame's thickness is
// known only once the window stands on the screen; showEvent comes back for it. On Wayland only the platform can.
void FrmMonitor::FillWorkArea(QScreen *on) {
  m_impl->fillsWorkArea = true;
  if (OnWayland()) {
    setWindowState(windowState() | Qt::WindowMaximized);
  } else {
    const QMargins frame = windowHandle() ? windowHandle()->frameMargins() : QMargins();
    m_impl->frame = frame;
    m_impl->filled = on->availableGeometry().marginsRemoved(frame);
    if (screen() != on)
      setScreen(on);
    setGeometry(m_impl->filled);
  }
  m_impl->menus->SetMaximised(true);
  PlaceEdges();
}

bool FrmMonitor::FillsWorkArea() const {
  const Impl &d = *m_impl;
  if (OnWayland())
    return isMaximized();
  return d.fillsWorkArea && geometry() == QRect(d.filled.topLeft(), d.filled.size().expandedTo(minimumSize()));
}

void FrmMonitor::AnotaTamanho() { m_impl->filledBefore = FillsWorkArea(); }

void FrmMonitor::LevaPara(QScreen *to) {
  if (OnWayland())
    return; // the desktop itself takes it along
  if (m_impl->filledBefore || FillsWorkArea()) {
    FillWorkArea(to);
    return;
  }
  m_impl->fillsWorkArea = false;
  // By the part of the window that lies there, since the toolkit may have it counted to that screen already.
  const QRect seen = frameGeometry() & to->availableGeometry();
  if (seen.contains(frameGeometry().topLeft()) && seen.width() >= width() / 2 && seen.height() >= height() / 2)
    return;
  const QRect normal = RetanguloPadrao(to->geometry()) & to->availableGeometry();
  setScreen(to);
  move(normal.topLeft());
  resize(normal.size().expandedTo(minimumSize()));
}

void FrmMonitor::AlternaTamanho() {
  const IniStore &store = m_impl->parts.console.store;
  if (OnWayland()) {
    setWindowState(windowState() ^ Qt::WindowMaximized);
    m_impl->menus->SetMaximised(isMaximized());
    return;
  }
  if (isMaximized() || frameGeometry() == screen()->availableGeometry() || FillsWorkArea()) {
    // Maximised by the window manager: the rectangle of before is the normal one, unless that filled the work area.
    const QRect before = normalGeometry();
    if (isMaximized() && !m_impl->fillsWorkArea && before.isValid())
      GravaRetanguloNormal(store, before.translated(pos() - geometry().topLeft()));
    m_impl->fillsWorkArea = false;
    if (isMaximized())
      showNormal();
    QtMonitors fonte;
    const clsMonitors monitores(fonte);
    QRect normal = LeRetanguloNormal(store, screen()->geometry());
    if (!monitores.AoAlcance(normal)) // it was kept on a monitor that has gone
      normal = RetanguloPadrao(screen()->geometry());
    move(normal.topLeft());
    resize(normal.size().expandedTo(minimumSize()));
    m_impl->menus->SetMaximised(false);
  } else {
    GravaRetanguloNormal(store, QRect(pos(), size()));
    FillWorkArea(screen());
  }
  PlaceEdges();
  m_impl->parts.console.yielder.Yield(2);
}

void FrmMonitor::PlaceEdges() {
  for (ResizeEdge *edge : m_impl->edges)
    edge->Place();
}

void FrmMonitor::showEvent(QShowEvent *event) {
  QMainWindow::showEvent(event);
  for (const int delay : EsperasDaMoldura)
    QTimer::singleShot(delay, this, [this] {
      const bool known = windowHandle() && windowHandle()->frameMargins() == m_impl->frame;
      if (isVisible() && !known && FillsWorkArea())
        FillWorkArea(screen());
    });
}

void FrmMonitor::changeEvent(QEvent *event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && m_impl->menus)
    m_impl->menus->SetMaximised(isMaximized() || FillsWorkArea());
}

void FrmMonitor::resizeEvent(QResizeEvent *event) {
  m_impl->FitTo(event->size());
  QMainWindow::resizeEvent(event);
  PlaceEdges();
}

void FrmMonitor::closeEvent(QCloseEvent *event) {
  if (PodeFechar && !PodeFechar()) {
    event->ignore();
    return;
  }
  event->accept();
  if (AoFechar)
    AoFechar();
}

void FrmMonitor::Atualiza() {
  Impl &d = *m_impl;
  d.parts.console.descreve();
  d.agenda->Atualiza();
  d.strip->Atualiza();
  d.settings->Atualiza();
  d.bibleSettings->Atualiza();
  d.settingsPlace->setCurrentWidget(d.parts.console.painel.Picture7Visible ? static_cast<QWidget *>(d.bibleSettings)
                                                                           : d.settings);
  d.screen->Atualiza();
  d.themes->Atualiza();
  d.menus->Atualiza();
}

void FrmMonitor::StripMoved() { m_impl->strip->PicAbac2()->StripMoved(); }

void FrmMonitor::AgendaChanged() {
  m_impl->parts.console.descreve();
  m_impl->screen->Atualiza(); // the chosen entry is what comes next
  m_impl->agenda->AgendaChanged();
  if (m_impl->windows.agendaChanged)
    m_impl->windows.agendaChanged();
}

void FrmMonitor::ThemesChanged() {
  m_impl->themes->ThemesChanged();
  m_impl->effects->ThemesChanged();
}

void FrmMonitor::FocusStrip() { m_impl->strip->PicAbac2()->setFocus(Qt::OtherFocusReason); }
int FrmMonitor::PreviewWidthPx() const { return m_impl->preview->PicWV()->width(); }

void FrmMonitor::FitMirror() { m_impl->preview->FitMirror(); }
void FrmMonitor::ShowMirrorBlack(bool visible) { m_impl->preview->ShowMirrorBlack(visible); }
bool FrmMonitor::LoadMirrorPicture(const QString &storedPath) { return m_impl->preview->LoadMirrorPicture(storedPath); }
void FrmMonitor::ShowMirrorPicture(bool visible) { m_impl->preview->ShowMirrorPicture(visible); }

} // namespace tolmira
