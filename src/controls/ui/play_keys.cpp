#include "controls/ui/play_keys.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace tolmira {

PlayKeys::PlayKeys(QWidget *window, std::function<void()> space) : QObject(window), m_space(std::move(space)) {
  for (QWidget *part : window->findChildren<QWidget *>())
    if (part->focusPolicy() != Qt::NoFocus)
      part->installEventFilter(this);
  window->installEventFilter(this);
}

bool PlayKeys::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
    return false;
  const auto *key = static_cast<QKeyEvent *>(event);
  const bool pressed = event->type() == QEvent::KeyPress && !key->isAutoRepeat();
  if (key->key() == Qt::Key_Space) {
    if (pressed)
      m_space();
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    if (auto *button = qobject_cast<QAbstractButton *>(watched); button && pressed)
      button->click();
    return true;
  }
  return false;
}

} // namespace tolmira
