#include "console/slide_show_runner.h"

#include "console/clear_text.h"
#include "console/theme_control.h"
#include "display/show_page.h"
#include "foundation/text_utils.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace tolmira {

namespace {

const QString SlideShow = QStringLiteral("SlideShow");
constexpr QStringView PaginaDoShow = u"\\html\\sshow.html";
constexpr int VolumeDoAudio = 50;
constexpr int EsperaDoAudio = 1500; // ms between two looks at whether it plays
constexpr int TempoLimiteSegundos = 8;
constexpr int NoFim = 0; // places of a resumed show that no picture names
constexpr int NoInicio = -1;

} // namespace

SlideShowRunner::SlideShowRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_stepper(stepper), m_temas(temas), m_timerFim(console.clock.NewTimer([this] { Terminou(); })),
      m_timerAudio(console.clock.NewTimer([this] { OuveAudio(); })) {}

void SlideShowRunner::Avisa() {
  m_console.Atualiza();
  if (Mudou)
    Mudou();
}

MediaPlayer *SlideShowRunner::Wmp() const {
  Display *display = m_console.telao();
  return display ? display->wmp() : nullptr;
}

MediaPlayer *SlideShowRunner::Audio() const {
  return m_audio.isEmpty() ? nullptr : Wmp();
}

void SlideShowRunner::Abre() {
  m_console.estado.SlideShowAtivo = QStringLiteral("True");
  m_console.painel.slideShow = {};
  m_console.painel.slideShow.Ativo = true;
  m_console.Atualiza();
}

void SlideShowRunner::IniciaSlideShow(const QString &path) {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  const bool outroTipo = estado.TipoAtual != SlideShow;
  if (outroTipo)
    m_tipoAbaixo = estado.TipoAtual;
  if (FechaVideo) // while the kind on show still says that it is one
    FechaVideo();
  if (outroTipo)
    estado.DefineTipo(SlideShow);
  painel.Label9 = FileNameWithoutExtension(path, QStringLiteral("."));
  m_console.Atualiza();

  const SlideShowDocument show = LeSlideShow(path);
  const QString pagina = MontaPaginaDoShow(m_console.app, show, m_console.random);
  if (pagina.isEmpty())
    return;
  estado.PaginaAtual = QStringLiteral("sshow.html");
  LimpaTexto();
  m_temas.StopRotation();
  painel.slideShow = {};
  painel.slideShow.Ativo = true;
  m_timerFim->Stop();
  m_mostradas.clear();
  m_semPagina = false;
  m_volume = VolumeDoAudio;
  for (PageObject *host : {m_console.Pagina(Alvo::Telao), m_console.Pagina(Alvo::Previa)})
    if (host)
      host->Navigate(pagina, TempoLimiteSegundos);
  if (show.ArquivodeAudio.isEmpty())
    ParaAudio(); // of the show before
  else
    IniciaAudio(show.ArquivodeAudio);
  m_console.Atualiza();
}

// The console has no text any more, and neither have the captions.
void SlideShowRunner::LimpaTexto() {
  EsvaziaConsole(m_console, m_stepper);
  m_console.canal.SendToDisplay(QStringLiteral("UpdateText|#|#|#"));
}

void SlideShowRunner::IniciaAudio(const QString &arquivo) {
  Display *display = m_console.telao();
  if (!display)
    return;
  MediaPlayer *wmp = display->wmp();
  display->EscondeMidia();
  wmp->SetUrl(arquivo);
  wmp->SetUiMode(QStringLiteral("none"));
  wmp->SetLoop(true);
  wmp->SetVolume(m_volume);
  m_audio = arquivo;
  m_console.painel.slideShow.SemMusica = false;
  m_timerAudio->Start(EsperaDoAudio);
}

// A file that cannot be played leaves the player stopped, which it also is when the sound has faded behind the end. One
// that could not be begun at all stays as it was before.
void SlideShowRunner::OuveAudio() {
  PainelSlideShow &show = m_console.painel.slideShow;
  const MediaPlayer *wmp = Wmp();
  if (!wmp || show.Acabou || m_timerFim->IsActive()) {
    m_timerAudio->Stop();
  } else if (wmp->State() == PlayState::Stopped || wmp->State() == PlayState::Undefined) {
    m_timerAudio->Stop();
    show.SemMusica = true;
    Avisa();
  }
}

void SlideShowRunner::ParaAudio() {
  MediaPlayer *wmp = Audio();
  m_audio.clear();
  m_timerAudio->Stop();
  if (!wmp)
    return;
  wmp->ControlsStop();
  wmp->SetLoop(false);
  m_console.telao()->EscondeMidia();
}

void SlideShowRunner::Pause() {
  m_console.ScriptNasPaginas(QStringLiteral("Pause()"));
  m_timerFim->Stop(); // the page announces its end again when it goes on
  if (MediaPlayer *wmp = Audio()) {
    wmp->ControlsPause();
    m_console.telao()->ParaRampa();
  }
  m_console.painel.slideShow.Parado = true;
  m_console.Atualiza();
}

void SlideShowRunner::Play() {
  m_console.ScriptNasPaginas(QStringLiteral("Play()"));
  if (MediaPlayer *wmp = Audio())
    wmp->ControlsPlay();
  m_console.yielder.Yield(1);
  m_console.painel.slideShow.Parado = false;
  m_console.Atualiza();
}

int SlideShowRunner::Volume() const {
  if (!m_audio.isEmpty())
    return m_volume; // and not that of the fade at the end
  const MediaPlayer *wmp = Wmp();
  return wmp ? wmp->Volume() : VolumeDoAudio;
}

void SlideShowRunner::DefineVolume(int volume) {
  m_volume = volume;
  if (MediaPlayer *wmp = Wmp())
    wmp->SetVolume(volume);
}

void SlideShowRunner::ImagemMudou(const QString &nome) {
  PainelSlideShow &show = m_console.painel.slideShow;
  if (!show.Ativo || m_semPagina)
    return;
  show.Imagem = nome;
  show.Acabou = false;
  m_mostradas.append(nome);
  m_console.Atualiza();
}

void SlideShowRunner::FimAVista(int ms) {
  if (!m_console.painel.slideShow.Ativo)
    return;
  if (Parado() || m_semPagina) { // said before the page heard that it stands
    if (Display *display = m_console.telao())
      display->ParaRampa();
  } else if (ms > 0) {
    m_timerFim->Start(ms);
  } else {
    Terminou();
  }
}

void SlideShowRunner::Terminou() {
  m_timerFim->Stop();
  m_console.painel.slideShow.Acabou = true;
  Avisa();
}

void SlideShowRunner::PaginaCaiu() {
  if (!EstaNoTelao())
    return;
  m_semPagina = true;
  m_timerFim->Stop();
  if (MediaPlayer *wmp = Acabou() ? nullptr : Audio()) {
    m_console.telao()->ParaRampa();
    wmp->SetVolume(m_volume); // the last picture comes once more
  }
}

void SlideShowRunner::PaginaVoltou(Alvo qual) {
  if (!EstaNoTelao())
    return;
  const bool noMeio = !Acabou() && !m_mostradas.isEmpty();
  const QString nome = noMeio ? m_mostradas.last() : QString();
  const int vez = noMeio ? static_cast<int>(m_mostradas.count(nome)) : Acabou() ? NoFim : NoInicio;
  const QByteArray onde = QJsonDocument(QJsonArray{nome, vez}).toJson(QJsonDocument::Compact);
  m_console.ScriptNasPaginas(
      u"if (typeof Retoma === 'function') Retoma(..." + QString::fromUtf8(onde) + u')', qual);
  if (Parado())
    m_console.ScriptNasPaginas(QStringLiteral("Pause()"), qual);
  if (qual != Alvo::Telao)
    return;
  m_semPagina = false;
  if (noMeio)
    m_mostradas.removeLast(); // the page reports it once more
}

void SlideShowRunner::TelaoRefeito() {
  if (PageObject *pagina = m_console.Pagina(Alvo::Telao))
    pagina->Navigate(m_console.app.At(PaginaDoShow), TempoLimiteSegundos);
  PaginaVoltou(Alvo::Telao);
  if (m_audio.isEmpty() || Acabou())
    return;
  IniciaAudio(QString(m_audio));
  if (MediaPlayer *wmp = Parado() ? Wmp() : nullptr)
    wmp->ControlsPause();
}

void SlideShowRunner::Fecha() {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  estado.PaginaAtual.clear();
  ParaAudio();
  estado.SlideShowAtivo.clear();
  painel.slideShow = {};
  m_timerFim->Stop();
  const bool slidesAbaixo = m_tipoAbaixo == u"Slides";
  if (slidesAbaixo && estado.TelaPronta && VoltaAosSlides && VoltaAosSlides())
    return;
  if (estado.TelaPronta) {
    bool forcar = true;
    m_temas.aplicaTema(estado.IndiceTema, forcar);
  }
  // Where the page could not be made, the console still holds what was on it.
  const bool noConsole = m_console.faixa.Label1Visible || painel.biblia.Visible;
  // A song, a passage or slides that lay beneath are not on the console any more, so nothing is on show then; a video
  // has ended.
  const bool foiEmbora = slidesAbaixo || m_tipoAbaixo == u"Video" || m_tipoAbaixo == u"Youtube" ||
                        (!noConsole && (m_tipoAbaixo == u"Louvor" || m_tipoAbaixo == u"Bíblia"));
  if (estado.TipoAtual == SlideShow)
    estado.DefineTipo(foiEmbora ? QString() : m_tipoAbaixo);
  if (!noConsole) {
    painel.Label9.clear();
    painel.PicAviso2 = true;
  }
  m_console.Atualiza();
}

} // namespace tolmira
