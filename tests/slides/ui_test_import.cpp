#include "foundation/ini_store.h"
#include "import_room.h"
#include "slides/FrmImportar.h"
#include "support/counting_yielder.h"
#include "support/scripted_prompt.h"
#include "support/window_warnings.h"

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The window, by keys and mouse as an operator uses it.
class UiTestImport : public QObject {
  Q_OBJECT

private:
  struct Room : ImportRoom {
    Room() : store(app), positions(store, yielder) {
      QDir(folder.path()).mkpath(QStringLiteral("app/Data"));
      positions.SetConsole(&desk);
    }
    FrmImportar &Window() {
      if (!window)
        window = std::make_unique<FrmImportar>(ImportDoors{store, prompt, positions, [this] { return programs; },
                                                           [] { return ImportRoom::Screen; },
                                                           [this] { return editorIsTaken; }},
                                               &desk);
      return *window;
    }
    QString State() { return Window().findChild<QLabel *>(QStringLiteral("LbEstado"))->text(); }
    // Chooses the document in the file dialogue.
    void Import(const QString &path) {
      prompt.files = {path};
      Window().Pergunta([this](const QStringList &pictures, const QString &name) {
        ++offered;
        if (!editorIsTaken)
          opened.append(name + u' ' + QString::number(pictures.size()));
        return !editorIsTaken;
      });
    }
    template <class Control> Control *The(const char *name) {
      return Window().findChild<Control *>(QLatin1String(name));
    }

    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    QWidget desk;
    ScriptedPrompt prompt;
    QStringList opened;
    int offered = 0; // times that the pages came to the editor
    bool editorIsTaken = false;
    std::unique_ptr<FrmImportar> window;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void opensTheDocumentBehindItsPassword();
  void stopsByItsButtonAndByEscape();
  void saysWhyNothingCame();
  void waitsForAnEditorThatIsTaken();
  void interruptsNobodyWhoWorksElsewhere();
};

void UiTestImport::opensTheDocumentBehindItsPassword() {
  Room room;
  room.Import(room.Write("mine/Psalm.pdf", LockedPdf("amen")));
  auto *password = room.The<QLineEdit>("TxtSenha");
  QTRY_VERIFY(password->isVisible());
  QTest::keyClicks(password, QStringLiteral("no"));
  QTest::keyClick(password, Qt::Key_Return);
  QVERIFY(!password->isVisible());
  QTRY_VERIFY(password->isVisible());
  QVERIFY(room.State().contains(u"does not open"));
  QCOMPARE(password->text(), QString());
  QTest::keyClicks(password, QStringLiteral("amen"));
  QTest::mouseClick(room.The<QPushButton>("CmdAbrir"), Qt::LeftButton);
  QTRY_COMPARE(room.opened, QStringList{QStringLiteral("Psalm 1")});
  QVERIFY(!room.Window().isVisible());
}

void UiTestImport::stopsByItsButtonAndByEscape() {
  Room room;
  room.programs.paginas =
      room.Script("pages", "echo pages 40; cp $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; sleep 600\n");
  const QString path = room.Write("mine/a.pdf", "x");
  for (const bool byKey : {false, true}) {
    room.Import(path);
    QTRY_COMPARE(room.State(), QStringLiteral("Page 2 of 40"));
    QCOMPARE(room.The<QProgressBar>("Barra")->maximum(), 40);
    const auto asked = room.prompt.fileQuestions.size();
    room.Import(path);
    QCOMPARE(room.prompt.fileQuestions.size(), asked); // one at a time
    QTest::keyClick(&room.Window(), Qt::Key_Return);
    QVERIFY(room.Window().Trabalha());
    if (byKey)
      QTest::keyClick(&room.Window(), Qt::Key_Escape);
    else
      QTest::mouseClick(room.The<QPushButton>("CmdParar"), Qt::LeftButton);
    QTRY_VERIFY(!room.Window().isVisible());
    QVERIFY(room.LeftNothing());
  }
  QCOMPARE(room.opened, QStringList());
}

void UiTestImport::saysWhyNothingCame() {
  Room room;
  room.Import(room.Write("mine/a.odp", "x"));
  QTRY_VERIFY(room.State().contains(u"libreoffice-impress"));
  QVERIFY(room.Window().isVisible());
  QVERIFY(room.The<QLabel>("LbEstado")->height() >=
          room.The<QLabel>("LbEstado")->heightForWidth(room.The<QLabel>("LbEstado")->width()));
  QTest::keyClick(&room.Window(), Qt::Key_Return);
  QVERIFY(!room.Window().isVisible());
}

void UiTestImport::waitsForAnEditorThatIsTaken() {
  Room room;
  room.editorIsTaken = true;
  room.Import(room.Write("mine/Psalm.pdf", OnePagePdf("/MediaBox[0 0 160 90]")));
  auto *open = room.The<QPushButton>("CmdAbrir");
  QTRY_VERIFY(open->isVisible());
  QVERIFY(room.State().contains(u"open on other slides"));
  QCOMPARE(room.offered, 0); // it would ask what to do with the other slides
  QTest::mouseClick(open, Qt::LeftButton);
  QCOMPARE(room.offered, 1);
  QVERIFY(room.Window().isVisible());
  room.editorIsTaken = false;
  QTest::keyClick(&room.Window(), Qt::Key_Return);
  QCOMPARE(room.opened, QStringList{QStringLiteral("Psalm 1")});
  QVERIFY(!room.Window().isVisible());
  room.Import({}); // given up in the file dialogue
  QVERIFY(!room.Window().isVisible());
  QVERIFY(room.prompt.fileQuestions.last().folder.endsWith(u"/mine"));
}

void UiTestImport::interruptsNobodyWhoWorksElsewhere() {
  Room room;
  room.desk.show();
  const QString path = room.Write("mine/Psalm.pdf", OnePagePdf("/MediaBox[0 0 160 90]"));
  room.Import(path);
  room.desk.activateWindow();
  QTRY_VERIFY(room.desk.isActiveWindow());
  QTRY_VERIFY(room.The<QPushButton>("CmdAbrir")->isVisible());
  QVERIFY(room.State().contains(u"are ready"));
  QCOMPARE(room.offered, 0);
  QVERIFY(room.desk.isActiveWindow());

  // Closed, and asked for again: first given up, then opened.
  QTest::keyClick(&room.Window(), Qt::Key_Escape);
  QVERIFY(!room.Window().isVisible());
  room.prompt.answers = {-1, 0};
  room.Import(path);
  room.Import(path);
  QCOMPARE(room.prompt.TakeTexts(), QStringList(2, QStringLiteral("The pages of 'Psalm' wait to be opened.")));
  QCOMPARE(room.prompt.fileQuestions.size(), 1);
  QCOMPARE(room.opened, QStringList{QStringLiteral("Psalm 1")});
}

QTEST_MAIN(UiTestImport)
#include "ui_test_import.moc"
