#pragma once

#include <QPointer>
#include <QScreen>
#include <QWidget>

#include "console/monitors.h"

namespace tolmira {

// The toolkit's screens, as the choice of the projection's place sees them. Rectangles are the toolkit's logical pixels.
class QtMonitors : public MonitorSource {
public:
  // The console's window; before it is shown its monitor is the primary one.
  void SetConsole(QWidget *console) { m_console = console; }
  std::vector<clsMonitor> Monitors() const override;
  quintptr ConsoleMonitor() const override;
  static QScreen *Screen(quintptr handle); // null when it has gone

private:
  QPointer<QWidget> m_console;
};

} // namespace tolmira
