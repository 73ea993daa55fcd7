#include "media/FrmAddVideoNaLista.h"
#include "media/FrmVideoControl.h"
#include "media/ui/video_windows.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/recording_page.h"
#include "support/recording_player.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/window_warnings.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The control of a local video and the dialog that adds videos.
class UiTestVideoWindows : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), store(app), positions(store, yielder) {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      player.url = QStringLiteral("/v/Filme.mp4");
      player.duration = 100;
      player.state = PlayState::Playing;
      windows = std::make_unique<VideoWindows>(VideoDoors{store, prompt, clock, console, positions, control,
                                                          [] { return QStringLiteral("Culto & Ceia"); },
                                                          [this] { return onShow; }, [this] { ++ended; }, &desk,
                                                          web, [this] { return webOnShow; }, {}, {}});
    }
    QWidget *Open(const char *name) {
      for (QWidget *top : QApplication::topLevelWidgets())
        if (top->objectName() == QLatin1String(name) && top->isVisible())
          return top;
      return nullptr;
    }
    template <class Part> Part *Find(const char *name) {
      return Open("FrmVideoControl")->findChild<Part *>(QLatin1String(name));
    }
    QString Text(const char *name) { return Find<QLabel>(name)->text(); }
    QStringList Take() { return std::exchange(journal, {}); }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FakeClock clock;
    ScriptedPrompt prompt;
    RecordingPresentation console;
    FormPositions positions;
    EstadoConsole estado;
    QStringList journal;
    RecordingPlayer player{&journal};
    VideoControl control{estado, [this] { return &player; }, yielder};
    RecordingPage page{&journal, QStringLiteral("page")};
    WebVideoControl web{estado, [this] { return &page; }};
    QWidget desk;
    bool webOnShow = false;
    bool onShow = true;
    int ended = 0;
    std::unique_ptr<VideoWindows> windows;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void livesAndCloses() {
    Room room;
    room.player.volume = 31;
    room.windows->AbreControle(true);
    QCOMPARE(room.estado.VideoAtivo, QStringLiteral("True"));
    QCOMPARE(room.Text("LabelTitulo"), QStringLiteral("Filme.mp4"));
    QCOMPARE(room.Find<QAbstractSlider>("sliderVolume")->value(), 31);
    QVERIFY(room.Take().isEmpty()); // looking changes nothing
    room.Open("FrmVideoControl")->close();
    QCOMPARE(room.estado.VideoAtivo, QString());
    QVERIFY(room.Take().isEmpty()); // the video goes on
    QCOMPARE(room.ended, 0);
    room.clock.Advance(1000);
    room.windows->AbreControle(true);
    QVERIFY(room.Open("FrmVideoControl"));
    room.windows->FechaControle();
    QVERIFY(!room.Open("FrmVideoControl"));
    room.onShow = false;
    room.windows->AbreControle(true);
    QVERIFY(!room.Open("FrmVideoControl"));
  }

  // A video that begins does not take the keys from the console; a press on its menu entry does.
  void theConsoleKeepsTheKeyboard() {
    Room room;
    room.windows->AbreControle(false);
    QVERIFY(room.Open("FrmVideoControl")->testAttribute(Qt::WA_ShowWithoutActivating));
    room.windows->FechaControle();
    room.windows->AbreControle(true);
    QVERIFY(!room.Open("FrmVideoControl")->testAttribute(Qt::WA_ShowWithoutActivating));
  }

  void followsTheVideo() {
    Room room;
    room.windows->AbreControle(true);
    room.player.position = 25;
    room.player.loop = true;
    room.clock.Advance(1000);
    QCOMPARE(room.Text("Label1"), QStringLiteral("00:25"));
    QCOMPARE(room.Text("Label2"), QStringLiteral("01:40"));
    QVERIFY(room.Find<QCheckBox>("CheckLoop")->isChecked());
    const auto *track = room.Find<QWidget>("PicS2");
    const auto *fill = room.Find<QFrame>("PicS1");
    QVERIFY(qAbs(fill->width() - track->width() / 4) <= 2);
    room.player.duration = 0;
    room.clock.Advance(1000);
    QCOMPARE(fill->width(), 0);
    room.player.semImagem = room.player.imagemIlegivel = true;
    room.clock.Advance(1000);
    QCOMPARE(room.Text("LabelAviso"), QStringLiteral("The picture of this file cannot be decoded: sound alone."));
    room.player.falhou = true;
    room.clock.Advance(1000);
    QCOMPARE(room.Text("LabelAviso"), QStringLiteral("This file cannot be played."));
    QVERIFY(room.Take().isEmpty());
  }

  void theTrackMovesTheVideo() {
    Room room;
    room.windows->AbreControle(true);
    auto *track = room.Find<QWidget>("PicS2");
    QTest::mouseClick(track, Qt::LeftButton, {}, {track->width() / 2, 4});
    QVERIFY(qAbs(room.player.position - 50) < 1);
    room.Take();
    for (const auto &[key, position] : {std::pair{Qt::Key_Right, 45.0},
                                        {Qt::Key_Left, 35.0},
                                        {Qt::Key_PageUp, 70.0},
                                        {Qt::Key_PageDown, 10.0},
                                        {Qt::Key_Home, 0.0},
                                        {Qt::Key_End, 99.0}}) { // where a film that does not loop has not ended yet
      room.player.position = 40;
      QTest::keyClick(track, key);
      QCOMPARE(room.player.position, position);
    }
    // While the pointer holds the bar, it stays where the pointer is.
    QTest::mousePress(track, Qt::LeftButton, {}, {track->width() / 2, 4});
    room.player.position = 10;
    room.clock.Advance(1000);
    QVERIFY(qAbs(room.Find<QFrame>("PicS1")->width() - track->width() / 2) <= 2);
    QTest::mouseRelease(track, Qt::LeftButton, {}, {track->width() / 2, 4});
    room.player.duration = 0;
    room.clock.Advance(1000);
    room.Take();
    QTest::mouseClick(track, Qt::LeftButton, {}, {track->width() / 2, 4});
    QTest::keyClick(track, Qt::Key_Right);
    QVERIFY(room.Take().isEmpty());
  }

  // Space only pauses and plays, also on the button that ends the video and in the box of the sounds.
  void spacePlaysAndPauses_data() {
    QTest::addColumn<QString>("focus");
    for (const char *name : {"Image30", "Image32", "ImageStop", "CheckLoop", "PicS2", "sliderVolume", "ComboAudio"})
      QTest::newRow(name) << QString::fromLatin1(name);
  }
  void spacePlaysAndPauses() {
    QFETCH(QString, focus);
    Room room;
    room.player.faixas = {{1, QStringLiteral("por")}, {2, QString()}};
    room.windows->AbreControle(true);
    auto *part = room.Find<QWidget>(focus.toLatin1().constData());
    part->setFocus();
    QTest::keyClick(part, Qt::Key_Space);
    QCOMPARE(room.Take(), QStringList{QStringLiteral("wmp: pause")});
    QTest::keyClick(part, Qt::Key_Space);
    QCOMPARE(room.Take(), QStringList({QStringLiteral("wmp: loop 1"), QStringLiteral("wmp: play")}));
    QCOMPARE(room.ended, 0);
  }

  void soundVolumeAndEnd() {
    Room room;
    room.windows->AbreControle(true);
    QVERIFY(room.Find<QComboBox>("ComboAudio")->isHidden());
    room.player.faixas = {{1, QStringLiteral("por")}, {2, QString()}};
    room.player.faixa = 2;
    room.clock.Advance(1000);
    auto *sounds = room.Find<QComboBox>("ComboAudio");
    QVERIFY(sounds->isVisible());
    QCOMPARE(sounds->currentText(), QStringLiteral("Sound 2"));
    QTest::keyClick(sounds, Qt::Key_Up);
    QCOMPARE(room.player.faixa, 1);
    room.Find<QAbstractSlider>("sliderVolume")->setValue(12);
    QCOMPARE(room.player.volume, 12);
    QCOMPARE(room.estado.VolumeVideo, 12);
    room.Find<QCheckBox>("CheckLoop")->click();
    QVERIFY(room.player.loop);
    room.Find<QPushButton>("ImageStop")->click();
    QCOMPARE(room.ended, 1);
  }

  void addsFilesAndLinks() {
    Room room;
    const QString one = room.folder.filePath(QStringLiteral("Um.mp4"));
    const QString two = room.folder.filePath(QStringLiteral("Dois.mkv"));
    for (const QString &path : {one, two})
      WriteBytes(path, "x");
    room.windows->AbreAdicionar();
    QWidget *form = room.Open("FrmAddVideoNaLista");
    auto *add = form->findChild<QPushButton *>(QStringLiteral("Command1"));
    QCOMPARE(add->text(), QStringLiteral("&Include in 'Culto && Ceia'"));
    room.prompt.files = {one, two};
    form->findChild<QPushButton *>(QStringLiteral("CommandVideo"))->click();
    QCOMPARE(room.console.TakeCalls(), QStringList({u"PorNaLista 4 Um " + one, u"PorNaLista 4 Dois " + two}));
    QCOMPARE(form->findChild<QLabel *>(QStringLiteral("Label2"))->text(),
             QStringLiteral("Um: Added Um\nDois: Added Dois"));
    auto *control = form->findChild<QPushButton *>(QStringLiteral("CommandControle"));
    QVERIFY(control->isEnabled());
    room.onShow = false;
    room.windows->FechaControle();
    QVERIFY(!control->isEnabled());
    auto *link = form->findChild<QLineEdit *>(QStringLiteral("Text1"));
    for (const auto &[pasted, call] :
         {std::pair{"https://youtu.be/Abcd1234567", "PorNaLista 4 https://www.youtube.com/embed/Abcd1234567 "
                                                    "https://www.youtube.com/embed/Abcd1234567"},
          {"", "PorNaLista 4  "}}) {
      link->setText(QString::fromLatin1(pasted));
      add->click();
      QCOMPARE(room.console.TakeCalls(), QStringList{QString::fromLatin1(call)});
    }
  }
};

QTEST_MAIN(UiTestVideoWindows)
#include "ui_test_video_windows.moc"
