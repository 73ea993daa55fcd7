#pragma once

#include <QJsonObject>
#include <QLocalSocket>
#include <QObject>

#include "app/control_line_reader.h"

namespace tolmira {

// One client of the control interface. Never blocks: what a slow reader has not taken waits in memory, and beyond the
// limit the connection is dropped.
class ControlConnection : public QObject {
  Q_OBJECT

public:
  static constexpr qint64 UnreadLimit = 64 * 1024 * 1024; // bytes; the state of a huge song is some 20 MiB

  ControlConnection(QLocalSocket *socket, QObject *parent); // takes the socket
  ~ControlConnection() override;

  void Send(const QJsonObject &message);
  // The lines that arrived. Reading stops while the owner has many of them unserved (HoldReading).
  void HoldReading(bool hold);

  bool watching = false;

signals:
  void Line(const tolmira::LineReader::Line &line);
  void Gone();

private:
  void Read();
  QLocalSocket *m_socket;
  LineReader m_reader;
  bool m_hold = false;
};

} // namespace tolmira
