#include "bible/books.h"
#include "bible/version_text.h"

#include <QRandomGenerator>
#include <QTest>

using namespace tolmira;

namespace {

bool IsWord(QChar character) {
  return character.isLetterOrNumber() || character == u'_';
}

// The search as it would be made without an index: through the whole text from the book's start on.
qsizetype Naive(const QString &text, int book, const QString &chapter) {
  const QString marker = u'>' + BookName(book) + u" [" + chapter + u']';
  for (qsizetype at = SearchStart(book);; ++at) {
    at = text.indexOf(marker, at, Qt::CaseInsensitive);
    if (at < 0)
      return -1;
    const qsizetype behind = at + marker.size();
    if ((at == 0 || !IsWord(text.at(at - 1))) && (behind == text.size() || !IsWord(text.at(behind))))
      return behind;
  }
}

} // namespace

class TestVersionText : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  // Odd texts made of the pieces of headers: the index answers as the search does, for headers in front of the start,
  // doubled, cut, with letters round them, in any case.
  void TheIndexAnswersAsASearch_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 8; ++seed)
      QTest::addRow("seed %u", seed) << seed;
  }
  void TheIndexAnswersAsASearch() {
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QStringList pieces =
        QStringLiteral(">|[|]| |1|x|_|ó|\r\n|>Genesis|>Matthew|>I John|>JOHN|Exodus|>Exodus|>mark|>Ma\u212A| [1]| [3]| "
                       "[150]| [007]"
                       "| [1000]| [2.5]| [-4]|>Genesis [1]|>Mark [3]\r\n1 a\r\n|>John [150]\r\n1 a\r\n")
            .split(u'|')
        << QString(200, u'.');
    // Beyond the start of Exodus, Mark and John.
    QString text;
    while (text.size() < 250000)
      text += pieces.at(random.bounded(static_cast<int>(pieces.size())));
    const VersionText version(text);
    int found = 0;
    for (const int book : {1, 2, 40, 41, 43, 62}) {
      for (const char *chapter : {"1", "3", "150", "007", "1000", "2.5", "-4", "7", "0"}) {
        const qsizetype expected = Naive(text, book, QLatin1String(chapter));
        QCOMPARE(version.BehindHeader(book, QLatin1String(chapter)), expected);
        found += expected >= 0 ? 1 : 0;
      }
    }
    QVERIFY(found > 20);
  }

  void HeaderAtTheVeryEnd() {
    for (const QString &cut :
         {QStringLiteral(">Genesis [1]"), QStringLiteral(">Genesis [1"), QStringLiteral(">Genesis ["),
          QStringLiteral(">"), QStringLiteral(">["), QStringLiteral("> [1]")}) {
      const VersionText version(cut);
      QCOMPARE(version.BehindHeader(1, QStringLiteral("1")), Naive(cut, 1, QStringLiteral("1")));
      QCOMPARE(version.VerseLines(1, 1), QList<QStringView>());
    }
  }
};

QTEST_GUILESS_MAIN(TestVersionText)
#include "test_version_text.moc"
