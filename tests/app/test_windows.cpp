#include "app/every_window.h"
#include "console/FrmAtalhos.h"
#include "console/FrmMonitor.h"
#include "console/key_sheet.h"
#include "controls/ui/palette.h"
#include "display/ui/web_page_host.h"
#include "support/web_fixture.h"
#include "support/window_walker.h"
#include "support/window_warnings.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// Shows `content` as an operator would: nothing, a song, a passage, or a song while Ctrl is held.
void Fill(House &house, const QString &content) {
  if (content == u"song" || content == u"held") {
    house.core.flow.ShowEntry(2, 1, QStringLiteral("Canto"), QStringLiteral("Canto"));
    house.core.agenda.SelectEntry(2, 2);
    house.core.stepper.TeclaEstrofe(1);
  } else if (content == u"passage") {
    house.core.flow.exibirPassagem(QStringLiteral("John 3:1"));
    QVERIFY(house.core.painel.biblia.Visible);
  }
  if (content == u"held") {
    house.core.stepper.CtrlDown();
    house.core.stepper.TeclaEstrofe(1);
  }
  house.EndGlide();
}

bool ScrollsSomewhere(const FrmMonitor &frm) {
  const auto *area = qobject_cast<QScrollArea *>(frm.centralWidget());
  return area->verticalScrollBar()->isVisible() || area->horizontalScrollBar()->isVisible();
}

} // namespace

// What every window has to be: whole at its least size, and told by name to who cannot see it.
class TestWindows : public QObject {
  Q_OBJECT

private:
  // Opens that window, hands it to `look`, and closes it.
  static void With(const QString &name, House &house, const std::function<void(QWidget *)> &look) {
    const std::shared_ptr<void> keeper = EveryWindow().at(name)(house);
    QWidget *shown = nullptr;
    for (QWidget *top : QApplication::topLevelWidgets())
      if (top->objectName() == name && top->isVisible())
        shown = top;
    QVERIFY2(shown, qPrintable(name));
    QVERIFY(QTest::qWaitForWindowExposed(shown));
    look(shown);
    const QPointer<QWidget> closing = shown;
    shown->close();
    QTRY_VERIFY(!closing || !closing->isVisible()); // what works on something stops first
  }

  static void NameEveryWindow() {
    QTest::addColumn<QString>("name");
    for (const auto &[name, opener] : EveryWindow())
      QTest::addRow("%s", qPrintable(name)) << name;
  }

private slots:
  void initTestCase() {
    ApplyLook(*qApp);
    WebPageHost first(QStringLiteral("first"), nullptr); // what the engine says of itself when it starts
    first.CriaBrowser();
    first.show();
    Eval(first.WV(), QStringLiteral("1"));
  }
  void init() { FailOnWindowWarnings(); }

  void theDeskIsWhole_data() {
    QTest::addColumn<QSize>("size"); // logical pixels
    QTest::addColumn<QString>("content");
    const QSize sizes[] = {{1024, 600}, {1024, 640}, {1093, 614},  {1280, 720},  {1280, 800},
                           {1366, 768}, {1536, 864}, {1920, 1080}, {2560, 1440}, {3840, 2160}};
    for (const QSize &size : sizes)
      for (const char *content : {"nothing", "song", "held", "passage"})
        QTest::addRow("%dx%d, %s", size.width(), size.height(), content) << size << QString::fromLatin1(content);
  }
  void theDeskIsWhole() {
    QFETCH(QSize, size);
    QFETCH(QString, content);
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.DefineTelao({1280, 720});
    frm.resize(size);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    Fill(house, content);
    house.core.painel.Legendas = ServidorDeLegendas::SemCliente; // the longest of its texts
    frm.Atualiza();
    QCoreApplication::processEvents();
    QCOMPARE(frm.size(), size);
    QVERIFY(!ScrollsSomewhere(frm));
    const QStringList faults = LayoutFaults(&frm);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
  }

  // 1280x800 at 200 per cent: not all of it can be seen at once, and all of it can be reached.
  void aVerySmallDeskScrolls() {
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.DefineTelao({1280, 720});
    frm.resize(640, 400);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    QCOMPARE(frm.size(), QSize(640, 400));
    QVERIFY(ScrollsSomewhere(frm));
    const QStringList faults = LayoutFaults(&frm, true);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
  }

  void nothingMovesWhenAPassageFollowsASong() {
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.DefineTelao({1280, 720});
    frm.resize(1024, 600);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    const auto places = [&frm] {
      QList<QRect> all;
      for (const char *name : {"PicAbac2", "PicContainerPreview", "LbEstadoTela", "LBTela0", "Text2", "PicImgFundoB1"})
        all << frm.findChild<QWidget *>(QLatin1String(name))->geometry();
      return all;
    };
    const QList<QRect> before = places();
    for (const char *content : {"song", "held", "passage"}) {
      Fill(house, QLatin1String(content));
      QCoreApplication::processEvents();
      QCOMPARE(places(), before);
      house.core.stepper.CtrlUp();
    }
  }

  // On the smallest desk too, below a title bar and beside a panel.
  void windowsAreWhole_data() { NameEveryWindow(); }
  void windowsAreWhole() {
    QFETCH(QString, name);
    House house;
    With(name, house, [](QWidget *window) {
      const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
      QVERIFY2(least.width() <= 1000 && least.height() <= 560,
               qPrintable(QStringLiteral("%1x%2").arg(least.width()).arg(least.height())));
      for (const QSize &size : {least, QSize(1400, 900)}) {
        window->resize(size);
        QCoreApplication::processEvents();
        const QStringList faults = LayoutFaults(window, true);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
      }
    });
  }

  void everythingHasANameAndARole_data() { NameEveryWindow(); }
  void everythingHasANameAndARole() {
    QFETCH(QString, name);
    House house;
    With(name, house, [](QWidget *window) {
      const QStringList faults = SpeechFaults(window);
      QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
      QVERIFY(!window->windowTitle().isEmpty());
    });
  }

  void theDeskIsToldByNameAndRole() {
    House house;
    house.core.temaControle.SetCheckAlteraTemaAleatorio(true);
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.CarregaFontes();
    frm.resize(1280, 800);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    for (const char *content : {"nothing", "song", "passage"}) {
      Fill(house, QLatin1String(content));
      const QStringList faults = SpeechFaults(&frm, {QStringLiteral("LBTela3")}); // it has none by design
      QVERIFY2(faults.isEmpty(), qPrintable(QLatin1String(content) + u": " + faults.join(u'\n')));
    }
    QWidget *strip = frm.findChild<QWidget *>(QStringLiteral("PicAbac2"));
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(strip);
    QCOMPARE(spoken->role(), QAccessible::StaticText);
    QVERIFY(spoken->text(QAccessible::Description).contains(u"A lamp is lit."));
    for (const QMenu *menu : frm.findChildren<QMenu *>())
      for (const QAction *action : menu->actions())
        QVERIFY2(action->isSeparator() || !action->text().isEmpty(), qPrintable(menu->objectName()));
  }

  void theMenusOpenTheirWindows() {
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    FrmMonitor::Windows windows;
    struct Entry {
      const char *menu;
      const char *text;
      std::function<void()> FrmMonitor::Windows::*window;
    };
    const Entry entries[] = {
        {"MnAjuda", "Quendar Vaelis Help", &FrmMonitor::Windows::help},
        {"MnAjuda", "Technical Support", &FrmMonitor::Windows::support},
        {"MnAjuda", "Check for Updates", &FrmMonitor::Windows::verifyUpdate},
        {"MnAjuda", "About Quendar Vaelis", &FrmMonitor::Windows::about},
        {"MnArquivo", "Download lyrics from the internet", &FrmMonitor::Windows::downloadLyrics},
        {"MnArquivo", "Type or paste the lyrics manually", &FrmMonitor::Windows::newSong},
        {"MnAcoes", "Download Lyrics from the Internet", &FrmMonitor::Windows::downloadLyrics},
        {"MnAcoes", "Download Images from the Internet", &FrmMonitor::Windows::downloadPictures},
        {"MnAcoes", "Download Videos from the Internet", &FrmMonitor::Windows::downloadVideos},
        {"mn_ib", "Search versions", &FrmMonitor::Windows::searchVersions},
    };
    QString opened;
    for (const Entry &entry : entries)
      windows.*entry.window = [&opened, text = QString::fromLatin1(entry.text)] { opened = text.toLower(); };
    frm.SetWindows(windows);
    for (const Entry &entry : entries) {
      const QList<QAction *> actions = frm.findChild<QMenu *>(QLatin1String(entry.menu))->actions();
      const auto found = std::find_if(actions.begin(), actions.end(), [&entry](const QAction *action) {
        return action->text().remove(u'&') == QLatin1String(entry.text);
      });
      QVERIFY2(found != actions.end() && (*found)->isEnabled(), entry.text);
      opened.clear();
      (*found)->trigger();
      QCOMPARE(opened, QString::fromLatin1(entry.text).toLower()); // two menus share the lyrics
    }
  }

  // F1, a look, Esc: the arrow keys go on stepping as if nothing had been.
  void theSheetGivesTheKeysBack() {
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.resize(1280, 800);
    frm.show();
    frm.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&frm));
    Fill(house, QStringLiteral("song"));
    QWidget *strip = QApplication::focusWidget();
    QCOMPARE(strip->objectName(), QStringLiteral("PicAbac2"));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_F1}) {
      QTest::keyClick(strip, Qt::Key_F1);
      auto *sheet = frm.findChild<FrmAtalhos *>();
      QVERIFY(sheet && sheet->isVisible());
      QVERIFY(QTest::qWaitForWindowActive(sheet));
      QTest::keyClick(sheet, key);
      QVERIFY(!sheet->isVisible());
      QVERIFY(QTest::qWaitForWindowActive(&frm));
      QCOMPARE(QApplication::focusWidget(), strip);
    }
    const int before = house.core.estado.EstrofeAtual;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(house.core.estado.EstrofeAtual, before + 1);
  }

  void tabGoesAsTheEyeGoes() {
    House house;
    FrmMonitor frm(ConsoleParts::Of(house.core));
    frm.resize(1280, 800);
    frm.show();
    frm.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&frm));
    Fill(house, QStringLiteral("song"));
    QStringList order;
    QWidget *first = QApplication::focusWidget();
    do {
      order << QApplication::focusWidget()->objectName();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QVERIFY2(order.size() < 200, qPrintable(order.join(u' ')));
    } while (QApplication::focusWidget() != first);
    // The panels in the order in which the eye meets them; the strip was first.
    qsizetype last = -1;
    for (const char *name : {"PicAbac2", "SliderExLouvor", "LBTela0", "LBTela4", "Text2", "Image9", "BarraAdicionar0",
                             "PicImgFundoB1", "PicImgFundoB16", "BotaoFlat51", "ListTarefas"}) {
      const qsizetype place = order.indexOf(QLatin1String(name));
      QVERIFY2(place > last, name);
      last = place;
    }
  }
};

QTEST_MAIN(TestWindows)
#include "test_windows.moc"
