#include "bible/books.h"
#include "bible/passage.h"
#include "bible/passage_filter.h"

#include <QtTest>

using namespace tolmira;

class TestPassageFilter : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Typed_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("firstBook"); // empty: none is left
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("chapter");
    QTest::addColumn<int>("verse");
    QTest::newRow("nothing") << QString() << QStringLiteral("Genesis") << 66 << 0 << 0;
    QTest::newRow("whole reference") << QStringLiteral("joh 3 16") << QStringLiteral("John") << 4 << 3 << 16;
    QTest::newRow("with a colon") << QStringLiteral("Ps 119:105") << QStringLiteral("Psalms") << 1 << 119 << 105;
    QTest::newRow("with a point") << QStringLiteral("jo 3.16") << QStringLiteral("Joshua") << 8 << 3 << 16;
    QTest::newRow("digit of the book") << QStringLiteral("2 sam 7") << QStringLiteral("II Samuel") << 1 << 7 << 0;
    QTest::newRow("roman number") << QStringLiteral("ii cor 5 17") << QStringLiteral("II Corinthians") << 1 << 5 << 17;
    QTest::newRow("later word") << QStringLiteral("acts") << QStringLiteral("The Acts of the Apostles") << 1 << 0 << 0;
    QTest::newRow("accents") << QStringLiteral("ÊXO 20") << QStringLiteral("Exodus") << 1 << 20 << 0;
    QTest::newRow("digits alone") << QStringLiteral("23 4") << QStringLiteral("Genesis") << 66 << 23 << 4;
    QTest::newRow("no book") << QStringLiteral("xyz 1 1") << QString() << 0 << 1 << 1;
    QTest::newRow("range") << QStringLiteral("rut 1 16-17") << QStringLiteral("Ruth") << 1 << 1 << 16;
    QTest::newRow("fifty digits") << QString(QStringLiteral("gen ") + QString(50, u'9')) << QStringLiteral("Genesis")
                                  << 1 << 0 << 0;
    QTest::newRow("punctuation") << QStringLiteral("!?;:-") << QStringLiteral("Genesis") << 66 << 0 << 0;
    QTest::newRow("other digits") << QStringLiteral("gen ٣") << QStringLiteral("Genesis") << 1 << 0 << 0;
  }
  void Typed() {
    QFETCH(QString, typed);
    QFETCH(QString, firstBook);
    const PassageFilter filter = ParsePassageFilter(typed);
    const QList<int> books = BooksOf(filter);
    QCOMPARE(books.isEmpty() ? QString() : BookName(books.first()), firstBook);
    QTEST(int(books.size()), "left");
    QTEST(filter.capitulo, "chapter");
    QTEST(filter.versiculo, "verse");
  }

  void References_data() {
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("written");
    QTest::newRow("plain") << QStringLiteral("John 3:16") << QStringLiteral("John 3:16");
    QTest::newRow("case") << QStringLiteral("song of solomon 2:1") << QStringLiteral("Song of Solomon 2:1");
    QTest::newRow("no book") << QStringLiteral("Jo 3:16") << QString();
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("no numbers") << QStringLiteral("John :") << QStringLiteral("John 0:0");
    QTest::newRow("huge") << QString(QStringLiteral("John 3:") + QString(400, u'9')) << QStringLiteral("John 3:0");
  }
  void References() {
    QFETCH(QString, reference);
    QTEST(ReferenciaDe(PassagemDe(reference)), "written");
  }
};

QTEST_GUILESS_MAIN(TestPassageFilter)
#include "test_passage_filter.moc"
