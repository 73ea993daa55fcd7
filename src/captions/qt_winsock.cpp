#include "captions/qt_winsock.h"

#include <QTimer>
#include <utility>

namespace tolmira {

namespace {

constexpr int PatienceMs = 5000; // for a dropped client to take what was sent to it

} // namespace

void QtWinsock::Depois::operator()(QTcpSocket *socket) const {
  socket->disconnect();
  socket->abort();
  socket->deleteLater();
}

QtWinsock::QtWinsock() {
  // One client a turn of the message loop, however many stand in line.
  m_server.setMaxPendingConnections(1);
  connect(&m_server, &QTcpServer::newConnection, this, &QtWinsock::Request, Qt::QueuedConnection);
}

QtWinsock::~QtWinsock() = default;

void QtWinsock::Listen() {
  if (!m_server.isListening())
    m_server.listen(QHostAddress::Any, m_port);
}

void QtWinsock::Close() {
  DropClient();
  if (!m_offered)
    m_server.close();
}

// A page may be larger than what the system takes at once; it is not cut off because its client made room.
void QtWinsock::DropClient() {
  if (!m_client)
    return;
  Cliente client = std::exchange(m_client, nullptr);
  if (client->state() != QAbstractSocket::ConnectedState)
    return;
  client->disconnect(this);
  client->readAll(); // what nobody reads would make the system tell the client of an error, in front of the answer
  client->disconnectFromHost();
  if (client->state() == QAbstractSocket::UnconnectedState)
    return;
  QTcpSocket *leaving = client.get();
  m_leaving = std::move(client);
  const auto forget = [this, leaving] {
    if (m_leaving.get() == leaving)
      m_leaving = nullptr;
  };
  connect(leaving, &QTcpSocket::disconnected, this, forget);
  QTimer::singleShot(PatienceMs, leaving, forget);
}

void QtWinsock::Request() {
  QTcpSocket *next = m_server.nextPendingConnection();
  if (!next) // it stopped listening meanwhile
    return;
  next->setParent(nullptr);
  next->setReadBufferSize(Limite);
  m_offered.reset(next);
  if (ConnectionRequest)
    ConnectionRequest(++m_lastRequest);
  m_offered.reset();
}

void QtWinsock::Accept(int requestID) {
  if (!m_offered || requestID != m_lastRequest)
    return;
  m_client = std::move(m_offered);
  m_client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  connect(m_client.get(), &QTcpSocket::readyRead, this, &QtWinsock::Arrived);
  if (m_client->bytesAvailable() > 0)
    QMetaObject::invokeMethod(m_client.get(), &QTcpSocket::readyRead, Qt::QueuedConnection);
}

void QtWinsock::Arrived() {
  if (m_client && DataArrival)
    DataArrival(m_client->bytesAvailable());
}

QByteArray QtWinsock::GetData() {
  return m_client ? m_client->readAll() : QByteArray();
}

void QtWinsock::SendData(const QByteArray &data) {
  if (!m_client)
    return;
  if (m_client->bytesToWrite() > Limite) {
    m_client->abort();
    return;
  }
  m_client->write(data);
  m_client->flush();
}

int QtWinsock::State() const {
  if (m_client)
    return m_client->state() == QAbstractSocket::ConnectedState ? Conectado : Fechando;
  return m_server.isListening() ? Ouvindo : Fechado;
}

} // namespace tolmira
