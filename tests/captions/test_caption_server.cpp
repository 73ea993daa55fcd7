#include "captions/caption_server.h"
#include "captions/caption_settings.h"
#include "support/fake_clock.h"
#include "support/fake_winsock.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// What the server answers, byte for byte, and what its watchdog does, over a socket in the test's hand.
class TestCaptionServer : public QObject {
  Q_OBJECT

  struct Hall {
    Hall() {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      QDir(folder.path()).mkdir(QStringLiteral("html"));
      WriteBytes(folder.filePath(QStringLiteral("html/legenda.html")), "<a href='[caminho]'>[apppath] \xE1</a>\r\n");
      server.Mudou = [this] { ++told; };
    }
    void Settings(const QByteArray &keys) {
      WriteBytes(folder.filePath(QStringLiteral("Data/Config.dat")), "[Legendas]\r\n" + keys);
      CarregaLegendas(store, legenda);
    }

    QTemporaryDir folder;
    AppFolder app{folder.path()};
    IniStore store{app};
    FakeClock clock;
    FakeWinsock socket;
    EstadoLegenda legenda;
    TabelaDeEnderecos table{0, {0x7f000001, 0xc0a80105}}; // 127.0.0.1, 192.168.1.5
    int told = 0;
    CaptionServer server{legenda, store, socket, clock, [this] { return table; }};
  };

  inline static const QByteArray PageHead = "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=iso-8859-1\r\n\r\n";
  static QByteArray Caption(int length, const QByteArray &body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/plain; charset=iso-8859-1\r\nContent-Length: " +
           QByteArray::number(length) + "\r\n\r\n" + body;
  }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void answers_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("answer"); // "page", "caption" or "404"
    QTest::addColumn<QString>("remembered");
    const auto row = [](const char *name, const QByteArray &request, const char *answer, const char *remembered) {
      QTest::newRow(name) << request << QString::fromLatin1(answer) << QString::fromLatin1(remembered);
    };
    row("caption", "GET /getlegenda HTTP/1.1\r\n\r\n", "caption", "Update");
    row("page", "GET /captions HTTP/1.1\r\n\r\n", "page", "Load");
    row("page, by its older name", "GET /legenda HTTP/1.1\r\n\r\n", "page", "Load");
    row("a longer path", "GET /legendas", "page", "Load");
    row("anywhere in the headers", "POST / HTTP/1.1\r\nReferer: GET /captions\r\n\r\n", "page", "Load");
    row("the caption wins", "GET /legenda\r\nGET /captions\r\nGET /getlegenda", "caption", "Update");
    row("a file", "GET /Data/Config.dat HTTP/1.1\r\n\r\n", "404", "");
    row("out of the folder", "GET /captions/../../etc/passwd HTTP/1.1\r\n\r\n", "page", "Load");
    row("another case", "get /CAPTIONS HTTP/1.1\r\n\r\n", "404", "");
    row("another method", "HEAD /captions HTTP/1.1\r\n\r\n", "404", "");
    row("noise", QByteArray(70000, '\0'), "404", "");
  }
  void answers() {
    QFETCH(QByteArray, request);
    QFETCH(QString, answer);
    Hall hall;
    hall.server.StartServer();
    hall.socket.Connect(1);
    hall.legenda.TextoLegenda = QStringLiteral("<p>á</p>");
    const QByteArray expected = answer == u"page" ? PageHead + "<a href='http://192.168.1.5:4747'>" +
                                                        hall.folder.path().toLatin1() + " \xE1</a>\r\n"
                                : answer == u"caption" ? Caption(8, "<p>\xE1</p>")
                                                       : QByteArray("HTTP/1.1 404 Not Found\r\n\r\n");
    QCOMPARE(hall.socket.Ask(request), expected);
    QTEST(hall.legenda.UltimoPedido, "remembered");
    QCOMPARE(hall.socket.state, int(Winsock::Conectado)); // and the connection stays
  }

  void lengths_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("nothing") << QString() << Caption(0, "");
    QTest::newRow("quotation marks") << QStringLiteral("say \"so\"") << Caption(8, "say so");
    QTest::newRow("beyond the code page") << QString(QChar(0x5e9)) << Caption(7, "&#1513;");
    QTest::newRow("of it alone") << QStringLiteral("“a”")
                                 << Caption(3, "\x93"
                                               "a\x94");
  }
  void lengths() {
    QFETCH(QString, caption);
    Hall hall;
    hall.socket.Connect(1);
    hall.legenda.TextoLegenda = caption;
    QTEST(hall.socket.Ask("GET /getlegenda"), "answer");
  }

  void aMissingPageGivesTheHeadersAlone() {
    Hall hall;
    QVERIFY(QFile::remove(hall.folder.filePath(QStringLiteral("html/legenda.html"))));
    hall.socket.Connect(1);
    QCOMPARE(hall.socket.Ask("GET /captions"), PageHead);
  }

  void theNextClientTakesTheLastOnesPlace() {
    Hall hall;
    hall.server.StartServer();
    hall.socket.Connect(1);
    hall.socket.Connect(2);
    QCOMPARE(hall.socket.client, 2);
    QCOMPARE(hall.socket.closes, 3); // of the start, and before each client
  }

  void theWatchdog_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<bool>("stopped");
    QTest::addColumn<int>("after");
    const auto row = [](const char *name, int state, const char *last, const QByteArray &settings, bool stopped,
                        int after) {
      QTest::newRow(name) << state << QString::fromLatin1(last) << settings << stopped << after;
    };
    const QByteArray onStart = "startOnLoad=True\r\n";
    row("the client has gone", 8, "Update", "", false, 2);
    row("closed, by itself", 0, "", onStart, false, 2);
    row("closed, and nobody asked for it", 0, "", "", false, 0);
    row("closed by the operator", 0, "", onStart, true, 0);
    row("closed, without a port", 0, "", onStart + "porta=0\r\n", false, 0);
    row("the page is delivered", 7, "Load", "", false, 2);
    row("a client polls", 7, "Update", "", false, 7);
    row("listening", 2, "Load", "", false, 2);
  }
  void theWatchdog() {
    QFETCH(int, state);
    QFETCH(QString, last);
    QFETCH(bool, stopped);
    QFETCH(QByteArray, settings);
    Hall hall;
    hall.Settings(settings);
    hall.socket.portIsTaken = true;
    hall.server.Inicia();
    hall.socket.portIsTaken = false;
    hall.socket.state = state;
    hall.legenda.UltimoPedido = last;
    hall.legenda.Parado = stopped;
    hall.clock.Advance(999);
    QCOMPARE(hall.socket.state, state);
    hall.told = 0;
    hall.clock.Advance(1);
    QTEST(hall.socket.state, "after");
    QCOMPARE(hall.told, 1);
  }

  void aTakenPortIsTriedAgain() {
    Hall hall;
    hall.Settings("startOnLoad=True\r\nporta=50123\r\n");
    hall.socket.portIsTaken = true;
    hall.server.Inicia();
    hall.clock.Advance(5000);
    QVERIFY(!hall.server.Ligado());
    hall.socket.portIsTaken = false;
    hall.clock.Advance(1000);
    QVERIFY(hall.server.Ligado());
    QCOMPARE(hall.socket.port, quint16(50123));
  }

  void theOperatorStartsAndStops_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("port"); // 0: refused
    QTest::newRow("a low one") << QStringLiteral("80") << 80;
    QTest::newRow("a high one") << QStringLiteral("65535") << 65535;
    QTest::newRow("zero") << QStringLiteral("0") << 0;
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("no number") << QStringLiteral("port") << 0;
  }
  void theOperatorStartsAndStops() {
    QFETCH(QString, typed);
    QFETCH(int, port);
    Hall hall;
    hall.Settings("startOnLoad=True\r\n");
    hall.legenda.Parado = true;
    QString error;
    QCOMPARE(hall.server.Liga(typed, error), port != 0);
    QCOMPARE(hall.server.Ligado(), port != 0);
    if (port == 0)
      return;
    QCOMPARE(hall.legenda.Url, QStringLiteral("http://192.168.1.5:%1/captions").arg(port));
    QCOMPARE(hall.store.ReadConfig(QStringLiteral("Legendas"), QStringLiteral("porta"), {}), QString::number(port));
    hall.socket.state = Winsock::Fechando; // until the watchdog has seen it
    QVERIFY(hall.server.EmServico() && !hall.server.Ligado());
    hall.server.Desliga();
    hall.clock.Advance(5000);
    QVERIFY(!hall.server.Ligado() && hall.legenda.Parado);
  }

  void theAddressToShow_data() {
    QTest::addColumn<QList<quint32>>("addresses");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << QList<quint32>{} << QString();
    QTest::newRow("no such one") << QList<quint32>{0x0a000001, 0x7f000001} << QString();
    QTest::newRow("the last") << QList<quint32>{0x7f000001, 0xc0000201, 0xc0a80105, 0xc1000001}
                              << QStringLiteral("192.168.1.5");
  }
  void theAddressToShow() {
    QFETCH(QList<quint32>, addresses);
    QFETCH(QString, shown);
    Hall hall;
    hall.table.enderecos = addresses;
    QCOMPARE(hall.server.StartServer(), QString());
    QCOMPARE(hall.legenda.Url, QString(u"http://" + shown + u":4747/captions"));
  }

  void aFailingTableIsTold() {
    Hall hall;
    hall.table = {122, {}};
    QTest::ignoreMessage(QtWarningMsg, "GetIpAddrTable failed with return value 122.");
    QCOMPARE(hall.server.StartServer(), QStringLiteral("GetIpAddrTable failed with return value 122."));
    QVERIFY(hall.server.Ligado()); // it listens all the same
  }

  void whoAsksForNothingIsDropped() {
    Hall hall;
    hall.server.StartServer();
    hall.socket.Connect(1);
    for (int piece = 0; piece < 20 && hall.socket.client == 1; ++piece)
      hall.socket.Ask(QByteArray(65536, 'x'));
    QCOMPARE(hall.socket.client, 0);
    QCOMPARE(hall.socket.state, int(Winsock::Ouvindo));
    hall.socket.Connect(2); // whose count is its own
    hall.socket.Ask(QByteArray(65536, 'x'));
    QCOMPARE(hall.socket.client, 2);
  }
};

QTEST_GUILESS_MAIN(TestCaptionServer)
#include "test_caption_server.moc"
