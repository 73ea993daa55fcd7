#include "support/files.h"
#include "support/site_server.h"
#include "web/environment_proxy.h"
#include "web/page_body.h"
#include "web/real_web_client.h"
#include "web/redirects.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <utility>
#include <zlib.h>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

constexpr int Impaciente = 300; // ms, with what never answers

QByteArray Gzip(const QByteArray &block, int times) {
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
  QByteArray result;
  QByteArray out(1 << 16, Qt::Uninitialized);
  for (int i = 0; i < times; ++i) {
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(block.constData()));
    stream.avail_in = static_cast<uInt>(block.size());
    do {
      stream.next_out = reinterpret_cast<Bytef *>(out.data());
      stream.avail_out = static_cast<uInt>(out.size());
      deflate(&stream, i + 1 == times ? Z_FINISH : Z_NO_FLUSH);
      result.append(out.constData(), out.size() - stream.avail_out);
    } while (stream.avail_out == 0);
  }
  deflateEnd(&stream);
  return result;
}

SiteAnswer Packed(const QByteArray &body) {
  SiteAnswer answer;
  answer.body = body;
  answer.headers.append(qMakePair(QByteArray("Content-Encoding"), QByteArray("gzip")));
  return answer;
}

// In KiB: the highest since the mark was put down, and now.
qint64 Memory(const char *what) {
  for (const QByteArray &line : ReadBytes(QStringLiteral("/proc/self/status")).split('\n'))
    if (line.startsWith(what))
      return line.simplified().split(' ').value(1).toLongLong();
  return -1;
}

// How much memory the process has taken at most since this was made; nothing where the system does not tell.
class HighMark {
public:
  HighMark() {
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    m_told = file.open(QIODevice::WriteOnly) && file.write("5") == 1;
    file.close();
    m_before = Memory("VmRSS");
  }
  qint64 Growth() const { return m_told ? Memory("VmHWM") - m_before : 0; } // KiB

private:
  bool m_told = false;
  qint64 m_before = 0;
};

struct Net {
  explicit Net(int limiteMs = LimiteDeTempoMs) : client(limiteMs) {}

  QString Page(int method, const QUrl &url) {
    QString result = QStringLiteral("(none)");
    bool told = false;
    const auto task = client.FetchBy(method, url, [&](const QString &page) {
      result = page;
      told = true;
    });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(told, 20000); }();
    return result;
  }
  FimDoDownload File(const PedidoDeDownload &pedido) {
    FimDoDownload result;
    bool told = false;
    const auto task = client.Download(
        pedido,
        [this](qint64 got, qint64 whole) {
          came = {got, whole};
        },
        [&](const FimDoDownload &fim) {
          result = fim;
          told = true;
        });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(told, 20000); }();
    return result;
  }

  SiteServer site;
  RealWebClient client;
  QPair<qint64, qint64> came;
};

const QByteArray Luz = "<p>luz</p>";

} // namespace

class TestWebClient : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { // the machine's own proxy is none of the tests'
    for (const char *name :
         {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"})
      qunsetenv(name);
  }
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void everyMethodReadsAPage() {
    Net net;
    net.site.Page("/p", Luz);
    net.site.On("/packed", [](const SiteRequest &) { return Packed(Gzip(Luz, 1)); });
    QSet<QByteArray> agents;
    for (int method = 1; method <= MetodosDeBusca; ++method) {
      QCOMPARE(net.Page(method, net.site.Url("/p?a=1&b=%20x+y")), QString::fromLatin1(Luz));
      QCOMPARE(net.site.asked.last().method, "GET");
      QCOMPARE(net.site.asked.last().target, "/p?a=1&b=%20x+y");
      const QByteArray agent = net.site.asked.last().headers.value("user-agent");
      const bool one = method == 2 || method == 4 || method == 6 || method == 9 || method == 10;
      const bool two = method == 3 || method == 5 || method == 7 || method == 11;
      if (one)
        QCOMPARE(agent, "Mozilla/5.0 (compatible; MSIE 11.0; Windows NT 10.0)");
      if (two)
        QCOMPARE(agent, "Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 (KHTML, like Gecko) "
                        "Chrome/91.0.4472.124 Safari/537.36 Edg/91.0.864.59");
      agents.insert(agent);
      QCOMPARE(net.Page(method, net.site.Url("/packed")), QString::fromLatin1(Luz));
    }
    QCOMPARE(agents.size(), 4); // the two, the system's own and that of the downloads
  }

  void charactersComeAsTheyWereMeant_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");
    const QString acao = QStringLiteral("ação – “luz”");
    const QByteArray latin = "a\xe7\xe3o \x96 \x93luz\x94";
    QTest::newRow("the header says UTF-8") << QByteArray("text/html; charset=UTF-8") << acao.toUtf8() << acao;
    QTest::newRow("the header, in quotes") << QByteArray("text/html;charset=\"utf-8\"") << acao.toUtf8() << acao;
    QTest::newRow("Latin-1 is windows-1252") << QByteArray("text/html; charset=ISO-8859-1") << latin << acao;
    QTest::newRow("the header goes before the tag")
        << QByteArray("text/html; charset=windows-1252") << QByteArray("<meta charset=utf-8>") + latin
        << QString(u"<meta charset=utf-8>" + acao);
    QTest::newRow("Polish") << QByteArray("text/html; charset=iso-8859-2") << QByteArray("\xb6wiat")
                            << QStringLiteral("świat");
    QTest::newRow("Japanese") << QByteArray("text/html; charset=shift_jis") << QByteArray("\x8c\xf5")
                              << QStringLiteral("光");
    QTest::newRow("a meta tag") << QByteArray("text/html") << QByteArray("<meta charset='iso-8859-2'>\xb6")
                                << QStringLiteral("<meta charset='iso-8859-2'>ś");
    QTest::newRow("the older meta tag")
        << QByteArray("text/html")
        << QByteArray("<META http-equiv=\"Content-Type\" content=\"text/html; charset=koi8-r\">\xc1")
        << QStringLiteral("<META http-equiv=\"Content-Type\" content=\"text/html; charset=koi8-r\">а");
    QTest::newRow("nothing said, UTF-8") << QByteArray("text/html") << acao.toUtf8() << acao;
    QTest::newRow("nothing said, windows-1252") << QByteArray() << latin << acao;
    QTest::newRow("unknown") << QByteArray("text/html; charset=klingon") << acao.toUtf8() << acao;
    QTest::newRow("a mark at the beginning")
        << QByteArray("text/html; charset=iso-8859-1") << QByteArray("\xef\xbb\xbf\xc3\xa7") << QStringLiteral("ç");
    QTest::newRow("a last letter of windows-1252") << QByteArray() << QByteArray("luz \xe7") << QStringLiteral("luz ç");
    QTest::newRow("two bytes a letter") << QByteArray("text/html; charset=utf-16le") << QByteArray("l\0u\0z\0", 6)
                                        << QStringLiteral("luz");
    QTest::newRow("a set that would grow")
        << QByteArray("text/html; charset=scsu") << QByteArray("luz") << QStringLiteral("luz");
    QTest::newRow("a picture") << QByteArray("image/png") << QByteArray("luz") << QString();
  }
  void charactersComeAsTheyWereMeant() {
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, body);
    QFETCH(QString, text);
    PageBody page;
    for (const char byte : body)
      QVERIFY(page.Recebe(&byte, 1));
    QCOMPARE(page.Texto(type, false), text);
  }

  void lettersMayStandAcrossThePieces() {
    PageBody page;
    const QByteArray acao = QStringLiteral("ção").toUtf8();
    const QByteArray bytes = "x" + acao.repeated(500'000);
    QVERIFY(page.Recebe(bytes.constData(), static_cast<size_t>(bytes.size())));
    QCOMPARE(page.Texto("text/html; charset=utf-8", false), QString(u'x' + QStringLiteral("ção").repeated(500'000)));
  }

  void packedInPartsIsOnePage() {
    PageBody page;
    const QByteArray bytes = Gzip("luz ", 1) + Gzip("acesa", 1);
    QVERIFY(page.Recebe(bytes.constData(), static_cast<size_t>(bytes.size())));
    QVERIFY(page.Desembrulha("gzip"));
    QCOMPARE(page.Texto({}, false), QStringLiteral("luz acesa"));
    QVERIFY(page.Recebe(bytes.constData(), static_cast<size_t>(bytes.size() - 3)));
    QVERIFY(!page.Desembrulha("gzip"));
    QCOMPARE(page.Texto({}, false), QString());
  }

  void rawMethodsLeaveTheDeclaredSetAlone() {
    Net net;
    net.site.Page("/p", "\xb6", "text/html; charset=iso-8859-2");
    for (int method = 1; method <= MetodosDeBusca; ++method)
      QCOMPARE(net.Page(method, net.site.Url("/p")),
               method == 6 || method == 7 ? QStringLiteral("¶") : QStringLiteral("ś"));
  }

  void brokenAnswersGiveNothing_data() {
    QTest::addColumn<SiteAnswer>("answer");
    const auto with = [](SiteAnswer::Ending ending, const QByteArray &body) {
      SiteAnswer answer;
      answer.body = body;
      answer.ending = ending;
      return answer;
    };
    QTest::newRow("not there") << SiteAnswer::Status(404);
    QTest::newRow("refused") << SiteAnswer::Status(403);
    QTest::newRow("server error") << SiteAnswer::Status(500);
    QTest::newRow("nothing new") << SiteAnswer::Status(204);
    QTest::newRow("cut short") << with(SiteAnswer::Ending::CutShort, Luz);
    QTest::newRow("endless") << with(SiteAnswer::Ending::Endless, QByteArray(100'000, 'x'));
    QTest::newRow("a drop now and then") << with(SiteAnswer::Ending::Drip, QByteArray(400, 'x'));
    QTest::newRow("silent") << with(SiteAnswer::Ending::Silent, {});
    QTest::newRow("a bomb") << Packed(Gzip(QByteArray(1 << 20, ' '), 300));
    QTest::newRow("not packed at all") << Packed(Luz);
    QTest::newRow("to a file") << SiteAnswer::Redirect("file:///etc/hostname");
    QTest::newRow("to nowhere") << SiteAnswer::Redirect("");
    SiteAnswer elsewhere = with(SiteAnswer::Ending::Endless, QByteArray(100'000, 'x'));
    elsewhere.status = 404;
    QTest::newRow("endlessly not there") << elsewhere;
  }
  void brokenAnswersGiveNothing() {
    QFETCH(SiteAnswer, answer);
    using Ending = SiteAnswer::Ending;
    Net net(answer.ending == Ending::Drip || answer.ending == Ending::Silent ? Impaciente : LimiteDeTempoMs);
    net.site.On("/p", [&](const SiteRequest &) { return answer; });
    const HighMark mark;
    for (const int method : {2, 4, 9})
      QCOMPARE(net.Page(method, net.site.Url("/p")), QString());
    QVERIFY2(mark.Growth() < 64 * 1024, qPrintable(QString::number(mark.Growth())));
  }

  // The page itself has come by then, so that it may count; what follows must not.
  void linesWithoutEndBehindThePageAreNotKept() {
    Net net;
    net.site.On("/p", [](const SiteRequest &) {
      SiteAnswer answer;
      answer.body = "X-A: b\r\n";
      answer.ending = SiteAnswer::Ending::Trailers;
      return answer;
    });
    const HighMark mark;
    for (const int method : {2, 4, 9})
      QVERIFY(QStringLiteral("luz").startsWith(net.Page(method, net.site.Url("/p"))));
    QVERIFY2(mark.Growth() < 64 * 1024, qPrintable(QString::number(mark.Growth())));
  }

  void theLargestPageFitsIntoTheMemoryMeantForIt() {
    Net net;
    net.site.On("/p", [](const SiteRequest &) {
      SiteAnswer answer;
      answer.body = QByteArray(100'000, 'x');
      answer.times = LimiteDePagina / 100'000;
      return answer;
    });
    for (const int method : {2, 4}) {
      const HighMark mark;
      QCOMPARE(net.Page(method, net.site.Url("/p")).size(), LimiteDePagina);
      QVERIFY2(mark.Growth() < 68 * 1024, qPrintable(QString::number(mark.Growth()))); // the server's share is in it
    }
  }

  void redirectionsAreFollowedTenTimes_data() {
    QTest::addColumn<int>("times");
    QTest::addColumn<bool>("arrives");
    QTest::newRow("one") << 1 << true;
    QTest::newRow("ten") << 10 << true;
    QTest::newRow("eleven") << 11 << false;
  }
  void redirectionsAreFollowedTenTimes() {
    QFETCH(int, times);
    QFETCH(bool, arrives);
    Net net;
    net.site.On("/hop", [](const SiteRequest &request) {
      const int left = request.target.split('=').value(1).toInt();
      if (left == 0) {
        SiteAnswer answer;
        answer.body = Luz;
        return answer;
      }
      SiteAnswer on = SiteAnswer::Redirect("hop?left=" + QByteArray::number(left - 1));
      on.body = QByteArray(100'000, 'x');
      on.ending = left % 2 ? SiteAnswer::Ending::Endless : SiteAnswer::Ending::Whole;
      return on;
    });
    for (const int method : {1, 4, 8})
      QCOMPARE(net.Page(method, net.site.Url("/hop?left=" + QByteArray::number(times))),
               arrives ? QString::fromLatin1(Luz) : QString());
  }

  void whereARedirectionMayLead_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<bool>("follows");
    QTest::newRow("to https") << QStringLiteral("http://a.example/") << QByteArray("https://b.example/") << true;
    QTest::newRow("beside it") << QStringLiteral("https://a.example/x/y") << QByteArray("../z") << true;
    QTest::newRow("of the same kind") << QStringLiteral("https://a.example/") << QByteArray("//b.example/") << true;
    QTest::newRow("away from https") << QStringLiteral("https://a.example/") << QByteArray("http://a.example/")
                                     << false;
    QTest::newRow("to a file") << QStringLiteral("http://a.example/") << QByteArray("file:///etc/passwd") << false;
    QTest::newRow("to data") << QStringLiteral("http://a.example/") << QByteArray("data:text/html,x") << false;
    QTest::newRow("with a password") << QStringLiteral("http://a.example/") << QByteArray("http://u:p@a.example/")
                                     << false;
    QTest::newRow("nowhere") << QStringLiteral("http://a.example/") << QByteArray() << false;
    for (const char *inside : {"http://127.0.0.1/", "http://10.1.2.3/", "http://192.168.1.1/", "http://172.31.0.1/",
                               "http://0x7f.1/", "http://2130706433/", "http://[::1]/", "http://[::ffff:10.0.0.1]/",
                               "http://[fd00::1]/", "http://localhost/", "http://router/", "http://nas.local./"})
      QTest::newRow(inside) << QStringLiteral("http://a.example/") << QByteArray(inside) << false;
    for (const char *outside :
         {"http://172.32.0.1/", "http://8.8.8.8/", "http://[2001:db8::1]/", "http://local.example/"})
      QTest::newRow(outside) << QStringLiteral("http://a.example/") << QByteArray(outside) << true;
    QTest::newRow("from inside to inside")
        << QStringLiteral("http://127.0.0.1:81/") << QByteArray("http://10.0.0.1/") << true;
  }
  void whereARedirectionMayLead() {
    QFETCH(QString, from);
    QFETCH(QByteArray, to);
    QFETCH(bool, follows);
    Redirects way{QUrl(from)};
    QCOMPARE(way.Segue(to), follows);
    QCOMPARE(way.PorHttps(), from.startsWith(u"https"));
  }

  void whatIsDroppedEndsAtOnce() {
    Net net(Impaciente); // so that what went on would have told by the end
    net.site.On("/p", [](const SiteRequest &) {
      SiteAnswer answer;
      answer.ending = SiteAnswer::Ending::Silent;
      return answer;
    });
    QTemporaryDir folder;
    const PedidoDeDownload pedido{net.site.Url("/p"), folder.filePath(QStringLiteral("f")), 100, false};
    bool told = false;
    for (int method = 0; method <= MetodosDeBusca; ++method) {
      const qsizetype before = net.site.asked.size();
      auto task = method == 0 ? net.client.Download(pedido, {}, [&](const FimDoDownload &) { told = true; })
                              : net.client.FetchBy(method, net.site.Url("/p"), [&](const QString &) { told = true; });
      QTRY_COMPARE(net.site.asked.size(), before + 1);
      task.reset();
      QTRY_VERIFY2(net.site.Open() == 0, qPrintable(QString::number(method)));
    }
    QTest::qWait(4 * Impaciente);
    QVERIFY(!told);
  }

  void aTaskMayBeDroppedInItsOwnReport() {
    Net net;
    net.site.Page("/p", Luz);
    for (const char *target : {"/p", "/missing"})
      for (const int method : {2, 4}) {
        bool told = false;
        std::unique_ptr<WebTask> task;
        task = net.client.FetchBy(method, net.site.Url(target), [&](const QString &) {
          task.reset();
          told = true;
        });
        QTRY_VERIFY(told);
      }
  }

  void whoAsksForWhatIsNotOfTheWebGetsNothing() {
    Net net;
    for (const int method : {1, 4})
      for (const char *url : {"file:///etc/hostname", "ftp://127.0.0.1/", "data:text/html,luz", "", "http://"})
        QCOMPARE(net.Page(method, QUrl(QString::fromLatin1(url))), QString());
  }

  void theEnvironmentNamesTheProxy_data() {
    QTest::addColumn<QString>("variables");
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("proxy");
    const QString http = QStringLiteral("http://a.example/"), https = QStringLiteral("https://a.example/");
    QTest::newRow("none") << QString() << http << QString();
    QTest::newRow("http") << QStringLiteral("http_proxy=p:3128") << http << QStringLiteral("http://p:3128");
    QTest::newRow("without a port") << QStringLiteral("http_proxy=p") << http << QStringLiteral("http://p:1080");
    QTest::newRow("of a kind that is not spoken") << QStringLiteral("all_proxy=socks4://p:1") << http << QString();
    QTest::newRow("not for https") << QStringLiteral("http_proxy=p:3128") << https << QString();
    QTest::newRow("https") << QStringLiteral("HTTPS_PROXY=http://p:1") << https << QStringLiteral("http://p:1");
    QTest::newRow("all") << QStringLiteral("all_proxy=socks5://p:1") << https << QStringLiteral("socks5://p:1");
    QTest::newRow("capitals of http") << QStringLiteral("HTTP_PROXY=p:1") << http << QString();
    QTest::newRow("left out") << QStringLiteral("http_proxy=p:1 no_proxy=b.example,*.example:80") << http << QString();
    QTest::newRow("another left out") << QStringLiteral("http_proxy=p:1 no_proxy=xa.example") << http
                                      << QStringLiteral("http://p:1");
    QTest::newRow("everything left out") << QStringLiteral("http_proxy=p:1 no_proxy=*") << http << QString();
    QTest::newRow("this machine") << QStringLiteral("http_proxy=p:1") << QStringLiteral("http://127.0.0.1:80/")
                                  << QString();
  }
  void theEnvironmentNamesTheProxy() {
    QFETCH(QString, variables);
    QFETCH(QString, url);
    QFETCH(QString, proxy);
    const Variables set(variables);
    QCOMPARE(ProxyDoAmbiente(QUrl(url)).toString(), proxy);
  }

  void bothFamiliesGoThroughTheProxy() {
    Net net;
    net.site.Page("http://far.example/p", Luz); // as a proxy is asked
    const Variables set(u"http_proxy=" + net.site.Host());
    for (const int method : {1, 4})
      QCOMPARE(net.Page(method, QUrl(QStringLiteral("http://far.example/p"))), QString::fromLatin1(Luz));
  }

  void aFileTakesItsPlaceWhenItIsWhole_data() {
    QTest::addColumn<SiteAnswer>("answer");
    QTest::addColumn<bool>("whole");
    SiteAnswer good;
    good.body = QByteArray(300'000, 'v');
    QTest::newRow("whole") << good << true;
    SiteAnswer redirected = SiteAnswer::Redirect("/good");
    QTest::newRow("elsewhere") << redirected << true;
    SiteAnswer cut = good;
    cut.ending = SiteAnswer::Ending::CutShort;
    QTest::newRow("cut short") << cut << false;
    SiteAnswer endless = good;
    endless.ending = SiteAnswer::Ending::Endless;
    QTest::newRow("no end told") << endless << false;
    SiteAnswer large = good;
    large.body = QByteArray(1'000'001, 'v');
    QTest::newRow("too large") << large << false;
    QTest::newRow("not there") << SiteAnswer::Status(404) << false;
    SiteAnswer silent;
    silent.ending = SiteAnswer::Ending::Silent;
    QTest::newRow("silent") << silent << false;
    SiteAnswer part = good;
    part.status = 206;
    part.headers.append(qMakePair(QByteArray("Content-Range"), QByteArray("bytes 5-300004/300005")));
    QTest::newRow("a part that nobody asked for") << part << false;
    SiteAnswer packed = Packed(Gzip(QByteArray(300'000, 'v'), 1));
    QTest::newRow("packed") << packed << false;
  }
  void aFileTakesItsPlaceWhenItIsWhole() {
    QFETCH(SiteAnswer, answer);
    QFETCH(bool, whole);
    Net net(answer.ending == SiteAnswer::Ending::Silent ? Impaciente : LimiteDeTempoMs);
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("film.mp4"));
    WriteBytes(file, "old");
    net.site.Page("/good", QByteArray(300'000, 'v'));
    net.site.On("/file", [&](const SiteRequest &) { return answer; });
    const FimDoDownload fim = net.File({net.site.Url("/file"), file, 1'000'000, false});
    QCOMPARE(fim.inteiro, whole);
    QVERIFY(!fim.porHttps);
    if (whole)
      QCOMPARE(net.came, qMakePair(qint64(300'000), qint64(300'000)));
    QCOMPARE(ReadBytes(file), whole ? QByteArray(300'000, 'v') : QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("film.mp4")});
  }

  // What one leaves behind when it is stopped is not the part of the next.
  void aFileIsAskedForAgainAtOnce() {
    Net net;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("film.mp4"));
    SiteAnswer slow;
    slow.ending = SiteAnswer::Ending::Drip;
    slow.body = QByteArray(1000, 'a');
    net.site.On("/first", [&](const SiteRequest &) { return slow; });
    net.site.On("/second", [&](const SiteRequest &) {
      SiteAnswer answer = slow;
      answer.body = "second";
      return answer;
    });
    auto task = net.client.Download({net.site.Url("/first"), file, 1'000'000, false}, {}, [](const FimDoDownload &) {});
    QTRY_VERIFY(QFile::exists(file + u".part"));
    task.reset();
    QVERIFY(net.File({net.site.Url("/second"), file, 1'000'000, false}).inteiro);
    QCOMPARE(ReadBytes(file), QByteArray("second"));
  }

  void aStoppedFileGoesOn_data() {
    QTest::addColumn<QString>("server"); // how it answers the second time
    QTest::addColumn<bool>("rest");      // that answer alone makes the file whole
    QTest::newRow("the same file") << QStringLiteral("same") << true;
    QTest::newRow("another by now") << QStringLiteral("other") << true;
    QTest::newRow("another, and does not say so") << QStringLiteral("blind") << false;
    QTest::newRow("another place than asked for") << QStringLiteral("elsewhere") << false;
    QTest::newRow("there is no more") << QStringLiteral("416") << true;
    QTest::newRow("cannot do it") << QStringLiteral("refuses") << false;
  }
  void aStoppedFileGoesOn() {
    QFETCH(QString, server);
    QFETCH(bool, rest);
    Net net;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("film.mp4"));
    QByteArray film;
    for (int i = 0; i < 50'000; ++i)
      film += QByteArray::number(i) + ' ';
    const QByteArray other(400'000, 'z');
    const qsizetype part = server == u"416" ? film.size() : 100'000;
    bool first = true;
    net.site.On("/file", [&](const SiteRequest &request) {
      SiteAnswer answer;
      answer.body = film;
      QByteArray tag = "\"one\"";
      QByteArray place;
      if (std::exchange(first, false)) {
        answer.body = film.first(part);
        answer.ending = SiteAnswer::Ending::CutShort;
      } else if (!request.headers.contains("range")) {
        // the whole
      } else if (server == u"other") {
        answer.body = other;
        tag = "\"two\"";
      } else if (server == u"416" || server == u"refuses") {
        answer.status = 416;
        answer.body.clear();
        place = "bytes */" + QByteArray::number(server == u"416" ? film.size() : 7);
      } else {
        const qsizetype at = part + (server == u"elsewhere" ? 5 : 0);
        const QByteArray &now = server == u"blind" ? other : film;
        if (server == u"blind")
          tag = "\"two\"";
        answer.status = 206;
        answer.body = now.sliced(at);
        place = "bytes " + QByteArray::number(at) + '-' + QByteArray::number(now.size() - 1) + '/' +
                QByteArray::number(now.size());
      }
      if (!place.isEmpty())
        answer.headers.append(qMakePair(QByteArray("Content-Range"), place));
      answer.headers.append(qMakePair(QByteArray("ETag"), tag));
      return answer;
    });
    const PedidoDeDownload pedido{net.site.Url("/file"), file, 10'000'000, true};
    QVERIFY(!net.File(pedido).inteiro);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(QFileInfo(file + u".part").size(), part);
    QVERIFY(net.File(pedido).inteiro);
    QCOMPARE(net.site.asked.size(), rest ? 2 : 3); // else it is asked for from the beginning
    QCOMPARE(net.site.asked[1].headers.value("range"), "bytes=" + QByteArray::number(part) + '-');
    QCOMPARE(ReadBytes(file), server == u"other" ? other : film);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("film.mp4")});
  }

  // The one before may still hold the file.
  void stopAndGoOnAtOnce() {
    Net net;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("film.mp4"));
    constexpr qsizetype Whole = 5'000'000;
    net.site.On("/file", [](const SiteRequest &request) {
      SiteAnswer answer;
      answer.headers.append(qMakePair(QByteArray("ETag"), QByteArray("\"one\"")));
      const QByteArray range = request.headers.value("range");
      if (range.isEmpty()) {
        answer.body = QByteArray(10'000, 'v');
        answer.times = Whole / 10'000;
        return answer;
      }
      const qsizetype from = range.sliced(6).chopped(1).toLongLong();
      answer.status = 206;
      answer.body = QByteArray(Whole - from, 'v');
      const QByteArray place = "bytes " + QByteArray::number(from) + "-4999999/5000000";
      answer.headers.append(qMakePair(QByteArray("Content-Range"), place));
      return answer;
    });
    const PedidoDeDownload pedido{net.site.Url("/file"), file, 10'000'000, true};
    for (int i = 0; i < 20 && !QFile::exists(file); ++i) {
      const qsizetype before = net.site.asked.size();
      const auto task = net.client.Download(pedido, {}, [](const FimDoDownload &) {});
      QTRY_VERIFY(net.site.asked.size() > before || QFile::exists(file));
      QTest::qWait(1);
    }
    if (!QFile::exists(file))
      QVERIFY(net.File(pedido).inteiro);
    QCOMPARE(ReadBytes(file), QByteArray(Whole, 'v'));
  }

private:
  // Variables of the environment for as long as it lives: "name=value name=value".
  class Variables {
  public:
    explicit Variables(const QString &list) {
      for (const QString &one : list.split(u' ', Qt::SkipEmptyParts)) {
        const QByteArray name = one.section(u'=', 0, 0).toLatin1();
        m_names.append(name);
        qputenv(name.constData(), one.section(u'=', 1).toLatin1());
      }
    }
    ~Variables() {
      for (const QByteArray &name : m_names)
        qunsetenv(name.constData());
    }

  private:
    QByteArrayList m_names;
  };
};

QTEST_GUILESS_MAIN(TestWebClient)
#include "test_web_client.moc"
