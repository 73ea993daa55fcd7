#include "display/ui/web_page_host.h"
#include "media/FrmPesquisaYoutube.h"
#include "media/FrmYoutubeCtrl.h"
#include "media/ui/video_windows.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/recording_player.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_web.h"
#include "support/sites/video_site.h"
#include "support/web_fixture.h"
#include "support/window_warnings.h"
#include "web/real_web_client.h"

#include <QApplication>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QWebEngineView>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The search of the web and the control of its videos, over the real engine and a site of the test's own.
class UiTestWebVideo : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(PageProfile profile)
        : perfil(std::move(profile)), app(folder.path()), store(app), positions(store, yielder), fetcher(store, web) {
      for (const char *sub : {"Data", "html"})
        QDir(folder.path()).mkdir(QLatin1String(sub));
      QFile::copy(qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + QStringLiteral("/assets/html/py.dat"),
                  folder.filePath(QStringLiteral("html/py.dat")));
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("VideosWeb"), site.Host(), file);
      PlayVideoSite(site);
      windows = std::make_unique<VideoWindows>(VideoDoors{store, prompt, clock, console, positions, control,
                                                          [] { return QStringLiteral("Culto"); }, [] { return false; },
                                                          [this] { ++ended; }, &desk, controlOfWeb,
                                                          [this] { return onShow; }, [this] { return way; }, perfil});
    }
    QWidget *Open(const char *name) {
      for (QWidget *top : QApplication::topLevelWidgets())
        if (top->objectName() == QLatin1String(name) && top->isVisible())
          return top;
      return nullptr;
    }
    template <class Part> Part *Find(const char *form, const char *name) {
      return Open(form)->findChild<Part *>(QLatin1String(name));
    }
    // Searches, and waits for the page of the results.
    PageObject *Search(const QJsonArray &results) {
      web.page = [results](int, const QUrl &) { return QString::fromUtf8(VideoResultsPage(results)); };
      windows->AbrePesquisa();
      Find<QLineEdit>("FrmPesquisaYoutube", "Pesquisar1")->setText(QStringLiteral(" paz no vale "));
      Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->click();
      [&] { QTRY_VERIFY_WITH_TIMEOUT(windows->WV(), 20000); }();
      return windows->WV();
    }
    QString Said() { return Find<QLabel>("FrmPesquisaYoutube", "Label2")->text(); }

    PageProfile perfil;
    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FakeClock clock;
    ScriptedPrompt prompt;
    RecordingPresentation console;
    FormPositions positions;
    EstadoConsole estado;
    RecordingPlayer player;
    VideoControl control{estado, [this] { return &player; }, yielder};
    PageObject *projection = nullptr;
    WebVideoControl controlOfWeb{estado, [this] { return projection; }};
    ScriptedWeb web;
    PageFetcher fetcher;
    PageFetcher *way = &fetcher;
    SiteServer site;
    QWidget desk;
    bool onShow = true;
    int ended = 0;
    std::unique_ptr<VideoWindows> windows;
  };

  PageProfile m_profile;

private slots:
  void initTestCase() { m_profile = NewPageProfile(); } // the engine says at its start what it makes of the desktop
  void cleanupTestCase() { m_profile.reset(); }
  void init() { FailOnWindowWarnings(); }

  void searchesAndShowsWhatCame() {
    Room room(m_profile);
    PageObject *page =
        room.Search({VideoResult(QStringLiteral("Ab_1"), QStringLiteral("Águas & \"Luz\" <b>"), QStringLiteral("3:07"),
                                 QStringLiteral("Coro"), room.site.Host() + u"/vi/a.jpg"),
                     VideoResult(QStringLiteral("Ab_2"), QStringLiteral("embed v=2"), {}, {},
                                 QStringLiteral("https://example.org/x.jpg")),
                     VideoResult(QStringLiteral("a b"), QStringLiteral("no id")), QJsonObject(), QStringLiteral("x"),
                     QJsonObject{{QStringLiteral("videoRenderer"), 3}}});
    QCOMPARE(room.web.asked.first().url.toEncoded(), room.site.Host().toLatin1() + "/results?search_query=paz+no+vale");
    QCOMPARE(Eval(page, QStringLiteral("[...document.querySelectorAll('.titulo,.resto')].map(e => e.textContent)")),
             QStringLiteral("[\"Águas & \\\"Luz\\\" <b>\",\"3:07 · Coro\",\"embed v=2\",\"\"]"));
    QCOMPARE(Eval(page, QStringLiteral("[...document.images].map(i => i.getAttribute('src'))")),
             QStringLiteral("[\"%1/vi/a.jpg\",null]").arg(room.site.Host()));
    QTRY_COMPARE_WITH_TIMEOUT(Eval(page, QStringLiteral("document.images[0].naturalWidth")), QStringLiteral("320"),
                              20000);
    QCOMPARE(Eval(page, QStringLiteral("getComputedStyle(document.getElementById('nada')).display")),
             QStringLiteral("\"none\""));

    page->ExecuteScript(QStringLiteral("document.querySelectorAll('.adicionar')[0].click()"));
    QTRY_COMPARE_WITH_TIMEOUT(room.console.calls.size(), 1, 20000);
    const QString link = room.site.Host() + u"/embed/Ab_1";
    QCOMPARE(room.console.TakeCalls(), QStringList{u"PorNaLista 4 Águas & \"Luz\" <b> " + link});
    QCOMPARE(room.Said(), QStringLiteral("Added Águas & \"Luz\" <b>"));
    page->ExecuteScript(QStringLiteral("document.querySelectorAll('.tocar')[0].click()"));
    QTRY_COMPARE_WITH_TIMEOUT(room.console.calls.size(), 1, 20000);
    QCOMPARE(room.console.TakeCalls(), QStringList{u"exibirVideoDaWeb Águas & \"Luz\" <b> " + link});
    // Every navigation is refused, and what is no choice does nothing.
    page->ExecuteScript(QStringLiteral("location.href = '%1/'").arg(room.site.Host()));
    page->ExecuteScript(QStringLiteral("document.querySelectorAll('.adicionar')[1].click()"));
    QTRY_COMPARE_WITH_TIMEOUT(room.console.calls.size(), 1, 20000);
    QCOMPARE(room.console.TakeCalls(), QStringList{u"PorNaLista 4 embed v=2 " + room.site.Host() + u"/embed/Ab_2"});
    QVERIFY(Eval(page, QStringLiteral("location.href")).contains(u"pesquisaY.html"));
    const QString written = room.folder.filePath(QStringLiteral("html/pesquisaY.html"));
    QVERIFY(QFileInfo::exists(written));
    room.Open("FrmPesquisaYoutube")->close();
    QVERIFY(!QFileInfo::exists(written));
  }

  // With the program's own clients, from the words to the entry in the agenda.
  void searchesASiteOverTheWeb() {
    Room room(m_profile);
    RealWebClient clients;
    PageFetcher fetcher(room.store, clients);
    room.way = &fetcher;
    room.windows->AbrePesquisa();
    room.Find<QLineEdit>("FrmPesquisaYoutube", "Pesquisar1")->setText(QStringLiteral("águas & paz"));
    QTest::keyClick(room.Find<QLineEdit>("FrmPesquisaYoutube", "Pesquisar1"), Qt::Key_Return);
    QVERIFY(!room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(room.windows->WV(), 20000);
    QCOMPARE(room.site.asked.first().target, QByteArray("/results?search_query=%C3%A1guas+%26+paz"));
    PageObject *page = room.windows->WV();
    QCOMPARE(Eval(page, QStringLiteral("document.querySelectorAll('.video').length")), QStringLiteral("4"));
    page->ExecuteScript(QStringLiteral("document.querySelectorAll('.adicionar')[1].click()"));
    QTRY_COMPARE_WITH_TIMEOUT(room.console.calls.size(), 1, 20000);
    QCOMPARE(room.console.TakeCalls(),
             QStringList{u"PorNaLista 4 Morning \"Light\" & shade <live> " + room.site.Host() + u"/embed/Morning_2"});
  }

  // What others wrote into the site's data is shown and nothing else.
  void foreignTextsAreOnlyTexts() {
    Room room(m_profile);
    const QString hostile =
        QStringLiteral("</script><script>document.title='bad'</script><img src=x onerror=\"document."
                       "title='bad'\">\u2028';document.title='bad';//");
    PageObject *page = room.Search({VideoResult(QStringLiteral("Ab_1"), hostile, hostile, hostile,
                                                QStringLiteral("javascript:document.title='bad'"))});
    QCOMPARE(Eval(page, QStringLiteral("document.querySelectorAll('.video').length")), QStringLiteral("1"));
    QVERIFY(Eval(page, QStringLiteral("document.querySelector('.titulo').textContent")).contains(u"onerror"));
    QCOMPARE(Eval(page, QStringLiteral("document.images.length + document.scripts.length")), QStringLiteral("3"));
    QVERIFY(!Eval(page, QStringLiteral("document.title")).contains(u"bad"));
    // Nor could a script read a file of the computer.
    page->ExecuteScript(QStringLiteral(
        "window.lido = ''; fetch('py.dat').then(() => lido = 'read', () => lido = 'refused');"
        "const x = new XMLHttpRequest(); window.xhr = ''; x.onload = () => xhr = 'read'; x.onerror = () => xhr = "
        "'refused'; try { x.open('GET', 'py.dat'); x.send(); } catch (e) { xhr = 'refused'; }"));
    QTRY_COMPARE_WITH_TIMEOUT(Eval(page, QStringLiteral("[lido, xhr]")), QStringLiteral("[\"refused\",\"refused\"]"),
                              20000);
  }

  void saysWhenThereIsNothing() {
    Room room(m_profile);
    PageObject *page = room.Search({});
    QCOMPARE(Eval(page, QStringLiteral("document.getElementById('nada').hidden")), QStringLiteral("false"));
    room.web.page = [](int, const QUrl &) { return QStringLiteral("refused"); };
    room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->click();
    QVERIFY(!room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->isEnabled());
    QTRY_COMPARE_WITH_TIMEOUT(room.prompt.shown.size(), 1, 20000);
    QCOMPARE(room.prompt.shown.last().text,
             QStringLiteral("Unable to perform the search.\r\nCheck your internet connection."));
    QVERIFY(room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->isEnabled());
    room.Find<QLineEdit>("FrmPesquisaYoutube", "Pesquisar1")->setText(QStringLiteral(" a "));
    room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->click();
    QCOMPARE(room.prompt.shown.last().text, QStringLiteral("Enter the search term or paste the link for the video."));
    room.web.answers = false;
    room.Find<QLineEdit>("FrmPesquisaYoutube", "Pesquisar1")->setText(QStringLiteral("paz"));
    room.Find<QPushButton>("FrmPesquisaYoutube", "CmdPesquisar")->click();
    room.Open("FrmPesquisaYoutube")->close();
    QCOMPARE(room.web.dropped, 1);
  }

  // The site opens for what it asks, by forms too, and leads nowhere else.
  void theSiteItself() {
    Room room(m_profile);
    QByteArray posted;
    room.site.On("/answer", [&posted](const SiteRequest &request) {
      posted = request.method;
      return SiteAnswer::Redirect("/thanks");
    });
    room.site.Page("/thanks", "thanks");
    room.windows->AbrePesquisa();
    room.Find<QPushButton>("FrmPesquisaYoutube", "CmdSite")->click();
    QPointer<QWebEngineView> view = room.Find<QWidget>("FrmPesquisaYoutube", "SiteView")->findChild<QWebEngineView *>();
    QVERIFY(view);
    QTRY_COMPARE_WITH_TIMEOUT(view->url().path(), QStringLiteral("/"), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(room.Said(), QStringLiteral("127.0.0.1"), 20000);
    view->page()->runJavaScript(QStringLiteral("location.href = 'https://example.org/'"));
    QTRY_VERIFY_WITH_TIMEOUT(room.Said().contains(u"example.org"), 20000);
    // The engine may still be busy with what was refused, and drops the form then.
    for (int tries = 0; tries < 40 && view->url().path() != u"/thanks"; ++tries) {
      view->page()->runJavaScript(QStringLiteral("document.body.innerHTML = \"<form method='post' action='/answer'>"
                                                 "</form>\"; document.forms[0].submit()"));
      QTest::qWait(500);
    }
    QCOMPARE(view->url().path(), QStringLiteral("/thanks"));
    QCOMPARE(posted, QByteArray("POST"));
    QVERIFY(view->page()->isAudioMuted());
    // Its boxes do not come up, and its windows open in its place.
    view->page()->runJavaScript(
        QStringLiteral("alert('x'); if (confirm('x') && prompt('x') === null) window.open('/answer')"));
    QTRY_VERIFY_WITH_TIMEOUT(room.site.asked.last().target == "/thanks" && room.site.asked.size() > 4, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(view->url().path(), QStringLiteral("/thanks"), 20000);
    KillRenderProcesses();
    QTRY_VERIFY_WITH_TIMEOUT(!view, 20000);
    QCOMPARE(room.Said(), QStringLiteral("The page could not be loaded."));
    room.Find<QPushButton>("FrmPesquisaYoutube", "CmdSite")->click();
    QTRY_VERIFY_WITH_TIMEOUT(!view, 20000);
  }

  void theControlWorksThePage() {
    Room room(m_profile);
    WebPageHost host(QStringLiteral("display"), &room.desk);
    QVERIFY(host.CriaBrowser());
    room.desk.resize(320, 180);
    host.setGeometry(room.desk.rect());
    room.desk.show();
    room.projection = host.WV();
    room.projection->Navigate(room.site.Host() + u"/embed/Still_Water1?autoplay=1", 8);
    const auto playing = [&] {
      return Eval(room.projection, QStringLiteral("!document.querySelector('video').paused"));
    };
    QTRY_COMPARE_WITH_TIMEOUT(playing(), QStringLiteral("true"), 20000);
    room.controlOfWeb.Comeca(QStringLiteral("Águas"));
    room.windows->AbreControle(false);
    QVERIFY(room.Open("FrmYoutubeCtrl")->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(room.estado.EstadoYoutube, QStringLiteral("Play"));
    QTest::keyClick(room.Find<QPushButton>("FrmYoutubeCtrl", "ImageStop"), Qt::Key_Space);
    QCOMPARE(room.estado.EstadoYoutube, QString());
    QTRY_COMPARE_WITH_TIMEOUT(playing(), QStringLiteral("false"), 20000);
    room.Find<QPushButton>("FrmYoutubeCtrl", "ImageRestart")->click();
    QTRY_COMPARE_WITH_TIMEOUT(Eval(room.projection, QStringLiteral("document.querySelector('video').currentTime")),
                              QStringLiteral("0"), 20000);
    const auto looks = [&] {
      room.controlOfWeb.Olha();
      return room.controlOfWeb.Como();
    };
    QTRY_COMPARE_WITH_TIMEOUT(looks(), WebVideoControl::Situacao::Parado, 20000);
    room.Find<QPushButton>("FrmYoutubeCtrl", "ImagePlay")->click();
    QTRY_COMPARE_WITH_TIMEOUT(playing(), QStringLiteral("true"), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(looks(), WebVideoControl::Situacao::Tocando, 20000);
    QVERIFY(room.controlOfWeb.Tempo().endsWith(u" / 00:02"));
    room.Open("FrmYoutubeCtrl")->close();
    QCOMPARE(playing(), QStringLiteral("true"));
    QCOMPARE(room.ended, 0);
    room.windows->AbreControle(true);
    room.Find<QPushButton>("FrmYoutubeCtrl", "ImageStop")->click();
    QCOMPARE(room.ended, 1);
    QVERIFY(!room.Open("FrmYoutubeCtrl"));
    QCOMPARE(room.estado.EstadoYoutube, QString());
  }
  void aRedirectionCanBeRefused() {
    Room room(m_profile);
    WebPageHost host(QStringLiteral("display"), &room.desk);
    QVERIFY(host.CriaBrowser());
    host.show();
    room.desk.show();
    QStringList asked;
    host.WV()->AoDesviar = [&](const QString &uri, bool &cancel) {
      asked.append(uri);
      cancel = true;
    };
    host.WV()->Navigate(room.site.Host() + u"/embed/Consent_1", 8);
    QTRY_COMPARE_WITH_TIMEOUT(asked, QStringList{room.site.Host() + u"/consent?continue=/embed/"}, 20000);
    host.WV()->Navigate(room.site.Host() + u"/embed/Morning_2", 8);
    QVERIFY(Eval(host.WV(), QStringLiteral("location.href")).contains(u"Morning_2"));
    for (const SiteRequest &request : std::as_const(room.site.asked))
      QVERIFY(!request.target.startsWith("/consent"));
  }

  // A page of ours that another took the place of at once, which was to begin in another process than the site's.
  void thePageBehindAVideoIsHeard() {
    Room room(m_profile);
    for (const char *name : {"a.html", "b.html"})
      WriteBytes(room.folder.filePath(QLatin1String(name)), "<body>x</body>");
    WebPageHost host(QStringLiteral("display"), &room.desk);
    QVERIFY(host.CriaBrowser());
    host.show();
    room.desk.show();
    for (int i = 0; i < 2; ++i) {
      host.WV()->Navigate(room.site.Host() + u"/embed/Nothing_1", 8);
      QVERIFY(Eval(host.WV(), QStringLiteral("location.href")).contains(u"Nothing"));
      host.WV()->Navigate(room.folder.filePath(QStringLiteral("a.html")), 8);
      host.WV()->Navigate(room.folder.filePath(QStringLiteral("b.html")), 8);
      QVERIFY(Eval(host.WV(), QStringLiteral("location.href")).contains(u"b.html"));
    }
  }

  // Neither boxes of a page nor what it does by itself bring anything else to the projection.
  void aPageOfTheNetKeepsToItself() {
    Room room(m_profile);
    room.site.Page("/embed/Loud", "<meta http-equiv='refresh' content='0;url=/consent'><body><script>"
                                  "alert(1); window.said = [confirm(2), prompt(3), window.open('/consent')];"
                                  "onbeforeunload = e => e.preventDefault(); location.href = '/consent';"
                                  "document.documentElement.requestFullscreen().catch(e => window.full = 'refused');"
                                  "</script>");
    WebPageHost host(QStringLiteral("display"), &room.desk);
    QVERIFY(host.CriaBrowser());
    host.show();
    room.desk.show();
    QStringList asked;
    host.WV()->AoNavegar = [&](const QString &uri, bool &) { asked.append(uri); };
    host.WV()->Navigate(room.site.Host() + u"/embed/Loud", 8);
    QCOMPARE(Eval(host.WV(), QStringLiteral("said")), QStringLiteral("[true,null,null]"));
    QTRY_COMPARE_WITH_TIMEOUT(Eval(host.WV(), QStringLiteral("window.full")), QStringLiteral("\"refused\""), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(asked.size(), 2, 20000);
    QVERIFY(Eval(host.WV(), QStringLiteral("location.href")).contains(u"Loud"));
    host.WV()->Navigate(room.site.Host() + u"/embed/Morning_2", 8);
    QVERIFY(Eval(host.WV(), QStringLiteral("location.href")).contains(u"Morning_2"));
    for (const SiteRequest &request : std::as_const(room.site.asked))
      QVERIFY(!request.target.startsWith("/consent"));
  }
};

QTEST_MAIN(UiTestWebVideo)
#include "ui_test_web_video.moc"
