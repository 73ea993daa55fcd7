#include "controls/ui/palette.h"
#include "display/ui/web_result_view.h"
#include "foundation/real_path.h"
#include "gallery_room.h"
#include "support/counting_yielder.h"
#include "support/scripted_web.h"
#include "support/sites/picture_site.h"
#include "support/window_walker.h"
#include "support/window_warnings.h"
#include "themes/FrmBrowseImages.h"
#include "themes/FrmImageNet.h"
#include "themes/ui/exibe_miniaturas.h"
#include "themes/ui/theme_windows.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"
#include "web/real_web_client.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QWebEngineView>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The search for pictures, with the real engine showing what a site on this machine has.
class UiTestImageNet : public QObject {
  Q_OBJECT

private:
  struct Room : GalleryRoom {
    enum class Clients { Scripted, Real };
    explicit Room(Clients clients = Clients::Scripted)
        : fetcher(store, clients == Clients::Real ? static_cast<WebClient &>(real) : web), positions(store, yielder),
          windows(
              ThemeDoors{app, store, positions, prompt, &desk, {}, {}, [] { return false; }, &fetcher, &endpoints}) {
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("PesquisaImagens"), site.Host(), file);
      PlayPictures(site);
      web.page = [this](int, const QUrl &url) {
        const bool none = url.query().contains(u"q=nothing");
        return QString::fromUtf8(PicturePage(site.Host(), 1, none ? 0 : 20));
      };
      web.file = [](const PedidoDeDownload &wanted) {
        WriteBytes(MapStoredPath(wanted.arquivo).text(), PictureBytes({64, 36}, "jpg", Qt::blue));
        return FimDoDownload{true, false, wanted.endereco};
      };
      desk.resize(1200, 900);
      positions.SetConsole(&desk);
    }
    void Open(QWidget *owner = nullptr) {
      windows.AbreImageNet(owner);
      window = (owner ? owner : &desk)->findChild<FrmImageNet *>();
      QVERIFY(QTest::qWaitForWindowActive(window));
    }
    template <class Widget> Widget *Find(const char *name) const {
      return window->findChild<Widget *>(QLatin1String(name));
    }
    WebResultView *WB() const { return Find<WebResultView>("WB"); }
    // Waits for a page that a search brings.
    void Search(const QString &term) {
      QSignalSpy ready(WB(), &WebResultView::Pronta);
      Find<QLineEdit>("TxtPesquisa")->setText(term);
      QTest::keyClick(Find<QLineEdit>("TxtPesquisa"), Qt::Key_Return);
      QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty(), 20000);
    }
    QWidget *Drawing(WebResultView *view) const { return view->findChild<QWebEngineView *>()->focusProxy(); }
    QString Strip(const char *name) const {
      return Find<QWidget>(name)->findChild<QLabel *>(QStringLiteral("LabelStatus"))->text();
    }
    // The page takes the keys some time after the window has handed it the focus; one that came too early is lost.
    bool EnterPreview() {
      for (int tries = 0; tries < 20 && !InPreview(); ++tries) {
        QTest::keyClick(Drawing(WB()), Qt::Key_Return);
        for (int turn = 0; turn < 10 && !InPreview(); ++turn)
          QTest::qWait(100);
      }
      return InPreview();
    }
    bool InPreview() const { return window->findChild<QStackedWidget *>()->currentIndex() == 1; }
    QImage Picture() const { return window->grab().toImage(); }
    // A colour that is in the middle of the view.
    QColor Middle(WebResultView *view) const {
      return view->grab().toImage().pixelColor(view->width() / 2, view->height() / 2);
    }

    SiteServer site;
    ScriptedWeb web;
    RealWebClient real;
    PageFetcher fetcher;
    Endpoints endpoints{store};
    CountingYielder yielder;
    FormPositions positions;
    QWidget desk;
    ThemeWindows windows;
    FrmImageNet *window = nullptr;
  };

  static void Keep(Room &room, const char *name) {
    if (const QString folder = qEnvironmentVariable("TOLMIRA_GRABS"); !folder.isEmpty()) {
      QTest::qWait(600);
      for (const QSize &size : {QSize(1, 1), QSize(1400, 900)}) {
        room.window->resize(size.expandedTo(room.window->minimumSizeHint()));
        QTest::qWait(400);
        room.Picture().save(QStringLiteral("%1/%2-%3.png").arg(folder, QLatin1String(name)).arg(room.window->width()));
      }
    }
  }

private slots:
  void initTestCase() {
    ApplyLook(*qApp);
    WebResultView first(nullptr); // what the engine says of itself when it starts
    QSignalSpy ready(&first, &WebResultView::Pronta);
    first.show();
    first.Mostra(QStringLiteral("<html></html>"));
    QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty(), 30000);
  }
  void init() { FailOnWindowWarnings(); }

  void aPictureIsFoundLookedAtAndAdded() {
    Room room;
    room.windows.AbreGaleria({QStringLiteral("FrmSlides"), 1, [](const QString &) {}, {}});
    auto *gallery = room.desk.findChild<FrmBrowseImages *>();
    QTest::mouseClick(gallery->findChild<QPushButton *>(QStringLiteral("CmdInternet")), Qt::LeftButton);
    room.window = gallery->findChild<FrmImageNet *>();
    QVERIFY(room.window && room.window->isModal());
    QVERIFY(QTest::qWaitForWindowActive(room.window));
    Keep(room, "instructions");
    QVERIFY(!room.Find<QPushButton>("Command20")->isEnabled());

    room.Search(QStringLiteral("blue sky"));
    QCOMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("Page 1"));
    QVERIFY(room.Find<QPushButton>("Command20")->isEnabled() && room.Find<QPushButton>("Command21")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(room.Drawing(room.WB())->hasFocus(), 20000);
    Keep(room, "results");

    // By the keys of the page: the first picture has the focus.
    const auto fetched = [&room](const QByteArray &path) {
      for (const SiteRequest &request : room.site.asked)
        if (request.target.startsWith(path))
          return true;
      return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(fetched("/thumbs/1"), 20000);
    QTest::keyClick(room.Drawing(room.WB()), Qt::Key_Right);
    QTest::keyClick(room.Drawing(room.WB()), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(room.InPreview(), 20000);
    QVERIFY(room.Find<QLabel>("LbNome")->text().startsWith(u"view-2.png"));
    QCOMPARE(room.Find<QPushButton>("BtAdicionar")->text(), QStringLiteral("Add this Image."));
    QVERIFY(room.Find<QPushButton>("BtAdicionar")->hasFocus());
    QTRY_VERIFY_WITH_TIMEOUT(fetched("/pictures/view-2.png"), 20000);
    Keep(room, "preview");

    QTest::keyClick(room.Find<QPushButton>("BtAdicionar"), Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(room.Strip("DL1"), QStringLiteral("Added successfully."), 20000);
    QCOMPARE(room.Images(), QStringList{QStringLiteral("view-2.png")});
    QCOMPARE(gallery->findChild<cExibeMiniaturas *>()->Modelo().Nomes(), QStringList{QStringLiteral("view-2.png")});

    // Once more: the name is taken.
    QTest::keyClick(room.Find<QPushButton>("BtAdicionar"), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(room.Find<QWidget>("PicFrmPergunta")->isVisible(), 20000);
    QVERIFY(room.Find<QPushButton>("ManterOsDois")->hasFocus());
    Keep(room, "question");
    QTest::keyClick(room.Find<QPushButton>("ManterOsDois"), Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(room.Images().size(), 2, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(!room.Find<QWidget>("PicFrmPergunta")->isVisible(), 20000);
    QTest::keyClick(room.window, Qt::Key_Escape);
    QVERIFY(!room.InPreview());
    QTest::keyClick(room.Drawing(room.WB()), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!room.window->isVisible(), 20000);
    QVERIFY(room.Said().isEmpty());
  }

  // Nothing stands in for anything here but the site itself.
  void aPictureComesAllTheWay() {
    Room room(Room::Clients::Real);
    room.site.On("/images/search?q=broken", [](const SiteRequest &) { return SiteAnswer::Status(500); });
    room.site.On("/pictures/view-17", [](const SiteRequest &) {
      SiteAnswer answer;
      answer.body = PictureBytes({64, 36}, "jpg");
      answer.ending = SiteAnswer::Ending::CutShort;
      return answer;
    });
    room.Open();
    room.Search(QStringLiteral("sea"));
    QTRY_VERIFY_WITH_TIMEOUT(room.Drawing(room.WB())->hasFocus(), 20000);
    QSignalSpy ready(room.WB(), &WebResultView::Pronta);
    QTest::mouseClick(room.Find<QPushButton>("Command21"), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty(), 20000);
    QCOMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("Page 2"));
    QTRY_VERIFY_WITH_TIMEOUT(room.Drawing(room.WB())->hasFocus(), 20000);

    QVERIFY(room.EnterPreview());
    QTest::keyClick(room.Find<QPushButton>("BtAdicionar"), Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(room.Strip("DL1"), QStringLiteral("Added successfully."), 20000);
    QCOMPARE(room.Images(), QStringList{QStringLiteral("view-16.png")});
    QCOMPARE(room.Mini(), room.Images());

    QTest::keyClick(room.window, Qt::Key_Escape);
    QTest::keyClick(room.Drawing(room.WB()), Qt::Key_Right);
    QVERIFY(room.EnterPreview());
    QTest::keyClick(room.Find<QPushButton>("BtAdicionar"), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(!room.prompt.shown.isEmpty(), 20000);
    QCOMPARE(room.Said(), QStringList{QStringLiteral("File not found.")});
    QCOMPARE(room.Images().size(), 1);

    room.Search(QStringLiteral("broken"));
    QTRY_VERIFY_WITH_TIMEOUT(room.Find<QLineEdit>("TxtPesquisa")->hasFocus(), 20000);
    QVERIFY(!room.Find<QPushButton>("Command21")->isEnabled());
  }

  void theMouseChoosesInThePage() {
    Room room;
    room.Open();
    room.Search(QStringLiteral("sea"));
    QTest::mouseClick(room.Drawing(room.WB()), Qt::RightButton, {}, {80, 60});
    QVERIFY(!room.window->findChild<QMenu *>());
    QTRY_VERIFY_WITH_TIMEOUT(
        (QTest::mouseClick(room.Drawing(room.WB()), Qt::LeftButton, {}, {80, 60}), QTest::qWait(50), room.InPreview()),
        20000);
    QVERIFY(room.Find<QLabel>("LbNome")->text().startsWith(u"view-1.jpg"));

    // While one is on its way no other is looked at.
    room.web.answers = false;
    QTest::keyClick(room.Find<QPushButton>("BtAdicionar"), Qt::Key_Space);
    QVERIFY(room.Find<QPushButton>("ImgDownCancel")->isVisible());
    QTest::keyClick(room.window, Qt::Key_Escape);
    QVERIFY(!room.InPreview());
    emit room.WB()->Clicou(u"1|" + room.site.Host() + u"/pictures/view-2.png");
    QTRY_VERIFY_WITH_TIMEOUT(!room.prompt.shown.isEmpty(), 20000);
    QCOMPARE(room.Said(), QStringList{QStringLiteral("Please wait for the current download to finish.")});
    QTest::mouseClick(room.Find<QPushButton>("ImgDownCancel"), Qt::LeftButton);
    QCOMPARE(room.Strip("DL1"), QStringLiteral("Download canceled."));
  }

  // Tab goes through the page and on; a screen reader meets each picture by its name.
  void thePageIsPartOfTheWindow() {
    Room room;
    room.Open();
    room.Search(QStringLiteral("sea"));
    QWidget *page = room.Drawing(room.WB());
    QTRY_VERIFY_WITH_TIMEOUT(page->hasFocus(), 20000);
    QTest::keyClick(page, Qt::Key_Down);
    QTest::keyClick(page, Qt::Key_End);
    QTest::keyClick(page, Qt::Key_Tab);
    QTRY_COMPARE_WITH_TIMEOUT(QApplication::focusWidget(), room.Find<QPushButton>("Command20"), 20000);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    QTRY_VERIFY_WITH_TIMEOUT(page->hasFocus(), 20000);
    const QStringList faults = SpeechFaults(room.window);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
  }

  void nothingFoundIsSaid() {
    Room room;
    room.Open();
    room.Search(QStringLiteral("nothing"));
    QVERIFY(!room.Find<QPushButton>("Command21")->isEnabled());
    QVERIFY(room.Find<QPushButton>("CmdPesquisar")->isEnabled());
    Keep(room, "nothing");
  }

  void closingEndsWhatIsUnderWay() {
    Room room;
    room.web.answers = false;
    room.Open();
    QTest::mouseClick(room.Find<QPushButton>("BtTema1"), Qt::LeftButton);
    QVERIFY(!room.Find<QPushButton>("BtTema1")->isEnabled());
    Keep(room, "searching");
    room.window->close();
    QCOMPARE(room.web.dropped, 1);
    QTRY_VERIFY_WITH_TIMEOUT(room.WB()->Vazia(), 20000);
    room.Open();
    QVERIFY(room.Find<QPushButton>("BtTema1")->isEnabled());
  }

  // Of two pages the later one stays, and none asks this machine's own network for pictures unless it came from there.
  void theOwnNetworkIsLeftAlone() {
    SiteServer site;
    PlayPictures(site);
    WebResultView view(nullptr);
    QSignalSpy ready(&view, &WebResultView::Pronta);
    view.show();
    const auto page = [&site](int n) -> QString {
      return u"<html><body><img src='" + site.Host() + u"/thumbs/" + QString::number(n) + u"'></body></html>";
    };
    QVERIFY(view.Mostra(page(1)));
    QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty(), 20000);
    QVERIFY(view.Mostra(page(2)));
    QVERIFY(view.Mostra(page(3), WebResultView::RedePropria::Aberta));
    QTRY_VERIFY_WITH_TIMEOUT(!site.asked.isEmpty(), 20000);
    QCOMPARE(site.asked.size(), 1);
    QCOMPARE(site.asked[0].target, QByteArray("/thumbs/3"));
  }

  // Whatever comes into the page, it runs nothing, goes nowhere and reads no file.
  void aHostilePageHasNoRights() {
    QTemporaryDir folder;
    WriteBytes(folder.filePath(QStringLiteral("secret.png")), PictureBytes({64, 64}, "png", Qt::red));
    SiteServer site;
    PlayPictures(site);
    WebResultView view(nullptr);
    QSignalSpy ready(&view, &WebResultView::Pronta);
    QSignalSpy clicked(&view, &WebResultView::Clicou);
    view.resize(400, 300);
    view.show();
    const QString host = site.Host();
    QVERIFY(view.Mostra(u"<html><body><img src='file://" + folder.path() + u"/secret.png' onerror='location.href=\"" +
                            host + u"/leak?error\"' width=400 height=300 style='display:block'><script>fetch('" + host +
                            u"/leak?fetch'); location.href='" + host + u"/leak?go';</script><iframe src='" + host +
                            u"/leak?frame'></iframe><link rel=stylesheet href='" + host +
                            u"/leak?style'><meta http-equiv=refresh content='0;url=" + host +
                            u"/leak?refresh'><form action='" + host + u"/leak?form'></form><img src='" + host +
                            u"/thumbs/7'></body></html>",
                        WebResultView::RedePropria::Aberta));
    QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty(), 20000);
    QTRY_VERIFY_WITH_TIMEOUT(!site.asked.isEmpty(), 20000);
    QTest::qWait(300);
    for (const SiteRequest &request : site.asked)
      QVERIFY2(request.target.startsWith("/thumbs/"), request.target.constData());
    QVERIFY(view.grab().toImage().pixelColor(200, 150) != QColor(Qt::red));
    QVERIFY(clicked.isEmpty());
  }
};

QTEST_MAIN(UiTestImageNet)
#include "ui_test_image_net.moc"
