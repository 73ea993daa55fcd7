#include "foundation/text_fields.h"

#include <QtTest>
#include <limits>

using namespace tolmira;

class TestTextFields : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Fields_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("field");
    const QString record = QStringLiteral("1|#|Água|#|Lyrics\\a|b.txt|#|");
    const QString bar = QStringLiteral("|#|");
    QTest::newRow("first") << record << bar << 1 << QStringLiteral("1");
    QTest::newRow("a shorter delimiter inside") << record << bar << 3 << QStringLiteral("Lyrics\\a|b.txt");
    QTest::newRow("behind the last delimiter") << record << bar << 4 << QString();
    QTest::newRow("past the last") << record << bar << 5 << QString();
    QTest::newRow("before the first") << record << bar << 0 << QString();
    QTest::newRow("no delimiter in it") << QStringLiteral("abc") << bar << 1 << QStringLiteral("abc");
    QTest::newRow("empty delimiter") << QStringLiteral("abc") << QString() << 1 << QStringLiteral("abc");
    QTest::newRow("empty text") << QString() << bar << 1 << QString();
  }
  void Fields() {
    QFETCH(QString, text);
    QFETCH(QString, delimiter);
    QFETCH(int, n);
    QTEST(SplitField(text, delimiter, n), "field");
  }

  void BaseNames() {
    QCOMPARE(BaseNameBefore(QStringLiteral("a.b.txt"), QStringLiteral(".")), QStringLiteral("a.b"));
    QCOMPARE(BaseNameBefore(QStringLiteral("abc"), QStringLiteral(".")), QStringLiteral("abc"));
    QCOMPARE(BaseNameBefore(QStringLiteral(".txt"), QStringLiteral(".")), QString());
    QCOMPARE(BaseNameBefore(QStringLiteral("abc"), QString()), QStringLiteral("abc"));
  }

  void LineEnds() {
    QCOMPARE(NormalizeLineEnds(QStringLiteral("a\nb\r\nc\r\r\n\n")), QStringLiteral("a\r\nb\r\nc\r\r\n\r\n"));
  }

  void Splits() {
    const QString bar = QStringLiteral("|");
    QCOMPARE(SplitText(QString(), bar).size(), 0);
    QCOMPARE(SplitText(QStringLiteral("a|b|"), bar),
             QStringList({QStringLiteral("a"), QStringLiteral("b"), QString()}));
    QCOMPARE(SplitText(QStringLiteral("a|b"), QString()), QStringList{QStringLiteral("a|b")});
  }

  void Numbers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("prefix");
    QTest::addColumn<double>("whole");
    QTest::newRow("empty") << QString() << 0.0 << 0.0;
    QTest::newRow("whole number") << QStringLiteral("100") << 100.0 << 100.0;
    QTest::newRow("blanks") << QStringLiteral("  7 ") << 7.0 << 7.0;
    QTest::newRow("unit") << QStringLiteral("12.5px") << 12.5 << 0.0;
    QTest::newRow("comma") << QStringLiteral("12,5") << 12.0 << 12.5;
    QTest::newRow("sign") << QStringLiteral("-.5") << -0.5 << -0.5;
    QTest::newRow("exponent") << QStringLiteral("1e3") << 1000.0 << 1000.0;
    QTest::newRow("no exponent") << QStringLiteral("2em") << 2.0 << 0.0;
    QTest::newRow("two points") << QStringLiteral("1.2.3") << 1.2 << 0.0;
    QTest::newRow("sign alone") << QStringLiteral("-") << 0.0 << 0.0;
    QTest::newRow("point alone") << QStringLiteral(".") << 0.0 << 0.0;
    QTest::newRow("too large") << QStringLiteral("1e999") << 0.0 << 0.0;
    QTest::newRow("word") << QStringLiteral("infinity") << 0.0 << 0.0;
  }
  void Numbers() {
    QFETCH(QString, text);
    QTEST(NumericPrefix(text), "prefix");
    QTEST(ReadNumber(text), "whole");
  }

  void Rounding() {
    QCOMPARE(RoundHalfEven(0.5), 0);
    QCOMPARE(RoundHalfEven(1.5), 2);
    QCOMPARE(RoundHalfEven(-2.5), -2);
    QCOMPARE(RoundHalfEven(2.4999), 2);
    QCOMPARE(RoundHalfEven(1e300), std::numeric_limits<int>::max());
    QCOMPARE(RoundHalfEven(-1e300), std::numeric_limits<int>::min());
    QCOMPARE(RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), 0);
  }

  void NumberTexts() {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    QCOMPARE(NumberText(1.5), QStringLiteral("1.5"));
    QCOMPARE(NumberText(60), QStringLiteral("60"));
    QCOMPARE(NumberText(-0.25), QStringLiteral("-0.25"));
    QCOMPARE(NumberText(-0.0), QStringLiteral("0"));
    QCOMPARE(NumberText(1e20), QStringLiteral("100000000000000000000"));
    QCOMPARE(NumberText(0.1), QStringLiteral("0.1"));
    QCOMPARE(ReadNumber(QStringLiteral("1.5")), 1.5);
    QLocale::setDefault(before);
  }

  void Trims_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("all");
    QTest::newRow("pairs") << QStringLiteral("\r\n\r\na\r\nb\r\n") << QStringLiteral("a\r\nb")
                           << QStringLiteral("a\r\nb");
    QTest::newRow("halves stay") << QStringLiteral("\na\r") << QStringLiteral("\na\r") << QStringLiteral("\na\r");
    QTest::newRow("half behind a pair") << QStringLiteral("\r\n\na\r\r\n") << QStringLiteral("\na\r")
                                        << QStringLiteral("\na\r");
    QTest::newRow("twice") << QStringLiteral(" \r\n \r\na \r\n ") << QStringLiteral(" \r\n \r\na \r\n ")
                           << QStringLiteral("a");
    QTest::newRow("only two rounds") << QStringLiteral("\r\n \r\n \r\na") << QStringLiteral(" \r\n \r\na")
                                     << QStringLiteral(" \r\na");
    QTest::newRow("nothing else") << QStringLiteral("\r\n\r\n") << QString() << QString();
  }
  void Trims() {
    QFETCH(QString, text);
    QTEST(TrimCrLf(text), "lines");
    QTEST(TrimAll(text), "all");
  }
};

QTEST_GUILESS_MAIN(TestTextFields)
#include "test_text_fields.moc"
