#pragma once

#include "console/console_context.h"
#include "slides/slide_show_player.h"

#include <QString>
#include <functional>

namespace tolmira {

class ThemeControl;
class VerseStepper;

// The run of a slide show: a page that plays by itself on the projection and on the preview, and its audio in the
// projection's player. The program is not told when the show has ended; its last picture or its end text stays.
class SlideShowRunner : public SlideShowPlayer {
public:
  SlideShowRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas);

  // Slides that lay beneath the show are on show again; false when there are none. May be empty.
  std::function<bool()> VoltaAosSlides;
  std::function<void()> FechaVideo; // closes the control of a local video that is running; may be empty

  void Abre() override;
  void Fecha() override;
  void IniciaSlideShow(const QString &path) override;
  void Pause() override;
  void Play() override;
  bool Parado() const override { return m_console.painel.slideShow.Parado; }
  int Volume() const override;
  void DefineVolume(int volume) override;
  void ImagemMudou(const QString &nome) override;

  bool EstaNoTelao() const { return m_console.estado.PaginaAtual == u"sshow.html"; }
  void TelaoRefeito(); // the projection has a new page host, which begins the show anew; the sound has gone
  // A page came back after its process died: it begins the show anew, and stands if the show stands.
  void PaginaVoltou(Alvo qual);

private:
  void LimpaTexto();
  void IniciaAudio(const QString &arquivo);
  void ParaAudio();
  MediaPlayer *Wmp() const; // null while there is no projection

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  QString m_tipoAbaixo; // the kind of what was on show before
  bool m_comAudio = false;
};

} // namespace tolmira
