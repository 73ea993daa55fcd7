#include "foundation/text_file.h"
#include "support/files.h"
#include "support/scripted_web.h"
#include "web/cut_text.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

struct Desk {
  Desk() { QDir(folder.path()).mkdir(QStringLiteral("Data")); }
  QString Stored(const QString &key) const { return store.ReadConfig(QStringLiteral("Config"), key, QString()); }
  void Store(const QString &key, const QString &value) { store.WriteConfig(QStringLiteral("Config"), key, value); }

  // The page, waited for; "(none)" when nothing was told.
  QString Fetch(const QString &key, const QString &mustHold) {
    QString result = QStringLiteral("(none)");
    bool told = false;
    const auto task =
        fetcher.FetchPage(key, QUrl(QStringLiteral("https://a.example/p")), mustHold, [&](const QString &page) {
          result = page;
          told = true;
        });
    [&] { QTRY_VERIFY(told); }();
    return result;
  }
  QList<int> Methods() const {
    QList<int> methods;
    for (const ScriptedWeb::Pedido &pedido : web.asked)
      methods.append(pedido.method);
    return methods;
  }

  QTemporaryDir folder;
  AppFolder app{folder.path()};
  IniStore store{app};
  ScriptedWeb web;
  PageFetcher fetcher{store, web};
};

} // namespace

class TestPageFetcher : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void theMethodsTakeTurns_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QList<int>>("methods");
    QTest::newRow("nothing stored") << QString() << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2};
    QTest::newRow("1") << QStringLiteral("1") << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2};
    QTest::newRow("4") << QStringLiteral("4") << QList<int>{4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5};
    QTest::newRow("9") << QStringLiteral("9") << QList<int>{9, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1};
    QTest::newRow("no number") << QStringLiteral("x") << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2};
    QTest::newRow("no method") << QStringLiteral("-40000") << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2};
  }
  void theMethodsTakeTurns() {
    QFETCH(QString, stored);
    QFETCH(QList<int>, methods);
    Desk desk;
    desk.Store(QStringLiteral("pegaLetra"), stored);
    QCOMPARE(desk.Fetch(QStringLiteral("pegaLetra"), QString()), QString());
    QCOMPARE(desk.Methods(), methods);
    QCOMPARE(desk.Stored(QStringLiteral("pegaLetra")), stored); // a failure teaches nothing
  }

  void eachKeyLearnsWhatWorked() {
    Desk desk;
    desk.web.page = [](int method, const QUrl &) {
      const QString pages[] = {QString(), QStringLiteral(" \r\n "), QStringLiteral("refused"),
                               QStringLiteral("with a word")};
      return method < 4 ? pages[method] : pages[3];
    };
    QCOMPARE(desk.Fetch(QStringLiteral("qualbusca"), QStringLiteral("word")), QStringLiteral("with a word"));
    QCOMPARE(desk.Methods(), (QList<int>{1, 2, 3}));
    QCOMPARE(desk.Stored(QStringLiteral("qualbusca")), QStringLiteral("3"));
    desk.web.asked.clear();
    desk.Fetch(QStringLiteral("qualbusca"), QStringLiteral("word"));
    QCOMPARE(desk.Methods(), QList<int>{3});
    desk.web.asked.clear();
    QCOMPARE(desk.Fetch(QStringLiteral("pegaLetra"), QString()), QStringLiteral("refused"));
    QCOMPARE(desk.Methods(), (QList<int>{1, 2}));
  }

  void droppingItEndsAllRounds() {
    Desk desk;
    int rounds = 0;
    bool told = false;
    std::unique_ptr<WebTask> task;
    task = desk.fetcher.Tenta(
        QStringLiteral("buscaImagem"), QUrl(QStringLiteral("https://a.example/")), [](const QString &) { return true; },
        [&](const QString &) { told = true; },
        [&](int round) {
          rounds = round;
          if (round == 3)
            QTimer::singleShot(0, [&] { task.reset(); });
        });
    QTRY_VERIFY(!task);
    QTest::qWait(20);
    QCOMPARE(rounds, 3);
    QVERIFY(!told);
    QCOMPARE(desk.web.dropped, 1);
  }

  void whereTheSitesAre() {
    Desk desk;
    const QString file = desk.folder.filePath(QStringLiteral("Data/Endpoints.dat"));
    const Endpoints endpoints(desk.store);
    WriteBytes(
        file,
        "[Endpoints]\r\nSuporte=help.example/desk\r\nGenius=\r\nLetras=http://127.0.0.1:81\r\nImagensMv=ftp://a\r\n");
    endpoints.GravaPadroes();
    QVERIFY(ReadBytes(file).startsWith(
        "[Endpoints]\r\nSuporte=help.example/desk\r\nGenius=\r\nLetras=http://127.0.0.1:81\r\n"));
    const auto at = [&](Endpoint endpoint, const char *path) {
      return endpoints.Endereco(endpoint, QString::fromUtf8(path)).toEncoded();
    };
    QCOMPARE(at(Endpoint::Suporte, "/x?prog=a"), "https://help.example/desk/x?prog=a");
    QCOMPARE(at(Endpoint::Genius, "/search?q=a"), ""); // left blank: not configured
    QVERIFY(endpoints.PorQueNao(Endpoint::Genius).contains(u"Genius"));
    QCOMPARE(at(Endpoint::Letras, "/a%20b?q=\"x\"&as=1+2#no"), "http://127.0.0.1:81/a%20b?q=%22x%22&as=1+2#no");
    QCOMPARE(at(Endpoint::ImagensMv, "/"), "");
    QVERIFY(endpoints.PorQueNao(Endpoint::ImagensMv).contains(u"ftp://a"));
    QCOMPARE(at(Endpoint::AZLyrics, ""), "https://www.azlyrics.com");
    QCOMPARE(at(Endpoint::VideosWeb, "/results?search_query=luz+é"),
             "https://www.youtube.com/results?search_query=luz+%C3%A9");
    for (const Endpoint own :
         {Endpoint::Atualizacao, Endpoint::PaginaDownload, Endpoint::ListaBiblias, Endpoint::ZionLyrics})
      QVERIFY(!endpoints.Endereco(own, QStringLiteral("/")).isValid());
    const QByteArray once = ReadBytes(file);
    endpoints.GravaPadroes();
    QCOMPARE(ReadBytes(file), once);
  }

  void textIsCut() {
    QCOMPARE(CutBetween(u"a<b>c</b><b>d</b>", u"<b>", u"</b>"), QStringLiteral("c"));
    QCOMPARE(CutBetween(u"a<b>c</b><b>d</b>", u"<b>", u"</b>", 4), QStringLiteral("d"));
    QCOMPARE(CutBetween(u"a<b>c", u"<b>", u"</b>"), QString());
    QCOMPARE(CutBetween(u"</b>a", u"<b>", u"</b>", 90), QString());
  }

  void misreadTextIsRepaired_data() {
    QTest::addColumn<QString>("good");
    QTest::addColumn<QString>("wanted");
    const QString all = [] {
      QString text;
      for (char16_t c = 0xa1; c <= 0xff; ++c)
        text += QString(QChar(c)) + u' ';
      return text;
    }();
    QTest::newRow("all of Latin-1") << all << all;
    QTest::newRow("letters beside each other")
        << QStringLiteral("ÃÉÍÓÚãéíóúçÇ©ÂÄ") << QStringLiteral("ÃÉÍÓÚãéíóúçÇ©ÂÄ");
    QTest::newRow("quotation marks") << QStringLiteral("‘a’") << QStringLiteral("‘a’");
    QTest::newRow("plain letters instead") << QStringLiteral("ă Ą ć Ĉ ĉ") << QStringLiteral("a A c C c");
  }
  void misreadTextIsRepaired() {
    QFETCH(QString, good);
    QFETCH(QString, wanted);
    QString misread;
    for (const char byte : good.toUtf8())
      misread += QChar(CharacterOfByte(static_cast<unsigned char>(byte)));
    QCOMPARE(FixMojibake(misread), wanted);
  }

  // By its length: what went through it again and again would not end here.
  void hostileTextIsReadInOneGo() {
    QCOMPARE(FixMojibake(QStringLiteral("Â©").repeated(4'000'000)), QString(4'000'000, u'©'));
    QCOMPARE(NomeSeguro(QString(8'000'000, u'é')), QString(100, u'é'));
  }

  void namesStayInTheirFolder_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("safe");
    QTest::newRow("plain") << QStringLiteral("Luz.jpg") << QStringLiteral("Luz.jpg");
    QTest::newRow("up") << QStringLiteral("../../etc/passwd") << QStringLiteral("passwd");
    QTest::newRow("backslashes") << QStringLiteral("..\\..\\a\\x.exe") << QStringLiteral("x.exe");
    QTest::newRow("only dots") << QStringLiteral("..") << QString();
    QTest::newRow("hidden") << QStringLiteral(".profile") << QStringLiteral("profile");
    QTest::newRow("forbidden") << QStringLiteral("C:a*b?.jpg") << QStringLiteral("Cab.jpg");
    QTest::newRow("a device") << QStringLiteral("NUL.txt") << QStringLiteral("_NUL.txt");
    QTest::newRow("a numbered device") << QStringLiteral("com1") << QStringLiteral("_com1");
    QTest::newRow("controls") << QStringLiteral("a\u0000b\r\n.jpg") << QStringLiteral("a b.jpg");
    QTest::newRow("turned letters") << QStringLiteral("foto\u202egpj.exe") << QStringLiteral("fotogpj.exe");
    QTest::newRow("a mark before the dot") << QStringLiteral("\ufeff.bashrc") << QStringLiteral("bashrc");
    QTest::newRow("an option") << QStringLiteral("--rm -x.jpg") << QStringLiteral("rm -x.jpg");
    QTest::newRow("ends in a blank when it is cut")
        << QString(QString(199, u'a') + u' ' + QString(90, u'b')) << QString(199, u'a');
    QTest::newRow("too long") << QString(300, u'é') + u".jpg" << QString(98, u'é') + u".jpg";
    QTest::newRow("nothing") << QStringLiteral("/") << QString();
  }
  void namesStayInTheirFolder() {
    QFETCH(QString, name);
    QFETCH(QString, safe);
    QCOMPARE(NomeSeguro(name), safe);
  }
};

QTEST_GUILESS_MAIN(TestPageFetcher)
#include "test_page_fetcher.moc"
