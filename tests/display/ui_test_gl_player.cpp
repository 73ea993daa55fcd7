#include "display/ui/mpv_player.h"
#include "support/clips.h"
#include "support/x_desktop.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// The player that draws with GL, whose renderer comes with the first show of its widget. It needs a real X server; the
// GL of this one is emulated.
class TestGlPlayer : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;
  QString m_clip;
  QString m_mute; // without a sound, so that its picture is all it has
  std::unique_ptr<QWidget> m_window;
  std::unique_ptr<QWidget> m_other;
  QWidget *m_host = nullptr;
  std::unique_ptr<MpvPlayer> m_player;

  QColor Centre() { return m_window->grab().toImage().pixelColor(m_window->rect().center()); }

private slots:
  void initTestCase() {
    qputenv("TOLMIRA_AO", "null");
    m_clip = MakeRedClip(m_folder.filePath(QStringLiteral("clip.mp4")));
    QVERIFY(!m_clip.isEmpty());
    m_mute = MakeMedia(m_folder.filePath(QStringLiteral("mute.mp4")),
                       "-f lavfi -i color=red:size=160x120:rate=25:duration=3 -c:v mpeg4");
    QVERIFY(!m_mute.isEmpty());
  }
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 180);
    m_host = new QWidget(m_window.get());
    m_host->resize(320, 180);
    m_player = std::make_unique<MpvPlayer>(m_host, VideoDrawing::Gl, nullptr);
  }
  void cleanup() {
    m_player.reset(); // before its place
    m_other.reset();
    m_window.reset();
  }

  void plays() {
    m_window->show();
    m_player->SetUrl(m_clip);
    QTRY_VERIFY(m_player->TemImagem());
    QTRY_VERIFY(IsReddish(Centre()));
    QTRY_COMPARE(m_player->State(), PlayState::Ended);
    QVERIFY(!m_player->SemImagem());
  }

  // The projector is unplugged, or the operator has hidden the projection, when the video begins.
  void aPictureComesWithTheWindow_data() {
    QTest::addColumn<bool>("sound");
    QTest::newRow("with a sound") << true;
    QTest::newRow("mute") << false;
  }
  void aPictureComesWithTheWindow() {
    QFETCH(bool, sound);
    m_player->SetLoop(true);
    m_player->SetUrl(sound ? m_clip : m_mute);
    QTRY_VERIFY(m_player->CurrentPosition() > 0.2);
    QVERIFY(!m_player->TemImagem());
    QVERIFY(!m_player->SemImagem());
    m_window->show();
    QTRY_VERIFY(m_player->TemImagem());
    QTRY_VERIFY(IsReddish(Centre()));
    QVERIFY(!m_player->Falhou());
    QCOMPARE(m_player->State(), PlayState::Playing);
  }

  // A widget that comes to another window gets another context.
  void theRendererGoesAndComes_data() { aPictureComesWithTheWindow_data(); }
  void theRendererGoesAndComes() {
    QFETCH(bool, sound);
    m_window->show();
    m_player->SetLoop(true);
    m_player->SetUrl(sound ? m_clip : m_mute);
    QTRY_VERIFY(m_player->TemImagem());
    m_player->SetCurrentPosition(1);
    QTRY_VERIFY(m_player->CurrentPosition() > 1);
    m_other = std::make_unique<QWidget>();
    m_other->resize(320, 180);
    m_host->setParent(m_other.get());
    m_other->show();
    m_host->show();
    QTRY_VERIFY(m_player->TemImagem());
    QTRY_VERIFY(IsReddish(m_other->grab().toImage().pixelColor(160, 90)));
    QVERIFY(!m_player->Falhou());
    QCOMPARE(m_player->State(), PlayState::Playing);
  }
};

int main(int argc, char *argv[]) {
  const XDesktop desktop(140, 149);
  if (!desktop.Stands()) {
    qCritical("No desktop to draw on: %s", qPrintable(desktop.Reason()));
    return 1;
  }
  qputenv("DISPLAY", desktop.Display().toLatin1());
  qputenv("QT_QPA_PLATFORM", "xcb");
  qunsetenv("QT_XCB_GL_INTEGRATION");
  QApplication app(argc, argv);
  TestGlPlayer test;
  return QTest::qExec(&test, argc, argv);
}

#include "ui_test_gl_player.moc"
