#include "console/console_fixture.h"

#include <QRegularExpression>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// A local video from the agenda to the item behind it.
class TestVideo : public QObject {
  Q_OBJECT

private:
  class House : public ConsoleFixture {
  public:
    House() {
      Write(QStringLiteral("Filme.mp4"), "x");
      Write(QStringLiteral("Hino.mp3"), "x");
      Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
      core.video.AbreControle = [this] { journal.append(QStringLiteral("control opens")); };
      core.video.FechaControle = [this] { journal.append(QStringLiteral("control closes")); };
      Forget();
    }
    QString Path(const char *name = "Filme.mp4") const { return folder.filePath(QLatin1String(name)); }
    void ShowIt(const char *name = "Filme.mp4") { core.flow.ShowEntry(4, 1, QStringLiteral("Filme"), Path(name)); }
    // As another part of the console might: the page's command closes the player.
    void BuildPage() {
      bool forcar = true;
      core.temaControle.aplicaTema(2, forcar);
      display.player.Close();
    }
    int PagesBuilt() { return static_cast<int>(TakeJournal().filter(QStringLiteral("CarregaTema|#")).size()); }
    QString Banner() {
      core.contexto.descreve();
      const SituacaoDaTela &dita = core.painel.situacao;
      return dita.LbEstadoTela + u'|' + dita.LbDetalheTela;
    }
    QStringList TakeJournal() { return std::exchange(journal, {}); }
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void startsInItsOrder() {
    House house;
    house.Show(QStringLiteral("Canto"));
    house.core.stepper.TeclaEstrofe(1);
    house.EndGlide();
    house.core.legenda.TextoLegenda = QStringLiteral("x");
    house.Forget();
    house.ShowIt();
    const QString page = house.app.At(u"\\html\\emptyback.html");
    QCOMPARE(house.TakeJournal(),
             QStringList({QStringLiteral("display: Navigate %1 8s").arg(page),
                          QStringLiteral("preview: Navigate %1 8s").arg(page), QStringLiteral("command PararYoutube"),
                          QStringLiteral("media reset"), QStringLiteral("player shown"), u"wmp: URL " + house.Path(),
                          QStringLiteral("wmp: stop"), QStringLiteral("wmp: play"), QStringLiteral("wmp: uiMode none"),
                          QStringLiteral("control opens")}));
    const EstadoConsole &estado = house.core.estado;
    QCOMPARE(estado.TipoAtual, QStringLiteral("Video"));
    QCOMPARE(estado.TipoAnterior, QStringLiteral("Louvor"));
    QCOMPARE(estado.PaginaAtual, QStringLiteral("emptyback.html"));
    QVERIFY(house.core.legenda.TextoLegenda.isEmpty());
    QVERIFY(!house.core.faixa.Label1Visible);
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Filme"));
    QVERIFY(!house.core.painel.SliderExLouvorVisible);
    // No key brings a verse of the song back.
    house.core.teclas.KeyDown(Qt::Key_Down, false, false);
    house.clock.Advance(60000);
    QVERIFY(house.display.page.scripts.isEmpty());
  }

  void theBannerFollows_data() {
    QTest::addColumn<PlayState>("state");
    QTest::addColumn<bool>("failed");
    QTest::addColumn<QString>("banner");
    QTest::newRow("plays") << PlayState::Playing << false << "VIDEO|Filme.mp4 · 00:07 / 01:05";
    QTest::newRow("waits") << PlayState::Paused << false << "VIDEO PAUSED|Filme.mp4 · 00:07 / 01:05";
    QTest::newRow("ended") << PlayState::Ended << false << "VIDEO ENDED|Filme.mp4 · 00:07 / 01:05";
    QTest::newRow("failed") << PlayState::Stopped << true << "VIDEO FAILED|Filme.mp4 cannot be played";
  }
  void theBannerFollows() {
    QFETCH(PlayState, state);
    QFETCH(bool, failed);
    House house;
    house.ShowIt();
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO|Filme.mp4"));
    RecordingPlayer &player = house.display.player;
    player.duration = 65;
    player.position = 7.5;
    player.state = state;
    player.falhou = failed;
    house.clock.Advance(1000);
    QTEST(house.Banner(), "banner");
    const int updates = house.view.atualizacoes;
    house.clock.Advance(60000);
    QCOMPARE(house.view.atualizacoes, updates); // nothing that could be seen has changed
  }

  void theNextItemEndsIt() {
    House house;
    house.ShowIt();
    house.display.player.loop = true;
    house.Forget();
    house.Show(QStringLiteral("Canto"));
    const QStringList journal = house.TakeJournal();
    QCOMPARE(journal.first(5),
             QStringList({QStringLiteral("player hidden"), QStringLiteral("wmp: stop"), QStringLiteral("wmp: close"),
                          QStringLiteral("wmp: loop 0"), QStringLiteral("control closes")}));
    QCOMPARE(journal.filter(QStringLiteral("CarregaTema|#")).size(), 1);
    QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("Louvor"));
    QVERIFY(house.Banner().startsWith(u"LIVE, NO TEXT"));
    house.clock.Advance(60000);
    QVERIFY(house.TakeJournal().filter(QStringLiteral("wmp")).isEmpty());
  }

  // Whatever leaves nothing in the place of the video brings the theme, not black.
  void theThemeComesBack_data() {
    QTest::addColumn<QString>("how");
    for (const char *how : {"ended", "nothing", "page in its place"})
      QTest::newRow(how) << QString::fromLatin1(how);
  }
  void theThemeComesBack() {
    QFETCH(QString, how);
    House house;
    house.ShowIt();
    house.display.player.loop = true;
    house.Forget();
    if (how == u"ended")
      house.core.video.Encerra();
    else if (how == u"nothing")
      house.core.flow.ShowEntry(2, 0, QString(), QString());
    else
      house.BuildPage();
    house.clock.Advance(1000);
    QVERIFY(!house.display.player.loop); // which was for this one
    QVERIFY(!house.core.video.EmExibicao());
    QVERIFY(house.core.estado.PaginaDeTexto());
    QCOMPARE(house.core.estado.TipoAtual, QString());
    QCOMPARE(house.core.painel.Label9, QString());
    QVERIFY(house.Banner().startsWith(u"LIVE, NO TEXT"));
    const QStringList journal = house.TakeJournal();
    QVERIFY(journal.contains(QStringLiteral("control closes")));
    QCOMPARE(journal.filter(QStringLiteral("CarregaTema|#")).size(), 1);
  }

  void whatCannotBeShownChangesNothing_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << 4 << "/v/none.mp4"
                             << "File not found!";
    QTest::newRow("another site") << 4 << "https://example.org/v.mp4"
                                  << "File not found!";
    QTest::newRow("song") << 2 << "No such song"
                          << "Item not found.\n\nThe file may have been deleted or moved to another location.";
    QTest::newRow("slides") << 5 << "none.sld"
                            << "File not found!";
    QTest::newRow("slides without a slide") << 5 << "empty.sld"
                                            << "There is no slide.";
    QTest::newRow("verse") << 1 << "Genesis 1:1"
                           << "";
  }
  void whatCannotBeShownChangesNothing() {
    QFETCH(int, kind);
    QFETCH(QString, target);
    QFETCH(QString, message);
    House house;
    house.Write(QStringLiteral("Slides/empty.sld"), "[Config]\r\nCount=0\r\n");
    house.ShowIt();
    house.Forget();
    house.core.flow.ShowEntry(kind, 1, QStringLiteral("Outro"), target);
    if (message.isEmpty()) // it is told in the strip
      QVERIFY(!house.core.painel.MensagemTira.isEmpty());
    else
      QCOMPARE(house.prompt.shown.last().text, message);
    QVERIFY(house.TakeJournal().isEmpty());
    QVERIFY(house.core.video.EmExibicao());
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Filme"));
  }

  void soundAloneKeepsTheBackground() {
    House house;
    house.Show(QStringLiteral("Canto"));
    house.core.stepper.TeclaEstrofe(1);
    house.EndGlide();
    house.Forget();
    house.ShowIt("Hino.mp3");
    QCOMPARE(
        house.TakeJournal(),
        QStringList({QStringLiteral("command UpdateText|#|#|#"), QStringLiteral("preview: UpdateTextHtml('')"),
                     QStringLiteral("media reset"), QStringLiteral("player hidden"),
                     u"wmp: URL " + house.Path("Hino.mp3"), QStringLiteral("wmp: stop"), QStringLiteral("wmp: play"),
                     QStringLiteral("wmp: uiMode none"), QStringLiteral("control opens")}));
    // Another size of the projection builds no page, which would stop the sound.
    house.core.TelaMudou();
    QVERIFY(house.TakeJournal().isEmpty());
    QVERIFY(house.core.estado.PaginaDeTexto());
    // When it has ended the background stands as it is, unless its theme was saved meanwhile.
    house.core.video.Encerra();
    QCOMPARE(house.PagesBuilt(), 0);
    house.ShowIt("Hino.mp3");
    house.core.temaControle.TemaSalvo();
    QCOMPARE(house.PagesBuilt(), 0);
    house.core.video.Encerra();
    QCOMPARE(house.PagesBuilt(), 1);
  }

  void aBackgroundPlacedByHandComesBack() {
    House house;
    QVERIFY(house.core.efeitos.ImagemDaGaleria(QStringLiteral("/p/mao.jpg"), false));
    house.ShowIt();
    house.Forget();
    house.core.video.Encerra();
    QCOMPARE(house.PagesBuilt(), 1);
    QVERIFY(house.core.estado.TemaAtual.Imagem.contains(u"mao.jpg"));
  }

  // Nobody ends a video by choosing a background.
  void aBackgroundWaits() {
    House house;
    house.ShowIt();
    house.Forget();
    house.core.temaControle.PressTile(2);
    QCOMPARE(house.core.estado.ProximoTema, 2);
    house.core.temaControle.MenuAplicar(3);
    QCOMPARE(house.prompt.shown.last().text, QStringLiteral("Not applicable while a video is on show."));
    QVERIFY(!house.core.efeitos.ImagemDaGaleria(QStringLiteral("/p/a.jpg"), false));
    house.prompt.colours = {255};
    house.core.efeitos.SelectColors1();
    QVERIFY(house.TakeJournal().isEmpty());
    house.Show(QStringLiteral("Canto"));
    QCOMPARE(house.core.estado.IndiceTema, 2);
    house.ShowIt();
    house.Forget();
    house.core.temaControle.PressTile(2); // the one in force
    QCOMPARE(house.core.estado.ProximoTema, SemTemaNaFila);
    QVERIFY(house.TakeJournal().isEmpty());
    QVERIFY(house.core.video.EmExibicao());
  }

  void aFileThatTurnsOutToBeSoundShowsTheTheme() {
    House house;
    house.ShowIt();
    house.display.player.semImagem = true;
    house.Forget();
    house.clock.Advance(1000);
    QStringList journal = house.TakeJournal();
    QCOMPARE(journal.filter(QStringLiteral("CarregaTema|#")).size(), 1);
    QCOMPARE(journal.last(), QStringLiteral("wmp: uiMode none"));
    QVERIFY(journal.contains(QStringLiteral("player hidden")));
    house.clock.Advance(1000);
    QVERIFY(house.TakeJournal().isEmpty());
    QVERIFY(house.core.video.EmExibicao());
  }

  void aNewProjectionGoesOnWhereItWas() {
    House house;
    house.ShowIt();
    house.core.controleDeVideo.DefineVolume(80);
    house.display.player.position = 12;
    house.display.player.state = PlayState::Paused;
    house.display.player.loop = true;
    house.display.player.faixa = 2;
    house.clock.Advance(1000);
    house.Forget();
    house.core.TelaoRefeito();
    const QStringList journal = house.TakeJournal();
    QVERIFY(journal.contains(QStringLiteral("wmp: volume 80")));
    QCOMPARE(journal.last(4), QStringList({QStringLiteral("wmp: position 12"), QStringLiteral("wmp: pause"),
                                           QStringLiteral("wmp: loop 1"), QStringLiteral("wmp: audio 2")}));
  }

  void aNewProjectionHasTheBackgroundOfASound() {
    House house;
    house.ShowIt("Hino.mp3");
    house.Forget();
    house.core.TelaoRefeito();
    QCOMPARE(house.PagesBuilt(), 1);
    QVERIFY(house.core.video.EmExibicao());
  }

  // The file dialogue lets the loop run, and the operator is elsewhere when it closes.
  void theEditButtonGivesTheEntryAnotherFile() {
    House house;
    QString message;
    for (const char *name : {"Filme.mp4", "Hino.mp3"})
      house.core.flow.PorNaLista(QString::fromLatin1(name).chopped(4), 4, house.Path(name), message);
    house.Write(QStringLiteral("Outro.mp4"), "x");
    ListTarefas &lista = house.core.agenda.Lista();
    QString asked;
    house.core.agenda.outroVideo = [&](const QString &atual) {
      asked = atual;
      lista.Select(4, 2);
      lista.Move(4, 1, 2);
      return house.Path("Outro.mp4");
    };
    lista.Select(4, 1);
    house.core.flow.exibirSelecinado();
    house.core.flow.editarSelecionado();
    QCOMPARE(asked, house.Path());
    QCOMPARE(lista.NameAt(4, 2), QStringLiteral("Outro"));
    QCOMPARE(lista.CaptionAt(4, 2), house.Path("Outro.mp4"));
    QCOMPARE(lista.CaptionAt(4, 1), house.Path("Hino.mp3"));
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Outro")); // which marks the entry on show
    house.core.agenda.outroVideo = [](const QString &) { return QStringLiteral("/v/a\nb.mp4"); };
    house.core.agenda.EditSelected();
    QVERIFY(house.prompt.shown.last().text.startsWith(u"An agenda cannot name this file"));
    house.core.flow.PorNaLista(QStringLiteral("a"), 4, QStringLiteral("/v/a|#|b.mp4"), message);
    QVERIFY(message.startsWith(u"An agenda cannot name this file"));
    QCOMPARE(lista.CaptionAt(4, 1), house.Path("Hino.mp3"));
    QCOMPARE(lista.Count(4), 2);
  }

  void theShowBehindAVideoLeavesNoVideo() {
    House house;
    house.Write(QStringLiteral("html/sshow.dat"), "<p>[Tempo De Imagem]</p>");
    QDir(house.folder.path()).mkdir(QStringLiteral("SlideShow"));
    house.Write(QStringLiteral("SlideShow/Demo.sw"), "[Imagens]\r\nImagem1=/p/a.jpg\r\ntotalImagens=1\r\n");
    house.ShowIt();
    house.core.show.Abre();
    house.core.show.IniciaSlideShow(house.app.At(u"\\SlideShow\\Demo.sw"));
    QVERIFY(!house.core.video.EmExibicao());
    house.core.show.Fecha();
    QCOMPARE(house.core.estado.TipoAtual, QString());
  }
};

QTEST_GUILESS_MAIN(TestVideo)
#include "test_video.moc"
