#include "media/video_control.h"

#include "foundation/text_utils.h"
#include "media/media_time.h"

#include <algorithm>

namespace tolmira {

VideoControl::VideoControl(EstadoConsole &estado, std::function<MediaPlayer *()> wmp, Yielder &yielder)
    : m_estado(estado), m_wmp(std::move(wmp)), m_yielder(yielder) {}

void VideoControl::Carrega() {
  m_estado.VideoAtivo = QStringLiteral("True");
}

void VideoControl::Descarrega() {
  m_estado.VideoAtivo.clear();
}

void VideoControl::Image3(Botao botao) {
  MediaPlayer *wmp = m_wmp();
  if (!wmp)
    return;
  switch (botao) {
  case Reinicia:
    wmp->ControlsStop();
    wmp->ControlsPlay();
    break;
  case TocaOuPara:
    if (wmp->State() == PlayState::Playing) {
      wmp->ControlsPause();
      break;
    }
    wmp->SetLoop(true);
    wmp->ControlsPlay();
    m_yielder.Yield(1);
    wmp = m_wmp(); // whatever ran meanwhile may have taken the projection away
    break;
  case VoltaEEspera:
    wmp->ControlsStop();
    wmp->ControlsPlay();
    wmp->ControlsPause();
    break;
  }
  if (wmp)
    m_estado.EstadoVideo = static_cast<int>(wmp->State());
}

bool VideoControl::MostraPausa() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp && wmp->State() == PlayState::Playing;
}

bool VideoControl::TemMidia() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp && wmp->MediaDuration() > 0;
}

void VideoControl::VaiPara(double percentual) {
  if (!TemMidia())
    return;
  MediaPlayer *wmp = m_wmp();
  wmp->SetCurrentPosition(std::clamp(percentual, 0.0, 100.0) / 100 * wmp->MediaDuration());
}

void VideoControl::VaiAoFim() {
  constexpr double Antes = 1; // second
  if (TemMidia())
    m_wmp()->SetCurrentPosition(std::max(0.0, m_wmp()->MediaDuration() - Antes));
}

void VideoControl::Anda(double seconds) {
  if (!TemMidia())
    return;
  MediaPlayer *wmp = m_wmp();
  wmp->SetCurrentPosition(std::clamp(wmp->CurrentPosition() + seconds, 0.0, wmp->MediaDuration()));
}

int VideoControl::Volume() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp ? wmp->Volume() : m_estado.VolumeVideo;
}

void VideoControl::DefineVolume(int volume) {
  if (MediaPlayer *wmp = m_wmp())
    wmp->SetVolume(volume);
  m_estado.VolumeVideo = std::clamp(volume, 0, 100);
}

bool VideoControl::Loop() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp && wmp->Loop();
}

void VideoControl::DefineLoop(bool loop) {
  if (MediaPlayer *wmp = m_wmp())
    wmp->SetLoop(loop);
}

QList<FaixaDeAudio> VideoControl::Faixas() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp ? wmp->FaixasDeAudio() : QList<FaixaDeAudio>();
}

int VideoControl::Faixa() const {
  const MediaPlayer *wmp = m_wmp();
  return wmp ? wmp->FaixaDeAudioAtual() : 0;
}

void VideoControl::DefineFaixa(int id) {
  if (MediaPlayer *wmp = m_wmp())
    wmp->DefineFaixaDeAudio(id);
}

VideoControl::Progresso VideoControl::Olha() const {
  Progresso visto;
  const MediaPlayer *wmp = m_wmp();
  if (!wmp || wmp->Url().isEmpty())
    return visto;
  visto.Titulo = FileNameOf(wmp->Url());
  visto.acabou = wmp->State() == PlayState::Ended;
  visto.falhou = wmp->Falhou();
  visto.semImagem = wmp->SemImagem();
  visto.imagemIlegivel = wmp->ImagemIlegivel();
  if (!TemMidia())
    return visto;
  visto.Label1 = TempoDeMidia(wmp->CurrentPosition());
  visto.Label2 = TempoDeMidia(wmp->MediaDuration());
  visto.percentual = std::clamp(wmp->CurrentPosition() / wmp->MediaDuration() * 100, 0.0, 100.0);
  return visto;
}

} // namespace tolmira
