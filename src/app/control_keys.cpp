#include "app/control_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QWidget>

#include <array>
#include <utility>

#include "app/control_windows.h"

// The toolkit's own way to offer a key to shortcuts before it goes to a widget. It is exported for the test library,
// which declares it in the same way; there is no public call for it.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject *o, ulong timestamp, int k, Qt::KeyboardModifiers mods,
                                               const QString &text, bool autorep, ushort count);
QT_END_NAMESPACE

namespace tolmira {

namespace {

struct ModifierKey {
  const char16_t *name;
  int key;
  Qt::KeyboardModifier modifier;
};
constexpr std::array<ModifierKey, 4> ModifierKeys = {{
    {u"Ctrl", Qt::Key_Control, Qt::ControlModifier},
    {u"Shift", Qt::Key_Shift, Qt::ShiftModifier},
    {u"Alt", Qt::Key_Alt, Qt::AltModifier},
    {u"Meta", Qt::Key_Meta, Qt::MetaModifier},
}};

const ModifierKey *ModifierNamed(QStringView name) {
  for (const ModifierKey &modifier : ModifierKeys)
    if (name.compare(QStringView(modifier.name), Qt::CaseInsensitive) == 0)
      return &modifier;
  return name.compare(u"Control", Qt::CaseInsensitive) == 0 ? &ModifierKeys.front() : nullptr;
}

Qt::KeyboardModifier ModifierOf(int key) {
  for (const ModifierKey &modifier : ModifierKeys)
    if (modifier.key == key)
      return modifier.modifier;
  return Qt::NoModifier;
}

void SendKey(QWidget *target, bool press, const KeyStroke &stroke, Qt::KeyboardModifiers modifiers) {
  if (press && qt_sendShortcutOverrideEvent(target, 0, stroke.key, modifiers, stroke.text, false, 1))
    return;
  QKeyEvent event(press ? QEvent::KeyPress : QEvent::KeyRelease, stroke.key, modifiers, stroke.text);
  QApplication::sendEvent(target, &event);
}

} // namespace

KeyStroke StrokeOfCharacter(QChar character) {
  KeyStroke stroke;
  stroke.text = character;
  if (character == u'\n' || character == u'\r') {
    stroke.key = Qt::Key_Return;
    stroke.text = QStringLiteral("\r");
  } else if (character == u'\t') {
    stroke.key = Qt::Key_Tab;
  } else {
    // A letter's code is its capital; other characters have their own number as code.
    stroke.key = character.toUpper().unicode();
    if (character.isLetter() && character != character.toLower())
      stroke.modifiers = Qt::ShiftModifier;
  }
  return stroke;
}

std::optional<KeyStroke> ParseKey(const QString &name) {
  if (name.size() == 1)
    return name.front().isPrint() ? std::optional(StrokeOfCharacter(name.front())) : std::nullopt;
  if (const ModifierKey *alone = ModifierNamed(name))
    return KeyStroke{alone->key, {}, {}};

  // "Ctrl++" ends in the key "+".
  const qsizetype cut = name.lastIndexOf(u'+', -2);
  KeyStroke stroke;
  if (cut > 0) {
    const auto names = QStringView(name).left(cut).split(u'+');
    for (QStringView modifierName : names) {
      const ModifierKey *modifier = ModifierNamed(modifierName);
      if (!modifier)
        return std::nullopt;
      stroke.modifiers |= modifier->modifier;
    }
  }
  const QString last = name.mid(cut + 1);
  if (last.size() == 1) {
    const KeyStroke character = StrokeOfCharacter(last.front());
    stroke.key = character.key;
    const bool types = !(stroke.modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (types)
      stroke.text = stroke.modifiers & Qt::ShiftModifier ? last.toUpper() : last;
    return stroke;
  }
  static const std::array<std::pair<QStringView, int>, 6> Aliases = {{{u"Escape", Qt::Key_Escape},
                                                                      {u"PageDown", Qt::Key_PageDown},
                                                                      {u"PageUp", Qt::Key_PageUp},
                                                                      {u"Delete", Qt::Key_Delete},
                                                                      {u"Insert", Qt::Key_Insert},
                                                                      {u"Space", Qt::Key_Space}}};
  for (const auto &[alias, key] : Aliases)
    if (last.compare(alias, Qt::CaseInsensitive) == 0)
      stroke.key = key;
  if (!stroke.key) {
    const QKeySequence sequence = QKeySequence::fromString(last, QKeySequence::PortableText);
    if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown || sequence[0].keyboardModifiers())
      return std::nullopt;
    stroke.key = sequence[0].key();
  }
  if (stroke.key == Qt::Key_Return || stroke.key == Qt::Key_Enter)
    stroke.text = QStringLiteral("\r");
  else if (stroke.key == Qt::Key_Space)
    stroke.text = QStringLiteral(" ");
  if (stroke.key == Qt::Key_Enter)
    stroke.modifiers |= Qt::KeypadModifier;
  return stroke;
}

QWidget *KeyHand::Target() const {
  const auto inside = [](QWidget *window) { return window->focusWidget() ? window->focusWidget() : window; };
  if (QWidget *popup = QApplication::activePopupWidget())
    return inside(popup);
  QWidget *focus = QApplication::focusWidget();
  if (QWidget *modal = QApplication::activeModalWidget())
    return focus && focus->window() == modal ? focus : inside(modal);
  if (focus)
    return focus;
  if (QWidget *active = QApplication::activeWindow())
    return inside(active);
  QWidget *console = FindWindow(m_console);
  return console ? inside(console) : nullptr;
}

void KeyHand::Run(const Step &step) {
  QWidget *target = Target();
  const Qt::KeyboardModifier own = ModifierOf(step.stroke.key);
  // The event of a modifier key carries the modifiers as they were before it.
  const Qt::KeyboardModifiers modifiers = step.stroke.modifiers | m_held;
  if (own != Qt::NoModifier)
    m_held.setFlag(own, step.press);
  if (target)
    SendKey(target, step.press, step.stroke, modifiers);
}

void KeyHand::LeaveKeys() {
  while (!m_releases.isEmpty())
    Run(m_releases.takeFirst());
}

ControlAnswer KeyHand::Send(const QString &name, const QString &action) {
  const std::optional<KeyStroke> stroke = ParseKey(name);
  if (!stroke)
    return ControlAnswer::Failed(QStringLiteral("there is no key \"%1\"").arg(name));
  if (!Target())
    return ControlAnswer::Failed(QStringLiteral("there is no window for keys"));

  QList<Step> presses;
  QList<Step> releases;
  for (const ModifierKey &modifier : ModifierKeys) {
    // One that is held already stays held.
    if (!(stroke->modifiers & modifier.modifier) || (action == u"click" && (m_held & modifier.modifier)))
      continue;
    presses.append({true, {modifier.key, {}, {}}});
    releases.prepend({false, {modifier.key, {}, {}}});
  }
  KeyStroke main = *stroke;
  main.modifiers &= Qt::KeypadModifier; // the others come from what is held
  presses.append({true, main});
  releases.prepend({false, main});

  if (action == u"press") {
    for (const Step &step : std::as_const(presses))
      Run(step);
  } else if (action == u"release") {
    for (const Step &step : std::as_const(releases))
      Run(step);
  } else if (action == u"click") {
    LeaveKeys();
    m_releases = releases;
    for (const Step &step : std::as_const(presses))
      Run(step);
    LeaveKeys();
  } else {
    return ControlAnswer::Failed(QStringLiteral("the action is \"click\", \"press\" or \"release\""));
  }
  return ControlAnswer::Ok();
}

void KeyHand::Type(QWidget *target, const QString &text) {
  const QPointer<QWidget> alive(target);
  for (const QChar character : text) {
    const KeyStroke stroke = StrokeOfCharacter(character);
    for (const bool press : {true, false})
      if (alive)
        SendKey(alive, press, stroke, stroke.modifiers);
  }
}

} // namespace tolmira
