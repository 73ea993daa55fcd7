#include "foundation/ui/form_position.h"
#include "foundation/ui/qt_user_prompt.h"
#include "support/counting_yielder.h"
#include "support/window_warnings.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// Lets `act` run on the open box of this name, once it is open.
template <typename Box> void WhenOpen(const QString &name, const std::function<void(Box &)> &act) {
  QTimer::singleShot(0, qApp, [name, act] {
    QWidget *open = QApplication::activeModalWidget();
    QVERIFY(open);
    QCOMPARE(open->objectName(), name);
    act(*qobject_cast<Box *>(open));
  });
}

} // namespace

class UiTestWindows : public QObject {
  Q_OBJECT

private slots:
  void init() { FailOnWindowWarnings(); }

  void MessagesAreShownAsTheyAre() {
    QtUserPrompt prompt;
    QString title;
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    WhenOpen<QMessageBox>(QStringLiteral("MessageBox"), [&](QMessageBox &box) {
      title = box.windowTitle();
      text = box.text();
      format = box.textFormat();
      box.button(QMessageBox::Ok)->click();
    });
    prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), QStringLiteral("<b>File</b> not found"));
    QCOMPARE(title, QStringLiteral("Tolmira"));
    QCOMPARE(text, QStringLiteral("<b>File</b> not found"));
    QCOMPARE(format, Qt::PlainText);
  }

  void QuestionsGiveTheButton_data() {
    QTest::addColumn<QString>("press");
    QTest::addColumn<int>("answer");
    QTest::newRow("first") << QStringLiteral("Sim") << 0;
    QTest::newRow("last") << QStringLiteral("Talvez") << 2;
    QTest::newRow("closed") << QString() << -1;
  }
  void QuestionsGiveTheButton() {
    QFETCH(QString, press);
    QFETCH(int, answer);
    QtUserPrompt prompt;
    QStringList visible;
    WhenOpen<QMessageBox>(QStringLiteral("MessageBox"), [&](QMessageBox &box) {
      QAbstractButton *wanted = nullptr;
      for (QAbstractButton *button : box.buttons()) {
        if (button->isVisible())
          visible += button->text();
        if (button->text() == press)
          wanted = button;
      }
      if (wanted)
        wanted->click();
      else
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    const QStringList buttons = {QStringLiteral("Sim"), QStringLiteral("Outro"), QStringLiteral("Talvez")};
    QCOMPARE(prompt.Ask(QStringLiteral("t"), QStringLiteral("?"), buttons), answer);
    visible.sort();
    QCOMPARE(visible, QStringList({buttons.at(1), buttons.at(0), buttons.at(2)}));
  }

  void ABoxMayLoseItsWindow() {
    auto parent = std::make_unique<QWidget>();
    QtUserPrompt prompt(parent.get());
    WhenOpen<QMessageBox>(QStringLiteral("MessageBox"), [&](QMessageBox &) { parent.reset(); });
    QCOMPARE(prompt.Ask(QStringLiteral("t"), QStringLiteral("?"), {QStringLiteral("Sim")}), -1);
  }

  void FilesAreChosenInOurOwnDialogue() {
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("foto.png")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QtUserPrompt prompt;
    WhenOpen<QFileDialog>(QStringLiteral("FileDialog"), [&](QFileDialog &dialog) {
      dialog.selectFile(file.fileName());
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    const QString filter = QStringLiteral("Pictures (*.png)");
    QCOMPARE(prompt.OpenFile(QStringLiteral("t"), dir.path(), filter), file.fileName());
    WhenOpen<QFileDialog>(QStringLiteral("FileDialog"), [](QFileDialog &dialog) { dialog.reject(); });
    QCOMPARE(prompt.OpenFile(QStringLiteral("t"), dir.path(), filter), QString());
  }

  void AWindowComesBackWhereItWas() {
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("Data")));
    const IniStore store(AppFolder(dir.path()));
    CountingYielder yielder;
    FormPositions positions(store, yielder);
    QWidget form;
    form.setObjectName(QStringLiteral("FrmTema"));
    form.setProperty("varTAG", QStringLiteral("2"));
    form.resize(100, 80);
    form.move(37, 41);
    positions.SaveFormPosition(form, true);
    QString file = dir.path() + QStringLiteral("\\Data\\FormPositions.dat");
    QCOMPARE(store.ReadConfig(QStringLiteral("FrmTema2"), QStringLiteral("LEFT"), QString(), file),
             QStringLiteral("555"));
    form.move(0, 0);
    positions.RestoreFormPosition(form, true);
    QCOMPARE(form.pos(), QPoint(37, 41));
    QCOMPARE(yielder.calls, std::vector<int>{2});
    // Without the tag it is another window, which was never saved.
    positions.RestoreFormPosition(form, false, 5, 6);
    QCOMPARE(form.pos(), QPoint(6, 5));
  }
};

QTEST_MAIN(UiTestWindows)
#include "ui_test_windows.moc"
