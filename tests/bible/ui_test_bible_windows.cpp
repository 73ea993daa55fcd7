#include "bible/FrmAddBibliaNaLista.h"
#include "bible/FrmBibleBrowser.h"
#include "bible/FrmBibleSearch.h"
#include "bible/ui/bible_windows.h"
#include "bible/ui/reference_box.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/recording_presentation.h"
#include "support/small_bible.h"
#include "support/window_warnings.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The entry box and the windows of the Bible, by keys as an operator presses them.
class UiTestBibleWindows : public QObject {
  Q_OBJECT

private:
  // A program folder with two versions; the Bible's windows stand over `desk`.
  struct Room {
    Room() : app(folder.path()), store(app), biblia(app, store), positions(store, yielder) {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      const QStringList verses{QStringLiteral("A lamp is lit."), QStringLiteral("The Lord's day, and the sea."),
                               QStringLiteral("Light of the lamp.")};
      for (const char *version : {"KJV", "WEB"})
        SmallBible()
            .Chapter(1, 1, verses)
            .Chapter(9, 17, verses)
            .Chapter(43, 3, verses)
            .Chapter(43, 4, verses.mid(1))
            .Write(folder.path(), QLatin1String(version));
      biblia.BuildVersionMenu();
    }
    BibleDoors Doors() {
      return {biblia, store, console, positions, clock, &desk, [this] { return onShow; }};
    }
    QString CtrlEnterKey() const {
      return store.ReadConfig(QStringLiteral("Config"), QStringLiteral("ctrlenter"), QStringLiteral("-"));
    }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    BibleStore biblia;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    RecordingPresentation console;
    QWidget desk;
    QString onShow;
  };

  template <typename Control> static Control *Named(QWidget &window, const char *name) {
    auto *control = window.findChild<Control *>(QLatin1String(name));
    return control;
  }

  static void Commit(QWidget *box, const QString &text) {
    QInputMethodEvent dead(QStringLiteral("´"), {});
    QCoreApplication::sendEvent(box, &dead);
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(box, &event);
  }

private slots:
  void init() { FailOnWindowWarnings(); }

  void KeysCompleteANameInTheBox_data() {
    QTest::addColumn<QString>("keys"); // "<" is Backspace, "~" selects all
    QTest::addColumn<QString>("text");
    QTest::newRow("decisive letters") << QStringLiteral("joel 2") << QStringLiteral("Joel 2");
    QTest::newRow("not decisive") << QStringLiteral("jo") << QStringLiteral("jo");
    QTest::newRow("digit of Samuel") << QStringLiteral("1s17 4") << QStringLiteral("I Samuel 17 4");
    QTest::newRow("third John") << QStringLiteral("3j1") << QStringLiteral("III John 1");
    QTest::newRow("third has no T") << QStringLiteral("3t") << QStringLiteral("3t");
    QTest::newRow("letters behind a name") << QStringLiteral("joex0") << QStringLiteral("Joel ");
    QTest::newRow("one Backspace empties") << QStringLiteral("joe<") << QString();
    QTest::newRow("Backspace behind a digit") << QStringLiteral("joe23<") << QStringLiteral("Joel 2");
    QTest::newRow("typed over") << QStringLiteral("joe~g") << QStringLiteral("g");
    QTest::newRow("digit and blank") << QStringLiteral("2 ") << QStringLiteral("II ");
  }
  void KeysCompleteANameInTheBox() {
    QFETCH(QString, keys);
    ReferenceBox box(EntryPlace::Console);
    for (const QChar key : keys) {
      if (key == u'<')
        QTest::keyClick(&box, Qt::Key_Backspace);
      else if (key == u'~')
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
      else
        QTest::keyClick(&box, key.toLatin1());
    }
    QTEST(box.text(), "text");
    QCOMPARE(box.cursorPosition(), box.text().size());
  }

  void DeadKeysTypeAnAccent() {
    ReferenceBox box(EntryPlace::Console);
    QTest::keyClick(&box, 'J');
    Commit(&box, QStringLiteral("ó"));
    QCOMPARE(box.text(), QStringLiteral("Jó"));
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_3);
    QCOMPARE(box.text(), QStringLiteral("Jó 3"));

    ReferenceBox pasted(EntryPlace::Console);
    pasted.setText(QStringLiteral("  John 3:16"));
    QCOMPARE(pasted.text(), QStringLiteral("John 3:16"));
    for (const QString &copied : {QStringLiteral("John\u00A03:16\r\nFor God"), QStringLiteral("\tJohn\n3:16"),
                                  QStringLiteral("\u2028John\u20293:16")}) {
      pasted.clear();
      pasted.insert(copied);
      QCOMPARE(NormalizeReference(pasted.text()), QStringLiteral("John 3:16"));
      QVERIFY(pasted.text().startsWith(QStringLiteral("John 3:16")));
    }
  }

  void EnterAddsOrShows_data() {
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("ctrl");
    QTest::addColumn<bool>("shows");
    QTest::newRow("off, Enter") << false << false << false;
    QTest::newRow("off, Ctrl+Enter") << false << true << true;
    QTest::newRow("on, Enter") << true << false << true;
    QTest::newRow("on, Ctrl+Enter") << true << true << false;
  }
  void EnterAddsOrShows() {
    QFETCH(bool, on);
    QFETCH(bool, ctrl);
    QFETCH(bool, shows);
    Room room;
    if (on)
      room.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("ctrlenter"), QStringLiteral("on"));
    const Qt::KeyboardModifiers held = ctrl ? Qt::ControlModifier : Qt::NoModifier;

    FrmAddBibliaNaLista dialog(room.Doors());
    auto *box = Named<ReferenceBox>(dialog, "Text2");
    box->setText(QStringLiteral("john 3 1000"));
    QTest::keyClick(box, Qt::Key_Return, held);
    QCOMPARE(room.console.TakeCalls(),
             shows ? QStringList({QStringLiteral("cancelaWMP"), QStringLiteral("exibirPassagem john 3:3")})
                   : QStringList({QStringLiteral("PorNaLista 1 john 3:3 john 3:3")}));
    QCOMPARE(box->text(), QString());

    FrmBibleBrowser browser(room.Doors());
    room.onShow = QStringLiteral("John 4:2");
    browser.Open();
    QTest::keyClick(Named<QListWidget>(browser, "ListVersiculos"), Qt::Key_Return, held);
    QCOMPARE(room.console.TakeCalls(),
             shows ? QStringList({QStringLiteral("cancelaWMP"), QStringLiteral("exibirPassagem John 4:2")})
                   : QStringList({QStringLiteral("PorNaLista 1 John 4:2 John 4:2")}));
  }

  void UnknownReferenceStaysInTheBox() {
    Room room;
    FrmAddBibliaNaLista dialog(room.Doors());
    auto *box = Named<ReferenceBox>(dialog, "Text2");
    for (const char *typed : {"John 99:1", "nobody 1 1", "John3:16", "", "  "}) {
      box->setText(QLatin1String(typed));
      const QString before = box->text();
      Named<QPushButton>(dialog, "Command1")->click();
      Named<QPushButton>(dialog, "Command3")->click();
      QCOMPARE(box->text(), before);
      QVERIFY(room.console.calls.isEmpty());
    }
  }

  void WhatWasAddedIsToldForAWhile() {
    Room room;
    FrmAddBibliaNaLista dialog(room.Doors());
    auto *box = Named<ReferenceBox>(dialog, "Text2");
    box->setText(QStringLiteral("Genesis 1:2"));
    QCOMPARE(Named<QLabel>(dialog, "LbVersiculo")->text(), QStringLiteral("The Lord's day, and the sea."));
    // What is seen is what Enter takes: the last verse, and the first of two.
    box->setText(QStringLiteral("Genesis 1:1000"));
    QCOMPARE(Named<QLabel>(dialog, "LbVersiculo")->text(), QStringLiteral("Light of the lamp."));
    box->setText(QStringLiteral("Genesis 1:2e3"));
    QCOMPARE(Named<QLabel>(dialog, "LbVersiculo")->text(), QStringLiteral("The Lord's day, and the sea."));
    box->setText(QStringLiteral("Genesis 1:2"));
    Named<QPushButton>(dialog, "Command1")->click();
    const auto *label = Named<QLabel>(dialog, "Label2");
    QCOMPARE(label->text(), QStringLiteral("Added Genesis 1:2"));
    room.clock.Advance(60000);
    QCOMPARE(label->text(), QString());
  }

  void CtrlAltFlipsTheRuleOnceEachTime() {
    Room room;
    FrmAddBibliaNaLista dialog(room.Doors());
    dialog.Open();
    auto *box = Named<ReferenceBox>(dialog, "Text2");
    const auto *hint = Named<QLabel>(dialog, "LbCtrlEnter");
    const QString before = hint->text();
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;

    QTest::keyPress(box, Qt::Key_Control, Qt::ControlModifier);
    QCOMPARE(room.CtrlEnterKey(), QStringLiteral("-"));
    QTest::keyPress(box, Qt::Key_Alt, both);
    QCOMPARE(room.CtrlEnterKey(), QStringLiteral("on"));
    QVERIFY(hint->text() != before);
    QTest::keyClick(box, Qt::Key_X, both);
    QCOMPARE(room.CtrlEnterKey(), QStringLiteral("on"));
    QTest::keyRelease(box, Qt::Key_Alt, both);
    QTest::keyRelease(box, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_K, both);
    QCOMPARE(room.CtrlEnterKey(), QStringLiteral("off"));
    QCOMPARE(hint->text(), before);
    QCOMPARE(box->text(), QString());
  }

  void EveryButtonIsPressedByEnterAndLeftByEscape() {
    Room room;
    room.onShow = QStringLiteral("John 4:2");
    FrmAddBibliaNaLista dialog(room.Doors());
    FrmBibleBrowser browser(room.Doors());
    FrmBibleSearch search(room.Doors());
    dialog.Open();
    browser.Open();
    search.Open();
    Named<ReferenceBox>(dialog, "Text2")->setText(QStringLiteral("John 4:2"));
    Named<QLineEdit>(search, "TxtBusca")->setText(QStringLiteral("sea"));
    QTRY_COMPARE(Named<QLabel>(search, "LbBusca")->text(), QStringLiteral("4 verses of KJV"));

    const QStringList added{QStringLiteral("PorNaLista 1 John 4:2 John 4:2"),
                            QStringLiteral("PorNaLista 1 John 4:2 John 4:2"),
                            QStringLiteral("PorNaLista 1 Genesis 1:2 Genesis 1:2")};
    for (QWidget *window : {static_cast<QWidget *>(&dialog), static_cast<QWidget *>(&browser),
                            static_cast<QWidget *>(&search)}) {
      auto *button = Named<QPushButton>(*window, "Command1");
      button->setFocus();
      QTest::keyClick(button, Qt::Key_Return);
      button->setFocus();
      QTest::keyClick(button, Qt::Key_Escape);
      QVERIFY(!window->isVisible());
    }
    QCOMPARE(room.console.TakeCalls(), added);
  }

  void TypingNarrowsTheColumns() {
    Room room;
    FrmBibleBrowser browser(room.Doors());
    browser.Open();
    auto *books = Named<QListWidget>(browser, "ListLivros");
    auto *verses = Named<QListWidget>(browser, "ListVersiculos");
    QCOMPARE(books->count(), BookCount);
    QTest::keyClicks(Named<QLineEdit>(browser, "TxtFiltro"), QStringLiteral("john 4 2"));
    QCOMPARE(books->currentItem()->text(), QStringLiteral("John"));
    QCOMPARE(Named<QListWidget>(browser, "ListCapitulos")->count(), 2);
    QCOMPARE(verses->count(), 2);
    QCOMPARE(Named<QLabel>(browser, "LbReferencia")->text(), QStringLiteral("John 4:2"));

    // Letters go to the filter from wherever the focus is; a book without chapters here offers nothing to show.
    QTest::keyClick(Named<QLineEdit>(browser, "TxtFiltro"), Qt::Key_Escape);
    QTest::keyClicks(verses, QStringLiteral("r"));
    QTest::keyClicks(Named<QLineEdit>(browser, "TxtFiltro"), QStringLiteral("uth"));
    QCOMPARE(books->currentItem()->text(), QStringLiteral("Ruth"));
    QCOMPARE(verses->count(), 0);
    QTest::keyClick(books, Qt::Key_Return);
    QVERIFY(room.console.calls.isEmpty());
  }

  void FoundVersesAreShownOrAdded() {
    Room room;
    FrmBibleSearch search(room.Doors());
    search.Open();
    auto *query = Named<QLineEdit>(search, "TxtBusca");
    const auto *list = Named<QTreeView>(search, "ListResultados");
    const auto *state = Named<QLabel>(search, "LbBusca");
    QTest::keyClicks(query, QStringLiteral("LÂMP \"light of\""));
    QTRY_COMPARE(state->text(), QStringLiteral("4 verses of KJV"));
    QTest::keyClick(query, Qt::Key_Down);
    QTest::keyClick(query, Qt::Key_Return);
    QCOMPARE(room.console.TakeCalls(),
             QStringList({QStringLiteral("cancelaWMP"), QStringLiteral("exibirPassagem I Samuel 17:3")}));
    QTest::keyClick(query, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("PorNaLista 1 I Samuel 17:3 I Samuel 17:3")));

    query->setText(QStringLiteral("nowhere"));
    QTRY_COMPARE(state->text(), QStringLiteral("No verse of KJV has these words."));
    QCOMPARE(list->model()->rowCount(), 0);
    QTest::keyClick(query, Qt::Key_Return);
    QVERIFY(room.console.calls.isEmpty());

    // The window looks into the version in force.
    query->setText(QStringLiteral("sea"));
    room.biblia.ChooseVersion(2);
    search.Open();
    QTRY_COMPARE(state->text(), QStringLiteral("4 verses of WEB"));
  }

  void OpenWindowsFollowTheVersion() {
    Room room;
    SmallBible().Chapter(1, 1, {QStringLiteral("Uma luz no mar.")}).Write(room.folder.path(), QStringLiteral("XYZ"));
    room.biblia.BuildVersionMenu();
    BibleWindows windows(room.Doors());
    room.biblia.VersaoMudou = [&windows] { windows.VersionChanged(); };
    windows.OpenAdd();
    windows.OpenBrowser();
    windows.OpenSearch();
    auto &add = *room.desk.findChild<FrmAddBibliaNaLista *>();
    auto &browser = *room.desk.findChild<FrmBibleBrowser *>();
    auto &search = *room.desk.findChild<FrmBibleSearch *>();
    Named<ReferenceBox>(add, "Text2")->setText(QStringLiteral("gen 1 1"));
    Named<QLineEdit>(browser, "TxtFiltro")->setText(QStringLiteral("john 4"));
    Named<QLineEdit>(search, "TxtBusca")->setText(QStringLiteral("luz"));
    QTRY_COMPARE(Named<QLabel>(search, "LbBusca")->text(), QStringLiteral("No verse of KJV has these words."));

    QVERIFY(room.biblia.ChooseVersion(3));
    QTRY_COMPARE(Named<QLabel>(search, "LbBusca")->text(), QStringLiteral("1 verse of XYZ"));
    QCOMPARE(Named<QLabel>(browser, "LbReferencia")->text(), QString());
    // The book that was chosen is still there when a version has it again.
    QVERIFY(room.biblia.ChooseVersion(2));
    QCOMPARE(Named<QLabel>(browser, "LbReferencia")->text(), QStringLiteral("John 3:1"));
    QCOMPARE(Named<QLabel>(browser, "LbVersiculo")->text(), QStringLiteral("A lamp is lit."));

    Named<ReferenceBox>(add, "Text2")->setText(QStringLiteral("genesis 1 1"));
    QVERIFY(room.biblia.ChooseVersion(3));
    QCOMPARE(Named<QLabel>(add, "LbVersiculo")->text(), QStringLiteral("Uma luz no mar."));
  }

  void ASearchGoesOnWhenItsWindowComesBack() {
    Room room;
    FrmBibleSearch search(room.Doors());
    search.Open();
    Named<QLineEdit>(search, "TxtBusca")->setText(QStringLiteral("sea"));
    search.hide();
    search.Open();
    QTRY_COMPARE(Named<QLabel>(search, "LbBusca")->text(), QStringLiteral("4 verses of KJV"));
  }

  void WithoutABibleTheWindowsSaySo() {
    Room room;
    QVERIFY(QDir(room.folder.filePath(QStringLiteral("Bible"))).removeRecursively());
    room.biblia.BuildVersionMenu();
    FrmBibleBrowser browser(room.Doors());
    browser.Open();
    FrmBibleSearch search(room.Doors());
    search.Open();
    Named<QLineEdit>(search, "TxtBusca")->setText(QStringLiteral("lamp"));
    const QString sentence = QStringLiteral("There is no Bible in the program folder.");
    QCOMPARE(Named<QLabel>(browser, "LbVersiculo")->text(), sentence);
    QCOMPARE(Named<QLabel>(search, "LbBusca")->text(), sentence);
    QTest::keyClick(Named<QListWidget>(browser, "ListLivros"), Qt::Key_Return);
    QVERIFY(room.console.calls.isEmpty());
  }
};

QTEST_MAIN(UiTestBibleWindows)
#include "ui_test_bible_windows.moc"
