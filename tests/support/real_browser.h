#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>
#include <array>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace tolmira::testing {

// Debian's chromium without a window, as a broadcast tool's browser source would be, driven through its debugging pipe. All
// waiting keeps the test's own message loop running, so that a server in the test can answer it.
class RealBrowser {
public:
  ~RealBrowser() {
    if (m_process.state() == QProcess::Running) {
      m_session.clear();
      Do(QStringLiteral("Browser.close"), {});
      if (!m_process.waitForFinished(5000))
        m_process.kill();
      m_process.waitForFinished();
    }
    // Its helpers may still be about; what they leave behind is no warning's worth.
    m_profile.setAutoRemove(false);
    QDir(m_profile.path()).removeRecursively();
    for (const int end : {m_toBrowser[1], m_fromBrowser[0]})
      if (end >= 0)
        ::close(end);
  }

  // False when there is none. `size` is the source's.
  bool Start(const QSize &size = {1280, 720}) {
    if (::pipe2(m_toBrowser.data(), O_CLOEXEC) != 0 || ::pipe2(m_fromBrowser.data(), O_CLOEXEC) != 0)
      return false;
    m_process.setChildProcessModifier([this] { // the browser listens on 3 and speaks on 4
      const int in = ::fcntl(m_toBrowser[0], F_DUPFD, 10);
      const int out = ::fcntl(m_fromBrowser[1], F_DUPFD, 10);
      ::dup2(in, 3);
      ::dup2(out, 4);
    });
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--remote-debugging-pipe"),
                          QStringLiteral("--no-first-run"), QStringLiteral("--hide-scrollbars"),
                          QStringLiteral("--disable-gpu"), QStringLiteral("--disable-dev-shm-usage"),
                          QStringLiteral("--user-data-dir=") + m_profile.path()};
    if (::geteuid() == 0)
      arguments << QStringLiteral("--no-sandbox");
    m_process.start(QStringLiteral("chromium"), arguments);
    if (!m_process.waitForStarted())
      return false;
    ::close(std::exchange(m_toBrowser[0], -1));
    ::close(std::exchange(m_fromBrowser[1], -1));
    ::fcntl(m_fromBrowser[0], F_SETFL, O_NONBLOCK);
    m_ear = std::make_unique<QSocketNotifier>(m_fromBrowser[0], QSocketNotifier::Read);
    QObject::connect(m_ear.get(), &QSocketNotifier::activated, [this] { Hear(); });

    const QJsonObject target =
        Do(QStringLiteral("Target.createTarget"), {{QStringLiteral("url"), QStringLiteral("about:blank")}});
    m_session = Do(QStringLiteral("Target.attachToTarget"),
                   {{QStringLiteral("targetId"), target[u"targetId"]}, {QStringLiteral("flatten"), true}})[u"sessionId"]
                    .toString();
    Resize(size);
    Do(QStringLiteral("Emulation.setDefaultBackgroundColorOverride"),
       {{QStringLiteral("color"),
         QJsonObject{{QStringLiteral("r"), 0}, {QStringLiteral("g"), 0}, {QStringLiteral("b"), 0}, {QStringLiteral("a"), 0}}}});
    return !m_session.isEmpty();
  }

  void Resize(const QSize &size) {
    Do(QStringLiteral("Emulation.setDeviceMetricsOverride"),
       {{QStringLiteral("width"), size.width()},
        {QStringLiteral("height"), size.height()},
        {QStringLiteral("deviceScaleFactor"), 1},
        {QStringLiteral("mobile"), false}});
  }

  void Go(const QString &url) { Do(QStringLiteral("Page.navigate"), {{QStringLiteral("url"), url}}); }

  // The value of an expression on the page; of a promise, what it comes to.
  QJsonValue Eval(const QString &script) {
    return Do(QStringLiteral("Runtime.evaluate"), {{QStringLiteral("expression"), script},
                                                   {QStringLiteral("awaitPromise"), true},
                                                   {QStringLiteral("returnByValue"), true}})[u"result"]
        .toObject()[u"value"];
  }

  // What the page looks like, with what shows through it.
  QImage Picture() {
    const QJsonObject answer =
        Do(QStringLiteral("Page.captureScreenshot"), {{QStringLiteral("format"), QStringLiteral("png")}});
    return QImage::fromData(QByteArray::fromBase64(answer[u"data"].toString().toLatin1()));
  }

  QJsonObject Do(const QString &method, const QJsonObject &parameters) {
    const int id = ++m_lastId;
    QJsonObject request{{QStringLiteral("id"), id}, {QStringLiteral("method"), method}, {QStringLiteral("params"), parameters}};
    if (!m_session.isEmpty())
      request.insert(QStringLiteral("sessionId"), m_session);
    const QByteArray line = QJsonDocument(request).toJson(QJsonDocument::Compact) + '\0';
    if (::write(m_toBrowser[1], line.constData(), static_cast<size_t>(line.size())) != line.size())
      return {};
    QElapsedTimer patience;
    patience.start();
    while (!m_answers.contains(id) && patience.elapsed() < 20000)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    return m_answers.take(id);
  }

private:
  void Hear() {
    std::array<char, 65536> piece;
    ssize_t count = 0;
    while ((count = ::read(m_fromBrowser[0], piece.data(), piece.size())) > 0)
      m_heard.append(piece.data(), count);
    if (count == 0)
      m_ear->setEnabled(false);
    for (qsizetype end = 0; (end = m_heard.indexOf('\0')) >= 0; m_heard.remove(0, end + 1)) {
      const QJsonObject message = QJsonDocument::fromJson(m_heard.left(end)).object();
      if (message.contains(u"id"))
        m_answers.insert(message[u"id"].toInt(), message[u"result"].toObject());
    }
  }

  QTemporaryDir m_profile;
  QProcess m_process;
  std::array<int, 2> m_toBrowser{-1, -1};
  std::array<int, 2> m_fromBrowser{-1, -1};
  std::unique_ptr<QSocketNotifier> m_ear;
  QByteArray m_heard;
  QHash<int, QJsonObject> m_answers;
  QString m_session;
  int m_lastId = 0;
};

} // namespace tolmira::testing
