#include "gallery_room.h"
#include "support/counting_yielder.h"
#include "support/window_warnings.h"
#include "themes/FrmBrowseImages.h"
#include "themes/ui/exibe_miniaturas.h"
#include "themes/ui/picture_view.h"
#include "themes/ui/theme_windows.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleHints>
#include <QUrl>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The gallery, by keys and mouse as an operator uses it.
class UiTestGallery : public QObject {
  Q_OBJECT

private:
  struct Room : GalleryRoom {
    Room()
        : positions(store, yielder),
          windows(ThemeDoors{
              app, store, positions, prompt, &desk,
              [this](const QString &path) { Use(u"background " + NameOf(path)); },
              [this](const QString &path, bool move) {
                Use((move ? u"moving " : u"still ") + NameOf(path));
                return !refuses;
              },
              [] { return true; }}) {
      desk.resize(1200, 900);
      positions.SetConsole(&desk);
    }
    // The first one is the newest.
    void Pictures(const QStringList &names) const {
      QDateTime date = QDateTime::currentDateTime();
      for (const QString &name : names) {
        Picture(name);
        SetDate(u"app/Images/" + name, date = date.addSecs(-3600));
      }
    }
    // The console builds a page and lets events run meanwhile.
    void Use(const QString &what) {
      used.append(what);
      QCoreApplication::processEvents();
    }
    QString NameOf(const QString &path) const {
      return path.startsWith(app.At(u"\\Images\\")) ? path.mid(app.At(u"\\Images\\").size()) : path;
    }
    void Open(const QString &modo, int numero = 0) {
      if (modo == u"FundoPadrao")
        windows.AbreGaleriaDoFundo();
      else if (modo == u"FrmMonitor")
        windows.AbreGaleriaDoTelao();
      else
        windows.AbreGaleria(
            {modo, numero, [this](const QString &path) { Use(u"client " + NameOf(path)); }, {}});
      window = desk.findChild<FrmBrowseImages *>();
      grid = window->findChild<cExibeMiniaturas *>();
    }
    QStringList Names() const { return grid->Modelo().Nomes(); }
    QString Label(const char *name) const { return window->findChild<QLabel *>(QLatin1String(name))->text(); }
    QPushButton *Button(const char *name) const { return window->findChild<QPushButton *>(QLatin1String(name)); }
    PictureView *View() const { return window->findChild<PictureView *>(); }
    QMenu *Menu() const { return window->findChild<QMenu *>(); }
    void Choose(const QString &entry) const {
      QMenu *menu = Menu();
      for (QAction *action : menu->actions())
        if (action->text() == entry)
          menu->setActiveAction(action);
      QTest::keyClick(menu, Qt::Key_Return);
      QCoreApplication::processEvents(); // it is done when the menu has gone
    }
    QStringList MenuOf(QWidget *widget) const {
      QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
      QApplication::sendEvent(widget, &event);
      QStringList entries;
      for (QAction *action : Menu()->actions())
        entries.append(action->text());
      return entries;
    }

    CountingYielder yielder;
    FormPositions positions;
    QWidget desk;
    ThemeWindows windows;
    QStringList used;
    bool refuses = false;
    FrmBrowseImages *window = nullptr;
    cExibeMiniaturas *grid = nullptr;
  };

private slots:
  void init() { FailOnWindowWarnings(); }

  void eachClientHasItsWords_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("firstLarge");
    QTest::addColumn<QString>("result");
    QTest::newRow("theme") << "FrmConfigTema"
                           << "Add this image to the Theme 4"
                           << "Image Gallery: 2 images"
                           << "Add this image to the Theme 4"
                           << "Escolher"
                           << "Escolher"
                           << "client b.png";
    QTest::newRow("slide") << "FrmSlides"
                           << "Add this image to the slide 4"
                           << "Image Galery: 2 images"
                           << "Add this image to the slide 4"
                           << "Escolher"
                           << "Escolher"
                           << "client b.png";
    QTest::newRow("background") << "FundoPadrao"
                                << "Change Background Default"
                                << "IMAGE GALLERY: 2 images"
                                << "Set this image as Default Background"
                                << "Exibir"
                                << "Exibir"
                                << "background b.png";
    QTest::newRow("screen") << "FrmMonitor"
                            << "Picture on the screen"
                            << "Image Gallery: 2 images"
                            << "Display this image on the projector"
                            << "Display this image on the projector"
                            << "Display as background image"
                            << "still b.png";
  }
  void eachClientHasItsWords() {
    Room room;
    room.Pictures({QStringLiteral("a.png"), QStringLiteral("b.png")});
    QFETCH(QString, mode);
    QFETCH(QString, result);
    room.Open(mode, 4);
    QVERIFY(room.window->isModal());
    QTEST(room.window->windowTitle(), "caption");
    QTEST(room.Label("LbTitulo"), "title");
    QTEST(room.Button("CmdAcao")->text(), "action");
    auto *move = room.window->findChild<QCheckBox *>(QStringLiteral("ChkMoveImagem"));
    QCOMPARE(move->isVisible(), mode == u"FrmMonitor");
    QVERIFY(move->isChecked()); // as the console has it
    move->setChecked(false);

    room.Button("CmdAcao")->click();
    QCOMPARE(room.Said(), QStringList(QStringLiteral("First select the image")));
    QVERIFY(room.window->isVisible() && room.used.isEmpty());
    QCOMPARE(room.MenuOf(room.grid), QStringList({QStringLiteral("Add Image"), QStringLiteral("Preview")}));
    room.Menu()->close();
    QTRY_VERIFY(!room.Menu());

    room.grid->SetIndexSelecionado(1);
    QFETCH(QString, first);
    QCOMPARE(room.MenuOf(room.grid), QStringList({first, QStringLiteral("Select this image"), QStringLiteral("Preview"),
                                                  QStringLiteral("Delete")}));
    room.Choose(QStringLiteral("Select this image")); // and stays
    QTRY_VERIFY(!room.Menu() && room.used == QStringList(result));
    QVERIFY(room.window->isVisible());
    QTest::keyClick(room.grid, Qt::Key_Space);
    QFETCH(QString, firstLarge);
    QCOMPARE(room.MenuOf(room.View()), QStringList({firstLarge, QStringLiteral("Delete")}));
    room.Choose(firstLarge);
    QTRY_VERIFY(!room.window->isVisible());
    QCOMPARE(room.used, QStringList({result, result}));
  }

  void keysAloneAreEnough() {
    Room room;
    QStringList names;
    for (int i = 0; i < 30; ++i)
      names.append(QStringLiteral("%1.png").arg(i));
    names[17] = QStringLiteral("the cross.png");
    names[18] = QStringLiteral("the dove.png");
    room.Pictures(names);
    room.Open(QStringLiteral("FrmMonitor"));
    QCOMPARE(room.Names(), names);
    room.grid->SetColunas(5);
    const auto press = [&room](Qt::Key key) {
      QTest::keyClick(room.grid, key);
      return room.grid->IndexSelecionado();
    };
    QVERIFY(!room.Button("CmdPreview")->isEnabled());
    QCOMPARE(press(Qt::Key_Down), 0);
    QVERIFY(room.Button("CmdPreview")->isEnabled());
    QCOMPARE(press(Qt::Key_Down), 5);
    QCOMPARE(press(Qt::Key_Right), 6);
    QCOMPARE(press(Qt::Key_Left), 5);
    QCOMPARE(press(Qt::Key_Left), 4); // into the row before
    QCOMPARE(press(Qt::Key_Up), 4);
    QCOMPARE(press(Qt::Key_End), 29);
    QCOMPARE(press(Qt::Key_Home), 0);
    const int page = press(Qt::Key_PageDown);
    QVERIFY(page >= 5 && page % 5 == 0);
    QCOMPARE(press(Qt::Key_PageUp), 0);
    QTest::keyClicks(room.grid, QStringLiteral("the d")); // the blank is a part of the name
    QCOMPARE(room.grid->NomeArquivo(), names[18]);
    QVERIFY(!room.View()->isVisible());

    QTest::qWait(QGuiApplication::styleHints()->keyboardInputInterval() + 50);
    QTest::keyClick(room.grid, Qt::Key_Space);
    QTRY_VERIFY(!room.View()->Imagem().isNull());
    QTest::keyClick(room.View(), Qt::Key_Left);
    QCOMPARE(room.View()->Nome(), names[17]);
    QTest::keyClick(room.View(), Qt::Key_Backtab);
    QVERIFY(!room.grid->hasFocus()); // its keys would choose a picture that is not seen
    QTest::keyClick(room.window->focusWidget(), Qt::Key_Escape);
    QVERIFY(!room.View()->isVisible() && room.window->isVisible() && room.grid->hasFocus());

    QTest::keyClick(room.grid, Qt::Key_Delete);
    QVERIFY(!room.Images().contains(names[17]));
    QCOMPARE(room.grid->NomeArquivo(), names[18]);
    QCOMPARE(room.Label("LbTitulo"), QStringLiteral("Image Gallery: 29 images"));
    room.refuses = true;
    QTest::keyClick(room.grid, Qt::Key_Return);
    QVERIFY(room.window->isVisible());
    room.refuses = false;
    QTest::keyClick(room.grid, Qt::Key_Return);
    QCOMPARE(room.used, QStringList(2, u"moving " + names[18]));
    QVERIFY(!room.window->isVisible());
    room.Open(QStringLiteral("FrmMonitor"));
    QTest::keyClick(room.grid, Qt::Key_Space);
    QTest::keyClick(room.View(), Qt::Key_Return);
    QVERIFY(!room.window->isVisible());
    room.Open(QStringLiteral("FrmMonitor"));
    QVERIFY(!room.View()->isVisible());
    QTest::keyClick(room.grid, Qt::Key_Escape);
    QVERIFY(!room.window->isVisible());
  }

  void filesAreDroppedAndChosen() {
    Room room;
    room.Open(QStringLiteral("FundoPadrao"));
    QCOMPARE(room.Label("LbTitulo"), QStringLiteral("IMAGE GALLERY: 0 images"));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(room.Write(QStringLiteral("mine/d'água #1.png"), PictureBytes({40, 30}, "png"))),
                   QUrl::fromLocalFile(room.Write(QStringLiteral("mine/letter.jpg"), "Dear all,"))});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(room.grid->viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(room.grid->viewport(), &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    QTRY_COMPARE(room.Names(), QStringList(QStringLiteral("d'água #1.png")));
    QCOMPARE(room.Said(), QStringList(QStringLiteral("This file cannot be used as a picture.\nletter.jpg")));
    QCOMPARE(room.grid->IndexSelecionado(), 0);
    QCOMPARE(room.Label("LbTitulo"), QStringLiteral("IMAGE GALLERY: 1 images"));
    QTRY_VERIFY(room.grid->Modelo().Copia(0));

    room.prompt.files = {room.Write(QStringLiteral("mine/b.png"), PictureBytes({40, 30}, "png"))};
    room.Button("Label17")->click();
    QTRY_COMPARE(room.Names().size(), 2);
    QCOMPARE(room.grid->NomeArquivo(), QStringLiteral("b.png"));
    QCOMPARE(room.gallery.PastaAddImg(), room.Path(QStringLiteral("mine")));
    room.Button("Label17")->click(); // given up
    QCOMPARE(room.Names().size(), 2);
    QVERIFY(room.Said().isEmpty());
  }

  void aLargeFolderScrollsAndOnlyWhatIsNearIsFetched() {
    Room room;
    QStringList names;
    for (int i = 0; i < 500; ++i)
      names.append(QStringLiteral("%1.png").arg(i, 3, 10, QLatin1Char('0')));
    room.Pictures(names);
    room.Open(QStringLiteral("FrmConfigTema"), 1);
    QTRY_VERIFY(room.grid->Modelo().Tem(names[0]));
    const int columns = room.grid->Colunas(); // as the rows really break
    QCOMPARE(room.grid->visualRect(room.grid->model()->index(columns, 0)).left(),
             room.grid->visualRect(room.grid->model()->index(0, 0)).left());
    QVERIFY(!room.grid->Modelo().Tem(names[499]));
    room.grid->verticalScrollBar()->setValue(room.grid->verticalScrollBar()->maximum());
    QTRY_VERIFY(room.grid->Modelo().Tem(names[499]));
    QVERIFY(!room.grid->Modelo().Tem(names[250])); // passed over
    QTest::keyClick(room.grid, Qt::Key_Home);
    QCOMPARE(room.grid->verticalScrollBar()->value(), 0);
  }

  void whatCannotBeShownSaysWhy() {
    Room room;
    room.Write(QStringLiteral("app/Images/letter.jpg"), "Dear all,");
    room.Open(QStringLiteral("FundoPadrao"));
    QTRY_VERIFY(room.grid->Modelo().Copia(0));
    QCOMPARE(room.grid->model()->index(0, 0).data(Qt::ToolTipRole).toString(),
             QStringLiteral("letter.jpg\nNot a picture"));
    room.grid->SetIndexSelecionado(0);
    QTest::keyClick(room.grid, Qt::Key_Return);
    QFile::remove(room.Path(QStringLiteral("app/Images/letter.jpg")));
    QTest::keyClick(room.grid, Qt::Key_Return);
    QTest::keyClick(room.grid, Qt::Key_Space);
    QCOMPARE(room.Said(), QStringList({QStringLiteral("This file cannot be used as a picture."),
                                       QStringLiteral("File not Found"), QStringLiteral("File not Found")}));
    QVERIFY(room.used.isEmpty() && room.window->isVisible());
  }
};

QTEST_MAIN(UiTestGallery)
#include "ui_test_gallery.moc"
