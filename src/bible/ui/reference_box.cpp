#include "bible/ui/reference_box.h"

#include <QKeyEvent>

namespace tolmira {

namespace {

// What is held once the key is down: the event of a modifier itself does not count it everywhere.
Qt::KeyboardModifiers HeldWith(const QKeyEvent &event) {
  Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  if (event.key() == Qt::Key_Control)
    held |= Qt::ControlModifier;
  if (event.key() == Qt::Key_Alt)
    held |= Qt::AltModifier;
  return held;
}

EntryKey KeyOf(int key) {
  switch (key) {
  case Qt::Key_Backspace:
    return EntryKey::Backspace;
  case Qt::Key_Delete:
    return EntryKey::Delete;
  case Qt::Key_Space:
    return EntryKey::Space;
  default:
    return EntryKey::Character;
  }
}

// A reference that is copied from elsewhere comes with line ends, tabs and blanks that do not break, and a line edit
// keeps them. True when there were any.
bool MakeBlanks(QString &text) {
  bool changed = false;
  for (QChar &character : text) {
    if (character == u' ' || !(character.isSpace() || character == QChar::LineSeparator))
      continue;
    character = u' ';
    changed = true;
  }
  return changed;
}

} // namespace

ReferenceBox::ReferenceBox(EntryPlace place, QWidget *parent) : QLineEdit(parent), m_entry(place) {
  // Text that an input method or the clipboard brings comes here without a key.
  connect(this, &QLineEdit::textChanged, this, [this] {
    EntryBox box = Read();
    if (MakeBlanks(box.text) || m_entry.TextChanged(box))
      Write(box);
  });
}

EntryBox ReferenceBox::Read() const {
  return {text(), cursorPosition(), hasSelectedText() ? selectionStart() : cursorPosition(), selectionLength()};
}

void ReferenceBox::Write(const EntryBox &box) {
  setText(box.text);
  if (box.selectionLength > 0)
    setSelection(box.selectionStart, box.selectionLength);
  else
    setCursorPosition(box.caret);
}

void ReferenceBox::keyPressEvent(QKeyEvent *event) {
  const Qt::KeyboardModifiers held = HeldWith(*event);
  if (held == (Qt::ControlModifier | Qt::AltModifier)) {
    if (!m_ctrlAlt) {
      m_ctrlAlt = true;
      emit CtrlAltPressed();
    }
    event->accept();
    return;
  }
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    event->accept();
    if (!event->isAutoRepeat())
      emit Submitted(held == Qt::ControlModifier);
    return;
  case Qt::Key_Escape:
    event->accept();
    emit Left();
    return;
  default:
    break;
  }

  // A key with Ctrl is a command (copy, paste), not a letter of a book's name.
  const bool command = held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const QString typed = event->text();
  const QChar letter = command || typed.isEmpty() ? QChar() : typed.front();
  EntryBox box = Read();
  bool used = false;
  if (m_entry.KeyDown(KeyOf(event->key()), letter, box, used))
    Write(box);
  if (used)
    event->accept();
  else
    QLineEdit::keyPressEvent(event);
}

void ReferenceBox::keyReleaseEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Control || event->key() == Qt::Key_Alt)
    m_ctrlAlt = false;
  QLineEdit::keyReleaseEvent(event);
}

void ReferenceBox::focusOutEvent(QFocusEvent *event) {
  m_ctrlAlt = false;
  QLineEdit::focusOutEvent(event);
}

} // namespace tolmira
