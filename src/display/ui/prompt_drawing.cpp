#include "display/ui/prompt_drawing.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QQuickWidget>
#include <QTimerEvent>

namespace tolmira {

PromptDrawing::PromptDrawing(QObject *parent) : QObject(parent) {
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] { DrawNow(); });
}

void PromptDrawing::Watch(QQuickWidget *widget) {
  m_widget = widget;
}

void PromptDrawing::DrawNow() {
  if (!m_widget)
    return;
  // The only timer that the widget ever has is the one that waits for further changes.
  const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_widget);
  for (const QAbstractEventDispatcher::TimerInfo &timer : timers) {
    QTimerEvent elapsed(timer.timerId);
    QCoreApplication::sendEvent(m_widget, &elapsed);
  }
}

} // namespace tolmira
