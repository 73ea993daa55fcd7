#include "console/console_fixture.h"

#include <QRegularExpression>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// A video of the web from the agenda to the item behind it.
class TestWebVideo : public QObject {
  Q_OBJECT

private:
  class House : public ConsoleFixture {
  public:
    House() {
      Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
      Write(QStringLiteral("Filme.mp4"), "x");
      core.videoDaWeb.AbreControle = [this] {
        core.controleDaWeb.Carrega();
        journal.append(QStringLiteral("control opens"));
      };
      core.videoDaWeb.FechaControle = [this] { journal.append(QStringLiteral("control closes")); };
      Forget();
    }
    void ShowIt(const QString &link = Link) { core.flow.ShowEntry(4, 1, QStringLiteral("Clipe"), link); }
    QString Empty() const { return app.At(u"\\html\\emptyback.html"); }
    QString Navigated(const char *page) const {
      return QStringLiteral("%1: Navigate %2 8s").arg(QLatin1String(page), Empty());
    }
    QStringList TakeJournal() { return std::exchange(journal, {}); }
    QString Banner() {
      core.contexto.descreve();
      const SituacaoDaTela &dita = core.painel.situacao;
      return dita.LbEstadoTela + u'|' + dita.LbDetalheTela;
    }
    // What the page says of its video, at two looks in a row.
    void PageSays(const char *answer) {
      display.page.answer = QLatin1String(answer);
      clock.Advance(1100);
    }
    int PagesBuilt() { return static_cast<int>(TakeJournal().filter(QStringLiteral("CarregaTema|#")).size()); }
  };
  inline static const QString Link = QStringLiteral("https://www.youtube.com/embed/Abc_def-123");
  inline static const QString Command = u"command YOUTUBE:|#" + Link + u"?autoplay=1|#";

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void startsInItsOrder() {
    House house;
    house.Show(QStringLiteral("Canto"));
    house.core.stepper.TeclaEstrofe(1);
    house.EndGlide();
    house.Forget();
    house.ShowIt();
    QCOMPARE(house.TakeJournal(), QStringList({house.Navigated("display"), house.Navigated("preview"), Command,
                                               QStringLiteral("control opens")}));
    const EstadoConsole &estado = house.core.estado;
    QCOMPARE(estado.TipoAtual, QStringLiteral("Youtube"));
    QCOMPARE(estado.TipoMidia, QStringLiteral("youtube"));
    QCOMPARE(estado.PaginaAtual, QStringLiteral("youtube"));
    QCOMPARE(estado.EstadoYoutube, QStringLiteral("Play"));
    QVERIFY(estado.ArquivoAtual.isEmpty());
    QVERIFY(!house.core.faixa.Label1Visible);
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Clipe"));
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO|Clipe"));
    // No key brings a verse back.
    house.core.teclas.KeyDown(Qt::Key_Down, false, false);
    house.clock.Advance(60000);
    QVERIFY(house.display.page.scripts.isEmpty());
  }

  void whatTheProjectionLoads_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("address"); // empty: "File not found!"
    const QString embed = Link;
    QTest::newRow("embed") << embed << embed;
    QTest::newRow("page of the video") << "http://www.YouTube.com/watch?v=Abc_def-123&t=3" << embed;
    QTest::newRow("without scheme") << "youtu.be/Abc_def-123" << embed;
    QTest::newRow("without cookies") << "https://www.youtube-nocookie.com/embed/x"
                                     << "https://www.youtube-nocookie.com/embed/x";
    QTest::newRow("configured site") << "http://videos.example:8080/embed/x"
                                     << "http://videos.example:8080/embed/x";
    QTest::newRow("its other port") << "http://videos.example:8081/embed/x"
                                    << "";
    QTest::newRow("another site") << "https://example.org/youtube.com"
                                  << "";
    QTest::newRow("a name that ends like it") << "https://notyoutube.com/embed/x"
                                              << "";
    QTest::newRow("user before the host") << "https://www.youtube.com@example.org/embed/x"
                                          << "";
    QTest::newRow("over http") << "HTTP://m.youtube.com/embed/x?list=y"
                               << "https://m.youtube.com/embed/x?list=y";
    QTest::newRow("page without a video") << "https://www.youtube.com/feed/trending"
                                          << "";
    QTest::newRow("way out of the embed page") << "https://www.youtube.com/embed/%2e%2e/redirect?q=x"
                                               << "";
    QTest::newRow("way out without an id") << "https://www.youtube.com/embed/../redirect?q=https://example.org/"
                                           << "";
    QTest::newRow("backslash") << "https://example.org\\.youtube.com/embed/x"
                               << "";
    QTest::newRow("letters that look like it") << QStringLiteral("https://www.yоutube.com/embed/x") << "";
    QTest::newRow("script") << "javascript://www.youtube.com/embed/x"
                            << "";
    QTest::newRow("file") << "file://www.youtube.com/embed/x"
                          << "";
    QTest::newRow("further field") << "https://www.youtube.com/embed/x|#y"
                                   << "";
    QTest::newRow("missing file") << "/v/youtube.com/none.mp4"
                                  << "";
  }
  void whatTheProjectionLoads() {
    QFETCH(QString, target);
    QFETCH(QString, address);
    House house;
    QString data = house.app.At(u"\\Data\\Endpoints.dat");
    if (address.contains(u"videos.example") || target.contains(u"videos.example"))
      house.store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("VideosWeb"),
                              QStringLiteral("http://videos.example:8080"), data);
    house.Show(QStringLiteral("Canto"));
    house.Forget();
    house.ShowIt(target);
    if (address.isEmpty()) {
      QCOMPARE(house.prompt.shown.last().text, QStringLiteral("File not found!"));
      QVERIFY(house.TakeJournal().isEmpty());
      QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("Louvor"));
    } else {
      QVERIFY(house.prompt.shown.isEmpty());
      QCOMPARE(house.display.commands, QStringList{u"YOUTUBE:|#" + address + u"?autoplay=1|#"});
    }
  }

  void theNextItemEndsIt_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("song") << 2;
    QTest::newRow("slides") << 5;
    QTest::newRow("local video") << 4;
  }
  void theNextItemEndsIt() {
    QFETCH(int, kind);
    House house;
    house.WriteSlides(QStringLiteral("Doc.sld"), 2);
    house.ShowIt();
    house.Forget();
    const QString target = kind == 2   ? QStringLiteral("Canto")
                           : kind == 5 ? QStringLiteral("Doc.sld")
                                       : house.folder.filePath(QStringLiteral("Filme.mp4"));
    house.core.flow.ShowEntry(kind, 1, QStringLiteral("Outro"), target);
    const QStringList journal = house.TakeJournal();
    QCOMPARE(journal.first(3), QStringList({house.Navigated("preview"), QStringLiteral("command PararYoutube"),
                                            QStringLiteral("control closes")}));
    QVERIFY(!house.core.videoDaWeb.EmExibicao());
    QVERIFY(house.core.estado.TipoMidia.isEmpty());
    QCOMPARE(journal.filter(QStringLiteral("CarregaTema|#")).size(), kind == 4 ? 0 : 1);
    house.clock.Advance(60000);
    QVERIFY(house.display.page.evaluated.isEmpty());
  }

  void anotherWebVideoTakesItsPlace() {
    House house;
    house.ShowIt();
    house.Forget();
    house.ShowIt(QStringLiteral("https://youtu.be/Other_video"));
    QCOMPARE(house.TakeJournal(),
             QStringList({house.Navigated("preview"), QStringLiteral("command PararYoutube"),
                          QStringLiteral("control closes"),
                          QStringLiteral("command YOUTUBE:|#https://www.youtube.com/embed/Other_video?autoplay=1|#"),
                          QStringLiteral("control opens")}));
  }

  void whatCannotBeShownChangesNothing() {
    House house;
    house.ShowIt();
    house.Forget();
    house.core.flow.ShowEntry(4, 1, QStringLiteral("Outro"), QStringLiteral("/v/none.mp4"));
    house.core.flow.ShowEntry(2, 1, QStringLiteral("Outro"), QStringLiteral("No such song"));
    house.core.flow.exibirVideoDaWeb(QStringLiteral("Outro"), QStringLiteral("https://example.org/embed/x"));
    QVERIFY(house.TakeJournal().isEmpty());
    QVERIFY(house.core.videoDaWeb.EmExibicao());
  }

  void theThemeComesBack_data() {
    QTest::addColumn<QString>("how");
    for (const char *how : {"stopped", "nothing", "page in its place"})
      QTest::newRow(how) << QString::fromLatin1(how);
  }
  void theThemeComesBack() {
    QFETCH(QString, how);
    House house;
    house.ShowIt();
    house.Forget();
    bool forcar = true;
    if (how == u"stopped")
      house.core.flow.EncerraMidia();
    else if (how == u"nothing")
      house.core.flow.ShowEntry(2, 0, QString(), QString());
    else
      house.core.temaControle.aplicaTema(2, forcar);
    house.clock.Advance(1000);
    QVERIFY(!house.core.videoDaWeb.EmExibicao());
    QVERIFY(house.core.estado.PaginaDeTexto());
    QCOMPARE(house.core.estado.TipoAtual, QString());
    QCOMPARE(house.core.painel.Label9, QString());
    QVERIFY(house.Banner().startsWith(u"LIVE, NO TEXT"));
    QVERIFY(house.journal.contains(QStringLiteral("control closes")));
    QCOMPARE(house.PagesBuilt(), 1);
  }

  // Themes wait behind it, and pictures are refused, as with a local video.
  void nothingIsPutOverIt() {
    House house;
    house.ShowIt();
    house.Forget();
    house.core.temaControle.PressTile(3);
    QCOMPARE(house.core.estado.ProximoTema, 3);
    house.core.temaControle.PressTile(1);
    house.core.temaControle.TemaSalvo();
    house.core.temaControle.MenuAplicar(2);
    QCOMPARE(house.prompt.shown.last().text, NaoDuranteVideo);
    QVERIFY(!house.core.efeitos.ImagemDaGaleria(QStringLiteral("/p/a.jpg"), false));
    house.core.TelaMudou();
    QVERIFY(house.TakeJournal().isEmpty());
  }

  void theBannerFollowsThePage() {
    House house;
    house.ShowIt();
    house.PageSays(R"(["https:",true,false,false,7.5,65])");
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO|Clipe · 00:07 / 01:05"));
    house.PageSays(R"(["https:",true,true,false,7.5,65])");
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO PAUSED|Clipe · 00:07 / 01:05"));
    QVERIFY(!house.core.controleDaWeb.MostraPausa());
    house.PageSays(R"(["https:",true,false,true,65,65])");
    QVERIFY(house.Banner().startsWith(u"VIDEO ENDED"));
    house.PageSays(R"(["about:",false,false,false,0,0])");
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO FAILED|The page of the video could not be loaded. Check your "
                                            "internet connection."));
    const int updates = house.view.atualizacoes;
    house.clock.Advance(60000);
    QCOMPARE(house.view.atualizacoes, updates);
  }

  // An answer to what was asked before a press does not take the press back.
  void aPressCounts() {
    House house;
    house.ShowIt();
    house.PageSays(R"(["https:",true,false,false,7.5,65])");
    house.display.page.answerLater = true;
    house.clock.Advance(500);
    house.core.controleDaWeb.ImagePlay();
    house.display.page.Answer();
    QVERIFY(!house.core.controleDaWeb.MostraPausa());
    QCOMPARE(house.display.page.scripts, QStringList{QStringLiteral("document.querySelector('video').pause();")});
    house.core.controleDaWeb.ImagePlay();
    house.core.controleDaWeb.ImageRestart();
    QCOMPARE(house.display.page.scripts.mid(1),
             QStringList({QStringLiteral("document.querySelector('video').play();"),
                          QStringLiteral("document.querySelector('video').currentTime = 0;")}));
    QCOMPARE(house.core.estado.EstadoYoutube, QStringLiteral("Play"));
  }

  void consentStaysOffTheProjection() {
    House house;
    QVERIFY(house.core.videoDaWeb.PodeDesviar(QUrl(QStringLiteral("http://localhost/theme")))); // no web video is on
    house.ShowIt();
    house.Forget();
    QVERIFY(house.core.videoDaWeb.PodeDesviar(QUrl(QStringLiteral("https://m.youtube.com/embed/x"))));
    QVERIFY(!house.core.videoDaWeb.PodeDesviar(QUrl(QStringLiteral("http://m.youtube.com/embed/x"))));
    QVERIFY(
        !house.core.videoDaWeb.PodeDesviar(QUrl(QStringLiteral("https://consent.youtube.com/m?continue=/embed/x"))));
    house.core.videoDaWeb.Desviou();
    QCOMPARE(house.TakeJournal(), QStringList{QStringLiteral("command PararYoutube")});
    QVERIFY(house.Banner().contains(u"Open the site"));
    house.ShowIt();
    QVERIFY(house.TakeJournal().contains(Command));
    QCOMPARE(house.Banner(), QStringLiteral("VIDEO|Clipe"));
  }

  void aProjectionMadeAnewGetsIt() {
    House house;
    house.ShowIt();
    house.PageSays(R"(["https:",true,true,false,7.5,65])"); // paused, and so it stays
    house.Forget();
    house.core.TelaoRefeito();
    QCOMPARE(house.TakeJournal().first(), Command);
    QCOMPARE(house.display.page.scripts.size(), 1);
    QVERIFY(house.display.page.scripts.first().contains(u"e.target.pause()"));
  }

  void playedFromTheResults() {
    House house;
    house.core.controles.SetScreenState(4);
    house.core.estado.VideoAtivo = QStringLiteral("True");
    house.core.video.Inicia(house.folder.filePath(QStringLiteral("Filme.mp4")), QStringLiteral("Filme"));
    house.Forget();
    house.core.flow.exibirVideoDaWeb(QStringLiteral("Clipe"), Link);
    QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("Youtube"));
    QCOMPARE(house.core.estado.EstadoTela, QStringLiteral("Normal"));
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Clipe"));
    QVERIFY(std::count(house.yielder.calls.begin(), house.yielder.calls.end(), 2) > 0);
    const QStringList commands = house.display.commands;
    QCOMPARE(commands.last(), QStringLiteral("Show"));
    QVERIFY(commands.contains(Command.mid(8)));
    QVERIFY(house.journal.contains(QStringLiteral("wmp: close")));
  }
};

QTEST_MAIN(TestWebVideo)
#include "test_web_video.moc"
