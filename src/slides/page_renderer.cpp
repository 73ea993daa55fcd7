#include "slides/page_renderer.h"

#include "slides/page_protocol.h"

#include <QDir>
#include <QFileInfo>

namespace tolmira {

namespace {

// Pages of photographs take some hundred megabytes to decode.
constexpr Limites LimitesDoDesenho{quint64(2) << 30, 60 * 60, 64 << 20, 128};

PageRenderer::Problema ProblemaDe(const QByteArray &palavra) {
  const QString porque = QString::fromLatin1(palavra);
  using Problema = PageRenderer::Problema;
  if (porque == paginas::FaltaSenha)
    return Problema::FaltaSenha;
  if (porque == paginas::Vazio)
    return Problema::Vazio;
  if (porque == paginas::Demais)
    return Problema::Demais;
  return porque == paginas::Disco ? Problema::Disco : Problema::Quebrado;
}

} // namespace

PageRenderer::PageRenderer(QObject *parent) : QObject(parent) {
  connect(&m_processo, &LimitedProcess::Linha, this, &PageRenderer::Ouve);
  connect(&m_processo, &LimitedProcess::Acabou, this, &PageRenderer::Acabou);
}

void PageRenderer::Comeca(const Pedido &pedido) {
  m_pasta = pedido.pasta;
  m_total = m_feitas = 0;
  m_completo = false;
  m_problema = Problema::Quebrado;
  LimitedProcess::Comando comando;
  comando.programa = pedido.programa;
  comando.argumentos = QStringList{pedido.arquivo, pedido.pasta,
                                   QStringLiteral("%1x%2").arg(pedido.tela.width()).arg(pedido.tela.height())};
  comando.entrada = pedido.senha;
  comando.pasta = pedido.pasta;
  comando.limites = LimitesDoDesenho;
  comando.prazoMs = pedido.prazoMs;
  comando.maiorLinha = paginas::MaiorLinha;
  m_processo.Comeca(comando);
}

void PageRenderer::Para() {
  m_processo.Para();
}

void PageRenderer::Ouve(const QByteArray &linha) {
  const QList<QByteArray> palavras = linha.split(' ');
  bool entendida = false;
  if (palavras.size() == 2 && palavras[0] == "pages" && m_total == 0) {
    const int total = palavras[1].toInt();
    entendida = total > 0 && total <= paginas::MaisPaginas;
    if (entendida)
      emit Contou(m_total = total);
  } else if (palavras.size() == 3 && palavras[0] == "page") {
    entendida = OuvePagina(palavras);
  } else if (palavras.size() == 2 && palavras[0] == "failed") {
    const Problema problema = ProblemaDe(palavras[1]);
    entendida = problema != Problema::FaltaSenha || m_total == 0; // whose pages it has counted, that one is open
    if (entendida)
      m_problema = problema;
  } else if (linha == "done") {
    entendida = m_completo = m_total > 0 && m_feitas == m_total;
  }
  if (!entendida)
    m_processo.Para();
}

bool PageRenderer::OuvePagina(const QList<QByteArray> &palavras) {
  const int numero = m_feitas + 1;
  const QString nome = QString::fromLatin1(palavras[2]);
  const QString base = QStringLiteral("page-%1.").arg(numero);
  const QFileInfo arquivo(QDir(m_pasta).filePath(nome));
  if (numero > m_total || palavras[1] != QByteArray::number(numero) ||
      (nome != base + u"png" && nome != base + u"jpg") || !arquivo.isFile() || arquivo.isSymLink())
    return false;
  m_feitas = numero;
  emit Fez(numero, arquivo.filePath());
  return true;
}

void PageRenderer::Acabou(LimitedProcess::Fim fim, int codigo) {
  using Fim = LimitedProcess::Fim;
  if (fim == Fim::Saiu && codigo == 0 && m_completo)
    emit Terminou();
  else if (fim == Fim::NaoComecou)
    emit Falhou(Problema::SemPrograma);
  else if (fim == Fim::Demorou)
    emit Falhou(Problema::Demorou);
  else
    emit Falhou(m_problema);
}

} // namespace tolmira
