#include "media/web_video_control.h"

#include "media/media_time.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QObject>

namespace tolmira {

namespace {

const QString Play = QStringLiteral("Play");
// The page's own scheme tells whether it came; a video that has a picture says how it is.
const QString Pergunta = QStringLiteral(
    "(() => { const v = document.querySelector('video'); return [location.protocol, !!v && v.readyState > 1, "
    "!!v && v.paused, !!v && v.ended, v ? v.currentTime : 0, v && isFinite(v.duration) ? v.duration : 0]; })()");
constexpr int MuitasRespostas = 20;

} // namespace

WebVideoControl::WebVideoControl(EstadoConsole &estado, std::function<PageObject *()> telao)
    : m_estado(estado), m_telao(std::move(telao)) {}

void WebVideoControl::Carrega() {
  m_estado.EstadoYoutube = Play;
  m_pergunta.reset();
}

void WebVideoControl::Descarrega() {
  m_pergunta.reset();
}

void WebVideoControl::Executa(const QString &script) {
  m_pergunta.reset();
  if (PageObject *pagina = m_telao())
    pagina->ExecuteScript(script);
}

void WebVideoControl::ImagePlay() {
  if (MostraPausa()) {
    m_estado.EstadoYoutube.clear();
    Executa(QStringLiteral("document.querySelector('video').pause();"));
  } else {
    m_estado.EstadoYoutube = Play;
    Executa(QStringLiteral("document.querySelector('video').play();"));
  }
}

void WebVideoControl::ImageRestart() {
  Executa(QStringLiteral("document.querySelector('video').currentTime = 0;"));
}

void WebVideoControl::ImageStop() {
  m_estado.EstadoYoutube.clear();
}

bool WebVideoControl::MostraPausa() const {
  return m_estado.EstadoYoutube == Play;
}

void WebVideoControl::Comeca(const QString &titulo) {
  m_titulo = titulo;
  m_tempo.clear();
  m_situacao = Situacao::Abrindo;
  m_semVideo = 0;
  m_pergunta.reset();
}

void WebVideoControl::Termina() {
  Comeca(QString());
  m_estado.EstadoYoutube.clear();
}

void WebVideoControl::Desviou() {
  m_pergunta.reset();
  m_tempo.clear();
  m_situacao = Situacao::Desviado;
  m_estado.EstadoYoutube.clear();
}

// One question at a time: a page that is still loading answers when it is there.
void WebVideoControl::Olha() {
  PageObject *pagina = m_telao();
  if (!pagina || m_pergunta || m_titulo.isEmpty() || m_situacao == Situacao::Desviado)
    return;
  m_pergunta = std::make_shared<int>(0);
  pagina->Evaluate(Pergunta, [this, minha = std::weak_ptr(m_pergunta)](const QString &json) {
    if (!minha.expired()) // nor is this object gone, then
      Respondeu(json);
  });
}

void WebVideoControl::Respondeu(const QString &json) {
  m_pergunta.reset();
  const QJsonArray dito = QJsonDocument::fromJson(json.toUtf8()).array();
  if (dito.isEmpty()) // the page went before it could say anything
    return;
  const bool temVideo = dito.at(1).toBool();
  m_semVideo = temVideo ? 0 : m_semVideo + 1;
  m_tempo.clear();
  if (!dito.at(0).toString().startsWith(u"http")) {
    m_situacao = Situacao::SemPagina;
  } else if (!temVideo) {
    m_situacao = m_semVideo > MuitasRespostas ? Situacao::SemVideo : Situacao::Abrindo;
  } else {
    const bool parado = dito.at(2).toBool();
    const Situacao agora = dito.at(3).toBool() ? Situacao::Acabou : parado ? Situacao::Parado : Situacao::Tocando;
    // The button follows what two looks in a row have seen, so that a video that is about to begin does not make it
    // jump.
    if (agora == m_situacao)
      m_estado.EstadoYoutube = agora == Situacao::Tocando ? Play : QString();
    m_situacao = agora;
    if (dito.at(5).toDouble() > 0)
      m_tempo = TempoDeMidia(dito.at(4).toDouble()) + u" / " + TempoDeMidia(dito.at(5).toDouble());
  }
}

bool WebVideoControl::TelaPediuPausa() const {
  return m_situacao == Situacao::Parado && !MostraPausa();
}

QString WebVideoControl::Aviso() const {
  switch (m_situacao) {
  case Situacao::SemVideo:
    return QObject::tr("The page on the projection has no video that plays.");
  case Situacao::SemPagina:
    return QObject::tr("The page of the video could not be loaded. Check your internet connection.");
  case Situacao::Desviado:
    return QObject::tr("The site asks something before it shows videos. Answer it under Web, Open the site, and show "
                       "the video again.");
  case Situacao::Acabou:
    return QObject::tr("The video has ended.");
  default:
    return {};
  }
}

} // namespace tolmira
