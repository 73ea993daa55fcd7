#include "display/FrmQuendar.h"

#include "display/ui/awake_on_x11.h"
#include "display/ui/grip_strip.h"
#include "display/ui/notice_layer.h"
#include "display/ui/picture_layer.h"
#include "display/ui/state_on_x11.h"
#include "display/ui/web_page_host.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace tolmira {

namespace {

constexpr int FullAlfa = 255;
constexpr int FadeStep = 20;
constexpr int FadeIntervalMs = 16;
constexpr int GripIntervalMs = 3000;
constexpr int AwakeIntervalMs = 30000;   // less than any desktop waits before it darkens its screens
constexpr int GripIgnoreAboveTwips = 50; // at the very edge the pointer leaves the strip's timer alone

bool OnX11() {
  return QGuiApplication::platformName() == u"xcb";
}

bool OnWayland() {
  return QGuiApplication::platformName().startsWith(u"wayland");
}

// No tool window, though that would have no entry in the task bar: window managers give such a one no whole screen.
Qt::WindowFlags ProjectionFlags() {
  return Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint;
}

void PaintBlack(QWidget *widget) {
  QPalette black = widget->palette();
  black.setColor(QPalette::Window, Qt::black);
  widget->setPalette(black);
  widget->setAutoFillBackground(true);
}

} // namespace

struct FrmQuendar::Impl : public DisplayLayers {
  Impl(FrmQuendar &owner, Parts given);

  PageObject *WV() override { return picWV ? picWV->WV() : nullptr; }
  MediaPlayer *wmp() override { return player.get(); }
  void ShowPicwmp(bool visible) override;
  void PicwmpToBack() override { PutMediaInFront(false); }
  void ShowPicWV(bool visible) override { picWV->setVisible(visible); }
  void PicWVToBack() override { PutMediaInFront(true); }
  bool PicwmpVisible() const override { return !picwmp->isHidden(); }
  PageObject *WVAviso(bool cria) override { return cria ? avisos->ForNotice() : avisos->WV(); }
  void ShowWmp(bool visible) override { player->SetVisible(visible); }
  void ShowTelaPreta(bool visible) override {
    telaPreta->setVisible(visible);
    CoverNotices();
  }
  bool TelaPretaVisible() const override { return !telaPreta->isHidden(); }
  void TelaPretaToFront() override { telaPreta->raise(); }
  bool LoadImagePadrao(const QString &storedPath) override { return imagePadrao->Load(storedPath); }
  void ShowImagePadrao(bool visible) override {
    imagePadrao->setVisible(visible);
    CoverNotices();
  }
  void ImagePadraoToFront() override { imagePadrao->raise(); }
  void PicMoveToFront() override { picMove->raise(); }
  void StopGripTimer() override { timerRemoveBarraTitulo->Stop(); }
  void FitMedia() override;
  void SetWindowVisible(bool visible) override;
  void SetTopmost(bool topmost) override;
  void Unload() override;
  QSize SizePx() const override { return window.size(); }

  // By what was asked for: window managers may take the state away for a moment, or never grant it, and no strip may
  // stand over the projection for that.
  bool IsNormal() const { return !inteira; }
  void PutMediaInFront(bool wanted);
  bool MediaCoversPage() const { return mediaWanted && player->TemImagem() && !picwmp->isHidden(); }
  void CoverNotices() { avisos->SetCovered(!telaPreta->isHidden() || !imagePadrao->isHidden()); }
  void Arrange();
  void ShowGripForState();
  void ApplyAlfa();
  void TickFade();
  void ToggleState();
  void MostraGrip();
  void TickGrip();
  bool OnLayerMouse(QObject *layer, QMouseEvent *mouse);
  void OnScreenRemoved(QScreen *screen);

  FrmQuendar &window;
  Parts parts;
  WebPageHost *picWV;
  QWidget *picwmp;
  std::unique_ptr<MpvPlayer> player;
  PictureLayer *imagePadrao;
  QWidget *telaPreta;
  GripStrip *picMove;
  std::unique_ptr<NoticeLayer> avisos;
  std::unique_ptr<DisplayCommands> commands;
  std::unique_ptr<PeriodicTimer> timerFade;
  std::unique_ptr<PeriodicTimer> timerRemoveBarraTitulo;
  QTimer acordado; // of the desktop's own time, which no story of the logic depends on
  bool mediaWanted = false; // in front of the page, as soon as there is a picture
  int alfa = 0;
  bool moverAtivo = false;
  bool dragged = false;       // the present press became a drag, so its release is no click
  bool withoutScreen = false; // Esconde: not to be shown before it is placed again
  QPointer<QScreen> screen;   // of the projector; null in a rehearsal window
  QRect lugar;                // of the projector; null in a rehearsal window
  QRect normalRect;           // of the window in normal state
  bool inteira = false;       // asked to fill the screen, by its place or by the operator
  StateOnX11 estadoNoX11;
};

FrmQuendar::Impl::Impl(FrmQuendar &owner, Parts given)
    : window(owner), parts(std::move(given)), picWV(new WebPageHost(QStringLiteral("display"), &owner, parts.profile)),
      picwmp(new QWidget(&owner)), imagePadrao(new PictureLayer(&owner)), telaPreta(new QWidget(&owner)),
      picMove(new GripStrip(&owner)) {
  picWV->setObjectName(QStringLiteral("PicWV"));
  picwmp->setObjectName(QStringLiteral("Picwmp"));
  imagePadrao->setObjectName(QStringLiteral("ImagePadrao"));
  telaPreta->setObjectName(QStringLiteral("PicTelaPreta"));
  for (QWidget *layer : {picwmp, telaPreta})
    PaintBlack(layer);
  telaPreta->setMouseTracking(true);
  for (QWidget *hidden : {picwmp, static_cast<QWidget *>(imagePadrao), telaPreta})
    hidden->hide();

  avisos = std::make_unique<NoticeLayer>(owner, parts.app, parts.profile, parts.observer);
  avisos->OnMade = [this] {
    CoverNotices();
    picMove->raise();
  };
  player = std::make_unique<MpvPlayer>(picwmp, parts.video, parts.observer);
  if (parts.observer)
    picWV->AddObserver(parts.observer);
  commands =
      std::make_unique<DisplayCommands>(parts.estado, parts.legenda, parts.app, *this, parts.mirror, parts.clock);
  player->OnImagem = [this] {
    PutMediaInFront(mediaWanted);
    if (player->TemImagem())
      picWV->Espera(false);
  };
  player->OnFalha = [this] { picWV->Espera(false); };
  timerFade = parts.clock.NewTimer([this] { TickFade(); });
  timerRemoveBarraTitulo = parts.clock.NewTimer([this] { TickGrip(); });
  QObject::connect(&acordado, &QTimer::timeout, &owner, [this] {
    if (window.isVisible())
      KeepScreenAwake();
  });
  acordado.start(AwakeIntervalMs);

  picWV->OnRecovered = [this] {
    if (window.OnRecovered)
      window.OnRecovered();
  };
  picWV->OnLost = [this] {
    if (window.OnLost)
      window.OnLost();
  };
  picWV->OnLeave = [this] { commands->PaginaVaiEmbora(); };
  picWV->OnMouseMove = [this] { MostraGrip(); };
  for (QWidget *layer : {static_cast<QWidget *>(imagePadrao), telaPreta, static_cast<QWidget *>(picMove),
                         static_cast<QWidget *>(picMove->Label7()), picMove->Image4()})
    layer->installEventFilter(&owner);
  QObject::connect(qApp, &QGuiApplication::screenRemoved, &owner, [this](QScreen *gone) { OnScreenRemoved(gone); });
}

// A page that comes next keeps the last picture of the video until it has drawn itself, so that no black lies between.
void FrmQuendar::Impl::ShowPicwmp(bool visible) {
  if (!visible && MediaCoversPage() && window.isVisible())
    picWV->Segura(picwmp->grab());
  picwmp->setVisible(visible);
  if (!visible) {
    picWV->Espera(false);
    player->SetEsperaImagem(false);
  }
}

// The layer without a picture would be black, so it waits behind the page. It is shown there all the same: a player
// that draws with GL needs its widget on the screen to begin.
void FrmQuendar::Impl::PutMediaInFront(bool wanted) {
  mediaWanted = wanted;
  if (wanted && player->TemImagem())
    picWV->lower();
  else
    picwmp->lower();
}

void FrmQuendar::Impl::FitMedia() {
  picwmp->setGeometry(window.rect());
  player->SetGeometry(picwmp->rect());
}

void FrmQuendar::Impl::SetWindowVisible(bool visible) {
  const bool wanted = visible && !withoutScreen;
  if (window.isVisible() != wanted)
    window.setVisible(wanted);
}

void FrmQuendar::Impl::SetTopmost(bool topmost) {
  Qt::WindowFlags flags = window.windowFlags();
  if (flags.testFlag(Qt::WindowStaysOnTopHint) == topmost)
    return;
  flags.setFlag(Qt::WindowStaysOnTopHint, topmost);
  // The widget's own setter hides and makes the window anew, which the hall would see; the native window changes the
  // state in place.
  window.overrideWindowFlags(flags);
  if (QWindow *native = window.windowHandle())
    native->setFlags(flags);
}

void FrmQuendar::Impl::Unload() {
  timerFade->Stop();
  timerRemoveBarraTitulo->Stop();
  acordado.stop();
  player->Close();
  withoutScreen = true;
  window.hide();
  if (window.OnUnload)
    window.OnUnload();
}

void FrmQuendar::Impl::Arrange() {
  const QRect whole = window.rect();
  picWV->setGeometry(whole);
  avisos->Fit();
  FitMedia();
  imagePadrao->setGeometry(whole);
  telaPreta->setGeometry(whole);
  picMove->setGeometry(0, 0, whole.width(), GripStrip::HeightPx);
  // A whole screen that was a normal window on its way to another place still has a strip to take away.
  if (IsNormal())
    timerRemoveBarraTitulo->Stop();
  else if (moverAtivo && !timerRemoveBarraTitulo->IsActive())
    timerRemoveBarraTitulo->Start(GripIntervalMs);
  ShowGripForState();
}

void FrmQuendar::Impl::ShowGripForState() {
  picMove->setVisible(IsNormal() || moverAtivo);
  picMove->Label7()->setVisible(IsNormal());
}

// Without a compositor the window is opaque from the start; its page comes out of black by itself.
void FrmQuendar::Impl::ApplyAlfa() {
  if (OnX11())
    window.setWindowOpacity(alfa / static_cast<double>(FullAlfa));
}

void FrmQuendar::Impl::TickFade() {
  alfa = qMin(alfa + FadeStep, FullAlfa);
  ApplyAlfa();
  if (alfa == FullAlfa)
    timerFade->Stop();
}

void FrmQuendar::Impl::ToggleState() {
  if (!parts.estado.ConsoleCarregado)
    return;
  inteira = IsNormal();
  if (inteira) {
    normalRect = window.geometry();
    window.setWindowState(Qt::WindowFullScreen);
  } else {
    window.setWindowState(Qt::WindowNoState);
    if (normalRect.isValid() && OnWayland())
      window.resize(normalRect.size());
    else if (normalRect.isValid())
      window.setGeometry(normalRect);
  }
}

void FrmQuendar::Impl::MostraGrip() {
  if (!parts.estado.ConsoleCarregado)
    return;
  moverAtivo = true;
  picMove->show();
  picMove->Label7()->setVisible(IsNormal());
  timerRemoveBarraTitulo->Stop();
  timerRemoveBarraTitulo->Start(GripIntervalMs);
}

void FrmQuendar::Impl::TickGrip() {
  timerRemoveBarraTitulo->Stop();
  moverAtivo = false;
  picMove->setVisible(IsNormal());
}

bool FrmQuendar::Impl::OnLayerMouse(QObject *layer, QMouseEvent *mouse) {
  if (!parts.estado.ConsoleCarregado)
    return false;
  const bool onStrip = layer == picMove;
  const bool onGrip = onStrip || layer == picMove->Label7();
  switch (mouse->type()) {
  case QEvent::MouseButtonPress:
    dragged = false;
    return mouse->button() == Qt::LeftButton;
  case QEvent::MouseMove:
    if (onGrip && mouse->buttons().testFlag(Qt::LeftButton) && IsNormal()) {
      if (!std::exchange(dragged, true) && window.windowHandle())
        window.windowHandle()->startSystemMove();
      return true;
    }
    if (onStrip && mouse->position().y() * TwipsPerPixel >= GripIgnoreAboveTwips && !IsNormal())
      timerRemoveBarraTitulo->Start(GripIntervalMs);
    else if (!onGrip && layer != picMove->Image4())
      MostraGrip();
    return false;
  case QEvent::MouseButtonRelease:
    if (mouse->button() == Qt::LeftButton && !std::exchange(dragged, false))
      ToggleState();
    return mouse->button() == Qt::LeftButton;
  default:
    return false;
  }
}

void FrmQuendar::Impl::OnScreenRemoved(QScreen *gone) {
  if (screen && screen == gone)
    window.Esconde();
}

FrmQuendar::FrmQuendar(Parts parts, QWidget *parent) : QWidget(parent, ProjectionFlags()) {
  setObjectName(QStringLiteral("FrmQuendar"));
  setWindowTitle(QStringLiteral("FrmQuendar"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFocusPolicy(Qt::NoFocus);
  setMouseTracking(true);
  PaintBlack(this);
  m_impl = std::make_unique<Impl>(*this, std::move(parts));
  m_impl->ApplyAlfa();
  m_impl->Arrange();
  if (m_impl->parts.estado.ConsoleCarregado)
    m_impl->commands->DefineTelaPreta(true);
}

FrmQuendar::~FrmQuendar() = default;

bool FrmQuendar::CriaBrowser() {
  if (!m_impl->picWV->CriaBrowser())
    return false;
  PageObject *page = m_impl->picWV->WV();
  page->AoNavegar = [this](const QString &uri, bool &cancel) { m_impl->commands->AoNavegar(uri, cancel); };
  page->AoDesviar = [this](const QString &uri, bool &cancel) { m_impl->commands->AoDesviar(uri, cancel); };
  page->AoPermissao = &DisplayCommands::AoPermissao;
  return true;
}

WebPageHost *FrmQuendar::PicWV() {
  return m_impl->picWV;
}

void FrmQuendar::Posiciona(const QRect &pixels, bool wholeScreen) {
  Impl &d = *m_impl;
  QScreen *target = QGuiApplication::screenAt(pixels.center());
  if (wholeScreen && isFullScreen() && d.screen && d.screen == target && geometry() == pixels && !d.withoutScreen)
    return;
  d.screen = wholeScreen ? target : nullptr;
  d.lugar = wholeScreen ? pixels : QRect();
  d.inteira = wholeScreen;
  // A window that is whole screen already stays where it is, so it becomes a normal one on the way to another screen.
  if (isFullScreen())
    setWindowState(Qt::WindowNoState);
  if (target)
    setScreen(target);
  if (OnWayland())
    resize(pixels.size());
  else
    setGeometry(pixels);
  if (wholeScreen) {
    d.normalRect = QRect(pixels.center() - QPoint(pixels.width() / 4, pixels.height() / 4), pixels.size() / 2);
    setWindowState(Qt::WindowFullScreen);
  } else {
    d.normalRect = pixels;
  }
  d.withoutScreen = false;
  d.estadoNoX11.Shown();
  d.SetWindowVisible(d.commands->DisplayVisivel());
  d.Arrange();
  if (d.alfa < FullAlfa)
    IniciaFade();
}

bool FrmQuendar::EstaNoLugar() const {
  const Impl &d = *m_impl;
  if (OnWayland() || d.lugar.isNull() || !isVisible() || !d.inteira)
    return true;
  return isFullScreen() && geometry() == d.lugar;
}

void FrmQuendar::IniciaFade() {
  m_impl->timerFade->Start(FadeIntervalMs);
}

void FrmQuendar::Esconde() {
  m_impl->withoutScreen = true; // before the hiding, so that nothing can show it on another screen meanwhile
  m_impl->screen = nullptr;
  hide();
}

void FrmQuendar::ProcessaComando(const QString &comando) {
  m_impl->commands->ProcessaComando(comando);
}
int FrmQuendar::Alfa() const {
  return m_impl->alfa;
}
PageObject *FrmQuendar::WV() {
  return m_impl->WV();
}
PageObject *FrmQuendar::WVAviso() {
  return m_impl->WVAviso(false);
}
MediaPlayer *FrmQuendar::wmp() {
  return m_impl->wmp();
}
void FrmQuendar::EscondeMidia() {
  m_impl->ShowPicwmp(false);
  m_impl->PutMediaInFront(false);
  m_impl->picwmp->setGeometry({});
}
void FrmQuendar::PreparaVideo() {
  m_impl->commands->PreparaVideo();
}
// Until the media has its picture, or has failed, the one that stood before the empty page stays. What turns out to be
// sound alone waits for its background.
void FrmQuendar::MostraMidia() {
  m_impl->picWV->Espera(!m_impl->player->TemImagem());
  m_impl->player->SetEsperaImagem(true);
  m_impl->ShowPicwmp(true);
  m_impl->ShowWmp(true);
  m_impl->PutMediaInFront(true);
}
void FrmQuendar::ParaRampa() {
  m_impl->commands->ParaRampa();
}
QSize FrmQuendar::SizePx() const {
  return size();
}
bool FrmQuendar::DisplayVisivel() const {
  return m_impl->commands->DisplayVisivel();
}
void FrmQuendar::DefineTelaPreta(bool ligado) {
  m_impl->commands->DefineTelaPreta(ligado);
}
void FrmQuendar::DefineFundoPadrao(const QString &caminho) {
  m_impl->commands->DefineFundoPadrao(caminho);
}
DisplayCommands &FrmQuendar::Commands() {
  return *m_impl->commands;
}

void FrmQuendar::hideEvent(QHideEvent *event) {
  QWidget::hideEvent(event);
  m_impl->avisos->SetAside();
}

void FrmQuendar::resizeEvent(QResizeEvent *) {
  m_impl->Arrange();
  if (OnResize)
    OnResize();
  // After one turn of the message loop, so that the layers have taken their place before the console asks for it.
  QTimer::singleShot(0, this, [this] {
    if (!m_impl->parts.estado.ConsoleCarregado && PosicaoInicial)
      PosicaoInicial();
  });
}

void FrmQuendar::moveEvent(QMoveEvent *) {
  if (OnResize)
    OnResize();
}

void FrmQuendar::changeEvent(QEvent *event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_impl->parts.estado.ConsoleCarregado) {
    m_impl->SetTopmost(true);
  } else if (event->type() == QEvent::WindowStateChange) {
    m_impl->Arrange();
    if (OnResize)
      OnResize();
  }
  QWidget::changeEvent(event);
}

bool FrmQuendar::nativeEvent(const QByteArray &eventType, void *message, qintptr *result) {
  Impl &d = *m_impl;
  if (isVisible() && d.estadoNoX11.IsChange(eventType, message))
    d.estadoNoX11.Restore(winId(), d.inteira);
  return QWidget::nativeEvent(eventType, message, result);
}

bool FrmQuendar::eventFilter(QObject *watched, QEvent *event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseMove:
    return m_impl->OnLayerMouse(watched, static_cast<QMouseEvent *>(event));
  default:
    return QWidget::eventFilter(watched, event);
  }
}

} // namespace tolmira
