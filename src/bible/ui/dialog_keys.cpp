#include "bible/ui/dialog_keys.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace tolmira {

bool PressedInDialog(QWidget &window, const QKeyEvent &event) {
  switch (event.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (auto *button = qobject_cast<QAbstractButton *>(window.focusWidget()); button && !event.isAutoRepeat())
      button->click();
    return true;
  case Qt::Key_Escape:
    window.close();
    return true;
  default:
    return false;
  }
}

} // namespace tolmira
