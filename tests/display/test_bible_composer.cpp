#include "display/bible_composer.h"
#include "foundation/app_folder.h"
#include "support/recording_display.h"
#include "support/scripted_random.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// A passage on a screen of 1280 x 720 with a preview of 320, in white on a band of 0.7.
struct Show {
  EstadoConsole estado;
  AjustesTexto ajustes;
  LegendaBiblia legenda;
  RecordingDisplay display;
  RecordingPage preview;
  ScriptedRandom random{0.5};
  int previewWidth = 320;
  DisplayChannel canal{estado, [this]() -> tolmira::Display * { return &display; }};
  BibleComposer biblia{estado,
                       ajustes,
                       legenda,
                       canal,
                       [this]() -> tolmira::Display * { return &display; },
                       [this] { return &preview; },
                       [this] { return previewWidth; },
                       random};

  explicit Show(int estilo = 2) {
    estado.TelaPronta = true;
    estado.TipoAtual = QStringLiteral("Bíblia");
    estado.VersaoBiblia = QStringLiteral("KJV");
    estado.TemaAtual.Efeito_Texto_Fx = QStringLiteral("Fade");
    estado.TemaAtual.Font_Cor = QStringLiteral("16777215");
    ajustes.EstiloBiblia = estilo;
  }
  QString Monta(const QString &texto, const QString &ref = QStringLiteral("John 11:35")) const {
    return biblia.MontaBiblia(texto, ref, estado.VersaoBiblia, legenda);
  }
  void Exibe(const QString &texto, bool comEfeito, bool soPrevia = false) {
    biblia.ExibeBiblia(texto, QStringLiteral("John 11:35"), QStringLiteral("50"), comEfeito, soPrevia);
  }
};

QString Escaped(QString html) {
  return html.replace(u'\'', QStringLiteral("\\'"));
}

} // namespace

class TestBibleComposer : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void theSixLayouts_data() {
    QTest::addColumn<int>("estilo");
    QTest::addColumn<QString>("html");
    const QString fim = QStringLiteral("#FFFFFF; background-color: rgb(0,0,0,0.7); text-align:left;'>"
                                       "<div style='width: 90%;'>Jesus wept.</div></div>");
    QTest::newRow("text first, reference at the foot")
        << 1
        << QStringLiteral("<div class='biblia2 [efeito] fontNormal' style='padding-top:2vw; font-size:[fontsize]pt; "
                          "color:") +
               fim +
               u"  <div class='[efeito]  fontBold' style='font-size:[fontsize]pt;color:rgb(255,255,255); "
               u"background-color:rgb(0,0,0,0); text-align:right; padding-right:20%; padding-top:2vw;'>John 11:35 "
               u"(KJV)</div>";
    QTest::newRow("square frame, set in")
        << 2
        << QStringLiteral("<div class='titulo tituloQuadrado  fontBold' "
                          "style='font-size:[fontsize]pt;color:rgb(255,255,255); "
                          "background-color: rgb(0,143,255, 1);  top:[top]; left:8%;'>John "
                          "11:35 (KJV)</div><div class='biblia2 tituloQuadrado [efeito]  "
                          "fontNormal' style='width:90%; left:5%; font-size:[fontsize]pt; "
                          "color:") +
               fim;
    QTest::newRow("round frame, set in") << 3
                                         << QStringLiteral(
                                                "<div class='titulo tituloRedondo  fontBold' "
                                                "style='font-size:[fontsize]pt;color:rgb(255,255,255); "
                                                "background-color: rgb(0,143,255, 1);  top:[top]; left:8%;'>John "
                                                "11:35 (KJV)</div><div class='biblia2 tituloRedondo [efeito]  "
                                                "fontNormal' style='width:90%; left:5%; font-size:[fontsize]pt; "
                                                "color:") +
                                                fim;
    const QString largo = QStringLiteral("John 11:35 (KJV)</div><div class='biblia2 [efeito]  fontNormal' "
                                         "style='font-size:[fontsize]pt; color:") +
                          fim;
    QTest::newRow("square title at the edge")
        << 4
        << QStringLiteral("<div class='titulo tituloQuadrado  fontBold' style='font-size:[fontsize]pt;"
                          "color:rgb(255,255,255); background-color: rgb(0,143,255, 1); top:[top]; left:0;'>") +
               largo;
    QTest::newRow("round title over the edge")
        << 5
        << QStringLiteral("<div class='titulo tituloRedondo  fontBold' style='font-size:[fontsize]pt;"
                          "color:rgb(255,255,255); background-color: rgb(0,143,255, 1); top:[top]; left:-2vw;'>") +
               largo;
    QTest::newRow("plain title")
        << 6
        << QStringLiteral("<div class='titulo fontBold ' style='font-size:[fontsize]pt;"
                          "color:rgb(255,255,255); background-color: rgb(0,143,255, 1);  top:[top]; left:5vw;'>") +
               largo;
    QTest::newRow("no such layout") << 7 << QString();
    QTest::newRow("the slider's zero") << 0 << QString();
  }

  void theSixLayouts() {
    QFETCH(int, estilo);
    QFETCH(QString, html);
    QCOMPARE(Show(estilo).Monta(QStringLiteral("Jesus wept.")), Escaped(html));
  }

  void capitalsAreForTheTextAlone() {
    Show show;
    show.legenda.maiusculas = true;
    const QString html = show.Monta(QStringLiteral("Jesus wept, não?"));
    QVERIFY(html.contains(u">JESUS WEPT, NÃO?</div>"));
    QVERIFY(html.contains(u">John 11:35 (KJV)</div>"));
  }

  void theBandBehindTheText_data() {
    QTest::addColumn<int>("sombra");
    QTest::addColumn<QString>("alfa");
    QTest::newRow("none") << 0 << QStringLiteral("0.0");
    QTest::newRow("some") << 4 << QStringLiteral("0.4");
    QTest::newRow("all") << 10 << QStringLiteral("1");
    QTest::newRow("more than all") << 15 << QStringLiteral("1");
  }

  void theBandBehindTheText() {
    QFETCH(int, sombra);
    QFETCH(QString, alfa);
    Show show;
    show.ajustes.SombraVerso = sombra;
    QVERIFY(show.Monta(QStringLiteral("x")).contains(u"; background-color: rgb(0,0,0," + alfa + u"); text-align"));
  }

  void onlyTwoMeansCentre_data() {
    QTest::addColumn<int>("alinha");
    QTest::addColumn<QString>("palavra");
    QTest::newRow("left") << 0 << QStringLiteral("left");
    QTest::newRow("right") << 1 << QStringLiteral("left");
    QTest::newRow("centre") << 2 << QStringLiteral("center");
  }

  void onlyTwoMeansCentre() {
    QFETCH(int, alinha);
    QFETCH(QString, palavra);
    Show show;
    show.ajustes.AlinhamentoBiblia = alinha;
    QVERIFY(show.Monta(QStringLiteral("x")).contains(u"text-align:" + palavra + u";"));
  }

  void nothingInTheTextEndsTheScript_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("naPagina");
    QTest::newRow("apostrophe") << QStringLiteral("the king's") << QStringLiteral("the king\\'s");
    QTest::newRow("escaped already") << QStringLiteral("the king\\'s") << QStringLiteral("the king\\'s");
    QTest::newRow("backslash") << QStringLiteral("a\\") << QStringLiteral("a&#92;");
    QTest::newRow("line end") << QStringLiteral("a\nb") << QStringLiteral("a b");
    QTest::newRow("field separator") << QStringLiteral("a|#b") << QStringLiteral("a&#124;#b");
  }

  void nothingInTheTextEndsTheScript() {
    QFETCH(QString, texto);
    QFETCH(QString, naPagina);
    Show show(4);
    show.biblia.ExibeBiblia(texto, QStringLiteral("Jó's 1:1"), QStringLiteral("50"), true, false);
    const QStringList campos = show.display.commands.value(0).split(QStringLiteral("|#"));
    QCOMPARE(campos.size(), 5);
    QVERIFY(campos[1].contains(u">" + naPagina + u"</div>"));
    QVERIFY(campos[1].contains(u">Jó\\'s 1:1 (KJV)</div>"));
    QVERIFY(show.preview.scripts.value(0).contains(u">" + naPagina + u"</div>"));
  }

  void oneCommandAndOneScript() {
    Show show;
    show.Exibe(QStringLiteral("Jesus<BR>wept."), true);
    QCOMPARE(show.display.commands.size(), 1);
    const QStringList campos = show.display.commands[0].split(QStringLiteral("|#"));
    QCOMPARE(campos[0], QStringLiteral("UpdateText"));
    QVERIFY(campos[1].startsWith(u"<div class=\\'titulo tituloQuadrado  fontBold\\' style=\\'font-size:50pt;"));
    QVERIFY(campos[1].contains(u"top:-3vw;"));
    QVERIFY(campos[1].contains(u"biblia2 tituloQuadrado animated fadeIn faster  fontNormal"));
    QCOMPARE(campos.mid(2), QStringList({QStringLiteral("Jesuswept."), QStringLiteral("John 11:35"), QString()}));

    QCOMPARE(show.preview.scripts.size(), 1);
    const QString script = show.preview.scripts[0];
    QVERIFY(script.startsWith(u"UpdateTextHtml('<div class=\\'titulo "));
    QVERIFY(script.contains(u"font-size:12pt;")); // 50 / (1280 / 320), halves to the even neighbour
    QVERIFY(script.contains(u"top:-2.4vw;"));
    QVERIFY(script.contains(u"animated fadeIn faster"));

    QVERIFY(!show.estado.VersoHtmlAtual.contains(u"animated"));
    QVERIFY(!show.estado.VersoHtmlAtual.contains(u'['));
    QCOMPARE(show.estado.VersoBibliaAtual, QStringLiteral("Jesus<BR>wept."));
  }

  void theEffectPlaysOnBothPartsOfStyle1AndEachTime() {
    Show show(1);
    show.Exibe(QStringLiteral("x"), true);
    show.Exibe(QStringLiteral("x"), true);
    for (const QString &comando : show.display.TakeCommands())
      QCOMPARE(comando.count(QStringLiteral("animated fadeIn faster")), 2);
    show.Exibe(QStringLiteral("x"), false);
    QVERIFY(!show.display.commands[0].contains(u"animated"));
    QVERIFY(!show.display.commands[0].contains(u"[efeito]"));
  }

  void aPreviewLeavesTheProjectionAlone() {
    Show show;
    show.Exibe(QStringLiteral("x"), false, true);
    QVERIFY(show.display.commands.isEmpty());
    QCOMPARE(show.preview.scripts.size(), 1);
    show.biblia.ReenviaBiblia(QStringLiteral("50"));
    QVERIFY(show.display.commands.isEmpty()); // it never showed a verse
  }

  void anUnknownLayoutEmptiesTheText() {
    Show show(7);
    show.Exibe(QStringLiteral("x"), true);
    QCOMPARE(show.display.commands, {QStringLiteral("UpdateText|#|#x|#John 11:35|#")});
    QCOMPARE(show.preview.scripts, {QStringLiteral("UpdateTextHtml('')")});
  }

  void whatTheProjectionShowsIsSentAgain() {
    Show show;
    show.Exibe(QStringLiteral("Jesus wept."), true);
    show.biblia.ExibeBiblia(QStringLiteral("ahead"), QStringLiteral("John 11:36"), QStringLiteral("50"), false, true);
    show.estado.VersaoBiblia = QStringLiteral("WEB");
    show.display.commands.clear();
    show.biblia.ReenviaBiblia(QStringLiteral("44"));
    QVERIFY(show.display.commands.value(0).contains(u"font-size:44pt;"));
    QVERIFY(show.display.commands.value(0).contains(u">John 11:35 (KJV)<"));
    QVERIFY(show.display.commands.value(0).endsWith(u"|#Jesus wept.|#John 11:35|#"));
  }
};

QTEST_GUILESS_MAIN(TestBibleComposer)
#include "test_bible_composer.moc"
