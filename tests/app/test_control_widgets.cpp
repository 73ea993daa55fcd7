#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTextEdit>
#include <QTreeWidget>

#include "control_fixture.h"
#include "support/window_warnings.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// A window with one of each, named as the console is, so that it takes the keys.
class Desk : public QMainWindow {
public:
  Desk() {
    setObjectName(QStringLiteral("FrmMonitor"));
    setWindowTitle(QStringLiteral("Desk"));
    resize(640, 480);
    auto *body = new QWidget(this);
    setCentralWidget(body);
    auto place = [body, row = 0](QWidget *widget, const char *name) mutable {
      widget->setParent(body);
      widget->setObjectName(QLatin1String(name));
      widget->setGeometry(10 + 200 * (row / 6), 10 + 60 * (row % 6), 180, row > 8 ? 50 : 30);
      ++row;
    };
    place(&button, "Command1");
    place(&box, "ChkIM3");
    place(&slider, "SliderFaixa");
    place(&combo, "ComboFontSize");
    place(&line, "Text2");
    place(&spin, "Spin1");
    place(&hidden, "Oculto");
    place(&disabled, "Command2");
    place(&label, "Label9");
    place(&list, "ListTarefas");
    place(&tree, "Arvore");
    button.setText(QStringLiteral("&Show"));
    button.setFocusPolicy(Qt::NoFocus);
    slider.setRange(0, 10);
    combo.addItems({QStringLiteral("Small Fonts"), QStringLiteral("Medium Fonts")});
    disabled.setEnabled(false);
    hidden.hide();
    label.setText(QStringLiteral("Pão"));
    for (int n = 0; n < 40; ++n)
      list.addItem(QStringLiteral("song %1").arg(n));
    auto *branch = new QTreeWidgetItem(&tree, {QStringLiteral("Bible")});
    new QTreeWidgetItem(branch, {QStringLiteral("Ruth")});
    branch->setExpanded(true);
    action = menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Close"));
    action->setObjectName(QStringLiteral("MnSair"));
    show();
  }

  QPushButton button, hidden, disabled;
  QCheckBox box;
  QSlider slider{Qt::Horizontal};
  QComboBox combo;
  QLineEdit line;
  QSpinBox spin;
  QLabel label;
  QListWidget list;
  QTreeWidget tree;
  QAction *action = nullptr;
};

class KeyRecorder : public QObject {
public:
  QStringList keys;
  std::function<void()> onText; // a key that types something was pressed
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
      return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    keys << (event->type() == QEvent::KeyPress ? QStringLiteral("+") : QStringLiteral("-")) +
                QString::number(key->key(), 16) + (key->modifiers() & Qt::ControlModifier ? u"c" : u"") + key->text();
    if (onText && event->type() == QEvent::KeyPress && !key->text().isEmpty())
      onText();
    return true;
  }
};

} // namespace

// Requests that work on windows and controls, with real small widgets.
class TestControlWidgets : public QObject {
  Q_OBJECT

  std::unique_ptr<ControlFixture> m;
  std::unique_ptr<Desk> desk;

  QJsonObject Ask(const QString &request) { return m->client->Ask(QJsonDocument::fromJson(request.toUtf8()).object()); }
  // The error of a request on a control of the desk; empty when it went well.
  QString Do(const char *what, const char *control, const QString &rest = {}) {
    const QJsonObject answer = Ask(QStringLiteral(R"({"do":"%1","window":"FrmMonitor","control":"%2"%3})")
                                       .arg(QLatin1String(what), QLatin1String(control), rest));
    return answer.value(QStringLiteral("ok")).toBool() ? QString()
                                                       : answer.value(QStringLiteral("error")).toString();
  }
  QJsonObject Read(const char *control) {
    return Ask(QStringLiteral(R"({"do":"read","window":"FrmMonitor","control":"%1"})").arg(QLatin1String(control)));
  }

private slots:
  void init() {
    FailOnWindowWarnings();
    m = std::make_unique<ControlFixture>();
    desk = std::make_unique<Desk>();
    QVERIFY(QTest::qWaitForWindowExposed(desk.get()));
  }
  void cleanup() {
    desk.reset();
    m.reset();
  }

  void windowsAndControlsAreListed() {
    const QJsonArray windows = Ask(QStringLiteral(R"({"do":"windows"})")).value(QStringLiteral("windows")).toArray();
    QCOMPARE(windows.size(), 1);
    const QJsonObject window = windows.first().toObject();
    QCOMPARE(window.value(QStringLiteral("name")).toString(), QStringLiteral("FrmMonitor"));
    QCOMPARE(window.value(QStringLiteral("title")).toString(), QStringLiteral("Desk"));
    QCOMPARE(window.value(QStringLiteral("screen")).toInt(-1), 0);
    QCOMPARE(window.value(QStringLiteral("rectangle")).toObject().value(QStringLiteral("width")).toInt(), 640);
    QVERIFY(window.value(QStringLiteral("visible")).toBool());

    QMap<QString, QJsonObject> controls;
    const QJsonObject answer = Ask(QStringLiteral(R"({"do":"controls","window":"FrmMonitor"})"));
    for (const QJsonValue &each : answer.value(QStringLiteral("controls")).toArray()) {
      const QString name = each.toObject().value(QStringLiteral("name")).toString();
      QVERIFY2(!name.startsWith(u"qt_"), qPrintable(name));
      controls.insert(name, each.toObject());
    }
    QCOMPARE(controls[QStringLiteral("ComboFontSize")].value(QStringLiteral("text")).toString(),
             QStringLiteral("Small Fonts"));
    QCOMPARE(controls[QStringLiteral("ComboFontSize")].value(QStringLiteral("value")).toInt(-1), 0);
    QCOMPARE(controls[QStringLiteral("Oculto")].value(QStringLiteral("visible")).toBool(true), false);
    QCOMPARE(controls[QStringLiteral("Command2")].value(QStringLiteral("enabled")).toBool(true), false);
    QCOMPARE(controls[QStringLiteral("SliderFaixa")].value(QStringLiteral("class")).toString(),
             QStringLiteral("QSlider"));
    QCOMPARE(controls[QStringLiteral("Label9")].value(QStringLiteral("text")).toString(), QStringLiteral("Pão"));
    QVERIFY(controls.contains(QStringLiteral("MnSair")));
  }

  void clicks() {
    int shown = 0;
    connect(&desk->button, &QPushButton::clicked, desk.get(), [&shown] { ++shown; });
    QCOMPARE(Do("click", "Command1"), QString());
    QCOMPARE(shown, 1);
    // The box is narrower than its rectangle; the click has to find it.
    QCOMPARE(Do("click", "ChkIM3"), QString());
    QVERIFY(desk->box.isChecked());
    int closed = 0;
    connect(desk->action, &QAction::triggered, desk.get(), [&closed] { ++closed; });
    QCOMPARE(Do("click", "MnSair"), QString());
    QCOMPARE(closed, 1);
  }

  void whatAPersonCannotReachRefuses() {
    QVERIFY(Do("click", "Command2").contains(QStringLiteral("not enabled")));
    QVERIFY(Do("click", "Oculto").contains(QStringLiteral("not visible")));
    QVERIFY(Do("click", "Nada").contains(QStringLiteral("no control")));
    QWidget cover(desk->centralWidget());
    cover.setObjectName(QStringLiteral("Cover"));
    cover.setGeometry(desk->button.geometry());
    cover.show();
    QVERIFY(Do("click", "Command1").contains(QStringLiteral("covered by \"Cover\"")));
    QDialog dialog(desk.get());
    dialog.setObjectName(QStringLiteral("FrmSobre"));
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(Do("set", "SliderFaixa", QStringLiteral(R"(,"value":3)")).contains(QStringLiteral("FrmSobre")));
    QCOMPARE(desk->slider.value(), 0);
  }

  void settings_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("json"); // the value, taken and given back
    QTest::newRow("check box") << "ChkIM3" << "true";
    QTest::newRow("slider") << "SliderFaixa" << "7";
    QTest::newRow("combo") << "ComboFontSize" << "1";
    QTest::newRow("line") << "Text2" << "\"João 3:16\"";
    QTest::newRow("spin") << "Spin1" << "42";
    QTest::newRow("list") << "ListTarefas" << "\"song 33\"";
    QTest::newRow("tree") << "Arvore" << "\"Ruth\"";
  }
  void settings() {
    QFETCH(QString, control);
    QFETCH(QString, json);
    QCOMPARE(Do("set", qPrintable(control), QStringLiteral(",\"value\":") + json), QString());
    const QJsonValue value = Read(qPrintable(control)).value(QStringLiteral("value"));
    QCOMPARE(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact), '[' + json.toUtf8() + ']');
  }

  void settingsAreHeardLikeAPersons() {
    QStringList heard;
    connect(&desk->combo, &QComboBox::activated, this, [&](int n) { heard << QStringLiteral("combo %1").arg(n); });
    connect(&desk->slider, &QSlider::sliderReleased, this, [&] { heard << QStringLiteral("slider"); });
    connect(&desk->line, &QLineEdit::textEdited, this, [&](const QString &text) { heard << text; });
    QCOMPARE(Do("set", "ComboFontSize", QStringLiteral(R"(,"value":"Medium Fonts")")), QString());
    QCOMPARE(Do("set", "SliderFaixa", QStringLiteral(",\"value\":4")), QString());
    QCOMPARE(Do("set", "Text2", QStringLiteral(R"(,"value":"ab")")), QString());
    QCOMPARE(Do("type", "Text2", QStringLiteral(R"(,"text":"C")")), QString());
    QCOMPARE(heard, QStringList({QStringLiteral("combo 1"), QStringLiteral("slider"), QStringLiteral("a"),
                                 QStringLiteral("ab"), QStringLiteral("abC")}));
    QCOMPARE(Do("set", "Text2", QStringLiteral(R"(,"value":"")")), QString());
    QCOMPARE(desk->line.text(), QString());
    QVERIFY(Do("set", "SliderFaixa", QStringLiteral(",\"value\":11")).contains(QStringLiteral("0 to 10")));
    QVERIFY(Do("set", "ComboFontSize", QStringLiteral(R"(,"value":"Huge")")).contains(QStringLiteral("no such")));
  }

  void listItemsAreReadAndDoubleClicked() {
    QString shown;
    connect(&desk->list, &QListWidget::itemDoubleClicked, this, [&](QListWidgetItem *item) { shown = item->text(); });
    QCOMPARE(Do("click", "ListTarefas", QStringLiteral(R"(,"value":30,"double":true)")), QString());
    QCOMPARE(shown, QStringLiteral("song 30"));
    QCOMPARE(Read("ListTarefas").value(QStringLiteral("items")).toArray().size(), 40);
    QCOMPARE(Read("Arvore").value(QStringLiteral("items")).toArray(),
             QJsonArray({QStringLiteral("Bible"), QStringLiteral("Ruth")}));
    QVERIFY(Do("click", "ListTarefas", QStringLiteral(R"(,"value":40)")).contains(QStringLiteral("no such item")));
  }

  void keys_data() {
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("events");
    const auto row = [](const char *request, const QStringList &events) {
      QTest::newRow(request) << QString::fromUtf8(request) << events;
    };
    row(R"("key":"Down")", {QStringLiteral("+1000015"), QStringLiteral("-1000015")});
    row(R"("key":"a")", {QStringLiteral("+41a"), QStringLiteral("-41a")});
    row(R"("key":"Return")", {QStringLiteral("+1000004\r"), QStringLiteral("-1000004\r")});
    row(R"("key":"Escape")", {QStringLiteral("+1000000"), QStringLiteral("-1000000")});
    row(R"("key":"Ctrl+B")", {QStringLiteral("+1000021c"), QStringLiteral("+42c"), QStringLiteral("-42c"),
                              QStringLiteral("-1000021")});
    row(R"("key":"Ctrl","action":"press")", {QStringLiteral("+1000021c")});
    row(R"("key":"Ctrl++")", {QStringLiteral("+1000021c"), QStringLiteral("+2bc"), QStringLiteral("-2bc"),
                              QStringLiteral("-1000021")});
  }
  void keys() {
    QFETCH(QString, request);
    KeyRecorder recorder;
    desk->line.setFocus();
    desk->line.installEventFilter(&recorder);
    const QJsonObject answer = Ask(QStringLiteral("{\"do\":\"key\",%1}").arg(request));
    QCOMPARE(answer.value(QStringLiteral("error")).toString(), QString());
    QTEST(recorder.keys, "events");
  }

  void heldKeysGoWithTheNext() {
    KeyRecorder recorder;
    desk->line.setFocus();
    desk->line.installEventFilter(&recorder);
    Ask(QStringLiteral(R"({"do":"key","key":"Ctrl","action":"press"})"));
    Ask(QStringLiteral(R"({"do":"key","key":"Down"})"));
    Ask(QStringLiteral(R"({"do":"key","key":"Ctrl","action":"release"})"));
    QCOMPARE(recorder.keys, QStringList({QStringLiteral("+1000021c"), QStringLiteral("+1000015c"),
                                         QStringLiteral("-1000015c"), QStringLiteral("-1000021")}));
  }

  void keyThatOpensADialogueIsReleasedInIt() {
    auto *open = new QAction(desk.get());
    open->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    desk->addAction(open);
    KeyRecorder recorder;
    connect(open, &QAction::triggered, desk.get(), [&] {
      QDialog dialog(desk.get());
      dialog.setObjectName(QStringLiteral("FrmAdd"));
      dialog.installEventFilter(&recorder);
      recorder.onText = [&dialog] { dialog.reject(); };
      dialog.exec();
    });
    desk->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(desk.get()));
    QJsonObject answer;
    QStringList keysSoFar;
    QVERIFY(FromElsewhere(m->path, [&](DistantClient &client) {
      answer = client.Ask(R"({"do":"key","key":"Ctrl+M"})");
      keysSoFar = recorder.keys;
      client.Ask(R"({"do":"key","key":"x"})");
    }));
    QCOMPARE(answer.value(QStringLiteral("opened")).toString(), QStringLiteral("FrmAdd"));
    QCOMPARE(keysSoFar, QStringList({QStringLiteral("-4dc"), QStringLiteral("-1000021")}));
  }

  void fileDialogueTakesAPath() {
    const QString file = m->temp.filePath(QStringLiteral("a song.txt"));
    QFile made(file);
    QVERIFY(made.open(QIODevice::WriteOnly));
    QStringList chosen;
    m->presentation.onShow = [&] {
      QFileDialog dialog(desk.get());
      dialog.setOption(QFileDialog::DontUseNativeDialog);
      dialog.setFileMode(QFileDialog::ExistingFile);
      if (dialog.exec() == QDialog::Accepted)
        chosen = dialog.selectedFiles();
    };
    QStringList errors;
    QVERIFY(FromElsewhere(m->path, [&](DistantClient &client) {
      client.Ask(R"({"do":"show","kind":4,"label":"x"})");
      errors << client.Error(R"({"do":"answer","path":"/not/there"})");
      errors << client.Error(qPrintable(QStringLiteral(R"({"do":"answer","path":"%1"})").arg(file)));
    }));
    QVERIFY(errors[0].contains(QStringLiteral("no file")));
    QCOMPARE(errors[1], QString());
    QCOMPARE(chosen, QStringList(file));
  }

  void grabWritesAPicture() {
    desk->setStyleSheet(QStringLiteral("QMainWindow { background: #ff0000 }"));
    const QString file = m->temp.filePath(QStringLiteral("desk.png"));
    const QJsonObject answer = Ask(QStringLiteral(R"({"do":"grab","window":"FrmMonitor","path":"%1"})").arg(file));
    QCOMPARE(answer.value(QStringLiteral("error")).toString(), QString());
    const QImage picture(file, "PNG");
    QCOMPARE(picture.size(), QSize(640, 480));
    QCOMPARE(picture.pixelColor(635, 475), QColor(Qt::red));
    QVERIFY(Ask(QStringLiteral(R"({"do":"grab","window":"FrmMonitor","path":"%1"})").arg(m->temp.path()))
                .contains(QStringLiteral("error")));
  }
};

QTEST_MAIN(TestControlWidgets)
#include "test_control_widgets.moc"
