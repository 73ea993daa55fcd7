#include "songs/pagination.h"
#include "songs/replace_linear.h"
#include "support/fixed_measure.h"

#include <QSet>
#include <QTest>
#include <functional>

using namespace tolmira;
using tolmira::testing::FixedMeasure;

namespace {

QString Lines(const char *text) {
  return QString::fromUtf8(text).replace(u'\n', QStringLiteral("\r\n"));
}
QString Ends(int count) {
  return QStringLiteral("\r\n").repeated(count);
}

// Fifteen points make a line of 24 pixels in the fixed measure.
constexpr int LineTwips = 24 * TwipsPerPixel;

PaginationLayout Layout(int linesOnScreen) {
  PaginationLayout layout;
  layout.font.sizePt = 15;
  layout.limitTwips = linesOnScreen * LineTwips;
  return layout;
}

// A screen of `linesOnScreen` is full at that number of lines: a stanza must stay below it.
PaginatedSong Paginate(QString text, int linesOnScreen, QString *cut = nullptr) {
  FixedMeasure measure;
  const PaginatedSong song = PaginateVerses(text, Layout(linesOnScreen), measure);
  if (cut)
    *cut = text;
  return song;
}

QStringList TextsOf(const PaginatedSong &song) {
  QStringList texts;
  for (int i = 1; i <= song.TotalEstrofes; ++i)
    texts << song.Estrofes[static_cast<std::size_t>(i)].Texto;
  return texts;
}

class MeasureBy : public TextMeasure {
public:
  explicit MeasureBy(std::function<double(const QString &)> height) : m_height(std::move(height)) {}
  double Width(const QString &, const FontSpec &) override { return 0; }
  double Height(const QString &text, const FontSpec &, double) override { return m_height(text); }

private:
  std::function<double(const QString &)> m_height;
};

} // namespace

class TestPagination : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void versesAndPadding() {
    const PaginatedSong song = Paginate(Lines("a1\na2\n\nb1\nb2\nb3\n\nc1"), 10);
    // a: two lines, padded until they pass six; three lines follow, so nothing is added. b: three lines, target six and
    // a half, padded to seven; a single line follows, so three more. c: the last, only its three line ends.
    QCOMPARE(song.TextoPaginado, Lines("a1\na2") + Ends(5 + 1) + Lines("b1\nb2\nb3") + Ends(4 + 3 + 1) +
                                     QStringLiteral("c1") + Ends(3 + 1));
    QCOMPARE(song.TotalEstrofes, 3);
    QCOMPARE(TextsOf(song), QStringList({Lines("a1\na2"), Lines("b1\nb2\nb3"), QStringLiteral("c1")}));
    QCOMPARE(song.Estrofes[1].Topo, 1);
    QCOMPARE(song.Estrofes[1].Base, 1 + 2 * LineTwips);
    QCOMPARE(song.Estrofes[2].Topo, 7 * LineTwips);
    QCOMPARE(song.Estrofes[2].Base, 10 * LineTwips);
    QCOMPARE(song.Estrofes[3].Topo, 17 * LineTwips);
    QCOMPARE(song.Estrofes[3].Base, 18 * LineTwips);
  }

  void aVerseOfTwoLinesGetsTwoMoreLineEndsBeforeIt() {
    const PaginatedSong song = Paginate(Lines("a1\na2\n\nb1\nb2"), 10);
    QCOMPARE(song.TextoPaginado, Lines("a1\na2") + Ends(5 + 2 + 1) + Lines("b1\nb2") + Ends(4));
  }

  // Topo is where the text label really shows the first line of the verse, with wrapped lines too.
  void topoIsTheMeasuredHeightOfWhatStandsAbove() {
    QString text =
        Lines("uma linha comprida que quebra\nb\n\nc\n\nd\ne\nf\n\numa outra linha comprida que quebra\ng\nh");
    PaginationLayout layout = Layout(8);
    layout.wrapWidthPx = 100;
    FixedMeasure measure;
    const PaginatedSong song = PaginateVerses(text, layout, measure);
    QCOMPARE(song.TotalEstrofes, 4);
    for (int i = 2; i <= song.TotalEstrofes; ++i) {
      const Estrofe &verse = song.Estrofes[static_cast<std::size_t>(i)];
      const QString above = song.TextoPaginado.left(song.TextoPaginado.indexOf(u"\r\n" + verse.Texto));
      QCOMPARE(verse.Topo, qRound(measure.Height(above, layout.font, layout.wrapWidthPx) * TwipsPerPixel));
      QCOMPARE(verse.Base - verse.Topo,
               qRound(measure.Height(verse.Texto, layout.font, layout.wrapWidthPx) * TwipsPerPixel));
    }
  }

  void emptyTextGivesOneEntryWithoutText() {
    const PaginatedSong song = Paginate(QString(), 10);
    QCOMPARE(song.TotalEstrofes, 1);
    QCOMPARE(song.Estrofes.size(), std::size_t(2));
    QCOMPARE(song.Estrofes[1].Topo, 1);
    QCOMPARE(song.Estrofes[1].Base, 1);
    QCOMPARE(song.Estrofes[1].Texto, QString());
    QCOMPARE(song.TextoPaginado, QString());
  }

  void theBlankRestOfARepeatedChorusMakesAnEmptyLastEntry() {
    const PaginatedSong song = Paginate(Lines("1. a\n\nB\n\n"), 10);
    QCOMPARE(TextsOf(song), QStringList({QStringLiteral("1. a"), QStringLiteral("B"), QString()}));
    QCOMPARE(song.Estrofes[3].Base, song.Estrofes[3].Topo);
    QVERIFY(song.Estrofes[3].Topo > song.Estrofes[2].Base);
  }

  void aDashKeepsTwoPartsOnOneScreen() {
    QCOMPARE(TextsOf(Paginate(Lines("a\n-\nb\n\nc"), 10)), QStringList({Lines("a\n \nb"), QStringLiteral("c")}));
  }

  void tallStanzasAreCut_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("linesOnScreen");
    QTest::addColumn<QStringList>("verses");
    QTest::newRow("eight lines in the middle")
        << Lines("1\n2\n3\n4\n5\n6\n7\n8") << 8 << QStringList{Lines("1\n2\n3\n4"), Lines("5\n6\n7\n8")};
    QTest::newRow("nine lines") << Lines("1\n2\n3\n4\n5\n6\n7\n8\n9") << 8
                                << QStringList{Lines("1\n2\n3\n4\n5"), Lines("6\n7\n8\n9")};
    // The line end behind the last line counts as a line, so four lines fill nine tenths of a screen of five.
    QTest::newRow("fewer lines where the screen is full")
        << Lines("1\n2\n3\n4\n5\n6") << 5 << QStringList{Lines("1\n2\n3\n4"), Lines("5\n6")};
    QTest::newRow("again and again") << Lines("1\n2\n3\n4\n5\n6\n7\n8") << 2
                                     << QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                                                    QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6"),
                                                    QStringLiteral("7"), QStringLiteral("8")};
    QTest::newRow("just fits") << Lines("1\n2\n3\n4\n5\n6\n7") << 8 << QStringList{Lines("1\n2\n3\n4\n5\n6\n7")};
  }
  void tallStanzasAreCut() {
    QFETCH(QString, text);
    QFETCH(int, linesOnScreen);
    QFETCH(QStringList, verses);
    QString cut;
    QCOMPARE(TextsOf(Paginate(text, linesOnScreen, &cut)), verses);
    QCOMPARE(cut == text, verses.size() == 1);
  }

  void aStanzaThatNeverFitsIsOneVerseAndStopsFurtherCuts() {
    const QString text = Lines("sozinha\n\n1\n2\n3\n4\n5\n6\n7\n8");
    QCOMPARE(TextsOf(Paginate(text, 1)), QStringList({QStringLiteral("sozinha"), Lines("1\n2\n3\n4\n5\n6\n7\n8")}));
  }

  void thirtyRoundsAreTheEnd() {
    // Each of these takes one round.
    QStringList stanzas;
    for (char16_t letter = u'A'; letter < u'A' + 40; ++letter) {
      QStringList lines;
      for (int i = 1; i <= 8; ++i)
        lines << QString(QChar(letter)) + QString::number(i);
      stanzas << lines.join(QStringLiteral("\r\n"));
    }
    QString cut;
    const PaginatedSong song = Paginate(stanzas.join(Ends(2)), 8, &cut);
    QCOMPARE(song.TotalEstrofes, 29 * 2 + 11);
    QCOMPARE(song.Estrofes.back().Texto, stanzas.back());
    // The text that the caller gets back is cut to the end.
    QCOMPARE(Paginate(cut, 8).TotalEstrofes, 80);
  }

  void splitLongStanza() {
    FixedMeasure measure;
    QCOMPARE(SplitLongStanza(Lines("a\n\nb"), 100, Layout(5), measure), Lines("a\n\n\nb"));
    QCOMPARE(SplitLongStanza(Lines("1\n2\n3\n4\n5\n6\n7\n8"), 100, Layout(5), measure),
             Lines("1\n2\n3\n4\n\n\n5\n6\n7\n8\n"));
    QCOMPARE(SplitLongStanza(Lines("1\n2\n3\n4\n5"), 5 * LineTwips, Layout(5), measure), Lines("1\n2\n3\n4\n\n\n5"));
    // A blank line far enough down is where the screen ends; it is filled up with line ends.
    QCOMPARE(SplitLongStanza(Lines("1\n2\n3\n \n5"), 6 * LineTwips, Layout(6), measure), Lines("1\n2\n3\n\n\n5"));
    QCOMPARE(SplitLongStanza(QString(), 100, Layout(5), measure), QString());
  }

  void linearReplaceIsTheOrdinaryReplace_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("old");
    for (const auto &[text, old] : {std::pair{"aaaaa", "aa"},
                                    {"abababc", "ababc"},
                                    {"aabaaab", "aab"},
                                    {"abc", "abcd"},
                                    {"abc", "x"},
                                    {"", "a"},
                                    {"aabaabaaab", "aabaaa"}})
      QTest::addRow("%s in %s", old, text) << QString::fromLatin1(text) << QString::fromLatin1(old);
  }
  void linearReplaceIsTheOrdinaryReplace() {
    QFETCH(QString, text);
    QFETCH(QString, old);
    for (const QString &replacement : {QString(), QStringLiteral("a"), QStringLiteral("<aab>")})
      QCOMPARE(ReplaceInLinearTime(text, old, replacement), QString(text).replace(old, replacement));
    QCOMPARE(ReplaceInLinearTime(text, QString(), old), text);
  }

  void aMeasureThatMakesNoSenseEndsAllTheSame_data() {
    QTest::addColumn<double>("height");
    for (const double height : {0.0, -5.0, 1e-12, 1e300, qQNaN(), qInf()})
      QTest::addRow("%g", height) << height;
  }
  void aMeasureThatMakesNoSenseEndsAllTheSame() {
    QFETCH(double, height);
    MeasureBy measure([height](const QString &) { return height; });
    for (const int limit : {-1, 0, 3600}) {
      QString text = Lines("1\n2\n3\n4\n5\n6\n7\n8\n\na\n-\nb\n\n");
      PaginationLayout layout = Layout(1);
      layout.limitTwips = limit;
      const PaginatedSong song = PaginateVerses(text, layout, measure);
      QCOMPARE(song.Estrofes.size(), static_cast<std::size_t>(song.TotalEstrofes) + 1);
      QVERIFY(TextsOf(song).join(u' ').contains(u'b'));
    }
  }

  void everyLineIsMeasuredOnce() {
    QStringList lines;
    for (int i = 0; i < 4000; ++i)
      lines << QString::number(i);
    QSet<QString> asked;
    int repeated = 0;
    FixedMeasure fixed;
    MeasureBy measure([&](const QString &text) {
      repeated += asked.contains(text) ? 1 : 0;
      asked.insert(text);
      return fixed.Height(text, Layout(8).font, 0);
    });
    QString text = lines.join(QStringLiteral("\r\n"));
    QVERIFY(PaginateVerses(text, Layout(8), measure).TotalEstrofes > 10);
    QCOMPARE(repeated, 0);
  }

  // The time limit of the test is the assertion.
  void hugeTextsDoNotHang_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("linesOnScreen");
    constexpr int size = 1'000'000;
    QTest::newRow("one line") << QString(size, u'x') << 10;
    QTest::newRow("one stanza") << Lines("abc\n").repeated(size / 5) << 10;
    QTest::newRow("many stanzas") << Lines("abc\n\n").repeated(size / 7) << 10;
    QTest::newRow("many tall stanzas") << Lines("1\n2\n3\n4\n5\n6\n7\n8\n\n").repeated(size / 26) << 8;
    QString numbered;
    for (int i = 0; numbered.size() < size; ++i)
      numbered += QStringLiteral("%1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n\r\n").arg(i);
    QTest::newRow("many different tall stanzas") << numbered << 8;
    QTest::newRow("line ends") << Ends(size / 2) << 10;
  }
  void hugeTextsDoNotHang() {
    QFETCH(QString, text);
    QFETCH(int, linesOnScreen);
    QVERIFY(Paginate(text, linesOnScreen).TotalEstrofes >= 1);
  }
};

QTEST_GUILESS_MAIN(TestPagination)
#include "test_pagination.moc"
