#include "bible/reference_entry.h"

#include <QTest>

using namespace tolmira;

Q_DECLARE_METATYPE(tolmira::EntryPlace)

namespace {

// A box as a line edit is one: a key lands behind what the rules made of the text, and every change is told, also one
// that was made by the rules.
class Box {
public:
  explicit Box(EntryPlace place) : m_entry(place) {}

  // Letters as they are typed, and "<" for Backspace, "#" for Delete.
  void Type(const QString &keys) {
    for (const QChar key : keys)
      Press(key);
  }
  // Text without a key, as an input method and the clipboard bring it.
  void Insert(const QString &text) {
    EntryBox box = m_box;
    box.text.remove(box.selectionStart, box.selectionLength);
    const int at = m_box.selectionLength > 0 ? m_box.selectionStart : m_box.caret;
    box.text.insert(at, text);
    Change(box.text, at + static_cast<int>(text.size()));
  }
  void Select(int start, int length) {
    m_box.selectionStart = start;
    m_box.selectionLength = length;
    m_box.caret = start + length;
  }
  void SelectAll() { Select(0, static_cast<int>(m_box.text.size())); }
  void MoveTo(int caret) { Select(caret, 0); }
  void Clear() { Change(QString(), 0); }

  // With "|" where the caret is.
  QString Shown() const { return QString(m_box.text).insert(m_box.caret, u'|'); }
  QString AutoNome() const { return m_entry.AutoNome(); }

private:
  void Press(QChar key) {
    const EntryKey kind = key == u'<'   ? EntryKey::Backspace
                          : key == u'#' ? EntryKey::Delete
                          : key == u' ' ? EntryKey::Space
                                        : EntryKey::Character;
    EntryBox box = m_box;
    bool used = false;
    if (m_entry.KeyDown(kind, kind == EntryKey::Character ? key : QChar(), box, used))
      Copy(box);
    if (used)
      return;
    if (kind == EntryKey::Character || kind == EntryKey::Space) {
      Insert(QString(key));
    } else if (m_box.selectionLength > 0) {
      Insert(QString());
    } else {
      const int at = kind == EntryKey::Backspace ? m_box.caret - 1 : m_box.caret;
      if (at >= 0 && at < m_box.text.size())
        Change(QString(m_box.text).remove(at, 1), at);
    }
  }
  void Change(const QString &text, int caret) {
    const bool changed = text != m_box.text;
    m_box = {text, caret, caret, 0};
    if (!changed)
      return;
    EntryBox box = m_box;
    if (m_entry.TextChanged(box))
      Copy(box);
  }
  void Copy(const EntryBox &box) {
    ++m_depth;
    QVERIFY2(m_depth < 5, "the changes of the box call each other without end");
    Change(box.text, box.caret);
    --m_depth;
  }

  ReferenceEntry m_entry;
  EntryBox m_box;
  int m_depth = 0;
};

} // namespace

class TestReferenceEntry : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Typing_data() {
    QTest::addColumn<EntryPlace>("place");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shown");
    const auto both = [](const char *keys, const char *shown) {
      QTest::addRow("console: %s", keys) << EntryPlace::Console << QString::fromUtf8(keys) << QString::fromUtf8(shown);
      QTest::addRow("dialog: %s", keys) << EntryPlace::AddDialog << QString::fromUtf8(keys) << QString::fromUtf8(shown);
    };
    const auto differ = [](const char *keys, const char *console, const char *dialog) {
      QTest::addRow("console: %s", keys) << EntryPlace::Console << QString::fromUtf8(keys)
                                         << QString::fromUtf8(console);
      QTest::addRow("dialog: %s", keys) << EntryPlace::AddDialog << QString::fromUtf8(keys)
                                        << QString::fromUtf8(dialog);
    };
    // Letters that leave one book.
    both("jo", "jo|");
    both("joe", "Joel |");
    both("job", "Job |");
    both("th", "The Acts of the Apostles |");
    both("jud", "jud|");
    both("jude", "Jude |");
    both("judg", "Judges |");
    both("JOB", "Job |");
    both("z", "z|");
    both("ze", "ze|");
    both("zep", "Zephaniah |"); // the last of the list has none behind it
    both("xy", "xy|");
    both("gê", "|");
    both("gêj", "j|");
    both(" job", "Job |");
    both("joh 3 16", "John 3 16|");
    // Roman numbers.
    both("1s", "I Samuel |");
    both("2s", "II Samuel |");
    both("3s", "3s|");
    both("1J", "I John |");
    both("3j", "III John |");
    both("3t", "3t|");
    both("2ti", "II Timothy |");
    both("1t", "I t|");
    both("1co", "I Corinthians |");
    both("1ch", "I Chronicles |");
    both("1pe", "I Peter |");
    both("ij", "I John |");
    both("is", "Isaiah |");
    both("iis", "iis|");
    both("iit", "ii t|");
    both("Iij", "II John |");
    both("ic", "i c|");
    differ("1k", "1k|", "I Kings |");
    differ("2k", "2k|", "II Kings |");
    differ("1r", "I r|", "1r|");
    differ("ir", "i r|", "ir|");
    differ("ik", "ik|", "I Kings |");
    // The blank.
    both("1 s", "I Samuel |");
    both("2 ", "II |");
    both("3 ", "III John |");
    both("l j", "I John |");
    both("LL j", "II John |");
    both("lll", "lll|");
    both("lll ", "III John |");
    both("i ", "i |");
    both("x ", "x |");
    both("  ", "|");
    differ("jo 3", "Jó 3|", "jo 3|");
    differ("JÓ ", "Jó |", "JÓ |");
    // Behind a completed name.
    both("joe2", "Joel 2|");
    both("joex", "Joel |");
    both("joe0", "Joel |");
    both("joe ", "Joel |");
    both("joe20:10", "Joel 20:10|");
    both("joe2x", "Joel 2x|");
    // Backspace and Delete.
    both("joe<", "|");
    both("joe<jo", "jo|");
    both("joe2<", "Joel |");
    both("joe2<<", "Joel|");
    both("joe2<<<", "Joe|");
    both("joe2<<<l", "Joel |");
    both("jox<e", "Joel |");
    both("<ge", "Genesis |"); // the flag of a Backspace that changed nothing is used up by the first letter
    both("g<je", "Jeremiah |");
    // Six characters are never completed.
    both("zzzzz<<<<<", "|");
  }
  void Typing() {
    QFETCH(EntryPlace, place);
    QFETCH(QString, keys);
    Box box(place);
    box.Type(keys);
    QTEST(box.Shown(), "shown");
  }

  void ALineOfSixIsNeverCompleted() {
    Box box(EntryPlace::Console);
    box.Insert(QStringLiteral("genesi"));
    QCOMPARE(box.Shown(), QStringLiteral("genesi|"));
    box.Clear();
    box.Insert(QStringLiteral("genes"));
    QCOMPARE(box.Shown(), QStringLiteral("Genesis |"));
  }

  // A dead key gives its letter without a key press.
  void TextOfAnInputMethod() {
    Box box(EntryPlace::Console);
    box.Type(QStringLiteral("J"));
    box.Insert(QStringLiteral("ó"));
    QCOMPARE(box.Shown(), QStringLiteral("Jó|"));
    box.Type(QStringLiteral(" 3"));
    QCOMPARE(box.Shown(), QStringLiteral("Jó 3|"));

    Box other(EntryPlace::Console);
    other.Type(QStringLiteral("joe"));
    other.Insert(QStringLiteral("ó"));
    QCOMPARE(other.Shown(), QStringLiteral("Joel |"));
    other.Insert(QStringLiteral("2:3"));
    QCOMPARE(other.Shown(), QStringLiteral("Joel 2:3|"));
  }

  void SelectionsAndTheCaret() {
    Box box(EntryPlace::Console);
    box.Type(QStringLiteral("joe"));
    box.SelectAll();
    box.Type(QStringLiteral("g"));
    QCOMPARE(box.Shown(), QStringLiteral("g|"));
    QCOMPARE(box.AutoNome(), QString());

    Box deleted(EntryPlace::Console);
    deleted.Type(QStringLiteral("joe"));
    deleted.MoveTo(0);
    deleted.Type(QStringLiteral("#"));
    QCOMPARE(deleted.Shown(), QStringLiteral("|oel "));

    // Only a part selected: what comes in must still be a digit.
    Box part(EntryPlace::Console);
    part.Type(QStringLiteral("joe"));
    part.Select(1, 4);
    part.Type(QStringLiteral("x"));
    QCOMPARE(part.Shown(), QStringLiteral("Joel |"));

    Box cleared(EntryPlace::Console);
    cleared.Type(QStringLiteral("joe"));
    cleared.Clear();
    QCOMPARE(cleared.Shown(), QStringLiteral("|"));
    cleared.Type(QStringLiteral("ge"));
    QCOMPARE(cleared.Shown(), QStringLiteral("Genesis |"));

    Box blanks(EntryPlace::Console);
    blanks.Type(QStringLiteral("xy"));
    blanks.MoveTo(0);
    blanks.Insert(QStringLiteral("  z"));
    QCOMPARE(blanks.Shown(), QStringLiteral("z|xy"));
  }
};

QTEST_GUILESS_MAIN(TestReferenceEntry)
#include "test_reference_entry.moc"
