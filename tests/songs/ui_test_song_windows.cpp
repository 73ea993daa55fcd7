#include "controls/ui/palette.h"
#include "songs/FrmAddMusicaNaLista.h"
#include "songs/ui/list_musicas.h"
#include "songs/ui/reading_pane.h"
#include "songs/ui/song_windows.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/window_warnings.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <fcntl.h>
#include <unistd.h>

using namespace tolmira;
using namespace tolmira::testing;

// The dialog that finds songs, by keys as an operator presses them.
class UiTestSongWindows : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), store(app), positions(store, yielder) {
      desk.resize(1200, 900);
      positions.SetConsole(&desk);
      qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(QStringLiteral("home"))));
      for (const char *name : {"Data", "Lyrics", "Harpa", "Cantor", "home"})
        QDir(folder.path()).mkdir(QLatin1String(name));
      Write(QStringLiteral("Lyrics/Casa.txt"), "Porta da casa\r\nSenhor da casa\r\n");
      Write(QStringLiteral("Lyrics/Rio & Mar.txt"), "Senhor do mar");
      Write(QStringLiteral("Lyrics/Vazio.txt"), " \r\n\r\n ");
      Write(QStringLiteral("Harpa/301 Luz.txt"), "1. Luz");
    }
    void Write(const QString &name, const QByteArray &bytes) const { WriteBytes(folder.filePath(name), bytes); }
    bool Exists(const QString &name) const { return QFile::exists(folder.filePath(name)); }
    void Open() {
      dialog = std::make_unique<FrmAddMusicaNaLista>(
          SongDoors{app, console, positions, clock, prompt, &desk, [this] { return title; },
                    [this](const QString &path) {
                      edited = path;
                      return true;
                    },
                    [this](const QString &path) { return path == edited; },
                    [this](const QString &words) { searched.append(words); }});
      dialog->Open();
      list = dialog->findChild<ListMusicas *>(QStringLiteral("ListMusicas1"));
      box = dialog->findChild<QLineEdit *>(QStringLiteral("Text1"));
      clock.Advance(1000);
    }
    void Type(const QString &text) {
      box->clear();
      QTest::keyClicks(box, text);
      clock.Advance(1000);
    }
    void Press(const char *button) const { dialog->findChild<QPushButton *>(QLatin1String(button))->click(); }
    QString Label(const char *name) const { return dialog->findChild<QLabel *>(QLatin1String(name))->text(); }
    QStringList Rows() const {
      QStringList rows;
      for (int row = 0; row < list->model()->rowCount(); ++row)
        rows.append(list->model()->index(row, 0).data().toString());
      return rows;
    }
    QStringList Said() { return prompt.TakeTexts(); }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    ScriptedPrompt prompt;
    RecordingPresentation console;
    QWidget desk;
    QString title = QStringLiteral("Agenda 1");
    QString edited;
    QStringList searched; // on the web
    std::unique_ptr<FrmAddMusicaNaLista> dialog;
    ListMusicas *list = nullptr;
    QLineEdit *box = nullptr;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void ASongIsAddedByKeysAlone() {
    Room room;
    room.Open();
    QCOMPARE(room.Label("Label23"), QStringLiteral("For hymns from the Harp, type h + the number, e.g., h301."));
    QCOMPARE(room.Rows().size(), 3);
    QCOMPARE(room.list->Row(), -1);
    QCOMPARE(room.Label("LbSelecionado"), QStringLiteral("No item selected"));
    room.Type(QStringLiteral("senhor"));
    QCOMPARE(room.Rows(), QStringList({QStringLiteral("Casa"), QStringLiteral("Rio & Mar")}));
    QTest::keyClick(room.box, Qt::Key_Down);
    QCOMPARE(room.list->Texto(), QStringLiteral("Casa"));
    QTest::keyClick(room.list, Qt::Key_Down);
    QCOMPARE(room.Label("LbSelecionado"), QStringLiteral("Rio & Mar"));
    QTest::keyClick(room.list, Qt::Key_Return);
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("PorNaLista 2 Rio & Mar Rio & Mar")));
    QCOMPARE(room.Label("Label2"), QStringLiteral("Added Rio & Mar"));
    QTest::keyClick(room.list, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(room.console.TakeCalls(),
             QStringList({QStringLiteral("cancelaWMP"),
                          QStringLiteral("ShowEntry 2 0 Rio & Mar ") + room.app.At(u"\\Lyrics\\Rio & Mar")}));
    QTest::keyClicks(room.list, QStringLiteral("h301")); // typed over the old word
    QCOMPARE(room.box->text(), QStringLiteral("h301"));
    room.clock.Advance(5000);
    QCOMPARE(room.Label("Label2"), QString());
    QTest::keyClick(room.box, Qt::Key_Down);
    QTest::keyClick(room.box, Qt::Key_Return);
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("PorNaLista 3 301 Luz 301 Luz")));
    QVERIFY(room.Said().isEmpty());
    QTest::keyClick(room.list, Qt::Key_Escape);
    QVERIFY(!room.dialog->isVisible());
  }

  void CommandsWithoutARowSaySo() {
    Room room;
    room.Open();
    room.Press("Command1");
    room.Press("Command2");
    room.Press("Command3");
    room.Press("Command4");
    emit room.list->RowActivated(false);
    QTest::keyClick(room.box, Qt::Key_Return);
    QCOMPARE(room.Said(), QStringList({QStringLiteral("First, select the item in the list"),
                                       QStringLiteral("First, select the item in the list."),
                                       QStringLiteral("First, select the lyrics you want to edit from the list"),
                                       QStringLiteral("First, select the lyrics you want to delete from the list."),
                                       QStringLiteral("First, select the item from the list."),
                                       QStringLiteral("First, select the item in the list")}));
    QVERIFY(room.console.calls.isEmpty());
  }

  void AnEmptyFileIsNotAdded_data() {
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<QStringList>("said");
    QTest::addColumn<QStringList>("searched");
    const QStringList empty(QStringLiteral("The file is empty."));
    QTest::newRow("No") << QList<int>{1} << empty << QStringList();
    QTest::newRow("closed") << QList<int>{} << empty << QStringList();
    QTest::newRow("Yes") << QList<int>{0} << QStringList() << QStringList(QStringLiteral("Vazio"));
  }
  void AnEmptyFileIsNotAdded() {
    QFETCH(QList<int>, answers);
    QFETCH(QStringList, said);
    Room room;
    room.Open();
    room.list->SelectRow(2);
    room.prompt.answers = answers;
    room.Press("Command2");
    QCOMPARE(room.prompt.shown.first().buttons, QStringList({QStringLiteral("Yes"), QStringLiteral("No")}));
    QCOMPARE(room.Said(),
             QStringList(QStringLiteral("Do you want to download the lyrics for this song from the internet?")) + said);
    QTEST(room.searched, "searched");
    QVERIFY(room.console.calls.isEmpty());
    room.Type(QStringLiteral("mar"));
    room.Press("CmdInternet");
    QCOMPARE(room.searched.last(), QStringLiteral("mar"));
  }

  void EditingOpensTheFileOnce() {
    Room room;
    room.Open();
    room.list->SelectRow(0);
    room.Press("Command3");
    QCOMPARE(room.edited, room.app.At(u"\\Lyrics\\Casa.txt"));
    QVERIFY(room.Said().isEmpty());
    room.Press("Command3");
    QFile::remove(room.folder.filePath(QStringLiteral("Lyrics/Casa.txt")));
    room.Press("Command3");
    QCOMPARE(room.Said(), QStringList({QStringLiteral("The editing screen for this lyrics is already open."),
                                       QStringLiteral("The file does not exist.")}));
  }

  void DeletingAsksAndTakesTheRowOut() {
    Room room;
    room.Open();
    room.list->SelectRow(0);
    room.prompt.answers = {1, 0};
    room.Press("Command4");
    QVERIFY(room.Exists(QStringLiteral("Lyrics/Casa.txt")));
    QVERIFY(room.console.calls.isEmpty());
    room.Press("Command4");
    const QString question = QStringLiteral("Do you really want to delete 'Casa' ?");
    QCOMPARE(room.Said(), QStringList({question, question}));
    QVERIFY(!room.Exists(QStringLiteral("Lyrics/Casa.txt")));
    QVERIFY(room.Exists(QStringLiteral("home/Trash/files/Casa.txt")));
    QCOMPARE(room.Rows(), QStringList({QStringLiteral("Rio & Mar"), QStringLiteral("Vazio")}));
    QCOMPARE(room.Label("LbSelecionado"), QStringLiteral("No item selected"));
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("RemoveFromAgendas 2 Casa")));
    room.Press("Command4");
    QCOMPARE(room.Said().size(), 1); // nothing is selected
  }

  void WhatCannotBeDeletedKeepsItsRow() {
    Room room;
    room.Open();
    room.list->SelectRow(0);
    QFile::remove(room.folder.filePath(QStringLiteral("Lyrics/Casa.txt")));
    QDir(room.folder.path()).mkpath(QStringLiteral("Lyrics/Casa.txt")); // meanwhile a folder
    room.prompt.answers = {0};
    room.Press("Command4");
    QCOMPARE(room.Said().last(), QStringLiteral("The file could not be deleted."));
    QCOMPARE(room.Rows().first(), QStringLiteral("Casa"));
    QVERIFY(room.console.calls.isEmpty());
    QVERIFY(room.Exists(QStringLiteral("Lyrics/Casa.txt")));
  }

  void ANameThatNoPathSpellsIsLeftAlone() {
    Room room;
    const QByteArray lyrics = QFile::encodeName(room.folder.filePath(QStringLiteral("Lyrics/")));
    const QByteArray path = lyrics + "Ca\nsa.txt";
    const int file = ::creat(path.constData(), 0600); // a stored path would name "Casa.txt"
    QCOMPARE(::write(file, "x", 1), 1);
    ::close(file);
    room.Open();
    QCOMPARE(room.Rows().first(), QStringLiteral("Ca sa"));
    room.list->SelectRow(0);
    for (const char *button : {"Command1", "Command2", "Command3", "Command4", "CmdMostrar"})
      room.Press(button);
    QCOMPARE(room.Said().size(), 5);
    QVERIFY(room.console.calls.isEmpty());
    QVERIFY(room.Exists(QStringLiteral("Lyrics/Casa.txt")));
    QVERIFY(!room.list->OnDrag());
  }

  void TheSavedSongIsSelected() {
    Room room;
    room.Open();
    room.Type(QStringLiteral("rio"));
    room.Write(QStringLiteral("Lyrics/Casa.txt"), "rio");
    room.dialog->AtualizaLista(QStringLiteral("Casa"));
    QCOMPARE(room.list->Texto(), QStringLiteral("Casa"));
    QCOMPARE(room.box->text(), QStringLiteral("rio"));
    room.Write(QStringLiteral("Lyrics/Novo.txt"), "outro");
    room.dialog->AtualizaLista(QStringLiteral("Novo")); // the word does not find it
    room.clock.Advance(1000);
    QCOMPARE(room.box->text(), QString());
    QCOMPARE(room.list->Texto(), QStringLiteral("Novo"));
    room.Type(QStringLiteral("h301"));
    room.dialog->AtualizaLista(QStringLiteral("7 Luz")); // no song of the collection
    room.clock.Advance(1000);
    QCOMPARE(room.box->text(), QStringLiteral("h301"));
    QCOMPARE(room.Rows(), QStringList(QStringLiteral("301 Luz")));
  }

  void FoundWordsAreMarkedAndReadingWritesNothing() {
    Room room;
    room.Open();
    room.Type(QStringLiteral("CASA"));
    QTest::keyClick(room.box, Qt::Key_Down);
    auto *pane = room.dialog->findChild<ReadingPane *>();
    QCOMPARE(pane->toPlainText(), QStringLiteral("Porta da casa\nSenhor da casa\n"));
    QStringList marked;
    for (const auto &mark : pane->extraSelections())
      marked.append(mark.cursor.selectedText());
    QCOMPARE(marked, QStringList({QStringLiteral("casa"), QStringLiteral("casa")}));
    QCOMPARE(ReadBytes(room.folder.filePath(QStringLiteral("Lyrics/Casa.txt"))),
             QByteArray("Porta da casa\r\nSenhor da casa\r\n"));
  }

  void TheAddButtonNamesTheAgenda() {
    Room room;
    room.Open();
    const auto caption = [&room] { return room.dialog->findChild<QPushButton *>(QStringLiteral("Command2"))->text(); };
    QCOMPARE(caption(), QStringLiteral("&Include in 'Agenda 1'"));
    room.title = QStringLiteral("Sound & Light");
    room.dialog->AtualizaAgenda();
    QCOMPARE(caption(), QStringLiteral("&Include in 'Sound && Light'"));
  }

  void ADragCarriesTheEntry() {
    Room room;
    room.Open();
    QVERIFY(!room.list->OnDrag());
    QCOMPARE(room.Said().size(), 0);
    room.Type(QStringLiteral("h301"));
    QTest::keyClick(room.box, Qt::Key_Down);
    const std::optional<EntryDrag> entry = room.list->OnDrag();
    QVERIFY(entry);
    QCOMPARE(entry->group, 3);
    QCOMPARE(entry->label, QStringLiteral("301 Luz"));
    const std::unique_ptr<QMimeData> data(entry->ToMime());
    QCOMPARE(EntryDrag::FromMime(data.get())->target, QStringLiteral("301 Luz"));
  }

  void OpensWhereItWasClosedWithAnEmptyBox() {
    Room room;
    room.Open();
    room.Type(QStringLiteral("h301"));
    QTest::keyClicks(room.box, QStringLiteral("x"));
    room.dialog->move(37, 41);
    room.dialog->close();
    QCOMPARE(room.clock.ActiveTimers(), 0); // and nothing is searched for nobody
    room.dialog->move(0, 0);
    room.dialog->Open();
    QCOMPARE(room.dialog->pos(), QPoint(37, 41));
    QCOMPARE(room.box->text(), QString());
    QCOMPARE(room.Rows().size(), 3);
  }
};

QTEST_MAIN(UiTestSongWindows)
#include "ui_test_song_windows.moc"
