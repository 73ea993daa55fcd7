#include <QtTest>

#include "console_fixture.h"
#include "display/effects.h"

using namespace tolmira;
using namespace tolmira::testing;

// A slide document as the operator shows it: opened, stepped through, rotated, held back, and left again.
class TestSlides : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<ConsoleFixture>();
    m_fixture->Write(QStringLiteral("Lyrics/Graça.txt"), TresEstrofes);
    m_fixture->WriteSlides(QStringLiteral("Natal.sld"), 3, "Intervalo=1\r\n");
  }

  void openingTakesTheConsoleOver() {
    m_fixture->Show(QStringLiteral("Graça"));
    Core().stepper.TeclaEstrofe(1);
    Core().legenda.TextoLegenda = QStringLiteral("of the verse");
    m_fixture->Forget();
    ShowSlides(QStringLiteral("Natal.sld"));
    QCOMPARE(Estado().TipoAtual, QStringLiteral("Slides"));
    QCOMPARE(Estado().PaginaAtual, QStringLiteral("slide"));
    QCOMPARE(Core().painel.Label9, QStringLiteral("Natal"));
    QVERIFY(!Core().faixa.Label1Visible);
    QVERIFY(!Core().painel.Picture4Visible && !Core().painel.Picture7Visible);
    QVERIFY(!Core().painel.CommandBtEnabled && !Core().painel.LbFaixaVisible && !Core().painel.SliderExLouvorVisible);
    QCOMPARE(Core().legenda.TextoLegenda, QString());
    const QString page = m_fixture->folder.path() + QStringLiteral("\\temp");
    QCOMPARE(m_fixture->display.commands.first(), QString(u"CarregaTema|#" + page + u".html"));
    QCOMPARE(m_fixture->preview.urls.last(), QString(u"file:///" + page + u"-pv.html"));
    QCOMPARE(m_fixture->display.commands.value(1), QStringLiteral("GotoSlideImage|#0"));
    QCOMPARE(Titles(), QStringList{QStringLiteral("Title 1")});
    QCOMPARE(Situacao().LbDetalheTela, QStringLiteral("Slide 1 of 3"));
    QCOMPARE(Situacao().LbProximo, QStringLiteral("Next: slide 2, Title 2"));
  }

  void entriesNameADocumentByPathOrName_data() {
    QTest::addColumn<QString>("target");
    QTest::newRow("its name") << QStringLiteral("Natal.sld");
    QTest::newRow("without extension") << QStringLiteral("Natal");
    QTest::newRow("a portable path") << QStringLiteral("(APP)\\Slides\\Natal.sld");
    QTest::newRow("a full path") << QString();
  }
  void entriesNameADocumentByPathOrName() {
    QFETCH(QString, target);
    ShowSlides(target.isEmpty() ? m_fixture->app.At(u"\\slides\\NATAL.SLD") : target);
    QCOMPARE(Estado().TotalSlides, 3);
  }

  void keysStepAndStopAtTheEnds() {
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->Forget();
    for (const int key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Up, Qt::Key_Home, Qt::Key_Left, Qt::Key_End})
      Core().teclas.KeyDown(key, false, false);
    QCOMPARE(m_fixture->display.commands.filter(QStringLiteral("GotoSlideImage")),
             QStringList({QStringLiteral("GotoSlideImage|#1"), QStringLiteral("GotoSlideImage|#2"),
                          QStringLiteral("GotoSlideImage|#1"), QStringLiteral("GotoSlideImage|#0"),
                          QStringLiteral("GotoSlideImage|#2")}));
    QCOMPARE(m_fixture->preview.scripts.filter(QStringLiteral("GotoSlideImage")).size(), 5);
    QCOMPARE(Situacao().LbProximo, QStringLiteral("Next: slide 1, Title 1")); // it rotates
    // In the agenda's list the paging keys are the list's.
    QVERIFY(!Core().teclas.KeyDown(Qt::Key_PageUp, false, true));
    QCOMPARE(Estado().SlideAtual, 3);
  }

  void eachPageGetsTheTextInItsOwnSize() {
    ShowSlides(QStringLiteral("Natal.sld"));
    QVERIFY(m_fixture->display.commands.last().contains(u"font-size:64px")); // 5 per cent of 1280
    QVERIFY(m_fixture->preview.scripts.last().contains(u"font-size:16px"));  // of 320
  }

  void theCommandNamesTheOutEffect_data() {
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QString>("tail");
    QTest::newRow("none") << QByteArray("None") << QStringLiteral("</div>|#|#");
    QTest::newRow("an effect") << QByteArray("fadeOut") << QStringLiteral("</div>|#fadeOut");
  }
  void theCommandNamesTheOutEffect() {
    QFETCH(QByteArray, out);
    m_fixture->WriteSlides(QStringLiteral("Natal.sld"), 2, "Efeito_Texto-FxOut=" + out + "\r\n");
    ShowSlides(QStringLiteral("Natal.sld"));
    QFETCH(QString, tail);
    QVERIFY2(m_fixture->display.commands.last().endsWith(tail), qPrintable(m_fixture->display.commands.last()));
  }

  // Nothing that is typed ends the script's string or shifts the command's fields.
  void anyTextIsShownAsItWasTyped() {
    m_fixture->WriteSlides(QStringLiteral("Natal.sld"), 1, "");
    m_fixture->Write(QStringLiteral("Slides/Natal.sld"),
                     "[Config]\r\nCount=1\r\nTitulo1=a|#b\r\nTexto1=C:\\n's \\'x\\\r\nMaiusculas=0\r\n");
    ShowSlides(QStringLiteral("Natal.sld"));
    const QString command = m_fixture->display.commands.last();
    QVERIFY(command.contains(u">a&#124;#b</div>"));
    QVERIFY2(command.endsWith(u">C:&#92;n\\'s &#92;\\'x&#92;</div>|#|#"), qPrintable(command));
  }

  void rotationGoesRoundAndBeginsAnewAtEachStep() {
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->clock.Advance(9000);
    Core().slides.Passo(1);
    m_fixture->clock.Advance(9000);
    QCOMPARE(Estado().SlideAtual, 2);
    m_fixture->clock.Advance(1000);
    QCOMPARE(Estado().SlideAtual, 3);
    m_fixture->clock.Advance(10000);
    QCOMPARE(Estado().SlideAtual, 1);

    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->clock.Advance(60000);
    QVERIFY2(m_fixture->display.commands.isEmpty(), "the rotation ends with the slides");
  }

  void ctrlHoldsTheProjectionBack() {
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->Forget();
    Core().teclas.KeyDown(Qt::Key_Control, true, false);
    Core().teclas.KeyDown(Qt::Key_Down, true, false);
    Core().teclas.KeyDown(Qt::Key_Down, true, false);
    m_fixture->clock.Advance(30000);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(Estado().SlideAtual, 1);
    QCOMPARE(Situacao().LbEstadoTela, QStringLiteral("HELD"));
    QCOMPARE(Situacao().LbProximo, QStringLiteral("On release: slide 3, Title 3"));
    Core().teclas.KeyUp(Qt::Key_Control);
    QCOMPARE(Titles(), QStringList{QStringLiteral("Title 3")});
  }

  void themesWaitBehindTheSlides() {
    ShowSlides(QStringLiteral("Natal.sld"));
    Core().slides.Passo(1);
    m_fixture->Forget();
    Core().temaControle.PressTile(3);
    QCOMPARE(m_fixture->prompt.TakeTexts(), QStringList{QStringLiteral("Not applicable during slideshow display.")});
    Core().efeitos.ImagemDaGaleria(QStringLiteral("C:\\x.jpg"), false);
    QCOMPARE(m_fixture->prompt.TakeTexts(), QStringList{QStringLiteral("Not applicable during slideshow display.")});
    QVERIFY(m_fixture->display.commands.isEmpty());

    bool redrawn = false;
    Core().temaControle.aplicaTema(3, redrawn);
    QVERIFY(redrawn);
    QCOMPARE(Titles(), QStringList{QStringLiteral("Title 2")});
    QCOMPARE(m_fixture->display.commands.filter(QStringLiteral("CarregaTema")), QStringList());
    QCOMPARE(Estado().IndiceTema, 3);
  }

  void effectsBelongToTheDocument() {
    const QString ofTheTheme = Estado().TemaAtual.Efeito_Imagem_Fx;
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->Forget();
    Core().efeitos.ComboEfeitoImagem(QStringLiteral("Toss"));
    Core().efeitos.slider5(7);
    QCOMPARE(m_fixture->display.commands, QStringList{QStringLiteral("ChangeOptions|#fx|#toss|#")});
    QVERIFY(m_fixture->display.page.scripts.last().contains(u"blur(7px)"));
    QCOMPARE(Estado().TemaAtual.Efeito_Imagem_Fx, ofTheTheme);
    QCOMPARE(Estado().TemaAtual.blur, 0);
  }

  // The theme comes back once, as it is stored, and no other is drawn.
  void aSongBehindSlidesGetsItsPageOnce_data() {
    QTest::addColumn<bool>("placedByHand");
    QTest::addColumn<int>("kind");
    QTest::newRow("song") << false << 2;
    QTest::newRow("song over a picture placed by hand") << true << 2;
  }
  void aSongBehindSlidesGetsItsPageOnce() {
    QFETCH(bool, placedByHand);
    Core().temaControle.SetCheckAlteraTemaAleatorio(true);
    m_fixture->Show(QStringLiteral("Graça"));
    const int theme = Estado().IndiceTema;
    Estado().FundoPreso = placedByHand;
    Estado().TemaAtual.blur = 9;
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->Forget();
    m_fixture->Show(QStringLiteral("Graça"));
    QCOMPARE(m_fixture->display.commands.filter(QStringLiteral("CarregaTema")).size(), 1);
    QCOMPARE(Estado().IndiceTema, theme);
    QCOMPARE(Estado().TemaAtual.blur, placedByHand ? 9 : 0);
    QCOMPARE(Estado().PaginaAtual, QStringLiteral("backcolor.html"));
    QCOMPARE(Estado().TotalSlides, 0);
    Core().teclas.KeyDown(Qt::Key_Down, false, false);
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Primeira linha<br>Segunda linha")});
  }

  void whatCannotBeShownLeavesTheSlides() {
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->Write(QStringLiteral("Slides/Bild.sld"), QByteArray("\x89PNG\r\n\x1a\n\0\0\0", 11));
    m_fixture->Forget();
    ShowSlides(QStringLiteral("Bild.sld"));
    QCOMPARE(m_fixture->prompt.TakeTexts(), QStringList{QStringLiteral("There is no slide.")});
    m_fixture->Show(QStringLiteral("gone"));
    QCOMPARE(m_fixture->prompt.TakeTexts().size(), 1);
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(Core().painel.Label9, QStringLiteral("Natal"));
    m_fixture->clock.Advance(10000);
    QCOMPARE(Estado().SlideAtual, 2);
  }

  void aDocumentThatWasSavedIsReadAgain() {
    ShowSlides(QStringLiteral("Natal.sld"));
    Core().slides.Escolhe(3);
    QFile::rename(m_fixture->folder.filePath(QStringLiteral("Slides/Natal.sld")),
                  m_fixture->folder.filePath(QStringLiteral("Slides/Advento.sld")));
    m_fixture->WriteSlides(QStringLiteral("Advento.sld"), 2);
    m_fixture->Forget();
    Core().flow.ProcessaEditarSlide(QStringLiteral("Natal.sld"), QStringLiteral("Advento.sld"));
    QCOMPARE(Core().painel.Label9, QStringLiteral("Advento"));
    QCOMPARE(Titles(), QStringList{QStringLiteral("Title 2")});
    m_fixture->Forget();
    Core().flow.ProcessaEditarSlide(QStringLiteral("Outro.sld"), QStringLiteral("Outro.sld"));
    QVERIFY(m_fixture->display.commands.isEmpty());
  }

  // The page's file follows what is on show, so that it begins with that after its process has died.
  void aPageThatDiesComesBackWithItsSlide() {
    m_fixture->Write(QStringLiteral("html/imagem.html"), "first=[primeiraimage] [letra]");
    ShowSlides(QStringLiteral("Natal.sld"));
    Core().slides.Escolhe(3);
    m_fixture->clock.Advance(1000);
    QVERIFY(m_fixture->Read(QStringLiteral("temp.html")).startsWith("first=2 <div id='verso'"));
    QVERIFY(m_fixture->Read(QStringLiteral("temp.html")).contains("Title 3"));
    Core().controles.SetScreenState(1);
    m_fixture->Forget();
    Core().PaginaVoltou(Alvo::Previa);
    QVERIFY(m_fixture->display.commands.isEmpty() && m_fixture->display.page.scripts.isEmpty());
    QVERIFY(m_fixture->preview.scripts.contains(QStringLiteral("GotoSlideImage(2)")));
    QVERIFY(m_fixture->preview.scripts.contains(QStringLiteral("ChangeCSS('texto','display','none')")));
    QVERIFY(m_fixture->preview.scripts.last().contains(u"Title 3"));
  }

  // The rotation of the document before may be due while the pages of the next one are built.
  void aDocumentBeginsWhereItWasToldTo_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("shown");
    QTest::newRow("its first slide") << 1 << 1;
    QTest::newRow("no slide of its") << 9 << 0;
  }
  void aDocumentBeginsWhereItWasToldTo() {
    QFETCH(int, index);
    QFETCH(int, shown);
    ShowSlides(QStringLiteral("Natal.sld"));
    m_fixture->WriteSlides(QStringLiteral("Advento.sld"), 3, "Intervalo=1\r\n");
    m_fixture->yielder.onYield = [this](int) {
      m_fixture->yielder.onYield = nullptr;
      m_fixture->clock.Advance(10500);
    };
    m_fixture->Forget();
    const QString path = m_fixture->app.At(u"\\Slides\\Advento.sld");
    QVERIFY(Core().slides.LoadmSlide(path, index, QStringLiteral("Advento")));
    QCOMPARE(Estado().SlideAtual, shown);
    QCOMPARE(Titles().size(), shown);
  }

  // A key that arrives while the pages are built is not taken back by what the opening still has to do.
  void aStepDuringTheOpeningStands() {
    m_fixture->yielder.onYield = [this](int) {
      m_fixture->yielder.onYield = nullptr;
      Core().slides.Passo(1);
    };
    ShowSlides(QStringLiteral("Natal.sld"));
    QCOMPARE(Estado().SlideAtual, 2);
    QCOMPARE(Titles(), QStringList{QStringLiteral("Title 2")});
  }

private:
  ConsoleCore &Core() { return m_fixture->core; }
  EstadoConsole &Estado() { return m_fixture->core.estado; }
  void ShowSlides(const QString &target) {
    Core().flow.ShowEntry(5, 1, QFileInfo(target).completeBaseName(), target);
  }
  const SituacaoDaTela &Situacao() {
    Core().contexto.descreve();
    return Core().painel.situacao;
  }
  // The titles of the slides sent since the last Forget.
  QStringList Titles() const {
    static const QRegularExpression title(QStringLiteral("margin-bottom: 1%;\\\\'>(.*?)</div>"));
    QStringList titles;
    for (const QString &command : m_fixture->display.commands)
      if (command.startsWith(u"UpdateText|#"))
        titles.append(title.match(command).captured(1));
    return titles;
  }

  std::unique_ptr<ConsoleFixture> m_fixture;
};

QTEST_MAIN(TestSlides)
#include "test_slides.moc"
