#include "bible/word_search.h"
#include "support/small_bible.h"

#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QString Decoded(const QByteArray &bytes) {
  return DecodeText(bytes).text;
}

// "1 1:2" for Genesis 1:2.
QStringList Places(const QList<SearchHit> &hits) {
  QStringList places;
  for (const SearchHit &hit : hits)
    places.append(QStringLiteral("%1 %2:%3").arg(hit.book).arg(hit.chapter).arg(hit.verse));
  return places;
}

} // namespace

class TestWordSearch : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  // Which of the verses of one chapter a query finds.
  void Verses_data() {
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("verses");
    QTest::addColumn<QList<int>>("found");
    const auto row = [](const char *name, const char *query, const char *verses, const QList<int> &found) {
      QTest::newRow(name) << QString::fromUtf8(query) << QString::fromUtf8(verses).split(u'|') << found;
    };
    row("whole words", "love", "he loved|a love|beloved|Love.|(LOVE)|love's", {2, 4, 5, 6});
    row("all words in any order", "god world", "God|the world of God|world|god, world", {2, 4});
    row("a word twice is one", "god god", "God|none", {1});
    row("accents in the text", "deus nao", "Deus NÃO|deus nâo|deus no", {1, 2});
    row("accents in the query", "CORAÇÃO", "coracao|Coração|corações", {1, 2});
    row("accents as characters of their own", "cafe", "cafe\xCC\x81|caf\xC3\xA9", {1, 2});
    row("accented query for plain text", "e\xCC\x81 de", "e de|é de", {1, 2});
    row("the number of the verse is no word", "1 ab", "ab|1 ab", {2});
    row("one letter among words", "o deus", "o Deus|Deus", {1});
    row("phrase", "\"the son of\"", "of the son|the Son, of man|the son; (of)|the son and of", {2, 3});
    row("phrase and words", "man \"the son\" god", "the son man god|son the man god|God man the son", {1, 3});
    row("two phrases and a word", "\"a b\" \"c d\" ee", "a b c d ee|ee c d a b|a c b d ee", {1, 2});
    row("phrase with a doubled start", "\"to to be\"", "to to to be|to be to", {1});
    row("phrase without an end", "\"in the", "in the|the in", {1});
    row("quotes inside a word", "in\"the son\"", "in the son|son in the", {1});
    row("printed quotes", "\xE2\x80\x9Cthe son\xE2\x80\x9D", "the son|son the", {1});
    row("empty quotes", "\"\" son", "son|x", {1});
    row("apostrophe", "father's", "the father's|s father|the father\xE2\x80\x99s", {1, 3});
    row("hyphen", "well-beloved", "well beloved|well-beloved|beloved well", {1, 2});
    row("invisible characters", "son", "the \xE2\x80\x8Fson|the so\xC2\xADn|x\xC2\xADson", {1, 2});
    row("cyrillic", "\xD0\x98\xD0\x9E\xD0\x90\xD0\x9D\xD0\x9D", "\xD0\xB8\xD0\xBE\xD0\xB0\xD0\xBD\xD0\xBD|x", {1});
    row("hebrew points", "\xD7\x91\xD7\xA8\xD7\x90", "\xD7\x91\xD6\xB8\xD7\xA8\xD6\xB8\xD7\x90|\xD7\x91\xD7\xA8", {1});
    row("hangul is not taken apart", "\xEA\xB0\x80\xEB\x82\x98", "\xEA\xB0\x80\xEB\x82\x98|\xEA\xB0\x81\xEB\x82\xA8",
        {1});
    row("blank lines keep their numbers", "son", "||son", {3});
    row("tabs and doubled blanks", "  the \t  son ", "the son", {1});
  }
  void Verses() {
    QFETCH(QString, query);
    QFETCH(QStringList, verses);
    QFETCH(QList<int>, found);
    QString text = QStringLiteral(">Genesis [1]\r\n");
    for (qsizetype i = 0; i < verses.size(); ++i)
      text += QString::number(i + 1) + u' ' + verses.at(i) + u"\r\n";
    WordSearch search(VersionText(text), VersionText(), query);
    QList<SearchHit> hits;
    while (search.Next(1000, hits)) {
    }
    QList<int> numbers;
    for (const SearchHit &hit : hits) {
      numbers.append(hit.verse);
      QCOMPARE(hit.text, verses.at(hit.verse - 1));
    }
    QCOMPARE(numbers, found);
  }

  void Queries_data() {
    QTest::addColumn<QString>("query");
    QTest::addColumn<QueryState>("state");
    QString many;
    for (int i = 10; i < 74; ++i)
      many += QString::number(i) + u' ';
    QTest::newRow("empty") << QString() << QueryState::Empty;
    QTest::newRow("blanks") << QStringLiteral(" \t ") << QueryState::Empty;
    QTest::newRow("punctuation") << QStringLiteral("\"...\" - ';") << QueryState::Empty;
    QTest::newRow("letters") << QStringLiteral("a e") << QueryState::TooShort;
    QTest::newRow("a letter and its accent") << QStringLiteral(u"a\u0301") << QueryState::TooShort;
    QTest::newRow("two letters") << QStringLiteral("Jó") << QueryState::Ready;
    QTest::newRow("sixty-four words") << many << QueryState::Ready;
    QTest::newRow("sixty-five words") << QString(many + u"74") << QueryState::TooLong;
    QTest::newRow("one word a million times") << QStringLiteral("amen ").repeated(200000) << QueryState::Ready;
    QTest::newRow("a very long word") << QString(1000000, u'a') << QueryState::Ready;
    QTest::newRow("broken pair") << QString(QString(QChar(0xD835)) + u"\"x") << QueryState::TooShort;
  }
  void Queries() {
    QFETCH(QString, query);
    const VersionText text(QStringLiteral(">Genesis [1]\r\n1 the beginning\r\n"));
    WordSearch search(text, VersionText(), query);
    QTEST(search.Estado(), "state");
    QList<SearchHit> hits;
    while (search.Next(1, hits)) {
    }
    QCOMPARE(hits.size(), 0);
  }

  // The order of the Bible whatever the order of the file; only chapters that a reference reaches.
  void HitsAreInTheOrderOfTheBible() {
    const QString word = QStringLiteral("word");
    const SmallBible bible = SmallBible()
                                 .Chapter(2, 10, {word})
                                 .Chapter(2, 9, {QStringLiteral("x"), word})
                                 .Chapter(1, 1, {word})
                                 .Chapter(1, 1, {word, word})
                                 .Chapter(43, 1, {word})
                                 .Chapter(40, 2, {word});
    const QString early = QStringLiteral(">Exodus [3]\r\n1 word\r\n"); // in front of the start of Exodus
    const VersionText velho(early + Decoded(bible.Old()));
    const VersionText novo(Decoded(bible.New()));

    const QStringList expected = QStringLiteral("1 1:1,2 9:2,2 10:1,40 2:1,43 1:1").split(u',');
    QList<SearchHit> whole;
    WordSearch search(velho, novo, word);
    QVERIFY(!search.Next(100000000, whole));
    QCOMPARE(Places(whole), expected);
    QCOMPARE(search.LivroAtual(), BookCount + 1);

    // In slices a chapter at a time, and none lost or doubled; the texts may go meanwhile.
    QList<SearchHit> slices;
    auto kept = std::make_unique<VersionText>(velho);
    WordSearch sliced(*kept, novo, word);
    kept.reset();
    qsizetype most = 0;
    bool more = true;
    while (more) {
      const qsizetype before = slices.size();
      more = sliced.Next(1, slices);
      most = std::max(most, slices.size() - before);
    }
    QCOMPARE(Places(slices), expected);
    QCOMPARE(most, 1);
    QVERIFY(!sliced.Next(1, slices));
  }

  void AnEmptyVersionEndsAtOnce() {
    WordSearch search(VersionText(), VersionText(), QStringLiteral("word"));
    QList<SearchHit> hits;
    QVERIFY(!search.Next(1, hits));
    QCOMPARE(hits.size(), 0);
  }
};

QTEST_GUILESS_MAIN(TestWordSearch)
#include "test_word_search.moc"
