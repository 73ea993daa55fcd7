#include "captions/FrmLegendas.h"
#include "captions/caption_settings.h"
#include "controls/ui/colour_field.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/fake_winsock.h"
#include "support/full_disk.h"
#include "support/scripted_prompt.h"
#include "support/web_fixture.h"
#include "support/window_warnings.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The form of the captions, as an operator uses it.
class UiTestCaptions : public QObject {
  Q_OBJECT

  struct Room {
    Room() {
      for (const char *sub : {"Data", "html"})
        QDir(folder.path()).mkdir(QLatin1String(sub));
      for (const QString &page : {QStringLiteral("legenda.html"), QStringLiteral("legendaPreview.html")})
        QFile::copy(qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + u"/assets/html/" + page,
                    folder.filePath(u"html/" + page));
      positions.SetConsole(&desk);
    }
    template <class Control> Control *In(const char *name) { return form.findChild<Control *>(QLatin1String(name)); }
    void Click(const char *name) { In<QAbstractButton>(name)->click(); }

    QTemporaryDir folder;
    AppFolder app{folder.path()};
    IniStore store{app};
    ScriptedPrompt prompt;
    CountingYielder yielder;
    FakeClock clock;
    FakeWinsock socket;
    FormPositions positions{store, yielder};
    QWidget desk;
    EstadoLegenda legenda;
    CaptionServer server{legenda, store, socket, clock, [] { return TabelaDeEnderecos{0, {0xc0a80105}}; }};
    int saved = 0;
    FrmLegendas form{{store, prompt, positions, legenda, server, [this] { ++saved; }, {}, &desk}};
  };

private slots:
  // What the engine says of itself when it starts.
  void initTestCase() {
    WebPageHost host(QStringLiteral("first"), nullptr);
    host.CriaBrowser();
  }
  void init() { FailOnWindowWarnings(); }

  void thePreviewFollowsTheControls() {
    constexpr QRgb Title = qRgb(0, 143, 255), Plate = qRgb(18, 240, 165); // the one is the passages' own
    Room room;
    EstadoLegenda settings;
    settings.Letras.backColor = 0xA5F012;
    SalvarLegenda(room.store, settings);
    room.form.Open();
    // The frame is another origin to the script, so its picture is looked at.
    const auto seen = [&room](QRgb colour) {
      const QImage picture = room.form.grab().toImage();
      for (int y = 0; y < picture.height(); ++y)
        for (int x = picture.width() / 2; x < picture.width(); ++x)
          if ((picture.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK))
            return true;
      return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(seen(Title), 20000);
    room.In<QTabWidget>("Abas")->setCurrentIndex(1);
    QTRY_VERIFY_WITH_TIMEOUT(!seen(Title), 20000);
    QVERIFY(!seen(Plate)); // what is behind it shines through
    room.In<QSlider>("sliderTransparenciaLetras")->setValue(10);
    QTRY_VERIFY_WITH_TIMEOUT(seen(Plate), 20000);
    QCOMPARE(room.In<ColourField>("SelectColorsTextofonteLetras")->toolTip(),
             QStringLiteral("Aperte e segure o botão do mouse para selecionar a cor desejada"));
  }

  void savingWritesBothTabsAndTellsTheConsole() {
    Room room;
    room.form.Open();
    room.In<QSlider>("SliderEstiloLetras")->setValue(9);
    room.In<QCheckBox>("ChkMaiusculasBiblia")->setChecked(true);
    QCOMPARE(room.legenda.Letras.estilo, 3); // only the form's copy
    room.Click("Command3");
    QCOMPARE(room.saved, 1);
    QCOMPARE(room.legenda.Letras.estilo, 9);
    QVERIFY(room.legenda.Biblia.maiusculas);
    EstadoLegenda read;
    CarregaLegendas(room.store, read);
    QVERIFY(read.Letras == room.legenda.Letras && read.Biblia == room.legenda.Biblia);

    room.In<QSlider>("SliderEstiloBiblia")->setValue(8);
    room.Click("Command2");
    room.form.Open();
    QCOMPARE(room.In<QSlider>("SliderEstiloBiblia")->value(), 1);
  }

  void theServerIsStartedAndStopped() {
    Room room;
    room.form.Open();
    auto *button = room.In<QPushButton>("BotaoFlat1");
    auto *port = room.In<QLineEdit>("Text1");
    QCOMPARE(port->text(), QStringLiteral("4747"));
    port->setText(QStringLiteral("0"));
    button->click();
    QCOMPARE(room.prompt.shown.last().title, QStringLiteral("Caption Server for OBS"));
    QCOMPARE(button->text(), QStringLiteral("Start Server"));
    QVERIFY(!room.In<QWidget>("PicServer")->isVisible());
    room.Click("BotaoFlat3");
    QVERIFY(
        room.prompt.shown.last().text.startsWith(u"1) Enter the port number (between 49152 and 65535) and then click"));

    port->setText(QStringLiteral("50000"));
    button->click();
    QCOMPARE(button->text(), QStringLiteral("Stop Server"));
    QVERIFY(!port->isEnabled() && room.In<QWidget>("PicServer")->isVisible());
    room.Click("BotaoFlat2");
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://192.168.1.5:50000/captions"));
    room.Click("BotaoFlat3");
    QCOMPARE(room.prompt.shown.last().title, QStringLiteral("Caption Server for Broadcast"));
    QVERIFY(room.prompt.shown.last().text.startsWith(
        u"1) In OBS, add a new source of type 'Browser'\n2) In the URL field, enter: "
        u"http://192.168.1.5:50000/captions\n4) Configure the resolution by entering"));
    room.socket.state = Winsock::Fechado; // by itself
    QTRY_COMPARE(button->text(), QStringLiteral("Start Server"));
    button->click();
    room.socket.state = Winsock::Fechando; // a client that went is no stopped server
    room.form.Open();
    QVERIFY(!QTest::qWaitFor([&] { return button->text() != u"Stop Server"; }, 700)); // over a tick of its timer
    button->click();
    QVERIFY(room.legenda.Parado && port->isEnabled());

    port->clear();
    QTest::keyClicks(port, QStringLiteral("65536"));
    QCOMPARE(port->text(), QStringLiteral("6553"));
    port->clear();
    QTest::keyClick(port, Qt::Key_Return);
    QVERIFY(room.prompt.shown.last().text.startsWith(u"Enter the port number"));
    port->setText(QStringLiteral("99999")); // from outside, where nobody types
    button->click();
    QCOMPARE(port->text(), QStringLiteral("65535"));

    {
      FullDisk full(0);
      room.Click("OptionFlat1");
      QCOMPARE(room.prompt.shown.last().text, QStringLiteral("The settings could not be saved."));
      QVERIFY(!room.In<QCheckBox>("OptionFlat1")->isChecked() && !room.legenda.StartOnLoad);
      button->click();
      port->setText(QStringLiteral("80"));
      room.prompt.shown.clear();
      button->click();
      QCOMPARE(room.prompt.shown.last().text, QStringLiteral("The settings could not be saved."));
      QCOMPARE(port->text(), QStringLiteral("65535")); // which is in force
    }
    room.Click("OptionFlat1");
    QCOMPARE(room.store.ReadConfig(QStringLiteral("Legendas"), QStringLiteral("startOnLoad"), {}),
             QStringLiteral("True"));
  }
};

QTEST_MAIN(UiTestCaptions)
#include "ui_test_captions.moc"
