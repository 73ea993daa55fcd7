#include "support/scripted_web.h"
#include "web/update.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// Whether there is a newer version: the question, its three answers, and what is read out of one.
class TestUpdate : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(const QString &host) : app(folder.path()), store(app) {
      QDir(folder.path()).mkdir(QStringLiteral("Data"));
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("Atualizacao"), host, file);
      store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("PaginaDownload"),
                        QStringLiteral("maker.example/get"), file);
    }
    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    Endpoints endpoints{store};
    ScriptedWeb web;
    PageFetcher pages{store, web};
    Atualizacao update{endpoints, pages, QStringLiteral("1.2.3")};
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Asks_data() {
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("address"); // empty: nothing is asked
    const QString query = QStringLiteral("/update.php?vl=12003&sigla=tol&prog=Tolmira");
    QTest::newRow("host") << "up.example" << QString(u"https://up.example" + query);
    QTest::newRow("this machine") << "http://127.0.0.1:9" << QString(u"http://127.0.0.1:9" + query);
    QTest::newRow("not over https") << "http://up.example" << QString();
    QTest::newRow("blank") << "" << QString();
  }
  void Asks() {
    QFETCH(QString, host);
    QFETCH(QString, address);
    Room room(host);
    QCOMPARE(room.update.Endereco().toString(QUrl::FullyEncoded), address);
    QCOMPARE(room.update.PorQueNao().isEmpty(), !address.isEmpty());
    QCOMPARE(room.update.PaginaDeDownload().toString(), QStringLiteral("https://maker.example/get?prog=Tolmira"));
  }

  void Answers_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("asked"); // rounds
    const QString failure = QStringLiteral("Could not connect to server");
    const QString latest = QStringLiteral("You are already using the latest version of the Tolmira");
    QTest::newRow("nothing") << "" << failure << 11;
    QTest::newRow("a page of something else") << "<html>Sign in</html>" << failure << 1;
    QTest::newRow("newer") << "a!*!b!*!1.2.4!*!c"
                           << "a!*!b!*!1.2.4!*!c!*!Link" << 1;
    QTest::newRow("the same") << "a!*!b!*!1.2.3" << latest << 1;
    QTest::newRow("older") << "a!*!b!*!1.1.0!*!Link" << latest << 1;
    QTest::newRow("by the text of the codes") << "a!*!b!*!0.9.0"
                                              << "a!*!b!*!0.9.0!*!Link" << 1; // "9000" > "12003"
    QTest::newRow("no version") << "!*!" << latest << 1;
  }
  void Answers() {
    QFETCH(QString, answer);
    QFETCH(QString, result);
    QFETCH(int, asked);
    Room room(QStringLiteral("up.example"));
    room.web.page = [answer](int, const QUrl &) { return answer; };
    QString got;
    const auto task = room.update.VerificaVersao([&got](const QString &text) { got = text; });
    QTRY_VERIFY(!got.isEmpty());
    QCOMPARE(got, result);
    QCOMPARE(room.web.asked.size(), asked);
    QCOMPARE(Atualizacao::RespostaComLink(got).value_or(u"-").toString(),
             result.endsWith(u"Link") ? answer : QStringLiteral("-"));
    if (asked == 1)
      QCOMPARE(room.store.ReadConfig(QStringLiteral("Config"), QStringLiteral("updates"), QString()),
               QStringLiteral("1"));
  }

  void ReadsTheInstaller_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("installer");
    QTest::addColumn<QStringList>("paragraphs");
    QTest::newRow("healthy") << "ok!*! !*!2.0.0!*!https://d.example/i.exe!*!<b>Calm</b>"
                             << "https://d.example/i.exe"
                             << QStringList{QStringLiteral("ok"), QStringLiteral("<b>Calm</b>")};
    QTest::newRow("over http") << "!*!!*!2.0.0!*!http://127.0.0.1/i.exe" << QString()
                               << QStringList{QStringLiteral("http://127.0.0.1/i.exe")};
    QTest::newRow("letters that cannot be seen") << QString(QStringLiteral("a\u202eb\nc\u0001!*!!*!2.0.0\n"))
                                                 << QString() << QStringList{QStringLiteral("a b\nc")};
    QTest::newRow("none") << "!*!!*!2.0.0" << QString() << QStringList();
  }
  void ReadsTheInstaller() {
    QFETCH(QString, answer);
    QFETCH(QString, installer);
    QFETCH(QStringList, paragraphs);
    const NovaVersao found = LeNovaVersao(answer);
    QCOMPARE(found.versao, QStringLiteral("2.0.0"));
    QCOMPARE(found.instalador.toString(), installer);
    QCOMPARE(found.paragrafos, paragraphs);
  }
};

QTEST_GUILESS_MAIN(TestUpdate)
#include "test_update.moc"
