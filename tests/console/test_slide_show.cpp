#include "console/console_fixture.h"

#include <QRegularExpression>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// A slide show from the agenda to its end, as the projection hears of it.
class TestSlideShowRun : public QObject {
  Q_OBJECT

private:
  class House : public ConsoleFixture {
  public:
    explicit House(const QByteArray &audio = "/m/a.mp3") {
      Write(QStringLiteral("html/sshow.dat"), "<p>[Tempo De Imagem]</p>");
      Write(QStringLiteral("SlideShow/Demo.sw"), "[Setup]\r\nArquivodeAudio=" + audio +
                                                     "\r\n[Imagens]\r\nImagem1=/p/a.jpg\r\ntotalImagens=1\r\n");
      Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
      core.flow.controleDeShows = {[this](const QString &path) {
                                     open = true;
                                     core.show.Abre();
                                     core.show.IniciaSlideShow(path);
                                   },
                                   [this] {
                                     if (std::exchange(open, false)) {
                                       core.show.Fecha();
                                       return true;
                                     }
                                     return false;
                                   }};
      Forget();
    }
    QString Path() const { return app.At(u"\\SlideShow\\Demo.sw"); }
    void ShowIt() { core.flow.ShowEntry(6, 0, QStringLiteral("Demo"), Path()); }
    QStringList TakeJournal() { return std::exchange(journal, {}); }
    bool open = false;
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void startsInItsOrder() {
    House house;
    house.Show(QStringLiteral("Canto"));
    house.core.stepper.TeclaEstrofe(1);
    house.EndGlide();
    house.Forget();
    house.ShowIt();
    const QString page = house.app.At(u"\\html\\sshow.html");
    QCOMPARE(house.TakeJournal(),
             QStringList({QStringLiteral("command UpdateText|#|#|#"),
                          QStringLiteral("display: Navigate %1 8s").arg(page),
                          QStringLiteral("preview: Navigate %1 8s").arg(page), QStringLiteral("player hidden"),
                          QStringLiteral("wmp: URL /m/a.mp3"), QStringLiteral("wmp: uiMode none"),
                          QStringLiteral("wmp: loop 1"), QStringLiteral("wmp: volume 50")}));
    const EstadoConsole &estado = house.core.estado;
    QCOMPARE(estado.TipoAtual, QStringLiteral("SlideShow"));
    QCOMPARE(estado.TipoAnterior, QStringLiteral("Louvor"));
    QCOMPARE(estado.PaginaAtual, QStringLiteral("sshow.html"));
    QCOMPARE(estado.SlideShowAtivo, QStringLiteral("True"));
    QVERIFY(!house.core.faixa.Label1Visible);
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Demo"));
    house.core.show.ImagemMudou(QStringLiteral("a.jpg"));
    house.core.contexto.descreve();
    QCOMPARE(house.core.painel.situacao.LbEstadoTela, QStringLiteral("SLIDE SHOW"));
    QCOMPARE(house.core.painel.situacao.LbDetalheTela, QStringLiteral("a.jpg"));
    // No key reaches the page of the show with a verse of the song.
    house.core.teclas.KeyDown(Qt::Key_Down, false, false);
    house.clock.Advance(60000);
    QVERIFY(house.display.page.scripts.isEmpty());
  }

  void pausesAndGoesOn() {
    House house;
    house.ShowIt();
    house.Forget();
    house.core.show.Pause();
    QVERIFY(house.core.show.Parado());
    QCOMPARE(house.TakeJournal(), QStringList({QStringLiteral("display: Pause()"), QStringLiteral("preview: Pause()"),
                                               QStringLiteral("wmp: pause"), QStringLiteral("fade stopped")}));
    // A page that comes back stands too.
    house.core.PaginaVoltou(Alvo::Previa);
    QCOMPARE(house.preview.scripts.last(), QStringLiteral("Pause()"));
    house.Forget();
    house.core.show.Play();
    QVERIFY(!house.core.show.Parado());
    QCOMPARE(house.TakeJournal(), QStringList({QStringLiteral("display: Play()"), QStringLiteral("preview: Play()"),
                                               QStringLiteral("wmp: play")}));
  }

  // A page that comes back goes on where the show is, and does not tell everybody its beginning again.
  void aPageThatComesBackGoesOn() {
    House house;
    house.ShowIt();
    const auto sent = [&](Alvo alvo) -> QStringList {
      QStringList &scripts = alvo == Alvo::Telao ? house.display.page.scripts : house.preview.scripts;
      scripts.clear();
      house.core.PaginaVoltou(alvo);
      return scripts;
    };
    const auto resume = [](const QString &where) -> QString {
      return u"if (typeof Retoma === 'function') Retoma(..." + where + u')';
    };
    SlideShowRunner &show = house.core.show;
    QCOMPARE(sent(Alvo::Previa), QStringList{resume(QStringLiteral("[\"\",-1]"))}); // its start text
    for (const char *name : {"a.jpg", "it's \"b\".jpg", "a.jpg"})
      show.ImagemMudou(QLatin1String(name));
    QCOMPARE(sent(Alvo::Previa), QStringList{resume(QStringLiteral("[\"a.jpg\",2]"))});
    show.ImagemMudou(QStringLiteral("it's \"b\".jpg"));
    QCOMPARE(sent(Alvo::Previa), QStringList{resume(QStringLiteral("[\"it's \\\"b\\\".jpg\",2]"))});

    // However often it dies at the same picture, which it reports each time; what it says before it is back is nothing.
    show.ImagemMudou(QStringLiteral("a.jpg"));
    show.FimAVista(5000);
    for (int death = 0; death < 3; ++death) {
      house.core.show.PaginaCaiu();
      house.clock.Advance(60000);
      show.ImagemMudou(QStringLiteral("z.jpg"));
      show.FimAVista(0);
      QCOMPARE(sent(Alvo::Telao), QStringList{resume(QStringLiteral("[\"a.jpg\",3]"))});
      show.ImagemMudou(QStringLiteral("a.jpg"));
      QVERIFY(!show.Acabou());
    }

    // A projection that was made anew gets page and music again, as loud as it was, and stands if the show stands.
    show.DefineVolume(20);
    show.Pause();
    house.Forget();
    show.TelaoRefeito();
    QStringList journal = house.TakeJournal();
    QVERIFY(journal.takeFirst().startsWith(QStringLiteral("display: Navigate")));
    journal.removeAll(QStringLiteral("player hidden"));
    QCOMPARE(journal, QStringList({u"display: " + resume(QStringLiteral("[\"a.jpg\",3]")), QStringLiteral("display: Pause()"),
                                   QStringLiteral("wmp: URL /m/a.mp3"), QStringLiteral("wmp: uiMode none"),
                                   QStringLiteral("wmp: loop 1"), QStringLiteral("wmp: volume 20"),
                                   QStringLiteral("wmp: pause")}));
    show.FimAVista(1); // said before the page stood
    house.clock.Advance(60000);
    QVERIFY(!show.Acabou());
    show.Play();

    show.FimAVista(400);
    house.clock.Advance(399);
    QVERIFY(!show.Acabou());
    show.Pause();
    house.clock.Advance(60000);
    QVERIFY(!show.Acabou());
    show.Play();
    show.FimAVista(1);
    house.clock.Advance(1);
    QVERIFY(show.Acabou());
    QCOMPARE(sent(Alvo::Previa), QStringList{resume(QStringLiteral("[\"\",0]"))});
    house.core.contexto.descreve();
    QCOMPARE(house.core.painel.situacao.LbEstadoTela, QStringLiteral("SHOW ENDED"));
    house.ShowIt();
    QVERIFY(!show.Acabou());
  }

  void musicThatCannotBePlayedIsTold() {
    House house;
    int told = 0;
    house.core.show.Mudou = [&] { ++told; };
    house.ShowIt();
    house.clock.Advance(60000);
    QVERIFY(!house.core.show.SemMusica());
    house.display.player.state = PlayState::Stopped;
    house.clock.Advance(60000);
    QVERIFY(house.core.show.SemMusica());
    QCOMPARE(told, 1);
    // Silence after the end is meant.
    house.ShowIt();
    QVERIFY(!house.core.show.SemMusica());
    house.core.show.FimAVista(0);
    house.display.player.state = PlayState::Stopped;
    house.clock.Advance(60000);
    QVERIFY(!house.core.show.SemMusica());
  }

  void theItemBeneathComesBackByItsKind_data() {
    QTest::addColumn<QString>("antes");
    QTest::addColumn<QString>("depois");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("a song") << QStringLiteral("Louvor") << QString();
    QTest::newRow("a passage") << QStringLiteral("Bíblia") << QString();
    QTest::newRow("a hymn") << QStringLiteral("Harpa") << QStringLiteral("Harpa");
    QTest::newRow("a web video, which has ended") << QStringLiteral("Youtube") << QString();
  }
  void theItemBeneathComesBackByItsKind() {
    QFETCH(QString, antes);
    House house;
    house.core.estado.DefineTipo(antes);
    house.ShowIt();
    house.ShowIt(); // once more, over itself
    house.Forget();
    house.core.flow.controleDeShows.fecha();
    QTEST(house.core.estado.TipoAtual, "depois");
    QCOMPARE(house.core.estado.SlideShowAtivo, QString());
    const QStringList journal = house.TakeJournal();
    QCOMPARE(journal.mid(0, 3), QStringList({QStringLiteral("wmp: stop"), QStringLiteral("wmp: loop 0"),
                                              QStringLiteral("player hidden")}));
    QVERIFY(!journal.filter(QStringLiteral("CarregaTema|#")).isEmpty());
    QVERIFY(house.core.estado.PaginaDeTexto());
  }

  // As they are by then: the document was saved under another name while the show ran over it.
  void slidesComeBackBehindTheShow() {
    House house;
    house.WriteSlides(QStringLiteral("Natal.sld"), 3);
    house.core.flow.ShowEntry(5, 0, QStringLiteral("Natal"), QStringLiteral("Natal.sld"));
    house.core.slides.Escolhe(2);
    house.ShowIt();
    house.ShowIt();
    house.clock.Advance(60000); // no slide of theirs is sent meanwhile
    QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("SlideShow"));
    house.core.temaControle.MenuAplicar(2);
    house.core.efeitos.ImagemDaGaleria(QStringLiteral("/p/b.jpg"), false);
    const QString refusal = QStringLiteral("Not applicable during slideshow display.");
    QCOMPARE(house.prompt.TakeTexts(), QStringList({refusal, refusal}));
    house.WriteSlides(QStringLiteral("Advento.sld"), 2);
    house.core.flow.ProcessaEditarSlide(QStringLiteral("Natal.sld"), QStringLiteral("Advento.sld"));
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Demo"));
    house.Forget();
    house.core.flow.controleDeShows.fecha();
    QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("Slides"));
    QCOMPARE(house.core.estado.SlideAtual, 2);
    QCOMPARE(house.core.estado.TotalSlides, 2);
    QCOMPARE(house.core.painel.Label9, QStringLiteral("Advento"));
    QCOMPARE(house.display.commands.filter(QStringLiteral("CarregaTema|#")).size(), 1); // no theme in between
  }

  void aSongEndsTheShow() {
    House house("");
    house.ShowIt();
    house.Forget();
    house.Show(QStringLiteral("Canto"));
    QVERIFY(!house.open);
    QCOMPARE(house.core.estado.TipoAtual, QStringLiteral("Louvor"));
    QVERIFY(house.TakeJournal().filter(QStringLiteral("wmp")).isEmpty()); // it had no sound to end
    house.core.stepper.TeclaEstrofe(1);
    house.EndGlide();
    QCOMPARE(house.VersesSent(), QStringList{QStringLiteral("Primeira linha<br>Segunda linha")});
  }

  void aMissingFileLeavesTheShowAlone() {
    House house;
    house.ShowIt();
    house.core.flow.ShowEntry(6, 0, QStringLiteral("Gone"), QStringLiteral("/gone.sw"));
    QCOMPARE(house.prompt.TakeTexts(), QStringList{QStringLiteral("File not found!")});
    QVERIFY(house.open);
  }
};

QTEST_MAIN(TestSlideShowRun)
#include "test_slide_show.moc"
