#include "bible/bible_store.h"
#include "bible/books.h"
#include "import/version_files.h"
#include "support/files.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;

class TestVersionFiles : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_app;

  QString Folder() const { return m_app->filePath(QStringLiteral("Bible")); }
  QByteArray File(const QString &name) const { return testing::ReadBytes(Folder() + u'/' + name); }
  void Write(const ImportedBible &bible, int &filler) const {
    QCOMPARE(WriteVersion(bible, QStringLiteral("X"), Folder(), filler), QString());
  }
  QString Shown(const QString &reference) const {
    const AppFolder app(m_app->path());
    const IniStore settings(app);
    BibleStore store(app, settings);
    store.BuildVersionMenu();
    QString asked = reference;
    return TextoDoVersiculo(store.GetVerse(asked));
  }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_app = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(m_app->filePath(QStringLiteral("Data"))));
  }

  void formOfTheFiles() {
    ImportedBible bible;
    bible.Put(1, 1, 1, QStringLiteral("In the beginning"));
    bible.Put(1, 1, 2, QString());
    bible.Put(1, 1, 3, QStringLiteral("And “God” said"));
    bible.Put(1, 1, 4, QString());
    bible.Put(1, 2, 1, QString());
    bible.Put(1, 3, 1, QStringLiteral("Now the serpent"));
    bible.Put(40, 1, 1, QStringLiteral("Ἀβραάμ"));
    int filler = -1;
    Write(bible, filler);
    QCOMPARE(filler, 0);
    QCOMPARE(
        File(QStringLiteral("OLD_X.txt")),
        ">Genesis [1]\r\n1 In the beginning\r\n2 \r\n3 And \x93God\x94 said\r\n>Genesis [3]\r\n1 Now the serpent\r\n");
    QCOMPARE(File(QStringLiteral("NEW_X.txt")), QByteArray(">Matthew [1]\r\n1 Ἀβραάμ\r\n"));
    QCOMPARE(Shown(QStringLiteral("Genesis 1:3")), QStringLiteral("And “God” said"));
    QCOMPARE(Shown(QStringLiteral("Genesis 1:2")), QString());

    QCOMPARE(bible.VerseTotal(), 4);
    QCOMPARE(bible.MissingVerses(), QStringList({QStringLiteral("Genesis 1:2"), QStringLiteral("Genesis 1:4")}));
    QCOMPARE(bible.MissingChapters(), QStringList(QStringLiteral("Genesis 2")));
    QCOMPARE(bible.MissingBooks().size(), 64);
  }

  // Every book lies behind the place that the search begins at, however little of the Bible there is.
  void everyBookIsFound_data() {
    QTest::addColumn<QList<int>>("books");
    QList<int> all;
    for (int book = 1; book <= BookCount; ++book)
      all << book;
    QTest::newRow("one verse a book") << all;
    QTest::newRow("Psalms") << QList<int>{19};
    QTest::newRow("New Testament") << all.mid(OldTestamentBooks);
    QTest::newRow("Revelation") << QList<int>{66};
  }
  void everyBookIsFound() {
    QFETCH(QList<int>, books);
    ImportedBible bible;
    for (const int book : books)
      bible.Put(book, 1, 1, QStringLiteral("the verse of ") + BookName(book));
    int filler = 0;
    Write(bible, filler);
    QVERIFY(filler > 0);
    for (const int book : books)
      QCOMPARE(Shown(BookName(book) + QStringLiteral(" 1:1")), QString(u"the verse of " + BookName(book)));
    QVERIFY2(QFile::exists(Folder() + QStringLiteral("/OLD_X.txt")), "a version is listed by this file");
  }

  void shortNames_data() {
    QTest::addColumn<bool>("good");
    QTest::newRow("KJV") << true;
    QTest::newRow("João-1909") << true;
    for (const char *name : {"", "K_V", "../x", "K V", "x.txt", "GOLD", "abcdefghijklmnopqrstuvwxyz"})
      QTest::newRow(name) << false;
  }
  void shortNames() {
    QFETCH(bool, good);
    QCOMPARE(FaultOfShortName(QString::fromUtf8(QTest::currentDataTag())).isEmpty(), good);
  }

  void fullDiskLeavesTheOldVersion() {
    ImportedBible bible;
    bible.Put(1, 1, 1, QStringLiteral("first"));
    bible.Put(40, 1, 1, QStringLiteral("first"));
    int filler = 0;
    Write(bible, filler);
    bible.Put(40, 1, 2, QString(10000, u'x'));
    {
      const tolmira::testing::FullDisk disk(4096);
      QCOMPARE(WriteVersion(bible, QStringLiteral("X"), Folder(), filler),
               QString(u"the file NEW_X.txt cannot be written in " + Folder()));
    }
    QCOMPARE(File(QStringLiteral("NEW_X.txt")), ">Matthew [1]\r\n1 first\r\n");
  }
};

QTEST_GUILESS_MAIN(TestVersionFiles)
#include "test_version_files.moc"
