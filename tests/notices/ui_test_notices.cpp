#include "controls/ui/colour_field.h"
#include "notices/FrmAvisoConfig.h"
#include "notices/FrmExibeAviso.h"
#include "notices/FrmListaAvisos.h"
#include "notices/notice_sender.h"
#include "notices/ui/notice_windows.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/scripted_prompt.h"
#include "support/window_warnings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The three windows of the notices, as an operator uses them.
class UiTestNotices : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      positions.SetConsole(&desk);
    }
    QWidget *Window(const char *name) const {
      for (QWidget *top : QApplication::topLevelWidgets())
        if (top->objectName() == QLatin1String(name))
          return top;
      return nullptr;
    }
    template <class Control> Control *In(const char *window, const char *name) const {
      return Window(window)->findChild<Control *>(QLatin1String(name));
    }
    void Click(const char *window, const char *button) const { In<QAbstractButton>(window, button)->click(); }
    QByteArray List() const { return ReadBytes(folder.filePath(QStringLiteral("Data/notices.txt"))); }
    void WriteList(const QByteArray &list) const {
      WriteBytes(folder.filePath(QStringLiteral("Data/notices.txt")), list);
    }

    QTemporaryDir folder;
    AppFolder app{folder.path()};
    IniStore store{app};
    ScriptedPrompt prompt;
    CountingYielder yielder;
    FormPositions positions{store, yielder};
    QWidget desk;
    QStringList sent;
    QList<bool> opened;
    QString hidden; // why nobody sees a notice
    NoticeWindows windows{{store, prompt, positions, [this](const QString &c) { sent << c; }, [this] { return hidden; },
                           [this](bool open) { opened << open; }, &desk}};
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void enterSendsAndTheNextTimeTheTextIsChosen() {
    Room room;
    room.windows.AbreAviso();
    auto *form = room.Window("FrmExibeAviso");
    auto *text1 = room.In<QLineEdit>("FrmExibeAviso", "Text1");
    auto *text2 = room.In<QLineEdit>("FrmExibeAviso", "Text2");
    QCOMPARE(text2->text(), QStringLiteral("2"));
    QVERIFY(QTest::qWaitForWindowActive(form));
    QTest::keyClicks(text1, QStringLiteral("Carro ABC"));
    text2->clear();
    QCOMPARE(text2->text(), QString()); // stays until it is sent
    QTest::keyClicks(text2, QStringLiteral("21"));
    QCOMPARE(text2->text(), QStringLiteral("20"));
    QTest::keyClick(text1, Qt::Key_Return);
    QCOMPARE(room.sent, QStringList{QStringLiteral("AVISO:|#Carro ABC|#bottom|#20|#8|#11|##C00000|##FFFFFF|#")});
    QVERIFY(!form->isVisible());
    QCOMPARE(room.opened, (QList<bool>{true, false}));

    room.windows.AbreAviso();
    QCOMPARE(text1->selectedText(), QStringLiteral("Carro ABC"));
    QCOMPARE(text2->text(), QStringLiteral("20"));
    room.Click("FrmExibeAviso", "Command2");
    QCOMPARE(room.sent.takeLast(), QStringLiteral("CancelaAviso"));
    QVERIFY(form->isVisible());
    text1->setText(QStringLiteral("not sent"));
    QTest::keyClick(text1, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    QCOMPARE(room.sent.size(), 1);
    room.windows.AbreAviso();
    QCOMPARE(text1->text(), QStringLiteral("Carro ABC"));
  }

  void saysWhileNobodyWouldSeeIt() {
    Room room;
    room.hidden = AvisoDeTelaCoberta(false, QStringLiteral("TelaPreta"));
    room.windows.AbreAviso();
    const auto *label = room.In<QLabel>("FrmExibeAviso", "LabelAviso");
    QVERIFY(label->text().startsWith(u"The screen is black"));
    room.hidden = AvisoDeTelaCoberta(false, QStringLiteral("OcultarTexto")); // by its key, with the window open
    QTRY_COMPARE(label->text(), QString());
  }

  void theListAnswers_data() {
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("empty");
    QTest::addColumn<QString>("unselected"); // empty: needs no selection
    QTest::newRow("use") << QByteArray("Command1")
                         << QStringLiteral("There are no warnings in the list.\n\nIf you want to add a new warning to "
                                           "the list, click 'Add new warning'.")
                         << QStringLiteral("First, select a warning from the warning list.");
    QTest::newRow("edit") << QByteArray("Command6") << QStringLiteral("There are no notices in the list.")
                          << QStringLiteral("First, select the warning you want to edit");
    QTest::newRow("delete") << QByteArray("Command3") << QStringLiteral("The warning list is empty.")
                            << QStringLiteral("First, select the warning you want to delete.");
    QTest::newRow("delete all") << QByteArray("Command4") << QStringLiteral("The warning list is already empty")
                                << QStringLiteral("Do you want to delete all warnings from the list?");
  }
  void theListAnswers() {
    QFETCH(QByteArray, button);
    QFETCH(QString, empty);
    QFETCH(QString, unselected);
    Room room;
    room.windows.AbreLista();
    QVERIFY(room.In<QWidget>("FrmListaAvisos", "PicListaVazia")->isVisible());
    room.Click("FrmListaAvisos", button.constData());
    QCOMPARE(room.prompt.TakeTexts(), QStringList{empty});
    room.Window("FrmListaAvisos")->close();
    room.WriteList("a\r\nb\r\n");
    room.windows.AbreLista();
    QVERIFY(!room.In<QWidget>("FrmListaAvisos", "PicListaVazia")->isVisible());
    room.Click("FrmListaAvisos", button.constData());
    QCOMPARE(room.prompt.TakeTexts(), QStringList{unselected});
    QCOMPARE(room.List(), QByteArray("a\r\nb\r\n"));
  }

  void theListIsKept() {
    Room room;
    room.prompt.typed = {QStringLiteral("  "), QStringLiteral("first"), QStringLiteral("second"),
                         QStringLiteral(" 2nd ")};
    room.windows.AbreLista();
    room.Click("FrmListaAvisos", "Command5");
    QCOMPARE(room.List(), QByteArray()); // blanks are none
    room.Click("FrmListaAvisos", "Command7");
    room.Click("FrmListaAvisos", "Command5");
    QCOMPARE(room.List(), QByteArray("first\r\nsecond\r\n"));
    QCOMPARE(room.prompt.textQuestions.last(),
             (QStringList{QStringLiteral("New Warning"), QStringLiteral("Enter the new warning"), QString()}));
    room.Click("FrmListaAvisos", "Command6"); // the new one is selected
    QCOMPARE(room.prompt.textQuestions.last(),
             (QStringList{QStringLiteral("Avisos"), QStringLiteral("Edit Notice"), QStringLiteral("second")}));
    QCOMPARE(room.List(), QByteArray("first\r\n 2nd \r\n"));
    auto *list = room.In<QListWidget>("FrmListaAvisos", "List1");
    list->setCurrentRow(0);
    room.prompt.typed = {QStringLiteral("1st\u2028\v!"), QStringLiteral("third")};
    QTest::keyClick(list, Qt::Key_F2);
    QTest::keyClick(list, Qt::Key_Insert);
    QCOMPARE(room.List(), QByteArray("1st  !\r\n 2nd \r\nthird\r\n"));
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete}) // as people copy and cut
      QTest::keyClick(list, key, Qt::ShiftModifier);
    QCOMPARE(list->count(), 3);
    QTest::keyClick(list, Qt::Key_Delete);
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(room.List(), QByteArray(" 2nd \r\n"));
    room.Click("FrmListaAvisos", "Command4"); // closed without an answer
    QCOMPARE(list->count(), 1);
    room.prompt.answers = {0};
    room.Click("FrmListaAvisos", "Command4");
    QCOMPARE(room.List(), QByteArray());
    QVERIFY(room.In<QWidget>("FrmListaAvisos", "PicListaVazia")->isVisible());
  }

  void whatCannotBeSavedIsTold() {
    Room room;
    QDir(room.folder.path()).mkpath(QStringLiteral("Data/notices.txt/in the way"));
    room.windows.AbreLista();
    room.prompt.typed = {QStringLiteral("lost?")};
    room.Click("FrmListaAvisos", "Command5");
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList{QStringLiteral("The list of notices could not be saved. It stays as it was.")});
    QCOMPARE(room.In<QListWidget>("FrmListaAvisos", "List1")->count(), 0);
  }

  void useBringsTheTextToTheNotice() {
    Room room;
    room.WriteList("a\r\n b \r\n");
    room.windows.AbreAviso();
    room.Click("FrmExibeAviso", "CmdLista");
    auto *list = room.In<QListWidget>("FrmListaAvisos", "List1");
    QVERIFY(QTest::qWaitForWindowActive(room.Window("FrmListaAvisos")));
    list->setCurrentRow(1);
    QTest::keyClick(list, Qt::Key_Return);
    QVERIFY(!room.Window("FrmListaAvisos")->isVisible());
    QVERIFY(room.Window("FrmExibeAviso")->isVisible());
    QCOMPARE(room.In<QLineEdit>("FrmExibeAviso", "Text1")->text(), QStringLiteral(" b "));
    QCOMPARE(room.sent, QStringList());
  }

  void theLookIsSaved() {
    Room room;
    room.store.WriteConfig(QStringLiteral("Avisos"), QStringLiteral("PosicaoAviso"), QStringLiteral("-1"));
    room.windows.AbreAviso();
    room.Click("FrmExibeAviso", "CmdConfig");
    auto *band = room.In<ColourField>("FrmAvisoConfig", "SelectColors1");
    const QRect screen = room.In<QFrame>("FrmAvisoConfig", "PicAvisoMini")->contentsRect();
    auto *shown = room.In<QWidget>("FrmAvisoConfig", "LbAvisoMini")->parentWidget();
    QCOMPARE(band->Colour(), 192);
    QCOMPARE(shown->geometry().bottom(), screen.bottom());
    room.In<QRadioButton>("FrmAvisoConfig", "OptionFlat1")->click();
    QCOMPARE(shown->y(), screen.top());
    const int before = shown->height();
    room.In<QSlider>("FrmAvisoConfig", "slider1")->setValue(20);
    QVERIFY(shown->height() > 2 * before);
    room.In<QSlider>("FrmAvisoConfig", "slider2")->setValue(30);
    // The colour is the one under the pointer as long as the button is held, at the right edge a grey.
    QTest::mousePress(band, Qt::LeftButton, {}, QPoint(band->width() - 10, band->height() - 10));
    QTest::mouseMove(band, QPoint(band->width() + 50, band->height() + 50));
    QTest::mouseRelease(band, Qt::LeftButton, {}, QPoint(band->width() + 50, band->height() + 50));
    room.Click("FrmAvisoConfig", "Command1");
    QVERIFY(!room.Window("FrmAvisoConfig")->isVisible());
    const auto stored = [&](const char *key) {
      return room.store.ReadConfig(QStringLiteral("Avisos"), QLatin1String(key), QStringLiteral("none"));
    };
    QCOMPARE(stored("PorcentoAviso"), QStringLiteral("20"));
    QCOMPARE(stored("VelocAviso"), QStringLiteral("30"));
    QCOMPARE(stored("FundoAvisoColor"), QString::number(band->Colour()));
    QCOMPARE(band->Colour() & 0xff, band->Colour() >> 16);
    QVERIFY((band->Colour() & 0xff) < 64);
    QCOMPARE(stored("LetraAvisoColor"), QStringLiteral("16777215"));
    QCOMPARE(stored("PosicaoAviso"), QStringLiteral("0"));
  }
};

QTEST_MAIN(UiTestNotices)
#include "ui_test_notices.moc"
