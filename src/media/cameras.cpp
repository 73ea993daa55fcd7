#include "media/cameras.h"

#include "display/show_page.h"
#include "foundation/text_utils.h"

#include <utility>

namespace tolmira {

namespace {

const QString Aberto = QStringLiteral("true");
const QString Para = QStringLiteral("stopWebcam()");

QString ScriptLiga(int indice) {
  return QStringLiteral("startWebcam(%1)").arg(indice);
}

} // namespace

Cameras::Cameras(std::function<void(const QString &script, Alvo alvo)> script, std::function<void()> mudou,
                 UserPrompt &prompt)
    : m_script(std::move(script)), m_mudou(std::move(mudou)), m_prompt(prompt) {}

void Cameras::Abre() {
  m_modo = Aberto;
  Procura();
}

void Cameras::Procura() {
  m_esperando = true;
  m_script(QStringLiteral("getCameras()"), Alvo::Previa);
}

void Cameras::Fecha() {
  m_script(Para, Alvo::Ambas);
  m_modo.clear();
  Muda(-1, Situacao::Desligada);
}

void Cameras::Liga(int indice) {
  m_antes = m_situacao == Situacao::NoTelao && m_ligada != indice ? m_ligada : -1;
  m_telaoFalou = false;
  Muda(indice, Situacao::Abrindo);
  m_script(ScriptLiga(indice), Alvo::Ambas);
}

void Cameras::Desliga() {
  m_script(Para, Alvo::Ambas);
  Muda(-1, Situacao::Desligada);
}

void Cameras::StatusTelaCamera(bool pode) {
  if (pode == m_pode)
    return;
  m_pode = pode;
  // Its page has gone, or stands on as the background of a sound, where nobody could stop it.
  if (!pode && m_ligada >= 0) {
    m_script(Para, Alvo::Ambas);
    m_ligada = m_antes = m_falhou = -1;
    m_situacao = Situacao::Desligada;
  }
  if (AoMudar)
    AoMudar();
}

Cameras::Situacao Cameras::Como(int indice) const {
  if (indice >= 0 && indice == m_ligada)
    return m_situacao;
  return indice >= 0 && indice == m_falhou ? Situacao::Falhou : Situacao::Desligada;
}

QString Cameras::Nome() const {
  return m_nomes.value(m_ligada);
}

void Cameras::Respondeu(const QString &uri, Alvo de) {
  const QString endereco = UrlDecode(uri);
  const qsizetype corte = endereco.indexOf(u'?');
  const QString destino = endereco.left(corte);
  const QString resto = corte < 0 ? QString() : endereco.mid(corte + 1);
  if (destino == u"http://indexcam//")
    Listou(resto);
  else if (destino == u"http://webcam//")
    Relatou(resto, de);
}

void Cameras::Listou(const QString &lista) {
  m_esperando = false;
  QStringList nomes;
  if (m_modo == Aberto && !lista.isEmpty() && lista != u"|")
    nomes = lista.split(u'|');
  if (!nomes.isEmpty() && nomes.last().isEmpty())
    nomes.removeLast(); // each name is followed by the mark
  for (QString &nome : nomes)
    nome = TextoRelatado(nome);
  if (m_modo == Aberto) {
    // The one that is on keeps its name and not its place; where it is missing there is nothing to be shown again.
    const qsizetype agora = m_ligada >= 0 ? nomes.indexOf(Nome()) : -1;
    m_nomes = nomes;
    m_antes = m_falhou = -1;
    if (m_ligada >= 0 && agora < 0)
      Desliga();
    else
      m_ligada = static_cast<int>(agora);
    if (AoListar)
      AoListar(m_nomes);
  }
  if (lista.isEmpty() || lista == u"|")
    m_prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), QStringLiteral("Câmera não encontrada"));
}

// "0|aberta": what became of a camera on one of the pages.
void Cameras::Relatou(const QString &relato, Alvo de) {
  const QString palavra = relato.section(u'|', 1);
  if (m_ligada < 0 || relato.section(u'|', 0, 0) != QString::number(m_ligada))
    return;
  if (de == Alvo::Previa && m_telaoFalou)
    return;
  m_telaoFalou = m_telaoFalou || de == Alvo::Telao;
  if (palavra == u"falhou" && m_antes >= 0) {
    m_falhou = m_ligada;
    m_ligada = std::exchange(m_antes, -1);
    return Muda(m_ligada, Situacao::NoTelao);
  }
  m_falhou = -1;
  m_antes = -1;
  Muda(m_ligada, palavra == u"aberta" ? Situacao::NoTelao : palavra == u"saiu" ? Situacao::Saiu : Situacao::Falhou);
}

void Cameras::PaginaMontada(Alvo qual) {
  if (m_ligada >= 0) {
    if (qual == Alvo::Telao) {
      m_telaoFalou = false;
      m_antes = -1;
      m_situacao = Situacao::Abrindo;
    }
    m_script(ScriptLiga(m_ligada), qual);
  }
  if (m_esperando && qual == Alvo::Previa)
    Procura(); // the page that was asked is gone
}

void Cameras::Muda(int ligada, Situacao situacao) {
  m_ligada = ligada;
  m_situacao = situacao;
  if (ligada < 0)
    m_antes = m_falhou = -1;
  if (AoMudar)
    AoMudar();
  m_mudou();
}

} // namespace tolmira
