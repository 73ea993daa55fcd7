#include "controls/ui/context_menu_key.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace tolmira {

ContextMenuKey::ContextMenuKey() {
  qApp->installEventFilter(this);
}

bool ContextMenuKey::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress)
    return false;
  const auto *key = static_cast<QKeyEvent *>(event);
  auto *focus = qobject_cast<QWidget *>(watched);
  if (!focus || key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier)
    return false;
  if (key->isAutoRepeat())
    return true;
  // The place that the menu key would give: the text cursor, where there is one.
  const QPoint place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
  QApplication::sendEvent(focus, &menu);
  return true;
}

} // namespace tolmira
