#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include "console/ui/console_parts.h"

class QKeyEvent;

namespace tolmira {

// Hands the keys of the console to the key table before any control sees them. The keys of the screen's states count in
// every window of the program. Of the others those are left out that go to text boxes, open menus and lists that have
// dropped down, and boxes that lie over the console. A Ctrl whose release the window will never see (the focus went away
// while it was down) counts as released.
class ConsoleKeys : public QObject {
  Q_OBJECT

public:
  ConsoleKeys(ConsoleParts parts, QWidget *window, QWidget *list);
  ~ConsoleKeys() override;

  // Keys that reach `window` count as the console's: a projection that the desktop made active must not swallow them.
  void AddWindow(QWidget *window) { m_others.append(window); }

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  bool ScreenKeyPressed(const QKeyEvent &event);
  bool KeyPressed(const QKeyEvent &event);
  bool KeyReleased(const QKeyEvent &event);
  void ReleaseCtrl();
  bool IsRepeatOf(const QKeyEvent *event, QWidget *receiver);

  ConsoleParts m_parts;
  QWidget *m_window;
  QWidget *m_list;
  QList<QPointer<QWidget>> m_others;
  bool m_ctrl = false;
  const void *m_lastEvent = nullptr; // only compared
  QPointer<QWidget> m_lastReceiver;
};

} // namespace tolmira
