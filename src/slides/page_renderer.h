#pragma once

#include "slides/limited_process.h"

#include <QSize>

namespace tolmira {

// Has the pages of a PDF drawn by `tolmira-pages` (page_protocol.h) and believes it nothing that it did not look at.
class PageRenderer : public QObject {
  Q_OBJECT

public:
  enum class Problema {
    SemPrograma,
    FaltaSenha, // or a wrong one was given
    Quebrado,   // no PDF, or the drawer broke over it
    Vazio,
    Demais,  // pages
    Demorou, // over one page
    Disco,
  };

  struct Pedido {
    QString programa;
    QString arquivo; // real paths
    QString pasta;   // exists, and is ours alone
    QSize tela;      // px, of every picture
    QByteArray senha;
    int prazoMs = 30'000; // for one page
  };

  explicit PageRenderer(QObject *parent = nullptr);

  void Comeca(const Pedido &pedido);
  void Para();
  bool Roda() const { return m_processo.Roda(); }

signals:
  void Contou(int paginas);
  void Fez(int pagina, const QString &arquivo); // from 1 and in order; a file in the folder, its content unknown
  void Terminou();                              // one of these two is last
  void Falhou(tolmira::PageRenderer::Problema problema);

private:
  void Ouve(const QByteArray &linha);
  bool OuvePagina(const QList<QByteArray> &palavras);
  void Acabou(LimitedProcess::Fim fim, int codigo);

  LimitedProcess m_processo;
  QString m_pasta;
  int m_total = 0;
  int m_feitas = 0;
  bool m_completo = false;
  Problema m_problema = Problema::Quebrado; // what it is if it did not end well
};

} // namespace tolmira
