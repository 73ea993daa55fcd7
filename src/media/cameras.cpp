#include "media/cameras.h"

#include "display/show_page.h"
#include "foundation/text_utils.h"

namespace tolmira {

namespace {

const QString Aberto = QStringLiteral("true");
const QString Para = QStringLiteral("stopWebcam()");

QString Liga(int indice) {
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
  m_script(QStringLiteral("getCameras()"), Alvo::Previa);
}

void Cameras::Fecha() {
  m_script(Para, Alvo::Ambas);
  m_modo.clear();
  Muda(-1, Situacao::Desligada);
}

void Cameras::Liga(int indice) {
  Muda(indice, Situacao::Abrindo);
  m_script(tolmira::Liga(indice), Alvo::Ambas);
}

void Cameras::Desliga(int) {
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
    m_ligada = -1;
    m_situacao = Situacao::Desligada;
  }
  if (AoMudar)
    AoMudar();
}

QString Cameras::Nome() const {
  return m_nomes.value(m_ligada);
}

void Cameras::Respondeu(const QString &uri) {
  const QString endereco = UrlDecode(uri);
  const qsizetype corte = endereco.indexOf(u'?');
  const QString destino = endereco.left(corte);
  const QString resto = corte < 0 ? QString() : endereco.mid(corte + 1);
  if (destino == u"http://indexcam//")
    Listou(resto);
  else if (destino == u"http://webcam//")
    Relatou(resto);
}

void Cameras::Listou(const QString &lista) {
  if (lista.isEmpty() || lista == u"|") {
    m_nomes.clear();
    if (m_modo == Aberto && AoListar)
      AoListar(m_nomes);
    m_prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), QStringLiteral("Câmera não encontrada"));
    return;
  }
  if (m_modo != Aberto)
    return;
  m_nomes = lista.split(u'|');
  m_nomes.removeLast(); // each name is followed by the mark
  for (QString &nome : m_nomes)
    nome = TextoRelatado(nome);
  if (AoListar)
    AoListar(m_nomes);
}

// "0|aberta": what became of the camera on the console's page, which shows what the projection shows.
void Cameras::Relatou(const QString &relato) {
  const QString palavra = relato.section(u'|', 1);
  if (m_ligada < 0 || relato.section(u'|', 0, 0) != QString::number(m_ligada))
    return;
  Muda(m_ligada, palavra == u"aberta" ? Situacao::NoTelao : palavra == u"saiu" ? Situacao::Saiu : Situacao::Falhou);
}

void Cameras::PaginaMontada(Alvo qual) {
  if (m_ligada >= 0)
    m_script(tolmira::Liga(m_ligada), qual);
}

void Cameras::Muda(int ligada, Situacao situacao) {
  m_ligada = ligada;
  m_situacao = situacao;
  if (AoMudar)
    AoMudar();
  m_mudou();
}

} // namespace tolmira
