#include <QRegularExpression>
#include <QtTest>

#include "display/display_channel.h"
#include "support/recording_display.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

class RecordingObserver : public DisplayObserver {
public:
  explicit RecordingObserver(const RecordingDisplay &display) : m_display(display) {}
  void OnCommand(const QString &comando) override {
    commands.append(comando);
    seenFirst = seenFirst && !m_display.commands.contains(comando);
  }
  void OnScript(const QString &, const QString &) override {}
  void OnNavigate(const QString &, const QString &) override {}
  void OnMedia(const QString &) override {}

  QStringList commands;
  bool seenFirst = true; // heard of every command before the display acted on it

private:
  const RecordingDisplay &m_display;
};

} // namespace

class TestBridge : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void commandsAreDroppedUntilTheConsoleIsReady() {
    EstadoConsole estado;
    RecordingDisplay display;
    RecordingObserver observer(display);
    int asked = 0;
    DisplayChannel canal(estado, [&]() -> tolmira::Display * {
      ++asked;
      return &display;
    });
    canal.AddObserver(&observer);

    canal.SendToDisplay(QStringLiteral("Show"));
    QCOMPARE(display.commands, QStringList());
    QCOMPARE(observer.commands, QStringList());
    QCOMPARE(asked, 0); // the window is not made for a command that is dropped

    estado.TelaPronta = true;
    canal.SendToDisplay(QStringLiteral("Show"));
    canal.SendToDisplay(QStringLiteral("xyz"));
    QCOMPARE(display.commands, QStringList({QStringLiteral("Show"), QStringLiteral("xyz")}));
    QCOMPARE(observer.commands, display.commands);
    QVERIFY(observer.seenFirst);

    estado.TelaPronta = false;
    canal.SendToDisplay(QStringLiteral("Hide"));
    QCOMPARE(display.commands.size(), 2);
  }

  void commandIsLostWithoutADisplay() {
    EstadoConsole estado;
    estado.TelaPronta = true;
    DisplayChannel none(estado, [] { return nullptr; });
    none.SendToDisplay(QStringLiteral("Show"));
    DisplayChannel unset(estado, {});
    unset.SendToDisplay(QStringLiteral("Show"));
  }

  void aCommandMakesTheDisplayThatIsMissing() {
    EstadoConsole estado;
    RecordingDisplay display;
    bool there = false;
    int made = 0;
    DisplayChannel canal(estado, [&]() -> tolmira::Display * { return there ? &display : nullptr; });
    canal.CriaTelao = [&] {
      ++made;
      there = made == 2; // the first time it cannot be had
    };
    canal.SendToDisplay(QStringLiteral("Show"));
    QCOMPARE(made, 0); // not for a command that is dropped
    estado.TelaPronta = true;
    canal.SendToDisplay(QStringLiteral("Show"));
    canal.SendToDisplay(QStringLiteral("Hide"));
    canal.SendToDisplay(QStringLiteral("Normal"));
    QCOMPARE(made, 2);
    QCOMPARE(display.commands, QStringList({QStringLiteral("Hide"), QStringLiteral("Normal")}));
  }

  void scriptTexts_data() {
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("script"); // empty: none
    const auto row = [](const char *nome, const QString &script) {
      QTest::newRow(nome) << QString::fromLatin1(nome) << script;
    };
    row("ExibeAviso", QStringLiteral("ExibeAviso('1','2','3','4','5','6','7')"));
    row("StartCycle", QStringLiteral("StartCycle()"));
    row("ChangeCSS", QStringLiteral("ChangeCSS('1','2','3')"));
    row("SetAttribute", QStringLiteral("SetAttribute('1','2','3')"));
    row("GotoSlideImage", QStringLiteral("GotoSlideImage(1)"));
    row("GotoNextImage", QStringLiteral("GotoNextImage()"));
    row("ChangeOptions", QStringLiteral("ChangeOptions('1','2')"));
    row("UpdateTextHtml", QStringLiteral("UpdateTextHtml('1')"));
    row("SetAttributeByClass", QString());
    row("updatetexthtml", QString());
    row("", QString());
  }

  void scriptTexts() {
    QFETCH(QString, nome);
    QFETCH(QString, script);
    RecordingPage page;
    CallPageScript(&page, nome, QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
                   QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7"));
    QCOMPARE(page.scripts, script.isEmpty() ? QStringList() : QStringList{script});
    QVERIFY(page.properties.isEmpty());
  }

  void innerHtmlIsAPropertyAndNoScript() {
    RecordingPage page;
    CallPageScript(&page, QStringLiteral("ChangeinnerHTML"), QStringLiteral("slideshow"),
                   QStringLiteral("<img src='a'>\r\n"));
    QVERIFY(page.scripts.isEmpty());
    QCOMPARE(page.properties.size(), 1);
    QCOMPARE(page.properties[0].first, QStringLiteral("document.getElementById('slideshow').innerHTML"));
    QCOMPARE(page.properties[0].second, QStringLiteral("<img src='a'>\r\n"));
  }

  void textLosesItsLineEndsInTheCallersVariableToo() {
    RecordingPage page;
    QString html = QStringLiteral("a\r\nb\nc\rd\r\n");
    CallPageScript(&page, QStringLiteral("UpdateTextHtml"), html);
    QCOMPARE(html, QStringLiteral("ab\nc\rd"));
    QCOMPARE(page.scripts, QStringList{QStringLiteral("UpdateTextHtml('ab\nc\rd')")});

    QString style = QStringLiteral("a\r\nb");
    CallPageScript(&page, QStringLiteral("ChangeCSS"), style);
    QCOMPARE(style, QStringLiteral("a\r\nb"));
  }

  void argumentsAreNotEscapedByTheBridge() {
    RecordingPage page;
    CallPageScript(&page, QStringLiteral("UpdateTextHtml"), QStringLiteral("D\\'Ele \"x\" 'y'"));
    QCOMPARE(page.scripts, QStringList{QStringLiteral("UpdateTextHtml('D\\'Ele \"x\" 'y'')")});
  }

  void nullPageIsNoFault() {
    QString html = QStringLiteral("a\r\nb");
    CallPageScript(nullptr, QStringLiteral("UpdateTextHtml"), html);
    QCOMPARE(html, QStringLiteral("ab"));
  }

  void apostrophesAreEscapedOnce_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("escapado");
    QTest::newRow("none") << QStringLiteral("abc") << QStringLiteral("abc");
    QTest::newRow("one") << QStringLiteral("D'Ele") << QStringLiteral("D\\'Ele");
    QTest::newRow("escaped already") << QStringLiteral("D\\'Ele") << QStringLiteral("D\\'Ele");
    QTest::newRow("mixed") << QStringLiteral("'a\\'b''") << QStringLiteral("\\'a\\'b\\'\\'");
    QTest::newRow("empty") << QString() << QString();
  }

  void apostrophesAreEscapedOnce() {
    QFETCH(QString, texto);
    QFETCH(QString, escapado);
    QCOMPARE(EscapaApostrofos(texto), escapado);
    QCOMPARE(EscapaApostrofos(EscapaApostrofos(texto)), escapado);
  }
};

QTEST_APPLESS_MAIN(TestBridge)
#include "test_bridge.moc"
