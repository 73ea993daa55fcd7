#include "themes/web_picture_search.h"

#include "web/own_network.h"

#include <QUrl>
#include <utility>

namespace tolmira {

namespace {

const QString Chave = QStringLiteral("buscaImagem");
// The page's own words, with the end marks as they have always been.
const QString Inadequado = QStringLiteral("<h2>Non-existent or inappropriate result<h2>");
const QString SemResultados = QStringLiteral("<h2>There are no results.<h2>");

// The two themes that the program has of its own lie together in the maker's store.
bool TemaProprio(const QString &termo) {
  return termo.compare(u"abstrato", Qt::CaseInsensitive) == 0 || termo.compare(u"textura", Qt::CaseInsensitive) == 0;
}

QString Numero(int pagina) {
  return QStringLiteral("Page ") + QString::number(pagina + 1);
}

} // namespace

WebPictureSearch::WebPictureSearch(PageFetcher &paginas, const Endpoints &endpoints, QObject *parent)
    : QObject(parent), m_paginas(paginas), m_endpoints(endpoints) {}

void WebPictureSearch::pesquisarImagens(const QString &termo, int pagina, Recurso recurso) {
  if (!termo.trimmed().isEmpty())
    Busca({termo.trimmed(), qMax(0, pagina), FonteDeImagens::BING, recurso, false});
}

bool WebPictureSearch::Vizinha(int delta) {
  Pedido pedido = m_atual;
  pedido.pagina += delta;
  if (pedido.termo.isEmpty() || pedido.pagina < 0)
    return false;
  Busca(pedido);
  return true;
}

void WebPictureSearch::Para() {
  m_tarefa.reset();
}

const ImagemDaWeb *WebPictureSearch::Imagem(const QString &id) const {
  const ResultadoClicado clicado = LeIdDoResultado(id);
  if (clicado.index < 0 || clicado.index >= m_imagens.size())
    return nullptr;
  const ImagemDaWeb &imagem = m_imagens[clicado.index];
  return imagem.endereco == clicado.endereco ? &imagem : nullptr;
}

void WebPictureSearch::Busca(const Pedido &pedido) {
  m_pedido = pedido;
  m_lidas.clear();
  const bool mv = pedido.fonte == FonteDeImagens::Mv;
  const Endpoint onde = mv ? Endpoint::ImagensMv : Endpoint::PesquisaImagens;
  const QUrl url = m_endpoints.Endereco(onde, CaminhoDaPesquisa(pedido.termo, pedido.pagina));
  if (!url.isValid()) {
    m_tarefa.reset();
    if (mv)
      NadaAchado();
    else
      emit NaoConfigurada(m_endpoints.PorQueNao(onde));
    return;
  }
  m_pedido.redePropria = DaRedePropria(url.host());
  m_tarefa = m_paginas.Tenta(
      Chave, url, [this](const QString &pagina) { return Le(pagina); }, [this](const QString &) { Veio(); },
      [this](int rodada) { emit Andou(rodada, PageFetcher::Rodadas); });
}

bool WebPictureSearch::Le(const QString &pagina) {
  m_lidas = ImagensDaPagina(pagina);
  if (!m_pedido.redePropria) {
    const auto dentro = [](const QString &endereco) { return DaRedePropria(QUrl(endereco).host()); };
    m_lidas.removeIf([&dentro](const ImagemDaWeb &imagem) { return dentro(imagem.endereco); });
    for (ImagemDaWeb &imagem : m_lidas)
      if (!imagem.miniatura.isEmpty() && dentro(imagem.miniatura))
        imagem.miniatura.clear();
  }
  return !m_lidas.isEmpty();
}

void WebPictureSearch::Veio() {
  m_tarefa.reset();
  if (m_lidas.isEmpty()) {
    NadaAchado();
    return;
  }
  Mostra({CriaPagina(m_lidas), Numero(m_pedido.pagina), true, true});
}

void WebPictureSearch::NadaAchado() {
  if (m_pedido.fonte == FonteDeImagens::Mv || m_pedido.recurso == Recurso::Nao) {
    Mostra({Inadequado, QString(), false, false});
  } else if (TemaProprio(m_pedido.termo)) {
    Pedido mv = m_pedido;
    mv.termo = QStringLiteral("textura_e_abstrato");
    mv.fonte = FonteDeImagens::Mv;
    Busca(mv);
  } else {
    Mostra({SemResultados, Numero(m_pedido.pagina), m_pedido.pagina > 0, false});
  }
}

void WebPictureSearch::Mostra(const ResultadoDaBusca &resultado) {
  m_atual = m_pedido;
  m_imagens = std::exchange(m_lidas, {});
  emit Mostrou(resultado);
}

} // namespace tolmira
