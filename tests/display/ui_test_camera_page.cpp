#include "display/display_commands.h"
#include "display/ui/web_page_host.h"
#include "support/web_fixture.h"

#include <QApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// The page functions of the cameras in the real engine, with its make-believe cameras.
class TestCameraPage : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_folder;
  PageProfile m_profile;
  std::unique_ptr<WebPageHost> m_host;
  PageObject *m_page = nullptr;
  QStringList m_left; // addresses that the page wanted to go to

  void Load() {
    const QString html = qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + u"/assets/html/";
    const QString path = m_folder->filePath(QStringLiteral("page.html"));
    WriteText(path, QStringLiteral("<!DOCTYPE html><html><head><link rel='stylesheet' href='file:///%1tolmira.css'>"
                                   "<script src='file:///%1camera.js'></script></head><body style='background:#00f'>"
                                   "<div class='textoContainer'><div id='texto'>text</div></div></body></html>")
                        .arg(html));
    m_page->Navigate(u"file:///" + path, 8);
  }
  bool Tells(const QString &address) {
    [&] { QTRY_VERIFY_WITH_TIMEOUT(m_left.contains(address), 20000); }();
    return m_left.contains(address);
  }
  int Cameras() { return Eval(m_page, QStringLiteral("document.querySelectorAll('.camera').length")).toInt(); }

private slots:
  void initTestCase() { m_profile = NewPageProfile(); }
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<WebPageHost>(QStringLiteral("display"), nullptr, m_profile);
    QVERIFY(m_host->CriaBrowser());
    m_page = m_host->WV();
    m_page->AoPermissao = &DisplayCommands::AoPermissao;
    m_page->AoNavegar = [this](const QString &uri, bool &cancel) {
      cancel = true;
      m_left.append(uri);
    };
    m_left.clear();
    m_host->resize(320, 180);
    m_host->show();
    Load();
  }
  void cleanup() {
    m_host.reset();
    m_folder.reset();
  }
  void cleanupTestCase() { m_profile.reset(); }

  void tellsOfTheCameras() {
    m_page->ExecuteScript(QStringLiteral("getCameras()"));
    QVERIFY(Tells(QStringLiteral("http://indexcam//?fake_device_0%7Cfake_device_1%7C")));
    m_left.clear();
    m_page->ExecuteScript(QStringLiteral("navigator.mediaDevices.enumerateDevices = async () => []; getCameras()"));
    QVERIFY(Tells(QStringLiteral("http://indexcam//?")));
    m_left.clear();
    m_page->ExecuteScript(
        QStringLiteral("navigator.mediaDevices.enumerateDevices = async () => [{kind: 'audioinput', label: 'x'},"
                       "{kind: 'videoinput', label: 'C\\u00e2m|\\u65e5?'}]; getCameras()"));
    QVERIFY(Tells(QStringLiteral("http://indexcam//?C%E2m/%26%2326085%3B%3F%7C")));
  }

  void aCameraStandsBehindTheTextUntilItIsStopped() {
    m_page->ExecuteScript(QStringLiteral("startWebcam(1)"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?1%7Caberta")));
    QCOMPARE(Cameras(), 1);
    QCOMPARE(Eval(m_page, QStringLiteral("document.querySelector('.camera').nextElementSibling.className")),
             QStringLiteral("\"textoContainer\""));
    const auto corner = [this] { return m_host->grab().toImage().pixelColor(160, 4); };
    QTRY_VERIFY(corner() != QColor(Qt::blue));

    // Another takes its place, and the one before is let go.
    m_page->ExecuteScript(QStringLiteral("var first = document.querySelector('.camera').srcObject; startWebcam(0)"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?0%7Caberta")));
    QTRY_COMPARE(Cameras(), 1);
    QCOMPARE(Eval(m_page, QStringLiteral("first.active")), QStringLiteral("false"));

    m_page->ExecuteScript(QStringLiteral("stopWebcam()"));
    QTRY_COMPARE(Cameras(), 0);
    QTRY_COMPARE(corner(), QColor(Qt::blue));
  }

  void theLastOfManyPressesCounts() {
    m_page->ExecuteScript(QStringLiteral("startWebcam(0); startWebcam(1); startWebcam(0); startWebcam(1)"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?1%7Caberta")));
    QVERIFY(!m_left.contains(QStringLiteral("http://webcam//?0%7Caberta")));
    QTRY_COMPARE(Cameras(), 1);
    m_page->ExecuteScript(QStringLiteral("startWebcam(0); stopWebcam()"));
    QTRY_COMPARE(Cameras(), 0);
    m_page->ExecuteScript(QStringLiteral("startWebcam(7)"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?7%7Cfalhou")));
    QCOMPARE(Cameras(), 0);
  }

  void oneThatIsPulledOutComesBack() {
    m_page->ExecuteScript(QStringLiteral("startWebcam(1)"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?1%7Caberta")));
    m_page->ExecuteScript(QStringLiteral("document.querySelector('.camera').srcObject.getVideoTracks()[0]"
                                         ".dispatchEvent(new Event('ended'))"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?1%7Csaiu")));
    QTRY_COMPARE(Cameras(), 0);
    m_left.clear();
    m_page->ExecuteScript(QStringLiteral("navigator.mediaDevices.dispatchEvent(new Event('devicechange'))"));
    QVERIFY(Tells(QStringLiteral("http://webcam//?1%7Caberta")));
    m_page->ExecuteScript(QStringLiteral("stopWebcam()"));
    QTRY_COMPARE(Cameras(), 0);
  }

  // A camera is allowed, a microphone is not, not even beside one.
  void onlyCamerasAreAllowed_data() {
    QTest::addColumn<QString>("wish");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("camera") << QStringLiteral("{video: true}") << true;
    QTest::newRow("microphone") << QStringLiteral("{audio: true}") << false;
    QTest::newRow("both") << QStringLiteral("{audio: true, video: true}") << false;
  }
  void onlyCamerasAreAllowed() {
    QFETCH(QString, wish);
    QFETCH(bool, allowed);
    AsksFor(wish, allowed);
  }

  void nothingIsAllowedToAPageFromTheNet() {
    QTcpServer server; // on the own machine, whose pages the engine trusts as it does files
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, this, [&server] {
      QTcpSocket *socket = server.nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, socket, [socket] {
        socket->readAll();
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 13\r\n\r\n<body></body>");
      });
    });
    m_page->Navigate(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort()), 8);
    AsksFor(QStringLiteral("{video: true}"), false);
  }

private:
  void AsksFor(const QString &wish, bool allowed) {
    m_page->ExecuteScript(u"var said = ''; navigator.mediaDevices.getUserMedia(" + wish +
                          u").then((s) => { said = 'yes'; s.getTracks().forEach((t) => t.stop()); }, "
                          u"(e) => said = e.name)");
    const QString expected = allowed ? QStringLiteral("\"yes\"") : QStringLiteral("\"NotAllowedError\"");
    QTRY_COMPARE(Eval(m_page, QStringLiteral("said")), expected);
  }
};

int main(int argc, char **argv) {
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
          qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --use-fake-device-for-media-stream=device-count=2");
  QApplication app(argc, argv);
  TestCameraPage test;
  return QTest::qExec(&test, argc, argv);
}
#include "ui_test_camera_page.moc"
