#include <QDirIterator>
#include <QFile>
#include <QMimeData>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>

#include "controls/ui/context_menu_key.h"
#include "controls/ui/desk_icon.h"
#include "controls/ui/entry_drag.h"
#include "controls/ui/flat_button.h"
#include "controls/ui/group_list.h"
#include "controls/ui/palette.h"
#include "controls/ui/tab_button.h"
#include "controls/ui/text_strip.h"
#include "support/ui_warnings.h"

using namespace tolmira;

namespace {

double Luminance(QRgb colour) {
  const auto part = [](int value) {
    const double c = value / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) + 0.0722 * part(qBlue(colour));
}

double Contrast(QRgb a, QRgb b) {
  const double light = std::max(Luminance(a), Luminance(b));
  const double dark = std::min(Luminance(a), Luminance(b));
  return (light + 0.05) / (dark + 0.05);
}

// The brightest red channel of an area, which tells dimmed letters from bright ones.
int Brightest(const QImage &image, const QRect &area) {
  int brightest = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      brightest = std::max(brightest, qRed(image.pixel(x, y)));
  return brightest;
}

} // namespace

class UiTestLook : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { ApplyLook(*qApp); }
  void init() { QTest::failOnWarning(testing::UnexpectedWarning()); }

  void textReadsOnEveryGround_data() {
    QTest::addColumn<QRgb>("ink");
    QTest::addColumn<QRgb>("ground");
    const std::pair<const char *, QRgb> grounds[] = {
        {"desk", cores::Desk}, {"panel", cores::Panel}, {"raised", cores::Raised}};
    for (const auto &[name, ground] : grounds) {
      QTest::addRow("text on %s", name) << cores::Text << ground;
      QTest::addRow("quiet on %s", name) << cores::Quiet << ground;
    }
    QTest::addRow("text on hover") << cores::Text << cores::Hover;
    QTest::addRow("quiet on hover") << cores::Quiet << cores::Hover;
    QTest::addRow("keys of the sheet") << cores::Accent << cores::Desk;
    QTest::addRow("no text yet") << cores::Live << cores::Desk;
    QTest::addRow("captions without a client") << cores::Held << cores::Desk;
    QTest::addRow("outside the frame") << QColor(cores::Faint).lighter(125).rgb() << cores::Panel;
    for (const auto &[name, colour] : {std::pair{"live", cores::Live}, std::pair{"held", cores::Held},
                                       std::pair{"off", cores::Off}}) {
      // A chosen state lies on a tint of its colour.
      const auto mixed = [colour = colour](int (*channel)(QRgb)) {
        return (channel(colour) * 46 + channel(cores::Desk) * 209) / 255;
      };
      const QRgb tint = qRgb(mixed(qRed), mixed(qGreen), mixed(qBlue));
      QTest::addRow("chosen state, %s", name) << cores::Text << tint;
      QTest::addRow("key of the chosen state, %s", name) << cores::Quiet << tint;
    }
    QTest::addRow("text on selection") << cores::Text << cores::Selection;
    QTest::addRow("desk on accent") << cores::Desk << cores::Accent;
    QTest::addRow("desk on live") << cores::Desk << cores::Live;
    QTest::addRow("desk on held") << cores::Desk << cores::Held;
    QTest::addRow("desk on off") << cores::Desk << cores::Off;
  }
  void textReadsOnEveryGround() {
    QFETCH(QRgb, ink);
    QFETCH(QRgb, ground);
    QCOMPARE_GE(Contrast(ink, ground), 4.5);
  }

  void drawingsKeepToThePaletteAndShowSomething() {
    const QString sheet = DeskStyleSheet();
    QVERIFY(!sheet.contains(u'@'));
    const QRegularExpression hex(QStringLiteral("#[0-9a-fA-F]{6}"));
    const QList<QRgb> palette = {cores::Text, cores::Quiet, cores::Faint, cores::Desk};
    int drawings = 0;
    for (QDirIterator it(QStringLiteral(":/tolmira/icons")); it.hasNext();) {
      QFile file(it.next());
      QVERIFY(file.open(QIODevice::ReadOnly));
      auto found = hex.globalMatch(QString::fromUtf8(file.readAll()));
      while (found.hasNext()) {
        const QString colour = found.next().captured();
        QVERIFY2(palette.contains(QColor(colour).rgb()), qPrintable(file.fileName() + u' ' + colour));
      }
      const QString name = QFileInfo(file.fileName()).completeBaseName();
      const QImage image = DeskIcon(QLatin1String(name.toLatin1()), cores::Text).pixmap(24, 24).toImage();
      QVERIFY2(Brightest(image, image.rect()) > 0 || name == u"indicator-check", qPrintable(name));
      if (!name.startsWith(u"indicator-")) { // those are drawn much smaller
        QFile again(file.fileName());
        QVERIFY(again.open(QIODevice::ReadOnly));
        const QByteArray drawing = again.readAll();
        QVERIFY2(drawing.contains("viewBox=\"0 0 24 24\"") && drawing.count("stroke-width=") == 1 &&
                     drawing.contains("stroke-width=\"1.75\""),
                 qPrintable(name));
      }
      ++drawings;
    }
    QCOMPARE_GT(drawings, 20);
  }

  void stripIsBrightInTheFrameAndDimmedOutside() {
    TextStrip strip;
    strip.resize(300, 300);
    TextStrip::Content content;
    content.text = QStringLiteral("MMMM\r\nMMMM\r\nMMMM\r\n\r\nMMMM\r\nMMMM");
    content.family = QStringLiteral("Liberation Sans");
    content.fontPx = 24;
    content.lineHeight = 30;
    content.left = 20;
    content.width = 260;
    strip.SetContent(content);
    QCOMPARE(strip.LineCount(), 6);
    strip.SetFrame(QRectF(6, 100, 288, 100));
    strip.SetTop(105); // three lines inside of the frame, two below it
    strip.show();
    const QImage image = strip.grab().toImage();
    const int bright = Brightest(image, QRect(60, 105, 180, 88));
    const int dimmed = Brightest(image, QRect(60, 226, 180, 40));
    QCOMPARE_GE(bright, 225);
    QVERIFY2(dimmed > 90 && dimmed < 180, qPrintable(QString::number(dimmed)));

    strip.SetTop(-70); // the last two lines went up into the frame's place and above
    const QImage moved = strip.grab().toImage();
    QVERIFY(Brightest(moved, QRect(60, 226, 180, 40)) < 60);
  }

  void stripTellsTheMouseInItsOwnCoordinates() {
    TextStrip strip;
    strip.resize(300, 300);
    strip.SetTop(40);
    strip.show();
    QSignalSpy pressed(&strip, &TextStrip::Pressed);
    QSignalSpy dragged(&strip, &TextStrip::Dragged);
    QSignalSpy released(&strip, &TextStrip::Released);
    QTest::mouseMove(&strip, {150, 120});
    QCOMPARE(dragged.size(), 0); // no button is down
    QTest::mousePress(&strip, Qt::LeftButton, {}, {150, 100});
    QTest::mouseMove(&strip, {150, 90});
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, {150, 80});
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(pressed[0][0].toDouble(), 60.0);
    QCOMPARE(released[0][0].toDouble(), 40.0);
    QTest::mousePress(&strip, Qt::RightButton, {}, {150, 100});
    QCOMPARE(pressed.size(), 1);
  }

  void groupListKeepsHeadingsOutOfTheWay() {
    GroupList list({{QStringLiteral("A"), {}}, {QStringLiteral("B"), {}}, {QStringLiteral("C"), {}}}, nullptr);
    list.resize(200, 300);
    list.show();
    list.SetEntries({{{QStringLiteral("a1"), {}}}, {}, {{QStringLiteral("c1"), {}}, {QStringLiteral("c2"), {}}}});
    QCOMPARE(list.count(), 5); // the empty group has no heading
    QCOMPARE(list.EntryCount(), 3);
    QSignalSpy chosen(&list, &GroupList::EntryChosen);
    list.SetChosen(1, 1);
    QCOMPARE(chosen.size(), 0); // only the user's choice is told
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(list.Chosen(), (QPair<int, int>(3, 1)));
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(list.Neighbour(1), (QPair<int, int>(3, 2)));
    QCOMPARE(list.Neighbour(-1), (QPair<int, int>(1, 1)));
    QCOMPARE(list.Neighbour(9), (QPair<int, int>(3, 2)));
    ContextMenuKey key;
    QSignalSpy menu(&list, &GroupList::MenuWanted);
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(menu.size(), 1);
    list.SetChosen(0, 0);
    QCOMPARE(list.Neighbour(1), (QPair<int, int>(1, 1)));
    list.SetEntries({});
    QCOMPARE(list.Neighbour(1), (QPair<int, int>(0, 0)));
  }

  void anEntryGoesWhereTheLineBetweenTheRowsIs_data() {
    QTest::addColumn<int>("row"); // under the pointer; 0 and 4 are headings
    QTest::addColumn<int>("below"); // px from the middle of that row
    QTest::addColumn<int>("to");    // 0: it stays
    QTest::newRow("behind the next") << 3 << 8 << 3;
    QTest::newRow("in front of the next: where it is") << 3 << -8 << 0;
    QTest::newRow("on itself") << 2 << 5 << 0;
    QTest::newRow("in front of the first") << 1 << -8 << 1;
    QTest::newRow("behind the first: where it is") << 1 << 8 << 0;
    QTest::newRow("on the heading") << 0 << 0 << 1;
    QTest::newRow("on another group") << 5 << 8 << 0;
    QTest::newRow("under everything, which another group ends") << 5 << 90 << 0;
  }
  void anEntryGoesWhereTheLineBetweenTheRowsIs() {
    struct Droppable : GroupList {
      using GroupList::dropEvent;
      using GroupList::GroupList;
    } list({{QStringLiteral("A"), {}}, {QStringLiteral("B"), {}}}, nullptr);
    list.resize(200, 400);
    list.show();
    list.SetEntries({{{QStringLiteral("a1"), {}}, {QStringLiteral("a2"), {}}, {QStringLiteral("a3"), {}}},
                     {{QStringLiteral("b1"), {}}}});
    list.SetChosen(1, 2);
    QSignalSpy moved(&list, &GroupList::EntryMoved);
    QFETCH(int, row);
    QFETCH(int, below);
    QFETCH(int, to);
    const QMimeData data;
    QDropEvent drop(list.visualItemRect(list.item(row)).center() + QPoint(0, below), Qt::MoveAction, &data,
                    Qt::LeftButton, {});
    list.dropEvent(&drop);
    QCOMPARE(moved.size(), to > 0 ? 1 : 0);
    if (to > 0)
      QCOMPARE(moved.first(), (QVariantList{1, 2, to}));
  }

  void entriesOfOtherWindowsAreOffered() {
    struct Droppable : GroupList {
      using GroupList::dragEnterEvent;
      using GroupList::dragMoveEvent;
      using GroupList::dropEvent;
      using GroupList::GroupList;
    } list({{QStringLiteral("A"), {}}}, nullptr);
    list.resize(200, 400);
    list.show();
    QList<EntryDrag> offered;
    connect(&list, &GroupList::EntryOffered, &list, [&offered](const EntryDrag &entry) { offered.append(entry); });
    const std::unique_ptr<QMimeData> song(EntryDrag{2, QStringLiteral("Ação"), QStringLiteral("ação")}.ToMime());
    QMimeData text;
    text.setText(QStringLiteral("Ação"));
    for (const QMimeData *data : {static_cast<const QMimeData *>(song.get()), static_cast<const QMimeData *>(&text)}) {
      QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data, Qt::LeftButton, {});
      enter.ignore();
      list.dragEnterEvent(&enter);
      QCOMPARE(enter.isAccepted(), data != &text);
      QDragMoveEvent move(QPoint(5, 50), Qt::CopyAction, data, Qt::LeftButton, {});
      move.ignore();
      list.dragMoveEvent(&move);
      QCOMPARE(move.isAccepted(), data != &text);
    }
    QDropEvent drop(QPoint(5, 50), Qt::CopyAction, song.get(), Qt::LeftButton, {});
    list.dropEvent(&drop);
    QCOMPARE(offered.size(), 1);
    QCOMPARE(offered.first().group, 2);
    QCOMPARE(offered.first().label, QStringLiteral("Ação"));
    QCOMPARE(offered.first().target, QStringLiteral("ação"));
    QDropEvent plain(QPoint(5, 50), Qt::CopyAction, &text, Qt::LeftButton, {});
    list.dropEvent(&plain);
    QCOMPARE(offered.size(), 1);
  }

  void tabsShareTheRow() {
    TabRow row;
    QList<TabButton *> tabs;
    for (int n = 1; n <= 5; ++n) {
      tabs << new TabButton(&row);
      tabs.last()->setText(QStringLiteral("Agenda %1").arg(n));
      row.AddTab(tabs.last());
    }
    tabs[1]->setChecked(true);
    row.resize(500, 32);
    row.show();
    for (TabButton *tab : tabs)
      QVERIFY(!tab->CaptionIsCut());
    tabs[1]->setText(QStringLiteral("Culto de domingo à noite"));
    row.Arrange();
    QVERIFY(!tabs[1]->CaptionIsCut());
    QCOMPARE_GT(tabs[1]->width(), tabs[0]->width());
    row.resize(240, 32);
    QVERIFY(tabs[1]->CaptionIsCut());
    QCOMPARE(tabs[1]->text(), QStringLiteral("Culto de domingo à noite"));
    QCOMPARE(tabs[4]->geometry().right(), row.rect().right());
  }
};

QTEST_MAIN(UiTestLook)
#include "ui_test_look.moc"
