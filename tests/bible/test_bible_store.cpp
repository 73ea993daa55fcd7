#include "bible/bible_store.h"
#include "bible/books.h"
#include "bible/store_room.h"
#include "support/small_bible.h"

#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

constexpr int John = 43;

// A chapter laid out by hand, far enough behind the start of the file for the search to see it.
QByteArray JohnFile(const QByteArray &chapters) {
  return QByteArray(SearchStart(John), 'x') + "\r\n" + chapters;
}

} // namespace

class TestBibleStore : public QObject, protected StoreRoom {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(MakeRoom());
  }

  void EveryChapterIsBehindItsSearchStart() {
    QVERIFY(WriteSmallBible(m_dir->path(), QStringLiteral("KJV")));
    m_bible->BuildVersionMenu();
    for (int book = 1; book <= BookCount; ++book) {
      QCOMPARE(m_bible->CapitulosDoLivro(book).size(), ChapterCount(book));
      const int last = ChapterCount(book);
      QString reference = QStringLiteral("%1 %2:1000").arg(BookName(book)).arg(last);
      const int verse = SmallBibleVerses(book, last);
      QCOMPARE(m_bible->GetVerse(reference),
               QString(QString::number(verse) + u' ' + SmallBibleVerse(book, last, verse, QStringLiteral("KJV"))));
      QCOMPARE(reference, QStringLiteral("%1 %2:%3").arg(BookName(book)).arg(last).arg(verse));
    }
  }

  void References_data() {
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const QString &reference, const QString &line) {
      QTest::newRow(name) << reference << line;
    };
    const QString verse2 = QStringLiteral("2 verse two");
    const QString verse16 = QStringLiteral("16 verse sixteen");
    row("plain", QStringLiteral("John 3:16"), verse16);
    row("blanks round it", QStringLiteral("  John 3:16 "), verse16);
    row("other case", QStringLiteral("jOHN 3:16"), verse16);
    row("accents", QStringLiteral("Jôhn 3:16"), verse16);
    row("several words", QStringLiteral("the acts of the apostles 1:1"), QStringLiteral("1 acts"));
    row("roman number", QStringLiteral("I John 1:1"), QStringLiteral("1 first letter"));
    row("no blank behind the book", QStringLiteral("John3:16"), QString());
    row("part of a name", QStringLiteral("Acts 1:1"), QString());
    row("verse behind the end", QStringLiteral("John 3:99"), QString());
    row("verse just behind the end", QStringLiteral("John 3:17"), QString());
    row("verse 0", QStringLiteral("John 3:0"), QString());
    row("negative verse", QStringLiteral("John 3:-1"), QString());
    row("no verse", QStringLiteral("John 3"), QString());
    row("no chapter", QStringLiteral("John :1"), QString());
    row("chapter that is not there", QStringLiteral("John 99:1"), QString());
    row("chapter beyond the index", QStringLiteral("John 1001:1"), QStringLiteral("1 far"));
    row("chapter of fifty digits", QString(QStringLiteral("John ") + QString(50, u'9') + u":1"), QString());
    row("chapter beyond any number", QString(QStringLiteral("John ") + QString(500, u'9') + u":1"), QString());
    row("verse of fifty digits: the first four", QString(QStringLiteral("John 3:0002") + QString(46, u'9')), verse2);
    row("a small e ends the number", QStringLiteral("John 3:2e1"), verse2);
    row("only the first small e", QStringLiteral("John 3e0:2e0"), verse2);
    row("chapter as a power", QStringLiteral("John 3e0:2"), verse2);
    row("great power", QStringLiteral("John 3e0:9e99"), QString());
    row("broken verse", QStringLiteral("John 3:2.7"), verse2);
    row("range", QStringLiteral("John 3:2-4"), verse2);
    row("old testament", QStringLiteral("Genesis 1:1"), QString());
    row("only punctuation", QStringLiteral(":;.,-"), QString());
    row("empty", QString(), QString());
  }
  void References() {
    QFETCH(QString, reference);
    QStringList verses(16, QStringLiteral("other"));
    verses[1] = QStringLiteral("verse two");
    verses[15] = QStringLiteral("verse sixteen");
    Write(SmallBible()
              .Chapter(2, 1, {QStringLiteral("a")})
              .Chapter(John, 3, verses)
              .Chapter(John, 1001, {QStringLiteral("far")})
              .Chapter(44, 1, {QStringLiteral("acts")})
              .Chapter(62, 1, {QStringLiteral("first letter")}));
    const QString given = reference;
    QTEST(m_bible->GetVerse(reference), "line");
    QCOMPARE(reference, given);
  }

  void LastVerseRewritesTheReference() {
    Write(SmallBible().Chapter(1, 1, {QStringLiteral("a")}).Chapter(John, 3, Numbered(36)));
    QString reference = QStringLiteral(" john 3:1000");
    QCOMPARE(m_bible->GetVerse(reference), QStringLiteral("36 verse 36"));
    QCOMPARE(reference, QStringLiteral("john 3:36"));
    QCOMPARE(m_bible->RefAtual(), QString());
  }

  void ChapterStaysUnlessAnotherIsThere() {
    Write(SmallBible().Chapter(1, 1, {QStringLiteral("a")}).Chapter(John, 3, Numbered(2)));
    const QStringList chapter = {QString(), QStringLiteral("1 verse 1"), QStringLiteral("2 verse 2"), QString()};
    QVERIFY(Fetch(u"John 3:99").isEmpty());
    QCOMPARE(m_bible->Capitulo(), chapter);
    for (const QStringView reference : {u"John 99:1", u"Nowhere 1:1", u"John 0:1", u"Mark 1:1"}) {
      QVERIFY(Fetch(reference).isEmpty());
      QCOMPARE(m_bible->Capitulo(), chapter);
    }
    QVERIFY(!Fetch(u"Genesis 1:1").isEmpty());
    QCOMPARE(m_bible->Capitulo().size(), 3);
    m_bible->VersiculosDoCapitulo(John, 3);
    QCOMPARE(m_bible->Capitulo().size(), 3);
  }

  void SteppingStaysInTheFetchedChapter() {
    Write(SmallBible().Chapter(1, 1, {QStringLiteral("a")}).Chapter(John, 3, Numbered(3)));
    QCOMPARE(m_bible->NextVerse(QStringLiteral("John 3:1")), QString());
    QCOMPARE(m_bible->RefAtual(), QString());

    Fetch(u"John 3:1");
    QCOMPARE(m_bible->NextVerse(QStringLiteral("John 3:1")), QStringLiteral("verse 2"));
    QCOMPARE(m_bible->NextVerse(QStringLiteral("Mark 9:2")), QStringLiteral("verse 3"));
    QCOMPARE(m_bible->RefAtual(), QStringLiteral("Mark 9:3"));
    // Once beyond the end: empty, and yet a step.
    QCOMPARE(m_bible->NextVerse(QStringLiteral("John 3:3")), QString());
    QCOMPARE(m_bible->RefAtual(), QStringLiteral("John 3:4"));
    QCOMPARE(m_bible->NextVerse(QStringLiteral("John 3:4")), QString());
    QCOMPARE(m_bible->RefAtual(), QStringLiteral("John 3:4"));
    QCOMPARE(m_bible->PreviousVerse(QStringLiteral("John 3:4")), QStringLiteral("verse 3"));
    QCOMPARE(m_bible->PreviousVerse(QStringLiteral("John 3:1")), QString());
    QCOMPARE(m_bible->RefAtual(), QStringLiteral("John 3:3"));
    for (const QStringView reference : {u"John 3:-9", u"John 3:99999999999", u"John", u"", u":"})
      QCOMPARE(m_bible->PreviousVerse(reference.toString()), QString());
    QCOMPARE(m_bible->NextVerse(QStringLiteral("John 3:99999999999")), QString());
  }

  // What a chapter's text gives: the verse lines one by one, and Capitulo.
  void Layouts_data() {
    QTest::addColumn<QByteArray>("chapters");
    QTest::addColumn<QStringList>("lines"); // from verse 1 on
    QTest::addColumn<QStringList>("capitulo");
    const auto row = [](const char *name, const QByteArray &chapters, const QStringList &lines,
                        const QStringList &capitulo) { QTest::newRow(name) << chapters << lines << capitulo; };
    const QString a = QStringLiteral("1 a");
    const QString b = QStringLiteral("2 b");
    const QString none;
    row("CR LF", ">John [3]\r\n1 a\r\n2 b\r\n>John [4]\r\n1 c\r\n", {a, b, none}, {none, a, b, none});
    row("LF", ">John [3]\n1 a\n2 b\n>John [4]\n1 c\n", {a, b, none}, {none, a, b, none});
    row("end of the file", ">John [3]\r\n1 a\r\n2 b\r\n", {a, b, none}, {none, a, b, none});
    row("cut in a line", ">John [3]\r\n1 a\r\n2 b", {a, b, none}, {none, a, b});
    row("cut behind the header", ">John [3]", {none}, {});
    row("CR only", ">John [3]\r1 a\r2 b\r", {none, none}, {QStringLiteral("\r1 a\r2 b\r")});
    row("numbers are not read", ">John [3]\r\n7 x\r\n7 y\r\n", {QStringLiteral("7 x"), QStringLiteral("7 y")},
        {none, QStringLiteral("7 x"), QStringLiteral("7 y"), none});
    row("a blank line counts", ">John [3]\r\n1 a\r\n\r\n2 b\r\n", {a, none, b}, {none, a, none, b, none});
    row("a line of blanks is no verse", ">John [3]\r\n  \r\n2 b\r\n", {none, b}, {none, QStringLiteral("  "), b, none});
    row("a line with > in front", ">John [3]\r\n1 a\r\n> b\r\n3 c\r\n", {a, none, none}, {none, a, none});
    row("a > inside a line", ">John [3]\r\n1 a > b\r\n2 b\r\n", {QStringLiteral("1 a > b"), b},
        {none, QStringLiteral("1 a ")});
    row("next header on the same line", ">John [3]>John [4]\r\n1 a\r\n", {none}, {});
    row("other case", ">jOHN [3]\r\n1 a\r\n", {a}, {none, a, none});
    row("whole word in front", "x>John [3]\r\n1 x\r\n>John [3]\r\n1 a\r\n", {a}, {none, a, none});
    row("whole word behind", ">John [3]x\r\n1 x\r\n>John [3]\r\n1 a\r\n", {a}, {none, a, none});
    row("a letter of two units behind", ">John [3]\xF0\x9D\x94\xB8\r\n1 x\r\n>John [3]\r\n1 a\r\n", {a},
        {none, a, none});
    row("punctuation round it", ".>John [3].\r\n1 a\r\n", {a}, {QStringLiteral("."), a, none});
    row("a longer name", ">I John [3]\r\n1 x\r\n>John [3]\r\n1 a\r\n", {a}, {none, a, none});
    row("a leading zero", ">John [03]\r\n1 x\r\n>John [3]\r\n1 a\r\n", {a}, {none, a, none});
    row("twice: the first", ">John [3]\r\n1 a\r\n>John [3]\r\n1 x\r\n", {a}, {none, a, none});
  }
  void Layouts() {
    QFETCH(QByteArray, chapters);
    QFETCH(QStringList, lines);
    WriteRaw(JohnFile(chapters));
    for (qsizetype verse = 1; verse <= lines.size(); ++verse)
      QCOMPARE(Fetch(QString(u"John 3:" + QString::number(verse))), lines.at(verse - 1));
    QTEST(m_bible->Capitulo(), "capitulo");
    QString reference = QStringLiteral("John 3:1000");
    m_bible->GetVerse(reference);
    QCOMPARE(reference, QString(u"John 3:" + QString::number(m_bible->Capitulo().size() - 2)));
  }

  void TheHintDecidesWhatIsSeen() {
    const int start = SearchStart(John);
    const QByteArray early = ">John [3]\r\n1 early\r\n";
    const QByteArray late = ">John [3]\r\n1 late\r\n";
    // The mark itself must not lie in front of the start.
    for (const int at : {start - 1, start, start + 1}) {
      init();
      WriteRaw(QByteArray(at - 1, '.') + "\n" + early + late);
      QCOMPARE(Fetch(u"John 3:1"), at < start ? QStringLiteral("1 late") : QStringLiteral("1 early"));
    }
  }

  void Utf8Versions_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("line");
    const QByteArray chapter = JohnFile(">John [3]\r\n1 Porque Deus amou \xC3\xA0 terra\r\n2 \xE2\x80\x9C");
    const QString line = QStringLiteral("1 Porque Deus amou à terra");
    QTest::newRow("whole") << chapter << line;
    QTest::newRow("with a mark") << QByteArray("\xEF\xBB\xBF" + chapter) << line;
    QTest::newRow("cut behind one byte of three") << chapter.chopped(2) << line;
    QTest::newRow("cut behind two bytes of three") << chapter.chopped(1) << line;
    QTest::newRow("windows-1252 that ends in a letter")
        << JohnFile(">John [3]\r\n1 Porque Deus amou \xE0 terra\r\n2 manh\xE3") << line;
  }
  void Utf8Versions() {
    QFETCH(QByteArray, file);
    WriteRaw(file);
    QTEST(Fetch(u"John 3:1"), "line");
  }

  void FilesThatAreNoBible_data() {
    QTest::addColumn<QByteArray>("bytes");
    QByteArray noise;
    quint32 state = 7;
    for (int i = 0; i < 500000; ++i) {
      state = state * 1664525u + 1013904223u;
      noise.append(static_cast<char>(state >> 24));
    }
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("noise") << noise;
    QTest::newRow("zeroes") << QByteArray(500000, '\0');
    QTest::newRow("marks") << QByteArray(500000, '>');
    QTest::newRow("half headers") << QByteArray(">John [3").repeated(60000);
    QTest::newRow("no headers") << QByteArray("1 In the beginning\r\n").repeated(30000);
  }
  void FilesThatAreNoBible() {
    QFETCH(QByteArray, bytes);
    WriteRaw(bytes);
    for (const QStringView reference : {u"John 3:16", u"John 3:1000", u"John 1001:1", u"Genesis 1:1"})
      QCOMPARE(Fetch(reference), QString());
    QCOMPARE(m_bible->VersiculosDoCapitulo(John, 3), QStringList());
  }

  // A file as large as no Bible is: sparse, so that it costs no disk.
  void OnlyTheFirstPartOfAHugeFileIsThere() {
    WriteRaw(JohnFile(">John [3]\r\n1 near\r\n"));
    QFile file(m_dir->filePath(QStringLiteral("Bible/NEW_RAW.txt")));
    QVERIFY(file.resize(VersionFileLimit) && file.open(QIODevice::Append));
    file.write("\r\n>John [4]\r\n1 beyond the limit\r\n");
    file.close();
    QVERIFY(file.resize(200 * 1024 * 1024));
    m_bible->BuildVersionMenu();
    QCOMPARE(Fetch(u"John 3:1"), QStringLiteral("1 near"));
    QCOMPARE(Fetch(u"John 4:1"), QString());
  }

  void VersionWithoutNewTestament() {
    QVERIFY(SmallBible().Chapter(1, 1, {QStringLiteral("a")}).Write(m_dir->path(), QStringLiteral("KJV")));
    m_bible->BuildVersionMenu();
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 a"));
    QCOMPARE(Fetch(u"John 3:16"), QString());
  }

  void BrowsingGivesWhatIsThere() {
    WriteRaw(JohnFile(">John [4]\r\n1 a b\r\n\r\n3 c\r\n\r\n>John [2]\r\n1 d\r\n>John [2x]\r\n1 e\r\n"));
    QCOMPARE(m_bible->CapitulosDoLivro(John), QList<int>({2, 4}));
    QCOMPARE(m_bible->VersiculosDoCapitulo(John, 4),
             QStringList({QStringLiteral("a b"), QString(), QStringLiteral("c")}));
    for (const int chapter : {3, 0, -1, 1000, 1002})
      QCOMPARE(m_bible->VersiculosDoCapitulo(John, chapter), QStringList());
    QCOMPARE(m_bible->CapitulosDoLivro(0), QList<int>());
    QCOMPARE(m_bible->CapitulosDoLivro(67), QList<int>());
    QCOMPARE(m_bible->Capitulo(), QStringList());
  }

private:
  static QStringList Numbered(int count) {
    QStringList verses;
    for (int i = 1; i <= count; ++i)
      verses.append(QStringLiteral("verse %1").arg(i));
    return verses;
  }
  void Write(const SmallBible &bible) {
    QVERIFY(bible.Write(m_dir->path(), QStringLiteral("KJV")));
    m_bible->BuildVersionMenu();
  }
  void WriteRaw(const QByteArray &newTestament) {
    QVERIFY(SmallBible::WriteFile(m_dir->path(), QStringLiteral("OLD_RAW"), "-"));
    QVERIFY(SmallBible::WriteFile(m_dir->path(), QStringLiteral("NEW_RAW"), newTestament));
    m_bible->BuildVersionMenu();
  }
};

QTEST_GUILESS_MAIN(TestBibleStore)
#include "test_bible_store.moc"
