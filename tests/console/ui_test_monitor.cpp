#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QSlider>
#include <QtTest>

#include "console/FrmMonitor.h"
#include "console/monitors.h"
#include "console_fixture.h"
#include "controls/ui/frame_mark.h"
#include "controls/ui/group_list.h"
#include "controls/ui/palette.h"
#include "controls/ui/text_strip.h"
#include "controls/ui/theme_tile.h"
#include "foundation/real_seams.h"
#include "support/ui_warnings.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// The console over a program folder of its own, with the projection replaced by a recording.
class Desk : public ConsoleFixture {
public:
  explicit Desk(const QSize &size = {1280, 800}) : frm(ConsoleParts::Of(core)) {
    Write(QStringLiteral("Lyrics/Rocha Eterna.txt"), TresEstrofes);
    Write(QStringLiteral("Lyrics/Santo Santo.txt"), "Uma linha\r\n\r\nOutra linha");
    core.agenda.SelectTab(1);
    frm.resize(size);
    frm.show();
    frm.activateWindow();
    if (!QTest::qWaitForWindowActive(&frm))
      qFatal("the window never became active");
  }

  void Fill() {
    QString message;
    core.agenda.PorNaLista(QStringLiteral("Santo Santo"), 2, QString(), message);
    core.agenda.PorNaLista(QStringLiteral("Rocha Eterna"), 2, QString(), message);
    core.agenda.PorNaLista(QStringLiteral("João 3:16"), 1, QString(), message);
  }

  template <typename T = QWidget> T *Find(const QString &name) {
    T *found = frm.findChild<T *>(name);
    if (!found)
      qFatal("there is no control %s", qPrintable(name));
    return found;
  }
  GroupList *List() { return static_cast<GroupList *>(Find<QListWidget>(QStringLiteral("ListTarefas"))); }
  // A key as the window system gives it: to whatever has the focus.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(QApplication::focusWidget(), key, modifiers); }
  QPoint RowOf(const QString &label) {
    const QList<QListWidgetItem *> items = List()->findItems(label, Qt::MatchExactly);
    if (items.isEmpty())
      qFatal("no such entry: %s", qPrintable(label));
    return List()->visualItemRect(items.first()).center();
  }
  void DoubleClick(const QString &label) {
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, RowOf(label));
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, RowOf(label));
  }

  FrmMonitor frm;
};

QStringList RowTexts(const QListWidget *list) {
  QStringList texts;
  for (int row = 0; row < list->count(); ++row)
    texts << list->item(row)->text();
  return texts;
}

} // namespace

class UiTestMonitor : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { ApplyLook(*qApp); }
  void init() { QTest::failOnWarning(UnexpectedWarning()); }

  void listShowsTheAgendaInItsGroups() {
    Desk desk;
    QVERIFY(desk.List()->count() == 0);
    desk.Fill();
    QCOMPARE(RowTexts(desk.List()), QStringList({QStringLiteral("Bible"), QStringLiteral("João 3:16"),
                                                 QStringLiteral("Songs"), QStringLiteral("Santo Santo"),
                                                 QStringLiteral("Rocha Eterna")}));
    auto *clear = desk.Find<QPushButton>(QStringLiteral("BotaoFlat11"));
    QCOMPARE(clear->text(), QStringLiteral("Clear 'Agenda 1'"));
    for (int n = 2; n <= 4; ++n)
      QVERIFY(!desk.Find<QPushButton>(QStringLiteral("BotaoFlat1%1").arg(n))->isEnabled());

    QTest::mouseClick(desk.List()->viewport(), Qt::LeftButton, {}, desk.RowOf(QStringLiteral("Rocha Eterna")));
    QCOMPARE(desk.core.agenda.Lista().SelectedName(), QStringLiteral("Rocha Eterna"));
    QVERIFY(desk.Find<QPushButton>(QStringLiteral("BotaoFlat12"))->isEnabled());
    QVERIFY(desk.Find<QPushButton>(QStringLiteral("BotaoFlat14"))->isEnabled());
    QTest::mouseClick(desk.Find<QPushButton>(QStringLiteral("BotaoFlat12")), Qt::LeftButton);
    QCOMPARE(desk.core.agenda.Lista().Count(2), 1);

    QTest::mouseClick(clear, Qt::LeftButton);
    QCOMPARE(desk.List()->count(), 0);
    QCOMPARE(clear->text(), QStringLiteral("Clear List"));
    QVERIFY(!clear->isEnabled());
  }

  void slidesStandInPlaceOfTheStrip() {
    Desk desk;
    desk.WriteSlides(QStringLiteral("Culto.sld"), 200);
    desk.core.flow.ShowEntry(5, 1, QStringLiteral("Culto"), QStringLiteral("Culto.sld"));
    auto *tiles = desk.Find<QListView>(QStringLiteral("ControlSlides1"));
    QVERIFY(tiles->isVisible());
    QVERIFY(!desk.Find(QStringLiteral("Label1"))->isVisible());
    QCOMPARE(tiles->model()->rowCount(), 200);
    const auto inSight = [tiles](int slide) {
      return tiles->viewport()->rect().contains(tiles->visualRect(tiles->model()->index(slide - 1, 0)));
    };
    QTest::mouseClick(tiles->viewport(), Qt::LeftButton, {},
                      tiles->visualRect(tiles->model()->index(1, 0)).center());
    QCOMPARE(desk.core.estado.SlideAtual, 2);
    // Wherever the focus went by that, the keys step on, and the tile that is out stays in sight.
    for (int i = 0; i < 40; ++i)
      desk.Key(Qt::Key_Down);
    QCOMPARE(desk.core.estado.SlideAtual, 42);
    QVERIFY(inSight(42) && inSight(43));
    QCOMPARE(desk.Find<QLabel>(QStringLiteral("LbContagem"))->text(), QStringLiteral("42 / 200"));
    desk.Key(Qt::Key_End);
    QVERIFY(inSight(200));

    auto *brightness = desk.Find<QSlider>(QStringLiteral("slider1"));
    brightness->setFocus();
    desk.Key(Qt::Key_Home); // the slider's own key
    QCOMPARE(desk.core.estado.SlideAtual, 200);

    desk.core.flow.ShowEntry(2, 1, QStringLiteral("Santo Santo"), QStringLiteral("Santo Santo"));
    QVERIFY(!tiles->isVisible());
    QVERIFY(desk.Find(QStringLiteral("Label1"))->isVisible());
  }

  void doubleClickShowsAndMarksTheEntry() {
    Desk desk;
    desk.Fill();
    QVERIFY(!desk.Find(QStringLiteral("Label1"))->isVisible());
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    QCOMPARE(desk.Find<QLabel>(QStringLiteral("Label9"))->text(), QStringLiteral("Rocha Eterna"));
    QVERIFY(desk.Find(QStringLiteral("Label1"))->isVisible());
    QVERIFY(desk.Find(QStringLiteral("PicAviso"))->isVisible());
    QVERIFY(!desk.Find(QStringLiteral("PicAviso2"))->isVisible());
    QCOMPARE(desk.List()->OnShow(), (QPair<int, int>(2, 2)));
    QCOMPARE(QApplication::focusWidget(), desk.Find(QStringLiteral("PicAbac2")));
    QCOMPARE(desk.Find<QLabel>(QStringLiteral("LbContagem"))->text(), QStringLiteral("– / 3"));
  }

  void wholeServiceByKeyboard() {
    Desk desk;
    desk.Fill();
    desk.List()->setFocus();
    desk.Key(Qt::Key_Down); // no song is loaded: the arrows walk in the list
    desk.Key(Qt::Key_Down);
    QCOMPARE(desk.core.agenda.Lista().SelectedName(), QStringLiteral("Santo Santo"));
    desk.Key(Qt::Key_Return);
    QCOMPARE(desk.core.painel.Label9, QStringLiteral("Santo Santo"));

    desk.Key(Qt::Key_Down);
    QCOMPARE(desk.core.estado.EstrofeAtual, 1); // one press, one step, however many widgets the key climbs through
    desk.EndGlide();
    QCOMPARE(desk.VersesSent().size(), 1);

    // The next entry is chosen while the verse stays, and from the list the arrows still step.
    desk.Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(desk.core.agenda.Lista().SelectedName(), QStringLiteral("Rocha Eterna"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(desk.List()));
    QCOMPARE(desk.core.painel.Label9, QStringLiteral("Santo Santo"));
    desk.Key(Qt::Key_Down);
    QCOMPARE(desk.core.estado.EstrofeAtual, 2);
    QCOMPARE(desk.core.agenda.Lista().SelectedName(), QStringLiteral("Rocha Eterna"));
    desk.List()->setFocus();
    desk.Key(Qt::Key_Enter);
    QCOMPARE(desk.core.painel.Label9, QStringLiteral("Rocha Eterna"));

    desk.Key(Qt::Key_F7);
    QCOMPARE(desk.core.estado.EstadoTela, QStringLiteral("TelaPreta"));
    // From another window too, and over a question.
    QDialog other(&desk.frm);
    QLineEdit box(&other);
    other.setModal(true);
    other.show();
    other.activateWindow();
    box.setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), &box);
    desk.Key(Qt::Key_F5);
    QCOMPARE(desk.core.estado.EstadoTela, QStringLiteral("Normal"));
    int choosers = 0;
    desk.core.controles.AbreGaleria = [&] { ++choosers; };
    desk.Key(Qt::Key_F8);
    QCOMPARE(choosers, 0);
    other.close();
    desk.frm.activateWindow();
    QTRY_VERIFY(desk.frm.isActiveWindow());
    desk.Key(Qt::Key_F8);
    QCOMPARE(choosers, 1);
    desk.Key(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(desk.core.estado.ActiveAgenda, 2);
    desk.Key(Qt::Key_F12);
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("PicImgFundoB1"));
    desk.Key(Qt::Key_Tab);
    desk.Key(Qt::Key_Tab);
    while (!qobject_cast<ThemeTile *>(QApplication::focusWidget()))
      desk.Key(Qt::Key_Tab);
    desk.Key(Qt::Key_Space);
    QCOMPARE_NE(desk.core.estado.ProximoTema, SemTemaNaFila);
  }

  void ctrlHoldsTheProjectionBack_data() {
    QTest::addColumn<QString>("release");
    QTest::newRow("key released") << QStringLiteral("key");
    QTest::newRow("window left") << QStringLiteral("deactivate");
    QTest::newRow("release lost") << QStringLiteral("lost");
  }
  void ctrlHoldsTheProjectionBack() {
    QFETCH(QString, release);
    Desk desk;
    desk.Fill();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    desk.Key(Qt::Key_Down);
    desk.EndGlide();
    desk.Forget();
    QWidget *strip = desk.Find(QStringLiteral("PicAbac2"));
    // The test library's own clicks let go of Ctrl after each key.
    const auto press = [strip](int key, Qt::KeyboardModifiers modifiers, bool repeated = false) {
      QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeated);
      QApplication::sendEvent(strip, &event);
    };
    press(Qt::Key_Control, Qt::ControlModifier);
    QVERIFY(desk.Find(QStringLiteral("PicDica3"))->isVisible());
    press(Qt::Key_Control, Qt::ControlModifier, true);
    press(Qt::Key_Down, Qt::ControlModifier);
    desk.EndGlide();
    QCOMPARE(desk.core.estado.EstrofeAtual, 2);
    QCOMPARE(desk.VersesSent().size(), 0);

    if (release == u"key") {
      QKeyEvent up(QEvent::KeyRelease, Qt::Key_Control, Qt::NoModifier);
      QApplication::sendEvent(strip, &up);
    } else if (release == u"deactivate") {
      QEvent leave(QEvent::WindowDeactivate);
      QApplication::sendEvent(&desk.frm, &leave);
    } else {
      press(Qt::Key_Shift, Qt::ShiftModifier);
    }
    QVERIFY(desk.core.estado.EnviarAoTelao);
    QVERIFY(!desk.Find(QStringLiteral("PicDica3"))->isVisible());
    QCOMPARE(desk.VersesSent().size(), 1);
  }

  void tabIsRenamedInItsPlace() {
    Desk desk;
    desk.Fill();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    auto *tab = desk.Find<QPushButton>(QStringLiteral("BotaoFlat52"));
    QTest::mouseDClick(tab, Qt::LeftButton);
    auto *editor = desk.Find<QLineEdit>(QStringLiteral("BotaoFlat52Editor"));
    QTRY_VERIFY(editor->hasFocus());
    QTest::keyClicks(editor, QStringLiteral("Noite & vigilia"));
    // Arrows and Ctrl belong to the text while it is typed.
    QTest::keyClick(editor, Qt::Key_Left);
    QTest::keyPress(editor, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyRelease(editor, Qt::Key_Control);
    QCOMPARE(editor->cursorPosition(), 14);
    QCOMPARE(desk.core.estado.EstrofeAtual, -1);
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(desk.core.agenda.TabTitle(2), QStringLiteral("Noite & vigilia"));
    QCOMPARE(tab->text(), QStringLiteral("Noite && vigilia"));

    QTest::keyClick(tab, Qt::Key_F2);
    editor = tab->findChild<QLineEdit *>();
    QTRY_VERIFY((editor = tab->findChild<QLineEdit *>()) && editor->hasFocus());
    QCOMPARE(editor->text(), QStringLiteral("Noite & vigilia"));
    QTest::keyClicks(editor, QStringLiteral("something else"));
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(desk.core.agenda.TabTitle(2), QStringLiteral("Noite & vigilia"));
  }

  void entriesMoveInsideTheirGroup() {
    Desk desk;
    desk.Fill();
    desk.core.agenda.SelectEntry(2, 1);
    desk.Key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(desk.core.agenda.Lista().NameAt(2, 2), QStringLiteral("Santo Santo"));
    QCOMPARE(desk.List()->Chosen(), (QPair<int, int>(2, 2)));
    desk.Key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier); // at the end already
    QCOMPARE(desk.core.agenda.Lista().NameAt(2, 2), QStringLiteral("Santo Santo"));
    emit desk.List()->EntryMoved(2, 2, 1);
    QCOMPARE(RowTexts(desk.List()).mid(3), QStringList({QStringLiteral("Santo Santo"), QStringLiteral("Rocha Eterna")}));
  }

  void versionsOpenFromTheReferenceBox() {
    Desk desk;
    desk.Key(Qt::Key_F10);
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text2"));
    desk.Key(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(QApplication::activePopupWidget());
    QCOMPARE(QApplication::activePopupWidget()->objectName(), QStringLiteral("mn_ib"));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text2"));
  }

  void whatIsDroppedIsAddedOnce() {
    Desk desk;
    for (int i = 0; i < 2; ++i)
      emit desk.List()->EntryOffered({3, QStringLiteral("12 Rocha"), QStringLiteral("12 Rocha")});
    QCOMPARE(desk.core.agenda.Lista().Count(3), 1);
    QCOMPARE(desk.core.agenda.Lista().CaptionAt(3, 1), QStringLiteral("12 Rocha"));
  }

  void theFirstDownInTheListIsAtItsFirstEntry() {
    Desk desk;
    desk.Fill();
    desk.Find(QStringLiteral("PicAbac2"))->setFocus();
    desk.Key(Qt::Key_F3);
    desk.Key(Qt::Key_Down);
    QCOMPARE(desk.List()->Chosen(), (QPair<int, int>(1, 1)));
  }

  void fontsAreThoseInstalled() {
    Desk desk;
    desk.frm.CarregaFontes();
    auto *fonts = desk.Find<QComboBox>(QStringLiteral("ComboFontes"));
    QCOMPARE_GT(fonts->count(), 0);
    for (int i = 0; i < fonts->count(); ++i)
      QVERIFY(!fonts->itemText(i).startsWith(u'@'));
    desk.core.estado.TemaAtual.Font_Name = fonts->itemText(fonts->count() - 1);
    desk.frm.ThemesChanged();
    QCOMPARE(fonts->currentIndex(), fonts->count() - 1);
    desk.core.estado.TemaAtual.Font_Name = QStringLiteral("No Such Font");
    desk.frm.ThemesChanged();
    QCOMPARE(fonts->currentIndex(), -1);
    QCOMPARE(fonts->findText(QStringLiteral("No Such Font")), -1);
  }

  void screenStates() {
    Desk desk;
    auto *banner = desk.Find<QLabel>(QStringLiteral("LbEstadoTela"));
    auto *black = desk.Find<QAbstractButton>(QStringLiteral("LBTela2"));
    QCOMPARE(banner->text(), QStringLiteral("LIVE, NO TEXT"));
    QTest::mouseClick(black, Qt::LeftButton);
    QVERIFY(desk.display.telaPreta);
    QVERIFY(black->isChecked());
    QCOMPARE(banner->text(), QStringLiteral("BLACK SCREEN"));
    desk.core.painel.SemProjetor = true; // whatever the state is, nobody sees it
    desk.frm.Atualiza();
    QCOMPARE(banner->text(), QStringLiteral("NO PROJECTOR"));
    desk.core.painel.SemProjetor = false;
    desk.frm.Atualiza();
    const QImage image = banner->grab().toImage();
    QCOMPARE(QColor(image.pixel(12, 22)).rgb(), cores::Off);

    // There is no default background: the choice is refused and the marker stays.
    QTest::mouseClick(desk.Find<QAbstractButton>(QStringLiteral("LBTela3")), Qt::LeftButton);
    QVERIFY(black->isChecked());
    QVERIFY(!desk.Find<QAbstractButton>(QStringLiteral("LBTela3"))->isChecked());
    QVERIFY(desk.frm.findChild<QAction *>(QStringLiteral("MnTela2"))->isChecked());

    desk.Find(QStringLiteral("LBTela0"))->setFocus();
    desk.Key(Qt::Key_Return);
    QCOMPARE(desk.core.estado.EstadoTela, QStringLiteral("Normal"));
    desk.Fill();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    desk.Key(Qt::Key_Down);
    desk.EndGlide();
    QCOMPARE(banner->text(), QStringLiteral("LIVE"));
    for (int i = 0; i < 5; ++i)
      QCOMPARE(desk.Find(QStringLiteral("LBTela%1").arg(i))->toolTip(), ScreenControls::DicaDoEstado(i));
  }

  void previewMirrorsLieOverThePage() {
    Desk desk;
    QWidget *page = desk.Find(QStringLiteral("PicWV"));
    QWidget *black = desk.Find(QStringLiteral("PicTelaPretaPreview"));
    QWidget *picture = desk.Find(QStringLiteral("ImagePadraoPreview"));
    QImage blue(64, 36, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(desk.folder.filePath(QStringLiteral("Images/fundo.png"))));
    QVERIFY(!desk.frm.LoadMirrorPicture(desk.app.At(u"\\Images\\missing.png")));
    QVERIFY(desk.frm.LoadMirrorPicture(desk.app.At(u"\\Images\\fundo.png")));
    desk.frm.ShowMirrorPicture(true);
    desk.frm.ShowMirrorBlack(true);
    QCOMPARE(black->geometry(), page->geometry());
    QCOMPARE(picture->geometry(), page->geometry());
    const QPoint middle = page->geometry().center();
    QCOMPARE(QColor(page->parentWidget()->grab().toImage().pixel(middle)), QColor(Qt::blue));
    desk.frm.ShowMirrorPicture(false);
    QCOMPARE(QColor(page->parentWidget()->grab().toImage().pixel(middle)), QColor(Qt::black));
    QCOMPARE(desk.frm.PreviewWidthPx(), page->width());
    desk.frm.DefineTelao({1024, 768});
    QVERIFY(qAbs(page->width() * 3 - page->height() * 4) <= 6);
    QCOMPARE(black->geometry(), page->geometry());
  }

  void tilesShowAndPress() {
    Desk desk;
    desk.core.temas[2].CordeFundo = 0x0000ff; // red, in the stores' order
    desk.core.temas[5].CordeFundo = 0xff0000; // blue
    desk.frm.CarregaTiles();
    auto *second = static_cast<ThemeTile *>(desk.Find(QStringLiteral("PicImgFundoB2")));
    QTRY_COMPARE(second->Shown().colour, QColor(Qt::red));
    QCOMPARE(QColor(second->grab().toImage().pixel(second->rect().center())), QColor(Qt::red));
    auto *fifth = static_cast<ThemeTile *>(desk.Find(QStringLiteral("PicImgFundoB5")));
    QTRY_COMPARE(fifth->Shown().colour, QColor(Qt::blue));

    auto *active = desk.Find(QStringLiteral("PicTemaAtual"));
    auto *queued = static_cast<FrameMark *>(desk.Find(QStringLiteral("PicAvisoProximo")));
    QTest::mouseClick(second, Qt::LeftButton); // nothing is on show: at once
    QCOMPARE(desk.core.estado.IndiceTema, 2);
    QVERIFY(active->isVisible());
    QVERIFY(active->geometry().contains(second->geometry()));
    QVERIFY(!queued->isVisible());

    desk.Fill();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    QTest::mouseClick(fifth, Qt::LeftButton);
    QCOMPARE(desk.core.estado.ProximoTema, 5);
    QCOMPARE(desk.core.estado.IndiceTema, 2);
    QVERIFY(queued->isVisible() && queued->IsBlinking());
    QVERIFY(queued->geometry().contains(fifth->geometry()));

    // A theme that changes in the store shows on its tile.
    desk.core.temas[5].CordeFundo = 0x00ff00;
    desk.frm.ThemesChanged();
    QTRY_COMPARE(fifth->Shown().colour, QColor(Qt::green));
  }

  void tilePicturesAndBadges() {
    Desk desk;
    QImage picture(320, 180, QImage::Format_RGB32);
    picture.fill(QColor(10, 200, 10));
    QDir(desk.folder.path()).mkpath(QStringLiteral("Data/mini"));
    QVERIFY(picture.save(desk.folder.filePath(QStringLiteral("Images/a.png"))));
    desk.core.temas[3].Tipo = QStringLiteral("Imagem");
    desk.core.temas[3].Imagem = desk.app.At(u"\\Images\\a.png") + u'|' + desk.app.At(u"\\Images\\a.png") + u'|';
    desk.frm.CarregaTiles();
    auto *tile = static_cast<ThemeTile *>(desk.Find(QStringLiteral("PicImgFundoB3")));
    QTRY_COMPARE(tile->Shown().count, QStringLiteral("2 Imagens"));
    QTRY_VERIFY(!tile->Shown().picture.isNull()); // made beside the interface thread
    const QColor middle = tile->grab().toImage().pixel(tile->rect().center());
    QVERIFY2(middle.green() > 180 && middle.red() < 40, qPrintable(middle.name()));
    QVERIFY(tile->accessibleName().contains(u"2 Imagens"));
  }

  void rotationBoxes() {
    Desk desk;
    auto *all = desk.Find<QCheckBox>(QStringLiteral("CheckAlteraTemaAleatorio"));
    auto *box = desk.Find<QCheckBox>(QStringLiteral("ChkIM4"));
    QVERIFY(!all->isChecked());
    QVERIFY(!box->isVisible());
    QTest::mouseClick(all, Qt::LeftButton, {}, {8, all->height() / 2});
    QVERIFY(desk.core.temaControle.CheckAlteraTemaAleatorio());
    QVERIFY(box->isVisible() && box->isChecked());
    const int theme = desk.core.estado.IndiceTema;
    for (int n = 16; n >= 1; --n) {
      auto *each = desk.Find<QCheckBox>(QStringLiteral("ChkIM%1").arg(n));
      QTest::mouseClick(each, Qt::LeftButton, {}, each->rect().center());
    }
    QCOMPARE(desk.prompt.shown.last().text, QStringLiteral("At least one item must remain enabled."));
    QVERIFY(desk.Find<QCheckBox>(QStringLiteral("ChkIM1"))->isChecked());
    QVERIFY(!box->isChecked());
    QCOMPARE(desk.core.estado.IndiceTema, theme); // a box is not the tile under it
  }

  void settingsFollowTheRecordAndStayInPlace() {
    Desk desk;
    desk.Fill();
    auto *style = desk.Find<QSlider>(QStringLiteral("SliderExLouvor"));
    QVERIFY(!style->isVisible());
    const QRect strip = desk.Find(QStringLiteral("PicAbac2"))->geometry();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    QVERIFY(style->isVisible());
    QCOMPARE(style->value(), 4);
    QCOMPARE(desk.Find(QStringLiteral("PicAbac2"))->geometry(), strip);
    style->setFocus();
    desk.Key(Qt::Key_PageUp); // a song is on show, so the arrows are not the slider's
    QCOMPARE(desk.core.ajustes.EstiloLouvor, 5);
    QCOMPARE(desk.Find<QLabel>(QStringLiteral("ValorEstilo"))->text(), QStringLiteral("5"));
    QVERIFY(desk.Find(QStringLiteral("SliderZoom"))->isVisible());
    style->setValue(7);
    QVERIFY(!desk.Find(QStringLiteral("SliderZoom"))->isVisible());
    QCOMPARE(desk.Find(QStringLiteral("PicAbac2"))->geometry(), strip);
  }

  void stripBreaksLinesWhereTheMeasureDoes_data() {
    QTest::addColumn<QString>("family");
    QTest::addColumn<double>("sizePt");
    QTest::newRow("installed") << QStringLiteral("Liberation Serif") << 17.3;
    QTest::newRow("missing") << QStringLiteral("No Such Family") << 23.7;
    QTest::newRow("small") << QStringLiteral("DejaVu Sans") << 9.1;
  }
  void stripBreaksLinesWhereTheMeasureDoes() {
    QFETCH(QString, family);
    QFETCH(double, sizePt);
    FontTextMeasure measure;
    const FontSpec font{FonteInstalada(family), sizePt, true};
    TextStrip strip;
    TextStrip::Content content;
    content.text = QStringLiteral("Through many dangers, toils and snares I have already come\r\n\r\n"
                                  "WAS BLIND, BUT NOW I SEE THE LORD HAS PROMISED GOOD TO ME");
    content.family = font.family;
    content.fontPx = sizePt * 96 / 72;
    content.lineHeight = measure.Height(QString(), font, 0);
    for (double width = 120; width < 900; width += 7) {
      content.width = width;
      strip.SetContent(content);
      const int lines = qRound(measure.Height(content.text, font, width) / content.lineHeight);
      QVERIFY2(strip.LineCount() == lines,
               qPrintable(QStringLiteral("%1 px: %2, measured %3").arg(width).arg(strip.LineCount()).arg(lines)));
    }
  }

  void dragOfTheStripReachesTheStepper() {
    Desk desk;
    desk.Fill();
    desk.DoubleClick(QStringLiteral("Rocha Eterna"));
    QWidget *label1 = desk.Find(QStringLiteral("Label1"));
    const int before = desk.core.faixa.Label1Topo;
    const QPoint from(label1->width() / 2, label1->height() - 20);
    QTest::mousePress(label1, Qt::LeftButton, {}, from);
    const int wanted = desk.core.faixa.FrameTop / TwipsPerPixel + 4 - desk.core.estado.Estrofes[1].Topo / TwipsPerPixel;
    const int way = wanted - before / TwipsPerPixel;
    QTest::mouseMove(label1, from + QPoint(0, way));
    QVERIFY(qAbs(desk.core.faixa.Label1Topo - (before + way * TwipsPerPixel)) <= TwipsPerPixel);
    QTest::mouseRelease(label1, Qt::LeftButton, {}, from + QPoint(0, way));
    desk.EndGlide();
    QCOMPARE(desk.core.estado.EstrofeAtual, 1);
    QCOMPARE(desk.VersesSent().size(), 1);
  }

  void aLongAgendaStaysWhereItIsScrolledTo() {
    Desk desk;
    QByteArray lines;
    for (int i = 0; i < 80; ++i)
      lines += "2|#|Louvor " + QByteArray::number(i) + "|#|\r\n";
    for (const int n : {2, 3})
      desk.Write(QStringLiteral("Data/agenda%1.dat").arg(n), n == 2 ? lines : "2|#|Outro|#|\r\n" + lines);
    desk.core.agenda.SelectTab(2);
    QScrollBar *bar = desk.List()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 100);
    QCOMPARE(bar->value(), 0);
    bar->setValue(100);
    const int least = bar->maximum();
    QString message;
    desk.core.agenda.PorNaLista(QStringLiteral("Novo"), 2, QString(), message);
    QTRY_VERIFY(bar->maximum() > least);
    QCOMPARE(bar->value(), 100);
    desk.core.agenda.SelectTab(3);
    QCoreApplication::processEvents(); // the list lays its rows out when it is asked to draw them
    QCOMPARE(bar->value(), 0);
  }

  void hintsOfAnEmptyAgenda() {
    Desk desk;
    desk.core.agenda.SelectTab(3);
    auto *hint = desk.Find(QStringLiteral("PicDicaAgenda"));
    QVERIFY(hint->isVisible());
    auto *text = desk.Find<QLabel>(QStringLiteral("LbDicaAgenda"));
    QCOMPARE(text->text(), desk.core.painel.LbDicaAgenda);
    QVERIFY(desk.Find(QStringLiteral("PicAbac2"))->rect().contains(hint->geometry()));
    QCOMPARE_GE(text->height(), text->heightForWidth(text->width()));
  }

  void aSmallScreenScrollsToWhatTheKeysReach() {
    Desk desk({800, 520});
    desk.core.painel.PicTemaAtual = 16;
    desk.core.painel.LBTelaMarcado = 4;
    QWidget *body = desk.Find(QStringLiteral("ListTarefas"))->window()->findChild<QScrollArea *>()->viewport();
    const QList<QPair<Qt::Key, QString>> ways{{Qt::Key_F12, QStringLiteral("PicImgFundoB16")},
                                              {Qt::Key_F10, QStringLiteral("Text2")},
                                              {Qt::Key_F11, QStringLiteral("LBTela4")},
                                              {Qt::Key_F3, QStringLiteral("ListTarefas")}};
    for (const auto &[key, name] : ways) {
      desk.Key(key);
      QWidget *wanted = desk.Find(name);
      QVERIFY2(wanted->hasFocus(), qPrintable(name));
      QVERIFY2(body->rect().contains(QRect(wanted->mapTo(body, QPoint()), wanted->size())), qPrintable(name));
    }
  }

  void everyControlHasItsNames() {
    Desk desk;
    desk.core.temaControle.SetCheckAlteraTemaAleatorio(true);
    QStringList poor;
    QSet<QString> names;
    const QList<QWidget *> widgets = desk.frm.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
      const bool control = qobject_cast<QAbstractButton *>(widget) || qobject_cast<QAbstractSlider *>(widget) ||
                           qobject_cast<QComboBox *>(widget) || qobject_cast<QLineEdit *>(widget) ||
                           qobject_cast<QListWidget *>(widget);
      if (!control || !widget->parentWidget() || qobject_cast<QComboBox *>(widget->parentWidget()) ||
          widget->objectName().startsWith(u"qt_") || qobject_cast<QAbstractScrollArea *>(widget->parentWidget()->parentWidget()))
        continue;
      const QString name = widget->objectName();
      const bool noTip = widget->toolTip().isEmpty() && name != u"LBTela3"; // the one that has none
      if (name.isEmpty() || widget->accessibleName().isEmpty() || noTip || names.contains(name))
        poor << QStringLiteral("%1 %2").arg(QLatin1String(widget->metaObject()->className()), name);
      names.insert(name);
    }
    QVERIFY2(poor.isEmpty(), qPrintable(poor.join(u'\n')));
    QCOMPARE_GT(names.size(), 60);
  }

  void noLetterStandsForTwo_data() {
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("kind");
    QTest::newRow("song") << QStringLiteral("Rocha Eterna") << 2;
    QTest::newRow("nothing") << QString() << 0;
  }
  void noLetterStandsForTwo() {
    QFETCH(QString, label);
    QFETCH(int, kind);
    Desk desk;
    if (kind > 0)
      desk.core.flow.ShowEntry(kind, 0, label, label);
    QSet<QString> letters;
    const auto note = [&letters](const QString &text) {
      const QString letter = QKeySequence::mnemonic(text).toString();
      if (!letter.isEmpty() && letters.contains(letter))
        QFAIL(qPrintable(QString(letter + u" is taken: " + text)));
      letters.insert(letter);
    };
    for (const QAction *menu : desk.frm.menuBar()->actions())
      note(menu->text());
    for (const QAbstractButton *button : desk.frm.findChildren<QAbstractButton *>())
      if (button->isVisible())
        note(button->text());
    for (const QLabel *caption : desk.frm.findChildren<QLabel *>())
      if (caption->isVisible() && caption->buddy())
        note(caption->text());
    QVERIFY(letters.size() > 8);
  }
  void tabReachesEveryControl() {
    Desk desk;
    desk.Fill();
    desk.core.agenda.SelectEntry(2, 1);
    desk.core.temaControle.SetCheckAlteraTemaAleatorio(true);
    desk.List()->setFocus();
    QSet<QWidget *> reached;
    for (int i = 0; i < 200 && !reached.contains(QApplication::focusWidget()); ++i) {
      reached.insert(QApplication::focusWidget());
      desk.Key(Qt::Key_Tab);
    }
    QStringList missing;
    const QList<QWidget *> widgets = desk.frm.findChildren<QWidget *>();
    for (QWidget *widget : widgets)
      if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
          !widget->focusProxy() && !reached.contains(widget))
        missing << widget->objectName();
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u' ')));
  }

  void windowGoesBetweenWorkAreaAndItsOwnRectangle() {
    Desk desk;
    desk.frm.setMinimumSize(100, 100); // the test desktop is smaller than the window likes to be
    desk.frm.positionInicial();
    const QRect work = desk.frm.screen()->availableGeometry();
    const QRect all = desk.frm.screen()->geometry();
    QCOMPARE(LeRetanguloNormal(desk.store, all), RetanguloPadrao(all));
    QCOMPARE(desk.frm.frameGeometry(), work);
    auto *toggle = desk.Find<QPushButton>(QStringLiteral("Image3"));
    toggle->click();
    const auto place = [&desk] { return QRect(desk.frm.pos(), desk.frm.size()); };
    QCOMPARE(place(), RetanguloPadrao(all));

    const QRect own(40, 30, 500, 400);
    desk.frm.move(own.topLeft());
    desk.frm.resize(own.size());
    toggle->click();
    QCOMPARE(desk.frm.frameGeometry(), work);
    QCOMPARE(LeRetanguloNormal(desk.store, all), own);
    toggle->click();
    QCOMPARE(place(), own);

    // By the window manager, of which the button knows too.
    const QString enlarge = toggle->accessibleName();
    desk.frm.move(60, 50);
    desk.frm.showMaximized();
    QTRY_VERIFY(toggle->accessibleName() != enlarge);
    toggle->click();
    QVERIFY(!desk.frm.isMaximized());
    QTRY_COMPARE(place(), own.translated(20, 20));
    QCOMPARE(toggle->accessibleName(), enlarge);
    QCOMPARE(LeRetanguloNormal(desk.store, all), own.translated(20, 20));
  }

  void edgesResizeTheWindow_data() {
    QTest::addColumn<QString>("edge");
    QTest::addColumn<QSize>("change");
    QTest::newRow("right") << QStringLiteral("PicMoveW") << QSize(60, 0);
    QTest::newRow("lower") << QStringLiteral("PicMoveH") << QSize(0, 40);
    QTest::newRow("corner") << QStringLiteral("picResize") << QSize(60, 40);
  }
  void edgesResizeTheWindow() {
    QFETCH(QString, edge);
    QFETCH(QSize, change);
    Desk desk;
    int previews = 0;
    desk.frm.PreviaMudou = [&previews] { ++previews; };
    QWidget *grip = desk.Find(edge);
    QVERIFY(desk.frm.childAt(grip->geometry().center()) == grip);
    const QSize before = desk.frm.size();
    const QPoint from = grip->rect().center();
    QTest::mousePress(grip, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, from, grip->mapToGlobal(from + QPoint(60, 40)), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(grip, &move);
    QTest::mouseRelease(grip, Qt::LeftButton);
    QCOMPARE(desk.frm.size(), before + change);
    QVERIFY(desk.frm.rect().contains(grip->geometry()));
    QTRY_VERIFY(previews == (change.width() > 0 ? 1 : previews));
  }

  void aRectangleOutOfReachIsNotRestored() {
    Desk desk;
    desk.frm.setMinimumSize(100, 100);
    desk.frm.positionInicial();
    const QRect all = desk.frm.screen()->geometry();
    GravaRetanguloNormal(desk.store, QRect(all.right() + 500, 40, 500, 400));
    desk.Find<QPushButton>(QStringLiteral("Image3"))->click();
    QCOMPARE(QRect(desk.frm.pos(), desk.frm.size()), RetanguloPadrao(all));
  }

  void screensAreAMenu() {
    Desk desk;
    QList<int> chosen;
    FrmMonitor::Windows windows;
    windows.chooseScreen = [&chosen](int index) { chosen << index; };
    desk.frm.SetWindows(std::move(windows));
    desk.core.painel.telas = {{QStringLiteral("Automatic"), false, true},
                              {QStringLiteral("A & B"), true, true},
                              {QStringLiteral("C, not connected"), false, false}};
    desk.frm.Atualiza();
    const auto *menu = desk.frm.findChild<QMenu *>(QStringLiteral("MnProjecao"));
    QVERIFY(menu);
    const QList<QAction *> entries = menu->actions();
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries[1]->text(), QStringLiteral("A && B"));
    QVERIFY(entries[1]->isChecked() && !entries[2]->isEnabled());
    entries[0]->trigger();
    QTRY_COMPARE(chosen, QList<int>{0});
  }

  void closingTellsTheOwnerOnce() {
    Desk desk;
    int closed = 0;
    desk.frm.AoFechar = [&closed] { ++closed; };
    desk.frm.close();
    QCOMPARE(closed, 1);
  }
};

QTEST_MAIN(UiTestMonitor)
#include "ui_test_monitor.moc"
