#include "display/page_fixture.h"
#include "display/ui/web_page_host.h"
#include "slides/FrmListaSlides.h"
#include "slides/FrmSlides.h"
#include "slides/ui/slide_preview.h"
#include "slides/ui/slide_windows.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/web_fixture.h"
#include "support/window_warnings.h"
#include "themes/ui/picture_strip.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The slides' windows over the real page.
class UiTestSlideWindows : public QObject {
  Q_OBJECT

private:
  class Heard : public DisplayObserver {
  public:
    void OnCommand(const QString &) override {}
    void OnScript(const QString &, const QString &script) override { lines.append(script); }
    void OnNavigate(const QString &, const QString &) override { lines.append(QStringLiteral("page")); }
    void OnMedia(const QString &) override {}
    QStringList Take() { return std::exchange(lines, {}); }
    QStringList lines;
  };

  struct Room {
    explicit Room(PageFixture &page) : app(page.appPath()), store(app), positions(store, yielder) {
      for (const char *name : {"Data", "Slides"}) {
        QDir(app.path() + u'/' + QLatin1String(name)).removeRecursively();
        QDir(app.path()).mkpath(QLatin1String(name));
      }
      qputenv("XDG_DATA_HOME", QFile::encodeName(home.path())); // the trash is there
      gallery = {page.MakePicture(QStringLiteral("a.png"), Qt::blue),
                 page.MakePicture(QStringLiteral("b's #1.png"), Qt::darkGreen)};
      windows = Make();
    }
    std::unique_ptr<SlideWindows> Make() {
      return std::make_unique<SlideWindows>(
          SlideDoors{store,
                     prompt,
                     clock,
                     random,
                     console,
                     positions,
                     estado,
                     ajustes,
                     [] { return nullptr; },
                     [] { return QStringLiteral("Sunday & co"); },
                     [this](int numero, QWidget *, const std::function<void(const QString &)> &usa) {
                       asked.append(numero);
                       usa(gallery.at((numero - 1) % gallery.size()));
                     },
                     {},
                     {},
                     &desk});
    }
    template <typename Window> Window *Shown() {
      for (Window *window : desk.findChildren<Window *>(QString(), Qt::FindDirectChildrenOnly))
        if (window->isVisible())
          return window;
      return nullptr;
    }
    FrmSlides *Editor() { return Shown<FrmSlides>(); }
    FrmListaSlides *List() { return Shown<FrmListaSlides>(); }
    template <typename Control> Control *Named(const char *name) {
      return Editor()->findChild<Control *>(QLatin1String(name));
    }
    void Type(const char *name, const QString &text) { QTest::keyClicks(Named<QWidget>(name), text); }
    void Add() { QTest::mouseClick(Named<QPushButton>("ImgAddImagem"), Qt::LeftButton); }
    QString Shown(const char *id) {
      return Eval(windows->WV(), QStringLiteral("document.getElementById('%1').innerText").arg(QLatin1String(id)));
    }
    QString File(const char *name) const { return app.path() + u'/' + QLatin1String(name); }

    QTemporaryDir home;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    ScriptedRandom random{0.5};
    ScriptedPrompt prompt;
    RecordingPresentation console;
    EstadoConsole estado;
    AjustesTexto ajustes;
    QWidget desk;
    QStringList gallery;
    QList<int> asked;
    std::unique_ptr<SlideWindows> windows;
  };

private slots:
  void initTestCase() { m_page = std::make_unique<PageFixture>(); }
  void init() { FailOnWindowWarnings(); }
  void cleanupTestCase() { m_page.reset(); }

  void newSlidesFromTheKeyboardToTheAgenda() {
    Room room(*m_page);
    room.windows->AbreLista();
    FrmListaSlides *list = room.List();
    auto *box = list->findChild<QLineEdit *>(QStringLiteral("Text1"));
    auto *add = list->findChild<QPushButton *>(QStringLiteral("Command2"));
    QCOMPARE(add->text(), QStringLiteral("&Include in 'Sunday && co'"));
    add->click();
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Select the slide you want to edit from the list.")));
    list->findChild<QPushButton *>(QStringLiteral("CmdNovo"))->click();
    QVERIFY(room.Editor());
    QVERIFY(!room.Named<QPushButton>("Command4")->isEnabled());
    QVERIFY(!room.Named<QWidget>("Text1")->isEnabled());

    room.Type("TxtNomeArquivo", QStringLiteral("Harvest"));
    QCOMPARE(room.Editor()->windowTitle(), QStringLiteral("SLIDE: Harvest[*]"));
    room.Add();
    room.Type("Text1", QStringLiteral("First"));
    room.Add();
    QCOMPARE(room.asked, QList<int>({1, 2}));
    room.Named<QLineEdit>("Text1")->insert(QStringLiteral("C:\\new 'ж' ção"));
    room.Type("Text2", QStringLiteral("one"));
    QTest::keyClick(room.Named<QWidget>("Text2"), Qt::Key_Return);
    room.Type("Text2", QStringLiteral("|# \\'two"));
    room.Type("Text2", QStringLiteral("\u00a0!")); // a blank at which no line may break
    QTRY_COMPARE(room.Shown("verso"), QStringLiteral("\"C:\\\\new 'ж' ção\""));
    QTRY_COMPARE(room.Shown("textoSlide"), QStringLiteral("\"one\\n|# \\\\'two\u00a0!\""));
    QTest::keyClick(room.Editor(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(room.prompt.TakeTexts(), QStringList());
    const SlideDocument saved = LoadSlideNew(room.File("Slides/Harvest.sld"));
    QCOMPARE(saved.Count(), 2);
    QCOMPARE(saved.Em(1).Imagem, room.gallery[0]);
    QCOMPARE(saved.Em(1).Titulo, QStringLiteral("First"));
    QCOMPARE(saved.Em(2).Texto, QStringLiteral("one\r\n|# \\'two\u00a0!"));

    // The list has it, and adds it when the editor is closed.
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("First, close the slide editing screen.")));
    QTest::keyClick(room.Editor(), Qt::Key_Escape);
    QVERIFY(!room.Editor());
    room.console.TakeCalls();
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(room.console.TakeCalls(),
             QStringList({QStringLiteral("PorNaLista 5 Harvest Harvest.sld"), QStringLiteral("cancelaWMP"),
                          QStringLiteral("ShowEntry 5 0 Harvest Harvest.sld")}));

    room.prompt.answers = {0};
    list->findChild<QPushButton *>(QStringLiteral("Command4"))->click();
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Confirm the permanent deletion of: Harvest?")));
    QCOMPARE(room.console.TakeCalls(), QStringList({QStringLiteral("RemoveFromAgendas 5 Harvest"), QStringLiteral("RemoveFromAgendas 5 Harvest.sld")}));
    QVERIFY(!QFile::exists(room.File("Slides/Harvest.sld")));
    QCOMPARE(list->findChild<QListWidget *>(QStringLiteral("List1"))->count(), 0);
  }

  void anEditorThatTookAnothersPlaceStandsOpen() {
    Room room(*m_page);
    for (const char *name : {"A", "B"})
      WriteBytes(room.File("Slides/") + QLatin1String(name) + u".sld", "[Config]\r\nCount=1\r\n");
    for (const char *name : {"A", "B"})
      QVERIFY(room.windows->Edita(room.app.At(u"\\Slides\\") + QLatin1String(name) + u".sld"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    room.windows->AbreLista();
    auto *names = room.List()->findChild<QListWidget *>(QStringLiteral("List1"));
    names->setCurrentRow(1);
    QTest::keyClick(names, Qt::Key_Delete);
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("First, close the slide editing screen.")));
    QVERIFY(room.windows->FechaTodos());
    QTest::keyClick(names, Qt::Key_Delete);
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Confirm the permanent deletion of: B?")));
  }

  void thePageIsBuiltAnewForPicturesOnly() {
    Room room(*m_page);
    room.windows->Novo();
    QTRY_VERIFY(Eval(room.windows->WV(), QStringLiteral("location.href")).contains(QStringLiteral("emptyback.html")));
    Heard heard;
    room.Editor()->Preview()->PicWV()->AddObserver(&heard);
    for (int i = 0; i < 3; ++i)
      room.Add();
    QCOMPARE(heard.Take(), QStringList(3, QStringLiteral("page")));

    auto *strip = room.Named<PictureStrip>("PicPics");
    const auto sent = [&heard](const char *function) {
      int count = 0;
      for (const QString &line : heard.Take())
        count += line.startsWith(QLatin1String(function) + u'(') ? 1 : line == u"page" ? 1000 : 0;
      return count;
    };
    strip->setCurrentRow(0);
    QCOMPARE(heard.Take().value(0), QStringLiteral("GotoSlideImage(0)"));
    room.Type("Text1", QStringLiteral("abc"));
    QCOMPARE(sent("UpdateTextHtml"), 3);
    room.Named<QSlider>("sliderFontSize")->setValue(7);
    room.Named<QSlider>("slider5")->setValue(20);
    room.Named<QPushButton>("BtAlinhar2")->click();
    room.Named<QCheckBox>("Check1")->click();
    QCOMPARE(sent("UpdateTextHtml"), 4);
    room.prompt.colours = {0xff};
    room.Named<QPushButton>("SelectColorsFont")->click();
    const QStringList style = heard.Take();
    QCOMPARE(style.size(), 1);
    QVERIFY(style[0].startsWith(QStringLiteral("SetAttribute('texto','style','font-family:")) &&
            style[0].contains(QStringLiteral("; color:#FF0000; text-shadow:")));
    const Slide slide{room.gallery[0], QStringLiteral("abc"), {}, AlinhamentoCentrado, 20, 7, 0};

    // Moved by keys, copied, taken out; and all of it back, in as many steps.
    QTest::keyClick(strip, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(room.Editor(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(strip, Qt::Key_Delete);
    QCOMPARE(heard.Take(), QStringList(3, QStringLiteral("page")));
    QCOMPARE(strip->count(), 3);
    QVERIFY(strip->item(1)->data(Qt::AccessibleTextRole).toString().startsWith(QStringLiteral("2  abc")));
    room.Named<QLineEdit>("TxtNomeArquivo")->setText(QStringLiteral("Moved"));
    room.Named<QPushButton>("Command4")->click();
    QCOMPARE(LoadSlideNew(room.File("Slides/Moved.sld")).slides.value(1), slide);
    for (int i = 0; i < 3; ++i)
      QTest::keyClick(room.Named<QWidget>("Text1"), Qt::Key_Z, Qt::ControlModifier);
    room.Named<QPushButton>("Command4")->click();
    QCOMPARE(LoadSlideNew(room.File("Slides/Moved.sld")).slides.value(0), slide);
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("ProcessaEditarSlide Moved.sld Moved.sld")));
  }

  void whatIsNotSavedIsAskedForAndOfferedAgain() {
    Room room(*m_page);
    room.windows->Novo();
    room.Add();
    room.Type("Text1", QStringLiteral("Kept"));
    QVERIFY(!room.windows->FechaTodos()); // the box is closed without an answer
    QVERIFY(room.Editor());
    room.clock.Advance(1000);
    room.windows.reset(); // the program ends in another way
    room.windows = room.Make();
    room.prompt.TakeTexts();
    room.prompt.answers = {0};
    room.windows->OfereceRascunhos();
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList(QStringLiteral("Unsaved slides of 'New slides' were found. Open them?")));
    QCOMPARE(room.Named<QLineEdit>("Text1")->text(), QStringLiteral("Kept"));

    // The template takes their place, so they are asked for first.
    room.Named<QPushButton>("BtModelo")->click();
    QCOMPARE(room.Named<QLineEdit>("Text1")->text(), QStringLiteral("Kept"));
    QVERIFY(!QFile::exists(room.File("Slides/template.tp")));
    room.prompt.answers = {1};
    room.Named<QPushButton>("BtModelo")->click();
    QVERIFY(QFile::exists(room.File("Slides/template.tp")));
    QCOMPARE(room.Named<PictureStrip>("PicPics")->count(), 0);
    QVERIFY(!room.Named<QPushButton>("Command4")->isEnabled());
    QVERIFY(room.windows->FechaTodos());
    QVERIFY(DraftFolder(room.app).All().isEmpty());
  }

private:
  std::unique_ptr<PageFixture> m_page;
};

QTEST_MAIN(UiTestSlideWindows)
#include "ui_test_slide_windows.moc"
