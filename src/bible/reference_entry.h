#pragma once

#include <QString>
#include <QStringList>

namespace tolmira {

// A typed line as a reference ("John 3 16" gives "John 3:16"), the book as it was typed; empty when no book leads it.
QString NormalizeReference(const QString &text);

// What an entry box for references holds.
struct EntryBox {
  QString text;
  int caret = 0; // position in UTF-16 units
  int selectionStart = 0;
  int selectionLength = 0;
};

// The two boxes that follow these rules: the quick box of the console, and that of the add dialog, which knows the
// English books of Kings by "k" and has no "jó".
enum class EntryPlace { Console, AddDialog };

// A pressed key as the rules need it: its letter on the key cap without Shift, or one of the named keys. What is
// neither (an arrow, say) is a Character without a letter.
enum class EntryKey { Character, Backspace, Delete, Space };

// The completion of an entry box, without the box. The window feeds it each key before the character lands and each
// change of the text, and copies back what it made of the box; a change made here is fed as a change again by the box
// itself, as Qt's textChanged does. A text that comes without a key, from an input method or the clipboard, is told by
// its change alone.
class ReferenceEntry {
public:
  explicit ReferenceEntry(EntryPlace place);

  // True when `box` was changed and is to be copied back before the character lands. A box emptied by Backspace has
  // used the key up: `keyUsed` tells.
  bool KeyDown(EntryKey key, QChar letter, EntryBox &box, bool &keyUsed);
  bool TextChanged(EntryBox &box); // true when `box` was changed

  QString AutoNome() const { return m_autoNome; } // the completion that stands in the box; empty when none does

private:
  void Complete(EntryBox &box);

  EntryPlace m_place;
  QStringList m_list2; // all book names, lower case, sorted: one look at the next tells whether letters are decisive
  QString m_autoNome;
  bool m_semCompletar = false;
};

} // namespace tolmira
