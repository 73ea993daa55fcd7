#include "console/ui/qt_monitors.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace tolmira {

namespace {

quintptr HandleOf(const QScreen *screen) { return reinterpret_cast<quintptr>(screen); }

} // namespace

std::vector<clsMonitor> QtMonitors::Monitors() const {
  std::vector<clsMonitor> monitors;
  for (const QScreen *screen : QGuiApplication::screens()) {
    const QRect whole = screen->geometry();
    const QRect work = screen->availableGeometry();
    // A mirrored projector is a second screen at the same place: one monitor, as far as windows go.
    const bool mirrored = std::any_of(monitors.begin(), monitors.end(),
                                      [&](const clsMonitor &other) { return other.Rect() == whole; });
    if (mirrored || whole.isEmpty())
      continue;
    clsMonitor monitor;
    monitor.Handle = HandleOf(screen);
    monitor.Left = whole.left();
    monitor.Top = whole.top();
    monitor.Width = whole.width();
    monitor.Height = whole.height();
    monitor.Right = whole.left() + whole.width();
    monitor.Bottom = whole.top() + whole.height();
    monitor.WorkLeft = work.left();
    monitor.WorkTop = work.top();
    monitor.WorkRight = work.left() + work.width();
    monitor.WorkBottom = work.top() + work.height();
    monitors.push_back(monitor);
  }
  return monitors;
}

quintptr QtMonitors::ConsoleMonitor() const {
  const QScreen *screen = m_console && m_console->isVisible() ? m_console->screen() : QGuiApplication::primaryScreen();
  // The console may stand on the second of two mirrored screens; the first of them stands for both in the list.
  for (const QScreen *candidate : QGuiApplication::screens())
    if (screen && candidate->geometry() == screen->geometry())
      return HandleOf(candidate);
  return HandleOf(screen);
}

} // namespace tolmira
