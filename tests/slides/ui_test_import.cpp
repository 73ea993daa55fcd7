#include "foundation/ini_store.h"
#include "import_room.h"
#include "slides/FrmImportar.h"
#include "support/counting_yielder.h"
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
        window =
            std::make_unique<FrmImportar>(ImportDoors{app, programs, positions, [] { return ImportRoom::Screen; },
                                                      [this](const SlideDocument &document, const QString &name) {
                                                        opened.append(name + u' ' + QString::number(document.Count()));
                                                      }},
                                          &desk);
      return *window;
    }
    QString State() { return Window().findChild<QLabel *>(QStringLiteral("LbEstado"))->text(); }
    template <class Control> Control *The(const char *name) {
      return Window().findChild<Control *>(QLatin1String(name));
    }

    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    QWidget desk;
    QStringList opened;
    std::unique_ptr<FrmImportar> window;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void opensTheDocumentBehindItsPassword();
  void stopsByItsButtonAndByEscape();
  void saysWhyNothingCame();
};

void UiTestImport::opensTheDocumentBehindItsPassword() {
  Room room;
  QVERIFY(room.Window().Importa(room.Write("mine/Psalm.pdf", LockedPdf("amen"))));
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
    QVERIFY(room.Window().Importa(path));
    QTRY_COMPARE(room.State(), QStringLiteral("Page 2 of 40"));
    QCOMPARE(room.The<QProgressBar>("Barra")->maximum(), 40);
    QVERIFY(!room.Window().Importa(path)); // one at a time
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
  QVERIFY(room.Window().Importa(room.Write("mine/a.odp", "x")));
  QTRY_VERIFY(room.State().contains(u"libreoffice-impress"));
  QVERIFY(room.Window().isVisible());
  QVERIFY(room.The<QLabel>("LbEstado")->height() >=
          room.The<QLabel>("LbEstado")->heightForWidth(room.The<QLabel>("LbEstado")->width()));
  QTest::keyClick(&room.Window(), Qt::Key_Return);
  QVERIFY(!room.Window().isVisible());
}

QTEST_MAIN(UiTestImport)
#include "ui_test_import.moc"
