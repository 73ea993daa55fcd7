#include "controls/ui/font_box.h"
#include "display/page_fixture.h"
#include "display/ui/web_page_host.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/web_fixture.h"
#include "support/window_walker.h"
#include "support/window_warnings.h"
#include "themes/FrmConfigTema.h"
#include "themes/ui/picture_strip.h"
#include "themes/ui/theme_editors.h"
#include "themes/ui/theme_preview.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The theme editor's window over the real page.
class UiTestThemeEditor : public QObject {
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
    explicit Room(PageFixture &page, const QByteArray &ini = {})
        : app(page.appPath()), store(app), loja(app, temas), positions(store, yielder) {
      QDir(app.path() + QStringLiteral("/Data")).removeRecursively();
      WriteBytes(File("Data/Themes.ini"), ini);
      QDir(app.path()).mkpath(QStringLiteral("Data/mini"));
      QDir(app.path()).mkpath(QStringLiteral("Images/Mini"));
      loja.LoadTemas(0);
      editors = std::make_unique<ThemeEditors>(ThemeEditorDoors{
          store, loja, temas, prompt, clock, random, yielder, measure, positions, QSize(192, 108),
          [] { return nullptr; }, {}, [this](int n) { saved.append(n); }, {}, &desk});
    }
    FrmConfigTema *Open(int n) {
      editors->AbreConfigTema(n);
      FrmConfigTema *window = Window();
      if (window)
        window->Preview()->PicWV()->AddObserver(&heard);
      return window;
    }
    FrmConfigTema *Window() {
      for (FrmConfigTema *window : desk.findChildren<FrmConfigTema *>(QString(), Qt::FindDirectChildrenOnly))
        if (window->isVisible())
          return window;
      return nullptr;
    }
    template <typename Control> Control *Named(const char *name) {
      return Window()->findChild<Control *>(QLatin1String(name));
    }
    void Choose(const char *name, const char *text) {
      auto *combo = Named<QComboBox>(name);
      combo->setCurrentText(QLatin1String(text));
      emit combo->activated(combo->currentIndex());
      emit combo->textActivated(combo->currentText());
    }
    QString File(const char *name) const { return app.path() + u'/' + QLatin1String(name); }
    QColor Middle(int down) { // of the preview, at that percentage of its height
      const QImage page = Window()->Preview()->PicWV()->grab().toImage();
      return page.pixelColor(page.width() / 10, page.height() * down / 100);
    }

    AppFolder app;
    IniStore store;
    TabelaTemas temas;
    ThemeStore loja;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    ScriptedRandom random{0.5};
    ScriptedPrompt prompt;
    FixedMeasure measure;
    QWidget desk;
    Heard heard;
    QList<int> saved;
    std::unique_ptr<ThemeEditors> editors;
  };

private slots:
  void initTestCase() { m_page = std::make_unique<PageFixture>(); }
  void init() { FailOnWindowWarnings(); }
  void cleanupTestCase() { m_page.reset(); }

  void everyChangeReachesThePage() {
    Room room(*m_page, "[Tema-2]\r\nFont_Name=Liberation Sans\r\nFontSombra_Enabled=0\r\n");
    QVERIFY(room.Open(2));
    QTRY_COMPARE(Eval(room.editors->WV(), QStringLiteral("document.getElementById('texto').innerText")),
                 QStringLiteral("\"VAELIS\""));
    const auto text = [](const char *colour, const char *word) {
      return QStringLiteral("UpdateTextHtml('<div class=\\'\\' style=\\'font-family:&quot;Liberation Sans&quot;; color:%1; "
                            "text-shadow:#161817 0px 1px 2px , 0px 0px 0px ;\\'>%2</div>')")
          .arg(QLatin1String(colour), QLatin1String(word));
    };
    room.heard.Take();
    room.Named<QSlider>("slider1")->setValue(40);
    room.prompt.colours = {0xff, 0x00ff00};
    room.Named<QPushButton>("SelectColorsBack")->click();
    room.Named<QPushButton>("SelectColorsFont")->click();
    room.Named<QAbstractButton>("ChkMaiusculas")->click();
    room.Choose("ComboEfeitoTexto", "Pulse");
    room.Choose("ComboEfeitoTextoOut", "fadeOut");
    room.clock.Advance(5000);
    QCOMPARE(room.heard.Take(),
             QStringList({QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(0px) brightness(40%) "
                                         "contrast(100%) saturate(100%)')"),
                          QStringLiteral("SetAttribute('wheader','style','background-color:#FF0000')"),
                          text("#00FF00", "VAELIS"), text("#00FF00", "Vaelis"),
                          text("#00FF00", "Vaelis").replace(QStringLiteral("class=\\'\\'"),
                                                            QStringLiteral("class=\\'animated pulse faster\\'")),
                          QStringLiteral("UpdateTextHtml('<div class=\\'animated fadeOut faster\\'>Vaelis<div>')"),
                          text("#00FF00", "Vaelis")}));
    QTRY_VERIFY(qAbs(room.Middle(10).red() - 102) < 3); // a red of which the filter leaves 40 per cent
    QTRY_COMPARE(Eval(room.editors->WV(),
                      QStringLiteral("getComputedStyle(document.querySelector('#texto > div')).color")),
                 QStringLiteral("\"rgb(0, 255, 0)\""));

    // The table and the file know nothing of it, and Cancel leaves it so.
    QCOMPARE(room.temas[2].brightness, 100);
    room.prompt.answers = {2, 1};
    QTest::keyClick(room.Window(), Qt::Key_Escape);
    QVERIFY(room.Window());
    QTest::keyClick(room.Window(), Qt::Key_Escape);
    QVERIFY(!room.Window());
    QCOMPARE(room.prompt.shown.last().buttons,
             QStringList({QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")}));
    QCOMPARE(ReadBytes(room.File("Data/Themes.ini")),
             QByteArray("[Tema-2]\r\nFont_Name=Liberation Sans\r\nFontSombra_Enabled=0\r\n"));
  }

  void picturesAndTheirSnapshot() {
    Room room(*m_page, "[Tema-1]\r\nFont_Name=Liberation Sans\r\n");
    QTemporaryDir elsewhere;
    const QStringList names{QStringLiteral("a's #1 ção.png"), QStringLiteral("b.png")};
    for (const QString &name : names) {
      QImage image(320, 180, QImage::Format_RGB32);
      image.fill(name.startsWith(u'a') ? Qt::blue : Qt::darkGreen);
      QVERIFY(image.save(elsewhere.filePath(name)));
      room.prompt.files.append(elsewhere.filePath(name));
    }
    QVERIFY(room.Open(1));
    room.heard.Take();
    room.Named<QPushButton>("CheckTipo1")->click();
    QCOMPARE(room.heard.Take(), QStringList()); // no picture yet, nothing to build
    room.Named<QPushButton>("BtAdicionarImagem")->click();
    QVERIFY(!room.Named<QWidget>("PicIntervalo")->isVisible());
    room.Named<QPushButton>("BtAdicionarImagem")->click();
    QVERIFY(room.Named<QWidget>("PicIntervalo")->isVisible());
    QCOMPARE(room.heard.lines.count(QStringLiteral("page")), 2);
    QTRY_COMPARE(room.Middle(10), QColor(Qt::darkGreen));
    room.heard.Take();

    auto *strip = room.Named<PictureStrip>("PicPics");
    strip->setCurrentRow(0);
    room.Named<QPushButton>("Command8")->click();
    room.Named<QPushButton>("Command8")->click();
    room.Choose("ComboEfeitoImagem", "Slide");
    room.Choose("ComboIntervalo", "15 sec");
    room.Choose("ComboIntervalo", "None");
    room.Named<QAbstractButton>("ChkMoveImagem")->click();
    QCOMPARE(room.heard.Take(),
             QStringList({QStringLiteral("GotoSlideImage(0)"), QStringLiteral("GotoSlideImage(1)"),
                          QStringLiteral("GotoSlideImage(0)"), QStringLiteral("ChangeOptions('fx','slideY')"),
                          QStringLiteral("GotoSlideImage(1)"), QStringLiteral("ChangeOptions('timeout','2')"),
                          QStringLiteral("ChangeOptions('timeout','')"),
                          QStringLiteral("ChangeCSS('img','animation-play-state','running')")}));

    // By keys: the second picture in front of the first, then one out.
    QTest::keyClick(strip, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(strip->item(0)->toolTip(), QStringLiteral("b.png"));
    QTest::keyClick(strip, Qt::Key_Delete);
    QCOMPARE(strip->count(), 1);
    QTRY_COMPARE(room.Middle(10), QColor(Qt::blue));
    strip->setFocus(); // on a button Enter would press that
    QTest::keyClick(strip, Qt::Key_Return);
    QVERIFY(!room.Window());
    QCOMPARE(room.saved, QList<int>{1});
    QCOMPARE(room.temas[1].Imagem, room.app.At(u"\\Images\\") + names[0] + u'|');
    const QImage mini(room.File("Data/mini/tema1-14_LiberationSans_Imagem_1_1.jpg"), "jpg");
    QCOMPARE(mini.size(), QSize(192, 108));
    QVERIFY(mini.pixelColor(10, 10).blue() > 240);
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void whatTheOperatorIsTold() {
    Room room(*m_page, "[Tema-1]\r\nFont_Name=No Such Font\r\nCordeFundo=11184810\r\n");
    QVERIFY(room.Open(1));
    QVERIFY(room.Named<QLabel>("LbFonte")->text().contains(QStringLiteral("'No Such Font' is not installed")));
    room.clock.Advance(1000);
    auto *contrast = room.Named<QLabel>("LbContraste");
    QVERIFY(!contrast->isVisible()); // white on grey, but with outline and shadow
    room.Named<QAbstractButton>("ChkBorda")->click();
    room.clock.Advance(1000);
    QCOMPARE(contrast->text(), QStringLiteral("The text is hard to read from afar on this background."));
    QVERIFY(contrast->isVisible());
    room.Choose("ComboFontes", "Liberation Sans");
    QVERIFY(!room.Named<QLabel>("LbFonte")->isVisible());
    room.prompt.answers = {1};
  }

  void oneEditorATheme() {
    Room room(*m_page);
    FrmConfigTema *first = room.Open(5);
    QCOMPARE(first->windowTitle(), QStringLiteral("THEME 5 - Settings[*]"));
    room.editors->AbreConfigTema(5);
    QCOMPARE(room.desk.findChildren<FrmConfigTema *>().size(), 1);
    room.editors->AbreConfigTema(6);
    QCOMPARE(room.desk.findChildren<FrmConfigTema *>().size(), 2);
    QVERIFY(room.editors->FechaTodos());
    QVERIFY(!room.Window());
  }

  void theWindowFitsASmallScreen() {
    Room room(*m_page, "[Tema-1]\r\nFont_Name=No Such Font\r\nCordeFundo=16777215\r\nFontBorda_Enabled=0\r\n");
    FrmConfigTema *window = room.Open(1);
    room.clock.Advance(1000);
    QVERIFY(window->minimumSizeHint().width() <= 1000 && window->minimumSizeHint().height() <= 560);
    for (const QSize &size : {QSize(1000, 560), QSize(1400, 900)}) {
      window->resize(size);
      QCoreApplication::processEvents();
      for (const char *kind : {"CheckTipo1", "CheckTipo2", "CheckTipo0"}) {
        room.Named<QPushButton>(kind)->click();
        QCoreApplication::processEvents();
        QCOMPARE(LayoutFaults(window, true).join(u'\n'), QString());
      }
    }
  }

private:
  std::unique_ptr<PageFixture> m_page;
};

QTEST_MAIN(UiTestThemeEditor)
#include "ui_test_theme_editor.moc"
