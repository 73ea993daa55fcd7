#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "control_fixture.h"
#include "support/window_warnings.h"

using namespace tolmira;
using namespace tolmira::testing;

// The control interface as its clients see it, before doubles of the program.
class TestControlProtocol : public QObject {
  Q_OBJECT

  std::unique_ptr<ControlFixture> m;

  QString Error(const QJsonObject &answer) const {
    return answer.value(QStringLiteral("ok")).toBool() ? QString() : answer.value(QStringLiteral("error")).toString();
  }
  static void OpenBoxInside() {
    QMessageBox box;
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setText(QStringLiteral("File not found!"));
    box.addButton(QMessageBox::Ok);
    box.addButton(QStringLiteral("&Look again"), QMessageBox::ActionRole);
    box.exec();
  }

private slots:
  void init() {
    FailOnWindowWarnings();
    m = std::make_unique<ControlFixture>();
    QCOMPARE(m->error, QString());
  }
  void cleanup() { m.reset(); }

  void socketIsPrivate() {
    const auto mode = QFile::permissions(m->path);
    QCOMPARE(mode & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);
  }

  void socketInUseIsRefused() {
    ControlEvents events;
    ControlServer second(m->Doors(), events);
    QVERIFY(second.Listen(m->path).contains(QStringLiteral("in use")));
    QVERIFY(m->client->Ask(Request(R"({"do":"state"})")).value(QStringLiteral("ok")).toBool());
  }

  void staleSocketIsReplacedButNoOtherFile() {
    const QString stale = m->temp.filePath(QStringLiteral("stale"));
    {
      // A server that ends without taking its socket file away: the name is moved aside and back.
      QLocalServer dead;
      QVERIFY(dead.listen(stale));
      QVERIFY(QFile::rename(stale, stale + QStringLiteral(".kept")));
    }
    QVERIFY(QFile::rename(stale + QStringLiteral(".kept"), stale));
    ControlEvents events;
    ControlServer server(m->Doors(), events);
    QCOMPARE(server.Listen(stale), QString());

    const QString letter = m->temp.filePath(QStringLiteral("letter.txt"));
    QFile file(letter);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("dear");
    file.close();
    ControlServer other(m->Doors(), events);
    QVERIFY(other.Listen(letter).contains(QStringLiteral("a file of that name exists")));
    QCOMPARE(QFileInfo(letter).size(), 4);
  }

  void actions_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("call");
    QTest::newRow("show") << QByteArray(R"({"do":"show","kind":2,"label":"Lamp","target":"Lamp 2"})")
                          << "ShowEntry 2 0 Lamp Lamp 2";
    QTest::newRow("show without target") << QByteArray(R"({"do":"show","kind":3,"label":"Rocha"})")
                                         << "ShowEntry 3 0 Rocha Rocha";
    QTest::newRow("add") << QByteArray(R"({"do":"add","kind":2,"label":"Pão","target":""})") << "PorNaLista 2 Pão ";
    QTest::newRow("agenda") << QByteArray(R"({"do":"agenda","n":5})") << "SelectTab 5";
    QTest::newRow("screen") << QByteArray(R"({"do":"screen","index":4})") << "SetScreenState 4";
    QTest::newRow("theme") << QByteArray(R"({"do":"theme","slot":16})") << "PressTile 16";
    QTest::newRow("send") << QByteArray("{\"do\":\"send\",\"comando\":\"TelaPreta|#true\"}")
                          << "SendToDisplay TelaPreta|#true";
    QTest::newRow("quit") << QByteArray(R"({"do":"quit"})") << "fecha";
  }
  void actions() {
    QFETCH(QByteArray, request);
    QFETCH(QString, call);
    const QJsonObject answer = m->client->Ask(Request(request.constData()));
    QCOMPARE(Error(answer), QString());
    QTRY_COMPARE(m->calls, QStringList(call));
    QCOMPARE(answer.value(QStringLiteral("message")).toString(),
             call.startsWith(u"PorNaLista") ? QStringLiteral("Added Pão") : QString());
  }

  void quitClosesAWindowThatAsksNothing() {
    QWidget gallery;
    gallery.setWindowModality(Qt::ApplicationModal);
    gallery.show();
    QTRY_COMPARE(QApplication::activeModalWidget(), &gallery);
    QCOMPARE(Error(m->client->Ask(Request(R"({"do":"quit"})"))), QString());
    QTRY_COMPARE(m->calls, QStringList(QStringLiteral("fecha")));
    QVERIFY(!gallery.isVisible());
  }

  void mistakes_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("no JSON") << QByteArray("hello") << "not a JSON object";
    QTest::newRow("broken UTF-8") << QByteArray("{\"do\":\"\xff\xfe\"}") << "";
    QTest::newRow("a list") << QByteArray("[1]") << "not a JSON object";
    QTest::newRow("no do") << QByteArray("{}") << "no \"do\"";
    QTest::newRow("unknown") << QByteArray(R"({"do":"dance"})") << "dance";
    QTest::newRow("kind is text") << QByteArray(R"({"do":"show","kind":"2","label":"x"})") << "kind";
    QTest::newRow("no label") << QByteArray(R"({"do":"show","kind":2})") << "label";
    QTest::newRow("kind 7") << QByteArray(R"({"do":"add","kind":7,"label":"x"})") << "1 to 6";
    QTest::newRow("half a tab") << QByteArray(R"({"do":"agenda","n":1.5})") << "whole number";
    QTest::newRow("screen 5") << QByteArray(R"({"do":"screen","index":5})") << "0 to 4";
    QTest::newRow("slot 0") << QByteArray(R"({"do":"theme","slot":0})") << "1 to 16";
    QTest::newRow("no such page") << QByteArray(R"({"do":"eval","page":"moon","script":"1"})") << "moon";
    QTest::newRow("no window") << QByteArray(R"({"do":"controls","window":"FrmNada"})") << "FrmNada";
    QTest::newRow("no box") << QByteArray(R"({"do":"answer","button":"OK"})") << "no box is open";
    QTest::newRow("no file dialogue") << QByteArray(R"({"do":"answer","path":"/x"})") << "no file dialogue";
    QTest::newRow("no key") << QByteArray(R"({"do":"key","key":"Ctrl+Nonsense"})") << "Nonsense";
    QTest::newRow("too long") << QByteArray(LineReader::Limit + 1, 'x') << "longer than 1 MiB";
  }
  void mistakes() {
    QFETCH(QByteArray, line);
    QFETCH(QString, error);
    m->client->Raw(line + '\n');
    const QJsonObject answer = m->client->Line();
    QVERIFY2(answer.contains(QStringLiteral("ok")) && Error(answer).contains(error), qPrintable(Error(answer)));
    QVERIFY(m->calls.isEmpty());
    // The connection lives on.
    const QJsonObject next = m->client->Ask(Request(R"({"id":"a","do":"state"})"));
    QCOMPARE(Error(next), QString());
    QCOMPARE(next.value(QStringLiteral("id")).toString(), QStringLiteral("a"));
  }

  void linesArriveInPieces() {
    m->client->Raw("{\"id\":1,\"do\":");
    QTest::qWait(20);
    m->client->Raw("\"state\"}\r\n\n{\"id\":2,\"do\":\"state\"}\n{\"id\":3");
    QCOMPARE(m->client->Line().value(QStringLiteral("id")).toInt(), 1);
    QCOMPARE(m->client->Line().value(QStringLiteral("id")).toInt(), 2);
    m->client->Raw(",\"do\":\"state\"}\n");
    QCOMPARE(m->client->Line().value(QStringLiteral("id")).toInt(), 3);
  }

  void stateHasEveryField() {
    m->estado.TituloAtual = QStringLiteral("Pão Para o Caminho");
    m->estado.EstrofeAtual = -1;
    m->estado.TotalEstrofes = 1;
    m->estado.Estrofes = {{}, {30, 600, QStringLiteral("a\r\nb")}};
    m->agenda = {{2, QStringLiteral("Lamp"), QStringLiteral("Lamp 2")}};
    m->displayVisivel = true;
    const QJsonObject state = m->client->Ask(Request(R"({"do":"state"})")).value(QStringLiteral("state")).toObject();
    for (const char *field :
         {"TelaPronta", "TipoAtual", "TipoAnterior", "EstadoTela", "PaginaAtual", "DisplayVisivel", "EstrofeAtual",
          "TotalEstrofes", "Estrofes", "VersoHtmlAtual", "VersoTextoAtual", "TextoLegenda", "ReferenciaAtual",
          "VersaoBiblia", "ArquivoAtual", "TituloAtual", "IndiceTema", "ProximoTema", "ActiveAgenda", "Agenda",
          "ModoMovimento", "EnviarAoTelao", "FonteTamanho", "FundoPreso"})
      QVERIFY2(state.contains(QLatin1String(field)), field);
    QCOMPARE(state.value(QStringLiteral("TituloAtual")).toString(), QStringLiteral("Pão Para o Caminho"));
    QCOMPARE(state.value(QStringLiteral("EstrofeAtual")).toInt(), -1);
    QVERIFY(state.value(QStringLiteral("DisplayVisivel")).toBool());
    const QJsonObject lists = Request(
        R"({"Estrofes":[{"Base":600,"Texto":"a\r\nb","Topo":30}],"Agenda":[{"kind":2,"label":"Lamp","target":"Lamp 2"}]})");
    QCOMPARE(state.value(QStringLiteral("Estrofes")), lists.value(QStringLiteral("Estrofes")));
    QCOMPARE(state.value(QStringLiteral("Agenda")), lists.value(QStringLiteral("Agenda")));
  }

  void evalGivesTheValueAsJson_data() {
    QTest::addColumn<QString>("json");
    QTest::newRow("number") << "4.5";
    QTest::newRow("text") << "\"a\\\"b\"";
    QTest::newRow("object") << "{\"a\":[1,null]}";
    QTest::newRow("nothing") << "null";
  }
  void evalGivesTheValueAsJson() {
    QFETCH(QString, json);
    m->page.answer = json;
    m->client->Send(Request(R"({"do":"eval","page":"display","script":"x();"})"));
    const QJsonValue value = m->client->Line().value(QStringLiteral("value"));
    QCOMPARE(m->page.evaluated, QStringList(QStringLiteral("x();")));
    QCOMPARE(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact), '[' + json.toUtf8() + ']');
  }

  void watchTellsWhatHappens() {
    m->events.OnCommand(QStringLiteral("before anyone watches"));
    QCOMPARE(Error(m->client->Ask(Request(R"({"do":"watch"})"))), QString());
    m->events.OnCommand(QStringLiteral("Normal"));
    m->events.OnScript(QStringLiteral("display"), QStringLiteral("f('1');"));
    m->events.OnNavigate(QStringLiteral("preview"), QStringLiteral("/tmp/a.html"));
    m->events.OnMedia(QStringLiteral("controls.play"));
    m->events.OnMessage(QStringLiteral("T"), QStringLiteral("text"), {QStringLiteral("OK")});
    QList<QJsonObject> expected = {Request(R"({"event":"command","text":"Normal"})")};
    expected << Request(R"({"event":"script","page":"display","text":"f('1');"})");
    expected << Request(R"({"event":"navigate","page":"preview","url":"/tmp/a.html"})");
    expected << Request(R"({"event":"media","call":"controls.play"})");
    expected << Request(R"({"event":"message","title":"T","text":"text","buttons":["OK"]})");
    for (const QJsonObject &event : std::as_const(expected))
      QCOMPARE(m->client->Line(), event);
    m->estado.EstrofeAtual = 2;
    m->agenda = {{2, QStringLiteral("Lamp"), QStringLiteral("Lamp")}};
    const QJsonObject changed = Request(R"({"EstrofeAtual":2,"Agenda":[{"kind":2,"label":"Lamp","target":"Lamp"}]})");
    const QJsonObject state = m->client->Line();
    QCOMPARE(state.value(QStringLiteral("event")).toString(), QStringLiteral("state"));
    QCOMPARE(state.value(QStringLiteral("state")).toObject(), changed);
  }

  void nobodyListensOnceTheWatcherIsGone() {
    m->client->Ask(Request(R"({"do":"watch"})"));
    QVERIFY(m->events.listener);
    m->client.reset();
    QTRY_VERIFY(!m->events.listener);
  }

  void slowReaderIsDroppedAndHoldsNobodyUp() {
    ControlClient quick(m->path);
    m->client->Ask(Request(R"({"do":"watch"})"));
    // This client's own buffer stays small, so that what it does not take stays with the server.
    m->client->Socket().setReadBufferSize(1024);
    const QString large(1024 * 1024, u'x');
    for (int n = 0; n < 80 && m->events.listener; ++n)
      m->events.OnCommand(large);
    QTRY_VERIFY(!m->events.listener);
    QCOMPARE(Error(quick.Ask(Request(R"({"do":"state"})"))), QString());
  }

  void otherRequestsAreServedWhileABoxIsOpen() {
    m->presentation.onShow = OpenBoxInside;
    QJsonObject shown;
    QStringList errors;
    QVERIFY(FromElsewhere(m->path, [&](DistantClient &client) {
      // The answer does not wait for the box.
      shown = client.Ask(R"({"id":1,"do":"show","kind":2,"label":"x"})");
      DistantClient second(m->path);
      errors << second.Error(R"({"do":"state"})") << client.Error(R"({"do":"quit"})")
             << client.Error(R"({"do":"answer","button":"Nope"})")
             << client.Error(R"({"do":"answer","button":"look again"})");
    }));
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(shown.value(QStringLiteral("id")).toInt(), 1);
    QCOMPARE(shown.value(QStringLiteral("opened")).toString(), QStringLiteral("MessageBox"));
    QCOMPARE(errors[0], QString());
    QVERIFY(errors[1].contains(QStringLiteral("MessageBox")));
    QVERIFY(errors[2].contains(QStringLiteral("Nope")));
    QCOMPARE(errors[3], QString());
    QCOMPARE(m->calls, QStringList(QStringLiteral("ShowEntry 2 0 x x")));
  }

  void boxesAnswerToStandardNames() {
    m->presentation.onShow = OpenBoxInside;
    QString error;
    QVERIFY(FromElsewhere(m->path, [&](DistantClient &client) {
      client.Ask(R"({"do":"show","kind":2,"label":"x"})");
      error = client.Error(R"({"do":"answer","button":"Ok"})");
    }));
    QCOMPARE(error, QString());
    QVERIFY(!QApplication::activeModalWidget());
  }

  void requestThatClosesTheProgramIsAnswered() {
    m->presentation.onShow = [this] { m->server->Close(); };
    m->client->Send(Request(R"({"do":"show","kind":2,"label":"x"})"));
    m->client->Send(Request(R"({"do":"agenda","n":2})"));
    QCOMPARE(Error(m->client->Line()), QString());
    QVERIFY2(!QFileInfo::exists(m->path), "the socket goes with the server");
    m->server.reset();
    QTRY_VERIFY(!m->client->Connected());
    QCOMPARE(m->calls, QStringList(QStringLiteral("ShowEntry 2 0 x x")));
  }

  void requestsWaitForTheOneUnderWay() {
    QStringList atTheEnd;
    m->presentation.onShow = [this, &atTheEnd] {
      m->presentation.onShow = nullptr;
      m->client->Send(Request(R"({"do":"agenda","n":2})"));
      QTest::qWait(50);
      atTheEnd = m->calls;
    };
    m->client->Ask(Request(R"({"do":"show","kind":2,"label":"x"})"));
    QCOMPARE(atTheEnd, QStringList(QStringLiteral("ShowEntry 2 0 x x")));
    QTRY_COMPARE(m->calls.last(), QStringLiteral("SelectTab 2"));
  }

  void requestsWaitWhileTheProgramYields() {
    m->cedendo = true;
    m->client->Send(Request(R"({"do":"agenda","n":2})"));
    QTest::qWait(50);
    QVERIFY(m->calls.isEmpty());
    m->cedendo = false;
    QTRY_COMPARE(m->calls, QStringList(QStringLiteral("SelectTab 2")));
  }
};

QTEST_MAIN(TestControlProtocol)
#include "test_control_protocol.moc"
