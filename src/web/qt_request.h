#pragma once

#include "web/page_body.h"
#include "web/redirects.h"
#include "web/web_client.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>

class QNetworkReply;

namespace tolmira {

// One GET of a page by Qt Network, with its redirections.
class QtRequest : public QObject, public WebTask {
public:
  struct Fim {
    bool completa = false; // status 200, to its end
    QByteArray tipo;       // Content-Type
    QByteArray embrulho;   // Content-Encoding
    PageBody corpo;
  };

  // `gerente` outlives it. An empty agent is the system's. `pronto` may drop this.
  QtRequest(QNetworkAccessManager &gerente, const QUrl &url, const QByteArray &agente, bool http2, int limiteMs,
            std::function<void(Fim fim)> pronto);
  ~QtRequest() override;

private:
  void Pede();
  int Status() const;
  void Cabeca();
  void Le();
  void Acabou();
  void Conta(bool completa);
  void Larga();

  QNetworkAccessManager &m_gerente;
  Redirects m_caminho;
  QByteArray m_agente;
  bool m_http2;
  std::function<void(Fim fim)> m_pronto;
  Fim m_fim;
  bool m_contou = false;
  QPointer<QNetworkReply> m_reply; // the manager takes it along when it goes first
};

// Proxies by the environment, for the manager of these requests.
void UsaProxyDoAmbiente(QNetworkAccessManager &gerente);

} // namespace tolmira
