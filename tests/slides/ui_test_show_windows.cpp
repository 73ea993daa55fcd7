#include "display/page_fixture.h"
#include "display/show_page.h"
#include "display/ui/web_page_host.h"
#include "foundation/real_path.h"
#include "foundation/text_utils.h"
#include "slides/FrmSlideShow.h"
#include "slides/FrmSlideShowControl.h"
#include "slides/ui/show_windows.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/web_fixture.h"
#include "support/window_warnings.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QQuickWidget>
#include <QSlider>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The pages of the slide shows in the real engine, and the windows over them.
class UiTestShowWindows : public QObject {
  Q_OBJECT

private:
  class Player : public SlideShowPlayer {
  public:
    void Abre() override { calls << QStringLiteral("open"); }
    void Fecha() override { calls << QStringLiteral("close"); }
    void IniciaSlideShow(const QString &path) override {
      calls << u"start " + path;
      stands = false;
    }
    void Pause() override { stands = true; }
    void Play() override { stands = false; }
    bool Parado() const override { return stands; }
    int Volume() const override { return 50; }
    void DefineVolume(int volume) override { calls << QStringLiteral("volume %1").arg(volume); }
    void ImagemMudou(const QString &nome) override { calls << u"picture " + nome; }
    void FimAVista(int) override {}
    bool Acabou() const override { return ended; }
    bool SemMusica() const override { return silent; }
    QStringList calls;
    bool stands = false;
    bool ended = false;
    bool silent = false;
  };

  struct Room {
    explicit Room(PageFixture &page) : app(page.appPath()), store(app), positions(store, yielder) {
      for (const char *folder : {"Data", "SlideShow"})
        QDir(app.path()).mkdir(QLatin1String(folder));
      qputenv("XDG_DATA_HOME", QFile::encodeName(home.path())); // the trash is there
      windows = std::make_unique<ShowWindows>(ShowDoors{
          app, prompt, console, positions, player, [] { return QStringLiteral("Agenda 1"); },
          [this](QWidget *, const std::function<void(const QString &)> &usa) { usa(chosen); }, {}, &desk});
    }
    QString Show(const QStringList &imagens) {
      SlideShowDocument show;
      show.imagens = imagens;
      show.Tempo = 300;
      show.TempoIntevalo = show.TempoIntevaloSaida = 200;
      show.textoFim = QStringLiteral("The end");
      EscreveSlideShow(CaminhoDoSlideShow(app, QStringLiteral("Demo")), show);
      return CaminhoDoSlideShow(app, QStringLiteral("Demo"));
    }
    FrmSlideShow *Edit(const QStringList &imagens) {
      windows->Edita(Show(imagens));
      return qobject_cast<FrmSlideShow *>(Shown("FrmSlideShow"));
    }
    static QWidget *Shown(const char *name) {
      for (QWidget *top : QApplication::topLevelWidgets())
        if (top->objectName() == QLatin1String(name) && top->isVisible())
          return top;
      return nullptr;
    }
    QStringList Saved(FrmSlideShow *form) {
      QFile::remove(MapStoredPath(form->Path()).text());
      form->findChild<QPushButton *>(QStringLiteral("CmdSalvar"))->click();
      [&] { QTRY_VERIFY(QFile::exists(MapStoredPath(form->Path()).text())); }();
      return LeSlideShow(form->Path()).imagens;
    }
    QTemporaryDir home;
    QString chosen; // in the gallery of the program
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    ScriptedPrompt prompt;
    RecordingPresentation console;
    Player player;
    QWidget desk;
    std::unique_ptr<ShowWindows> windows;
  };

  std::unique_ptr<PageFixture> m_page;
  QStringList m_imagens;

private slots:
  void initTestCase() {
    m_page = std::make_unique<PageFixture>();
    int i = 0;
    for (const char *name : {"a.png", "it's 100% #1.png", "p|ipe ç.png", "d.png"})
      m_imagens << m_page->MakePicture(QString::fromUtf8(name), QColor::fromHsv(60 * i++, 200, 200));
  }
  void init() { FailOnWindowWarnings(); }
  void cleanupTestCase() { m_page.reset(); }

  void theOrderOnThePageIsTheOneThatIsSaved() {
    Room room(*m_page);
    FrmSlideShow *form = room.Edit(m_imagens);
    QVERIFY(form);
    QTRY_COMPARE(Eval(form->WV(), QStringLiteral("document.querySelectorAll('.box').length")), QStringLiteral("4"));
    QVERIFY(!form->isWindowModified());
    QCOMPARE(room.Saved(form), m_imagens);

    auto *engine = form->findChild<QQuickWidget *>();
    QVERIFY(engine);
    const auto middleOf = [&](int n) {
      const QStringList xy = Eval(form->WV(), QStringLiteral("(r => (r.left + r.width * 0.6 | 0) + ',' + (r.top + r.height / 2 | 0))"
                                                             "(document.querySelectorAll('.box')[%1].getBoundingClientRect())")
                                                  .arg(n))
                                 .remove(u'"')
                                 .split(u',');
      return QPoint(xy.value(0).toInt(), xy.value(1).toInt());
    };
    // The first picture is dragged behind the second one, which slides to the front.
    const QPoint from = middleOf(0);
    const QPoint to = middleOf(1);
    QTest::mousePress(engine, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 4; ++step)
      QTest::mouseMove(engine, from + (to - from) * step / 4);
    QTRY_COMPARE(Eval(form->WV(), QStringLiteral("document.querySelectorAll('.arrastada').length")), QStringLiteral("1"));
    QTest::mouseRelease(engine, Qt::LeftButton, {}, to);
    QTRY_VERIFY(form->isWindowModified());
    QStringList order = m_imagens;
    order.move(0, 1);
    QCOMPARE(room.Saved(form), order);

    // By keys: the first to the end, then the one that has the focus goes.
    const auto key = [&](const char *name, bool ctrl) {
      Eval(form->WV(), QStringLiteral("document.activeElement.dispatchEvent(new KeyboardEvent('keydown',"
                                      "{key: '%1', ctrlKey: %2, bubbles: true}))")
                           .arg(QLatin1String(name), ctrl ? QStringLiteral("true") : QStringLiteral("false")));
    };
    Eval(form->WV(), QStringLiteral("VaiPara(0)"));
    key("End", true);
    key("ArrowLeft", false);
    key("Delete", false);
    order.move(0, 3);
    order.removeAt(2);
    QTRY_VERIFY(form->isWindowModified());
    QTRY_COMPARE(form->findChild<QLabel *>(QStringLiteral("LbEstado"))->text(), QStringLiteral("3 pictures"));
    QCOMPARE(room.Saved(form), order);

    form->findChild<QPushButton *>(QStringLiteral("BotaoFlat1"))->click();
    QTRY_COMPARE(room.console.calls, QStringList{u"ShowEntry 6 0 Demo " + form->Path()});
    form->close();
  }

  void whatIsNotSavedIsAskedFor() {
    Room room(*m_page);
    FrmSlideShow *form = room.Edit(m_imagens);
    WriteBytes(m_page->appPath() + QStringLiteral("/no.png"), "no picture");
    form->AdicionaArquivos({m_page->appPath() + QStringLiteral("/no.png"), m_page->appPath() + QStringLiteral("/Images")});
    QTRY_COMPARE(Eval(form->WV(), QStringLiteral("document.querySelectorAll('.box').length")), QStringLiteral("8"));
    QCOMPARE(form->findChild<QLabel *>(QStringLiteral("LbEstado"))->text(), QStringLiteral("1 file is no picture"));
    QVERIFY(!room.windows->FechaTodos()); // the question was closed without an answer
    room.prompt.answers = {0};
    QVERIFY(room.windows->FechaTodos());
    QCOMPARE(LeSlideShow(CaminhoDoSlideShow(room.app, QStringLiteral("Demo"))).imagens.size(), 8);
  }

  // What was done to the order since the page was written, and the place in it.
  void theGalleryComesBackAsItWas() {
    Room room(*m_page);
    room.chosen = m_imagens[2];
    FrmSlideShow *form = room.Edit(m_imagens);
    form->findChild<QPushButton *>(QStringLiteral("CmdGaleria"))->click();
    const QString focused = QStringLiteral("[...document.querySelectorAll('.box')].indexOf(document.activeElement)");
    QTRY_COMPARE(Eval(form->WV(), focused), QStringLiteral("4"));
    Eval(form->WV(), QStringLiteral("document.querySelector('.retira').click()"));
    QTRY_COMPARE(form->findChild<QLabel *>(QStringLiteral("LbEstado"))->text(), QStringLiteral("4 pictures"));
    bool died = false;
    form->WV()->Evaluate(QStringLiteral("for(;;);"), [&](const QString &) { died = true; });
    KillRenderProcesses();
    QTRY_VERIFY_WITH_TIMEOUT(died, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(Eval(form->WV(), QStringLiteral("document.querySelectorAll('.box').length")),
                              QStringLiteral("4"), 20000);
    QCOMPARE(room.Saved(form), QStringList({m_imagens[1], m_imagens[2], m_imagens[3], m_imagens[2]}));
  }

  void theShowRunsStandsAndEnds() {
    Room room(*m_page);
    ScriptedRandom random{0.05, 0.35, 0.65, 0.95};
    const QStringList imagens{m_imagens[1], m_page->appPath() + QStringLiteral("/gone.png"), m_imagens[3]};
    const QString page = MontaPaginaDoShow(room.app, LeSlideShow(room.Show(imagens)), random);
    WebPageHost host(QStringLiteral("show"), nullptr);
    host.resize(640, 360);
    QVERIFY(host.CriaBrowser());
    host.show();
    QStringList said;
    host.WV()->AoNavegar = [&said](const QString &uri, bool &cancel) {
      cancel = true;
      said << UrlDecode(uri);
    };
    host.WV()->Navigate(page, 8);
    QTRY_VERIFY_WITH_TIMEOUT(!said.isEmpty(), 20000);
    host.WV()->ExecuteScript(QStringLiteral("Pause()"));
    QCOMPARE(said, QStringList{QStringLiteral("http://image/?it's 100% #1.png")});

    // Thirty frames later everything stands where it stood.
    const QString looks = QStringLiteral("[...document.querySelectorAll('.quadro, .quadro *')].map(e => "
                                         "getComputedStyle(e).opacity + getComputedStyle(e).transform).join()");
    const QString before = Eval(host.WV(), looks);
    Eval(host.WV(), QStringLiteral("window.frames30 = 0; (function f() { if (++frames30 < 30) requestAnimationFrame(f); })()"));
    QTRY_COMPARE_WITH_TIMEOUT(Eval(host.WV(), QStringLiteral("frames30")), QStringLiteral("30"), 20000);
    QCOMPARE(Eval(host.WV(), looks), before);
    QCOMPARE(said.size(), 1);

    host.WV()->ExecuteScript(QStringLiteral("Play()"));
    QTRY_COMPARE_WITH_TIMEOUT(said.size(), 3, 20000); // what cannot be read is passed over
    QCOMPARE(said[1], QStringLiteral("http://image/?d.png"));
    QVERIFY2(said[2].startsWith(QStringLiteral("http://vaiacabar/?")), qPrintable(said[2]));
    const int rest = said[2].section(u'?', 1).toInt();
    QVERIFY2(rest >= 200 && rest <= 500, qPrintable(said[2])); // of 300 ms on show and 200 on its way out
    QTRY_COMPARE_WITH_TIMEOUT(Eval(host.WV(), QStringLiteral("document.querySelectorAll('.quadro').length + "
                                                             "document.querySelector('.fala')?.textContent")),
                              QStringLiteral("\"0The end\""), 20000);

    // The keys for the screen go on calling the page as any other. Music that goes on with the page ends with it.
    host.WV()->ExecuteScript(QStringLiteral("ChangeCSS('texto','display','block');Pause();Play()"));
    QTRY_COMPARE(said.size(), 4);
    QCOMPARE(said[3], QStringLiteral("http://vaiacabar/?0"));
    QCOMPARE(Eval(host.WV(), QStringLiteral("getComputedStyle(document.querySelector('.fala')).display")),
             QStringLiteral("\"flex\""));

    // Begun again in the middle, where the picture stands at once, also while the show stands; and at the end, without one.
    said.clear();
    host.WV()->ExecuteScript(QStringLiteral("Retoma('d.png', 7);Pause()"));
    QTRY_COMPARE_WITH_TIMEOUT(said, QStringList{QStringLiteral("http://image/?d.png")}, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(
        Eval(host.WV(), QStringLiteral("[...document.getElementById('palco').children].map(e => e.className + "
                                       "getComputedStyle(e).opacity + getComputedStyle(e).transform).join()")),
        QStringLiteral("\"quadro1none\""), 20000);
    host.WV()->ExecuteScript(QStringLiteral("Play()"));
    QTRY_COMPARE_WITH_TIMEOUT(said.size(), 2, 20000);
    host.WV()->ExecuteScript(QStringLiteral("Retoma('', 0)"));
    const QString shown = QStringLiteral("document.querySelectorAll('.quadro').length + "
                                         "[...document.querySelectorAll('.fala')].map(e => e.textContent).join()");
    QTRY_COMPARE_WITH_TIMEOUT(Eval(host.WV(), shown), QStringLiteral("\"0The end\""), 20000);
    QCOMPARE(said.mid(2), QStringList{QStringLiteral("http://vaiacabar/?0")});
    host.WV()->ExecuteScript(QStringLiteral("Pause();Retoma('', 0)"));
    const QString seen = QStringLiteral("getComputedStyle(document.querySelector('.fala')).opacity");
    QTRY_COMPARE_WITH_TIMEOUT(Eval(host.WV(), seen), QStringLiteral("\"1\""), 20000);
  }

  // Wherever the focus is, Space only pauses: it must not end a show.
  void spaceOnlyPauses() {
    Room room(*m_page);
    const QString path = room.Show(m_imagens);
    room.windows->AbreControle(path);
    QCOMPARE(room.player.calls, QStringList({QStringLiteral("open"), u"start " + path}));
    QWidget *form = Room::Shown("FrmSlideShowControl");
    QVERIFY(form);
    for (const char *name : {"Image3", "ImageRestart", "ImageStop", "sliderVolume"}) {
      const bool before = room.player.stands;
      QTest::keyClick(form->findChild<QWidget *>(QLatin1String(name)), Qt::Key_Space);
      QCOMPARE(room.player.stands, !before);
      QTest::keyClick(form->findChild<QWidget *>(QLatin1String(name)), Qt::Key_Escape);
      QVERIFY(form->isVisible());
    }
    form->findChild<QSlider *>(QStringLiteral("sliderVolume"))->setValue(30);
    room.windows->ImagemMudou(QStringLiteral("b.jpg"));
    auto *picture = form->findChild<QLabel *>(QStringLiteral("LabelImagemName"));
    QCOMPARE(picture->text(), QStringLiteral("b.jpg"));
    room.player.ended = room.player.silent = true;
    room.player.Mudou();
    QCOMPARE(picture->text(), QStringLiteral("The show has ended."));
    QVERIFY(form->findChild<QLabel *>(QStringLiteral("LabelAviso"))->isVisible());
    room.player.ended = false;
    QVERIFY(room.windows->FechaControle());
    QVERIFY(!room.windows->FechaControle());
    QCOMPARE(room.player.calls.mid(2), QStringList({QStringLiteral("volume 30"), QStringLiteral("picture b.jpg"),
                                                    QStringLiteral("close")}));
    // The next one hears of its show although the one before it goes only now.
    room.windows->AbreControle(path);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(room.player.Mudou);
    QVERIFY(room.windows->FechaControle());
    QVERIFY(!room.player.Mudou);
    room.windows->AbreControle(QStringLiteral("/gone.sw"));
    QCOMPARE(room.prompt.TakeTexts(), QStringList{QStringLiteral("File not found!")});
    QVERIFY(!room.windows->FechaControle());
  }

  void oneEditorAtATime() {
    Room room(*m_page);
    room.Edit(m_imagens);
    room.windows->AbreLista();
    Room::Shown("FrmListaSlidesShow")->findChild<QPushButton *>(QStringLiteral("Command3"))->click();
    QCOMPARE(room.prompt.TakeTexts(), QStringList{QStringLiteral("First, close the slideshow editing screen.")});
  }

  // Saved, it would be an empty one.
  void aShowThatCannotBeReadIsNotEdited() {
    Room room(*m_page);
    WriteBytes(room.app.path() + QStringLiteral("/SlideShow/Broken.sw"), QByteArray("[Setup]\0\0", 9));
    room.windows->Edita(CaminhoDoSlideShow(room.app, QStringLiteral("Broken")));
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList{QStringLiteral("This slide show cannot be read. Its file is damaged, or it is no text.\n\nBroken.sw")});
    QVERIFY(!Room::Shown("FrmSlideShow"));
    QFile::remove(room.app.path() + QStringLiteral("/SlideShow/Broken.sw"));
  }

  void aDeletedShowLeavesTheAgendas() {
    Room room(*m_page);
    const QString path = room.Show(m_imagens);
    room.windows->AbreLista();
    QWidget *list = Room::Shown("FrmListaSlidesShow");
    list->findChild<QListWidget *>(QStringLiteral("List1"))->setCurrentRow(0);
    room.prompt.answers = {0};
    list->findChild<QPushButton *>(QStringLiteral("Command4"))->click();
    QVERIFY(!QFile::exists(MapStoredPath(path).text()));
    QCOMPARE(list->findChild<QLabel *>(QStringLiteral("LbQuantos"))->text(), QStringLiteral("There are no slide shows yet."));
    QCOMPARE(room.console.calls,
             QStringList({QStringLiteral("RemoveFromAgendas 6 Demo"), u"RemoveFromAgendas 6 " + path}));
  }
};

QTEST_MAIN(UiTestShowWindows)
#include "ui_test_show_windows.moc"
