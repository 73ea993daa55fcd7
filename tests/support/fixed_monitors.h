#pragma once

#include "console/monitors.h"

namespace tolmira::testing {

// Monitors as a test sets them up.
class FixedMonitors : public MonitorSource {
public:
  std::vector<clsMonitor> Monitors() const override { return list; }
  quintptr ConsoleMonitor() const override { return console; }
  static clsMonitor At(quintptr handle, QRect rect, const QString &conector = {}, const QString &edid = {}) {
    clsMonitor monitor;
    monitor.Handle = handle;
    monitor.Left = monitor.WorkLeft = rect.left();
    monitor.Top = monitor.WorkTop = rect.top();
    monitor.Width = rect.width();
    monitor.Height = rect.height();
    monitor.Right = monitor.WorkRight = rect.left() + rect.width();
    monitor.Bottom = monitor.WorkBottom = rect.top() + rect.height();
    monitor.Conector = conector.isEmpty() ? QStringLiteral("OUT-%1").arg(handle) : conector;
    monitor.Edid = edid;
    monitor.Nome = edid.isEmpty() ? monitor.Conector : edid;
    return monitor;
  }
  std::vector<clsMonitor> list;
  quintptr console = 1;
};

} // namespace tolmira::testing
