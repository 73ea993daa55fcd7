#include "foundation/text_utils.h"

#include <QtTest>

using namespace tolmira;

using TextRoutine = QString (*)(const QString &);
Q_DECLARE_METATYPE(TextRoutine)

class TestTextUtils : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Routines_data() {
    QTest::addColumn<TextRoutine>("routine");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *name, TextRoutine routine, const QString &text, const QString &result) {
      QTest::newRow(name) << routine << text << result;
    };
    row("fold: blanks", FoldText, QStringLiteral("Jó  3"), QStringLiteral("jo 3"));
    row("fold: signs", FoldText, QStringLiteral("ÁGUA!"), QStringLiteral("agua"));
    row("fold: every letter", FoldText, QStringLiteral("ÁÉÍÓÚÀÈÌÒÙÂÊÎÔÛÃÕÄËÏÖÜÇ"),
        QStringLiteral("aeiouaeiouaeiouaoaeiouc"));
    row("fold: blanks round a sign", FoldText, QStringLiteral(" Santo - Santo "), QStringLiteral("santo santo"));
    row("fold: letter without a plain form", FoldText, QStringLiteral("mañana"), QStringLiteral("maana"));
    row("fold: a few signs in a row", FoldText, QStringLiteral("a!?#b"), QStringLiteral("ab"));
    row("fold: decomposed accent", FoldText, QStringLiteral(u"Jo\u0301"), QStringLiteral("jo"));
    row("fold: nothing", FoldText, QString(), QString());

    row("title: capitals", TitleCaseSong, QStringLiteral("deus de PROMESSAS"), QStringLiteral("Deus de Promessas"));
    row("title: first word", TitleCaseSong, QStringLiteral("a casa"), QStringLiteral("A Casa"));
    row("title: hyphen", TitleCaseSong, QStringLiteral("louva-deus"), QStringLiteral("Louva-Deus"));
    row("title: accent", TitleCaseSong, QStringLiteral("isto É água"), QStringLiteral("Isto é Água"));
    row("title: no overlap", TitleCaseSong, QStringLiteral("x de de y"), QStringLiteral("X de De Y"));
    row("title: two small words", TitleCaseSong, QStringLiteral("x e de y"), QStringLiteral("X e de Y"));
    row("title: last word", TitleCaseSong, QStringLiteral("vem que"), QStringLiteral("Vem Que"));

    row("strip: tag", StripMarkup, QStringLiteral("a<b>c"), QStringLiteral("ac"));
    row("strip: no end", StripMarkup, QStringLiteral("a<b"), QStringLiteral("a<b"));
    row("strip: end before start", StripMarkup, QStringLiteral("a>b<c>d<e"), QStringLiteral("a>bd<e"));
    row("strip: tag in a tag", StripMarkup, QStringLiteral("<<b>x>"), QStringLiteral("x>"));
    row("strip: entities", StripMarkup, QStringLiteral("d&#x27;&quot;x"), QStringLiteral("d'\"x"));
    row("strip: notes", StripMarkup, QStringLiteral("a[^1]b[^28]c[^29]"), QStringLiteral("abc[^29]"));

    row("repair: lines", RepairEntities, QStringLiteral("a\r\n<br>b\n<br/><p>c</p>"),
        QStringLiteral("a\r\nb\r\n\r\nc"));
    row("repair: apostrophes", RepairEntities, QStringLiteral("He?s we?re I?ve d&#39;x&#039;"),
        QStringLiteral("He's we're I've d'x'"));
    row("repair: entities in order", RepairEntities, QStringLiteral("&amp;quot;Â<i>x</i>"), QStringLiteral("\"x"));

    row("decode: plus and percent", UrlDecode, QStringLiteral("a+b%20%C9%2b"), QStringLiteral("a b É+"));
    row("decode: code page", UrlDecode, QStringLiteral("%80"), QStringLiteral("€"));
    row("decode: no digits", UrlDecode, QStringLiteral("a%zzb"), QString(QStringLiteral("a") + QChar(u'\0') + u'b'));
    row("decode: end", UrlDecode, QStringLiteral("a%"), QString(QStringLiteral("a") + QChar(u'\0')));
    row("decode: other characters", UrlDecode, QStringLiteral("שé"), QStringLiteral("שé"));
    row("decode split", UrlDecodeSplit, QStringLiteral("a+b%2Bc%C9"), QStringLiteral("a b+cÉ"));
    row("decode split: no digits", UrlDecodeSplit, QStringLiteral("a%zzb%"),
        QString(QStringLiteral("a") + QChar(u'\0') + u'b' + QChar(u'\0')));
    row("encode", UrlEncode, QStringLiteral("Az 09-é/~"), QStringLiteral("Az+09%2D%E9%2F%7E"));

    row("file name", FileNameOf, QStringLiteral("C:\\a/b\\c.txt"), QStringLiteral("c.txt"));
    row("file name behind a slash", FileNameOf, QStringLiteral("a\\b/c.txt"), QStringLiteral("c.txt"));
    row("file name alone", FileNameOf, QStringLiteral("c.txt"), QStringLiteral("c.txt"));
    row("extension", ExtensionOf, QStringLiteral("a.b.JPG"), QStringLiteral("JPG"));
    row("no extension", ExtensionOf, QStringLiteral("abc"), QString());

    row("next name: first", NextFreeName, QStringLiteral("Foto.jpg"), QStringLiteral("Foto(1).jpg"));
    row("next name: second", NextFreeName, QStringLiteral("Foto(1).jpg"), QStringLiteral("Foto(2).jpg"));
    row("next name: ten", NextFreeName, QStringLiteral("Foto(9).JPG"), QStringLiteral("Foto(10).JPG"));
    row("next name: number inside", NextFreeName, QStringLiteral("Foto(1)x.jpg"), QStringLiteral("Foto(1)x(1).jpg"));
    row("next name: no number", NextFreeName, QStringLiteral("Foto(x).jpg"), QStringLiteral("Foto(x)(1).jpg"));
    row("next name: time stamp", NextFreeName, QStringLiteral("Foto(20240131235959).jpg"),
        QStringLiteral("Foto(20240131235960).jpg"));
    row("next name: number beyond counting", NextFreeName, QStringLiteral("Foto(99999999999999999).jpg"),
        QStringLiteral("Foto(99999999999999999)(1).jpg"));
    row("next name: first bracket counts", NextFreeName, QStringLiteral("A(7)(2).jpg"), QStringLiteral("A(7)(8).jpg"));
    row("next name: series without extension", NextFreeName, QStringLiteral("Foto(1)."), QStringLiteral("Foto(2)."));

    row("html", EscapeHtml, QStringLiteral("a<b> & \"c\""), QStringLiteral("a&lt;b&gt; &amp; \"c\""));
  }
  void Routines() {
    QFETCH(TextRoutine, routine);
    QFETCH(QString, text);
    QTEST(routine(text), "result");
  }

  void ReplacingGoesOnToTheEnd() {
    const QString two = QStringLiteral("  ");
    QCOMPARE(ReplaceAll(QStringLiteral("a     b"), two, QStringLiteral(" ")), QStringLiteral("a b"));
    QCOMPARE(ReplaceAll(QStringLiteral("aabb"), QStringLiteral("ab"), QString()), QString());
    QCOMPARE(ReplaceAll(QStringLiteral("a"), QString(), QStringLiteral("x")), QStringLiteral("a"));
  }

  void ReplacingWithItselfComesToAnEnd() {
    QCOMPARE(ReplaceAll(QStringLiteral("a\nb"), QStringLiteral("\n"), QStringLiteral("\r\n")),
             QStringLiteral("a\r\nb"));
    QVERIFY(!ReplaceAll(QStringLiteral("aaabb"), QStringLiteral("ab"), QStringLiteral("bbaa")).isEmpty());
  }

  void Colours() {
    QCOMPARE(ColorToHex(0), QStringLiteral("#000000"));
    QCOMPARE(ColorToHex(255), QStringLiteral("#FF0000"));
    QCOMPARE(ColorToHex(0x010203), QStringLiteral("#030201"));
    QCOMPARE(ColorToHex(16777215), QStringLiteral("#FFFFFF"));
  }

  void PathParts() {
    const QString path = QStringLiteral("C:\\a.b\\c.d.txt");
    QCOMPARE(FileNameWithoutExtension(path, QStringLiteral(".")), QStringLiteral("c.d"));
    QCOMPARE(FolderOf(path, QStringLiteral("\\")), QStringLiteral("C:\\a.b\\"));
    QCOMPARE(FolderOf(QStringLiteral("c.txt"), QStringLiteral("\\")), QString());
  }

  void Versions_data() {
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("latest");
    QTest::addColumn<bool>("newer");
    QTest::newRow("equal") << QStringLiteral("2.1.3") << QStringLiteral("2.1.3") << false;
    QTest::newRow("newer") << QStringLiteral("2.1.3") << QStringLiteral("2.1.4") << true;
    QTest::newRow("older") << QStringLiteral("2.2.0") << QStringLiteral("2.1.9") << false;
    QTest::newRow("compared as text") << QStringLiteral("1.0.0") << QStringLiteral("0.9.0") << true;
    QTest::newRow("missing fields") << QStringLiteral("2") << QStringLiteral("2.0.1") << true;
    QTest::newRow("no version") << QStringLiteral("1.0.0") << QString() << false;
  }
  void Versions() {
    QFETCH(QString, current);
    QFETCH(QString, latest);
    QTEST(VersionIsNewer(current, latest), "newer");
  }

  void Dates_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("year");
    QTest::addColumn<QDate>("date");
    const QDate day(2024, 3, 5);
    QTest::newRow("brazil") << QStringLiteral("dd/MM/yyyy") << 2024 << day;
    QTest::newRow("portuguese letters") << QStringLiteral("dd/mm/aaaa") << 2024 << day;
    QTest::newRow("united states") << QStringLiteral("M/d/yy") << 2024 << day;
    QTest::newRow("year first") << QStringLiteral("yyyy-MM-dd") << 2024 << day;
    QTest::newRow("short month") << QStringLiteral("d MMM yyyy") << 2024 << day;
    QTest::newRow("two figures") << QStringLiteral("dd/MM/yy") << 24 << day;
    QTest::newRow("last century") << QStringLiteral("dd/MM/yy") << 98 << QDate(1998, 3, 5);
    QTest::newRow("no pattern") << QString() << 2024 << QDate();
  }
  void Dates() {
    QFETCH(QString, pattern);
    QFETCH(int, year);
    QTEST(FormatDate(5, 3, year, pattern), "date");
  }

  void DateOfTheSystem() { QCOMPARE(FormatDate(31, 12, 2023), QDate(2023, 12, 31)); }
};

QTEST_GUILESS_MAIN(TestTextUtils)
#include "test_text_utils.moc"
