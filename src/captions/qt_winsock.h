#pragma once

#include "captions/winsock.h"

#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

namespace tolmira {

// The real Winsock. What a client can make it hold is bounded: a piece of 64 KiB that has arrived, and the last answer
// with as much before it that waits to be sent. A client that lets more wait is dropped when it asks again.
class QtWinsock : public QObject, public Winsock {
  Q_OBJECT

public:
  QtWinsock();
  ~QtWinsock() override;

  void Close() override;
  void SetLocalPort(quint16 port) override { m_port = port; }
  void Listen() override;
  void Accept(int requestID) override;
  QByteArray GetData() override;
  void SendData(const QByteArray &data) override;
  int State() const override;

  static constexpr qint64 Limite = 64 * 1024;

private:
  // The socket may be in the middle of telling something, so it goes when that has returned.
  struct Depois {
    void operator()(QTcpSocket *socket) const;
  };
  using Cliente = std::unique_ptr<QTcpSocket, Depois>;

  void Request();
  void Arrived();
  void DropClient();

  QTcpServer m_server;
  quint16 m_port = 0;
  int m_lastRequest = 0;
  Cliente m_offered; // while ConnectionRequest is being handled
  Cliente m_client;
  Cliente m_leaving; // dropped, with something still to be sent
};

} // namespace tolmira
