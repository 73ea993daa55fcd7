#include "web/qt_request.h"

#include "web/environment_proxy.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <utility>

namespace tolmira {

namespace {

constexpr qint64 NaMao = 1 << 20; // bytes that may wait to be read

class FabricaDeProxies : public QNetworkProxyFactory {
public:
  QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override {
    const QUrl url = ProxyDoAmbiente(query.url());
    if (url.isEmpty())
      return {QNetworkProxy(QNetworkProxy::NoProxy)};
    const bool socks = url.scheme().startsWith(u"socks");
    return {QNetworkProxy(socks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy, url.host(),
                          static_cast<quint16>(url.port()), url.userName(), url.password())};
  }
};

} // namespace

void UsaProxyDoAmbiente(QNetworkAccessManager &gerente) {
  gerente.setProxyFactory(new FabricaDeProxies);
}

QtRequest::QtRequest(QNetworkAccessManager &gerente, const QUrl &url, const QByteArray &agente, bool http2,
                     int limiteMs, std::function<void(Fim fim)> pronto)
    : m_gerente(gerente), m_caminho(url), m_agente(agente), m_http2(http2), m_pronto(std::move(pronto)) {
  QTimer::singleShot(limiteMs, Qt::PreciseTimer, this, [this] { Conta(false); });
  if (Redirects::EhDaWeb(url))
    Pede();
  else
    QTimer::singleShot(0, this, [this] { Conta(false); });
}

QtRequest::~QtRequest() {
  Larga();
}

// Ends what is under way, on the wire too.
void QtRequest::Larga() {
  if (!m_reply)
    return;
  m_reply->disconnect(this); // of this alone: the reply's own connections end what is on the wire
  m_reply->abort();
  m_reply->deleteLater();
  m_reply.clear();
}

void QtRequest::Pede() {
  QNetworkRequest request(m_caminho.Atual());
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, m_http2);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  // The manager's own unpacking happens here, on the interface thread, and to the end, however much comes out.
  request.setRawHeader("Accept-Encoding", "gzip");
  if (!m_agente.isEmpty())
    request.setHeader(QNetworkRequest::UserAgentHeader, m_agente);
  Larga();
  m_reply = m_gerente.get(request);
  m_reply->setReadBufferSize(NaMao);
  // Behind the toolkit's own doing: the answer may be dropped from inside.
  connect(m_reply, &QNetworkReply::metaDataChanged, this, &QtRequest::Cabeca, Qt::QueuedConnection);
  connect(m_reply, &QNetworkReply::readyRead, this, &QtRequest::Le);
  connect(m_reply, &QNetworkReply::finished, this, &QtRequest::Acabou, Qt::QueuedConnection);
}

int QtRequest::Status() const {
  return m_reply ? m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() : 0;
}

// The body of what is not the page may be endless.
void QtRequest::Cabeca() {
  const int status = Status();
  if (m_contou || status == 0 || status == 200)
    return;
  if (Redirects::EhRedirecionamento(status) && m_caminho.Segue(m_reply->rawHeader("Location")))
    Pede();
  else
    Conta(false);
}

void QtRequest::Le() {
  if (m_contou || Status() != 200)
    return;
  const QByteArray bytes = m_reply->read(NaMao);
  if (!m_fim.corpo.Recebe(bytes.constData(), static_cast<size_t>(bytes.size())))
    QTimer::singleShot(0, this, [this] { Conta(false); });
  else if (m_reply->bytesAvailable() > 0)
    QTimer::singleShot(0, this, [this] { Le(); });
}

// An address that cannot be reached ends without a status.
void QtRequest::Acabou() {
  if (m_contou || !m_reply->isFinished())
    return; // news of an answer that was left meanwhile
  while (Status() == 200 && m_reply->bytesAvailable() > 0) {
    const qint64 before = m_reply->bytesAvailable();
    Le();
    if (m_reply->bytesAvailable() >= before)
      break;
  }
  if (Status() != 200) {
    if (Status() == 0)
      Conta(false);
    else
      Cabeca();
    return;
  }
  m_fim.tipo = m_reply->rawHeader("Content-Type");
  m_fim.embrulho = m_reply->rawHeader("Content-Encoding");
  Conta(m_reply->error() == QNetworkReply::NoError);
}

void QtRequest::Conta(bool completa) {
  if (m_contou)
    return;
  m_contou = true;
  Larga();
  m_fim.completa = completa;
  const auto pronto = std::move(m_pronto);
  pronto(std::move(m_fim));
}

} // namespace tolmira
