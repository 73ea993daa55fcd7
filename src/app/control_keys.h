#pragma once

#include <QList>
#include <QString>

#include <optional>

#include "app/control_answer.h"

class QWidget;

namespace tolmira {

struct KeyStroke {
  int key = 0; // Qt's code
  Qt::KeyboardModifiers modifiers;
  QString text; // what the key types; empty for keys that type nothing
};

// "Down", "Ctrl+B", "Ctrl", "Return", "Enter", "Escape", "PageDown", "F5", "a", "A", "+", "ç". Nothing for a name that
// no key has.
std::optional<KeyStroke> ParseKey(const QString &name);
KeyStroke StrokeOfCharacter(QChar character);

// The hand on the keyboard. It remembers the modifiers that were pressed and not released.
class KeyHand {
public:
  // `console` names the window that gets keys while no window is active.
  explicit KeyHand(QString console) : m_console(std::move(console)) {}

  // action "click", "press" or "release". A click of "Ctrl+B" presses and releases Ctrl too, as fingers do.
  ControlAnswer Send(const QString &name, const QString &action);
  // A press that opened a modal window has not returned yet: the fingers leave the keys while that window is open.
  void LeaveKeys();

  // Types into the focus widget of `window`, character by character.
  static void Type(QWidget *target, const QString &text);

private:
  struct Step {
    bool press;
    KeyStroke stroke;
  };
  void Run(const Step &step);
  QWidget *Target() const;

  QString m_console;
  Qt::KeyboardModifiers m_held;
  QList<Step> m_releases; // what a click under way has still to release
};

} // namespace tolmira
