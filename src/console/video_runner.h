#pragma once

#include "console/console_context.h"

#include <QString>
#include <functional>
#include <memory>

namespace tolmira {

class ThemeControl;
class VerseStepper;

// The run of a local video in the projection's media layer, over an empty page. Sound alone leaves the background in
// its place and the layer hidden. What is put on show next ends it.
class VideoRunner {
public:
  VideoRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas);

  // The control of local videos; both may be empty.
  std::function<void()> AbreControle;
  std::function<void()> FechaControle;

  void Inicia(const QString &path, const QString &caption); // of a file that is there
  // The player is still, the layer hidden, the control closed; its last picture stands until the next page has drawn
  // itself. False when no local video was on show.
  bool Para();
  void Encerra();     // the same, and the theme comes back
  void VoltaAoTema(); // nothing came in the place of a video that was stopped
  void NadaEmExibicao(); // nothing is on show; the page is left as it is
  bool EmExibicao() const { return m_emExibicao; }

  void TelaoRefeito(); // the projection has a new page host and player

private:
  void TickWMP();
  void Toca(double desde, bool parado);
  void PreparaFundo();
  void MostraFundo();
  void SaiuDoTelao();
  PainelVideo Descreve(const MediaPlayer &wmp) const;
  MediaPlayer *Wmp() const; // null while there is no projection

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  QString m_path;
  bool m_emExibicao = false;
  bool m_soAudio = false; // the background stands instead of the empty page
  // At the last tick, for a projection that is made anew.
  double m_posicao = 0; // seconds
  bool m_loop = false;
  int m_faixa = 0;
  std::unique_ptr<PeriodicTimer> m_timerWMP;
};

} // namespace tolmira
