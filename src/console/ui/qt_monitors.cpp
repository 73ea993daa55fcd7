#include "console/ui/qt_monitors.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

namespace tolmira {

namespace {

quintptr HandleOf(const QScreen *screen) { return reinterpret_cast<quintptr>(screen); }

// Without the blanks and placeholders by which a screen says that it does not know.
QString Joined(const QStringList &parts) {
  QStringList known;
  for (const QString &part : parts)
    if (const QString text = part.simplified(); !text.isEmpty() && text != u"none" && text.toLower() != u"unknown")
      known.append(text);
  return known.join(u' ');
}

} // namespace

std::vector<clsMonitor> QtMonitors::Monitors() const {
  std::vector<clsMonitor> monitors;
  for (const QScreen *screen : QGuiApplication::screens()) {
    const QRect whole = screen->geometry();
    const QRect work = screen->availableGeometry();
    if (whole.isEmpty())
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
    monitor.Conector = screen->name();
    monitor.Edid = Joined({screen->manufacturer(), screen->model(), screen->serialNumber()});
    monitor.Nome = Joined({screen->manufacturer(), screen->model()});
    monitor.Nome = monitor.Nome.isEmpty() ? monitor.Conector : QString(monitor.Nome + u" (" + monitor.Conector + u')');
    monitors.push_back(monitor);
  }
  return monitors;
}

quintptr QtMonitors::ConsoleMonitor() const {
  return HandleOf(m_console && m_console->isVisible() ? m_console->screen() : QGuiApplication::primaryScreen());
}

QScreen *QtMonitors::Screen(quintptr handle) {
  for (QScreen *screen : QGuiApplication::screens())
    if (HandleOf(screen) == handle)
      return screen;
  return nullptr;
}

} // namespace tolmira
