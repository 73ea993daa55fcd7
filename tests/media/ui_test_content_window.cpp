#include "controls/ui/row_list.h"
#include "media/FrmConteudo.h"
#include "media/ui/content_window.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_web.h"
#include "support/sites/services_site.h"
#include "support/window_warnings.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The window of the suggested videos.
class UiTestContentWindow : public QObject {
  Q_OBJECT

private slots:
  void init() { FailOnWindowWarnings(); }

  void BringsAVideoIntoTheAgenda() {
    QTemporaryDir folder;
    AppFolder app(folder.path());
    IniStore store(app);
    CountingYielder yielder;
    FormPositions positions(store, yielder);
    ScriptedWeb web;
    RecordingPresentation console;
    QWidget desk;
    WriteBytes(folder.filePath(QStringLiteral("Data/content.dat")),
               ContentLine("Harbour at dawn", "https://v.example/h.mp4", SuggestedVideo()) + "broken\r\n");
    ContentWindow window(ContentDoors{app, web, console, positions, [] { return QStringLiteral("Culto"); }, &desk});
    window.Abre();
    auto &form = *desk.findChild<FrmConteudo *>();
    auto *list = form.findChild<RowList *>(QStringLiteral("List1"));
    auto *download = form.findChild<QPushButton *>(QStringLiteral("Command1"));
    auto *add = form.findChild<QPushButton *>(QStringLiteral("CommandLista"));
    auto *status = form.findChild<QLabel *>(QStringLiteral("LabelStatus"));
    QCOMPARE(status->text(), QStringLiteral("1 line of Data\\content.dat is no video that can be fetched."));
    QCOMPARE(list->topLevelItem(0)->text(2), QStringLiteral("not there"));
    QVERIFY(!add->isEnabled());

    web.answers = false;
    download->click();
    QVERIFY(!download->isEnabled());
    WriteBytes(folder.filePath(QStringLiteral("Videos/Harbour at dawn.mp4.download.part")), "begun");
    form.close(); // which stops it
    QCOMPARE(web.dropped, 1);
    window.Abre();
    QCOMPARE(list->topLevelItem(0)->text(2), QStringLiteral("5 bytes of it"));

    web.answers = true;
    web.file = [](const PedidoDeDownload &wanted) {
      WriteBytes(QString(wanted.arquivo).replace(u'\\', u'/'), SuggestedVideo());
      return FimDoDownload{true, true, wanted.endereco};
    };
    download->click();
    QTRY_COMPARE(list->topLevelItem(0)->text(2), QStringLiteral("there"));
    QVERIFY(!download->isEnabled());
    add->click();
    QCOMPARE(console.TakeCalls(), QStringList{QStringLiteral("PorNaLista 4 Harbour at dawn ") +
                                              folder.filePath(QStringLiteral("Videos/Harbour at dawn.mp4"))});
  }
};

QTEST_MAIN(UiTestContentWindow)
#include "ui_test_content_window.moc"
