#include "app/control_server.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QThread>
#include <QWidget>

#include <algorithm>

#include <sys/stat.h>

#include "app/control_windows.h"

namespace tolmira {

namespace {

constexpr int RetryMs = 5;
constexpr int LookForBoxMs = 10;
constexpr int WaitingLimit = 256; // lines of one connection; then it is not read until some are served

bool IsSocket(const QString &path) {
  struct stat status = {};
  return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode);
}

} // namespace

ControlServer::ControlServer(ControlDoors doors, ControlEvents &events, QObject *parent)
    : QObject(parent), m_events(events), m_requests(std::move(doors), QStringLiteral("FrmMonitor")) {
  m_retry.setSingleShot(true);
  m_retry.setInterval(RetryMs);
  connect(&m_retry, &QTimer::timeout, this, &ControlServer::Turn);
  m_boxTimer.setInterval(LookForBoxMs);
  connect(&m_boxTimer, &QTimer::timeout, this, &ControlServer::LookForBox);
  connect(&m_server, &QLocalServer::newConnection, this, &ControlServer::Accept);
}

ControlServer::~ControlServer() {
  m_events.listener = nullptr;
  disconnect(m_stateConnection);
  for (ControlConnection *connection : m_connections) {
    connection->disconnect(this);
    delete connection;
  }
}

QString ControlServer::Listen(const QString &path) {
  if (QFileInfo(path).isSymLink() || QFileInfo::exists(path) || IsSocket(path)) {
    if (!IsSocket(path))
      return QStringLiteral("The control socket %1 cannot be opened: a file of that name exists.").arg(path);
    QLocalSocket probe;
    probe.connectToServer(path);
    if (probe.waitForConnected(1000))
      return QStringLiteral("The control socket %1 is in use by another program.").arg(path);
    QLocalServer::removeServer(path);
  }
  m_server.setSocketOptions(QLocalServer::UserAccessOption);
  if (!m_server.listen(path))
    return QStringLiteral("The control socket %1 cannot be opened: %2.").arg(path, m_server.errorString());
  // The toolkit adds the execute bit, which means nothing for a socket.
  QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  return {};
}

void ControlServer::Close() {
  m_closed = true;
  m_server.close();
  m_waiting.clear();
}

void ControlServer::Accept() {
  while (QLocalSocket *socket = m_server.nextPendingConnection()) {
    auto *connection = new ControlConnection(socket, this);
    m_connections.push_back(connection);
    connect(connection, &ControlConnection::Line, this,
            [this, connection](const LineReader::Line &line) { Enqueue(connection, line); });
    connect(connection, &ControlConnection::Gone, this, [this, connection] {
      m_connections.remove(connection);
      connection->deleteLater();
      UpdateWatching();
    });
  }
}

int ControlServer::WaitingOf(const ControlConnection *connection) const {
  return static_cast<int>(std::count_if(m_waiting.begin(), m_waiting.end(), [connection](const Waiting &waiting) {
    return waiting.connection == connection;
  }));
}

void ControlServer::Enqueue(ControlConnection *connection, const LineReader::Line &line) {
  if (m_closed || (line.bytes.trimmed().isEmpty() && !line.tooLong))
    return;
  m_waiting.push_back({connection, line});
  if (WaitingOf(connection) >= WaitingLimit)
    connection->HoldReading(true);
  Schedule();
}

void ControlServer::Schedule() {
  if (m_scheduled)
    return;
  m_scheduled = true;
  // Not from inside the socket's own signal: it does not come again while its handler runs, and a request may run for
  // as long as a message box is open.
  QMetaObject::invokeMethod(this, &ControlServer::Turn, Qt::QueuedConnection);
}

bool ControlServer::MayServe() const {
  const ControlDoors &doors = m_requests.Doors();
  if (doors.cedendo && doors.cedendo())
    return false;
  if (m_running.empty())
    return true;
  const QWidget *box = OpenBox();
  return box && box != m_running.back()->boxBefore;
}

void ControlServer::Turn() {
  m_scheduled = false;
  if (m_waiting.empty())
    return;
  if (!MayServe()) {
    m_retry.start();
    return;
  }
  const Waiting next = m_waiting.front();
  m_waiting.pop_front();
  if (!m_waiting.empty())
    Schedule();
  if (!next.connection)
    return;
  if (WaitingOf(next.connection) < WaitingLimit / 2)
    next.connection->HoldReading(false);
  ServeLine(next.connection, next.line);
}

void ControlServer::Reply(ControlConnection *connection, const QJsonObject &request, const ControlAnswer &answer) {
  if (!connection)
    return;
  QJsonObject message = answer.fields;
  if (request.contains(QStringLiteral("id")))
    message.insert(QStringLiteral("id"), request.value(QStringLiteral("id")));
  message.insert(QStringLiteral("ok"), answer.Good());
  if (!answer.Good())
    message.insert(QStringLiteral("error"), answer.error);
  connection->Send(message);
}

void ControlServer::ServeLine(ControlConnection *connection, const LineReader::Line &line) {
  if (line.tooLong) {
    Reply(connection, {}, ControlAnswer::Failed(QStringLiteral("the line is longer than 1 MiB")));
    return;
  }
  QJsonParseError fault;
  const QJsonDocument document = QJsonDocument::fromJson(line.bytes, &fault);
  if (!document.isObject()) {
    const QString why = fault.error == QJsonParseError::NoError ? QStringLiteral("not an object") : fault.errorString();
    Reply(connection, {}, ControlAnswer::Failed(QStringLiteral("the line is not a JSON object: %1").arg(why)));
    return;
  }
  const QJsonObject request = document.object();
  if (request.value(QStringLiteral("do")).toString() == u"watch") {
    Reply(connection, request, ControlAnswer::Ok());
    StartWatching(connection);
    return;
  }

  const auto running = std::make_shared<Running>(Running{connection, request, OpenBox(), false});
  m_running.push_back(running);
  m_boxTimer.start();
  m_requests.Serve(request, [running](const ControlAnswer &answer) {
    if (!running->answered)
      Reply(running->connection, running->request, answer);
    running->answered = true;
  });
  m_running.remove(running);
  if (m_running.empty())
    m_boxTimer.stop();
}

void ControlServer::LookForBox() {
  const QWidget *box = OpenBox();
  if (m_running.empty() || !box || box == m_running.back()->boxBefore)
    return;
  m_requests.Keys().LeaveKeys();
  // Without this a client that sends one request after the other would wait for ever for an answer that waits for its
  // next request.
  const std::shared_ptr<Running> running = m_running.back();
  if (running->answered || !ControlRequests::MayAnswerEarly(running->request))
    return;
  running->answered = true;
  Reply(running->connection, running->request, ControlAnswer::Ok({{QStringLiteral("opened"), NameOf(box)}}));
}

void ControlServer::StartWatching(ControlConnection *connection) {
  connection->watching = true;
  UpdateWatching();
}

void ControlServer::UpdateWatching() {
  const bool watched = std::any_of(m_connections.begin(), m_connections.end(),
                                   [](const ControlConnection *each) { return each->watching; });
  if (!watched) {
    m_events.listener = nullptr;
    disconnect(m_stateConnection);
    m_stateConnection = {};
    return;
  }
  if (m_stateConnection)
    return;
  m_events.listener = [this](const QJsonObject &event) { TellWatchers(event); };
  m_stateWatch.Start(m_requests.Doors());
  // The state is looked at when a turn of the message loop has done its work.
  m_stateConnection = connect(QAbstractEventDispatcher::instance(thread()), &QAbstractEventDispatcher::aboutToBlock,
                              this, &ControlServer::LookAtState);
}

void ControlServer::LookAtState() {
  const QJsonObject changes = m_stateWatch.Changes(m_requests.Doors());
  if (!changes.isEmpty())
    TellWatchers({{QStringLiteral("event"), QStringLiteral("state")}, {QStringLiteral("state"), changes}});
}

void ControlServer::TellWatchers(const QJsonObject &event) {
  // Sending may drop a connection, which takes it off the list.
  const std::list<ControlConnection *> connections = m_connections;
  for (ControlConnection *connection : connections)
    if (connection->watching)
      connection->Send(event);
}

} // namespace tolmira
