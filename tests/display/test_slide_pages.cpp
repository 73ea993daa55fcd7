#include <QtTest>

#include "display/slide_html.h"
#include "display/slide_pages.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/recording_display.h"
#include "support/scripted_random.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

SlideDocument Document(const QList<Slide> &slides) {
  SlideDocument document;
  document.slides = slides;
  return document;
}

} // namespace

// What a slide is as HTML, in its two forms, and the pages of a document.
class TestSlidePages : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void presentedForm_data() {
    QTest::addColumn<Slide>("slide");
    QTest::addColumn<QString>("band");
    QTest::addColumn<QString>("html");
    const auto row = [](const char *name, const Slide &slide, const char *band, const char *html) {
      QTest::newRow(name) << slide << QString::fromLatin1(band) << QString::fromLatin1(html);
    };
    row("left", {{}, QStringLiteral("A"), QStringLiteral("b\r\nc"), 0, 12, 4, 1}, "7",
        "<div id='verso' style='background-color: rgba(0, 0, 0, 0.7); text-align:left; padding-left:10%; "
        "font-size:51px; box-shadow: 0px 0px 10px rgba(0,0,0,0.7); margin-bottom: 1%;'>A</div>"
        "<div id='textoSlide' style='line-height: 1; padding-left:10%; text-align:left; font-size:51px'>b<br>c</div>");
    // The strength goes behind "0." as it is, also where it has two digits.
    row("centred, the strongest band", {{}, QStringLiteral("A"), {}, 2, 16, 10, 1}, "10",
        "<div id='verso' style='background-color: rgba(0, 0, 0, 0.10); text-align:center; padding-left:2%; "
        "font-size:128px; box-shadow: 0px 0px 10px rgba(0,0,0,0.10); margin-bottom: 1%;'>A</div>"
        "<div id='textoSlide' style='line-height: 2; padding-left:2%; text-align:center; font-size:128px'></div>");
    row("its text is switched off", {{}, QStringLiteral("A"), QStringLiteral("b"), 1, 15, 0, 2}, "0",
        "<div id='verso' style='background-color: rgba(0, 0, 0, 0.0); text-align:left; padding-left:10%; "
        "font-size:0px; box-shadow: 0px 0px 10px rgba(0,0,0,0.0); margin-bottom: 1%;'></div>"
        "<div id='textoSlide' style='line-height: 2; padding-left:10%; text-align:left; font-size:0px'></div>");
  }
  void presentedForm() {
    QFETCH(Slide, slide);
    QFETCH(QString, band);
    QTEST(GetSlideTextoFormatado(Document({slide}), 1, 1280, band), "html");
  }

  void capitalsComeBeforeMarkup() {
    SlideDocument document = Document({{{}, QStringLiteral("água & c:\\x"), QStringLiteral("a\r\nb"), 0, 10, 4, 1}});
    document.visual.Maiusculas = true;
    const QString html = GetSlideTextoFormatado(document, 1, 1280, QStringLiteral("7"));
    QVERIFY2(html.contains(QStringLiteral(">ÁGUA & C:&#92;X</div>")), qPrintable(html));
    QVERIFY(html.contains(QStringLiteral(">A<br>B</div>")));
  }

  void editedForm_data() {
    QTest::addColumn<int>("espacamento");
    QTest::addColumn<QString>("band");
    QTest::addColumn<bool>("comTexto");
    QTest::addColumn<QString>("begins");
    QTest::addColumn<QString>("ends");
    QTest::newRow("with its text") << 12 << QStringLiteral("7") << true
                                   << QStringLiteral("<div id='verso' class='verso fadeIn' style='background-color: "
                                                     "rgba(0, 0, 0, 0.7); text-align:left;")
                                   << QStringLiteral("line-height: 1.2; padding-left:10%; text-align:left; "
                                                     "font-size:26pt'>b</div>");
    QTest::newRow("the strongest band, text off")
        << 8 << QStringLiteral("10") << false
        << QStringLiteral("<div id='verso' class='verso fadeIn' style='background-color: rgba(0, 0, 0, 1); ")
        << QStringLiteral("line-height: 8.8; padding-left:10%; text-align:left; font-size:26pt'></div>");
  }
  void editedForm() {
    QFETCH(int, espacamento);
    QFETCH(QString, band);
    QFETCH(bool, comTexto);
    QFETCH(QString, begins);
    QFETCH(QString, ends);
    const SlideDocument document = Document({{{}, QStringLiteral("A"), QStringLiteral("b"), 0, qint16(espacamento), 4, 1}});
    const QString html = GetSlideTexto_Formatado(document, 1, 640, band, QStringLiteral("fadeIn"), comTexto);
    QVERIFY2(html.startsWith(begins), qPrintable(html));
    QVERIFY2(html.endsWith(ends), qPrintable(html));
  }

  // A slide without a picture keeps its place in the cycle, and one slide alone gets its empty element.
  void everySlideHasAPlaceInTheCycle_data() {
    QTest::addColumn<QStringList>("pictures");
    QTest::addColumn<QString>("list");
    const QString none = QStringLiteral("<div><img class='img efeitos' src=''></div>\r\n");
    const QString a = QStringLiteral("<div><img class='img efeitos' src='C:\\a.jpg'></div>\r\n");
    QTest::newRow("the first has none") << QStringList{{}, QStringLiteral("C:\\a.jpg")} << none + a;
    QTest::newRow("one alone") << QStringList{QStringLiteral("C:\\a.jpg")} << QString(u"<div></div>" + a);
    QTest::newRow("a separator in a name")
        << QStringList{QStringLiteral("C:\\a|b.jpg"), {}}
        << QString(u"<div><img class='img efeitos' src='C:\\a|b.jpg'></div>\r\n" + none);
  }
  void everySlideHasAPlaceInTheCycle() {
    QFETCH(QStringList, pictures);
    Desk desk;
    desk.Template("[listaImages]#[primeiraimage]");
    QList<Slide> slides;
    for (const QString &picture : pictures)
      slides.append({picture, {}, {}, 0, 12, 4, 1});
    desk.pages.CarregarSlides(Document(slides), int(slides.size()), 1);
    QFETCH(QString, list);
    QCOMPARE(desk.Page("temp.html"), QByteArray(list.toLatin1() + '#' + QByteArray::number(slides.size() - 1)));
  }

  void thePagesOfADocument() {
    Desk desk;
    desk.Template("[fximage]|[speedimage]|[easingimage]|[stateMoveImage]|[letra]|[fontname]|[fontcolor]|[text-shadow]|"
                  "[displayTexto]|[VerticalAlign]|[blur]/[brightness]|[TransparenciaFaixa]|[ComandoInicial]");
    SlideDocument document = Document({{QStringLiteral("C:\\a.jpg"), QStringLiteral("T"), {}, 0, 10, 4, 1}, {}});
    document.visual.Efeito_Imagem_Fx = QStringLiteral("Toss");
    document.visual.MoveImagens = true;
    document.visual.Font_Name = QStringLiteral("Arial");
    desk.estado.EstadoTela = QStringLiteral("OcultarTexto");
    const QByteArray look = "|Arial|#FFFFFF|#161817 0px 1px 3px ,#000000 ";
    desk.pages.CarregarSlides(document, 1, 0);
    QCOMPARE(desk.estado.PaginaAtual, QStringLiteral("slide"));
    QCOMPARE(desk.display.commands, QStringList{u"CarregaTema|#" + desk.folder.path() + u"\\temp.html"});
    QCOMPARE(desk.preview.urls, QStringList{u"file:///" + desk.folder.path() + u"\\temp-pv.html"});
    QCOMPARE(desk.yielder.calls, std::vector<int>{4});
    const QByteArray page = desk.Page("temp.html");
    QVERIFY2(page.startsWith("toss|1000||running|<div id='verso'") && page.contains("font-size:51px"), page.constData());
    QVERIFY2(page.endsWith(QByteArray(look + "4px 4px 6px ;|none|center|0/100|0.0|")), page.constData());
    const QByteArray previewPage = desk.Page("temp-pv.html");
    QVERIFY2(previewPage.contains("font-size:13px"), previewPage.constData());
    QVERIFY2(previewPage.endsWith(QByteArray(look + "1px 1px 1.5px ;|none|center|0/100|0.0|")), previewPage.constData());

    desk.estado.ImagensCongeladas = true;
    desk.pages.CarregarSlides(document, 0, 2);
    QVERIFY(desk.Page("temp-pv.html").startsWith("toss|1000||paused||Arial"));
    QCOMPARE(desk.display.commands.size(), 1);
  }

private:
  struct Desk {
    QTemporaryDir folder;
    AppFolder app{folder.path()};
    IniStore store{app};
    EstadoConsole estado;
    AjustesTexto ajustes;
    RecordingDisplay display;
    RecordingPage preview;
    ScriptedRandom random{0.5};
    CountingYielder yielder;
    DisplayChannel canal{estado, [this] { return &display; }};
    SlidePages pages{app,
                     store,
                     estado,
                     ajustes,
                     canal,
                     {[this] { return &display; }, [this] { return &preview; }, [] { return 320; }, {}, {}, {}, {}},
                     random,
                     yielder};
    Desk() {
      estado.TelaPronta = true;
      QDir(folder.path()).mkpath(QStringLiteral("html"));
      qputenv("TEMP", folder.path().toLocal8Bit());
    }
    ~Desk() { qunsetenv("TEMP"); }
    void Template(const QByteArray &bytes) { WriteBytes(folder.filePath(QStringLiteral("html/imagem.html")), bytes); }
    QByteArray Page(const char *name) const { return ReadBytes(folder.filePath(QLatin1String(name))); }
  };
};

QTEST_GUILESS_MAIN(TestSlidePages)
#include "test_slide_pages.moc"
