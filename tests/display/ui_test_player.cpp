#include "display/ui/mpv_player.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;

namespace {

class MediaListener : public DisplayObserver {
public:
  void OnCommand(const QString &) override {}
  void OnScript(const QString &, const QString &) override {}
  void OnNavigate(const QString &, const QString &) override {}
  void OnMedia(const QString &call) override { calls.append(call); }
  QStringList calls;
};

// Red pictures of 4:3 with a tone, two seconds long.
QString MakeClip(const QString &folder, const QString &name) {
  const QString path = folder + u'/' + name;
  QProcess maker;
  maker.start(QStringLiteral("ffmpeg"),
              {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
               QStringLiteral("-i"), QStringLiteral("color=red:size=160x120:rate=25:duration=2"), QStringLiteral("-f"),
               QStringLiteral("lavfi"), QStringLiteral("-i"), QStringLiteral("sine=duration=2"), QStringLiteral("-c:v"),
               QStringLiteral("mpeg4"), QStringLiteral("-c:a"), QStringLiteral("aac"), path});
  return maker.waitForFinished(30000) && maker.exitCode() == 0 ? path : QString();
}

bool IsReddish(const QColor &colour) {
  return colour.red() > 180 && colour.green() < 60 && colour.blue() < 60;
}

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
    if (QStandardPaths::findExecutable(QStringLiteral("ffmpeg")).isEmpty())
      QSKIP("no ffmpeg to make a clip with");
    m_clip = MakeClip(m_folder.path(), QStringLiteral("Vídeo Um.mp4"));
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

  void aFileThatCannotBePlayedStops() {
    m_player->SetUrl(m_folder.filePath(QStringLiteral("missing.mp4")));
    QTRY_COMPARE(m_player->State(), PlayState::Stopped);
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
