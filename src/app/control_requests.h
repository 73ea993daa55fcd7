#pragma once

#include <QJsonObject>
#include <QObject>

#include <functional>

#include "app/control_answer.h"
#include "app/control_doors.h"
#include "app/control_keys.h"

namespace tolmira {

// Carries out single requests of the control interface; knows nothing of sockets. "watch" is not among them, because it
// belongs to a connection.
class ControlRequests : public QObject {
  Q_OBJECT

public:
  static constexpr int EvalTimeoutMs = 10000;

  ControlRequests(ControlDoors doors, QString console, QObject *parent = nullptr);

  using Reply = std::function<void(const ControlAnswer &)>;
  // Calls `reply` exactly once: before it returns, or for "eval" when the page has answered.
  void Serve(const QJsonObject &request, const Reply &reply);

  // Whether a request may be answered before its action has come to its end, because the action waits in a modal
  // window. Not for those whose answer carries what the action found.
  static bool MayAnswerEarly(const QJsonObject &request);
  KeyHand &Keys() { return m_keys; }
  const ControlDoors &Doors() const { return m_doors; }

private:
  ControlAnswer Act(RequestReader &request);
  ControlAnswer OnConsole(RequestReader &request);
  ControlAnswer OnWindows(RequestReader &request);
  ControlAnswer OnControl(RequestReader &request);
  ControlAnswer Answer(RequestReader &request);
  ControlAnswer Quit();
  void Eval(RequestReader &request, const Reply &reply);

  ControlDoors m_doors;
  QString m_console;
  KeyHand m_keys;
};

} // namespace tolmira
