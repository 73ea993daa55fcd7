#include "console/slide_show_runner.h"

#include "console/stepping.h"
#include "console/theme_control.h"
#include "display/show_page.h"
#include "foundation/text_utils.h"

namespace tolmira {

namespace {

const QString SlideShow = QStringLiteral("SlideShow");
constexpr QStringView PaginaDoShow = u"\\html\\sshow.html";
constexpr int VolumeDoAudio = 50;
constexpr int TempoLimiteSegundos = 8;

} // namespace

SlideShowRunner::SlideShowRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_stepper(stepper), m_temas(temas) {}

MediaPlayer *SlideShowRunner::Wmp() const {
  Display *display = m_console.telao();
  return display ? display->wmp() : nullptr;
}

void SlideShowRunner::Abre() {
  m_console.estado.SlideShowAtivo = QStringLiteral("True");
  m_console.painel.slideShow = {true, false, QString()};
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
  painel.slideShow.Parado = false;
  painel.slideShow.Imagem.clear();
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
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  m_stepper.PlaceBelowFrame();
  estado.Estrofes.clear();
  estado.TextoEstrofes.clear();
  estado.TotalEstrofes = 0;
  estado.EstrofeAtual = -1;
  estado.ArquivoAtual.clear();
  estado.ReferenciaAtual.clear();
  estado.TextoBiblia.clear();
  estado.VersoHtmlAtual.clear();
  estado.VersoTextoAtual.clear();
  estado.UltimoTexto.clear();
  m_console.canal.SendToDisplay(QStringLiteral("UpdateText|#|#|#"));

  m_console.faixa.Label1Visible = false;
  painel.biblia.Visible = false;
  painel.MensagemTira.clear();
  painel.SliderExLouvorVisible = painel.SliderExBibliaVisible = painel.LbFaixaVisible = painel.ComboFontSizeVisible =
      false;
  painel.PicAviso = painel.PicAviso2 = painel.PicDica2 = painel.PicDica3 = painel.PicDica4 = painel.PicDicaAgenda =
      false;
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
  wmp->SetVolume(VolumeDoAudio);
  m_comAudio = true;
}

void SlideShowRunner::ParaAudio() {
  MediaPlayer *wmp = m_comAudio ? Wmp() : nullptr;
  m_comAudio = false;
  if (!wmp)
    return;
  wmp->ControlsStop();
  wmp->SetLoop(false);
  m_console.telao()->EscondeMidia();
}

void SlideShowRunner::Pause() {
  m_console.ScriptNasPaginas(QStringLiteral("Pause()"));
  if (MediaPlayer *wmp = m_comAudio ? Wmp() : nullptr) {
    wmp->ControlsPause();
    m_console.telao()->ParaRampa(); // the page announces its end again when it goes on
  }
  m_console.painel.slideShow.Parado = true;
  m_console.Atualiza();
}

void SlideShowRunner::Play() {
  m_console.ScriptNasPaginas(QStringLiteral("Play()"));
  if (MediaPlayer *wmp = m_comAudio ? Wmp() : nullptr)
    wmp->ControlsPlay();
  m_console.yielder.Yield(1);
  m_console.painel.slideShow.Parado = false;
  m_console.Atualiza();
}

int SlideShowRunner::Volume() const {
  const MediaPlayer *wmp = Wmp();
  return wmp ? wmp->Volume() : VolumeDoAudio;
}

void SlideShowRunner::DefineVolume(int volume) {
  if (MediaPlayer *wmp = Wmp())
    wmp->SetVolume(volume);
}

void SlideShowRunner::ImagemMudou(const QString &nome) {
  if (!m_console.painel.slideShow.Ativo)
    return;
  m_console.painel.slideShow.Imagem = nome;
  m_console.Atualiza();
}

void SlideShowRunner::PaginaVoltou(Alvo qual) {
  if (EstaNoTelao() && Parado())
    m_console.ScriptNasPaginas(QStringLiteral("Pause()"), qual);
}

void SlideShowRunner::TelaoRefeito() {
  if (PageObject *pagina = m_console.Pagina(Alvo::Telao))
    pagina->Navigate(m_console.app.At(PaginaDoShow), TempoLimiteSegundos);
  PaginaVoltou(Alvo::Telao);
}

void SlideShowRunner::Fecha() {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  estado.PaginaAtual.clear();
  ParaAudio();
  estado.SlideShowAtivo.clear();
  painel.slideShow = {};
  const bool slidesAbaixo = m_tipoAbaixo == u"Slides";
  if (slidesAbaixo && estado.TelaPronta && VoltaAosSlides && VoltaAosSlides())
    return;
  if (estado.TelaPronta) {
    bool forcar = true;
    m_temas.aplicaTema(estado.IndiceTema, forcar);
  }
  // Where the page could not be made, the console still holds what was on it.
  const bool noConsole = m_console.faixa.Label1Visible || painel.biblia.Visible;
  // A song, a passage or slides that lay beneath are not on the console any more, so nothing is on show then.
  const bool foiEmbora = slidesAbaixo || (!noConsole && (m_tipoAbaixo == u"Louvor" || m_tipoAbaixo == u"Bíblia"));
  if (estado.TipoAtual == SlideShow)
    estado.DefineTipo(foiEmbora ? QString() : m_tipoAbaixo);
  if (!noConsole) {
    painel.Label9.clear();
    painel.PicAviso2 = true;
  }
  m_console.Atualiza();
}

} // namespace tolmira
