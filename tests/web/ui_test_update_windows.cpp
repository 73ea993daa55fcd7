#include "foundation/text_utils.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/recording_opener.h"
#include "support/scripted_prompt.h"
#include "support/scripted_web.h"
#include "support/site_server.h"
#include "support/window_warnings.h"
#include "web/FrmComunicado.h"
#include "web/FrmUp.h"
#include "web/real_web_client.h"
#include "web/ui/update_windows.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// From the question to the installer that is handed over.
class UiTestUpdateWindows : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(WebClient *real = nullptr)
        : app(folder.path()), store(app), positions(store, yielder), pages(store, real ? *real : web) {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("Atualizacao"), QStringLiteral("up.example"), file);
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("PaginaDownload"), QStringLiteral("maker.example"),
                        file);
      web.page = [](int, const QUrl &) {
        return QStringLiteral("!*!!*!2.0.0!*!https://d.example/i.exe!*!<b>Calmer</b> fades.");
      };
      windows = std::make_unique<UpdateWindows>(
          UpdateDoors{endpoints, pages, prompt, opener, positions, [this] { ++ended; }, &desk,
                      [this] { return administrator; }, folder.filePath(QStringLiteral("Desktop"))});
    }
    QString Installer() const { return folder.filePath(QStringLiteral("Desktop/Instalar-Tolmira.exe")); }
    // Up to the running download.
    void UpdateNow() {
      windows->VerifyUpdate();
      auto *said = desk.findChild<FrmComunicado *>();
      auto *now = said->findChild<QPushButton *>(QStringLiteral("Command1"));
      QVERIFY(!now->isEnabled());
      QTRY_VERIFY(now->isEnabled());
      QCOMPARE(said->findChild<QPlainTextEdit *>(QStringLiteral("Text1"))->toPlainText(),
               QStringLiteral("<b>Calmer</b> fades."));
      now->click();
      QVERIFY(!said->isVisible() && Up()->isVisible());
      QCOMPARE(Up()->windowTitle(), QStringLiteral("Atualizando o Tolmira"));
    }
    FrmUp *Up() { return desk.findChild<FrmUp *>(); }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    Endpoints endpoints{store};
    ScriptedWeb web;
    PageFetcher pages;
    ScriptedPrompt prompt;
    RecordingOpener opener;
    QWidget desk;
    bool administrator = true;
    int ended = 0;
    std::unique_ptr<UpdateWindows> windows;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void Downloads_data() {
    QTest::addColumn<bool>("whole");
    QTest::addColumn<bool>("https");
    QTest::addColumn<bool>("writes");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<bool>("ends");
    const QStringList failed{QStringLiteral("Could not download the update.\nGo to the maker's site, download the "
                                            "newest version there and install it by hand.")};
    QTest::newRow("well") << true << true << true
                          << QStringList{QStringLiteral("O Tolmira will be closed to allow the update to proceed."),
                                         QStringLiteral("If the installation does not start automatically, manually "
                                                        "install using the installation file that was downloaded to "
                                                        "your Desktop.")}
                          << true;
    QTest::newRow("broken off") << false << true << false << failed << false;
    QTest::newRow("not over https") << true << false << true << failed << false;
    QTest::newRow("no file") << true << true << false
                             << QStringList{QStringLiteral(
                                    "Could not download the update.\nTo update, visit our website and download and "
                                    "install the latest copy of Tolmira")}
                             << false;
  }
  void Downloads() {
    QFETCH(bool, whole);
    QFETCH(bool, https);
    QFETCH(bool, writes);
    QFETCH(QStringList, messages);
    QFETCH(bool, ends);
    Room room;
    room.web.file = [&](const PedidoDeDownload &wanted) {
      if (writes)
        WriteBytes(wanted.arquivo, "MZ");
      return FimDoDownload{whole, https, wanted.endereco};
    };
    room.UpdateNow();
    room.Up()->Open(); // coming to the front again starts nothing
    QTRY_VERIFY(!room.Up()->isVisible());
    const auto downloads = std::count_if(room.web.asked.cbegin(), room.web.asked.cend(),
                                         [](const ScriptedWeb::Pedido &one) { return one.method == 0; });
    QCOMPARE(downloads, 1);
    QCOMPARE(room.prompt.TakeTexts(), messages);
    QCOMPARE(room.opener.opened, QList<QUrl>{ends ? QUrl::fromLocalFile(room.Installer())
                                                  : QUrl(QStringLiteral("https://maker.example?prog=Tolmira"))});
    QCOMPARE(room.ended, ends ? 1 : 0);
    QCOMPARE(QFile::exists(room.Installer()), ends);
  }

  void AStopEndsEverything() {
    Room room;
    room.administrator = false;
    room.UpdateNow();
    QVERIFY(room.Up()->findChild<QLabel *>(QStringLiteral("Label2")));
    QTest::keyClick(room.Up(), Qt::Key_Escape);
    QCOMPARE(room.web.dropped, 1);
    QTest::qWait(0);
    QVERIFY(room.prompt.TakeTexts().isEmpty());
    QCOMPARE(room.ended, 0);
  }

  // Over the wire: all three answers, and an installer that does not come.
  void WorksOverTheWire() {
    SiteServer site;
    RealWebClient client;
    Room room(&client);
    QString file = room.app.At(u"\\Data\\Endpoints.dat");
    room.store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("Atualizacao"), site.Host(), file);
    const auto asks = [&](const QByteArray &answer) {
      site.Page("/update.php", answer);
      room.windows->VerifyUpdate();
    };
    for (const auto &[answer, said] :
         {std::pair{"", "Could not connect to server"},
          std::pair{"a!*!b!*!" TOLMIRA_VERSION, "You are already using the latest version of the Tolmira"}}) {
      asks(answer);
      QTRY_COMPARE(room.prompt.shown.size(), 1);
      QCOMPARE(room.prompt.TakeTexts(), QStringList{QLatin1String(said)});
      QVERIFY(!room.desk.findChild<FrmComunicado *>()->isVisible());
    }
    QCOMPARE(site.asked.last().target,
             QByteArray("/update.php?vl=" + VersionCode(QStringLiteral(TOLMIRA_VERSION)).toLatin1() +
                        "&sigla=tol&prog=Tolmira"));
    QDir(room.folder.path()).mkdir(QStringLiteral("Desktop"));
    WriteBytes(room.Installer(), "of an earlier update");
    asks("!*!!*!99.0.0!*!https://127.0.0.1:1/i.exe"); // where nothing listens
    auto *now = room.desk.findChild<FrmComunicado *>()->findChild<QPushButton *>(QStringLiteral("Command1"));
    QTRY_VERIFY(now->isEnabled());
    now->click();
    QTRY_COMPARE(room.opener.opened, QList<QUrl>{QUrl(QStringLiteral("https://maker.example?prog=Tolmira"))});
    QVERIFY(room.prompt.TakeTexts().value(0).startsWith(u"Could not download the update.\n"));
    QVERIFY(!room.Up()->isVisible());
    QCOMPARE(ReadBytes(room.Installer()), QByteArray("of an earlier update"));
    QCOMPARE(room.ended, 0);
  }

  void SaysWhyNot() {
    Room room;
    QString file = room.app.At(u"\\Data\\Endpoints.dat");
    room.store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("Atualizacao"), QString(), file);
    room.windows->VerifyUpdate();
    QCOMPARE(room.prompt.TakeTexts(), QStringList{room.endpoints.PorQueNao(Endpoint::Atualizacao)});
    QVERIFY(room.web.asked.isEmpty());
  }
};

QTEST_MAIN(UiTestUpdateWindows)
#include "ui_test_update_windows.moc"
