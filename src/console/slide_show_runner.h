#pragma once

#include "console/console_context.h"
#include "slides/slide_show_player.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace tolmira {

class ThemeControl;
class VerseStepper;

// The run of a slide show: a page that plays by itself on the projection and on the preview, and its audio in the
// projection's player. The page announces its end; its end text, or black, stays until the show is closed.
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
  void FimAVista(int ms) override;
  bool Acabou() const override { return m_console.painel.slideShow.Acabou; }
  bool SemMusica() const override { return m_console.painel.slideShow.SemMusica; }

  bool EstaNoTelao() const { return m_console.estado.PaginaAtual == u"sshow.html"; }
  void TelaoRefeito(); // the projection has a new page host and player
  void PaginaCaiu(); // the projection's page lost its process: what it reports before it is back does not count
  // A page came back after its process died: it goes on with the picture that was on show, and stands if the show stands.
  void PaginaVoltou(Alvo qual);

private:
  void Avisa(); // the console and the remote
  void LimpaTexto();
  void IniciaAudio(const QString &arquivo);
  void ParaAudio();
  void OuveAudio();
  void Terminou();
  MediaPlayer *Wmp() const;   // null while there is no projection
  MediaPlayer *Audio() const; // the same, and null for a show without sound

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  QString m_tipoAbaixo; // the kind of what was on show before
  QString m_audio; // of the running show; empty for none
  int m_volume = 0;
  bool m_semPagina = false;
  QStringList m_mostradas; // the pictures since the start, as the projection's page reported them
  std::unique_ptr<PeriodicTimer> m_timerFim;
  std::unique_ptr<PeriodicTimer> m_timerAudio;
};

} // namespace tolmira
