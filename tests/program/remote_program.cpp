#include "remote_program.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QTest>

#include <csignal>

namespace {

constexpr int Patience = 30000; // ms, for a loaded machine

QByteArray ScreensAsJson(int screens) {
  QByteArray json = R"({"screens":[{"name":"desk","x":0,"y":0,"width":1280,"height":800})";
  if (screens > 1)
    json += R"(,{"name":"projector","x":1280,"y":0,"width":1280,"height":720})";
  return json + "]}";
}

} // namespace

RemoteProgram::RemoteProgram(const QString &appFolder) : m_app(appFolder) {
  m_process.setProcessChannelMode(QProcess::MergedChannels);
  QObject::connect(&m_process, &QProcess::readyRead, [this] { m_output += m_process.readAll(); });
}

RemoteProgram::~RemoteProgram() { Kill(); }

bool RemoteProgram::StartOnly(int screens) {
  QFile file(m_scratch.filePath(QStringLiteral("screens.json")));
  if (!file.open(QIODevice::WriteOnly))
    return false;
  file.write(ScreensAsJson(screens));
  file.close();
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QString(u"offscreen:configfile=" + file.fileName()));
  for (auto variable = m_desktop.cbegin(); variable != m_desktop.cend(); ++variable)
    environment.insert(variable.key(), variable.value());
  environment.insert(QStringLiteral("TOLMIRA_AO"), QStringLiteral("null"));
  environment.insert(QStringLiteral("TEMP"), m_scratch.path());
  environment.remove(QStringLiteral("QTWEBENGINE_CHROMIUM_FLAGS"));
  m_process.setProcessEnvironment(environment);
  const QString socket = m_scratch.filePath(QStringLiteral("control"));
  m_process.start(qEnvironmentVariable("TOLMIRA_BIN_DIR") + u"/tolmira",
                  {QStringLiteral("--app"), m_app, QStringLiteral("--control"), socket});
  if (!m_process.waitForStarted())
    return false;
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < Patience && m_process.state() == QProcess::Running) {
    m_socket.connectToServer(socket);
    if (m_socket.waitForConnected(200))
      return true;
    QTest::qWait(20);
  }
  return false;
}

bool RemoteProgram::Start(int screens) {
  return StartOnly(screens) && WaitFor(QStringLiteral("TelaPronta"), true, Patience);
}

void RemoteProgram::Kill() {
  m_socket.abort();
  if (m_process.state() == QProcess::NotRunning)
    return;
  m_process.kill();
  m_process.waitForFinished();
}

bool RemoteProgram::Quit() {
  Do(QStringLiteral("quit"));
  return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(Patience);
}

QJsonObject RemoteProgram::Do(const QString &what, QJsonObject with) {
  with.insert(QStringLiteral("do"), what);
  return Do(with);
}

QJsonObject RemoteProgram::Do(QJsonObject request) {
  const int id = m_nextId++;
  request.insert(QStringLiteral("id"), id);
  m_socket.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
  m_socket.flush();
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < Patience && m_socket.state() == QLocalSocket::ConnectedState) {
    while (m_pending.contains('\n')) {
      const qsizetype end = m_pending.indexOf('\n');
      const QJsonObject answer = QJsonDocument::fromJson(m_pending.left(end)).object();
      m_pending.remove(0, end + 1);
      if (answer.value(QStringLiteral("id")).toInt() == id)
        return answer;
    }
    m_socket.waitForReadyRead(100);
    m_pending += m_socket.readAll();
  }
  return {};
}

QJsonObject RemoteProgram::State() {
  return Do(QStringLiteral("state")).value(QStringLiteral("state")).toObject();
}

bool RemoteProgram::WaitFor(const QString &field, const QJsonValue &value, int ms) {
  return QTest::qWaitFor([&] { return State().value(field) == value; }, ms);
}

QString RemoteProgram::Eval(const QString &page, const QString &script) {
  const QJsonObject answer = Do(QStringLiteral("eval"), {{QStringLiteral("page"), page}, {QStringLiteral("script"), script}});
  return answer.value(QStringLiteral("value")).toVariant().toString();
}

bool RemoteProgram::WaitForText(const QString &page, const QString &text, int ms) {
  return QTest::qWaitFor(
      [&] {
        return Eval(page, QStringLiteral("document.getElementById('texto').innerText")).simplified() == text;
      },
      ms);
}

QImage RemoteProgram::Grab(const QString &window) {
  const QString path = m_scratch.filePath(QStringLiteral("grab.png"));
  Do(QStringLiteral("grab"), {{QStringLiteral("window"), window}, {QStringLiteral("path"), path}});
  return QImage(path);
}

QJsonObject RemoteProgram::Window(const QString &name) {
  for (const QJsonValue &window : Do(QStringLiteral("windows")).value(QStringLiteral("windows")).toArray())
    if (window[QStringLiteral("name")].toString() == name)
      return window.toObject();
  return {};
}

QStringList RemoteProgram::OpenBoxes() {
  QStringList names;
  for (const QJsonValue &window : Do(QStringLiteral("windows")).value(QStringLiteral("windows")).toArray()) {
    const QString name = window[QStringLiteral("name")].toString();
    if (window[QStringLiteral("visible")].toBool() && name != u"FrmMonitor" && name != u"FrmQuendar")
      names.append(name);
  }
  return names;
}

QList<qint64> RemoteProgram::Renderers() const {
  // Render processes are forked by a helper of the engine, which makes them the program's grandchildren.
  const auto childrenOf = [](qint64 parent) {
    QList<qint64> children;
    for (const QString &process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
      QFile stat(QStringLiteral("/proc/%1/stat").arg(process));
      if (!stat.open(QIODevice::ReadOnly))
        continue;
      const QByteArray line = stat.readAll();
      if (line.mid(line.lastIndexOf(')') + 2).split(' ').value(1).toLongLong() == parent)
        children.append(process.toLongLong());
    }
    children.removeAll(0);
    return children;
  };
  QList<qint64> found;
  for (const qint64 helper : childrenOf(Pid()))
    found += childrenOf(helper);
  return found;
}
