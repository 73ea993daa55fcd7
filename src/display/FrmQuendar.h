#pragma once

#include "display/display_commands.h"
#include "display/display_seams.h"
#include "display/ui/mpv_player.h"
#include "display/ui/page_profile.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace tolmira {

class WebPageHost;

// The projection window: borderless, black, four layers of one size. Begins invisible and transparent. It never takes
// the keyboard focus. Sizes and positions are the toolkit's logical pixels, which are the pages' CSS pixels.
class FrmQuendar : public QWidget, public Display {
  Q_OBJECT

public:
  struct Parts {
    EstadoConsole &estado;
    const AppFolder &app;
    Clock &clock;
    PreviewMirror *mirror; // may be null
    CaptionComposers captions;
    DisplayObserver *observer; // may be null
    VideoDrawing video;
    PageProfile profile; // may be null: the page then has one of its own
  };
  explicit FrmQuendar(Parts parts, QWidget *parent = nullptr);
  ~FrmQuendar() override;

  bool CriaBrowser();
  WebPageHost *PicWV();

  // Places the window and starts the fade in if it has not run. `wholeScreen` for a projector (`pixels` is then its
  // whole screen); otherwise a normal window for rehearsal, with its grip. Shows nothing by itself. A projector that the
  // window fills already sees nothing of it. On Wayland, which takes no places, the screen at `pixels` and the size count.
  void Posiciona(const QRect &pixels, bool wholeScreen);
  // False for a projector's window that shall fill its screen and does not: window managers that are still behind the
  // desktop's change put it on another monitor, or take its full-screen state away.
  bool EstaNoLugar() const;
  void IniciaFade(); // starts TimerFade
  int Alfa() const;  // opacity, 0 to 255; drawn where the desktop can (X11 with a compositor)
  // Takes the window off the desktop until the next Posiciona, whatever the commands say meanwhile. The window does
  // this itself when the projector's screen goes, because the desktop would move it over the operator's screen.
  void Esconde();

  PageObject *WVAviso(); // the page above the layers; null while no notice needs it

  void ProcessaComando(const QString &comando) override;
  PageObject *WV() override;
  MediaPlayer *wmp() override;
  void EscondeMidia() override;
  void PreparaVideo() override;
  void MostraMidia() override;
  void ParaRampa() override;
  QSize SizePx() const override;
  bool DisplayVisivel() const override;
  void DefineTelaPreta(bool ligado) override;
  void DefineFundoPadrao(const QString &caminho) override;

  std::function<void()> OnRecovered;    // the page came back after its render process died
  std::function<void()> OnLost;         // before that: it reports nothing that counts until it is back
  std::function<void()> OnResize;       // the window has another size, place or state
  std::function<void()> PosicaoInicial; // after each resize while the console is still loading
  // "Fechar" came: the window is hidden, its page and player are gone. The owner deletes the window, not before the
  // call has returned (deleteLater).
  std::function<void()> OnUnload;
  DisplayCommands &Commands();

protected:
  void hideEvent(QHideEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void moveEvent(QMoveEvent *event) override;
  void changeEvent(QEvent *event) override;
  bool nativeEvent(const QByteArray &eventType, void *message, qintptr *result) override;
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
