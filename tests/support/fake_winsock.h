#pragma once

#include "captions/winsock.h"

#include <QByteArrayList>

namespace tolmira::testing {

// A socket in the test's hand: clients come, speak and go by its calls, and what is sent stays in `sent`.
class FakeWinsock : public Winsock {
public:
  void Close() override {
    state = m_offering ? state : int(Fechado);
    client = 0;
    ++closes;
  }
  void SetLocalPort(quint16 number) override { port = number; }
  void Listen() override { state = portIsTaken ? Fechado : Ouvindo; }
  void Accept(int requestID) override {
    client = requestID;
    state = Conectado;
  }
  QByteArray GetData() override { return std::exchange(m_arrived, {}); }
  void SendData(const QByteArray &data) override { sent << data; }
  int State() const override { return state; }

  void Connect(int requestID) {
    m_offering = true;
    ConnectionRequest(requestID);
    m_offering = false;
  }
  QByteArray Ask(const QByteArray &data) {
    m_arrived = data;
    DataArrival(data.size());
    return sent.isEmpty() ? QByteArray() : sent.takeLast();
  }

  int state = Fechado;
  int client = 0;
  int closes = 0;
  quint16 port = 0;
  bool portIsTaken = false;
  QByteArrayList sent;

private:
  bool m_offering = false;
  QByteArray m_arrived;
};

} // namespace tolmira::testing
