#include "bible/reference_entry.h"

#include "bible/books.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

namespace tolmira {
namespace {

void SetText(EntryBox &box, const QString &text) {
  box.text = text;
  box.caret = static_cast<int>(text.size());
  box.selectionStart = box.caret;
  box.selectionLength = 0;
}

bool Holds(const EntryBox &box, QStringView text) {
  return box.text.compare(text, Qt::CaseInsensitive) == 0;
}

// What the blank makes of the letters and digits that people type for a roman number; empty for none of them.
QString BeforeBlank(const EntryBox &box, EntryPlace place) {
  if (box.text == u"1" || Holds(box, u"l"))
    return QStringLiteral("I");
  if (box.text == u"2" || Holds(box, u"ll"))
    return QStringLiteral("II");
  if (box.text == u"3" || Holds(box, u"lll"))
    return QStringLiteral("III");
  if (place == EntryPlace::Console && (Holds(box, u"jó") || Holds(box, u"jo")))
    return QStringLiteral("Jó");
  return {};
}

// The number when the box holds exactly one of "1", "2", "3"; 0 otherwise.
int BookDigit(const EntryBox &box) {
  return box.text == u"1" ? 1 : box.text == u"2" ? 2 : box.text == u"3" ? 3 : 0;
}

bool IsVerseDigit(QChar character) {
  return character >= u'1' && character <= u'9';
}

} // namespace

QString NormalizeReference(const QString &text) {
  QString line = text.trimmed();
  for (int pass = 0; pass < 4; ++pass)
    line.replace(QLatin1String("  "), QLatin1String(" "));
  line.replace(QLatin1String(": "), QLatin1String(":")).replace(QLatin1String(" :"), QLatin1String(":"));
  line.replace(QLatin1String("- "), QLatin1String("-")).replace(QLatin1String(" -"), QLatin1String("-"));

  const int book = BookNumber(line);
  if (book == 0)
    return {};
  const qsizetype length = BookName(book).size();
  const QString head = line.left(length).trimmed();
  QString rest = line.mid(length).trimmed();
  for (QChar &character : rest) {
    if (!QStringView(u"0123456789e").contains(character))
      character = u' ';
  }
  const QString chapter = SplitField(rest, QStringLiteral(" "), 1);
  const QString verse = SplitField(rest, QStringLiteral(" "), 2);
  return head + u' ' + chapter + u':' + (verse.isEmpty() ? QStringLiteral("1") : verse);
}

ReferenceEntry::ReferenceEntry(EntryPlace place) : m_place(place) {
  for (int book = 1; book <= BookCount; ++book)
    m_list2.append(BookName(book).toLower());
  m_list2.sort();
}

bool ReferenceEntry::KeyDown(EntryKey key, QChar letter, EntryBox &box, bool &keyUsed) {
  keyUsed = false;
  const QString before = box.text;
  if (key == EntryKey::Character && !letter.isNull()) {
    const QChar lower = letter.toLower();
    const QStringView shared = m_place == EntryPlace::Console ? u"tcpr" : u"tcpk";
    // "s" makes a roman number of a digit only: behind an "i" it may be Isaiah.
    if (const int digit = BookDigit(box); digit > 0) {
      if (lower == u'j' || (digit < 3 && (shared.contains(lower) || lower == u's')))
        SetText(box, QStringLiteral("III").left(digit) + u' ');
    } else if (Holds(box, u"i") || Holds(box, u"ii") || Holds(box, u"iii")) {
      if (lower == u'j' || shared.contains(lower))
        SetText(box, box.text + u' ');
    }
  }
  if (box.selectionStart == 0 && box.selectionLength == box.text.size())
    m_autoNome.clear();
  if (key == EntryKey::Delete)
    m_autoNome.clear();
  if (key == EntryKey::Backspace) {
    m_semCompletar = true;
    if (!m_autoNome.isEmpty() && box.text == m_autoNome) {
      m_autoNome.clear();
      SetText(box, QString());
      keyUsed = true;
    }
  }
  if (key == EntryKey::Space) {
    if (const QString name = BeforeBlank(box, m_place); !name.isEmpty())
      SetText(box, name);
  }
  return box.text != before;
}

bool ReferenceEntry::TextChanged(EntryBox &box) {
  if (m_semCompletar) {
    m_semCompletar = false;
    return false;
  }
  const QString before = box.text;
  qsizetype blanks = 0;
  while (blanks < box.text.size() && box.text.at(blanks) == u' ')
    ++blanks;
  if (blanks > 0) {
    box.text.remove(0, blanks);
    box.caret = std::max(0, box.caret - static_cast<int>(blanks));
    box.selectionStart = box.caret;
    box.selectionLength = 0;
  }
  // An emptied box has no last character to refuse: it may be cleared in any way, with the mouse too.
  if (!m_autoNome.isEmpty() && !box.text.isEmpty() && !IsVerseDigit(box.text.back()))
    SetText(box, m_autoNome);
  if (box.text != m_autoNome)
    m_autoNome.clear();
  if (box.text.size() >= 2 && box.text.size() <= 5 && !box.text.endsWith(u' '))
    Complete(box);
  return box.text != before;
}

void ReferenceEntry::Complete(EntryBox &box) {
  const qsizetype length = box.text.size();
  const QString letters = FoldText(box.text.toLower());
  for (qsizetype i = 0; i < m_list2.size(); ++i) {
    if (m_list2.at(i).left(length) != letters)
      continue;
    if (i + 1 < m_list2.size() && m_list2.at(i + 1).left(length) == letters)
      return;
    // The typed text is looked up as it stands: "gê" is decisive and yet finds no book, which leaves the box empty.
    const QString name = BookFromPrefix(box.text);
    SetText(box, name.isEmpty() ? QString() : name + u' ');
    m_autoNome = box.text;
    return;
  }
}

} // namespace tolmira
