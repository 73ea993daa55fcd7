#include "bible/books.h"
#include "bible/reference_entry.h"

#include <QTest>

using namespace tolmira;

class TestBooks : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void TheTableIsWhole() {
    int chapters = 0;
    for (int book = 1; book <= BookCount; ++book) {
      QCOMPARE(BookNumber(BookName(book) + QStringLiteral(" 1:1")), book);
      QCOMPARE(BookOfName(BookName(book).toUpper()), book);
      QVERIFY(!BookAbbreviation(book).isEmpty());
      QVERIFY(book == 1 || book == 40 || SearchStart(book) > SearchStart(book - 1));
      chapters += ChapterCount(book);
    }
    QCOMPARE(chapters, 1189);
    QCOMPARE(BookName(OldTestamentBooks), QStringLiteral("Malachi"));
    QCOMPARE(SearchStart(43), 219281); // 219281.3
    for (const int none : {0, -1, 67}) {
      QCOMPARE(BookName(none), QString());
      QCOMPARE(BookAbbreviation(none), QString());
      QCOMPARE(SearchStart(none), 0);
      QCOMPARE(ChapterCount(none), 0);
    }
  }

  void LeadingBook_data() {
    QTest::addColumn<QString>("reference");
    QTest::addColumn<int>("book");
    const auto row = [](const char *reference, int book) {
      QTest::newRow(reference) << QString::fromUtf8(reference) << book;
    };
    row("gênesis 1", 1);
    row("GÉNÊSÍS 1", 1);
    row("John 1", 43);
    row("I John 1", 62);
    row("II John 1", 63);
    row("III  John 1", 0);
    row("John", 0);
    row("John3:16", 0);
    row("John\t3", 0);
    row(" John 3", 0);
    row("Johnny 3", 0);
    row("J'hn 3", 0);
    row("Song of Solomon 2:1", 22);
    row("Song 2:1", 0);
    row("", 0);
    row("Ge\xCC\x82nesis 1", 0); // the accent is a character of its own
    row("Colo\xC3\x9Fians 1", 0);
    row("\xF0\x9D\x94\xB8 1", 0);
  }
  void LeadingBook() {
    QFETCH(QString, reference);
    QTEST(BookNumber(reference), "book");
  }

  void Prefix_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("book");
    const auto row = [](const char *text, const char *book) {
      QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(book);
    };
    row("ge", "Genesis");
    row(" GEN ", "Genesis");
    row("gê", "");
    row("j", "Joshua");
    row("jo", "Joshua");
    row("joh", "John");
    row("i s", "I Samuel");
    row("iii j", "III John");
    row("Genesis", "Genesis");
    row("Genesis 1", "");
    row("ß", "");
    row("", "Genesis");
  }
  void Prefix() {
    QFETCH(QString, text);
    QTEST(BookFromPrefix(text), "book");
  }

  void Normalizing_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("reference");
    const auto row = [](const char *typed, const char *reference) {
      QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(reference);
    };
    row("John 3 16", "John 3:16");
    row("john 3:16", "john 3:16");
    row("JOHN 3:16-18", "JOHN 3:16");
    row("Gênesis 3.16", "Gênesis 3:16");
    row("John 3", "John 3:1");
    row("John", "");
    row("John ", "");
    row("John x", "John :1");
    row("  John   3  :  16 ", "John 3:16");
    row("John                3:16", "John 3:16"); // sixteen blanks: four halvings
    row("John 3 - 16", "John 3:16");
    row("John 3:-16", "John 3:1"); // two blanks in a row: the second field is empty
    row("John 3:16,17", "John 3:16");
    row("John (3:16)", "John :3"); // the first field is empty
    row("John3:16", "");
    row("John: 3:16", "");
    row("John 3:16e18", "John 3:16e18");
    row("John 3:16E18", "John 3:16");
    row("II John 1", "II John 1:1");
    row("the acts of the apostles 2 1", "the acts of the apostles 2:1");
    row("Nowhere 3:16", "");
    row("3:16", "");
    row("..., ;", "");
    row("", "");
    row("John \xD9\xA3:\xD9\xA1", "John :1"); // digits of another script
  }
  void Normalizing() {
    QFETCH(QString, typed);
    QTEST(NormalizeReference(typed), "reference");
  }

  // One of every sort of character, broken pairs too, in front of, inside and behind a reference.
  void NoCharacterUpsetsAReference() {
    for (const char16_t unit : {u'\0',     u'\t',     u'\n',     u'\u00A0', u'\u00AD', u'\u0130', u'\u0149', u'\u01C5',
                                u'\u02B0', u'\u0300', u'\u0488', u'\u0660', u'\u200B', u'\u202E', u'\u2028', u'\u2160',
                                u'\u20AC', u'\u3042', u'\uE000', u'\uFB03', u'\uFEFF', u'\uFFFF', u'ß'})
      TryCharacter(QString(QChar(unit)));
    for (const QString &text :
         {QString(QChar(0xD835)), QString(QChar(0xDD38)), QStringLiteral("𝔸"), QStringLiteral("👨‍👩‍👧")})
      TryCharacter(text);
  }

private:
  static void TryCharacter(const QString &text) {
    const QString reference = QStringLiteral("John 3:16");
    for (qsizetype at = 0; at <= reference.size(); ++at) {
      const QString typed = reference.left(at) + text + reference.mid(at);
      const QString normal = NormalizeReference(typed);
      QVERIFY(normal.isEmpty() || BookNumber(normal) == 43);
      BookFromPrefix(typed);
      BookFromPrefix(text);
    }
  }
};

QTEST_GUILESS_MAIN(TestBooks)
#include "test_books.moc"
