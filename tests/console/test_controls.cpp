#include "console/page_zoom.h"
#include "console_fixture.h"
#include "foundation/text_fields.h"
#include "support/small_bible.h"

#include <QImage>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

using Call = std::function<void(ConsoleCore &)>;

// The same script on the display and then on the preview.
QStringList Both(const QString &script) {
  return {u"display: " + script, u"preview: " + script};
}

QStringList Zoom(double factor) {
  return Both(QStringLiteral("zoom %1").arg(factor));
}

QStringList Style(const QString &element, const QString &property, const QString &value) {
  return {u"command ChangeCSS|#" + element + u"|#" + property + u"|#" + value,
          u"preview: ChangeCSS('" + element + u"','" + property + u"','" + value + u"')"};
}

// The journal with the HTML of verses and the sizes in points left out, which have tests of their own.
QStringList Told(const ConsoleFixture &fixture) {
  QStringList told = fixture.journal;
  for (QString &line : told) {
    line.replace(QRegularExpression(QStringLiteral("UpdateText\\|#.*")), QStringLiteral("verse"));
    line.replace(QRegularExpression(QStringLiteral("UpdateTextHtml\\(.*")), QStringLiteral("verse"));
    line.replace(QRegularExpression(QStringLiteral("'\\d+pt'")), QStringLiteral("'pt'"));
  }
  return told;
}

const QStringList Verse{QStringLiteral("command verse"), QStringLiteral("preview: verse")};
const QStringList Size = Both(QStringLiteral("ChangeCSS('set_text','font-size','pt')"));
const QStringList Nothing;

QStringList Band(const QString &target, const QString &alpha) {
  return Both(u"ChangeCSS('" + target + u"','background-color','rgb(0, 0, 0, " + alpha + u")')");
}

QStringList Filter(const QString &values) {
  return Both(u"SetAttributeByClass('efeitos','style','filter: " + values + u"')");
}

QStringList PictureEffect(const QString &fx) {
  return {u"preview: ChangeOptions('fx','" + fx + u"')", u"command ChangeOptions|#fx|#" + fx + u"|#"};
}

} // namespace

// The controls over an item on show: what goes to the projection and the preview, in order, what is kept, and where the
// focus is afterwards.
class TestControls : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<ConsoleFixture>();
    m_fixture->Write(QStringLiteral("Lyrics/Song.txt"), TresEstrofes);
    m_fixture->Write(QStringLiteral("Harpa/7.txt"), TresEstrofes);
    SmallBible()
        .Chapter(1, 1, {QStringLiteral("In the beginning")})
        .Chapter(43, 3, {QStringLiteral("There was a man"), QStringLiteral("The same came by night")})
        .Write(m_fixture->folder.path(), QStringLiteral("AAA"));
  }

  void aThemeBehindCtrlKeepsTheVerseThatIsOut() {
    ConsoleFixture &f = *m_fixture;
    f.Show(QStringLiteral("Song"));
    f.core.stepper.TeclaEstrofe(1);
    f.EndGlide();
    f.core.stepper.CtrlDown();
    f.core.stepper.TeclaEstrofe(1);
    f.EndGlide();
    f.Forget();
    bool forcar = true;
    f.core.temaControle.aplicaTema(3, forcar);
    const QString sent = f.display.commands.join(u'\n') + f.display.page.scripts.join(u'\n');
    QVERIFY(sent.contains(QStringLiteral("Primeira linha")));
    QVERIFY(!sent.contains(QStringLiteral("Terceira linha")));
    QCOMPARE(f.core.estado.EstrofeAtual, 2);
  }

  void textControls_data() {
    QTest::addColumn<QString>("onShow");
    QTest::addColumn<int>("style"); // of songs, before
    QTest::addColumn<Call>("call");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<QString>("kept"); // "key=value", or empty
    QTest::addColumn<bool>("focus");   // the strip has it afterwards
    const auto row = [](const char *name, const char *onShow, int style, const Call &call, const QStringList &told,
                        const char *kept, bool focus = false) {
      QTest::newRow(name) << QString::fromLatin1(onShow) << style << call << told << QString::fromLatin1(kept) << focus;
    };
    const auto estilo = [](int v) { return [v](ConsoleCore &c) { c.textos.SliderExLouvor(v); }; };
    row("style 5 to 6", "song", 5, estilo(6), Zoom(1) + Verse, "estiloLouvor=6");
    row("style 6 to 7", "song", 6, estilo(7), Zoom(0.92) + Size + Verse, "estiloLouvor=7", true);
    row("style 8 to 2, hymn", "hymn", 8, estilo(2), Zoom(1) + Size + Verse, "estiloLouvor=2", true);
    row("the same style", "song", 5, estilo(5), Nothing, "estiloLouvor=");
    row("style, passage", "passage", 5, estilo(8), Zoom(1), "estiloLouvor=8");
    row("style, nothing", "", 5, estilo(7), Zoom(0.92), "estiloLouvor=7");

    const auto classe = [](int v) { return [v](ConsoleCore &c) { c.textos.ComboFontSize(v); }; };
    row("size", "song", 4, classe(2), Zoom(1) + Size + Verse, "ComboFontSize=2", true);
    row("size, passage", "passage", 4, classe(0), Nothing, "ComboFontSize=0");

    const auto faixa = [](int v) { return [v](ConsoleCore &c) { c.textos.SliderFaixa(v); }; };
    row("band 0", "song", 4, faixa(0), Band(u"textbackgroundDiv"_s, u"0.0"_s), "Transparencia_Faixa=0");
    row("band 10", "song", 2, faixa(10), Band(u"textbackgroundDiv"_s, u"1"_s), "Transparencia_Faixa=10");
    row("band of plain text", "song", 1, faixa(6), Band(u"verso"_s, u"0.6"_s), "Transparencia_Faixa=6");
    row("band of animated text", "song", 7, faixa(6),
        Band(u"textbackgroundDiv"_s, u"0"_s) + Both(QStringLiteral("ApplyTransparency('0.6')")),
        "Transparencia_Faixa=6");
    row(
        "band of a page that came", "song", 4, [](ConsoleCore &c) { c.textos.SliderFaixaUpdate(); },
        Both(QStringLiteral("ChangeCSS('textbackgroundDiv','background-color','rgb(0, 0, 0,0.7)')")),
        "Transparencia_Faixa=");

    const auto zoom = [](int v) { return [v](ConsoleCore &c) { c.textos.SliderZoom(v); }; };
    row("zoom", "song", 4, zoom(125), Zoom(1.25), "ZoomAjust=125");
    row("zoom below the least", "song", 4, zoom(20), Zoom(0.6), "ZoomAjust=60");
    row("zoom of songs, passage", "passage", 4, zoom(125), Nothing, "ZoomAjust=125");
    row(
        "zoom of passages", "passage", 4, [](ConsoleCore &c) { c.textos.sliderZoomBiblia(80); }, Zoom(0.8) + Verse,
        "ZoomAjustBiblia=80");

    const auto vertical = [](const char *v) {
      return [v](ConsoleCore &c) { c.textos.ApplyVerticalAlign(QString::fromLatin1(v)); };
    };
    const auto container = [](const char *v) {
      return Both(u"SetAttributeByClass('textoContainer','style','justify-content: " + QString::fromLatin1(v) + u"')");
    };
    row("top", "song", 4, vertical("flex-start"), container("flex-start") + Zoom(1) + Size + Verse,
        "VerticalAlign=flex-start");
    row("bottom of animated text", "song", 7, vertical("flex-end"), container("flex-end") + Zoom(1) + Size + Verse,
        "VerticalAlign=flex-end");
    row("top, passage", "passage", 4, vertical("flex-start"), container("flex-start") + Zoom(1) + Size + Verse,
        "VerticalAlign=flex-start");
    row("middle, nothing", "", 4, vertical("center"), container("center") + Zoom(1), "VerticalAlign=center");
    row("no alignment", "song", 4, vertical("sideways"), Nothing, "VerticalAlign=");

    row(
        "left, style that aligns", "song", 1, [](ConsoleCore &c) { c.textos.Image4(0); }, Verse, "");
    row(
        "left, another style", "song", 4, [](ConsoleCore &c) { c.textos.Image4(0); }, Nothing, "");
    row(
        "left, passage", "passage", 4, [](ConsoleCore &c) { c.textos.Image5(2); }, Verse, "");
    const auto letra = [](int n) { return [n](ConsoleCore &c) { c.textos.ImgBtFontSize(n); }; };
    row("large console text", "song", 4, letra(2), Size + Verse, "");
    row("large console text, passage", "passage", 4, letra(2), Size, "");
    row(
        "layout of passages", "passage", 4, [](ConsoleCore &c) { c.textos.SliderExBiblia(3); }, Verse,
        "estiloBiblia=3");
    row(
        "band of passages", "passage", 4, [](ConsoleCore &c) { c.textos.slider2(2); }, Verse, "SombraVerso=");
    row(
        "size of passages", "passage", 4, [](ConsoleCore &c) { c.textos.sliderFontSizeAjust(0); }, Size + Verse,
        "FontSizeAjusts=0", true);
  }
  void textControls() {
    QFETCH(int, style);
    m_fixture->core.ajustes.EstiloLouvor = style;
    ShowItem();
    QFETCH(Call, call);
    call(m_fixture->core);
    QTEST(Told(*m_fixture), "told");
    CheckKept();
    QTEST(m_fixture->view.focus > 0, "focus");
  }

  void effectControls_data() {
    QTest::addColumn<QString>("onShow");
    QTest::addColumn<Call>("call");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<bool>("focus");
    const auto row = [](const char *name, const char *onShow, const Call &call, const QStringList &told, bool focus) {
      QTest::newRow(name) << QString::fromLatin1(onShow) << call << told << focus;
    };
    const auto familia = [](const char *f) {
      return [f](ConsoleCore &c) { c.efeitos.ComboEfeitoImagem(QString::fromLatin1(f)); };
    };
    row("family without variants", "song", familia("Fade Zoom"), PictureEffect(u"fadeZoom"_s), true);
    row("family with variants begins with Random", "passage", familia("Cover"), PictureEffect(u"uncover"_s), false);
    row("no effect", "", familia("none"), PictureEffect(QString()), false);
    row(
        "variant", "song",
        [](ConsoleCore &c) {
          c.estado.TemaAtual.Efeito_Imagem_Fx = QStringLiteral("Turn");
          c.efeitos.ComboEfeitoImagemExtra(QStringLiteral("Turn Left"));
        },
        PictureEffect(u"turnLeft"_s), true);
    row(
        "text family", "song", [](ConsoleCore &c) { c.efeitos.ComboEfeitoTexto(QStringLiteral("FadeIn")); }, Nothing,
        true);

    row(
        "moves", "song", [](ConsoleCore &c) { c.efeitos.ChkMoveImagem(true); },
        Style(u"img"_s, u"animation-play-state"_s, u"running"_s), true);
    row(
        "no moves", "",
        [](ConsoleCore &c) {
          c.estado.TemaAtual.MoveImagens = true;
          c.efeitos.ChkMoveImagem(false);
        },
        Style(u"img"_s, u"animation-play-state"_s, u"paused"_s), false);
    row(
        "moves that were on", "song",
        [](ConsoleCore &c) {
          c.estado.TemaAtual.MoveImagens = true;
          c.efeitos.ChkMoveImagem(true);
        },
        Nothing, true);
    row(
        "locked moves", "song",
        [](ConsoleCore &c) {
          c.estado.ImagensCongeladas = true;
          c.efeitos.ChkMoveImagem(true);
        },
        Nothing, true);
    row(
        "text that fades as well", "song", [](ConsoleCore &c) { c.efeitos.ChkFadeTexto(true); }, Nothing, true);

    row(
        "brightness", "song", [](ConsoleCore &c) { c.efeitos.slider1(80); },
        Filter(u"blur(0px) brightness(80%) contrast(100%) saturate(100%)"_s), false);
    row(
        "contrast", "", [](ConsoleCore &c) { c.efeitos.slider3(150); },
        Filter(u"blur(0px) brightness(100%) contrast(150%) saturate(100%)"_s), false);
    row(
        "saturation", "passage", [](ConsoleCore &c) { c.efeitos.slider4(0); },
        Filter(u"blur(0px) brightness(100%) contrast(100%) saturate(0%)"_s), false);
    row(
        "blur", "song", [](ConsoleCore &c) { c.efeitos.slider5(7); },
        Filter(u"blur(7px) brightness(100%) contrast(100%) saturate(100%)"_s), false);
  }
  void effectControls() {
    ShowItem();
    QFETCH(Call, call);
    call(m_fixture->core);
    QTEST(m_fixture->journal, "told");
    QTEST(m_fixture->view.focus > 0, "focus");
  }

  void aVariantIsKeptWhereTheNewFamilyHasIt_data() {
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("variant");
    QTest::newRow("it has") << QStringLiteral("FadeIn") << QStringLiteral("FadeIn Left");
    QTest::newRow("it has not") << QStringLiteral("ZoomIn") << QStringLiteral("Random");
    QTest::newRow("it has none") << QStringLiteral("Zoom") << QString();
  }
  void aVariantIsKeptWhereTheNewFamilyHasIt() {
    m_fixture->core.estado.TemaAtual.Efeito_Texto_FxExtra = QStringLiteral("FadeIn Left");
    QFETCH(QString, family);
    m_fixture->core.efeitos.ComboEfeitoTexto(family);
    QTEST(m_fixture->core.estado.TemaAtual.Efeito_Texto_FxExtra, "variant");
  }

  void textEffectsComeWithTheNextVerse() {
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.efeitos.ComboEfeitoTexto(QStringLiteral("Flip"));
    m_fixture->core.efeitos.ChkZoomTexto(true);
    m_fixture->core.stepper.TeclaEstrofe(1);
    QVERIFY(m_fixture->display.commands.last().contains(u"animated flipInY faster comZoom"));
    bool rebuild = true; // the theme's own effect is back when it is applied
    m_fixture->core.temaControle.aplicaTema(1, rebuild);
    QCOMPARE(m_fixture->core.estado.TemaAtual.Efeito_Texto_Fx, QStringLiteral("Fade"));
  }

  void aPickedColourIsTheBackground() {
    m_fixture->core.efeitos.SelectColors1(); // given up
    QVERIFY(m_fixture->journal.isEmpty());
    m_fixture->core.temas[1].Tipo = QStringLiteral("Imagem");
    m_fixture->core.temaControle.MenuAplicar(1);
    m_fixture->Forget();
    m_fixture->prompt.colours = {0x1e90ff, 0x00ff00};
    m_fixture->core.efeitos.SelectColors1();
    const QStringList coloured = Both(QStringLiteral("SetAttribute('wheader','style','background-color:#FF901E')"));
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#"));
    QCOMPARE(m_fixture->core.estado.PaginaAtual, QStringLiteral("backcolor.html"));
    QCOMPARE(m_fixture->journal.last(2), coloured);
    m_fixture->Forget();
    m_fixture->core.efeitos.SelectColors1(); // the page stands already
    QCOMPARE(m_fixture->journal, Both(QStringLiteral("SetAttribute('wheader','style','background-color:#00FF00')")));
    QCOMPARE(m_fixture->core.temas[1].Tipo, QStringLiteral("Imagem"));
  }

  // While Ctrl is held the verse in the frame must not go out by way of a setting.
  void aSettingShowsTheVerseThatIsOut() {
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.stepper.CtrlDown();
    m_fixture->core.stepper.TeclaEstrofe(1);
    QCOMPARE(m_fixture->core.estado.EstrofeAtual, 2);
    m_fixture->Forget();
    m_fixture->core.textos.SliderExLouvor(6);
    m_fixture->core.textos.SliderExLouvor(7);
    m_fixture->core.textos.ApplyVerticalAlign(QStringLiteral("flex-end"));
    const QString first = QStringLiteral("Primeira linha<br>Segunda linha");
    QCOMPARE(m_fixture->VersesSent(), (QStringList{first, first, first}));
  }

  void theAlignmentButtonGoesRound() {
    m_fixture->Show(QStringLiteral("Song"));
    QStringList went;
    for (int i = 0; i < 3; ++i) {
      m_fixture->core.textos.ImgAlinhamentoVertical();
      went << m_fixture->Config("VerticalAlign");
      QCOMPARE(m_fixture->core.painel.ComboFontSizeVisible, i == 2);
      QCOMPARE(m_fixture->core.painel.ImgAlinhamentoVertical, i);
    }
    QCOMPARE(went, (QStringList{QStringLiteral("flex-start"), QStringLiteral("flex-end"), QStringLiteral("center")}));
  }

  void songsStandAtTheLeftEdgeOrInTheMiddle() {
    m_fixture->Show(QStringLiteral("Song"));
    const int middle = m_fixture->core.faixa.Label1Esquerda;
    QVERIFY(middle > 0);
    m_fixture->core.textos.Image4(0);
    QCOMPARE(m_fixture->core.faixa.Label1Esquerda, 0);
    m_fixture->core.textos.SliderExLouvor(7); // laid out anew
    QCOMPARE(m_fixture->core.faixa.Label1Esquerda, 0);
    m_fixture->core.textos.Image4(1);
    QCOMPARE(m_fixture->core.faixa.Label1Esquerda, middle);
  }

  void nothingIsToldBeforeTheConsoleHasLoaded() {
    m_fixture->core.estado.ConsoleCarregado = false;
    m_fixture->core.textos.SliderFaixa(3);
    m_fixture->core.textos.SliderZoom(90);
    m_fixture->core.efeitos.slider1(50);
    m_fixture->core.efeitos.ComboEfeitoImagem(QStringLiteral("Cover"));
    QVERIFY(m_fixture->journal.isEmpty());
    QCOMPARE(m_fixture->Config("Transparencia_Faixa"), QString());
    QCOMPARE(m_fixture->core.estado.TemaAtual.brightness, 100);
  }

  // A page whose process died is loaded as it was built; all that was changed since is put again.
  void aPageThatCameBackGetsTheLiveChanges() {
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.textos.ApplyVerticalAlign(QStringLiteral("flex-end"));
    m_fixture->core.efeitos.slider5(3);
    m_fixture->prompt.colours = {0xff0000};
    m_fixture->core.efeitos.SelectColors1();
    m_fixture->Forget();
    m_fixture->core.PaginaVoltou();
    const QString all = m_fixture->display.page.scripts.join(u'\n');
    for (const char *told : {"blur(3px)", "background-color:#0000FF", "justify-content: flex-end", "rgb(0, 0, 0,0.7)"})
      QVERIFY2(all.contains(QLatin1String(told)), told);

    m_fixture->core.temas[2].Tipo = QStringLiteral("Imagem");
    m_fixture->core.temaControle.MenuAplicar(2);
    m_fixture->core.efeitos.ComboEfeitoImagem(QStringLiteral("Toss"));
    m_fixture->core.efeitos.ChkMoveImagem(true);
    m_fixture->Forget();
    m_fixture->core.PaginaVoltou();
    QVERIFY(m_fixture->display.commands.contains(QStringLiteral("ChangeOptions|#fx|#toss|#")));
    QVERIFY(m_fixture->display.commands.contains(QStringLiteral("ChangeCSS|#img|#animation-play-state|#running")));
  }

  void screenStates_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QStringList>("told");
    const QStringList block = Style(u"texto"_s, u"display"_s, u"block"_s);
    const QString path = QStringLiteral("command PadraDeFundo|#");
    QTest::newRow("hidden text") << 0 << 1
                                 << QStringList{u"black off"_s, u"picture off"_s} +
                                        Style(u"texto"_s, u"display"_s, u"none"_s) +
                                        QStringList{u"command OcultarTexto"_s};
    QTest::newRow("hidden text back") << 1 << 0
                                      << block + QStringList{u"black off"_s, u"picture off"_s, u"command Normal"_s};
    QTest::newRow("black") << 0 << 2 << QStringList{u"picture off"_s, u"black on"_s, u"command TelaPreta|#true"_s};
    // The cover comes first: the text that returns beneath it is never seen.
    QTest::newRow("hidden text to black")
        << 1 << 2
        << QStringList{u"black on"_s} + block +
               QStringList{u"picture off"_s, u"black on"_s, u"command TelaPreta|#true"_s};
    QTest::newRow("hidden text to the picture")
        << 1 << 3 << QStringList{u"picture on"_s} + block + QStringList{u"black off"_s, u"picture on"_s, path};
    QTest::newRow("hidden text to nothing")
        << 1 << 4
        << QStringList{u"black on"_s} + block + QStringList{u"black off"_s, u"picture off"_s, u"command Hide"_s};
    QTest::newRow("black to the picture") << 2 << 3 << QStringList{u"black off"_s, u"picture on"_s, path};
    QTest::newRow("nothing back") << 4 << 0 << QStringList{u"black off"_s, u"picture off"_s, u"command Normal"_s};
  }
  void screenStates() {
    const QString picture = MakePicture(QStringLiteral("Images/f.png"));
    m_fixture->core.controles.trocarFundoPadrao(picture);
    QFETCH(int, from);
    m_fixture->core.controles.SetScreenState(from);
    m_fixture->Forget();
    QFETCH(int, to);
    m_fixture->core.controles.SetScreenState(to);
    QStringList told = m_fixture->journal;
    told.replaceInStrings(m_fixture->app.At(u"\\Images\\f.png"), QString());
    QTEST(told, "told");
    QCOMPARE(m_fixture->core.painel.LBTelaMarcado, to);
  }

  void withoutADefaultBackgroundTheGalleryOpensAndNothingChanges() {
    ScreenControls &controles = m_fixture->core.controles;
    int opened = 0;
    controles.AbreGaleria = [&opened] { ++opened; };
    controles.SetScreenState(1);
    m_fixture->Forget();
    controles.SetScreenState(3);
    QCOMPARE(opened, 1);
    controles.trocarFundoPadrao(MakePicture(QStringLiteral("Images/Cross.png")));
    QCOMPARE(m_fixture->Config("padraodefundo"), QStringLiteral("Cross.png"));
    QCOMPARE(m_fixture->core.estado.EstadoTela, QStringLiteral("OcultarTexto"));
    QCOMPARE(m_fixture->core.painel.LBTelaMarcado, 1);
    QVERIFY(m_fixture->journal.isEmpty());

    controles.SetScreenState(3);
    QCOMPARE(m_fixture->core.estado.EstadoTela, QStringLiteral("PadraoDeFundo"));
    QCOMPARE(opened, 1);
    controles.trocarFundoPadrao(MakePicture(QStringLiteral("Images/Dove.png"))); // while it is on show: at once
    QCOMPARE(m_fixture->core.estado.EstadoTela, QStringLiteral("PadraoDeFundo"));
    QCOMPARE(m_fixture->display.fundoPadrao, m_fixture->app.At(u"\\Images\\Dove.png"));
    m_fixture->Forget();
    controles.trocarFundoPadrao(m_fixture->app.At(u"\\Images\\missing.png"));
    QVERIFY(m_fixture->journal.isEmpty());
  }

  void aPictureFromTheGalleryStaysUntilTheTextMoves() {
    ConsoleCore &core = m_fixture->core;
    core.temaControle.SetCheckAlteraTemaAleatorio(true);
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->Forget();
    const QString path = MakePicture(QStringLiteral("Images/Cross.png"));
    core.efeitos.ImagemDaGaleria(path, true);
    const auto placed = [&] { return core.estado.TemaAtual.Imagem == QString(path + u'|' + path + u'|'); };
    QVERIFY(core.estado.FundoPreso && core.estado.TemaAtual.MoveImagens && placed());
    QCOMPARE(m_fixture->display.commands.filter(QStringLiteral("CarregaTema|#")).size(), 1);
    m_fixture->Show(QStringLiteral("Song")); // a new item keeps it
    QVERIFY(placed());
    core.stepper.TeclaEstrofe(1);
    m_fixture->EndGlide();
    QVERIFY(!core.estado.FundoPreso);
  }

  void aSavedThemeIsAppliedUnderWhatIsOnShow_data() {
    QTest::addColumn<QString>("onShow");
    QTest::addColumn<int>("pages");
    QTest::newRow("nothing") << QString() << 1;
    QTest::newRow("song") << QStringLiteral("Louvor") << 1;
    QTest::newRow("slides") << QStringLiteral("SlideShow") << 0;
    QTest::newRow("video") << QStringLiteral("Video") << 0;
  }
  void aSavedThemeIsAppliedUnderWhatIsOnShow() {
    QFETCH(QString, onShow);
    ConsoleCore &core = m_fixture->core;
    core.estado.IndiceTema = 3;
    core.estado.TipoAtual = onShow;
    core.temas[3].CordeFundo = 255;
    m_fixture->Forget();
    core.temaControle.TemaSalvo();
    QCOMPARE(core.estado.TemaAtual.CordeFundo, 255);
    QTEST(static_cast<int>(m_fixture->display.commands.filter(QStringLiteral("CarregaTema|#")).size()), "pages");
  }

private:
  void ShowItem() {
    QFETCH(QString, onShow);
    if (onShow == u"passage") {
      m_fixture->core.leitura.CarregaVersoes();
      m_fixture->core.flow.ShowEntry(1, 1, QStringLiteral("John 3:2"), QStringLiteral("John 3:2"));
    } else if (!onShow.isEmpty()) {
      const bool hymn = onShow == u"hymn";
      const QString name = hymn ? QStringLiteral("7") : QStringLiteral("Song");
      m_fixture->core.flow.ShowEntry(hymn ? 3 : 2, 1, name, name);
      m_fixture->core.stepper.TeclaEstrofe(1);
    } else {
      ApplyZoom(m_fixture->core.contexto);
    }
    m_fixture->Forget();
    m_fixture->view.focus = 0;
  }

  void CheckKept() {
    QFETCH(QString, kept);
    if (!kept.isEmpty())
      QCOMPARE(m_fixture->Config(kept.section(u'=', 0, 0).toLatin1().constData()), kept.section(u'=', 1));
  }

  QString MakePicture(const QString &name) {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(static_cast<uint>(qHash(name)) | 0xff000000);
    const QString path = m_fixture->folder.filePath(name);
    if (!picture.save(path, "PNG"))
      qFatal("cannot write a picture");
    return path;
  }

  std::unique_ptr<ConsoleFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestControls)
#include "test_controls.moc"
