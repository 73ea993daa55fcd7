#include "media/FrmCameras.h"
#include "media/ui/camera_window.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/scripted_prompt.h"
#include "support/window_warnings.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

class UiTestCameras : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), store(app), positions(store, yielder) {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      cameras.StatusTelaCamera(true);
    }
    QWidget *Form() {
      for (QWidget *top : QApplication::topLevelWidgets())
        if (top->objectName() == u"FrmCameras" && top->isVisible())
          return top;
      return nullptr;
    }
    template <class Part> Part *Find(const char *name) { return Form()->findChild<Part *>(QLatin1String(name)); }
    void Answer(const QStringList &names) {
      QString uri = QStringLiteral("http://indexcam//?");
      for (const QString &name : names)
        uri += name + u"%7C";
      cameras.Respondeu(uri, Alvo::Previa);
    }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FakeClock clock;
    ScriptedPrompt prompt;
    FormPositions positions;
    QStringList scripts;
    Cameras cameras{[this](const QString &script, Alvo) { scripts.append(script); }, [] {}, prompt};
    QWidget desk;
    int toTheText = 0;
    CameraWindow window{CameraDoors{clock, positions, cameras, [this] { ++toTheText; }, &desk}};
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void aRowForEachCamera() {
    Room room;
    room.window.Abre();
    QVERIFY(room.Find<QLabel>("LabelAviso")->text().startsWith(u"Looking"));
    const int before = room.Form()->height();
    room.Answer({QStringLiteral("Lens"), QStringLiteral("Desk &amp; door")});
    QCOMPARE(room.Find<QLabel>("Label21")->text(), QStringLiteral("Desk &amp; door"));
    QVERIFY(room.Form()->height() > before);
    QTest::mouseClick(room.Find<QPushButton>("Command11"), Qt::LeftButton);
    QCOMPARE(room.scripts.last(), QStringLiteral("startWebcam(1)"));
    QVERIFY(!room.Find<QPushButton>("Command20")->isEnabled());
    room.cameras.Respondeu(QStringLiteral("http://webcam//?1%7Caberta"), Alvo::Telao);
    QCOMPARE(room.Find<QLabel>("LabelEstado1")->text(), QStringLiteral("On the screen"));
    QTest::mouseClick(room.Find<QPushButton>("Command21"), Qt::LeftButton);
    QCOMPARE(room.scripts.last(), QStringLiteral("stopWebcam()"));
    QCOMPARE(room.Find<QLabel>("LabelEstado1")->text(), QString());
    QCOMPARE(room.toTheText, 2); // the next key is for the text

    // Asked again, the answer takes the place of the rows that stood there.
    QTest::mouseClick(room.Find<QPushButton>("CommandProcura"), Qt::LeftButton);
    room.Answer({QStringLiteral("Lens")});
    QVERIFY(!room.Find<QPushButton>("Command11"));
  }

  void saysWhatIsAmiss() {
    Room room;
    room.window.Abre();
    room.clock.Advance(4900);
    QVERIFY(room.Find<QLabel>("LabelAviso")->text().startsWith(u"Looking"));
    room.clock.Advance(200);
    QCOMPARE(room.Find<QLabel>("LabelAviso")->text(), QStringLiteral("The page on show does not answer."));
    room.Answer({});
    QCOMPARE(room.prompt.shown.size(), 1);
    QVERIFY(room.Find<QLabel>("LabelAviso")->text().startsWith(u"No camera"));
    room.Answer({QStringLiteral("Lens")});
    room.cameras.StatusTelaCamera(false);
    QVERIFY(!room.Find<QPushButton>("Command10")->isEnabled());
    QVERIFY(room.Find<QLabel>("LabelAviso")->text().startsWith(u"A camera needs"));
  }

  void closingTakesTheCameraOff() {
    Room room;
    room.cameras.StatusTelaCamera(false);
    room.window.Abre();
    QVERIFY(!room.Form());
    room.cameras.StatusTelaCamera(true);
    room.window.Abre();
    room.Answer({QStringLiteral("Lens")});
    QTest::mouseClick(room.Find<QPushButton>("Command10"), Qt::LeftButton);
    QTest::keyClick(room.Form(), Qt::Key_Escape); // a slip of the hand takes nothing off the screen
    QVERIFY(room.Form());
    room.Answer({QStringLiteral("Door"), QStringLiteral("Lens")}); // it has another place now
    QCOMPARE(room.Find<QLabel>("LabelEstado1")->text(), QStringLiteral("Opening…"));
    room.Form()->close();
    QVERIFY(!room.Form());
    QCOMPARE(room.scripts.last(), QStringLiteral("stopWebcam()"));
    QCOMPARE(room.cameras.Ligada(), -1);
    room.window.Abre();
    QVERIFY(!room.Find<QPushButton>("Command10"));
    room.Answer({QStringLiteral("Lens")});
    QVERIFY(room.Find<QPushButton>("Command10"));
    QTest::keyClick(room.Form(), Qt::Key_Escape);
    QVERIFY(!room.Form());
  }
};

QTEST_MAIN(UiTestCameras)
#include "ui_test_cameras.moc"
