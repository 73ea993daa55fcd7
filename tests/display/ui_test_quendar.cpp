#include "display/FrmQuendar.h"
#include "display/ui/web_page_host.h"
#include "support/clips.h"
#include "support/fake_clock.h"
#include "support/web_fixture.h"

#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

using namespace tolmira;
using namespace tolmira::testing;

class TestQuendar : public QObject {
  Q_OBJECT

  QTemporaryDir m_media;
  QString m_clip;
  QString m_sound; // which has the name of a video
  std::unique_ptr<QTemporaryDir> m_folder;
  std::unique_ptr<AppFolder> m_app;
  std::unique_ptr<EstadoConsole> m_estado;
  EstadoLegenda m_legenda;
  std::unique_ptr<FakeClock> m_clock;
  PageProfile m_profile;
  std::unique_ptr<FrmQuendar> m_window;

  std::unique_ptr<FrmQuendar> NewWindow() {
    return std::make_unique<FrmQuendar>(
        FrmQuendar::Parts{*m_estado, m_legenda, *m_app, *m_clock, nullptr, nullptr, VideoDrawing::Software, m_profile});
  }
  QWidget *Layer(const char *name) { return m_window->findChild<QWidget *>(QLatin1String(name)); }
  QColor Centre() { return m_window->grab().toImage().pixelColor(m_window->rect().center()); }
  QString Picture(const QString &name, const QColor &left, const QColor &right) {
    QImage image(200, 400, QImage::Format_RGB32);
    image.fill(left);
    for (int y = 0; y < image.height(); ++y)
      for (int x = 100; x < 200; ++x)
        image.setPixelColor(x, y, right);
    const QString path = m_folder->filePath(name);
    return image.save(path) ? path : QString();
  }
  void ShowPage(const QString &colour) {
    const QString path = m_folder->filePath(QStringLiteral("page.html"));
    WriteText(path, QStringLiteral(
                        "<body style='margin:0;background:%1'><div id=texto></div><script>function ChangeCSS(a,b,c)"
                        "{document.getElementById(a).style[b]=c}</script>")
                        .arg(colour));
    m_window->ProcessaComando(u"CarregaTema|#file:///" + path);
  }

  static bool IsRed(const QColor &colour) { return colour.red() > 180 && colour.green() < 60; }

  // A red video on the projection, in a program folder that has the pages for a notice over it.
  bool PlayRed() {
    const QDir assets(qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + QStringLiteral("/assets/html"));
    QDir(m_folder->path()).mkdir(QStringLiteral("html"));
    for (const char *name : {"emptyback.html", "aviso.html", "tolmira.css", "tolmira.js", "aviso.js"})
      QFile::copy(assets.filePath(QLatin1String(name)), m_folder->filePath(u"html/" + QLatin1String(name)));
    if (!m_window->CriaBrowser())
      return false;
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->ProcessaComando(u"Video|#" + m_clip);
    return QTest::qWaitFor([this] { return IsRed(Centre()); }, 20000);
  }
  void SendNotice() {
    m_window->ProcessaComando(QStringLiteral("AVISO:|#aviso|#top|#20|#10|#1|##0000FF|##FFFFFF|#"));
  }
  QColor InBand() { return m_window->grab().toImage().pixelColor(m_window->width() / 2, m_window->height() / 20); }
  bool BandComesWithoutAFlash() {
    bool flashed = false;
    [&] {
      QTRY_VERIFY_WITH_TIMEOUT((flashed = flashed || !IsRed(Centre()), InBand() == QColor(0, 0, 255)), 20000);
    }();
    return !flashed && InBand() == QColor(0, 0, 255);
  }

private slots:
  void initTestCase() {
    qputenv("TOLMIRA_AO", "null");
    m_profile = NewPageProfile();
    m_clip = MakeRedClip(m_media.filePath(QStringLiteral("clip.mp4")));
    QVERIFY(!m_clip.isEmpty());
    m_sound = MakeMedia(m_media.filePath(QStringLiteral("sound.mp4")), "-f lavfi -i sine=duration=5 -c:a aac");
    QVERIFY(!m_sound.isEmpty());
  }
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_folder = std::make_unique<QTemporaryDir>();
    m_app = std::make_unique<AppFolder>(m_folder->path());
    m_estado = std::make_unique<EstadoConsole>();
    m_clock = std::make_unique<FakeClock>();
    m_window = NewWindow();
    m_window->resize(400, 200);
  }
  void cleanup() {
    m_window.reset();
    m_folder.reset();
  }
  void cleanupTestCase() { m_profile.reset(); }

  void beginsInvisibleTransparentAndWithoutFocus() {
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_window->Alfa(), 0);
    QVERIFY(!m_window->DisplayVisivel());
    QVERIFY(m_window->WV() == nullptr);
    QVERIFY(m_window->wmp() != nullptr);
    QVERIFY(m_window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    QVERIFY(Layer("PicTelaPreta")->isHidden());
  }

  void beginsBlackOnceTheConsoleIsThere() {
    m_estado->ConsoleCarregado = true;
    m_window = NewWindow();
    QVERIFY(!Layer("PicTelaPreta")->isHidden());
  }

  void fadesInByTwenty() {
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_clock->Advance(16);
    QCOMPARE(m_window->Alfa(), 20);
    m_clock->Advance(16 * 11);
    QCOMPARE(m_window->Alfa(), 240);
    m_clock->Advance(16);
    QCOMPARE(m_window->Alfa(), 255);
    QCOMPARE(m_clock->ActiveTimers(), 0);
  }

  void visibilityFollowsTheCommands() {
    m_window->ProcessaComando(QStringLiteral("Show"));
    QVERIFY(m_window->isVisible());
    m_window->ProcessaComando(QStringLiteral("Hide"));
    QVERIFY(!m_window->isVisible());
    m_window->ProcessaComando(QStringLiteral("xyz"));
    QVERIFY(!m_window->isVisible());
    m_window->ProcessaComando(QStringLiteral("Normal"));
    QVERIFY(m_window->isVisible());
  }

  void topmostChangesWithoutANewWindow() {
    m_window->ProcessaComando(QStringLiteral("Show"));
    QWindow *native = m_window->windowHandle();
    const WId id = m_window->winId();
    QSignalSpy visible(native, &QWindow::visibleChanged);
    m_window->ProcessaComando(QStringLiteral("NoTopMost"));
    QVERIFY(!native->flags().testFlag(Qt::WindowStaysOnTopHint));
    m_window->ProcessaComando(QStringLiteral("Show"));
    QVERIFY(native->flags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(m_window->winId(), id);
    QCOMPARE(visible.count(), 0);
    QVERIFY(m_window->isVisible());
  }

  void aLostScreenHidesItUntilItIsPlacedAgain() {
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->Esconde();
    QVERIFY(!m_window->isVisible());
    m_window->ProcessaComando(QStringLiteral("UpdateText|#x|#|#|#"));
    QVERIFY(!m_window->isVisible());
    QVERIFY(m_window->DisplayVisivel());
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    QVERIFY(m_window->isVisible());
  }

  void theLayersCoverEachOther() {
    QVERIFY(m_window->CriaBrowser());
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("Show"));
    ShowPage(QStringLiteral("#00ff00"));
    QTRY_COMPARE(Centre(), QColor(0, 255, 0));
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#TRUE"));
    QCOMPARE(Centre(), QColor(0, 0, 0));
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#false"));
    QCOMPARE(Centre(), QColor(0, 255, 0));

    const QString picture = Picture(QStringLiteral("Logo.png"), QColor(255, 0, 0), QColor(0, 0, 255));
    m_window->ProcessaComando(u"PadraDeFundo|#" + picture);
    const QImage shown = m_window->grab().toImage();
    // Half as wide as high, so it is enlarged to the whole width and cut above and below.
    QCOMPARE(shown.pixelColor(20, 100), QColor(255, 0, 0));
    QCOMPARE(shown.pixelColor(shown.width() - 20, 100), QColor(0, 0, 255));
    QCOMPARE(shown.pixelColor(20, shown.height() - 1), QColor(255, 0, 0));
    QVERIFY(!Layer("PicTelaPreta")->isHidden());
    m_window->ProcessaComando(QStringLiteral("Normal"));
    QCOMPARE(Centre(), QColor(0, 255, 0));
    QVERIFY(Layer("PicTelaPreta")->isHidden());
  }

  void aMissingPictureLeavesTheOldOne() {
    m_window->ProcessaComando(QStringLiteral("Show"));
    const QColor red(255, 0, 0);
    m_window->ProcessaComando(u"PadraDeFundo|#" + Picture(QStringLiteral("a.png"), red, red));
    m_window->ProcessaComando(u"PadraDeFundo|#" + m_folder->filePath(QStringLiteral("missing.png")));
    QCOMPARE(Centre(), red);
    WriteText(m_folder->filePath(QStringLiteral("broken.png")), QStringLiteral("\x89PNG no picture"));
    m_window->ProcessaComando(u"PadraDeFundo|#" + m_folder->filePath(QStringLiteral("broken.png")));
    QCOMPARE(Centre(), red);
  }

  void theVideoLayerComesInFrontOfThePage() {
    QVERIFY(m_window->CriaBrowser());
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("html")));
    WriteText(m_folder->filePath(QStringLiteral("html/emptyback.html")),
              QStringLiteral("<body style='background:#0f0'>"));
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->ProcessaComando(u"Video|#" + m_clip);
    QTRY_VERIFY(Centre().red() > 180 && Centre().green() < 60);
    QCOMPARE(m_window->wmp()->Volume(), 50);
    QCOMPARE(Layer("Picwmp")->geometry(), m_window->rect());
    // Neither black nor the green page lies between the video and the page behind it.
    ShowPage(QStringLiteral("#0000ff"));
    while (Centre() != QColor(0, 0, 255)) {
      QVERIFY(Centre().red() > 180 && Centre().green() < 60);
      QTest::qWait(5);
    }
    QVERIFY(m_window->wmp()->Url().isEmpty());
  }

  void soundAloneNeverCoversThePage() {
    QVERIFY(m_window->CriaBrowser());
    m_window->ProcessaComando(QStringLiteral("Show"));
    ShowPage(QStringLiteral("#0000ff"));
    QTRY_COMPARE(Centre(), QColor(0, 0, 255));
    m_window->PreparaVideo();
    m_window->MostraMidia();
    m_window->wmp()->SetUrl(m_sound);
    QTRY_VERIFY(m_window->wmp()->SemImagem());
    QCOMPARE(Centre(), QColor(0, 0, 255));
    QCOMPARE(m_window->wmp()->CurrentPosition(), 0.0);
    m_window->EscondeMidia();
    QTRY_VERIFY(m_window->wmp()->CurrentPosition() > 0.1);
    QCOMPARE(Centre(), QColor(0, 0, 255));
  }

  // However long the file takes to open: the empty page beneath the media is not seen.
  void thePageBeforeStaysUntilTheVideoHasItsPicture() {
    QVERIFY(m_window->CriaBrowser());
    m_window->ProcessaComando(QStringLiteral("Show"));
    ShowPage(QStringLiteral("#0000ff"));
    QTRY_COMPARE(Centre(), QColor(0, 0, 255));
    const QString empty = m_folder->filePath(QStringLiteral("empty.html"));
    WriteText(empty, QStringLiteral("<body style='background:#0f0'>"));
    m_window->WV()->Navigate(empty, 8);
    m_window->PreparaVideo();
    m_window->MostraMidia();
    QString drawnLongAgo;
    while (drawnLongAgo != u"true") {
      m_window->WV()->Evaluate(QStringLiteral("performance.now() > 500"),
                               [&](const QString &json) { drawnLongAgo = json; });
      QTest::qWait(5);
      QCOMPARE(Centre(), QColor(0, 0, 255));
    }
    m_window->wmp()->SetUrl(m_clip);
    while (!IsReddish(Centre())) {
      QCOMPARE(Centre(), QColor(0, 0, 255));
      QTest::qWait(5);
    }
    m_window->wmp()->SetUrl(QStringLiteral("/none.mp4"));
    QTRY_COMPARE(Centre(), QColor(0, 255, 0));
  }

  // The page above the layers: seen through where it draws nothing, beneath the black, and gone with its notice.
  void aNoticeRunsOverTheVideo() {
    QVERIFY(PlayRed());
    const QColor before = InBand();
    SendNotice();
    QVERIFY(BandComesWithoutAFlash());
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#true"));
    QCOMPARE(InBand(), QColor(0, 0, 0));
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#false"));
    QCOMPARE(InBand(), QColor(0, 0, 255));
    m_window->ProcessaComando(QStringLiteral("CancelaAviso"));
    QTRY_VERIFY(!m_window->WVAviso());
    QCOMPARE(InBand(), before);
  }

  void aDeadPageOfNoticesFlashesNothing() {
    QVERIFY(PlayRed());
    SendNotice();
    QVERIFY(BandComesWithoutAFlash());
    KillRenderProcesses();
    SendNotice(); // nobody can know yet that it died
    bool flashed = false;
    QTRY_VERIFY_WITH_TIMEOUT((flashed = flashed || !IsRed(Centre()), !m_window->WVAviso()), 20000);
    QVERIFY(!flashed);
    SendNotice();
    QVERIFY(BandComesWithoutAFlash());
  }

  void aNoticeIsNotSeenAgainWhenTheWindowComesBack() {
    QVERIFY(PlayRed());
    const QColor before = InBand();
    SendNotice();
    QVERIFY(BandComesWithoutAFlash());
    m_window->ProcessaComando(QStringLiteral("Hide"));
    m_window->hide();
    m_window->show();
    QCOMPARE(InBand(), before); // its old frame is not shown
    QTRY_COMPARE(InBand(), QColor(0, 0, 255)); // it still runs
  }

  void aNoticeThatHasNoPageLeavesNothing() {
    QVERIFY(m_window->CriaBrowser());
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->ProcessaComando(QStringLiteral("YOUTUBE:|#http://127.0.0.1:1/|#"));
    m_window->ProcessaComando(QStringLiteral("AVISO:|#aviso|#top|#20|#10|#1|##0000FF|##FFFFFF|#"));
    QVERIFY(m_window->WVAviso());
    QTRY_VERIFY(!m_window->WVAviso());
  }

  void theGripComesAndGoes() {
    m_estado->ConsoleCarregado = true;
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#true"));
    QTRY_VERIFY(m_window->isFullScreen());
    QVERIFY(Layer("PicMove")->isHidden());
    QTest::mouseMove(Layer("PicTelaPreta"), {200, 100});
    QTRY_VERIFY(!Layer("PicMove")->isHidden());
    QVERIFY(Layer("Label7")->isHidden());
    m_clock->Advance(10000);
    QVERIFY(Layer("PicMove")->isHidden());

    QTest::mouseClick(Layer("PicTelaPreta"), Qt::LeftButton);
    QVERIFY(!m_window->isFullScreen());
    QVERIFY(!Layer("PicMove")->isHidden());
    QVERIFY(!Layer("Label7")->isHidden());
    m_clock->Advance(10000);
    QVERIFY(!Layer("PicMove")->isHidden());
    QTest::mouseClick(Layer("Label7"), Qt::LeftButton);
    QVERIFY(m_window->isFullScreen());
  }

  void theGripGoesFromAProjectorThatWasPlacedAnew() {
    m_estado->ConsoleCarregado = true;
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#true"));
    QTRY_VERIFY(m_window->isFullScreen());
    QTest::mouseMove(Layer("PicTelaPreta"), {150, 90});
    QTRY_VERIFY(!Layer("PicMove")->isHidden());
    // On its way it is a normal window, where the strip has no timer.
    m_window->Posiciona(QRect(0, 0, 500, 300), true);
    m_clock->Advance(10000);
    QVERIFY(Layer("PicMove")->isHidden());
  }

  void theMouseDoesNothingBeforeTheConsoleIsThere() {
    m_window->Posiciona(QRect(0, 0, 400, 200), true);
    m_window->ProcessaComando(QStringLiteral("TelaPreta|#true"));
    QTest::mouseClick(Layer("PicTelaPreta"), Qt::LeftButton);
    QVERIFY(m_window->isFullScreen());
    QVERIFY(Layer("PicMove")->isHidden());
  }

  void reportsItsSizeWhileTheConsoleLoads() {
    int calls = 0;
    m_window->PosicaoInicial = [&] { ++calls; };
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->resize(500, 300);
    QTRY_VERIFY(calls > 0);
    QCOMPARE(m_window->SizePx(), QSize(500, 300));
    QCOMPARE(m_window->PicWV()->geometry(), QRect(0, 0, 500, 300));
    m_estado->ConsoleCarregado = true;
    QCoreApplication::processEvents();
    calls = 0;
    m_window->resize(600, 300);
    QTRY_COMPARE(m_window->PicWV()->width(), 600);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
  }

  void fecharLetsGo() {
    int unloaded = 0;
    m_window->OnUnload = [&] { ++unloaded; };
    m_window->ProcessaComando(QStringLiteral("Show"));
    m_window->ProcessaComando(QStringLiteral("Fechar"));
    QVERIFY(!m_window->isVisible());
    QCOMPARE(unloaded, 1);
  }
};

QTEST_MAIN(TestQuendar)
#include "ui_test_quendar.moc"
