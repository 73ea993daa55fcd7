#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace tolmira {

// Under X11 the toolkit of Debian 12 hears of a monitor's new mode or place and tells nobody: its screens keep their old
// geometry until something else on the desktop changes. This hands the new one to them. Elsewhere it does nothing.
class ScreenRepair : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

public:
  ScreenRepair();
  ~ScreenRepair() override;
  bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
  void Repair();
  int m_firstEvent = 0; // of the monitor extension; 0 while there is none
};

} // namespace tolmira
