#include <QtTest>

#include "console_fixture.h"

using namespace tolmira;
using namespace tolmira::testing;

// Walking through a song as the operator does: what goes out to the screen, and where the strip comes to rest.
class TestStepping : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<ConsoleFixture>();
    m_fixture->Write(QStringLiteral("Lyrics/Graça.txt"), TresEstrofes);
    m_fixture->Show(QStringLiteral("Graça"));
    m_fixture->Forget();
  }

  void nothingIsOnShowUntilTheFirstKey() {
    QCOMPARE(Estado().TotalEstrofes, 3);
    QCOMPARE(Estado().EstrofeAtual, -1);
    QVERIFY(Faixa().Label1Topo > Faixa().FrameTop + Faixa().FrameHeight);
  }

  void keysWalk_data() {
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("verse");
    QTest::addColumn<int>("sent");
    QTest::newRow("first Down") << QList<int>{1} << 1 << 1;
    QTest::newRow("first Up") << QList<int>{-1} << 1 << 1;
    QTest::newRow("walk to the end") << QList<int>{1, 1, 1} << 3 << 3;
    QTest::newRow("past the last verse nothing happens") << QList<int>{1, 1, 1, 1, 1} << 3 << 3;
    QTest::newRow("before the first verse it is sent again") << QList<int>{1, -1} << 1 << 2;
    QTest::newRow("there and back") << QList<int>{1, 1, -1} << 1 << 3;
  }
  void keysWalk() {
    QFETCH(QList<int>, keys);
    for (const int delta : keys)
      Stepper().TeclaEstrofe(delta);
    QTEST(Estado().EstrofeAtual, "verse");
    QFETCH(int, sent);
    QCOMPARE(m_fixture->VersesSent().size(), sent);
  }

  void theVerseGoesOutBeforeTheGlideBegins() {
    Stepper().TeclaEstrofe(1);
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Primeira linha<br>Segunda linha")});
    QVERIFY(Stepper().Gliding());
    QCOMPARE(m_fixture->view.moves, 0);
  }

  void theGlideTakesTenTicksAndCentresTheVerse() {
    Stepper().TeclaEstrofe(1);
    while (Stepper().Gliding())
      m_fixture->clock.Advance(1);
    QCOMPARE(m_fixture->view.moves, 10);
    const Estrofe &verse = Estado().Estrofes[1];
    const int middle = Faixa().Label1Topo + (verse.Topo + verse.Base) / 2;
    QVERIFY(std::abs(middle - (Faixa().FrameTop + Faixa().FrameHeight / 2)) <= 2);
  }

  void keysDuringAGlideRestartItFromWhereTheStripIs() {
    Stepper().TeclaEstrofe(1);
    m_fixture->clock.Advance(40);
    const int midway = Faixa().Label1Topo;
    Stepper().TeclaEstrofe(1);
    QCOMPARE(Faixa().Label1Topo, midway);
    m_fixture->EndGlide();
    QCOMPARE(Faixa().Label1Topo, Estado().TopoDestino);
    QCOMPARE(m_fixture->VersesSent().size(), 2);
  }

  void ctrlLooksAheadAndLettingGoSends() {
    Stepper().TeclaEstrofe(1);
    m_fixture->Forget();
    Stepper().CtrlDown();
    QVERIFY(m_fixture->core.painel.PicDica3);
    QCOMPARE(m_fixture->core.painel.PicDica3Texto, QStringLiteral("Place the text in the desired position,"));
    Stepper().TeclaEstrofe(1);
    Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    QVERIFY(m_fixture->display.commands.isEmpty());
    QVERIFY(m_fixture->preview.scripts.isEmpty());
    Stepper().CtrlUp();
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Quinta linha<br>Sexta linha")});
    QVERIFY(!m_fixture->core.painel.PicDica3);
  }

  void ctrlDoesNothingWhileTheScreenIsNotNormal() {
    m_fixture->core.controles.SetScreenState(2);
    Stepper().CtrlDown();
    QVERIFY(Estado().EnviarAoTelao);
    QVERIFY(!m_fixture->core.painel.PicDica3);
  }

  void quickKeysShowTheTipOnce() {
    for (int i = 0; i < 3; ++i) {
      Stepper().TeclaEstrofe(1);
      m_fixture->clock.Advance(200);
    }
    QVERIFY(!m_fixture->core.painel.PicDica4);
    Stepper().TeclaEstrofe(-1);
    QVERIFY(m_fixture->core.painel.PicDica4);
    m_fixture->clock.Advance(60000);
    QVERIFY(!m_fixture->core.painel.PicDica4);
    for (int i = 0; i < 8; ++i) {
      Stepper().TeclaEstrofe(i % 2 ? 1 : -1);
      m_fixture->clock.Advance(1001);
    }
    QVERIFY(!m_fixture->core.painel.PicDica4);
  }

  void dragging_data() {
    QTest::addColumn<int>("from"); // verse on show
    QTest::addColumn<int>("pixels");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("verse");
    QTest::addColumn<QString>("cleared"); // the command that clears the screen
    QTest::newRow("a short way: the verse stays") << 1 << 2 << QStringLiteral("Normal") << 1 << QString();
    QTest::newRow("far down") << 1 << 400 << QStringLiteral("Abaixo") << -1 << QStringLiteral("UpdateText|#|#|#");
    QTest::newRow("far up") << 3 << -400 << QStringLiteral("Acima") << -1 << QStringLiteral("UpdateText|#|#");
  }
  void dragging() {
    QFETCH(int, from);
    for (int i = 0; i < from; ++i)
      Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    QFETCH(int, pixels);
    Drag(pixels * TwipsPerPixel);
    m_fixture->EndGlide();
    QTEST(Estado().ModoMovimento, "mode");
    QTEST(Estado().EstrofeAtual, "verse");
    QFETCH(QString, cleared);
    if (cleared.isEmpty()) {
      QCOMPARE(m_fixture->VersesSent().size(), 1);
      QCOMPARE(Faixa().Label1Topo, Estado().TopoDestino);
    } else {
      QCOMPARE(m_fixture->display.commands.last(), cleared);
      QCOMPARE(m_fixture->preview.scripts.last(), QStringLiteral("UpdateTextHtml('')"));
      QVERIFY(Estado().VersoTextoAtual.isEmpty());
    }
  }

  void aDragIntoAVerseSendsItAfterTheGlide() {
    Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    const int toSecond = Estado().Estrofes[2].Topo - Estado().Estrofes[1].Topo;
    Drag(-toSecond);
    QVERIFY(m_fixture->display.commands.isEmpty());
    m_fixture->EndGlide();
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Terceira linha<br>Quarta linha")});
  }

  void aClickOnAVerseShowsIt() {
    Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    const int y = Estado().Estrofes[3].Topo + 10;
    Stepper().Label1MouseDown(y);
    Stepper().Label1MouseUp(y);
    m_fixture->EndGlide();
    QCOMPARE(m_fixture->VersesSent(), QStringList{QStringLiteral("Quinta linha<br>Sexta linha")});
  }

  void outOfTheFrameWithCtrlHeldIsSentWhenCtrlGoesUp() {
    Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    Stepper().CtrlDown();
    Drag(400 * TwipsPerPixel);
    QVERIFY(m_fixture->display.commands.isEmpty());
    Stepper().CtrlUp();
    QCOMPARE(m_fixture->display.commands.last(), QStringLiteral("UpdateText|#|#|#"));
  }

  void aMoveTakesTheDisplayBackFromAFixedBackground() {
    Estado().FundoPreso = true;
    Stepper().TeclaEstrofe(1);
    QVERIFY(!Estado().FundoPreso);
  }

  void aHymnsEmptyEndIsNotSteppedOn() {
    m_fixture->Write(QStringLiteral("Harpa/1 Luz.txt"), "1.Um\r\n\r\nCORO\r\n\r\n2.Dois");
    m_fixture->core.flow.ShowEntry(3, 1, QStringLiteral("1 Luz"), QStringLiteral("1 Luz"));
    QCOMPARE(Estado().TipoAtual, QStringLiteral("Harpa"));
    QCOMPARE(Estado().TotalEstrofes, 5); // two stanzas, each with its chorus, and the blank end
    m_fixture->Forget();
    for (int i = 0; i < 6; ++i)
      Stepper().TeclaEstrofe(1);
    QCOMPARE(Estado().EstrofeAtual, 4);
    QCOMPARE(m_fixture->VersesSent().last(), QStringLiteral("CORO"));
    // The end of the song is the end of its last words, or every small drag would clear the screen.
    m_fixture->EndGlide();
    Drag(10 * TwipsPerPixel);
    m_fixture->EndGlide();
    QCOMPARE(Estado().ModoMovimento, QStringLiteral("Normal"));
  }

  void resizingThePanelKeepsTheVerseInTheFrame() {
    Stepper().TeclaEstrofe(1);
    Stepper().TeclaEstrofe(1);
    m_fixture->EndGlide();
    m_fixture->Forget();
    Faixa().PainelLargura = 700 * TwipsPerPixel;
    Faixa().PainelAltura = 300 * TwipsPerPixel;
    m_fixture->core.loader.PainelMudou();
    const Estrofe &verse = Estado().Estrofes[2];
    QVERIFY(Faixa().Label1Topo + verse.Topo >= Faixa().FrameTop);
    QVERIFY(Faixa().Label1Topo + verse.Base <= Faixa().FrameTop + Faixa().FrameHeight);
    QCOMPARE(Estado().EstrofeAtual, 2);
    QVERIFY(m_fixture->display.commands.isEmpty());
  }

private:
  EstadoConsole &Estado() { return m_fixture->core.estado; }
  FaixaTexto &Faixa() { return m_fixture->core.faixa; }
  VerseStepper &Stepper() { return m_fixture->core.stepper; }
  void Drag(int twips) {
    const int y = 100;
    Stepper().Label1MouseDown(y);
    Stepper().Label1MouseMove(y + twips);
    Stepper().Label1MouseUp(y);
  }

  std::unique_ptr<ConsoleFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestStepping)
#include "test_stepping.moc"
