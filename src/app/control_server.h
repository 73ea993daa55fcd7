#pragma once

#include <QJsonObject>
#include <QLocalServer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <list>
#include <memory>

#include "app/control_connection.h"
#include "app/control_events.h"
#include "app/control_requests.h"
#include "app/control_state.h"

namespace tolmira {

// The control interface: one JSON object a line on a local socket. The page docs/control-interface.md is its contract.
//
// Requests are served one after the other in the order of their arrival, from the message loop. While one of them is
// under way the next waits, unless the running one has opened a modal window or a menu: then the others are served, so
// that they can answer it, and the running one is answered at once with "opened".
class ControlServer : public QObject {
  Q_OBJECT

public:
  // `events` gets its listener from here while somebody watches. Both outlive the server.
  ControlServer(ControlDoors doors, ControlEvents &events, QObject *parent = nullptr);
  ~ControlServer() override;

  // Opens the socket, mode 0600. A socket that a dead program left is replaced; one that is in use, or a file of
  // another kind, is not. The error text is empty when it stands.
  QString Listen(const QString &path);
  // Takes no further connections or requests: the program is closing. May be called from inside a request, whose answer
  // still goes out. The object itself must not go while a request runs.
  void Close();

private:
  struct Waiting {
    QPointer<ControlConnection> connection;
    LineReader::Line line;
  };
  struct Running {
    QPointer<ControlConnection> connection;
    QJsonObject request;
    QPointer<QWidget> boxBefore;
    bool answered = false;
  };

  void Accept();
  void Enqueue(ControlConnection *connection, const LineReader::Line &line);
  void Schedule();
  void Turn();
  bool MayServe() const;
  void ServeLine(ControlConnection *connection, const LineReader::Line &line);
  void LookForBox();
  static void Reply(ControlConnection *connection, const QJsonObject &request, const ControlAnswer &answer);
  void StartWatching(ControlConnection *connection);
  void UpdateWatching();
  void TellWatchers(const QJsonObject &event);
  void LookAtState();
  int WaitingOf(const ControlConnection *connection) const;

  ControlEvents &m_events;
  ControlRequests m_requests;
  QLocalServer m_server;
  std::list<ControlConnection *> m_connections;
  std::deque<Waiting> m_waiting;
  std::list<std::shared_ptr<Running>> m_running; // the innermost is the last
  bool m_scheduled = false;
  bool m_closed = false;
  QTimer m_retry;    // while requests wait for the running one
  QTimer m_boxTimer; // while a request runs: looks whether it opened a box
  StateWatch m_stateWatch;
  QMetaObject::Connection m_stateConnection;
};

} // namespace tolmira
