#include "media/cameras.h"
#include "support/scripted_prompt.h"

#include <QtTest>
#include <utility>

using namespace tolmira;
using namespace tolmira::testing;
using Situacao = Cameras::Situacao;

// What is asked of the pages, and what comes of their answers.
class TestCameras : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() {
      cameras.AoListar = [this](const QStringList &nomes) { listed.append(nomes.join(u'/')); };
      cameras.StatusTelaCamera(true);
    }
    QStringList Take() { return std::exchange(scripts, {}); }
    void Lists(const char *names) {
      cameras.Respondeu(QStringLiteral("http://indexcam//?") + QLatin1String(names), Alvo::Previa);
    }
    void OpenWith(const char *names) {
      cameras.Abre();
      Lists(names);
    }
    void Tells(const char *report, Alvo page = Alvo::Telao) {
      cameras.Respondeu(QStringLiteral("http://webcam//?") + QLatin1String(report), page);
    }

    ScriptedPrompt prompt;
    QStringList scripts; // with B for both pages, T for the projection's, P for the console's
    QStringList listed;
    int told = 0;
    Cameras cameras{[this](const QString &script, Alvo alvo) {
                      scripts.append(script + (alvo == Alvo::Ambas ? u" B" : alvo == Alvo::Telao ? u" T" : u" P"));
                    },
                    [this] { ++told; }, prompt};
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void readsTheList_data() {
    QTest::addColumn<QString>("uri");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<bool>("message");
    const auto row = [](const char *name, const char *uri, const QStringList &names, bool message = false) {
      QTest::newRow(name) << QString::fromLatin1(uri) << names << message;
    };
    row("two", "http://indexcam//?Lens%20One%7CLens+Two|", {QStringLiteral("Lens One/Lens Two")});
    row("accent, and what one byte cannot hold", "http://indexcam//?C%E2mera%26%2326085%3B|",
        {QStringLiteral("Câmera日")});
    row("without the last mark", "http://indexcam//?Lens", {QStringLiteral("Lens")});
    row("a plus", "http://indexcam//?HD%2B%20Cam%7C", {QStringLiteral("HD+ Cam")});
    row("a question mark in a name", "http://indexcam//?What%3F%7C", {QStringLiteral("What?")});
    row("none", "http://indexcam//?", {QString()}, true);
    row("none, with its mark", "http://indexcam//?%7C", {QString()}, true);
    row("without a question mark", "http://indexcam//", {QString()}, true);
    row("another address", "http://image/?Lens%7C", {});
    row("another host", "http://indexcam.example//?Lens%7C", {});
  }
  void readsTheList() {
    QFETCH(QString, uri);
    QFETCH(QStringList, listed);
    QFETCH(bool, message);
    Room room;
    room.cameras.Abre();
    QCOMPARE(room.Take(), QStringList{QStringLiteral("getCameras() P")});
    room.cameras.Respondeu(uri, Alvo::Previa);
    QCOMPARE(room.listed, listed);
    QCOMPARE(room.prompt.shown.size(), message ? 1 : 0);
    if (message)
      QCOMPARE(room.prompt.shown[0].text, QStringLiteral("Câmera não encontrada"));
  }

  void anAnswerToAClosedWindowAddsNothing() {
    Room room;
    room.cameras.Abre();
    room.cameras.Fecha();
    room.cameras.Respondeu(QStringLiteral("http://indexcam//?Lens%7C"), Alvo::Previa);
    QVERIFY(room.listed.isEmpty());
    QCOMPARE(room.Take(), (QStringList{QStringLiteral("getCameras() P"), QStringLiteral("stopWebcam() B")}));
  }

  void oneIsOnAtATimeAndTellsWhatBecameOfIt() {
    Room room;
    room.OpenWith("A%7CB%7C");
    room.Take();
    room.cameras.Liga(1);
    QCOMPARE(room.Take(), QStringList{QStringLiteral("startWebcam(1) B")});
    QCOMPARE(room.cameras.Nome(), QStringLiteral("B"));
    QCOMPARE(room.cameras.Como(1), Situacao::Abrindo);
    room.Tells("0%7Cfalhou"); // one that was given up before
    QCOMPARE(room.cameras.Como(1), Situacao::Abrindo);
    room.Tells("1%7Caberta");
    QCOMPARE(room.cameras.Como(1), Situacao::NoTelao);
    room.Tells("1%7Csaiu");
    QCOMPARE(room.cameras.Como(1), Situacao::Saiu);
    room.cameras.Liga(0);
    room.Tells("0%7Cfalhou"); // none was on the screen
    QCOMPARE(room.cameras.Como(0), Situacao::Falhou);
    room.Take();
    room.cameras.Desliga();
    QCOMPARE(room.Take(), QStringList{QStringLiteral("stopWebcam() B")});
    QCOMPARE(room.cameras.Ligada(), -1);
    room.Tells("0%7Caberta");
    QCOMPARE(room.cameras.Ligada(), -1);
    QVERIFY(room.told > 0);
  }

  // One that cannot be opened leaves the one that is on the screen.
  void theOneBeforeStays() {
    Room room;
    room.OpenWith("A%7CB%7C");
    room.cameras.Liga(0);
    room.Tells("0%7Caberta");
    room.cameras.Liga(1);
    room.Tells("1%7Cfalhou");
    QCOMPARE(room.cameras.Ligada(), 0);
    QCOMPARE(room.cameras.Como(0), Situacao::NoTelao);
    QCOMPARE(room.cameras.Como(1), Situacao::Falhou);
  }

  // What the congregation sees goes before what the console sees, in whatever order they come.
  void theProjectionHasTheLastWord() {
    for (const bool projectionFirst : {true, false}) {
      Room room;
      room.OpenWith("A%7C");
      room.cameras.Liga(0);
      room.Tells("0%7Cfalhou", projectionFirst ? Alvo::Telao : Alvo::Previa);
      room.Tells("0%7Caberta", projectionFirst ? Alvo::Previa : Alvo::Telao);
      QCOMPARE(room.cameras.Como(0), projectionFirst ? Situacao::Falhou : Situacao::NoTelao);
    }
  }

  // A theme that is applied builds the page anew; slides and videos have no place for a camera.
  void staysOnANewPageAndEndsWhereThereIsNone() {
    Room room;
    room.cameras.PaginaMontada(Alvo::Telao);
    QVERIFY(room.Take().isEmpty());
    room.cameras.Liga(2);
    room.Tells("2%7Caberta");
    room.Take();
    room.cameras.PaginaMontada(Alvo::Telao);
    room.cameras.PaginaMontada(Alvo::Previa);
    QCOMPARE(room.Take(), (QStringList{QStringLiteral("startWebcam(2) T"), QStringLiteral("startWebcam(2) P")}));
    QCOMPARE(room.cameras.Como(2), Situacao::Abrindo);
    room.cameras.StatusTelaCamera(false);
    QCOMPARE(room.Take(), QStringList{QStringLiteral("stopWebcam() B")});
    QCOMPARE(room.cameras.Ligada(), -1);
    room.cameras.StatusTelaCamera(true);
    room.cameras.PaginaMontada(Alvo::Telao);
    QVERIFY(room.Take().isEmpty());
  }

  void aNewPageIsAskedForAListThatIsStillDue() {
    Room room;
    room.cameras.Abre();
    room.Take();
    room.cameras.PaginaMontada(Alvo::Previa);
    QCOMPARE(room.Take(), QStringList{QStringLiteral("getCameras() P")});
    room.Lists("A%7C");
    room.cameras.PaginaMontada(Alvo::Previa);
    QVERIFY(room.Take().isEmpty());
  }

  // Asked again, the one that is on keeps its name, and one that is gone is let go.
  void aNewListKeepsTheOneThatIsOn() {
    Room room;
    room.OpenWith("A%7CB%7C");
    room.cameras.Liga(1);
    room.Tells("1%7Caberta");
    room.Lists("Z%7CA%7CB%7C");
    QCOMPARE(room.cameras.Ligada(), 2);
    QCOMPARE(room.cameras.Como(2), Situacao::NoTelao);
    QCOMPARE(room.cameras.Nome(), QStringLiteral("B"));
    room.Take();
    room.Lists("Z%7CA%7C");
    QCOMPARE(room.cameras.Ligada(), -1);
    QCOMPARE(room.Take(), QStringList{QStringLiteral("stopWebcam() B")});
  }
};

QTEST_GUILESS_MAIN(TestCameras)
#include "test_cameras.moc"
