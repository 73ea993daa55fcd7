#pragma once

#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

namespace tolmira::testing {

// A real X server without hardware, whose two outputs are plugged and unplugged as cables are.
class XDesktop {
public:
  // The numbers of the displays that are tried.
  XDesktop(int first, int last) {
    QProcess start;
    start.start(Tool(QStringLiteral("start")), {QString::number(first), QString::number(last)});
    if (start.waitForFinished(60000) && start.exitCode() == 0)
      m_display = QString::fromUtf8(start.readAllStandardOutput()).trimmed();
    m_reason = QString::fromUtf8(start.readAllStandardError()).trimmed();
  }
  ~XDesktop() {
    if (!m_display.isEmpty())
      QProcess::execute(Tool(QStringLiteral("stop")), {m_display});
  }
  XDesktop(const XDesktop &) = delete;
  XDesktop &operator=(const XDesktop &) = delete;
  bool Stands() const { return !m_display.isEmpty(); }
  const QString &Display() const { return m_display; }
  QString Reason() const { return m_reason.isEmpty() ? QStringLiteral("Xorg is not installed") : m_reason; }

  bool Set(const QString &arguments) const {
    QProcess xrandr;
    xrandr.setProcessEnvironment(WithDisplay());
    xrandr.start(QStringLiteral("xrandr"), arguments.split(u' '));
    return xrandr.waitForFinished(30000) && xrandr.exitCode() == 0;
  }
  void TwoMonitors() const {
    QVERIFY(Set(QStringLiteral("--output DUMMY0 --primary --mode 1280x800 --pos 0x0")));
    QVERIFY(Set(QStringLiteral("--output DUMMY1 --mode 1280x720 --pos 1280x0")));
  }
  QMap<QString, QString> Environment() const {
    return {{QStringLiteral("DISPLAY"), m_display}, {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb")}};
  }

private:
  static QString Tool(const QString &name) {
    return qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + u"/tools/desktop/" + name;
  }
  QProcessEnvironment WithDisplay() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    return environment;
  }
  QString m_display;
  QString m_reason;
};

} // namespace tolmira::testing
