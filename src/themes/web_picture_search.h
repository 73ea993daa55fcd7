#pragma once

#include "themes/web_pictures.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QObject>
#include <memory>

namespace tolmira {

enum class FonteDeImagens { BING, Mv };
enum class Recurso { Sim, Nao }; // whether another source is asked when the first has nothing

// One page of a search, as the window shows it.
struct ResultadoDaBusca {
  QString pagina;        // what `WB` shows: the table, or a sentence
  QString Label1;        // "Page 1"; empty when there are no pages to turn
  bool anterior = false; // Command2(0)
  bool proxima = false;  // Command2(1)
};

// The search for pictures on the web, page by page. What was found last stays until something else has been shown.
class WebPictureSearch : public QObject {
  Q_OBJECT

public:
  // The referenced objects outlive this one.
  WebPictureSearch(PageFetcher &paginas, const Endpoints &endpoints, QObject *parent = nullptr);

  // Searches anew; pages count from 0. It ends with Mostrou or NaoConfigurada. A blank term does nothing.
  void pesquisarImagens(const QString &termo, int pagina, Recurso recurso = Recurso::Sim);
  // Another page of what is on show, from the source that it came from. False before the first page.
  bool Vizinha(int delta);
  void Para(); // what is under way is given up, and nothing is reported
  bool Buscando() const { return m_tarefa != nullptr; }

  const QList<ImagemDaWeb> &Imagens() const { return m_imagens; } // of the table on show
  // Whether they may lie in this machine's own network, as the search itself does. From a search outside none is taken.
  bool RedePropria() const { return m_atual.redePropria; }
  // The picture of a link of that table; null when the link is none of its own.
  const ImagemDaWeb *Imagem(const QString &id) const;

signals:
  void Andou(int rodada, int rodadas); // before each try
  void Mostrou(const tolmira::ResultadoDaBusca &resultado);
  void NaoConfigurada(const QString &motivo);

private:
  struct Pedido {
    QString termo;
    int pagina = 0;
    FonteDeImagens fonte = FonteDeImagens::BING;
    Recurso recurso = Recurso::Sim;
    bool redePropria = false;
  };

  void Busca(const Pedido &pedido);
  bool Le(const QString &pagina); // whether there is something in it
  void Veio();
  void NadaAchado();
  void Mostra(const ResultadoDaBusca &resultado);

  PageFetcher &m_paginas;
  const Endpoints &m_endpoints;
  Pedido m_pedido;            // under way
  Pedido m_atual;             // on show
  QList<ImagemDaWeb> m_lidas; // of the last page that was tried
  QList<ImagemDaWeb> m_imagens;
  std::unique_ptr<WebTask> m_tarefa;
};

} // namespace tolmira
