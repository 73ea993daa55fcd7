#include "console/FrmMonitor.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "console/monitors.h"
#include "console/ui/add_bar.h"
#include "console/ui/agenda_panel.h"
#include "console/ui/console_keys.h"
#include "console/ui/console_menus.h"
#include "console/ui/effects_panel.h"
#include "console/ui/preview_box.h"
#include "console/ui/screen_panel.h"
#include "console/ui/strip_panel.h"
#include "console/ui/text_settings.h"
#include "console/ui/themes_panel.h"
#include "controls/ui/group_list.h"
#include "controls/ui/palette.h"
#include "display/ui/web_page_host.h"

namespace tolmira {

namespace {

constexpr QSize TamanhoMinimo{1120, 680};
// Shares of the width, agenda to text to screen.
constexpr int PartesDaMesa[] = {23, 47, 30};
constexpr int PartesDosTemas[] = {68, 32};
constexpr int LarguraDaAgenda = 340; // least, px: five tabs with their default titles

} // namespace

struct FrmMonitor::Impl {
  explicit Impl(ConsoleParts given) : parts(given) {}

  ConsoleParts parts;
  ConsoleMenus *menus = nullptr;
  AgendaPanel *agenda = nullptr;
  StripPanel *strip = nullptr;
  TextSettings *settings = nullptr;
  PreviewBox *preview = nullptr;
  ScreenPanel *screen = nullptr;
  ThemesPanel *themes = nullptr;
  EffectsPanel *effects = nullptr;
  ConsoleKeys *keys = nullptr;
  bool fillsWorkArea = false;
};

FrmMonitor::FrmMonitor(Parts parts, PageProfile perfil) : m_impl(std::make_unique<Impl>(parts)) {
  setObjectName(QStringLiteral("FrmMonitor"));
  setWindowTitle(QStringLiteral("Tolmira"));
  setMinimumSize(TamanhoMinimo);
  Impl &d = *m_impl;

  auto *body = new QWidget(this);
  auto *rows = new QVBoxLayout(body);
  rows->setContentsMargins(medidas::Margin, medidas::Step, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Margin);

  // Made in the order in which Tab goes through them.
  auto *desk = new QHBoxLayout;
  desk->setSpacing(medidas::Margin);
  d.agenda = new AgendaPanel(parts, body);
  d.agenda->setMinimumWidth(LarguraDaAgenda);
  desk->addWidget(d.agenda, PartesDaMesa[0]);
  auto *middle = new QVBoxLayout;
  middle->setSpacing(medidas::Gap);
  d.strip = new StripPanel(parts, body);
  d.settings = new TextSettings(parts, body);
  middle->addWidget(d.strip, 1);
  middle->addWidget(d.settings);
  desk->addLayout(middle, PartesDaMesa[1]);
  d.preview = new PreviewBox(std::move(perfil), body);
  d.screen = new ScreenPanel(parts, d.preview, body);
  desk->addWidget(d.screen, PartesDaMesa[2]);
  rows->addLayout(desk, 1);

  rows->addWidget(new AddBar(body));

  auto *lower = new QHBoxLayout;
  lower->setSpacing(2 * medidas::Margin);
  d.themes = new ThemesPanel(parts, body);
  d.effects = new EffectsPanel(parts, body);
  lower->addWidget(d.themes, PartesDosTemas[0]);
  lower->addWidget(d.effects, PartesDosTemas[1]);
  rows->addLayout(lower);
  setCentralWidget(body);

  ConsoleMenus::Ways ways;
  ways.close = [this] { close(); };
  ways.toggleSize = [this] { AlternaTamanho(); };
  ways.toAgenda = [&d] { d.agenda->Lista()->setFocus(Qt::ShortcutFocusReason); };
  ways.toStrip = [this] { FocusStrip(); };
  const auto focus = [this](const QString &name) {
    if (auto *widget = findChild<QWidget *>(name))
      widget->setFocus(Qt::ShortcutFocusReason);
  };
  ways.toScreenStates = [&d, focus] { focus(QStringLiteral("LBTela%1").arg(d.parts.console.painel.LBTelaMarcado)); };
  ways.toThemes = [&d, focus] {
    focus(QStringLiteral("PicImgFundoB%1").arg(qMax(1, d.parts.console.painel.PicTemaAtual)));
  };
  ways.choose = [&d](int delta) { d.agenda->SelectNeighbour(delta); };
  ways.move = [&d](int delta) { d.agenda->MoveSelected(delta); };
  d.menus = new ConsoleMenus(parts, std::move(ways), this);
  setMenuBar(d.menus);

  d.keys = new ConsoleKeys(parts, this, d.agenda->Lista());
  parts.console.view = this;
  AgendaChanged();
  ThemesChanged();
  Atualiza();
  d.agenda->Lista()->setFocus();
}

FrmMonitor::~FrmMonitor() {
  if (m_impl->parts.console.view == this)
    m_impl->parts.console.view = nullptr;
}

void FrmMonitor::CarregaFontes() { m_impl->effects->CarregaFontes(); }
void FrmMonitor::DefineTelao(const QSize &pixels) { m_impl->preview->DefineMonitor(pixels); }
void FrmMonitor::AjustaPreview() { m_impl->preview->AjustaPreview(); }
void FrmMonitor::CarregaTiles() { m_impl->themes->CarregaTiles(); }
bool FrmMonitor::CriaPrevia() { return m_impl->preview->PicWV()->CriaBrowser(); }
void FrmMonitor::TakeKeysOf(QWidget *window) { m_impl->keys->AddWindow(window); }
WebPageHost *FrmMonitor::PicWV() { return m_impl->preview->PicWV(); }

void FrmMonitor::positionInicial() {
  GravaRetanguloPadrao(m_impl->parts.console.store, screen()->geometry());
  FillWorkArea();
  show();
}

// Filled by hand and not by the platform, so that the panel of the desktop stays in sight. The frame's thickness is
// known only once the window stands on the screen; showEvent comes back for it.
void FrmMonitor::FillWorkArea() {
  m_impl->fillsWorkArea = true;
  const QMargins frame = windowHandle() ? windowHandle()->frameMargins() : QMargins();
  setGeometry(screen()->availableGeometry().marginsRemoved(frame));
  m_impl->menus->SetMaximised(true);
}

void FrmMonitor::AlternaTamanho() {
  const IniStore &store = m_impl->parts.console.store;
  if (frameGeometry() == screen()->availableGeometry()) {
    m_impl->fillsWorkArea = false;
    const QRect normal = LeRetanguloNormal(store, screen()->geometry());
    move(normal.topLeft());
    resize(normal.size().expandedTo(minimumSize()));
    m_impl->menus->SetMaximised(false);
    return;
  }
  GravaRetanguloNormal(store, QRect(pos(), size()));
  if (isMaximized())
    showNormal();
  FillWorkArea();
}

void FrmMonitor::showEvent(QShowEvent *event) {
  QMainWindow::showEvent(event);
  if (m_impl->fillsWorkArea)
    QTimer::singleShot(0, this, [this] {
      if (m_impl->fillsWorkArea && isVisible())
        FillWorkArea();
    });
}

void FrmMonitor::closeEvent(QCloseEvent *event) {
  event->accept();
  if (AoFechar)
    AoFechar();
}

void FrmMonitor::Atualiza() {
  Impl &d = *m_impl;
  d.agenda->Atualiza();
  d.strip->Atualiza();
  d.settings->Atualiza();
  d.screen->Atualiza();
  d.themes->Atualiza();
  d.menus->Atualiza();
}

void FrmMonitor::StripMoved() { m_impl->strip->PicAbac2()->StripMoved(); }
void FrmMonitor::AgendaChanged() { m_impl->agenda->AgendaChanged(); }

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
