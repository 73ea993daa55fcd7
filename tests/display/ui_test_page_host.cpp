#include "display/ui/web_page_host.h"
#include "support/web_fixture.h"

#include <QLineEdit>
#include <QSet>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QWheelEvent>
#include <algorithm>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

class Listener : public DisplayObserver {
public:
  void OnCommand(const QString &) override {}
  void OnScript(const QString &page, const QString &script) override { log.append(page + u" script " + script); }
  void OnNavigate(const QString &page, const QString &url) override { log.append(page + u" navigate " + url); }
  void OnMedia(const QString &) override {}
  QStringList log;
};

QString Page(const QString &colour, const QString &body = {}) {
  return QStringLiteral("<!DOCTYPE html><html><head><style>html,body{margin:0;height:100%;background:%1}</style></head>"
                        "<body><div id=t></div>%2<script>var log=[];function Add(x){log.push(x);"
                        "document.getElementById('t').innerHTML=log.join('')}</script></body></html>")
      .arg(colour, body);
}

QColor PixelAt(QWidget &widget, const QPoint &point) {
  return widget.grab().toImage().pixelColor(point);
}

} // namespace

class TestPageHost : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_folder;
  PageProfile m_profile;
  std::unique_ptr<WebPageHost> m_host;
  PageObject *m_page = nullptr;

  QString Write(const QString &name, const QString &text) {
    const QString path = m_folder->filePath(name);
    WriteText(path, text);
    return u"file:///" + path;
  }

private slots:
  void initTestCase() { m_profile = NewPageProfile(); }
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<WebPageHost>(QStringLiteral("display"), nullptr, m_profile);
    QVERIFY(m_host->WV() == nullptr);
    QVERIFY(m_host->CriaBrowser());
    m_page = m_host->WV();
    m_host->resize(320, 180);
    m_host->show();
  }
  void cleanup() {
    m_host.reset();
    m_folder.reset();
  }
  void cleanupTestCase() { m_profile.reset(); }

  void runsWhatArrivedWhileThePageLoadedInOrder() {
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff"))), 8);
    for (const QChar letter : QStringLiteral("abc"))
      m_page->ExecuteScript(QStringLiteral("Add('%1')").arg(letter));
    m_page->SetPageProperty(QStringLiteral("document.title"), QStringLiteral("it's \"so\"\\\n</script>é\u2028"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.join('')")), QStringLiteral("\"abc\""));
    QCOMPARE(Eval(m_page, QStringLiteral("document.title")),
             QStringLiteral("\"it's \\\"so\\\"\\\\ </script>é\u2028\""));
  }

  void scriptsDoNotWaitForSlowPictures() {
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    // The picture never arrives, so the page never finishes loading.
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QByteArray body =
        Page(QStringLiteral("#fff"), QStringLiteral("<img src='http://127.0.0.1:%1/x.png'>").arg(silent.serverPort()))
            .toUtf8();
    connect(&server, &QTcpServer::newConnection, this, [&] {
      QTcpSocket *socket = server.nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, socket, [socket, body] {
        socket->readAll();
        socket->write("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\nContent-Length: " +
                      QByteArray::number(body.size()) + "\r\n\r\n" + body);
        socket->disconnectFromHost();
      });
    });
    m_page->Navigate(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort()), 60);
    m_page->ExecuteScript(QStringLiteral("Add('x')"));
    QCOMPARE(Eval(m_page, QStringLiteral("[log.length, document.readyState]")), QStringLiteral("[1,\"interactive\"]"));
  }

  void startFunctionsOfThePageRunBeforeScripts() {
    m_page->Navigate(Write(QStringLiteral("a.html"),
                           Page(QStringLiteral("#fff"),
                                QStringLiteral("<script>document.addEventListener('DOMContentLoaded',()=>setTimeout("
                                               "()=>Add('library'),0))</script>"))),
                     8);
    m_page->ExecuteScript(QStringLiteral("Add(' host')"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.join('')")), QStringLiteral("\"library host\""));
  }

  void aNewerNavigateDropsWhatWaited() {
    const QString first = Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff")));
    const QString second = Write(QStringLiteral("b.html"), Page(QStringLiteral("#fff")));
    QString dropped;
    m_page->Navigate(first, 8);
    m_page->ExecuteScript(QStringLiteral("Add('old')"));
    m_page->Evaluate(QStringLiteral("1"), [&](const QString &json) { dropped = json; });
    m_page->Navigate(second, 8);
    QCOMPARE(dropped, QStringLiteral("null"));
    m_page->ExecuteScript(QStringLiteral("Add('new')"));
    QCOMPARE(Eval(m_page, QStringLiteral("[log.join(''), location.pathname.slice(-6)]")),
             QStringLiteral("[\"new\",\"b.html\"]"));
  }

  void theSamePageAgainIsANewPage() {
    const QString url = Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff")));
    for (int i = 0; i < 5; ++i) {
      m_page->Navigate(url, 8);
      m_page->ExecuteScript(QStringLiteral("Add('%1')").arg(i));
      if (i % 2 == 0) // leave the others in the middle of their load
        QCOMPARE(Eval(m_page, QStringLiteral("log.join('')")), QStringLiteral("\"%1\"").arg(i));
    }
  }

  void aPageThatNeverComesIsGivenUp() {
    const QString page = Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff")));
    m_page->Navigate(page, 8);
    Eval(m_page, QStringLiteral("1"));
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    QString dropped;
    m_page->Navigate(QStringLiteral("http://127.0.0.1:%1/").arg(silent.serverPort()), 1);
    m_page->ExecuteScript(QStringLiteral("Add('lost')"));
    m_page->Evaluate(QStringLiteral("2"), [&](const QString &json) { dropped = json; });
    QTRY_COMPARE(dropped, QStringLiteral("null"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.length")), QStringLiteral("0")); // the page before is still there
    m_page->Navigate(page, 8);
    QCOMPARE(Eval(m_page, QStringLiteral("location.protocol")), QStringLiteral("\"file:\""));
  }

  void aMissingPageIsBlackAndHoldsNothingUp() {
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#ff0000"))), 8);
    QTRY_COMPARE(PixelAt(*m_host, {5, 5}), QColor(255, 0, 0));
    m_page->Navigate(m_folder->filePath(QStringLiteral("missing.html")), 60);
    m_page->ExecuteScript(QStringLiteral("Add('lost')"));
    QTRY_COMPARE(PixelAt(*m_host, {5, 5}), QColor(0, 0, 0));
    m_page->Navigate(u"file:///" + m_folder->filePath(QStringLiteral("a.html")), 8);
    QTRY_COMPARE(PixelAt(*m_host, {5, 5}), QColor(255, 0, 0));
  }

  void aPageCannotLeave_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("uri");
    QTest::newRow("location") << "location.href='http://image/?Foto 1.jpg'"
                              << "http://image/?Foto%201.jpg";
    QTest::newRow("link") << "document.getElementById('l').click()"
                          << "http://vaiacabar/?10000";
    QTest::newRow("form") << "document.getElementById('f').submit()"
                          << "http://form/?";
  }
  void aPageCannotLeave() {
    QFETCH(QString, script);
    QFETCH(QString, uri);
    QStringList asked;
    m_page->AoNavegar = [&](const QString &address, bool &cancel) {
      asked.append(address);
      cancel = true;
    };
    m_page->Navigate(Write(QStringLiteral("a.html"),
                           Page(QStringLiteral("#fff"), QStringLiteral("<a id=l href='http://vaiacabar/?10000'>x</a>"
                                                                       "<form id=f action='http://form/'></form>"))),
                     8);
    m_page->ExecuteScript(script);
    QTRY_COMPARE(asked, QStringList({uri}));
    m_page->ExecuteScript(QStringLiteral("Add('alive')"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.join('')")), QStringLiteral("\"alive\""));
  }

  void aReportWhileThePageLoadsLosesNothing() {
    QStringList asked;
    m_page->AoNavegar = [&](const QString &address, bool &) { asked.append(address); };
    const QString body = QStringLiteral("<script>location.href='http://image/?x';document.addEventListener("
                                        "'DOMContentLoaded',()=>location.href='http://image/?y')</script><p id=rest>");
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff"), body)), 8);
    m_page->ExecuteScript(QStringLiteral("Add('a')"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.join('') + !!document.getElementById('rest')")),
             QStringLiteral("\"atrue\""));
    QCOMPARE(asked, QStringList({QStringLiteral("http://image/?x"), QStringLiteral("http://image/?y")}));
    QTRY_COMPARE(Eval(m_page, QStringLiteral("document.readyState")), QStringLiteral("\"complete\""));
  }

  void followsAServerToAnotherAddress() {
    QStringList asked;
    m_page->AoNavegar = [&](const QString &address, bool &) { asked.append(address); };
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, this, [&] {
      QTcpSocket *socket = server.nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, socket, [socket] {
        socket->write(socket->readAll().startsWith("GET /old")
                          ? "HTTP/1.0 302 Found\r\nLocation: /new\r\n\r\n"
                          : "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\nhere");
        socket->disconnectFromHost();
      });
    });
    m_page->Navigate(QStringLiteral("http://127.0.0.1:%1/old").arg(server.serverPort()), 8);
    QCOMPARE(Eval(m_page, QStringLiteral("location.pathname")), QStringLiteral("\"/new\""));
    QVERIFY(asked.isEmpty());
  }

  void opensNoWindow() {
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff"))), 8);
    QCOMPARE(Eval(m_page, QStringLiteral("String(window.open('about:blank'))")), QStringLiteral("\"null\""));
  }

  void comesBackAfterItsProcessDied() {
    const QString url = Write(QStringLiteral("a.html"), Page(QStringLiteral("#00ff00")));
    int recovered = 0;
    m_host->OnRecovered = [&] {
      ++recovered;
      m_page->ExecuteScript(QStringLiteral("Add('again')"));
    };
    m_page->SetZoomFactor(1.5);
    m_page->Navigate(url, 8);
    QTRY_COMPARE(PixelAt(*m_host, {5, 100}), QColor(0, 255, 0));
    QCOMPARE(recovered, 0);
    const double ratio = Eval(m_page, QStringLiteral("devicePixelRatio")).toDouble();
    for (int round = 1; round <= 2; ++round) {
      QTRY_VERIFY(!RenderProcesses().isEmpty());
      QString unanswered;
      m_page->Evaluate(QStringLiteral("for(;;);"), [&](const QString &json) { unanswered = json; });
      KillRenderProcesses();
      QTRY_COMPARE_WITH_TIMEOUT(unanswered, QStringLiteral("null"), 20000);
      m_page->ExecuteScript(QStringLiteral("Add('between ')"));
      QTRY_COMPARE_WITH_TIMEOUT(recovered, round, 20000);
      QCOMPARE(Eval(m_page, QStringLiteral("log.join('')")), QStringLiteral("\"between again\""));
      QCOMPARE(Eval(m_page, QStringLiteral("devicePixelRatio")).toDouble(), ratio);
      QTRY_COMPARE(PixelAt(*m_host, {5, 100}), QColor(0, 255, 0));
    }
  }

  // A page that dies again and again is brought back after a pause, and the operator need not wait for its end.
  void aPageChosenBeforeTheDeadOneIsBackComesAtOnce() {
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#00ff00"))), 8);
    const QString other = Write(QStringLiteral("b.html"), Page(QStringLiteral("#0000ff")));
    int recovered = 0;
    m_host->OnRecovered = [&] { ++recovered; };
    for (int round = 0; round < 3; ++round) {
      QTRY_COMPARE(Eval(m_page, QStringLiteral("location.pathname.slice(-6)")), QStringLiteral("\"a.html\""));
      QTRY_VERIFY(!RenderProcesses().isEmpty());
      bool died = false;
      m_page->Evaluate(QStringLiteral("for(;;);"), [&](const QString &) { died = true; });
      KillRenderProcesses();
      QTRY_VERIFY_WITH_TIMEOUT(died, 20000);
    }
    const int before = recovered;
    m_page->Navigate(other, 8);
    m_page->ExecuteScript(QStringLiteral("Add('x')"));
    QCOMPARE(Eval(m_page, QStringLiteral("log.join('') + location.pathname.slice(-6)")), QStringLiteral("\"xb.html\""));
    QTRY_COMPARE(PixelAt(*m_host, {5, 100}), QColor(0, 0, 255));
    QCOMPARE(recovered, before); // the other page was never brought back
  }

  void evaluatesToJson_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("json");
    QTest::newRow("number") << "1+1"
                            << "2";
    QTest::newRow("fraction") << "0.5"
                              << "0.5";
    QTest::newRow("text") << "'a\"b'"
                          << "\"a\\\"b\"";
    QTest::newRow("object") << "({a:[1,true,null]})"
                            << "{\"a\":[1,true,null]}";
    QTest::newRow("statements") << "var x=3; x"
                                << "3";
    QTest::newRow("nothing") << "undefined"
                             << "null";
    QTest::newRow("error") << "nowhere()"
                           << "null";
  }
  void evaluatesToJson() {
    QFETCH(QString, script);
    QFETCH(QString, json);
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff"))), 8);
    QCOMPARE(Eval(m_page, script), json);
  }

  void zoomIsOfOneHostAndStays() {
    const QString url = Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff")));
    WebPageHost other(QStringLiteral("preview"), nullptr, m_profile);
    QVERIFY(other.CriaBrowser());
    other.resize(320, 180);
    other.show();
    m_page->Navigate(url, 8);
    other.WV()->Navigate(url, 8);
    m_page->SetZoomFactor(2.0);
    QCOMPARE(Eval(m_page, QStringLiteral("innerWidth")), QStringLiteral("160"));
    QCOMPARE(Eval(other.WV(), QStringLiteral("innerWidth")), QStringLiteral("320"));
    other.WV()->SetZoomFactor(0.5);
    for (int i = 0; i < 2; ++i) {
      m_page->Navigate(url, 8);
      other.WV()->Navigate(url, 8);
      QCOMPARE(Eval(m_page, QStringLiteral("innerWidth")), QStringLiteral("160"));
      QCOMPARE(Eval(other.WV(), QStringLiteral("innerWidth")), QStringLiteral("640"));
    }
  }

  void showsNothingBetweenTwoPages() {
    const QColor red(255, 0, 0);
    const QColor blue(0, 0, 255);
    const QString pages[] = {Write(QStringLiteral("a.html"), Page(red.name())),
                             Write(QStringLiteral("b.html"), Page(blue.name()))};
    m_page->Navigate(pages[0], 8);
    QTRY_COMPARE(PixelAt(*m_host, {5, 100}), red);
    for (int i = 1; i <= 6; ++i) {
      const QColor wanted = i % 2 == 0 ? red : blue;
      const QColor old = i % 2 == 0 ? blue : red;
      m_page->Navigate(pages[i % 2], 8);
      QColor seen = old;
      QDeadlineTimer limit(10000);
      while (seen == old && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        seen = PixelAt(*m_host, {5, 100});
      }
      QCOMPARE(seen, wanted);
    }
  }

  // The new page comes with what was sent to it, not a moment before, however late the program hears from it.
  void showsAPageTogetherWithItsText() {
    const QColor red(255, 0, 0);
    const QString first = Write(QStringLiteral("a.html"), Page(red.name()));
    const QString next = Write(QStringLiteral("b.html"), Page(QStringLiteral("#00f")));
    for (int i = 0; i < 4; ++i) {
      m_page->Navigate(first, 8);
      QTRY_COMPARE(PixelAt(*m_host, {5, 100}), red);
      m_page->Navigate(next, 8);
      m_page->ExecuteScript(QStringLiteral("document.body.style.background = document.documentElement.style.background"
                                           " = '#0f0'"));
      QColor seen = red;
      QDeadlineTimer limit(20000);
      while (seen == red && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        QThread::msleep(80); // several reports of the page wait by now
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        seen = PixelAt(*m_host, {5, 100});
      }
      QCOMPARE(seen, QColor(0, 255, 0));
    }
  }

  void aDeadPageLeavesItsLastPicture() {
    const QColor red(255, 0, 0);
    m_page->Navigate(Write(QStringLiteral("a.html"), Page(red.name())), 8);
    QTRY_COMPARE(PixelAt(*m_host, {5, 100}), red);
    QTRY_VERIFY(!RenderProcesses().isEmpty());
    bool recovered = false;
    m_host->OnRecovered = [&] {
      recovered = true;
      m_page->ExecuteScript(QStringLiteral("document.body.style.background = '#0f0'"));
    };
    bool died = false;
    m_page->Evaluate(QStringLiteral("for(;;);"), [&](const QString &) { died = true; });
    KillRenderProcesses();
    QTRY_VERIFY_WITH_TIMEOUT(died, 20000);
    QSet<QString> seen;
    QDeadlineTimer limit(20000);
    while (!seen.contains(QStringLiteral("#00ff00")) && !limit.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
      seen.insert(PixelAt(*m_host, {5, 100}).name());
    }
    QVERIFY(recovered);
    seen.remove(QStringLiteral("#000000")); // where the desktop gives no picture of a window
    QCOMPARE(seen, QSet<QString>({red.name(), QStringLiteral("#00ff00")}));
  }

  void observersHearEverything() {
    Listener listener;
    m_host->AddObserver(&listener);
    const QString url = Write(QStringLiteral("a.html"), Page(QStringLiteral("#fff")));
    m_page->Navigate(url, 8);
    m_page->ExecuteScript(QStringLiteral("Add('a')"));
    m_page->SetPageProperty(QStringLiteral("document.title"), QStringLiteral("x"));
    QCOMPARE(listener.log, QStringList({u"display navigate " + url, QStringLiteral("display script Add('a')"),
                                        QStringLiteral("display script document.title = \"x\"")}));
  }

  void theKeyboardAndTheWheelStayOutside() {
    QWidget console;
    QLineEdit field(&console);
    WebPageHost preview(QStringLiteral("preview"), &console, m_profile);
    QVERIFY(preview.CriaBrowser());
    preview.setGeometry(0, 40, 320, 180);
    console.resize(320, 220);
    console.show();
    console.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&console));
    field.setFocus();
    PageObject *page = preview.WV();
    page->Navigate(
        Write(QStringLiteral("a.html"),
              Page(QStringLiteral("#fff"), QStringLiteral("<input id=i style='position:fixed;left:0;top:0;width:"
                                                          "300px;height:100px'><div style='height:4000px'></div>"))),
        8);
    page->ExecuteScript(QStringLiteral("document.getElementById('i').focus(); window.focus()"));
    Eval(page, QStringLiteral("1"));
    QWidget *inside = preview.childAt(50, 50);
    QVERIFY(inside && inside != &preview);
    QTest::mouseClick(inside, Qt::LeftButton, {}, {50, 50});
    QTRY_VERIFY(field.hasFocus());
    QTest::keyClicks(console.focusWidget(), QStringLiteral("ab"));
    QTest::keyClicks(inside, QStringLiteral("cd"));
    const QPointF at(50, 150);
    QWheelEvent wheel(at, inside->mapToGlobal(at), {}, {0, -240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(inside, &wheel);
    QCOMPARE(field.text(), QStringLiteral("ab"));
    QCOMPARE(Eval(page, QStringLiteral("[document.getElementById('i').value, scrollY]")), QStringLiteral("[\"\",0]"));
  }
};

QTEST_MAIN(TestPageHost)
#include "ui_test_page_host.moc"
