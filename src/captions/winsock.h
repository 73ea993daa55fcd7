#pragma once

#include <QByteArray>
#include <functional>

namespace tolmira {

// One socket that listens and also carries the one connection that was accepted. Listening goes on below that
// connection, so that the next client is heard of, and takes its place, without waiting.
class Winsock {
public:
  enum Estado { Fechado = 0, Ouvindo = 2, Conectado = 7, Fechando = 8 };

  virtual ~Winsock() = default;
  // Drops the client and stops listening; inside ConnectionRequest it drops the client only.
  virtual void Close() = 0;
  virtual void SetLocalPort(quint16 port) = 0;
  virtual void Listen() = 0; // on all addresses; the state stays Fechado when the port cannot be had
  virtual void Accept(int requestID) = 0;
  virtual QByteArray GetData() = 0; // what has arrived since the last call, in pieces of a bounded size
  virtual void SendData(const QByteArray &data) = 0;
  virtual int State() const = 0; // Fechando: the client went, and nobody has closed or accepted since

  // A request that is not accepted by its handler is refused.
  std::function<void(int requestID)> ConnectionRequest;
  std::function<void(qint64 bytesTotal)> DataArrival;
};

} // namespace tolmira
