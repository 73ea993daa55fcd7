#include "display/lyrics_composer.h"
#include "support/fixed_measure.h"
#include "support/recording_display.h"
#include "support/scripted_random.h"

#include <QRegularExpression>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

constexpr double SlotOnLines = 0.99; // a draw for which Chance(80) is false
constexpr double SlotOnBlock = 0.10;

// A song on a screen of 1280 x 720. The measure makes each character half as wide as the font is high, so that a line
// of 20 characters at 78 points (1040 px) still fits 84 per cent of the width (1075 px), and one of 21 does not.
struct Show {
  EstadoConsole estado;
  AjustesTexto ajustes;
  RecordingDisplay display;
  RecordingPage preview;
  FixedMeasure measure;
  ScriptedRandom random;
  DisplayChannel canal{estado, [this]() -> tolmira::Display * { return &display; }};
  LyricsComposer letras{
      estado,  ajustes, canal, [this]() -> tolmira::Display * { return &display; }, [this] { return &preview; },
      measure, random};

  explicit Show(double draw = SlotOnLines) : random{draw} {
    estado.TelaPronta = true;
    estado.TipoAtual = QStringLiteral("Louvor");
    estado.FonteTamanho = QStringLiteral("60");
    estado.TemaAtual.Efeito_Texto_Fx = QStringLiteral("Fade");
    ajustes.EstiloLouvor = 2;
    ajustes.TransparenciaFaixa = QStringLiteral("6");
  }
  // The HTML of the one command that showing the verse sends.
  QString Html(int posicao, bool comEfeito) {
    letras.ExibeVerso(posicao, comEfeito);
    const QStringList sent = display.TakeCommands();
    return sent.size() == 1 ? sent[0].split(QStringLiteral("|#")).value(1)
                            : QStringLiteral("%1 commands").arg(sent.size());
  }
  QString Em(const QString &texto) {
    static const QRegularExpression size(QStringLiteral("font-size:([0-9.]+)em"));
    return size.match(letras.MontaVerso(texto)).captured(1);
  }
};

QString Lines(int n, const QString &line = QStringLiteral("abc")) {
  return QStringList(n, line).join(QStringLiteral("<br>"));
}

} // namespace

class TestLyricsComposer : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void typicalVerse();
  void layoutOfEachStyle_data();
  void layoutOfEachStyle();
  void plainStyleAligns();
  void sameVerseTwiceDoesNotRunAgainOnTheDisplay();
  void verseWithoutEffectIsStill();
  void noPositionSendsNothing();
  void positionBeyondTheVersesIsAnEmptyVerse_data();
  void positionBeyondTheVersesIsAnEmptyVerse();
  void previewGetsTheVerseWhileCommandsAreDropped();
  void apostrophesReachThePageEscapedOnce();
  void noVerseEndsItsScript_data();
  void noVerseEndsItsScript();
  void separatorOfFieldsInAVerseCutsNothing();
  void longVersesComeInAsOneBlock_data();
  void longVersesComeInAsOneBlock();
  void chanceIsBelowAndNotAt();

  void sizeOfTheText_data();
  void sizeOfTheText();
  void sizeIsCutAndNeverLostToRounding();
  void textIsNeverWiderThanItsShare();
  void sizeWithoutABaseOrADisplay();
  void lineHeight_data();
  void lineHeight();

  void animatedLayoutsSpeakTheVocabulary_data();
  void animatedLayoutsSpeakTheVocabulary();
  void animatedVerseFitsTheScreen_data();
  void animatedVerseFitsTheScreen();
  void animatedLinesRunOnlyForANewVerse();

  void bandAlpha();
  void shadowAndOutline();
  void styleOfTheText();
  void versesAreCutAtBlankLines_data();
  void versesAreCutAtBlankLines();
  void exitEffectOpensASecondTag();
};

void TestLyricsComposer::typicalVerse() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("Deus é fiel<br>Para sempre")};
  show.letras.ExibeVerso(1, true);

  const QString html = QStringLiteral(
      "<div class=\\'textbackground \\' style=\\'line-height:1.5;\\'><div class=\\'textbackgroundDiv animated fadeIn "
      "faster\\' style=\\'font-size:1.3em; background-color:rgb(0,0,0,0.6); min-width: 80%; border-radius: 1.6vw; "
      "\\'>Deus é fiel<br>Para sempre</div></div>");
  QCOMPARE(show.display.commands, QStringList{QString(u"UpdateText|#" + html + u"|#|#|#Deus é fiel<br>Para sempre")});
  QCOMPARE(show.preview.scripts, QStringList{QString(u"UpdateTextHtml('" + html + u"')")});
  QCOMPARE(show.estado.VersoHtmlAtual, html);
  QCOMPARE(show.estado.VersoTextoAtual, QStringLiteral("Deus é fiel<br>Para sempre"));
}

void TestLyricsComposer::layoutOfEachStyle_data() {
  QTest::addColumn<int>("estilo");
  QTest::addColumn<int>("classe");
  QTest::addColumn<QString>("html");

  const QString outer = QStringLiteral("<div class='textbackground ' style='line-height:1.5;'>");
  const QString band = QStringLiteral(
      "<div class='textbackgroundDiv [efeito]' style='font-size:1.3em; background-color:rgb(0,0,0,0.6); %1'>");
  const auto perLine = [&](const QString &extra) {
    const QString open = band.arg(extra) + u"<div class=''>";
    return QString(outer + open + u"um</div></div>" + open + u"dois</div></div></div>");
  };
  const auto around = [&](const QString &extra) {
    return QString(outer + band.arg(extra) + u"um<br>dois</div></div>");
  };

  QTest::newRow("1") << 1 << 1
                     << QStringLiteral("<div class='verso [efeito]' id='verso' style='line-height:1.5; "
                                       "text-align:center; font-size:1.3em; background-color:rgb(0,0,0,0.6); "
                                       "padding-left:%;'>um<br>dois</div>");
  QTest::newRow("2") << 2 << 1 << around(QStringLiteral("min-width: 80%; border-radius: 1.6vw; "));
  QTest::newRow("3") << 3 << 1
                     << around(QStringLiteral("min-width: auto; border-radius: 1.6vw; padding:1.2vw; "
                                              "padding-left:2vw; padding-right:2vw;"));
  QTest::newRow("4 small") << 4 << 0 << perLine(QStringLiteral("min-width: 50% ;"));
  QTest::newRow("4 medium") << 4 << 1 << perLine(QStringLiteral("min-width: 60% ;"));
  QTest::newRow("5") << 5 << 1 << perLine(QStringLiteral("border-radius: 1.2vw; "));
  QTest::newRow("6") << 6 << 1
                     << perLine(QStringLiteral("min-width: auto; border-radius: 1.5vw; padding-left:1.2vw; "
                                               "padding-right:1.2vw;"));
  QTest::newRow("any other") << 0 << 1 << perLine(QString());
}

void TestLyricsComposer::layoutOfEachStyle() {
  QFETCH(int, estilo);
  QFETCH(int, classe);
  QFETCH(QString, html);
  Show show;
  show.ajustes.EstiloLouvor = estilo;
  show.ajustes.FontSizeClass = classe;
  QCOMPARE(show.letras.MontaVerso(QStringLiteral("um<br>dois")), html.replace(u'\'', QStringLiteral("\\'")));
}

void TestLyricsComposer::plainStyleAligns() {
  Show show;
  show.ajustes.EstiloLouvor = 1;
  for (const int alinhamento : {0, 1}) {
    show.ajustes.Alinhamento = alinhamento;
    const QString html = show.letras.MontaVerso(QStringLiteral("um"));
    QVERIFY2(html.contains(u"text-align:left;") && html.contains(u"padding-left:2%;"), qPrintable(html));
  }
}

void TestLyricsComposer::sameVerseTwiceDoesNotRunAgainOnTheDisplay() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("um"), QStringLiteral("dois")};
  QVERIFY(show.Html(1, true).contains(u"animated fadeIn faster"));
  QVERIFY(!show.Html(1, true).contains(u"animated"));
  QVERIFY(!show.preview.scripts.last().contains(u"animated"));
  QVERIFY2(show.estado.VersoHtmlAtual.contains(u"animated"), "the verse is kept as it would run");
  QVERIFY(show.Html(2, true).contains(u"animated fadeIn faster"));

  // Clearing the text forgets the verse, so that it runs again.
  show.estado.VersoTextoAtual.clear();
  QVERIFY(show.Html(2, true).contains(u"animated fadeIn faster"));
}

void TestLyricsComposer::verseWithoutEffectIsStill() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("um"), QStringLiteral("dois")};
  const QString still = show.Html(1, false);
  QVERIFY(still.contains(u"textbackgroundDiv \\' style") && !still.contains(u"[efeito]"));
  show.estado.TemaAtual.Efeito_Texto_Fx = QStringLiteral("none");
  QVERIFY(show.Html(2, true).contains(u"textbackgroundDiv animated  faster\\'"));
}

void TestLyricsComposer::noPositionSendsNothing() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("um")};
  show.letras.ExibeVerso(-1, true);
  QVERIFY(show.display.commands.isEmpty() && show.preview.scripts.isEmpty());
  QCOMPARE(show.random.Count(), 0);
}

void TestLyricsComposer::positionBeyondTheVersesIsAnEmptyVerse_data() {
  QTest::addColumn<int>("posicao");
  QTest::newRow("behind the last") << 2;
  QTest::newRow("zero") << 0;
  QTest::newRow("below") << -7;
}

void TestLyricsComposer::positionBeyondTheVersesIsAnEmptyVerse() {
  QFETCH(int, posicao);
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("um")};
  show.estado.VersoTextoAtual = QStringLiteral("um");
  const QString html = show.Html(posicao, true);
  QVERIFY2(html.startsWith(u"<div class=\\'textbackground \\' style=\\'line-height:1;\\'>"), qPrintable(html));
  QVERIFY2(html.endsWith(u"border-radius: 1.6vw; \\'></div></div>"), qPrintable(html));
  QCOMPARE(show.estado.VersoTextoAtual, QString());

  show.ajustes.EstiloLouvor = 4;
  QCOMPARE(show.letras.MontaVerso(QString()),
           QStringLiteral("<div class=\\'textbackground \\' style=\\'line-height:1;\\'></div>"));
}

void TestLyricsComposer::previewGetsTheVerseWhileCommandsAreDropped() {
  Show show;
  show.estado.TelaPronta = false;
  show.estado.TextoEstrofes = {QStringLiteral("um")};
  show.letras.ExibeVerso(1, true);
  QVERIFY(show.display.commands.isEmpty());
  QCOMPARE(show.preview.scripts.size(), 1);
}

void TestLyricsComposer::apostrophesReachThePageEscapedOnce() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("D'Ele"), QStringLiteral("D\\'Ele 'sim'")};
  const QString first = show.Html(1, true);
  QVERIFY(first.contains(u">D\\'Ele<"));
  QVERIFY2(!QString(first).remove(QStringLiteral("\\'")).contains(u'\''), "one apostrophe would end the script's text");
  QVERIFY(show.Html(2, true).contains(u">D\\'Ele \\'sim\\'<"));
  QVERIFY2(show.estado.VersoTextoAtual == u"D\\'Ele 'sim'", "the verse itself stays as it is");
}

void TestLyricsComposer::noVerseEndsItsScript_data() {
  QTest::addColumn<QString>("verso");
  QTest::addColumn<QString>("html");
  QTest::newRow("escape") << QStringLiteral("a\\u b") << QStringLiteral("a&#92;u b");
  QTest::newRow("at the end") << QStringLiteral("fim\\") << QStringLiteral("fim&#92;");
  QTest::newRow("before an apostrophe") << QStringLiteral("D\\'Ele") << QStringLiteral("D\\'Ele");
  QTest::newRow("two before an apostrophe") << QStringLiteral("D\\\\'Ele") << QStringLiteral("D&#92;\\'Ele");
  QTest::newRow("lone line ends") << QStringLiteral("a\rb\nc\n\nd") << QStringLiteral("a b c  d");
  QTest::newRow("line separator") << QStringLiteral("a\u2028b\u2029c") << QStringLiteral("a b c");
  QTest::newRow("references") << QStringLiteral("a&nbsp;b &#233; &#xE9;") << QStringLiteral("a&nbsp;b &#233; &#xE9;");
  QTest::newRow("references in capitals") << QStringLiteral("A&NBSP;B &AMP; C") << QStringLiteral("A&nbsp;B &AMP; C");
  QTest::newRow("ampersands") << QStringLiteral("T&D &not &copyb; & &#; &&")
                              << QStringLiteral("T&amp;D &amp;not &copyb; & &amp;#; &&");
  QTest::newRow("mark of the escaping") << QStringLiteral("|x|") << QStringLiteral("|x|");
}

// What stands between the quotes is read as JavaScript reads it: the string ends at the first apostrophe without a
// backslash, and a backslash takes the character behind it.
void TestLyricsComposer::noVerseEndsItsScript() {
  QFETCH(QString, verso);
  QFETCH(QString, html);
  for (const int estilo : {1, 2, 4, 7, 8}) {
    Show show;
    show.ajustes.EstiloLouvor = estilo;
    show.estado.TextoEstrofes = {verso};
    // The second time the verse is on show already and takes the other way.
    for (int vez = 0; vez < 2; ++vez) {
      show.letras.ExibeVerso(1, true);
      const QString script = show.preview.scripts.last();
      static const QRegularExpression whole(QStringLiteral("^UpdateTextHtml\\('(?:[^'\\\\\\r\\n]|\\\\')*'\\)$"));
      QVERIFY2(whole.match(script).hasMatch(), qPrintable(script));
      QVERIFY2(script.contains(QString(u'>' + html + u'<')), qPrintable(script));
      QCOMPARE(show.estado.VersoTextoAtual, verso);
      QCOMPARE(show.display.commands.last().section(QStringLiteral("|#"), 1, 1), script.mid(16, script.size() - 18));
    }
  }
}

void TestLyricsComposer::separatorOfFieldsInAVerseCutsNothing() {
  Show show;
  show.estado.TextoEstrofes = {QStringLiteral("Em|#Dó")};
  show.letras.ExibeVerso(1, true);
  const QStringList fields = show.display.commands.last().split(QStringLiteral("|#"));
  QCOMPARE(fields.size(), 5);
  QVERIFY2(fields[1].endsWith(u">Em&#124;#Dó</div></div>"), qPrintable(fields[1]));
  QCOMPARE(fields[4], QStringLiteral("Em&#124;#Dó"));
}

void TestLyricsComposer::longVersesComeInAsOneBlock_data() {
  QTest::addColumn<int>("linhas");
  QTest::addColumn<double>("draw");
  QTest::addColumn<bool>("block");
  QTest::newRow("four lines") << 4 << SlotOnBlock << true;
  QTest::newRow("three lines never") << 3 << SlotOnBlock << false;
  QTest::newRow("four lines, the other draw") << 4 << SlotOnLines << false;
}

void TestLyricsComposer::longVersesComeInAsOneBlock() {
  QFETCH(int, linhas);
  QFETCH(double, draw);
  QFETCH(bool, block);
  Show show(draw);
  for (const int estilo : {2, 4}) {
    show.ajustes.EstiloLouvor = estilo;
    const QString html = show.letras.MontaVerso(Lines(linhas));
    QCOMPARE(html.contains(u"textbackground [efeito]"), block);
    QCOMPARE(html.count(u"textbackgroundDiv [efeito]"), block ? 0 : estilo == 2 ? 1 : linhas);
  }
  QCOMPARE(show.random.Count(), 2); // one draw a verse, whatever its length
}

void TestLyricsComposer::chanceIsBelowAndNotAt() {
  int hits = 0;
  for (int i = 0; i < 100; ++i) {
    Show show(i / 100.0 + 0.005);
    hits += show.letras.Chance(80) ? 1 : 0;
  }
  QCOMPARE(hits, 79);
}

void TestLyricsComposer::sizeOfTheText_data() {
  QTest::addColumn<QString>("alinhamento");
  QTest::addColumn<int>("classe");
  QTest::addColumn<bool>("larga");
  QTest::addColumn<QString>("texto");
  QTest::addColumn<QString>("em");

  const QString center = QStringLiteral("center"), top = QStringLiteral("flex-start");
  const QString wide = QString(60, u'w'); // 2400 px at 60 points
  const auto row = [](const char *name, const QString &alinhamento, int classe, bool larga, const QString &texto,
                      const char *em) {
    QTest::newRow(name) << alinhamento << classe << larga << texto << QString::fromLatin1(em);
  };
  row("small", center, 0, true, Lines(2), "1.3");
  row("medium", center, 1, true, Lines(2), "1.3");
  row("large", center, 2, true, Lines(2), "1.26");
  row("at the top", top, 1, true, Lines(2), "1.4");
  row("at the bottom", QStringLiteral("flex-end"), 2, true, Lines(2), "1.4");
  row("five lines", center, 1, true, Lines(5), "1.3");
  row("six lines, small", center, 0, true, Lines(6), "1.3");
  row("six lines, medium", center, 1, true, Lines(6), "1.1");
  row("six lines, large", center, 2, true, Lines(6), "0.98");
  row("six lines at the top", top, 0, true, Lines(6), "1.1");
  row("six wide lines: the fit does not count", center, 1, true, Lines(6, wide), "1.1");
  row("six wide lines, small: it does", center, 0, true, Lines(6, wide), "0.44");
  row("six lines on 4:3", center, 2, false, Lines(6), "1.63");
  row("short on 4:3", center, 1, false, Lines(1), "1.69");
  row("longest that fits", center, 1, true, QString(20, u'w'), "1.3");
  row("a character more", center, 1, true, QString(21, u'w'), "1.27");
  row("wide", center, 1, true, wide, "0.44");
  row("wide at the top", top, 1, true, wide, "0.45");
  row("wide on 4:3", center, 1, false, wide, "0.44");
  row("the widest line counts", center, 1, true, QString(u"a<br>" + wide + u"<br>b"), "0.44");
}

void TestLyricsComposer::sizeOfTheText() {
  QFETCH(QString, alinhamento);
  QFETCH(int, classe);
  QFETCH(bool, larga);
  QFETCH(QString, texto);
  Show show;
  show.ajustes.AlinhamentoVertical = alinhamento;
  show.ajustes.FontSizeClass = classe;
  show.estado.TelaLarga = larga;
  QTEST(show.Em(texto), "em");
}

void TestLyricsComposer::sizeIsCutAndNeverLostToRounding() {
  Show show;
  const QString fits;
  for (int base = 8; base <= 250; ++base) {
    for (const int percent : {98, 110, 126, 129, 130, 140, 257}) {
      const double factor = percent / 100.0;
      QCOMPARE(show.letras.AjustaFonteTexto(fits, base, 84, base * factor), QString::number(factor));
    }
  }
  QCOMPARE(show.letras.AjustaFonteTexto(fits, 60, 84, 60 * 1.3099), QStringLiteral("1.3"));
  QCOMPARE(show.letras.AjustaFonteTexto(fits, 60, 84, 60), QStringLiteral("1"));
}

void TestLyricsComposer::textIsNeverWiderThanItsShare() {
  Show show;
  for (int length = 1; length < 200; length += 7) {
    for (const double percent : {30.0, 84.0, 86.0}) {
      const QString texto(length, u'w');
      const double em = show.letras.AjustaFonte(texto, 60, percent, 78);
      const double width = show.measure.Width(texto, FontSpec{QString(), em * 60, true});
      QVERIFY2(width <= percent / 100 * 1280 + 0.5, qPrintable(QStringLiteral("%1 characters").arg(length)));
    }
  }
}

void TestLyricsComposer::sizeWithoutABaseOrADisplay() {
  Show show;
  show.estado.FonteTamanho.clear();
  QCOMPARE(show.Em(Lines(1)), QStringLiteral("0"));
  show.estado.FonteTamanho = QStringLiteral("abc");
  QCOMPARE(show.Em(Lines(1)), QStringLiteral("0"));

  LyricsComposer alone(
      show.estado, show.ajustes, show.canal, [] { return nullptr; }, [] { return nullptr; }, show.measure, show.random);
  QCOMPARE(alone.AjustaFonte(QString(500, u'w'), 60, 84, 78), 1.3);
  for (const int estilo : {2, 7, 8}) {
    show.ajustes.EstiloLouvor = estilo;
    QVERIFY(!alone.MontaVerso(Lines(3)).isEmpty());
  }
}

void TestLyricsComposer::lineHeight_data() {
  QTest::addColumn<int>("estilo");
  QTest::addColumn<QStringList>("heights"); // of 0 to 6 lines
  const auto row = [](const char *name, int estilo, const char *heights) {
    QTest::newRow(name) << estilo << QString::fromLatin1(heights).split(u' ');
  };
  row("plain", 1, "1 1.5 1.5 1.2 1.2 1 1");
  row("last with a band", 6, "1 1.5 1.5 1.2 1.2 1 1");
  row("animated", 7, "1.2 1.5 1.5 1.3 1.3 1.2 1.2");
}

void TestLyricsComposer::lineHeight() {
  QFETCH(int, estilo);
  Show show;
  show.ajustes.EstiloLouvor = estilo;
  QStringList heights;
  for (int n = 0; n <= 6; ++n)
    heights.append(show.letras.AlturaLinha(n));
  QTEST(heights, "heights");
}

void TestLyricsComposer::animatedLayoutsSpeakTheVocabulary_data() {
  QTest::addColumn<int>("estilo");
  QTest::addColumn<int>("linhas");
  QTest::addColumn<QString>("shape"); // the blocks, with the number of lines in each
  QTest::newRow("one line") << 7 << 1 << QStringLiteral("areas1 bloco1:1");
  QTest::newRow("two lines") << 7 << 2 << QStringLiteral("areas1 bloco1:2");
  QTest::newRow("five lines") << 7 << 5 << QStringLiteral("areas1 bloco1:2 separa bloco2:2 separa bloco3:1");
  QTest::newRow("twelve lines") << 7 << 12
                                << QStringLiteral("areas1 bloco1:3 separa bloco2:3 separa bloco3:2 separa bloco4:2 "
                                                  "separa bloco5:2");
  QTest::newRow("no line") << 7 << 0 << QStringLiteral("areas1");
  QTest::newRow("columns, one line") << 8 << 1 << QStringLiteral("columns L:1 bar");
  QTest::newRow("columns, five lines") << 8 << 5 << QStringLiteral("columns L:3 bar R:2");
  QTest::newRow("columns, no line") << 8 << 0 << QStringLiteral("columns");
  QTest::newRow("a style beyond the last") << 9 << 2 << QStringLiteral("columns L:1 bar R:1");
}

void TestLyricsComposer::animatedLayoutsSpeakTheVocabulary() {
  QFETCH(int, estilo);
  QFETCH(int, linhas);
  Show show(0.0); // draws the first effect of the list
  show.ajustes.EstiloLouvor = estilo;
  QString html = show.letras.MontaVerso(Lines(linhas, QStringLiteral("D'Ele")));
  QCOMPARE(html.count(u"D\\'Ele"), linhas);
  QVERIFY(!QString(html).remove(QStringLiteral("\\'")).contains(u'\''));
  html.replace(QStringLiteral("\\'"), QStringLiteral("'"));
  QCOMPARE(html.count(u"<div"), html.count(u"</div>"));
  QVERIFY2(html.contains(u"--faixa:0.6;"), "the band carries its own alpha");

  // Each line is an element of its own, numbered through the verse.
  static const QRegularExpression line(QStringLiteral(
      "<div id='texto(\\d+)' class='texto([LR]) anima([LR])([1-5]) efeitoZoom \\[efeito\\]' style='font-size:[0-9.]+em;"
      "( color: yellow;)?'>"));
  static const QRegularExpression open(QStringLiteral(
      "<div class='(container-grid areas1|text-container) [^']*'|<div class='bloco(\\d)'>|"
      "<div class='(blocosepara)' style='height: 0\\.5em;'></div>|<div class='blocoTexto([LR])' style='width:|"
      "<div class='(cor1)' style='height:|<div id='texto"));
  int number = 0;
  for (auto it = line.globalMatch(html); it.hasNext();) {
    const auto match = it.next();
    QCOMPARE(match.captured(1).toInt(), ++number);
    QCOMPARE(match.captured(2), match.captured(3));
  }
  QCOMPARE(number, linhas);

  QStringList shape;
  int inBlock = 0;
  const auto closeBlock = [&] {
    if (inBlock > 0)
      shape.last() += u':' + QString::number(inBlock);
    inBlock = 0;
  };
  for (auto it = open.globalMatch(html); it.hasNext();) {
    const auto match = it.next();
    if (match.captured(0).endsWith(u"texto")) {
      ++inBlock;
      continue;
    }
    closeBlock();
    shape.append(match.captured(1) == u"text-container" ? QStringLiteral("columns")
                 : !match.captured(1).isEmpty()         ? QStringLiteral("areas1")
                 : !match.captured(2).isEmpty()         ? QString(u"bloco" + match.captured(2))
                 : !match.captured(3).isEmpty()         ? QStringLiteral("separa")
                 : !match.captured(4).isEmpty()         ? match.captured(4)
                                                        : QStringLiteral("bar"));
  }
  closeBlock();
  QTEST(shape.join(u' '), "shape");
}

void TestLyricsComposer::animatedVerseFitsTheScreen_data() {
  QTest::addColumn<int>("estilo");
  QTest::addColumn<int>("linhas");
  QTest::addColumn<int>("length");
  QTest::addColumn<QSize>("screen");
  for (const int estilo : {7, 8})
    for (const int linhas : {1, 2, 5, 8, 14})
      for (const int length : {3, 60})
        for (const QSize &screen : {QSize(1280, 720), QSize(1024, 768)})
          QTest::addRow("style %d, %d lines of %d on %d", estilo, linhas, length, screen.width())
              << estilo << linhas << length << screen;
}

void TestLyricsComposer::animatedVerseFitsTheScreen() {
  QFETCH(int, estilo);
  QFETCH(int, linhas);
  QFETCH(int, length);
  QFETCH(QSize, screen);
  Show show;
  show.ajustes.EstiloLouvor = estilo;
  show.display.size = screen;
  show.estado.TelaLarga = screen.width() > 1.34 * screen.height();
  const QString texto(length, u'w');
  const QString html = show.letras.MontaVerso(Lines(linhas, texto));

  static const QRegularExpression size(
      QStringLiteral("texto\\d+\\\\' class=\\\\'texto([LR])[^>]*font-size:([0-9.]+)em"));
  const double lineHeight = show.letras.AlturaLinha(linhas).toDouble();
  const double share = estilo == 7 || linhas == 1 ? 0.84 : 0.42;
  double height[2] = {0, 0}; // of the columns; the groups of style 7 stand below each other
  int found = 0;
  for (auto it = size.globalMatch(html); it.hasNext();) {
    const auto match = it.next();
    ++found;
    const double points = match.captured(2).toDouble() * 60;
    QVERIFY2(points >= 5, qPrintable(html));
    QVERIFY(show.measure.Width(texto, FontSpec{QString(), points, true}) <= share * screen.width() + 0.5);
    height[estilo == 8 && match.captured(1) == u"R"] += points * 96 / 72 * lineHeight;
  }
  QCOMPARE(found, linhas);
  height[0] += static_cast<double>(html.count(u"blocosepara")) * 0.5 * 60 * 96 / 72;
  QVERIFY2(std::max(height[0], height[1]) <= 0.9 * screen.height(), qPrintable(html));
}

void TestLyricsComposer::animatedLinesRunOnlyForANewVerse() {
  Show show(0.0);
  show.estado.TextoEstrofes = {QStringLiteral("um<br>dois"), QStringLiteral("tres")};
  for (const int estilo : {7, 8}) {
    show.ajustes.EstiloLouvor = estilo;
    show.estado.VersoTextoAtual.clear();
    const int before = show.random.Count();
    const QString html = show.Html(1, true);
    QCOMPARE(html.count(u"efeitoZoom animated\\'"), 2);
    QCOMPARE(show.random.Count() - before, 2); // the layout's draw, and one that changes nothing

    const QString again = show.Html(1, true);
    QVERIFY(!again.contains(u"animated") && !again.contains(u"[efeito]"));
    QCOMPARE(again.count(u"efeitoZoom \\'"), 2);
    QCOMPARE(show.random.Count() - before, 3);
    QVERIFY(!show.Html(2, false).contains(u"animated"));
  }
}

void TestLyricsComposer::bandAlpha() {
  QStringList alphas;
  for (int n = 0; n <= 11; ++n)
    alphas.append(AlfaFaixa(QString::number(n)));
  QCOMPARE(alphas.join(u' '), QStringLiteral("0.0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1 1"));
  QCOMPARE(AlfaFaixa(QString()), QStringLiteral("0."));
}

void TestLyricsComposer::shadowAndOutline() {
  TemaRecord tema;
  tema.FontSombra_Cor = QStringLiteral("255");
  tema.FontSombra_Right = QStringLiteral("4");
  tema.FontSombra_Down = QStringLiteral("2,5");
  tema.FontSombra_Blur = QStringLiteral("8");
  tema.FontBorda_Cor = QStringLiteral("1513494");
  tema.FontBorda_Espessura = QStringLiteral("2");
  QCOMPARE(SombraTexto(tema, 1), QStringLiteral("#FF0000 4px 2.5px 8px "));
  QCOMPARE(SombraTexto(tema, 0.25), QStringLiteral("#FF0000 1px 0.625px 2px "));
  QCOMPARE(ContornoTexto(tema), QStringLiteral("#161817 0px 1px 2px "));

  tema.FontSombra_Enabled = false;
  tema.FontBorda_Enabled = false;
  QCOMPARE(SombraTexto(tema, 1), QStringLiteral(" 0px 0px 0px "));
  QCOMPARE(ContornoTexto(tema), QStringLiteral("#161817 0px 0px 0px "));
}

void TestLyricsComposer::styleOfTheText() {
  TemaRecord tema;
  tema.Font_Name = QStringLiteral("Myriad Pro");
  tema.FontBorda_Cor = QStringLiteral("0");
  QCOMPARE(EstiloTexto(tema), QStringLiteral("font-family:Myriad Pro; color:#FFFFFF; text-shadow:#000000 0px 1px 2px "
                                             ",#000000 4px 4px 8px ;"));
  tema.FontSombra_Enabled = false;
  QCOMPARE(EstiloTexto(tema), QStringLiteral("font-family:Myriad Pro; color:#FFFFFF; text-shadow:#000000 0px 1px 2px "
                                             ", 0px 0px 0px ;"));
  tema.FontBorda_Enabled = false;
  const QString off = QStringLiteral("; color:#FFFFFF; text-shadow: rgba(0, 0, 0, 0) 0px 0px 0px ,rgba(0, 0, 0, 0) 0px "
                                     "0px 0px;");
  QCOMPARE(EstiloTexto(tema), u"font-family:Myriad Pro" + off);

  RecordingPage page;
  tema.Font_Name = QStringLiteral("Joe's Hand");
  AplicaEstiloTexto(&page, tema);
  QCOMPARE(page.scripts, QStringList{QString(u"SetAttribute('texto','style','font-family:Joe\\'s Hand" + off + u"')")});
}

void TestLyricsComposer::versesAreCutAtBlankLines_data() {
  QTest::addColumn<QString>("texto");
  QTest::addColumn<QStringList>("estrofes");
  const QString a = QStringLiteral("a<br>b"), c = QStringLiteral("c");
  QTest::newRow("two") << QStringLiteral("a\r\nb\r\n\r\nc") << QStringList{a, c};
  QTest::newRow("many blank lines") << QStringLiteral("a\r\nb\r\n\r\n\r\n\r\n\r\n\r\nc") << QStringList{a, c};
  QTest::newRow("one line end behind the last") << QStringLiteral("a\r\nb\r\n") << QStringList{a};
  QTest::newRow("blank line in front") << QStringLiteral("\r\n\r\na\r\nb") << QStringList{QString(), a};
  QTest::newRow("line feeds alone") << QStringLiteral("a\nb\n\nc") << QStringList{a, c};
  QTest::newRow("empty") << QString() << QStringList();
}

void TestLyricsComposer::versesAreCutAtBlankLines() {
  QFETCH(QString, texto);
  QTEST(CarregaEstrofes(texto), "estrofes");
}

void TestLyricsComposer::exitEffectOpensASecondTag() {
  Show show;
  QString saida = QStringLiteral("fadeOut");
  show.letras.MostraEfeitoSaida(&show.preview, QStringLiteral("fadeOut"), QStringLiteral("um"), saida);
  QVERIFY(saida.isEmpty());
  QCOMPARE(show.preview.scripts,
           QStringList{QStringLiteral("UpdateTextHtml('<div class=\\'animated fadeOut faster\\'>um<div>')")});
}

QTEST_APPLESS_MAIN(TestLyricsComposer)
#include "test_lyrics_composer.moc"
