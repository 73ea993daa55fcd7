#include "console/bible_fit.h"
#include "console_fixture.h"
#include "support/small_bible.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

constexpr int John = 43;

// Of the length of the longest verse there is.
QString LongVerse() {
  return QStringLiteral("And so it was written to the rulers and the keepers of every province, ")
      .repeated(8)
      .trimmed();
}

// A console with two versions. John has three chapters; verse 2 of the second is missing in the first version, and the
// second version lacks the third chapter.
class BibleFixture : public ConsoleFixture {
public:
  BibleFixture() {
    const QStringList um{QStringLiteral("One one"), QStringLiteral("One two")};
    const QStringList tres{QStringLiteral("Three one"), QStringLiteral("Three two"), QStringLiteral("Three three")};
    SmallBible()
        .Chapter(1, 1, {QStringLiteral("Genesis one one")}) // without an Old Testament there is no version
        .Chapter(John, 1, um)
        .Chapter(John, 2, {QStringLiteral("Two one"), QString(), QStringLiteral("Two three")})
        .Chapter(John, 3, tres)
        .Write(folder.path(), QStringLiteral("AAA"));
    SmallBible()
        .Chapter(1, 1, {QStringLiteral("Outra")})
        .Chapter(John, 1, {QStringLiteral("Um um"), QStringLiteral("Um dois")})
        .Write(folder.path(), QStringLiteral("BBB"));
    core.leitura.CarregaVersoes();
    Forget();
  }

  void Mostra(const QString &reference) { core.flow.ShowEntry(1, 1, QStringLiteral("Reading"), reference); }
  void Tecla(int key) { core.teclas.KeyDown(key, !core.estado.EnviarAoTelao, false); }
  // Reference and text of the verses sent since the last Forget.
  QStringList Enviados() const {
    QStringList verses;
    for (const QString &comando : display.commands)
      if (comando.startsWith(u"UpdateText|#"))
        verses.append(comando.section(QStringLiteral("|#"), 3, 3) + u' ' + comando.section(QStringLiteral("|#"), 2, 2));
    return verses;
  }
  bool Animado() const { return display.commands.join(u' ').contains(u"animated"); }
};

} // namespace

class TestBible : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<BibleFixture>();
  }

  void anEntryIsShownAtOnce() {
    m_fixture->Show(QStringLiteral("none")); // its message must not stay
    m_fixture->Mostra(QStringLiteral("john 3:2"));
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 3:2 Three two")});
    QVERIFY(m_fixture->Animado());
    QCOMPARE(Estado().TipoAtual, QStringLiteral("Bíblia"));
    QCOMPARE(Estado().ReferenciaAtual, QStringLiteral("John 3:2"));
    QCOMPARE(Estado().VersaoBiblia, QStringLiteral("AAA"));
    QCOMPARE(Estado().VersoBibliaAtual, QStringLiteral("Three two"));
    QVERIFY(Estado().ArquivoAtual.isEmpty());
    const PainelConsole &painel = m_fixture->core.painel;
    QCOMPARE(painel.Label9, QStringLiteral("John 3:2"));
    QVERIFY(painel.biblia.Visible);
    QVERIFY(!painel.biblia.Adiante);
    QCOMPARE(painel.biblia.Texto, QStringLiteral("Three two"));
    QVERIFY(painel.SliderExBibliaVisible && painel.Picture7Visible && painel.sliderZoomBibliaVisible);
    QVERIFY(!painel.SliderExLouvorVisible && !painel.Picture4Visible && !painel.LbFaixaVisible);
    QCOMPARE(painel.LabelDicaBiblia, QStringLiteral("Utilize as setas do teclado para mudar o versículo\r\n"
                                                    "Utilize CTRL+SETAS para pré-visualizar"));
  }

  void referencesAsAnAgendaMayHoldThem_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reference");
    QTest::newRow("the last verse") << QStringLiteral("John 3:1000") << QStringLiteral("John 3:3");
    QTest::newRow("verse 0 stands for the last") << QStringLiteral("John 3:0") << QStringLiteral("John 3:3");
    QTest::newRow("a chapter") << QStringLiteral("John 3") << QStringLiteral("John 3:1");
    QTest::newRow("a range") << QStringLiteral("JOHN 3:2-3") << QStringLiteral("John 3:2");
    QTest::newRow("two verses") << QStringLiteral("John 3:2e3") << QStringLiteral("John 3:2");
  }

  void referencesAsAnAgendaMayHoldThem() {
    QFETCH(QString, target);
    QFETCH(QString, reference);
    m_fixture->Mostra(target);
    QCOMPARE(Estado().ReferenciaAtual, reference);
  }

  void arrowsWalkThroughVersesAndChapters() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    for (int key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down})
      m_fixture->Tecla(key);
    // Verse 2 of chapter 2 has no text.
    QCOMPARE(m_fixture->Enviados(),
             QStringList({QStringLiteral("John 2:1 Two one"), QStringLiteral("John 2:3 Two three"),
                          QStringLiteral("John 3:1 Three one")}));
    QVERIFY(m_fixture->Animado());
    m_fixture->Forget();
    for (int key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Up})
      m_fixture->Tecla(key);
    QCOMPARE(m_fixture->Enviados(),
             QStringList({QStringLiteral("John 2:3 Two three"), QStringLiteral("John 2:1 Two one"),
                          QStringLiteral("John 1:2 One two")}));
    QCOMPARE(m_fixture->core.painel.Label9, QStringLiteral("John 1:2"));
  }

  void atTheEndsOfTheBookNothingMoves_data() {
    QTest::addColumn<QString>("reference");
    QTest::addColumn<int>("key");
    QTest::newRow("behind the last") << QStringLiteral("John 3:3") << int(Qt::Key_Down);
    QTest::newRow("before the first") << QStringLiteral("John 1:1") << int(Qt::Key_Up);
  }

  void atTheEndsOfTheBookNothingMoves() {
    QFETCH(QString, reference);
    QFETCH(int, key);
    m_fixture->Mostra(reference);
    m_fixture->Forget();
    m_fixture->Tecla(key);
    m_fixture->Tecla(key);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(Estado().ReferenciaAtual, reference);
    QVERIFY(m_fixture->core.painel.biblia.Visible);
  }

  void aBrowserThatReadsElsewhereDoesNotMoveTheWalk() {
    m_fixture->Mostra(QStringLiteral("John 3:1"));
    QString other = QStringLiteral("John 1:1");
    m_fixture->core.lojaBiblia.GetVerse(other);
    m_fixture->Forget();
    m_fixture->Tecla(Qt::Key_Down);
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 3:2 Three two")});
  }

  // Another passage takes the caption away before its page is built; walking on leaves it to the verse that goes out, which
  // looking ahead does not.
  void theCaptionGoesWithItsPassage() {
    QString &caption = m_fixture->core.legenda.TextoLegenda;
    m_fixture->Mostra(QStringLiteral("John 1:1"));
    caption = QStringLiteral("of the verse");
    m_fixture->core.stepper.CtrlDown();
    m_fixture->Tecla(Qt::Key_Down);
    m_fixture->Tecla(Qt::Key_Down);
    QCOMPARE(m_fixture->core.estado.ReferenciaAtual, QStringLiteral("John 2:1"));
    QCOMPARE(caption, QStringLiteral("of the verse"));
    m_fixture->core.stepper.CtrlUp();
    m_fixture->Mostra(QStringLiteral("John 3:1"));
    QCOMPARE(caption, QString());
  }

  void neighboursOfAChapter() {
    QCOMPARE(NextCapitulo(QStringLiteral("Song of Solomon 2:7")), QStringLiteral("Song of Solomon 3:1"));
    QCOMPARE(PreviousCapitulo(QStringLiteral("I John 2:7")), QStringLiteral("I John 1:1000"));
    QCOMPARE(PreviousCapitulo(QStringLiteral("I John 1:7")), QString());
    QCOMPARE(NextCapitulo(QStringLiteral("I John")), QString());
  }

  void whileCtrlIsHeldTheProjectionStays() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    m_fixture->core.teclas.KeyDown(Qt::Key_Control, true, false);
    QVERIFY(m_fixture->core.painel.PicDica3);
    QCOMPARE(m_fixture->core.painel.PicDica3Texto, QStringLiteral("Navigate to the desired verse,"));
    m_fixture->Tecla(Qt::Key_Down);
    m_fixture->Tecla(Qt::Key_Down);
    QCOMPARE(m_fixture->core.painel.biblia.Texto, QStringLiteral("Two three"));
    QVERIFY(m_fixture->core.painel.biblia.Adiante);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QVERIFY(m_fixture->display.page.scripts.isEmpty());
    QVERIFY(m_fixture->preview.scripts.isEmpty());
    // Nor does a setting that is changed meanwhile bring it out.
    m_fixture->core.textos.Image5(2);
    QVERIFY(m_fixture->display.commands.isEmpty());

    m_fixture->core.teclas.KeyUp(Qt::Key_Control);
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 2:3 Two three")});
    QVERIFY(m_fixture->Animado());
    QVERIFY(!m_fixture->core.painel.PicDica3);
    QVERIFY(!m_fixture->core.painel.biblia.Adiante);
  }

  void aCtrlThatOnlyPressedAButtonPlaysNoEffect() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    m_fixture->core.teclas.KeyDown(Qt::Key_Control, true, false);
    m_fixture->core.teclas.KeyUp(Qt::Key_Control);
    QVERIFY(!m_fixture->Animado());
  }

  void aBlackScreenHasNoLookAhead() {
    m_fixture->Mostra(QStringLiteral("John 1:1"));
    m_fixture->core.controles.SetScreenState(2);
    m_fixture->core.teclas.KeyDown(Qt::Key_Control, true, false);
    QVERIFY(Estado().EnviarAoTelao);
    QVERIFY(!m_fixture->core.painel.PicDica3);
  }

  void aMissingVerseLeavesWhatIsOnShow() {
    m_fixture->Write(QStringLiteral("Lyrics/Song.txt"), TresEstrofes);
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, false);
    m_fixture->Forget();
    for (const QString &reference :
         {QStringLiteral("John 3:99"), QStringLiteral("John 99:1"), QStringLiteral("Nobody 1:1"), QStringLiteral("")})
      m_fixture->core.leitura.exibeTextoBiblico(reference, true, true);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QVERIFY(m_fixture->prompt.shown.isEmpty());
    QCOMPARE(Estado().TipoAtual, QStringLiteral("Louvor"));
    QCOMPARE(Estado().EstrofeAtual, 1);
    QVERIFY(m_fixture->core.faixa.Label1Visible);
    QVERIFY(!m_fixture->core.painel.PicAviso2);
    m_fixture->Mostra(QStringLiteral("John 3:99"));
    QCOMPARE(m_fixture->core.painel.MensagemTira, QStringLiteral("John 3:99 was not found in AAA."));
    QVERIFY(m_fixture->core.painel.SliderExLouvorVisible);
  }

  void aMissingVerseAsTheFirstItem() {
    m_fixture->Mostra(QStringLiteral("John 3:99"));
    QVERIFY(m_fixture->core.painel.PicAviso2);
    QVERIFY(Estado().TipoAtual.isEmpty());
  }

  void betweenSongAndPassage() {
    m_fixture->Write(QStringLiteral("Lyrics/Song.txt"), TresEstrofes);
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, false);
    m_fixture->Forget();
    m_fixture->Mostra(QStringLiteral("John 1:1"));
    QVERIFY(!m_fixture->core.faixa.Label1Visible);
    QCOMPARE(Estado().TotalEstrofes, 0);
    // The song's verse must not change its size before it goes: size and passage go out with no yield between.
    QCOMPARE(m_fixture->display.page.scripts.size(), 1);
    QVERIFY(m_fixture->yielder.calls.empty());

    m_fixture->Show(QStringLiteral("Song"));
    QVERIFY(!m_fixture->core.painel.biblia.Visible);
    QVERIFY(Estado().ReferenciaAtual.isEmpty());
    m_fixture->Forget();
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, false);
    QCOMPARE(m_fixture->VersesSent(), {QStringLiteral("Primeira linha<br>Segunda linha")});
  }

  void aQueuedThemeIsForThePassageAndOnceOnly() {
    m_fixture->core.temas[3].Tipo = QStringLiteral("CorDeFundo");
    m_fixture->core.temas[3].CordeFundo = 255;
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->core.temaControle.PressTile(3);
    QCOMPARE(Estado().ProximoTema, 3);
    m_fixture->Tecla(Qt::Key_Down); // into the next chapter: no new item
    QCOMPARE(Estado().ProximoTema, 3);
    QVERIFY(Estado().IndiceTema != 3);
    Estado().UltimoTexto = QStringLiteral("a caption of the item before");
    m_fixture->Mostra(QStringLiteral("John 3:1"));
    QVERIFY(Estado().UltimoTexto.isEmpty());
    QCOMPARE(Estado().IndiceTema, 3);
    QCOMPARE(Estado().ProximoTema, SemTemaNaFila);
    QCOMPARE(m_fixture->core.painel.PicAvisoProximo, 0);
  }

  void aRebuiltPageGetsTheVerseWithoutEffect_data() {
    QTest::addColumn<int>("estilo");
    for (int estilo : {1, 2, 6})
      QTest::addRow("layout %d", estilo) << estilo;
  }

  void aRebuiltPageGetsTheVerseWithoutEffect() {
    QFETCH(int, estilo);
    m_fixture->core.textos.SliderExBiblia(estilo);
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    // The builder itself tells only the preview, and nothing in layout 1.
    m_fixture->core.paginas.MontaPagina(Estado().TemaAtual, -1, 0);
    QVERIFY(m_fixture->Enviados().isEmpty());
    QCOMPARE(m_fixture->preview.scripts.size(), estilo == 1 ? 0 : 1);
    // A theme that the operator applies brings the verse back on the projection.
    m_fixture->Forget();
    m_fixture->core.temaControle.MenuAplicar(2);
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 1:2 One two")});
    QVERIFY(!m_fixture->Animado());
  }

  void aPageThatCameBackGetsWhatItHad() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->core.teclas.KeyDown(Qt::Key_Control, true, false);
    m_fixture->Tecla(Qt::Key_Down);
    m_fixture->Forget();
    m_fixture->core.PaginaVoltou();
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 1:2 One two")});
    QVERIFY(!m_fixture->Animado());
  }

  void anotherProjectorGetsTheVerseAtItsOwnSize() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    m_fixture->display.size = QSize(640, 360);
    m_fixture->core.TelaMudou();
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 1:2 One two")});
    QVERIFY(m_fixture->display.commands.last().contains(u"font-size:26pt"));
  }

  void theVerseFollowsTheVersion() {
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    m_fixture->Forget();
    QVERIFY(m_fixture->core.leitura.TrocaVersao(2));
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 1:2 Um dois")});
    QVERIFY(m_fixture->display.commands.last().contains(u"John 1:2 (BBB)"));
    QCOMPARE(Estado().VersaoBiblia, QStringLiteral("BBB"));
    QCOMPARE(m_fixture->core.painel.LbVersao, QStringLiteral("Tradução: BBB"));
    QVERIFY(!Estado().BibliaMudando);
    QVERIFY(!m_fixture->core.leitura.TrocaVersao(2));
    QVERIFY(!m_fixture->core.leitura.TrocaVersao(9));
  }

  void aVersionWithoutTheVerseLeavesItOnShow() {
    m_fixture->Mostra(QStringLiteral("John 3:2"));
    m_fixture->Forget();
    QVERIFY(m_fixture->core.leitura.TrocaVersao(2));
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(m_fixture->core.painel.LbVersao, QStringLiteral("Tradução: BBB"));
    QCOMPARE(m_fixture->core.painel.MensagemTira, QStringLiteral("John 3:2 was not found in BBB."));
    // What is on show is from the old version, and goes on saying so.
    QCOMPARE(Estado().VersaoBiblia, QStringLiteral("AAA"));
    m_fixture->core.temaControle.MenuAplicar(2);
    QVERIFY(m_fixture->display.commands.last().contains(u"John 3:2 (AAA)"));
    m_fixture->Tecla(Qt::Key_Down);
    QCOMPARE(Estado().ReferenciaAtual, QStringLiteral("John 3:2"));
  }

  void settingsActAtOnceWithoutEffectAndAreKept() {
    TextControls &controles = m_fixture->core.textos;
    m_fixture->Mostra(QStringLiteral("John 1:2"));
    const auto config = [this](const char *key) {
      return m_fixture->store.ReadConfig(QStringLiteral("Config"), QLatin1String(key), QString());
    };
    m_fixture->Forget();
    controles.SliderExBiblia(4);
    QVERIFY(m_fixture->display.commands.last().contains(u"titulo tituloQuadrado"));
    QCOMPARE(config("estiloBiblia"), QStringLiteral("4"));
    controles.slider2(3);
    QVERIFY(m_fixture->display.commands.last().contains(u"rgb(0,0,0,0.3)"));
    QCOMPARE(config("SombraVerso"), QString());
    controles.slider2Solto();
    QCOMPARE(config("SombraVerso"), QStringLiteral("3"));
    controles.Image5(2);
    QVERIFY(m_fixture->display.commands.last().contains(u"text-align:center"));
    QCOMPARE(m_fixture->core.painel.biblia.Alinhamento, 2);
    const int before = Estado().FonteTamanho.toInt();
    controles.sliderFontSizeAjust(65);
    QCOMPARE(config("FontSizeAjusts"), QStringLiteral("65"));
    QVERIFY(Estado().FonteTamanho.toInt() > before * 1.4);
    QVERIFY(m_fixture->display.commands.last().contains(u"font-size:" + Estado().FonteTamanho + u"pt"));
    const int updates = m_fixture->view.atualizacoes;
    controles.sliderZoomBiblia(120);
    QVERIFY(m_fixture->view.atualizacoes > updates); // the figure beside the slider follows
    QCOMPARE(m_fixture->core.painel.SliderZoom, 120);
    QCOMPARE(config("ZoomAjustBiblia"), QStringLiteral("120"));
    QCOMPARE(m_fixture->display.page.zoom, 1.2);
    QCOMPARE(m_fixture->preview.zoom, 1.2);
    QVERIFY(!m_fixture->Animado());

    m_fixture->Write(QStringLiteral("Lyrics/Song.txt"), TresEstrofes);
    m_fixture->Show(QStringLiteral("Song"));
    m_fixture->Forget();
    controles.SliderExBiblia(2);
    controles.sliderFontSizeAjust(15);
    controles.sliderZoomBiblia(80);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(m_fixture->display.page.zoom, 1.0);
  }

  void aTypedPassage() {
    m_fixture->core.flow.exibirPassagem(QStringLiteral("John 3:3"));
    QCOMPARE(m_fixture->Enviados(), {QStringLiteral("John 3:3 Three three")});
    QVERIFY(m_fixture->core.painel.SliderExBibliaVisible);
  }

  // The size holds on the projection, whatever its proportions and the operator's scale; a short verse does not shout.
  void theSizeFits_data() {
    QTest::addColumn<QSize>("tela");
    QTest::addColumn<QString>("texto");
    for (const QSize tela : {QSize(1280, 720), QSize(1024, 768), QSize(2560, 1080)})
      for (const QString &texto : {QStringLiteral("Jesus wept."), LongVerse()})
        QTest::addRow("%dx%d, %lld characters", tela.width(), tela.height(), static_cast<long long>(texto.size()))
            << tela << texto;
  }

  void theSizeFits() {
    QFETCH(QSize, tela);
    QFETCH(QString, texto);
    FixedMeasure measure;
    const QString ref = QStringLiteral("Lamentations of Jeremiah 3:22 (KJV)");
    for (int estilo = 1; estilo <= 6; ++estilo) {
      AjusteDeVersiculo ajuste{tela, QStringLiteral("Arial"), estilo, true, 100};
      const int centrado = TamanhoBiblia(texto, ref, ajuste, measure);
      const double px = centrado * 96.0 / 72;
      const double largura = tela.width() * (estilo == 2 || estilo == 3 ? 0.81 : 0.9);
      QVERIFY(measure.Height(texto, {ajuste.fonte, double(centrado), false}, largura) < tela.height() - 2 * px);
      QVERIFY(px > tela.height() * 0.045);
      QVERIFY(px < tela.height() * 0.12);
      ajuste.centrado = false;
      QVERIFY(TamanhoBiblia(texto, ref, ajuste, measure) < centrado);
      ajuste.centrado = true;
      ajuste.escala = 185;
      const int grande = TamanhoBiblia(texto, ref, ajuste, measure);
      QVERIFY(texto == LongVerse() ? grande >= centrado : grande > 1.3 * centrado);
      QVERIFY(measure.Height(texto, {ajuste.fonte, double(grande), false}, largura) < tela.height() - 2 * px);
      // A zoom of the page enlarges what has room and pushes nothing off the screen.
      ajuste.escala = 100;
      ajuste.zoom = 150;
      const int ampliado = TamanhoBiblia(texto, ref, ajuste, measure);
      QVERIFY(texto == LongVerse() ? ampliado < centrado : ampliado == centrado);
      QVERIFY(measure.Height(texto, {ajuste.fonte, double(ampliado), false}, largura / 1.5) < tela.height() / 1.5);
    }
  }

  // Between the key and the screen a long verse is laid out for a few sizes, not for each that a search could try.
  void theSizeIsFoundWithFewLayouts() {
    struct CountingMeasure : FixedMeasure {
      double Height(const QString &text, const FontSpec &font, double wrapWidthPx) override {
        layouts += text.size() > 100 && wrapWidthPx > 0 ? 1 : 0;
        return FixedMeasure::Height(text, font, wrapWidthPx);
      }
      int layouts = 0;
    } measure;
    const AjusteDeVersiculo ajuste{QSize(1920, 1080), QStringLiteral("Arial"), 1, true, 100};
    TamanhoBiblia(LongVerse(), QStringLiteral("Esther 8:9 (KJV)"), ajuste, measure);
    QVERIFY2(measure.layouts <= 9, qPrintable(QString::number(measure.layouts)));
  }

private:
  EstadoConsole &Estado() { return m_fixture->core.estado; }
  std::unique_ptr<BibleFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestBible)
#include "test_bible.moc"
