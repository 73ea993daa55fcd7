#pragma once

#include <QWidget>

#include <memory>

#include "display/display_commands.h"
#include "display/display_seams.h"

namespace tolmira {

class WebPageHost;

// The projection window: borderless, black, four layers of one size. Begins invisible and transparent.
class FrmQuendar : public QWidget, public Display {
  Q_OBJECT

public:
  struct Parts {
    EstadoConsole &estado;
    const AppFolder &app;
    Clock &clock;
    PreviewMirror *mirror;       // may be null
    CaptionComposers captions;
    DisplayObserver *observer;   // may be null
    bool softwareVideo;          // draw the video layer without GL
  };
  explicit FrmQuendar(Parts parts, QWidget *parent = nullptr);
  ~FrmQuendar() override;

  bool CriaBrowser();
  WebPageHost *PicWV();

  // Places the window. `wholeScreen` for a projector; otherwise a normal window for rehearsal, with its grip.
  void Posiciona(const QRect &pixels, bool wholeScreen);
  void IniciaFade(); // starts TimerFade

  void ProcessaComando(const QString &comando) override;
  PageObject *WV() override;
  MediaPlayer *wmp() override;
  QSize SizePx() const override;
  bool DisplayVisivel() const override;
  void DefineTelaPreta(bool ligado) override;
  void DefineFundoPadrao(const QString &caminho) override;

  std::function<void()> OnRecovered;   // the page came back after its render process died
  std::function<void()> PosicaoInicial; // after each resize while the console is still loading
  DisplayCommands &Commands();

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
