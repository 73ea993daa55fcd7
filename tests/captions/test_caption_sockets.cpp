#include "caption_hall.h"

#include <QFile>
#include <QTcpSocket>
#include <QtTest>
#include <cerrno>
#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using namespace tolmira;
using namespace tolmira::testing;

// The server on a real port, and clients that a hall's network may bring.
class TestCaptionSockets : public QObject {
  Q_OBJECT

  class Client : public QTcpSocket {
  public:
    explicit Client(quint16 port) { connectToHost(QHostAddress::LocalHost, port); }
    // All that has come, once it ends so.
    bool Gets(const QByteArray &end, int ms = 5000) {
      return QTest::qWaitFor([&] { return (m_heard += readAll()).endsWith(end); }, ms);
    }
    QByteArray Heard() { return std::exchange(m_heard, {}); }

  private:
    QByteArray m_heard;
  };

  // Below the toolkit, whose buffers would be counted as the server's. It reads nothing.
  class RawClient {
  public:
    explicit RawClient(quint16 port) : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
      sockaddr_in place{};
      place.sin_family = AF_INET;
      place.sin_port = htons(port);
      place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
      ::connect(m_socket, reinterpret_cast<const sockaddr *>(&place), sizeof place);
    }
    ~RawClient() { ::close(m_socket); }
    // How much went; 0 while there is no room, -1 when the connection is gone.
    qint64 Send(const QByteArray &piece) const {
      const ssize_t went = ::send(m_socket, piece.constData(), static_cast<size_t>(piece.size()), MSG_NOSIGNAL);
      return went >= 0 ? went : errno == EAGAIN || errno == EINPROGRESS || errno == ENOTCONN ? 0 : -1;
    }

  private:
    int m_socket;
  };

  static qint64 MemoryKiB() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
      return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
      if (line.startsWith("RssAnon:"))
        return line.simplified().split(' ').value(1).toLongLong();
    return 0;
  }

  // Someone else's turn on the interface thread, and the longest wait for it.
  struct Frames {
    Frames() {
      since.start();
      QObject::connect(&timer, &QTimer::timeout, [this] { longest = std::max(longest, since.restart()); });
      timer.start(0);
    }
    QTimer timer;
    QElapsedTimer since;
    qint64 longest = 0;
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void oneConnectionCarriesManyPolls() {
    CaptionHall hall;
    QTRY_VERIFY(hall.server.Ligado());
    hall.legenda.TextoLegenda = QStringLiteral("<p>a</p>");
    Client client(hall.port);
    for (int poll = 0; poll < 3; ++poll) {
      client.write("GET /getlegenda HTTP/1.1\r\n\r\n");
      QVERIFY(client.Gets("</p>"));
      QCOMPARE(client.Heard(), QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/plain; charset=iso-8859-1\r\n"
                                          "Content-Length: 8\r\n\r\n<p>a</p>"));
    }
    client.write("GET /other");
    QVERIFY(client.Gets("HTTP/1.1 404 Not Found\r\n\r\n"));
    QTest::qWait(1200); // over a tick of the watchdog
    QCOMPARE(client.state(), QAbstractSocket::ConnectedState);
    QVERIFY(hall.server.TemCliente());
  }

  void thePageIsDeliveredAndTheConnectionClosed() {
    CaptionHall hall;
    WriteBytes(hall.folder.filePath(QStringLiteral("html/legenda.html")), QByteArray(8 * 1024 * 1024, 'p') + "[end]");
    Client client(hall.port);
    client.write("GET /captions HTTP/1.1\r\n\r\n");
    QVERIFY(client.Gets("p[end]"));
    QTRY_COMPARE(client.state(), QAbstractSocket::UnconnectedState);
    QTRY_VERIFY(hall.server.Ligado());
  }

  void theSecondClientClosesTheFirst() {
    CaptionHall hall;
    Client first(hall.port);
    first.write("GET /getlegenda");
    QVERIFY(first.Gets("\r\n\r\n"));
    Client second(hall.port);
    QTRY_COMPARE(first.state(), QAbstractSocket::UnconnectedState);
    second.write("GET /getlegenda");
    QVERIFY(second.Gets("\r\n\r\n"));
    second.disconnectFromHost();
    QTRY_COMPARE(hall.socket.State(), int(Winsock::Fechando));
    QTRY_COMPARE(hall.socket.State(), int(Winsock::Ouvindo));
  }

  void aPortInUseIsTakenWhenItIsFree() {
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::Any));
    CaptionHall hall;
    hall.server.Desliga();
    QString error;
    hall.server.Liga(QString::number(other.serverPort()), error);
    QVERIFY(!hall.server.Ligado());
    other.close();
    QTRY_VERIFY(hall.server.Ligado());
  }

  void nothingElseIsReadable_data() {
    QTest::addColumn<QByteArray>("path");
    for (const char *path :
         {"/", "/html/legenda.html", "/../Data/Config.dat", "/%2e%2e/Data/Config.dat", "//etc/passwd", "/Getlegenda",
          "/favicon.ico", "/captions/../Data/Config.dat", "/legenda.html?file=/etc/passwd"})
      QTest::newRow(path) << QByteArray(path);
  }
  void nothingElseIsReadable() {
    QFETCH(QByteArray, path);
    CaptionHall hall;
    WriteBytes(hall.folder.filePath(QStringLiteral("html/legenda.html")), "<page>");
    Client client(hall.port);
    client.write("GET " + path + " HTTP/1.1\r\nHost: x\r\n\r\n");
    const bool page = path.startsWith("/captions") || path.startsWith("/legenda");
    QVERIFY(client.Gets(page ? "\r\n\r\n<page>" : "\r\n\r\n"));
    QCOMPARE(client.Heard().startsWith("HTTP/1.1 404"), !page);
  }

  void hostileClients_data() {
    QTest::addColumn<QString>("habit");
    for (const char *habit : {"silent", "slow", "flood", "deaf", "crowd"})
      QTest::newRow(habit) << QString::fromLatin1(habit);
  }
  // None of them halts the thread for long, on whatever machine, or makes the program grow, and a poll that comes
  // afterwards is answered.
  void hostileClients() {
    QFETCH(QString, habit);
    CaptionHall hall;
    hall.legenda.TextoLegenda = QString(50000, u'x');
    Client usual(hall.port); // what the first client takes for good is not theirs
    usual.write("GET /getlegenda");
    QVERIFY(usual.Gets("xx"));
    QTest::qWait(1100); // and what the watchdog's first round does
    usual.Heard();
    const QByteArray megabyte(1024 * 1024, 'x');
    const qint64 before = MemoryKiB();
    Frames frames;
    RawClient client(hall.port);
    if (habit == u"silent") {
      QTest::qWait(1500);
    } else if (habit == u"slow") {
      for (int n = 0; n < 20; ++n) {
        client.Send("G");
        QTest::qWait(50);
      }
    } else if (habit == u"flood") {
      qint64 sent = 0;
      for (qint64 now = 0; now >= 0 && sent < 100 * megabyte.size(); sent += now) {
        now = client.Send(megabyte);
        QTest::qWait(1);
      }
      QVERIFY(sent < 100 * megabyte.size());
    } else if (habit == u"deaf") {
      QVERIFY(QTest::qWaitFor([&] { return client.Send("GET /getlegenda") < 0; }, 30000)); // it is dropped
    } else {
      std::vector<std::unique_ptr<RawClient>> crowd;
      for (int n = 0; n < 500; ++n) {
        crowd.push_back(std::make_unique<RawClient>(hall.port));
        if (n % 25 == 0) // as many as wait in the line at once
          QTest::qWait(1);
      }
      QTest::qWait(500);
    }
    const qint64 grown = MemoryKiB() - before;
    qInfo("%s: %lld KiB, longest wait %lld ms", qPrintable(habit), grown, frames.longest);
    frames.timer.stop();
    Client next(hall.port);
    next.write("GET /getlegenda");
    QVERIFY(next.Gets("xx", 10000));
    QVERIFY2(grown < 1024, qPrintable(QString::number(grown)));
    QVERIFY2(frames.longest < 2000, qPrintable(QString::number(frames.longest)));
  }
};

QTEST_GUILESS_MAIN(TestCaptionSockets)
#include "test_caption_sockets.moc"
