#include "captions/caption_composer.h"
#include "captions/caption_settings.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The fragments that caption pages receive, to the letter, and the settings that they are made by.
class TestCaptionComposer : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void passages_data() {
    QTest::addColumn<int>("estilo");
    QTest::addColumn<QString>("html");
    const QString text = QStringLiteral("color:rgb(1,2,3); background-color: rgb(4,5,6, 0.6)");
    const QString title = QStringLiteral("color:rgb(7,8,9); background-color: rgb(10,11,12, 1)");
    const QString margin = QStringLiteral("<div style='margin-bottom: 5vh;'></div>");
    const QString band = u"</div><div class='biblia2 contorno fontNormal' style='font-family:Serif;" + text +
                         u";'><div style='width: 90%;'>Verse</div></div>";
    const QString one = u"<div class='titulo tituloQuadrado fontBold' style='font-family:Serif;font-size:1rem; " +
                        title +
                        u";'>John 3:16 (KJV)</div><div class='biblia1 tituloQuadrado contorno fontNormal' "
                        u"style='font-family:Serif;" +
                        text + u";'>Verse</div></div>" + margin;
    const QString sides = title +
                          u"; width: 20vw;'>John 3:16<br>KJV</div><div class= 'bloco2b contorno fontNormal' "
                          u"style='width:80vw; " +
                          text + u";'>Verse</div></div>";
    const QString loose = u"<div class='bloco2 fontBold' style='font-family:Serif;font-size:1rem; width:94vw;'><div "
                          u"class= 'bloco2a' style='" +
                          title +
                          u"; width:20vw;'>John 3:16<br>KJV</div><div class= "
                          u"'bloco2b contorno fontNormal' style='width:74vw; " +
                          text + u";'>Verse</div></div><div style='margin-bottom: 6vh;'></div>";
    QTest::newRow("0 is 1") << 0 << one;
    QTest::newRow("1") << 1 << one;
    QTest::newRow("2") << 2
                       << QString(
                              u"<div class='titulo tituloRedondo fontBold' style='font-family:Serif;font-size:1rem; " +
                              title +
                              u";'>John 3:16 (KJV)</div><div class='biblia1 contorno fontNormal' "
                              u"style='font-family:Serif;" +
                              text + u";'>Verse</div>" + margin);
    QTest::newRow("3") << 3
                       << QString(u"<div class='titulo tituloQuadrado  fontBold' style='font-family:Serif;"
                                  u"font-size:1rem; " +
                                  title + u"; left:0%;'>John 3:16 (KJV)" + band);
    QTest::newRow("4") << 4
                       << QString(u"<div class='titulo tituloRedondo fontBold' style='font-family:Serif;"
                                  u"font-size:1rem; " +
                                  title +
                                  u"; left:-3%;'>&nbsp; &nbsp; &nbsp; &nbsp;John 3:16 "
                                  u"(KJV)" +
                                  band);
    QTest::newRow("5") << 5
                       << QString(u"<div class='titulo fontBold' style='font-size:0.8rem;  font-family:Serif;" + title +
                                  u"; left:5%;'>John 3:16 (KJV)" + band);
    QTest::newRow("6") << 6
                       << QString(u"<div class='bloco2' style='font-family:Serif;'><div class= 'bloco2a  fontBold' "
                                  u"style='font-size:1rem; " +
                                  sides);
    QTest::newRow("7") << 7
                       << QString(u"<div class='bloco2' style='font-family:Serif;'><div class= 'bloco2a fontBold' "
                                  u"style='font-size:1rem; " +
                                  sides + margin);
    QTest::newRow("8") << 8 << loose;
    QTest::newRow("above 8") << 23 << loose;
  }
  void passages() {
    QFETCH(int, estilo);
    LegendaBiblia look;
    look.estilo = estilo;
    look.Contorno = true;
    look.fontName = QStringLiteral("Serif");
    look.fontColor = 0x030201;
    look.backColor = 0x060504;
    look.fontColorTitulo = 0x090807;
    look.backColorTitulo = 0x0c0b0a;
    look.transparenciaTitulo = 2; // read by nobody
    QTEST(ComposeLegendaBiblia(look, QStringLiteral("Verse"), QStringLiteral("John 3:16"), QStringLiteral("KJV")),
          "html");
  }

  void songs_data() {
    QTest::addColumn<int>("estilo");
    QTest::addColumn<QString>("html");
    const QString margin = QStringLiteral("<div style='margin-bottom: 5vh;'></div>");
    const auto one = [](const QString &classes, const QString &style) -> QString {
      return u"<div class='" + classes + u" contornoeSombra fontBold' style='" + style +
             u"font-family:Arial; color:rgb(255,255,255); background-color:rgb(0,0,0, 0.6);'>a<br>b</div>";
    };
    const auto each = [](const QString &classes, const QString &style) -> QString {
      const QString open = u"<div class='" + classes + u" contornoeSombra fontBold' style='" + style +
                           u"font-family:Arial; color:rgb(255,255,255); background-color: rgb(0,0,0, 0.6);'>";
      return open + u"a</div><div style='width:100%; height:6px'></div>" + open + u"b</div>";
    };
    const auto row = [](int estilo, const QString &html) {
      QTest::newRow(qPrintable(QString::number(estilo))) << estilo << html;
    };
    const QString fixed = QStringLiteral("textBackFixo");
    const QString small = QStringLiteral("min-width:30%; border-radius: ");
    row(0, one(QStringLiteral("textDefault"), {}) + margin);
    row(1, one(QStringLiteral("textDefault"), {}) + margin);
    row(2, one(QStringLiteral("textDefault"), QStringLiteral("max-width:80%; ")) + margin);
    row(3, one(QStringLiteral("textDefaultBackAuto tituloQuadrado"), {}) + margin);
    row(4, one(QStringLiteral("textDefaultBackAuto"), {}) + margin);
    row(5, each(fixed, small + u"0px; font-size:1rem; ") + margin + margin);
    row(6, each(fixed, small + u"0.2rem; font-size:1rem; ") + margin + margin);
    row(7, each(fixed, QStringLiteral("border-radius: 0px; ")) + margin);
    row(8, each(fixed, {}) + margin);
    row(9, each(QStringLiteral("textBackAuto"), QStringLiteral("border-radius: 0px; ")) + margin);
    row(10, each(QStringLiteral("textBackAuto"), {}) + margin);
    row(11, one(QStringLiteral("textDefault"), QStringLiteral("min-height:3rem; ")));
    row(12, margin);
    row(-1, margin);
  }
  void songs() {
    QFETCH(int, estilo);
    LegendaLetras look;
    look.estilo = estilo;
    look.Contorno = look.Sombra = true;
    QTEST(ComposeLegendaLetra(look, QStringLiteral("<i>a</i><BR>b[^28]")), "html");
    QCOMPARE(look.estilo, estilo == 0 ? 1 : estilo);
  }

  void theTextOfASong_data() {
    QTest::addColumn<QString>("verse");
    QTest::addColumn<bool>("capitals");
    QTest::addColumn<QString>("shown");
    QTest::newRow("three lines") << QStringLiteral("a<br>b<br>c") << false << QStringLiteral("a<br>b  c");
    QTest::newRow("capitals") << QStringLiteral("água<br>b") << true << QStringLiteral("ÁGUA<br>B");
    QTest::newRow("references") << QStringLiteral("It&#x27;s &quot;so&quot;") << false
                                << QStringLiteral("It's \"so\""); // the marks go when it is sent
  }
  void theTextOfASong() {
    QFETCH(QString, verse);
    QFETCH(bool, capitals);
    QFETCH(QString, shown);
    LegendaLetras look;
    look.maiusculas = capitals;
    QVERIFY(ComposeLegendaLetra(look, verse).contains(QString(u">" + shown + u"</div>")));
  }

  void capitalsLeaveTheReference() {
    LegendaBiblia look;
    look.maiusculas = true;
    const QString html =
        ComposeLegendaBiblia(look, QStringLiteral("verse"), QStringLiteral("John"), QStringLiteral("Kjv"));
    QVERIFY(html.contains(u">VERSE<") && html.contains(u">John (Kjv)<"));
  }

  void linesAreBalanced_data() {
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("balanced");
    const auto row = [](const char *name, const char *lines, const char *balanced) {
      QTest::newRow(name) << QString::fromLatin1(lines) << QString::fromLatin1(balanced);
    };
    row("nothing", "", "");
    row("one", "a", "a");
    row("two", "a long one|#|b", "a long one|#|b");
    row("three", "a|#|b|#|c", "a|#|b  c");
    row("three, the first pair shorter", "a|#|b|#|cc", "a  b|#|cc");
    row("a long first", "aaaaaaaaaaaa|#|b|#|c", "aaaaaaaaaaaa|#|b  c");
    row("a long last", "a|#|b|#|cccccccccc", "a  b|#|cccccccccc");
    row("four", "aa|#|bb|#|cc|#|dd", "aa  bb|#|cc  dd");
    row("the first of two equal cuts", "aaaa|#|bb|#|aaaa", "aaaa|#|bb  aaaa");
    row("blank lines count", "aaaa|#||#||#|bbbb", "aaaa  |#|  bbbb");
    row("blank lines lose nothing", "a|#||#|", "a|#|  ");
  }
  void linesAreBalanced() {
    QFETCH(QString, lines);
    QTEST(EquilibraLinhas(lines), "balanced");
  }

  void coloursAreTexts() {
    QCOMPARE(ComposeCor(16748288), QStringLiteral("rgb(0,143,255)"));
    QCOMPARE(ComposeFundo(255, 0), QStringLiteral("rgb(255,0,0, 0.0)"));
    QCOMPARE(ComposeFundo(255, 6), QStringLiteral("rgb(255,0,0, 0.6)"));
    QCOMPARE(ComposeFundo(255, 10), QStringLiteral("rgb(255,0,0, 1)"));
  }

  void settingsComeBackAsTheyWereSaved() {
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("Data")));
    const AppFolder app(folder.path());
    const IniStore store(app);
    EstadoLegenda read;
    CarregaLegendas(store, read);
    const EstadoLegenda fresh;
    QVERIFY(read.Biblia == fresh.Biblia && read.Letras == fresh.Letras && read.Porta == 4747 && !read.StartOnLoad);

    const QString file = folder.filePath(QStringLiteral("Data/Config.dat"));
    WriteBytes(file, "[Config]\r\nestiloLouvor=4\r\n");
    EstadoLegenda changed;
    changed.Porta = 50505;
    changed.StartOnLoad = true;
    changed.Biblia.estilo = 7;
    changed.Biblia.fontBoldTitulo = false;
    changed.Biblia.fontColorTitulo = 255;
    changed.Letras.fontSize = 22.5;
    changed.Letras.fontName = QStringLiteral("Ubuntu Condensed");
    changed.Letras.Sombra = changed.Letras.maiusculas = true;
    changed.Letras.transparencia = 10;
    QVERIFY(SalvarLegenda(store, changed));
    CarregaLegendas(store, read);
    QVERIFY(read.Biblia == changed.Biblia && read.Letras == changed.Letras);
    QVERIFY(read.Porta == 50505 && read.StartOnLoad);
    const QByteArray bytes = ReadBytes(file);
    QVERIFY(bytes.startsWith("[Config]\r\nestiloLouvor=4\r\n"));
    QVERIFY(bytes.contains("[Legendas B\xED"
                           "blia]\r\nestilo=7\r\nalinhamento=0\r\nContorno=False\r\nSombra=False\r\n"
                           "fontBold=normal\r\nfontBoldTitulo=normal\r\nfontColor=16777215\r\n"));
  }

  void badSettingsAreHarmless() {
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("Data")));
    WriteBytes(
        folder.filePath(QStringLiteral("Data/Config.dat")),
        "[Legendas]\r\nporta=99999\r\nstartOnLoad=yes\r\n[Legendas Letras]\r\nestilo=x\r\nfontColor=99999999999\r\n"
        "backColor=-5\r\ntransparencia=77\r\nfontBold=maybe\r\n");
    const AppFolder app(folder.path());
    EstadoLegenda read;
    CarregaLegendas(IniStore(app), read);
    QCOMPARE(read.Porta, quint16(65535));
    QVERIFY(!read.StartOnLoad && !read.Letras.fontBold);
    QCOMPARE(read.Letras.estilo, 0);
    QCOMPARE(ComposeCor(read.Letras.fontColor), QStringLiteral("rgb(255,255,255)"));
    QCOMPARE(ComposeFundo(read.Letras.backColor, read.Letras.transparencia), QStringLiteral("rgb(0,0,0, 1)"));
  }
};

QTEST_GUILESS_MAIN(TestCaptionComposer)
#include "test_caption_composer.moc"
