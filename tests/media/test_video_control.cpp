#include "media/media_time.h"
#include "media/video_control.h"
#include "media/video_files.h"
#include "media/video_site.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/recording_player.h"
#include "support/scripted_prompt.h"

#include <QTemporaryDir>
#include <QtTest>
#include <limits>

using namespace tolmira;
using namespace tolmira::testing;

// What the control of a local video does to the player.
class TestVideoControl : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() {
      player.url = QStringLiteral("C:\\Vídeos\\Filme.Um.mp4");
      player.duration = 200;
    }
    QStringList Take() { return std::exchange(journal, {}); }
    EstadoConsole estado;
    CountingYielder yielder;
    QStringList journal;
    RecordingPlayer player{&journal};
    VideoControl control{estado, [this] { return &player; }, yielder};
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void theTransportButtons_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<PlayState>("before");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<PlayState>("after");
    const auto calls = [](const char *list) { return QString::fromLatin1(list).split(u','); };
    QTest::newRow("restart") << 0 << PlayState::Playing << calls("wmp: stop,wmp: play") << PlayState::Playing;
    QTest::newRow("restart of one that waits")
        << 0 << PlayState::Paused << calls("wmp: stop,wmp: play") << PlayState::Playing;
    QTest::newRow("pause") << 1 << PlayState::Playing << calls("wmp: pause") << PlayState::Paused;
    QTest::newRow("play, which loops") << 1 << PlayState::Paused << calls("wmp: loop 1,wmp: play")
                                       << PlayState::Playing;
    QTest::newRow("again") << 1 << PlayState::Ended << calls("wmp: loop 1,wmp: play") << PlayState::Playing;
    QTest::newRow("back and wait") << 2 << PlayState::Playing << calls("wmp: stop,wmp: play,wmp: pause")
                                   << PlayState::Paused;
  }
  void theTransportButtons() {
    QFETCH(int, button);
    QFETCH(PlayState, before);
    QFETCH(PlayState, after);
    Room room;
    room.player.state = before;
    room.control.Image3(static_cast<VideoControl::Botao>(button));
    QTEST(room.Take(), "calls");
    QCOMPARE(room.estado.EstadoVideo, static_cast<int>(after));
    QCOMPARE(room.control.MostraPausa(), after == PlayState::Playing);
  }

  void theLoopIsLetRunOnceBeforeTheStateIsRead() {
    Room room;
    room.player.state = PlayState::Stopped;
    room.yielder.onYield = [&](int) { room.player.state = PlayState::Stopped; }; // the file broke at once
    room.control.Image3(VideoControl::TocaOuPara);
    QCOMPARE(room.yielder.Total(), 1);
    QCOMPARE(room.estado.EstadoVideo, 1);
    QVERIFY(!room.control.MostraPausa());
  }

  void goesToAPlace_data() {
    QTest::addColumn<double>("percent");
    QTest::addColumn<double>("duration");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("middle") << 50.0 << 200.0 << QStringList{QStringLiteral("wmp: position 100")};
    QTest::newRow("before the start") << -3.0 << 200.0 << QStringList{QStringLiteral("wmp: position 0")};
    QTest::newRow("behind the end") << 140.0 << 200.0 << QStringList{QStringLiteral("wmp: position 200")};
    QTest::newRow("unknown duration") << 50.0 << 0.0 << QStringList();
  }
  void goesToAPlace() {
    QFETCH(double, percent);
    QFETCH(double, duration);
    Room room;
    room.player.duration = duration;
    room.control.VaiPara(percent);
    QTEST(room.Take(), "calls");
  }

  void stepsStayInside() {
    Room room;
    room.player.position = 3;
    room.control.Anda(-5);
    QCOMPARE(room.player.position, 0.0);
    room.player.position = 190;
    room.control.Anda(30);
    QCOMPARE(room.player.position, 200.0);
  }

  void theVolumeIsKept() {
    Room room;
    room.control.DefineVolume(73);
    QCOMPARE(room.player.volume, 73);
    QCOMPARE(room.estado.VolumeVideo, 73);
  }

  void tellsHowFarItIs() {
    Room room;
    room.player.position = 67.9;
    VideoControl::Progresso seen = room.control.Olha();
    QCOMPARE(seen.Titulo, QStringLiteral("Filme.Um.mp4"));
    QCOMPARE(seen.Label1, QStringLiteral("01:07"));
    QCOMPARE(seen.Label2, QStringLiteral("03:20"));
    QCOMPARE(seen.percentual, 33.95);
    room.player.duration = 0;
    seen = room.control.Olha();
    QCOMPARE(seen.percentual, 0.0);
    QVERIFY(seen.Label1.isEmpty() && seen.Label2.isEmpty());
  }

  void nothingHappensWithoutAProjection() {
    EstadoConsole estado;
    CountingYielder yielder;
    VideoControl control(
        estado, [] { return nullptr; }, yielder);
    for (int button = 0; button < 3; ++button)
      control.Image3(static_cast<VideoControl::Botao>(button));
    control.VaiPara(10);
    control.DefineFaixa(1);
    QVERIFY(!control.TemMidia());
    QVERIFY(control.Olha().Titulo.isEmpty());
  }

  void timesAsClocksWriteThem_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0.0 << "00:00";
    QTest::newRow("not yet a minute") << 59.99 << "00:59";
    QTest::newRow("an hour") << 3600.0 << "1:00:00";
    QTest::newRow("below") << -4.0 << "00:00";
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << "00:00";
  }
  void timesAsClocksWriteThem() {
    QFETCH(double, seconds);
    QTEST(TempoDeMidia(seconds), "text");
  }

  void whatPeoplePasteAsALink_data() {
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("id");
    QTest::newRow("page") << "https://www.youtube.com/watch?list=x&v=Ab-cd_12345&t=4"
                          << "Ab-cd_12345";
    QTest::newRow("short") << "youtu.be/Abcd1234567?t=4"
                           << "Abcd1234567";
    QTest::newRow("embed, in capitals") << "HTTPS://WWW.YOUTUBE.COM/embed/Abcd1234567"
                                        << "Abcd1234567";
    QTest::newRow("another site") << "https://example.org/watch?v=Abcd1234567"
                                  << "";
    QTest::newRow("no video") << "https://www.youtube.com/"
                              << "";
    QTest::newRow("nothing") << ""
                             << "";
  }
  void whatPeoplePasteAsALink() {
    QFETCH(QString, pasted);
    QFETCH(QString, id);
    QTemporaryDir folder;
    const AppFolder app(folder.path());
    const IniStore store(app);
    QCOMPARE(VideoSite(store).LinkDe(pasted), id.isEmpty() ? QString() : QString(u"https://www.youtube.com/embed/" + id));
  }

  void theFolderOfTheChosenOnesIsRemembered() {
    QTemporaryDir folder;
    AppFolder app(folder.path());
    IniStore store(app);
    ScriptedPrompt prompt;
    for (const char *sub : {"Data", "Videos", "Outros"})
      QDir(folder.path()).mkdir(QLatin1String(sub));
    const QString here = folder.filePath(QStringLiteral("Outros/a.mp4"));
    WriteBytes(here, "x");
    QVERIFY(EscolheVideos(store, prompt).isEmpty());
    QCOMPARE(prompt.fileQuestions.last().folder, folder.filePath(QStringLiteral("Videos")));
    prompt.files = {folder.filePath(QStringLiteral("gone.mp4")), here};
    QCOMPARE(EscolheVideos(store, prompt), QStringList{here});
    EscolheVideos(store, prompt);
    QCOMPARE(prompt.fileQuestions.last().folder, folder.filePath(QStringLiteral("Outros")));
  }
};

QTEST_GUILESS_MAIN(TestVideoControl)
#include "test_video_control.moc"
