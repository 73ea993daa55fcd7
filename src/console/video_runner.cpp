#include "console/video_runner.h"

#include "console/clear_text.h"
#include "console/theme_control.h"
#include "foundation/text_utils.h"
#include "media/media_time.h"
#include "media/video_files.h"

#include <utility>

namespace tolmira {

namespace {

const QString PaginaVazia = QStringLiteral("emptyback.html");
constexpr QStringView CaminhoDaPaginaVazia = u"\\html\\emptyback.html";
constexpr int VolumeDepoisDoReset = 50;
constexpr int IntervaloWMP = 250; // ms
constexpr int TempoLimiteSegundos = 8;

} // namespace

VideoRunner::VideoRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_stepper(stepper), m_temas(temas),
      m_timerWMP(console.clock.NewTimer([this] { TickWMP(); })) {}

MediaPlayer *VideoRunner::Wmp() const {
  Display *display = m_console.telao();
  return display ? display->wmp() : nullptr;
}

void VideoRunner::Inicia(const QString &path, const QString &caption) {
  EstadoConsole &estado = m_console.estado;
  m_path = path;
  m_soAudio = EhSoAudio(path);
  m_emExibicao = true;
  m_posicao = 0;
  m_loop = false;
  m_faixa = 0;
  estado.DefineTipo(QStringLiteral("Video"));
  if (m_soAudio) {
    PreparaFundo();
  } else {
    estado.PaginaAtual = PaginaVazia;
    m_temas.StopRotation();
    for (PageObject *host : {m_console.Pagina(Alvo::Telao), m_console.Pagina(Alvo::Previa)})
      if (host)
        host->Navigate(m_console.app.At(CaminhoDaPaginaVazia), TempoLimiteSegundos);
    m_console.canal.SendToDisplay(QStringLiteral("PararYoutube"));
  }
  EsvaziaConsole(m_console, m_stepper);
  estado.TituloAtual = m_console.painel.Label9 = caption;
  Toca(0, false);
  m_console.painel.video = {true, PainelVideo::Situacao::Tocando, false, FileNameOf(path), QString(), QString()};
  m_console.Atualiza();
  if (AbreControle)
    AbreControle();
}

void VideoRunner::Toca(double desde, bool parado) {
  Display *display = m_console.telao();
  if (!display)
    return;
  MediaPlayer *wmp = display->wmp();
  display->PreparaVideo();
  if (m_console.estado.VolumeVideo != VolumeDepoisDoReset)
    wmp->SetVolume(m_console.estado.VolumeVideo);
  if (m_soAudio)
    display->EscondeMidia();
  else
    display->MostraMidia();
  wmp->SetUrl(m_path);
  wmp->ControlsStop();
  wmp->ControlsPlay();
  wmp->SetUiMode(QStringLiteral("none"));
  if (desde > 0)
    wmp->SetCurrentPosition(desde);
  if (parado)
    wmp->ControlsPause();
  m_timerWMP->Start(IntervaloWMP);
}

// What is behind a sound: the page on show without its text, or the theme's where another kind of page stands.
void VideoRunner::PreparaFundo() {
  m_temas.DefineFundoMudou(false);
  if (m_console.estado.PaginaDeTexto()) {
    m_console.canal.SendToDisplay(QStringLiteral("UpdateText|#|#|#"));
    CallPageScript(m_console.Pagina(Alvo::Previa), QStringLiteral("UpdateTextHtml"));
    return;
  }
  EsvaziaConsole(m_console, m_stepper);
  m_temas.VoltaAoFundo();
}

// The file turned out to have no picture, and waits. Building the page closes it.
void VideoRunner::MostraFundo() {
  m_soAudio = true;
  m_timerWMP->Stop(); // the building yields
  const bool parado = Wmp()->State() == PlayState::Paused;
  PreparaFundo();
  if (m_emExibicao)
    Toca(0, parado);
}

bool VideoRunner::Para() {
  if (!std::exchange(m_emExibicao, false))
    return false;
  if (Display *display = m_console.telao()) {
    display->EscondeMidia();
    display->wmp()->ControlsStop();
    display->wmp()->Close();
  }
  if (m_temas.FundoMudou()) // the page of a sound's background is to be built anew
    m_console.estado.PaginaAtual.clear();
  SaiuDoTelao();
  return true;
}

void VideoRunner::SaiuDoTelao() {
  m_emExibicao = false;
  m_timerWMP->Stop();
  if (MediaPlayer *wmp = Wmp())
    wmp->SetLoop(false); // which was for this one
  m_console.painel.video = {};
  if (FechaControle)
    FechaControle();
}

void VideoRunner::Encerra() {
  if (Para())
    VoltaAoTema();
}

void VideoRunner::VoltaAoTema() {
  EstadoConsole &estado = m_console.estado;
  NadaEmExibicao();
  if (estado.TelaPronta && !estado.PaginaDeTexto()) // where a sound has ended its background stands
    m_temas.VoltaAoFundo();
  m_console.Atualiza();
}

void VideoRunner::NadaEmExibicao() {
  m_console.estado.DefineTipo(QString());
  m_console.painel.Label9.clear();
  m_console.painel.PicAviso2 = true;
}

void VideoRunner::TickWMP() {
  const MediaPlayer *wmp = Wmp();
  if (!wmp)
    return;
  // Another page was put in its place, for example by a press on a theme, which closes the player.
  if (wmp->Url().isEmpty()) {
    SaiuDoTelao();
    NadaEmExibicao();
    m_console.Atualiza();
    return;
  }
  if (wmp->SemImagem() && !m_soAudio)
    return MostraFundo();
  m_posicao = wmp->CurrentPosition();
  m_loop = wmp->Loop();
  m_faixa = wmp->FaixaDeAudioAtual();
  if (PainelVideo agora = Descreve(*wmp); agora != m_console.painel.video) {
    m_console.painel.video = std::move(agora);
    m_console.Atualiza();
  }
}

PainelVideo VideoRunner::Descreve(const MediaPlayer &wmp) const {
  using Situacao = PainelVideo::Situacao;
  const PlayState state = wmp.State();
  PainelVideo video{true, Situacao::Tocando, wmp.ImagemIlegivel(), FileNameOf(m_path), QString(), QString()};
  if (wmp.Falhou())
    video.situacao = Situacao::Falhou;
  else if (state == PlayState::Ended)
    video.situacao = Situacao::Acabou;
  else if (state != PlayState::Playing)
    video.situacao = Situacao::Parado;
  if (wmp.MediaDuration() > 0)
    video.Tempo = TempoDeMidia(wmp.CurrentPosition()) + u" / " + TempoDeMidia(wmp.MediaDuration());
  return video;
}

void VideoRunner::TelaoRefeito() {
  constexpr int Telao = 1;
  if (m_soAudio)
    m_console.paginas.MontaPagina(m_console.estado.TemaAtual, m_console.estado.EstrofeAtual, Telao);
  else if (PageObject *pagina = m_console.Pagina(Alvo::Telao))
    pagina->Navigate(m_console.app.At(CaminhoDaPaginaVazia), TempoLimiteSegundos);
  if (!m_emExibicao) // the building yields
    return;
  Toca(m_posicao, m_console.painel.video.situacao != PainelVideo::Situacao::Tocando);
  MediaPlayer *wmp = Wmp();
  if (wmp && m_loop)
    wmp->SetLoop(true);
  if (wmp && m_faixa > 0)
    wmp->DefineFaixaDeAudio(m_faixa);
}

} // namespace tolmira
