#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPair>
#include <QTcpServer>
#include <QUrl>
#include <functional>

class QTcpSocket;

namespace tolmira::testing {

struct SiteRequest {
  QByteArray method;
  QByteArray target; // path and query as they came; a whole address when the server serves as a proxy
  QHash<QByteArray, QByteArray> headers; // names in lower case
};

// What a site answers, healthy or not.
struct SiteAnswer {
  enum class Ending {
    Whole,    // the body, then the connection is closed
    CutShort, // announces more than it sends
    Endless,  // the body again and again, until the client goes
    Trailers, // in chunks, and behind the last one the body again and again as lines of a head
    Drip,     // one byte of the body a tenth of a second
    Silent,   // nothing at all
  };
  int status = 200;
  QByteArray contentType = "text/html; charset=utf-8";
  QByteArray body;
  int times = 1;                                // that the body is sent, by and by
  QList<QPair<QByteArray, QByteArray>> headers; // further ones
  Ending ending = Ending::Whole;

  static SiteAnswer Redirect(const QByteArray &to, int status = 302);
  static SiteAnswer Status(int status);
};

// A small web server on 127.0.0.1 that plays any site, in the thread that made it. What it is asked for comes to the
// handler of the longest path that the target begins with, else it answers 404.
class SiteServer : public QObject {
  Q_OBJECT

public:
  using Handler = std::function<SiteAnswer(const SiteRequest &)>;

  explicit SiteServer(QObject *parent = nullptr, quint16 port = 0);
  ~SiteServer() override;

  void On(const QByteArray &path, Handler handler);
  void Page(const QByteArray &path, const QByteArray &body, const QByteArray &contentType = "text/html; charset=utf-8");

  QString Host() const;                             // "http://127.0.0.1:PORT", as an endpoint is configured
  qsizetype Open() const { return m_heads.size(); } // clients that are there and have spoken
  QUrl Url(const QByteArray &target) const;         // of a path there
  QList<SiteRequest> asked;                         // in order

private:
  void Read(QTcpSocket *socket);
  void Answer(QTcpSocket *socket, const SiteRequest &request);

  QTcpServer m_server;
  QHash<QTcpSocket *, QByteArray> m_heads;
  QList<QPair<QByteArray, Handler>> m_handlers;
};

} // namespace tolmira::testing
