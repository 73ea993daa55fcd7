#include "display/ui/mpv_player.h"
#include "support/clips.h"
#include "support/files.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

class MediaListener : public DisplayObserver {
public:
  void OnCommand(const QString &) override {}
  void OnScript(const QString &, const QString &) override {}
  void OnNavigate(const QString &, const QString &) override {}
  void OnMedia(const QString &call) override { calls.append(call); }
  QStringList calls;
};

} // namespace

class TestPlayer : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;
  QString m_clip;
  std::unique_ptr<QWidget> m_host;
  std::unique_ptr<MpvPlayer> m_player;
  MediaListener m_listener;

  QColor Centre() { return m_host->grab().toImage().pixelColor(m_host->rect().center()); }

private slots:
  void initTestCase() {
    qputenv("TOLMIRA_AO", "null");
    m_clip = MakeRedClip(m_folder.filePath(QStringLiteral("Vídeo Um.mp4")));
    QVERIFY(!m_clip.isEmpty());
  }
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_listener.calls.clear();
    m_host = std::make_unique<QWidget>();
    m_host->resize(320, 180);
    m_player = std::make_unique<MpvPlayer>(m_host.get(), VideoDrawing::Software, &m_listener);
    m_host->show();
  }
  void cleanup() {
    m_player.reset();
    m_host.reset();
  }

  void makesNothingBeforeTheFirstFile() {
    QCOMPARE(m_player->State(), PlayState::Undefined);
    m_player->ControlsPlay();
    m_player->SetVolume(30);
    m_player->Close();
    QVERIFY(m_host->children().isEmpty());
    QCOMPARE(m_player->State(), PlayState::Undefined);
  }

  void playsAtOnceFromAStoredPath() {
    const QString stored =
        QString(m_clip).replace(u'/', u'\\').replace(QStringLiteral("Um.mp4"), QStringLiteral("UM.MP4"));
    m_player->SetUrl(stored);
    QCOMPARE(m_player->Url(), stored);
    QCOMPARE(m_player->State(), PlayState::Playing);
    QTRY_VERIFY(IsReddish(Centre()));
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
    QVERIFY(qAbs(m_player->MediaDuration() - 2.0) < 0.2);
  }

  void keepsTheProportions() {
    m_player->SetStretchToFit(true);
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(IsReddish(Centre()));
    const QImage picture = m_host->grab().toImage();
    QCOMPARE(picture.pixelColor(10, 90), QColor(0, 0, 0)); // 4:3 in 16:9 leaves 40 pixels on each side
    QVERIFY(IsReddish(picture.pixelColor(48, 10)));
    QVERIFY(IsReddish(picture.pixelColor(271, 170)));
  }

  void pausesSeeksAndStops() {
    m_player->SetUrl(m_clip);
    m_player->ControlsPause();
    QCOMPARE(m_player->State(), PlayState::Paused);
    m_player->SetCurrentPosition(1.5);
    QTRY_VERIFY(IsReddish(Centre()));
    QTRY_VERIFY(qAbs(m_player->CurrentPosition() - 1.5) < 0.1);
    m_player->ControlsStop();
    QCOMPARE(m_player->State(), PlayState::Stopped);
    QCOMPARE(m_player->CurrentPosition(), 0.0);
    QTRY_COMPARE(Centre(), QColor(0, 0, 0));
    m_player->ControlsPlay();
    QCOMPARE(m_player->State(), PlayState::Playing);
    QTRY_VERIFY(IsReddish(Centre()));
    QTRY_VERIFY(m_player->CurrentPosition() > 0.1);
  }

  void endsAndPlaysAgain() {
    m_player->SetUrl(m_clip);
    m_player->SetCurrentPosition(1.8);
    QTRY_COMPARE(m_player->State(), PlayState::Ended);
    m_player->ControlsPlay();
    QCOMPARE(m_player->State(), PlayState::Playing);
    QTRY_VERIFY(m_player->CurrentPosition() > 0.1 && m_player->CurrentPosition() < 1.5);
  }

  void loopsWhenAsked() {
    m_player->SetLoop(true);
    m_player->SetUrl(m_clip);
    m_player->SetCurrentPosition(1.7);
    QTRY_VERIFY(m_player->CurrentPosition() > 1.6);
    QTRY_VERIFY(m_player->CurrentPosition() < 1.0);
    QCOMPARE(m_player->State(), PlayState::Playing);
  }

  // Counted in the sound that goes out: what is asked for with the file plays nothing else before, and nothing twice.
  void isHeardFromWhereItShallBegin_data() {
    QTest::addColumn<double>("from");
    QTest::newRow("from the start") << 0.0;
    QTest::newRow("from the middle") << 1.5;
  }
  void isHeardFromWhereItShallBegin() {
    QFETCH(double, from);
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder.path())); // where the sound goes
    qputenv("TOLMIRA_AO", "pcm");
    m_player->SetUrl(m_clip);
    m_player->ControlsStop();
    m_player->ControlsPlay();
    if (from > 0)
      m_player->SetCurrentPosition(from);
    QTRY_COMPARE(m_player->State(), PlayState::Ended);
    qputenv("TOLMIRA_AO", "null");
    m_player.reset(); // which ends the sound's file
    QDir::setCurrent(before);
    constexpr double BytesASecond = 44100 * 4; // one channel, floating
    const double heard =
        static_cast<double>(QFileInfo(m_folder.filePath(QStringLiteral("audiodump.wav"))).size()) / BytesASecond;
    QVERIFY2(qAbs(heard - (2 - from)) < 0.1, qPrintable(QString::number(heard)));
  }

  void aLoopGoesBackToTheVeryStart() {
    m_player->SetLoop(true);
    m_player->SetUrl(m_clip);
    m_player->SetCurrentPosition(1.5);
    QTRY_VERIFY(m_player->CurrentPosition() > 1.6);
    QTRY_VERIFY(m_player->CurrentPosition() < 0.5);
  }

  void closeForgetsTheFile() {
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(IsReddish(Centre()));
    m_player->Close();
    QVERIFY(m_player->Url().isEmpty());
    QCOMPARE(m_player->MediaDuration(), 0.0);
    QTRY_COMPARE(Centre(), QColor(0, 0, 0));
    m_player->ControlsPlay();
    QCOMPARE(m_player->State(), PlayState::Undefined);
  }

  void oddMedia_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<bool>("picture");
    QTest::addColumn<int>("sounds");
    QTest::newRow("no sound") << "s.mp4"
                              << "-f lavfi -i color=red:size=64x48:rate=10:duration=1 -c:v mpeg4" << true << 0;
    QTest::newRow("sound alone") << "a.m4a"
                                 << "-f lavfi -i sine=duration=1 -c:a aac" << false << 1;
    QTest::newRow("two languages") << "t.mkv"
                                   << "-f lavfi -i color=red:size=64x48:rate=10:duration=1 -f lavfi -i sine=duration=1 "
                                      "-map 0 -map 1 -map 1 -metadata:s:a:0 language=por -metadata:s:a:1 language=eng "
                                      "-metadata:s:a:1 title=Translation -c:v mpeg4 -c:a aac"
                                   << true << 2;
    QTest::newRow("pictures at uneven times")
        << "v.mkv"
        << "-f lavfi -i color=red:size=64x48:rate=30:duration=1 -vf select=not(mod(n\\,7))+lt(n\\,5) -vsync vfr -c:v mpeg4"
        << true << 0;
  }
  void oddMedia() {
    QFETCH(QString, name);
    QFETCH(QString, arguments);
    QFETCH(bool, picture);
    QFETCH(int, sounds);
    const QString path = MakeMedia(m_folder.filePath(name), arguments.toLatin1().constData());
    QVERIFY(!path.isEmpty());
    m_player->SetUrl(path);
    if (picture)
      QTRY_VERIFY(IsReddish(Centre()));
    QTRY_COMPARE(m_player->State(), PlayState::Ended);
    QCOMPARE(m_player->TemImagem(), picture);
    QCOMPARE(m_player->SemImagem(), !picture);
    QVERIFY(!m_player->Falhou());
    QCOMPARE(m_player->FaixasDeAudio().size(), sounds);
    if (sounds < 2)
      return;
    QCOMPARE(m_player->FaixasDeAudio().first().nome, QStringLiteral("por"));
    QCOMPARE(m_player->FaixasDeAudio().last().nome, QStringLiteral("Translation, eng"));
    QCOMPARE(m_player->FaixaDeAudioAtual(), 1);
    m_player->DefineFaixaDeAudio(2);
    QTRY_COMPARE(m_player->FaixaDeAudioAtual(), 2);
    m_player->SetUrl(m_clip); // a choice is for one file
    QTRY_COMPARE(m_player->FaixaDeAudioAtual(), 1);
  }

  // The picture of the file before is never seen again under the name of the next.
  void uncoversThePictureOfThePresentFile() {
    const QString blue = MakeMedia(m_folder.filePath(QStringLiteral("blue.mp4")),
                                   "-f lavfi -i color=blue:size=160x120:rate=25:duration=2 -c:v mpeg4");
    QVERIFY(!m_player->TemImagem());
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(IsReddish(Centre()));
    int changes = 0;
    m_player->OnImagem = [&] {
      ++changes;
      QVERIFY(!m_player->TemImagem() || changes == 2);
    };
    m_player->SetUrl(blue);
    QVERIFY(!m_player->TemImagem());
    QCOMPARE(Centre(), QColor(0, 0, 0));
    QTRY_VERIFY(m_player->TemImagem());
    QTRY_VERIFY(Centre().blue() > 180);
    QCOMPARE(changes, 2);
  }

  void whatCannotBePlayedIsTold_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << "e.mp4" << QByteArray();
    QTest::newRow("noise") << "n.mp4" << QByteArray(4096, '\x5a');
    QTest::newRow("half of a header") << "h.mp4" << QByteArray("\0\0\0 ftypisom\xff\xff\xff\xffmoov", 20);
    QTest::newRow("a list of others") << "l.mp4" << QByteArray("#EXTM3U\n%1\n");
    QTest::newRow("a list by another road") << "r.mkv" << QByteArray("ffconcat version 1.0\nfile '%1'\n");
    QTest::newRow("a list beside its files") << "b.mkv" << QByteArray("ffconcat version 1.0\nfile '%2'\n");
    QTest::newRow("a list of parts") << "d.mp4" << QByteArray("# mpv EDL v0\n%1,0,1\n");
    QTest::newRow("a list of tracks") << "c.mp4"
                                      << QByteArray("FILE \"%2\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    QTest::newRow("a list of pieces beside it")
        << "q.mp4" << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\npiece.ts\n#EXT-X-ENDLIST\n");
    QTest::newRow("an address") << "av://lavfi:color=red" << QByteArray();
    QTest::newRow("a list of pieces") << "p.mp4"
                                      << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\nhttp://127.0.0.1:9/x.ts\n"
                                                    "#EXT-X-ENDLIST\n");
  }
  void whatCannotBePlayedIsTold() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QVERIFY(
        !MakeMedia(m_folder.filePath(QStringLiteral("piece.ts")), "-f lavfi -i sine=duration=1 -c:a aac").isEmpty());
    const bool address = name.contains(u"://");
    const QString path = address ? name : m_folder.filePath(name);
    if (!address)
      WriteBytes(path, bytes.replace("%1", m_clip.toUtf8()).replace("%2", QFileInfo(m_clip).fileName().toUtf8()));
    m_player->SetUrl(path);
    m_player->ControlsStop();
    m_player->ControlsPlay();
    QTRY_VERIFY(m_player->Falhou());
    QCOMPARE(m_player->State(), PlayState::Stopped);
    QCOMPARE(m_player->MediaDuration(), 0.0);
    QVERIFY(!m_player->TemImagem());
  }

  // Its picture is in a format that nobody knows.
  void whatCannotBeDecodedHasSoundAlone() {
    const QString path = MakeRedClip(m_folder.filePath(QStringLiteral("unknown.mkv")));
    QByteArray clip = ReadBytes(path);
    const auto format = clip.indexOf("V_MPEG4");
    QVERIFY(format > 0);
    WriteBytes(path, clip.replace(format, 7, "V_OTHER"));
    m_player->SetUrl(path);
    QTRY_VERIFY(m_player->SemImagem());
    QVERIFY(m_player->ImagemIlegivel());
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
    QVERIFY(!m_player->Falhou());
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(m_player->TemImagem());
    QVERIFY(!m_player->SemImagem());
  }

  // A sound with the name of a video is begun once, when it is known what it is.
  void waitsForAPicture() {
    const QString sound =
        MakeMedia(m_folder.filePath(QStringLiteral("sound.mp4")), "-f lavfi -i sine=duration=1 -c:a aac");
    m_player->SetEsperaImagem(true);
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
    m_player->SetUrl(sound);
    QTRY_VERIFY(m_player->SemImagem());
    QCOMPARE(m_player->State(), PlayState::Playing);
    QTRY_VERIFY(m_player->MediaDuration() > 0);
    QCOMPARE(m_player->CurrentPosition(), 0.0);
    m_player->SetEsperaImagem(false);
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
  }

  // What counts is that the program goes on and plays the next file.
  void mediaThatBreaksWhilePlaying() {
    const QString path = m_folder.filePath(QStringLiteral("cut.mkv"));
    QVERIFY(!MakeMedia(path, "-f lavfi -i testsrc2=size=640x360:rate=25:duration=4 -c:v mpeg4 -b:v 20M").isEmpty());
    m_player->SetUrl(path);
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
    QVERIFY(QFile::resize(path, 60000));
    m_player->SetCurrentPosition(3);
    QTRY_VERIFY(m_player->State() != PlayState::Playing);
    m_player->SetCurrentPosition(0);
    m_player->ControlsPlay();
    QVERIFY(QFile::remove(path));
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(IsReddish(Centre()));
    QVERIFY(!m_player->Falhou());
  }

  void aFileThatCannotBePlayedStops() {
    m_player->SetUrl(m_folder.filePath(QStringLiteral("missing.mp4")));
    QTRY_COMPARE(m_player->State(), PlayState::Stopped);
    QVERIFY(m_player->Falhou());
    // It came: a press on play is a new try.
    QVERIFY(QFile::copy(m_clip, m_folder.filePath(QStringLiteral("missing.mp4"))));
    m_player->ControlsPlay();
    QTRY_VERIFY(IsReddish(Centre()));
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(IsReddish(Centre()));
    QCOMPARE(m_player->State(), PlayState::Playing);
  }

  void volumeStaysInItsRange() {
    m_player->SetVolume(140);
    QCOMPARE(m_player->Volume(), 100);
    m_player->SetVolume(-3);
    QCOMPARE(m_player->Volume(), 0);
  }

  void theObserverHearsTheCalls() {
    m_player->SetUrl(m_clip);
    m_player->ControlsPause();
    m_player->SetVolume(7);
    QCOMPARE(m_listener.calls,
             QStringList({u"URL=" + m_clip, QStringLiteral("controls.pause"), QStringLiteral("settings.volume=7")}));
  }
};

QTEST_MAIN(TestPlayer)
#include "ui_test_player.moc"
