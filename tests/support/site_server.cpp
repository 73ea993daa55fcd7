#include "support/site_server.h"

#include <QTcpSocket>
#include <QTimer>

namespace tolmira::testing {

SiteAnswer SiteAnswer::Redirect(const QByteArray &to, int status) {
  SiteAnswer answer;
  answer.status = status;
  answer.headers.append({"Location", to});
  return answer;
}

SiteAnswer SiteAnswer::Status(int status) {
  SiteAnswer answer;
  answer.status = status;
  answer.body = "<html><body>no</body></html>";
  return answer;
}

SiteServer::SiteServer(QObject *parent, quint16 port) : QObject(parent) {
  if (!m_server.listen(QHostAddress::LocalHost, port))
    qFatal("no port for the sites of the test");
  connect(&m_server, &QTcpServer::newConnection, this, [this] {
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
      connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Read(socket); });
      connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
        m_heads.remove(socket);
        socket->deleteLater();
      });
    }
  });
}

SiteServer::~SiteServer() {
  for (QTcpSocket *socket : m_server.findChildren<QTcpSocket *>())
    socket->disconnect(); // what it tells while it goes is nobody's
}

void SiteServer::On(const QByteArray &path, Handler handler) {
  m_handlers.prepend({path, std::move(handler)});
}

void SiteServer::Page(const QByteArray &path, const QByteArray &body, const QByteArray &contentType) {
  On(path, [body, contentType](const SiteRequest &) {
    SiteAnswer answer;
    answer.body = body;
    answer.contentType = contentType;
    return answer;
  });
}

QString SiteServer::Host() const {
  return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
}

QUrl SiteServer::Url(const QByteArray &target) const {
  return QUrl(Host() + QString::fromUtf8(target));
}

void SiteServer::Read(QTcpSocket *socket) {
  QByteArray &head = m_heads[socket];
  head += socket->readAll();
  const qsizetype end = head.indexOf("\r\n\r\n");
  if (end < 0)
    return;
  const QList<QByteArray> lines = head.first(end).split('\n');
  head.clear();
  SiteRequest request;
  const QList<QByteArray> first = lines.value(0).trimmed().split(' ');
  request.method = first.value(0);
  request.target = first.value(1);
  for (qsizetype i = 1; i < lines.size(); ++i) {
    const qsizetype colon = lines[i].indexOf(':');
    request.headers.insert(lines[i].first(qMax<qsizetype>(colon, 0)).trimmed().toLower(),
                           lines[i].mid(colon + 1).trimmed());
  }
  asked.append(request);
  Answer(socket, request);
}

void SiteServer::Answer(QTcpSocket *socket, const SiteRequest &request) {
  const Handler *best = nullptr;
  qsizetype longest = -1;
  for (const auto &[path, handler] : m_handlers)
    if (request.target.startsWith(path) && path.size() > longest) {
      best = &handler;
      longest = path.size();
    }
  const SiteAnswer answer = best ? (*best)(request) : SiteAnswer::Status(404);
  using Ending = SiteAnswer::Ending;
  if (answer.ending == Ending::Silent)
    return;
  QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + " Answer\r\nConnection: close\r\n";
  if (!answer.contentType.isEmpty())
    head += "Content-Type: " + answer.contentType + "\r\n";
  if (answer.ending == Ending::Whole || answer.ending == Ending::Drip)
    head += "Content-Length: " + QByteArray::number(answer.body.size() * answer.times) + "\r\n";
  if (answer.ending == Ending::CutShort)
    head += "Content-Length: " + QByteArray::number(answer.body.size() + 1000) + "\r\n";
  for (const auto &[name, value] : answer.headers)
    head += name + ": " + value + "\r\n";
  if (answer.ending == Ending::Trailers)
    head += "Transfer-Encoding: chunked\r\n";
  socket->write(head + "\r\n" + (answer.ending == Ending::Trailers ? "3\r\nluz\r\n0\r\n" : ""));
  const bool endless = answer.ending == Ending::Endless || answer.ending == Ending::Trailers;
  if (!answer.body.isEmpty() && (endless || answer.times > 1)) {
    const auto more = [socket, endless, body = answer.body, left = answer.times]() mutable {
      while (socket->bytesToWrite() < 1'000'000 && socket->state() == QAbstractSocket::ConnectedState &&
             (endless || left-- > 0))
        socket->write(body);
      if (!endless && left <= 0)
        socket->disconnectFromHost();
    };
    connect(socket, &QTcpSocket::bytesWritten, socket, more);
    return;
  }
  if (answer.ending == Ending::Drip) {
    auto *drip = new QTimer(socket);
    connect(drip, &QTimer::timeout, socket, [socket, drip, body = answer.body, at = qsizetype(0)]() mutable {
      if (at < body.size())
        socket->write(body.sliced(at++, 1));
      else
        socket->disconnectFromHost();
      if (at >= body.size())
        drip->setInterval(0);
    });
    drip->start(100);
    return;
  }
  if (request.method != "HEAD")
    socket->write(answer.body);
  socket->disconnectFromHost();
}

} // namespace tolmira::testing
