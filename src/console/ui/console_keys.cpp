#include "console/ui/console_keys.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace tolmira {

namespace {

bool TakesText(const QWidget *widget) {
  if (const auto *combo = qobject_cast<const QComboBox *>(widget))
    return combo->isEditable();
  return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget) ||
         qobject_cast<const QPlainTextEdit *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget);
}

// A text box has its own use for Ctrl+A, and none for these.
bool OpensFromText(const QKeyEvent &event) {
  return (event.key() == Qt::Key_B || event.key() == Qt::Key_M) && event.modifiers() == Qt::ControlModifier;
}

// Keys by which a list, a slider or a box with a list moves itself.
bool MovesWithin(int key, const QWidget *focus) {
  const bool paging = key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
  return paging && (qobject_cast<const QAbstractSlider *>(focus) || qobject_cast<const QComboBox *>(focus) ||
                    qobject_cast<const QAbstractItemView *>(focus));
}

bool IsEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

} // namespace

ConsoleKeys::ConsoleKeys(ConsoleParts parts, QWidget *window, QWidget *list)
    : QObject(window), m_parts(parts), m_window(window), m_list(list) {
  qApp->installEventFilter(this);
}

ConsoleKeys::~ConsoleKeys() { qApp->removeEventFilter(this); }

void ConsoleKeys::ReleaseCtrl() {
  if (!m_ctrl)
    return;
  m_ctrl = false;
  m_parts.teclas.KeyUp(Qt::Key_Control);
}

// A key that a control does not want climbs to its parents, and each of them passes here again.
bool ConsoleKeys::IsRepeatOf(const QKeyEvent *event, QWidget *receiver) {
  const bool climbs = event == m_lastEvent && m_lastReceiver && m_lastReceiver->parentWidget() == receiver;
  m_lastEvent = event;
  m_lastReceiver = receiver;
  return climbs;
}

bool ConsoleKeys::eventFilter(QObject *watched, QEvent *event) {
  switch (event->type()) {
  case QEvent::WindowDeactivate:
    if (watched == m_window)
      ReleaseCtrl();
    return false;
  case QEvent::ApplicationStateChange:
    if (qApp->applicationState() != Qt::ApplicationActive)
      ReleaseCtrl();
    return false;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
    break;
  default:
    return false;
  }

  auto *receiver = qobject_cast<QWidget *>(watched);
  // Wherever it is let go: a menu that the key opened takes its release.
  if (event->type() == QEvent::KeyRelease && receiver && receiver->window() != m_window) {
    const auto *released = static_cast<QKeyEvent *>(event);
    if (released->key() == Qt::Key_Control && !released->isAutoRepeat())
      ReleaseCtrl();
  }
  if (!receiver)
    return false;
  const auto *key = static_cast<QKeyEvent *>(event);
  if (event->type() == QEvent::KeyPress && ScreenKeyPressed(*key))
    return true;
  if (receiver->window() != m_window && !m_others.contains(receiver->window()))
    return false;
  if (IsRepeatOf(key, receiver))
    return false;
  const QWidget *modal = QApplication::activeModalWidget();
  const bool elsewhere = QApplication::activePopupWidget() || (modal && modal != m_window);
  if (elsewhere || TakesText(receiver)) {
    if (key->key() == Qt::Key_Control && event->type() == QEvent::KeyRelease && !key->isAutoRepeat())
      ReleaseCtrl();
    return !elsewhere && event->type() == QEvent::KeyPress && OpensFromText(*key) &&
           m_parts.teclas.KeyDown(key->key(), true, false);
  }
  const bool used = event->type() == QEvent::KeyPress ? KeyPressed(*key) : KeyReleased(*key);
  if (used)
    m_lastEvent = nullptr;
  return used;
}

// The menu has these keys while the console has the focus; the congregation's screen cannot wait until it has.
bool ConsoleKeys::ScreenKeyPressed(const QKeyEvent &event) {
  const int state = event.key() - Qt::Key_F5;
  if (state < 0 || state > 4 || event.modifiers() != Qt::NoModifier || !m_parts.console.estado.TelaPronta)
    return false;
  // A choice of the background would open over whatever waits for its answer.
  const bool asks = state == 3 && m_parts.controles.FundoPadrao().isEmpty();
  if (!event.isAutoRepeat() && !(asks && (QApplication::activeModalWidget() || QApplication::activePopupWidget())))
    m_parts.controles.SetScreenState(state);
  return true;
}

bool ConsoleKeys::KeyPressed(const QKeyEvent &event) {
  const int key = event.key();
  if (key == Qt::Key_Control) {
    if (event.isAutoRepeat() || m_ctrl)
      return true;
    m_ctrl = true;
    m_parts.teclas.KeyDown(key, true, false);
    return true;
  }
  const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
  if (m_ctrl && !ctrl)
    ReleaseCtrl(); // its release was lost on the way

  QWidget *focus = QApplication::focusWidget();
  const bool onList = focus == m_list;
  const ConsoleContext &console = m_parts.console;
  const bool textShown = console.faixa.Label1Visible || console.painel.biblia.Visible || console.estado.EhSlides();
  const bool used = !MovesWithin(key, focus) && m_parts.teclas.KeyDown(key, ctrl, onList);
  const bool arrow = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
  if (used)
    return textShown || !arrow; // with no text loaded the arrows move in the list as well
  if (IsEnter(key) && !event.isAutoRepeat())
    if (auto *button = qobject_cast<QAbstractButton *>(focus); button && button->isEnabled()) {
      button->click();
      return true;
    }
  return false;
}

bool ConsoleKeys::KeyReleased(const QKeyEvent &event) {
  if (event.key() != Qt::Key_Control || event.isAutoRepeat())
    return false;
  ReleaseCtrl();
  return true;
}

} // namespace tolmira
