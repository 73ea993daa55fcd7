#include "app/control_connection.h"

#include <QJsonDocument>

namespace tolmira {

ControlConnection::ControlConnection(QLocalSocket *socket, QObject *parent) : QObject(parent), m_socket(socket) {
  m_socket->setParent(this);
  m_socket->setReadBufferSize(2 * LineReader::Limit);
  connect(m_socket, &QLocalSocket::readyRead, this, &ControlConnection::Read);
  connect(m_socket, &QLocalSocket::disconnected, this, &ControlConnection::Gone);
  QMetaObject::invokeMethod(this, &ControlConnection::Read, Qt::QueuedConnection);
}

ControlConnection::~ControlConnection() {
  disconnect(m_socket, nullptr, this, nullptr);
  // The answer to "quit" is still on its way when the program ends.
  if (m_socket->state() == QLocalSocket::ConnectedState && m_socket->bytesToWrite() > 0)
    m_socket->waitForBytesWritten(200);
}

void ControlConnection::Send(const QJsonObject &message) {
  if (m_socket->state() != QLocalSocket::ConnectedState)
    return;
  const QByteArray line = QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
  if (m_socket->bytesToWrite() + line.size() > UnreadLimit) {
    m_socket->abort();
    return;
  }
  m_socket->write(line);
}

void ControlConnection::HoldReading(bool hold) {
  if (m_hold == hold)
    return;
  m_hold = hold;
  if (!hold)
    QMetaObject::invokeMethod(this, &ControlConnection::Read, Qt::QueuedConnection);
}

void ControlConnection::Read() {
  while (!m_hold && m_socket->bytesAvailable() > 0)
    for (const LineReader::Line &line : m_reader.Feed(m_socket->read(LineReader::Limit)))
      emit Line(line);
}

} // namespace tolmira
