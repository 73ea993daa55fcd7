#include "bible/FrmBaixarBiblia.h"
#include "bible/ui/bible_windows.h"
#include "controls/ui/row_list.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_web.h"
#include "support/sites/services_site.h"
#include "support/window_warnings.h"
#include "web/real_web_client.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The window that searches, brings and removes versions.
class UiTestBibleDownload : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(const QString &host = QStringLiteral("t.example"), WebClient *real = nullptr)
        : app(folder.path()), store(app), biblia(app, store), positions(store, yielder) {
      qputenv("TEMP", folder.path().toLocal8Bit());
      qputenv("XDG_DATA_HOME", folder.filePath(QStringLiteral("share")).toLocal8Bit()); // the trash
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("ListaBiblias"), host, file);
      for (const char *name : {"KJV", "WEB"})
        WriteBytes(folder.filePath(QStringLiteral("Bible/OLD_%1.txt").arg(QLatin1String(name))),
                   TinyVersion("Genesis", name));
      biblia.BuildVersionMenu();
      windows = std::make_unique<BibleWindows>(BibleDoors{biblia, store, console, positions, clock, &desk, {}},
                                               BibleDownloadDoors{biblia, app, endpoints, real ? *real : web, prompt,
                                                                  positions, QString(), [this] { Rebuild(); }, &desk});
      windows->AbreBaixar();
    }
    void Rebuild() {
      ++rebuilt;
      biblia.BuildVersionMenu();
    }
    template <class Part> Part *Find(const char *name) {
      return desk.findChild<FrmBaixarBiblia *>()->findChild<Part *>(QLatin1String(name));
    }
    QPushButton *Button(const char *name) { return Find<QPushButton>(name); }
    QTreeWidgetItem *Row(const QString &name) {
      for (int i = 0; i < Find<RowList>("List1")->topLevelItemCount(); ++i)
        if (Find<RowList>("List1")->topLevelItem(i)->text(0).contains(name))
          return Find<RowList>("List1")->topLevelItem(i);
      return nullptr;
    }
    void Search(const QString &term) {
      Find<QLineEdit>("Text1")->setText(term);
      Button("Command1")->click();
    }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    BibleStore biblia;
    Endpoints endpoints{store};
    ScriptedWeb web;
    ScriptedPrompt prompt;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    RecordingPresentation console;
    QWidget desk;
    int rebuilt = 0;
    std::unique_ptr<BibleWindows> windows;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void SaysWhatCameOfASearch_data() {
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("term");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("message");
    const QString failed = QStringLiteral("Unable to perform the search.\nCheck if you are connected to the internet.");
    QTest::newRow("no term") << "t.example"
                             << " "
                             << ""
                             << "Enter a term to search.";
    QTest::newRow("no answer") << "t.example"
                               << "a"
                               << "" << failed;
    QTest::newRow("no row") << "t.example"
                            << "a"
                            << "[Lista]<br>"
                            << "Not Found.";
    QTest::newRow("not configured") << ""
                                    << "a"
                                    << ""
                                    << "No address is configured for this. It is the key "
                                       "ListaBiblias in the section Endpoints of Data\\Endpoints.dat.";
  }
  void SaysWhatCameOfASearch() {
    QFETCH(QString, host);
    QFETCH(QString, term);
    QFETCH(QString, reply);
    QFETCH(QString, message);
    Room room(host);
    room.web.page = [reply](int, const QUrl &) { return reply; };
    room.Search(term);
    QTRY_COMPARE(room.prompt.shown.size(), 1);
    QCOMPARE(room.prompt.TakeTexts(), QStringList{message});
    QVERIFY(room.Row(QStringLiteral("WEB"))); // what is there stays in sight
    QCOMPARE(room.Button("Command1")->text(), QStringLiteral("&Search"));
  }

  void Brings() {
    Room room;
    room.web.page = [](int, const QUrl &) { return QString::fromLatin1(BibleListReply()); };
    room.Search(QStringLiteral("h"));
    QTRY_VERIFY(room.Row(QStringLiteral("HARBOUR")));
    QVERIFY(!room.Button("Command3")->isEnabled());
    room.Row(QStringLiteral("HARBOUR"))->setCheckState(0, Qt::Checked);
    QCOMPARE(room.Button("Command3")->text(), QStringLiteral("Start Download"));

    room.web.answers = false;
    room.Button("Command3")->click();
    QCOMPARE(room.Button("Command3")->text(), QStringLiteral("Stop"));
    QCOMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("Downloading: HARBOUR Old"));
    room.prompt.answers = {1}; // to go on
    QVERIFY(!room.windows->FechaBaixar());
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList{QStringLiteral("Do you want to exit and cancel the download of the items in the queue?")});
    room.Button("Command3")->click();
    QCOMPARE(room.Button("Command3")->text(), QStringLiteral("Start Download"));
    QCOMPARE(room.web.dropped, 1);

    room.web.answers = true;
    room.web.file = [](const PedidoDeDownload &wanted) {
      const bool old = wanted.endereco.path().contains(u"OLD_");
      if (old)
        WriteBytes(QString(wanted.arquivo).replace(u'\\', u'/'), TinyVersion("Genesis", "The tide"));
      return FimDoDownload{old, true, wanted.endereco};
    };
    room.rebuilt = 0;
    room.Button("Command3")->click();
    QTRY_COMPARE(room.rebuilt, 1);
    QCOMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("1 file was added. 1 could not be had."));
    QCOMPARE(room.biblia.Versoes().size(), size_t(3));
    QCOMPARE(room.biblia.VersaoBiblia(), QStringLiteral("KJV")); // HARBOUR stands before it now
    QVERIFY(room.windows->FechaBaixar());
    QVERIFY(room.prompt.TakeTexts().isEmpty());
  }

  void Removes() {
    Room room;
    room.biblia.ChooseVersion(2);
    auto *list = room.Find<RowList>("List1");
    list->setCurrentItem(room.Row(QStringLiteral("KJV")));
    QVERIFY(room.Row(QStringLiteral("KJV"))->text(2).endsWith(u"KJV cannot be removed"));
    QVERIFY(!room.Button("Command2")->isEnabled());
    list->setCurrentItem(room.Row(QStringLiteral("WEB")));
    room.Button("Command2")->click(); // the operator closes the box
    QVERIFY(room.Row(QStringLiteral("WEB")));
    room.prompt.answers = {0};
    room.Button("Command2")->click();
    const QString question = QStringLiteral("Do you want to remove WEB?");
    QCOMPARE(room.prompt.TakeTexts(), QStringList({question, question}));
    QVERIFY(!room.Row(QStringLiteral("WEB")));
    QCOMPARE(room.biblia.VersaoBiblia(), QStringLiteral("KJV"));
  }

  // Over the wire: a search, both files of one version and the one of another, a removal; then a site that broke.
  void WorksOverTheWire() {
    SiteServer site;
    PlayServices(site);
    RealWebClient client;
    Room room(site.Host(), &client);
    room.Search(QStringLiteral("sea and hills"));
    QTRY_VERIFY(room.Row(QStringLiteral("HARBOUR")));
    QCOMPARE(site.asked.last().target, QByteArray("/Arquivos/BibleText/biblelist.php?tag=sea%20and%20hills"));
    for (const char *name : {"HARBOUR", "HILLSIDE"})
      room.Row(QLatin1String(name))->setCheckState(0, Qt::Checked);
    room.Button("Command3")->click();
    QTRY_COMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("3 files were added. 1 could not be had."));
    QCOMPARE(ReadBytes(room.folder.filePath(QStringLiteral("Bible/NEW_HARBOUR.txt"))),
             TinyVersion("Matthew", "The tide came in."));
    QCOMPARE(room.biblia.Versoes().size(), size_t(4));
    room.Find<RowList>("List1")->setCurrentItem(room.Row(QStringLiteral("HARBOUR")));
    room.prompt.answers = {0};
    room.Button("Command2")->click();
    QCOMPARE(QDir(room.folder.filePath(QStringLiteral("Bible"))).entryList({QStringLiteral("*HARBOUR*")}),
             QStringList());
    room.prompt.TakeTexts();

    site.On("/Arquivos/BibleText/biblelist.php", [](const SiteRequest &) {
      SiteAnswer answer;
      answer.body = BibleListReply();
      answer.ending = SiteAnswer::Ending::CutShort;
      return answer;
    });
    room.Search(QStringLiteral("a"));
    QTRY_COMPARE(room.prompt.shown.size(), 1);
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList{QStringLiteral("Unable to perform the search.\nCheck if you are connected to the internet.")});
    QVERIFY(room.Row(QStringLiteral("HILLSIDE"))); // which is in the folder
  }

  // What a site sends is never markup, and what is left out is told.
  void ListsHostileRows() {
    Room room;
    room.web.page = [](int, const QUrl &) {
      return QString(u"[Lista]<br>" + QStringLiteral("url|:|/a|:|A|:|../x<br>").repeated(3) +
                     u"url|:|/a|:|<img src=a>|:|HARBOUR<br>");
    };
    room.Search(QStringLiteral("a"));
    QTRY_VERIFY(room.Row(QStringLiteral("HARBOUR")));
    QVERIFY(!room.Row(QStringLiteral("HARBOUR"))->toolTip(0).contains(u"<img"));
    QCOMPARE(room.Find<QLabel>("Label1")->text(), QStringLiteral("3 rows of the list were left out."));
  }

  void SaysWhatCannotBeRemoved() {
    Room room;
    QVERIFY(QDir(room.folder.path()).mkpath(QStringLiteral("Bible/NEW_WEB.txt/full")));
    room.Find<RowList>("List1")->setCurrentItem(room.Row(QStringLiteral("WEB")));
    room.prompt.answers = {0};
    room.Button("Command2")->click();
    QCOMPARE(room.prompt.TakeTexts().value(1), QStringLiteral("Unable to remove WEB"));
    QVERIFY(room.Row(QStringLiteral("WEB")));
  }
};

QTEST_MAIN(UiTestBibleDownload)
#include "ui_test_bible_download.moc"
