#include <QtTest>

#include "console/startup.h"
#include "console_fixture.h"
#include "foundation/text_fields.h"

using namespace tolmira;
using namespace tolmira::testing;

// From the chosen entry to the prepared page, and what themes and screen states do to an item on show.
class TestPresentation : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<ConsoleFixture>();
    m_fixture->Write(QStringLiteral("Lyrics/Graça.txt"), TresEstrofes);
    m_fixture->Write(QStringLiteral("Lyrics/Outra.txt"), "Uma\r\n\r\nDuas");
  }

  void theFirstSongBuildsThePageAndTheNextKeepsIt() {
    m_fixture->display.commands.clear();
    m_fixture->Show(QStringLiteral("Graça"));
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#file:///"));
    QCOMPARE(Estado().TipoAtual, QStringLiteral("Louvor"));
    QCOMPARE(Painel().Label9, QStringLiteral("Graça"));
    QVERIFY(Painel().PicAviso);
    QVERIFY(Painel().SliderExLouvorVisible);
    QVERIFY(Painel().LbFaixaVisible);

    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->Forget();
    m_fixture->Show(QStringLiteral("Outra"));
    QVERIFY(m_fixture->display.commands.isEmpty());
    const QStringList expected{
        QStringLiteral("ChangeCSS('set_text','font-size','%1pt')").arg(Estado().FonteTamanho),
        QStringLiteral("UpdateTextHtml('nada')")};
    QCOMPARE(m_fixture->display.page.scripts, expected);
    QCOMPARE(m_fixture->preview.scripts.size(), 2);
    QCOMPARE(m_fixture->preview.scripts.first(),
             QStringLiteral("ChangeCSS('set_text','font-size','%1pt')")
                 .arg(RoundHalfEven(Estado().FonteTamanho.toDouble() / 4)));
    QCOMPARE(Estado().EstrofeAtual, -1);
    QVERIFY(Estado().VersoTextoAtual.isEmpty());
  }

  // The page was built for the first song; size, hidden text and verse have come by scripts since.
  void aPageThatCameBackGetsWhatIsOnShow() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Show(QStringLiteral("Outra"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.controles.SetScreenState(1);
    m_fixture->core.stepper.CtrlDown();
    Estado().EstrofeAtual = 2; // looking ahead
    m_fixture->Forget();
    m_fixture->core.loader.PaginaVoltou();
    const QStringList expected{QStringLiteral("ChangeCSS('texto','display','none')"),
                               QStringLiteral("ChangeCSS('set_text','font-size','%1pt')").arg(Estado().FonteTamanho)};
    QCOMPARE(m_fixture->display.page.scripts, expected);
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Uma")});
    QVERIFY2(!m_fixture->display.commands.last().contains(u"animated"), "a verse that is drawn again stands at once");
    QCOMPARE(m_fixture->preview.scripts.size(), 3);

    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->core.loader.PaginaVoltou();
    QVERIFY2(m_fixture->VersesSent().isEmpty(), "no verse of the new song is out yet");

    Estado().PaginaAtual = QStringLiteral("youtube");
    m_fixture->Forget();
    m_fixture->core.loader.PaginaVoltou();
    QVERIFY(m_fixture->display.page.scripts.isEmpty());
  }

  void aPlacedBackgroundIsRebuiltAndKeepsItsTheme() {
    m_fixture->Show(QStringLiteral("Graça"));
    Estado().FundoPreso = true;
    m_fixture->core.temaControle.SetCheckAlteraTemaAleatorio(true);
    const int theme = Estado().IndiceTema;
    m_fixture->Forget();
    m_fixture->Show(QStringLiteral("Outra"));
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#"));
    QCOMPARE(Estado().IndiceTema, theme);
  }

  void aNewItemBeginsInTheNormalMode() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->core.stepper.Label1MouseDown(0);
    m_fixture->core.stepper.Label1MouseMove(400 * TwipsPerPixel);
    m_fixture->core.stepper.Label1MouseUp(0);
    QCOMPARE(Estado().ModoMovimento, QStringLiteral("Abaixo"));
    m_fixture->Show(QStringLiteral("Outra"));
    QCOMPARE(Estado().ModoMovimento, QStringLiteral("Normal"));
    QVERIFY(Painel().PicAviso);
  }

  void refusals_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing video") << 4 << QStringLiteral("File not found!");
    QTest::newRow("missing slides") << 5 << QStringLiteral("File not found!");
    QTest::newRow("show") << 6 << QStringLiteral("File not found!");
    QTest::newRow("missing song")
        << 2
        << QStringLiteral("Item not found.\n\nThe file may have been deleted or moved to another location.");
    QTest::newRow("an unknown kind is a song")
        << 7
        << QStringLiteral("Item not found.\n\nThe file may have been deleted or moved to another location.");
  }
  void refusals() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->Forget();
    QFETCH(int, kind);
    m_fixture->core.flow.ShowEntry(kind, 1, QStringLiteral("x"), QStringLiteral("nowhere"));
    QCOMPARE(m_fixture->prompt.shown.size(), 1);
    QTEST(m_fixture->prompt.shown.first().text, "message");
    QVERIFY(m_fixture->display.commands.isEmpty());
    QCOMPARE(Estado().EstrofeAtual, 1);
    QCOMPARE(Painel().Label9, QStringLiteral("Graça"));
  }

  void anEntryWithoutANameLoadsNothing() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->core.flow.ShowEntry(2, 1, QString(), QString());
    QVERIFY(m_fixture->display.page.scripts.isEmpty());
    QVERIFY(m_fixture->prompt.shown.isEmpty());
    QVERIFY(Painel().ComboFontSizeVisible);
  }

  void everyVerseIsAtItsPlaceInTheTextThatIsSent_data() {
    QTest::addColumn<QByteArray>("song");
    QTest::newRow("plain") << TresEstrofes;
    QTest::newRow("a line that keeps a stanza together") << QByteArray("a\r\n-\r\nb\r\n\r\nc");
    QTest::newRow("blanks between stanzas") << QByteArray("a\r\n\r\n \r\n\r\nb\r\n\r\nc");
    QTest::newRow("a stanza too tall for the frame")
        << QByteArray("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n12\r\n13\r\n14\r\n15\r\n16\r\n17\r\n18\r\n"
                      "19\r\n20\r\n21\r\n22\r\n23\r\n24\r\n25\r\n26\r\n27\r\n28\r\n29\r\n30\r\n31\r\n32\r\n\r\nfim");
    QTest::newRow("empty") << QByteArray();
  }
  void everyVerseIsAtItsPlaceInTheTextThatIsSent() {
    QFETCH(QByteArray, song);
    m_fixture->Write(QStringLiteral("Cantor/9 Teste.txt"), song);
    m_fixture->core.flow.ShowEntry(3, 1, QStringLiteral("9 Teste"), QStringLiteral("9 Teste"));
    QVERIFY(Estado().TotalEstrofes >= 1);
    for (int n = 1; n <= Estado().TotalEstrofes; ++n) {
      QString verse = Estado().Estrofes[static_cast<size_t>(n)].Texto;
      QCOMPARE(Estado().TextoEstrofes.value(n - 1), verse.replace(QStringLiteral("\r\n"), QStringLiteral("<br>")));
      QVERIFY(Estado().Estrofes[static_cast<size_t>(n)].Base >= Estado().Estrofes[static_cast<size_t>(n)].Topo);
    }
    if (song.size() > 100)
      QVERIFY(Estado().Estrofes[1].Base - Estado().Estrofes[1].Topo < m_fixture->core.faixa.FrameHeight);
  }

  void capitalsComeFromTheTheme() {
    m_fixture->core.temas[2].Maiusculas = true;
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->Forget();
    m_fixture->core.temaControle.MenuAplicar(2);
    QVERIFY(Estado().TextoMaiusculo);
    QCOMPARE(Estado().EstrofeAtual, 2);
    // One page, then the verse on show again.
    QCOMPARE(m_fixture->display.commands.size(), 2);
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#"));
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("TERCEIRA LINHA<br>QUARTA LINHA")});
  }

  void aTileQueuesWhileATextIsOnShow() {
    m_fixture->core.temaControle.PressTile(4);
    QCOMPARE(Estado().IndiceTema, 4); // nothing on show: at once
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->core.temaControle.PressTile(5);
    QCOMPARE(Estado().ProximoTema, 5);
    QCOMPARE(Painel().PicAvisoProximo, 5);
    QVERIFY(m_fixture->display.commands.isEmpty());
    // The notice ends, the queue does not.
    m_fixture->clock.Advance(60000);
    QCOMPARE(Painel().PicAvisoProximo, 0);
    m_fixture->core.temas[5].CordeFundo = 255;
    m_fixture->Show(QStringLiteral("Outra"));
    QCOMPARE(Estado().IndiceTema, 5);
    QCOMPARE(Estado().ProximoTema, SemTemaNaFila);
    QVERIFY(m_fixture->display.commands.first().startsWith(u"CarregaTema|#"));
    m_fixture->core.temaControle.PressTile(6);
    m_fixture->core.temaControle.PressTile(5); // the active one: at once, and nothing waits any more
    QCOMPARE(Estado().ProximoTema, SemTemaNaFila);
  }

  void slidesRefuseATile() {
    Estado().DefineTipo(QStringLiteral("Slides"));
    m_fixture->core.temaControle.PressTile(3);
    QCOMPARE(m_fixture->prompt.shown.first().text, QStringLiteral("Not applicable during slideshow display."));
    QCOMPARE(Estado().IndiceTema, 1);
  }

  void applyingTicksTheSlotAndOneAlwaysStays() {
    ThemeControl &temas = m_fixture->core.temaControle;
    for (int n = 2; n <= 16; ++n)
      temas.SetChkIM(n, false);
    temas.SetChkIM(1, false);
    QVERIFY(temas.ChkIM(1));
    QCOMPARE(m_fixture->prompt.shown.last().text, QStringLiteral("At least one item must remain enabled."));
    QCOMPARE(temas.SorteiaTema(), 1);
    temas.MenuAplicar(0);
    QCOMPARE(Estado().IndiceTema, 1);
    temas.MenuAplicar(9);
    QVERIFY(temas.ChkIM(9));
  }

  void picturesRotate_data() {
    QTest::addColumn<QString>("pictures");
    QTest::addColumn<QString>("interval");
    QTest::addColumn<int>("nextAfter20s");
    const QString two = QStringLiteral("a.jpg|b.jpg|");
    QTest::newRow("every ten seconds") << two << QStringLiteral("1") << 2;
    QTest::newRow("every twenty") << two << QStringLiteral("3") << 1;
    QTest::newRow("one picture") << QStringLiteral("a.jpg|") << QStringLiteral("1") << 0;
    QTest::newRow("off") << two << QStringLiteral("-1") << 0;
    QTest::newRow("a code that means nothing") << two << QStringLiteral("6") << 0;
  }
  void picturesRotate() {
    TemaRecord &tema = m_fixture->core.temas[2];
    tema.Tipo = QStringLiteral("Imagem");
    tema.Efeito_Imagem_FxExtra = QStringLiteral("none");
    QFETCH(QString, pictures);
    tema.Imagem = pictures;
    QFETCH(QString, interval);
    tema.Efeito_Imagem_timeout = interval;
    m_fixture->core.temaControle.MenuAplicar(2);
    m_fixture->Forget();
    m_fixture->clock.Advance(20000);
    QTEST(static_cast<int>(m_fixture->display.commands.count(QStringLiteral("GotoNextImage"))), "nextAfter20s");
    QCOMPARE(m_fixture->preview.scripts.count(QStringLiteral("GotoNextImage()")),
             m_fixture->display.commands.count(QStringLiteral("GotoNextImage")));
  }

  void aNewItemThatKeepsItsThemeKeepsTheRotationGoing() {
    TemaRecord &tema = m_fixture->core.temas[2];
    tema.Tipo = QStringLiteral("Imagem");
    tema.Efeito_Imagem_FxExtra = QStringLiteral("none");
    tema.Imagem = QStringLiteral("a.jpg|b.jpg|");
    m_fixture->core.temaControle.MenuAplicar(2);
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->clock.Advance(6000);
    Estado().ProximoTema = 2;
    m_fixture->Show(QStringLiteral("Outra"));
    QVERIFY(m_fixture->display.commands.isEmpty()); // the page stays
    m_fixture->clock.Advance(4000);
    QCOMPARE(m_fixture->display.commands, QStringList{QStringLiteral("GotoNextImage")});
    m_fixture->core.temaControle.StopRotation();
    Estado().ProximoTema = 2;
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
    m_fixture->clock.Advance(10000);
    QCOMPARE(m_fixture->display.commands, QStringList{QStringLiteral("GotoNextImage")});
  }

  void aRandomEffectIsDrawnAtEachPicture() {
    TemaRecord &tema = m_fixture->core.temas[2];
    tema.Tipo = QStringLiteral("Imagem");
    tema.Imagem = QStringLiteral("a.jpg|b.jpg|");
    tema.Efeito_Imagem_Fx = QStringLiteral("Cover");
    m_fixture->core.temaControle.MenuAplicar(2);
    m_fixture->Forget();
    m_fixture->clock.Advance(10000);
    QCOMPARE(m_fixture->display.commands,
             (QStringList{QStringLiteral("ChangeOptions|#fx|#uncover|#"), QStringLiteral("GotoNextImage")}));
    QCOMPARE(m_fixture->preview.scripts.first(), QStringLiteral("ChangeOptions('fx','uncover')"));
  }

  void onePictureOverTheTheme() {
    m_fixture->core.temaControle.ExibirImagem(QStringLiteral("z.jpg"), true);
    QCOMPARE(Estado().TemaAtual.Imagem, QStringLiteral("z.jpg|z.jpg|"));
    QCOMPARE(Estado().TemaAtual.Tipo, QStringLiteral("Imagem"));
    QCOMPARE(Estado().TemaAtual.Efeito_Imagem_timeout, QStringLiteral("-1"));
    QCOMPARE(Estado().PaginaAtual, QStringLiteral("imagem.html"));
  }

  void screenStates() {
    const QString fundo = m_fixture->app.At(u"\\Images\\f.png");
    m_fixture->Write(QStringLiteral("Images/f.png"), "x");
    m_fixture->store.WriteConfig(QStringLiteral("Config"), QStringLiteral("padraodefundo"), QStringLiteral("f.png"));
    ScreenControls &controles = m_fixture->core.controles;
    controles.SetScreenState(1);
    controles.SetScreenState(2);
    QVERIFY(m_fixture->display.telaPreta);
    controles.SetScreenState(3);
    QCOMPARE(m_fixture->display.fundoPadrao, fundo);
    controles.SetScreenState(4);
    QCOMPARE(Estado().EstadoTela, QStringLiteral("Hide"));
    controles.SetScreenState(0);
    QCOMPARE(m_fixture->display.commands,
             (QStringList{QStringLiteral("ChangeCSS|#texto|#display|#none"), QStringLiteral("OcultarTexto"),
                          QStringLiteral("ChangeCSS|#texto|#display|#block"), QStringLiteral("TelaPreta|#true"),
                          QString(u"PadraDeFundo|#" + fundo), QStringLiteral("Hide"), QStringLiteral("Normal")}));
    QCOMPARE(m_fixture->preview.scripts.first(), QStringLiteral("ChangeCSS('texto','display','none')"));
  }

  void noDefaultBackgroundLeavesTheStateAsItIs() {
    m_fixture->core.controles.SetScreenState(2);
    m_fixture->Forget();
    m_fixture->core.controles.SetScreenState(3);
    QCOMPARE(Estado().EstadoTela, QStringLiteral("TelaPreta"));
    QVERIFY(m_fixture->display.commands.isEmpty());
  }

  void theStyleSliderResendsAndReloads() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->Forget();
    m_fixture->view.focus = 0;
    m_fixture->core.textos.SliderExLouvor(6);
    QCOMPARE(m_fixture->VersesSent().size(), 1);
    QCOMPARE(m_fixture->view.focus, 0); // the slider keeps it for the next step
    QVERIFY(!m_fixture->display.page.scripts.contains(QStringLiteral("set_text")));
    m_fixture->core.textos.SliderExLouvor(7);
    QCOMPARE(m_fixture->VersesSent().size(), 2);
    QVERIFY(m_fixture->display.page.scripts.first().startsWith(u"ChangeCSS('set_text'"));
    QCOMPARE(m_fixture->display.page.zoom, 0.92);
    QVERIFY(!Painel().SliderZoomVisible);
    QCOMPARE(Estado().EstrofeAtual, 1);
    QCOMPARE(m_fixture->store.ReadConfig(QStringLiteral("Config"), QStringLiteral("estiloLouvor"), QString()),
             QStringLiteral("7"));
  }

  void aStoredZoomIsNeverBelowSixty() {
    m_fixture->store.WriteConfig(QStringLiteral("Config"), QStringLiteral("ZoomAjust"), QStringLiteral("40"));
    ApplyZoom(m_fixture->core.contexto);
    QCOMPARE(Painel().SliderZoom, 60);
    QCOMPARE(m_fixture->display.page.zoom, 0.6);
    QCOMPARE(m_fixture->preview.zoom, 0.6);
  }

  void aSongWhoseFileIsGoneStaysOnTheConsole() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    QFile::remove(m_fixture->folder.filePath(QStringLiteral("Lyrics/Graça.txt")));
    m_fixture->core.temaControle.MenuAplicar(3);
    QCOMPARE(Estado().TotalEstrofes, 3);
    QCOMPARE(Estado().EstrofeAtual, 1);
  }

  void anEditedSongIsRenamedEverywhereAndReloaded() {
    m_fixture->Write(QStringLiteral("Data/agenda1.dat"), "2|#|Gra\xE7" "a|#|Gra\xE7" "a\r\n");
    m_fixture->core.agenda.SelectTab(1);
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    QFile::rename(m_fixture->folder.filePath(QStringLiteral("Lyrics/Graça.txt")),
                  m_fixture->folder.filePath(QStringLiteral("Lyrics/Nova.txt")));
    m_fixture->core.flow.ProcessaEditar(QStringLiteral("Graça.txt"), QStringLiteral("Nova.txt"));
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/agenda1.dat")), QByteArray("2|#|Nova|#|Nova\r\n"));
    QCOMPARE(m_fixture->core.agenda.Lista().CaptionAt(2, 1), QStringLiteral("Nova"));
    QVERIFY(Estado().ArquivoAtual.endsWith(u"Nova.txt"));
    QCOMPARE(m_fixture->core.painel.Label9, QStringLiteral("Nova"));
    QCOMPARE(Estado().EstrofeAtual, 1);
  }

  void aRenamedHymnIsRenamedInEveryAgenda() {
    m_fixture->Write(QStringLiteral("Harpa/7 Nova.txt"), "1. Luz");
    m_fixture->Write(QStringLiteral("Data/agenda3.dat"), "3|#|7 Velha|#|7 Velha\r\n");
    m_fixture->core.flow.ProcessaEditar(QStringLiteral("7 Velha.txt"), QStringLiteral("7 Nova.txt"));
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/agenda3.dat")), QByteArray("3|#|7 Nova|#|7 Nova\r\n"));
  }

  void aSongThatAnotherWasSavedOverIsReloaded() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    m_fixture->Write(QStringLiteral("Lyrics/Graça.txt"), "From another song");
    m_fixture->core.flow.ProcessaEditar(QStringLiteral("Outra.txt"), QStringLiteral("Graça.txt"));
    QCOMPARE(m_fixture->VersesSent(), QStringList(QStringLiteral("From another song")));
  }

  void aChangedTextIsReloadedAtItsVerse() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    m_fixture->Write(QStringLiteral("Lyrics/Graça.txt"), "One\r\n\r\nTwo new\r\n\r\nThree\r\n\r\nFour");
    m_fixture->core.flow.ProcessaEditar(QStringLiteral("Graça.txt"), QStringLiteral("Graça.txt"));
    QCOMPARE(Estado().EstrofeAtual, 2);
    QCOMPARE(Estado().TotalEstrofes, 4);
    QCOMPARE(m_fixture->VersesSent(), QStringList(QStringLiteral("Two new")));
  }

  void capitalLettersHoldAtOnceAndForTheTheme() {
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    m_fixture->EndGlide();
    const QString before = m_fixture->VersesSent().value(0);
    m_fixture->Forget();
    TextFormat format = m_fixture->core.formato.Le();
    QVERIFY(!format.maiusculas);
    format.maiusculas = true;
    format.estilo = 2;
    QVERIFY(m_fixture->core.formato.Aplica(format));
    QCOMPARE(m_fixture->core.formato.Le(), format);
    QCOMPARE(m_fixture->VersesSent().last(), before.toUpper().replace(QStringLiteral("<BR>"), QStringLiteral("<br>")));
    QCOMPARE(Estado().EstrofeAtual, 1);
    QVERIFY(Estado().TextoMaiusculo);
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/Themes.ini")), QByteArray("[Tema-1]\r\nMaiusculas=1\r\n"));
    QVERIFY(m_fixture->core.temas[1].Maiusculas);
  }

  void aTextIsMeasuredAsItWouldBeShown() {
    m_fixture->Show(QStringLiteral("Graça"));
    const QString longText = QStringLiteral("Uma linha bem mais longa que as outras\r\n").repeated(9);
    const EstadoConsole before = Estado();
    const FaixaTexto strip = m_fixture->core.faixa;
    const SongRoom room = m_fixture->core.loader.Sala(longText, m_fixture->core.ajustes);
    QCOMPARE(Estado().FonteTamanho, before.FonteTamanho);
    QCOMPARE(m_fixture->core.faixa.Label1Fonte.sizePt, strip.Label1Fonte.sizePt);

    m_fixture->Write(QStringLiteral("Lyrics/Longa.txt"), longText.toLatin1());
    m_fixture->Show(QStringLiteral("Longa"));
    QCOMPARE(m_fixture->core.faixa.Label1Fonte.sizePt, room.pagina.font.sizePt);
    QCOMPARE(m_fixture->core.faixa.FrameHeight, room.pagina.limitTwips);
    QVERIFY(qAbs(Estado().FonteTamanho.toDouble() - room.tamanhoBase) <= 0.5);
  }

  void longSongsFitTheProjection_data() {
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("fontClass");
    for (const int lines : {1, 2, 4, 5, 6, 8})
      for (int fontClass = 0; fontClass <= 2; ++fontClass)
        QTest::addRow("%d lines, class %d", lines, fontClass) << lines << fontClass;
  }
  void longSongsFitTheProjection() {
    QFETCH(int, lines);
    QFETCH(int, fontClass);
    m_fixture->core.ajustes.FontSizeClass = fontClass;
    QByteArray song;
    for (int i = 0; i < lines; ++i)
      song += "Uma linha de tamanho comum no meio\r\n";
    m_fixture->Write(QStringLiteral("Lyrics/Longa.txt"), song);
    m_fixture->Show(QStringLiteral("Longa"));
    m_fixture->core.stepper.TeclaEstrofe(1);
    const QString html = m_fixture->display.page.scripts.isEmpty() ? m_fixture->display.commands.last()
                                                                   : m_fixture->display.page.scripts.last();
    static const QRegularExpression em(QStringLiteral("font-size:([0-9.]+)em"));
    static const QRegularExpression lineHeight(QStringLiteral("line-height:([0-9.]+)"));
    const double px = Estado().FonteTamanho.toDouble() * 96 / 72 * em.match(html).captured(1).toDouble();
    QVERIFY(px > 0.03 * 720); // legible
    const int shown = static_cast<int>(Estado().TextoEstrofes.value(0).split(QStringLiteral("<br>")).size());
    QVERIFY(px * lineHeight.match(html).captured(1).toDouble() * shown < 720);
    QVERIFY(m_fixture->measure.Width(QStringLiteral("Uma linha de tamanho comum no meio"),
                                     {QStringLiteral("x"), px * 72 / 96, true}) < 1280);
  }

  void theCaptionGoesWithItsText() {
    QString &caption = m_fixture->core.legenda.TextoLegenda;
    m_fixture->Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    caption = QStringLiteral("of the item before");
    m_fixture->Show(QStringLiteral("Canto"));
    QCOMPARE(caption, QString());
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, true);
    caption = QStringLiteral("of the verse");
    const auto outOfTheFrame = [this] {
      m_fixture->EndGlide();
      m_fixture->core.stepper.Label1MouseDown(0);
      m_fixture->core.stepper.Label1MouseMove(-20000);
      m_fixture->core.stepper.Label1MouseUp(0);
    };
    m_fixture->core.stepper.CtrlDown(); // looking ahead, the screen keeps its verse
    outOfTheFrame();
    QCOMPARE(caption, QStringLiteral("of the verse"));
    m_fixture->core.stepper.CtrlUp(); // and now it follows
    QCOMPARE(caption, QString());

    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, true);
    caption = QStringLiteral("of the verse");
    outOfTheFrame();
    QCOMPARE(caption, QString());
  }

  // Their boxes stand for as long as the operator likes, with the verse on the screen, and the next verse may go out meanwhile.
  void theCaptionStaysWithItsTextWhereNothingElseComes_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    QTest::newRow("a song that is gone") << 2 << QStringLiteral("There is no such song");
    QTest::newRow("slides without a slide") << 5 << QStringLiteral("Empty.sld");
    QTest::newRow("a file that is gone") << 4 << QStringLiteral("/gone.mp4");
    QTest::newRow("a passage that is not there") << 1 << QStringLiteral("John 99:1");
    QTest::newRow("no item") << 2 << QString();
  }
  void theCaptionStaysWithItsTextWhereNothingElseComes() {
    QFETCH(int, kind);
    QFETCH(QString, name);
    m_fixture->Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    m_fixture->WriteSlides(QStringLiteral("Empty.sld"), 0);
    m_fixture->Show(QStringLiteral("Canto"));
    QString &caption = m_fixture->core.legenda.TextoLegenda;
    caption = QStringLiteral("of the verse");
    QString meanwhile = caption;
    m_fixture->prompt.whileAsking = [&] {
      meanwhile = std::exchange(caption, QStringLiteral("of the next verse"));
    };
    m_fixture->core.flow.ShowEntry(kind, 1, name, name);
    QCOMPARE(meanwhile, QStringLiteral("of the verse"));
    QCOMPARE(caption, m_fixture->prompt.shown.isEmpty() ? meanwhile : QStringLiteral("of the next verse"));
  }

  void aSavedLookComposesTheCaptionOfTheVerseThatStays() {
    m_fixture->Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    m_fixture->Show(QStringLiteral("Canto"));
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, true);
    m_fixture->core.teclas.KeyDown(Qt::Key_Down, false, true);
    m_fixture->EndGlide();
    m_fixture->Forget();
    m_fixture->core.LegendasSalvas();
    QCOMPARE(m_fixture->VersesSent(), {QStringLiteral("Terceira linha<br>Quarta linha")});
    QCOMPARE(Estado().EstrofeAtual, 2);
  }

  void keysFindTheirTarget() {
    KeyTable &teclas = m_fixture->core.teclas;
    QVERIFY(!teclas.KeyDown(Qt::Key_Down, false, true)); // nothing loaded: the list may have it
    QVERIFY(!teclas.KeyDown(Qt::Key_Return, false, true));
    m_fixture->Write(QStringLiteral("Data/agenda1.dat"), "2|#|Outra|#|Outra\r\n");
    m_fixture->core.agenda.SelectTab(1);
    m_fixture->core.agenda.SelectEntry(2, 1);
    QVERIFY(!teclas.KeyDown(Qt::Key_Return, false, false));
    QVERIFY(teclas.KeyDown(Qt::Key_Return, false, true));
    QCOMPARE(Painel().Label9, QStringLiteral("Outra"));
    for (const int key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Left, Qt::Key_Up})
      QVERIFY(teclas.KeyDown(key, false, true));
    QVERIFY(!teclas.KeyDown(Qt::Key_B, true, false)); // its window does not exist
    int pressed = -1;
    teclas.AddBar = [&](int index) { pressed = index; };
    QVERIFY(teclas.KeyDown(Qt::Key_A, true, false));
    QCOMPARE(pressed, 7);
    QVERIFY(teclas.KeyDown(Qt::Key_M, true, false));
    QCOMPARE(pressed, 0);
    QVERIFY(!teclas.KeyDown(Qt::Key_M, false, false));
  }

private:
  EstadoConsole &Estado() { return m_fixture->core.estado; }
  PainelConsole &Painel() { return m_fixture->core.painel; }
  std::unique_ptr<ConsoleFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestPresentation)
#include "test_presentation.moc"
