#include "console/web_video_runner.h"

#include "console/clear_text.h"
#include "console/theme_control.h"
#include "console/video_runner.h"

#include <utility>

namespace tolmira {

namespace {

const QString PaginaVazia = QStringLiteral("emptyback.html");
constexpr QStringView CaminhoDaPaginaVazia = u"\\html\\emptyback.html";
const QString PaginaYoutube = QStringLiteral("youtube");
constexpr int IntervaloDoOlhar = 500; // ms
constexpr int TempoLimiteSegundos = 8;
// A page that comes back plays by itself; one that the operator had paused must not sound in the hall.
const QString FicaParado = QStringLiteral(
    "(v => v && !v.paused ? v.pause() : document.addEventListener('play', e => e.target.pause(), {capture: true, once: "
    "true}))(document.querySelector('video'));");

} // namespace

WebVideoRunner::WebVideoRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas, VideoRunner &local,
                               WebVideoControl &controle)
    : m_console(console), m_stepper(stepper), m_temas(temas), m_local(local), m_controle(controle),
      m_site(console.store), m_timer(console.clock.NewTimer([this] { Tick(); })) {}

bool WebVideoRunner::Conhece(const QString &link) const {
  return !m_site.EnderecoDoTelao(link).isEmpty();
}

void WebVideoRunner::NavegaVazia(Alvo qual) {
  if (PageObject *host = m_console.Pagina(qual))
    host->Navigate(m_console.app.At(CaminhoDaPaginaVazia), TempoLimiteSegundos);
}

void WebVideoRunner::Inicia(const QString &link, const QString &caption) {
  EstadoConsole &estado = m_console.estado;
  m_emExibicao = true;
  estado.DefineTipo(QStringLiteral("Youtube"));
  estado.TipoMidia = PaginaYoutube;
  if (estado.PaginaAtual != PaginaVazia) {
    NavegaVazia(Alvo::Telao);
    NavegaVazia(Alvo::Previa);
  }
  estado.PaginaAtual = PaginaYoutube;
  EsvaziaConsole(m_console, m_stepper);
  estado.TituloAtual = m_console.painel.Label9 = caption;
  m_controle.Comeca(caption);
  rodaYoutube(m_site.EnderecoDoTelao(link));
}

void WebVideoRunner::rodaYoutube(const QString &url) {
  m_url = url;
  m_temas.StopRotation();
  m_console.canal.SendToDisplay(u"YOUTUBE:|#" + url + u"?autoplay=1|#");
  m_timer->Start(IntervaloDoOlhar);
  m_console.painel.video = Descreve();
  m_console.Atualiza();
  if (AbreControle)
    AbreControle();
}

bool WebVideoRunner::Para() {
  if (!m_emExibicao)
    return false;
  NavegaVazia(Alvo::Previa);
  m_console.canal.SendToDisplay(QStringLiteral("PararYoutube"));
  m_console.estado.PaginaAtual = PaginaVazia;
  SaiuDoTelao();
  return true;
}

void WebVideoRunner::SaiuDoTelao() {
  m_emExibicao = false;
  m_timer->Stop();
  m_console.estado.TipoMidia.clear();
  m_console.painel.video = {};
  m_controle.Termina();
  if (FechaControle)
    FechaControle();
}

void WebVideoRunner::Encerra() {
  if (Para())
    m_local.VoltaAoTema();
}

bool WebVideoRunner::PodeDesviar(const QUrl &url) const {
  return !m_emExibicao || m_site.PodeNoTelao(url);
}

void WebVideoRunner::Desviou() {
  if (!m_emExibicao)
    return;
  m_console.canal.SendToDisplay(QStringLiteral("PararYoutube"));
  m_controle.Desviou();
  Tick();
}

void WebVideoRunner::TelaoRefeito() {
  const bool parado = m_controle.TelaPediuPausa();
  m_controle.Comeca(QString(m_controle.Titulo()));
  m_console.canal.SendToDisplay(u"YOUTUBE:|#" + m_url + u"?autoplay=1|#");
  if (PageObject *pagina = parado ? m_console.Pagina(Alvo::Telao) : nullptr)
    pagina->ExecuteScript(FicaParado);
}

void WebVideoRunner::PaginaVoltou(Alvo qual) {
  PageObject *pagina = m_console.Pagina(Alvo::Telao);
  if (m_emExibicao && pagina && qual != Alvo::Previa && m_controle.TelaPediuPausa())
    pagina->ExecuteScript(FicaParado);
}

void WebVideoRunner::Tick() {
  // Another part of the console has put a page in its place.
  if (m_console.estado.PaginaAtual != PaginaYoutube) {
    SaiuDoTelao();
    m_local.NadaEmExibicao();
    m_console.Atualiza();
    return;
  }
  m_controle.Olha();
  if (PainelVideo agora = Descreve(); agora != m_console.painel.video) {
    m_console.painel.video = std::move(agora);
    m_console.Atualiza();
  }
}

PainelVideo WebVideoRunner::Descreve() const {
  using Video = PainelVideo::Situacao;
  PainelVideo video{true, Video::Tocando, false, m_controle.Titulo(), m_controle.Tempo(), QString()};
  switch (m_controle.Como()) {
  case WebVideoControl::Situacao::Abrindo:
  case WebVideoControl::Situacao::Tocando:
    break;
  case WebVideoControl::Situacao::Parado:
    video.situacao = Video::Parado;
    break;
  case WebVideoControl::Situacao::Acabou:
    video.situacao = Video::Acabou;
    break;
  case WebVideoControl::Situacao::SemVideo:
  case WebVideoControl::Situacao::SemPagina:
  case WebVideoControl::Situacao::Desviado:
    video.situacao = Video::Falhou;
    video.Aviso = m_controle.Aviso();
    break;
  }
  return video;
}

} // namespace tolmira
