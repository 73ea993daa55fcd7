#pragma once

#include "display/display_seams.h"

#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace tolmira {

enum class VideoDrawing { Software, Gl };

// The media player inside `Picwmp`. Nothing of the media library is made before the first SetUrl, so that a service
// without videos does not pay for it. Every call returns at once; a file that cannot be played leaves the player
// stopped. Files alone are played, no addresses, and none leads to another.
class MpvPlayer : public MediaPlayer {
public:
  // `picwmp` holds the picture and outlives the player. `observer` may be null. Sound goes to the device that the
  // environment variable TOLMIRA_AO names ("null" for none), else to the desktop's.
  MpvPlayer(QWidget *picwmp, VideoDrawing drawing, DisplayObserver *observer);
  ~MpvPlayer() override;

  void SetUrl(const QString &storedPathOrAddress) override;
  QString Url() const override;
  void Close() override;
  void ControlsPlay() override;
  void ControlsPause() override;
  void ControlsStop() override; // back to the start, black
  double CurrentPosition() const override;
  void SetCurrentPosition(double seconds) override;
  double MediaDuration() const override;
  int Volume() const override;
  void SetVolume(int volume) override;
  void SetLoop(bool loop) override;
  bool Loop() const override;
  PlayState
  State() const override; // Playing from the call that starts it, Ended at the end of a file that does not loop
  bool Falhou() const override;
  bool SemImagem() const override;
  bool ImagemIlegivel() const override;
  QList<FaixaDeAudio> FaixasDeAudio() const override;
  int FaixaDeAudioAtual() const override;
  void DefineFaixaDeAudio(int id) override;
  void SetStretchToFit(bool stretch) override;
  void SetFullScreen(bool full) override;
  void SetUiMode(const QString &mode) override;

  // While on, a file waits at its start until it is known to have a picture, and one without goes on waiting: its sound
  // is to be begun once, in another place. What the state says is not touched.
  void SetEsperaImagem(bool espera);
  void SetVisible(bool visible);       // the player inside its host
  void SetGeometry(const QRect &rect); // in the host's coordinates

  // A picture of the present media stands in the widget, or is about to; before the first one, and after a Close, it is
  // black.
  bool TemImagem() const;
  std::function<void()> OnImagem; // that changed
  std::function<void()> OnFalha;  // the media cannot be played

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
