#include "media/video_site.h"
#include "media/web_video_search.h"
#include "support/files.h"
#include "support/sites/video_site.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The site's page of results, and the links by which a person chooses.
class TestWebVideoSearch : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void theDataObject_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("data");
    QTest::newRow("object") << "x var ytInitialData = {\"b\": [1, \"ç\"] };</script> </script>"
                            << "{\"b\":[1,\"\\u00e7\"]}";
    QTest::newRow("without its end sign") << "var ytInitialData = {\"b\":1}</script>"
                                          << "{}";
    QTest::newRow("none") << "<html></html>"
                          << "{}";
    QTest::newRow("never ends") << "var ytInitialData = {\"b\":1};"
                                << "{}";
    QTest::newRow("nothing in it") << "var ytInitialData =</script>"
                                   << "{}";
    QTest::newRow("statement") << "var ytInitialData = {\"b\":alert(1)};</script>"
                               << "{}";
    QTest::newRow("object and statement") << "var ytInitialData = {};alert(1);</script>"
                                          << "{}";
    QTest::newRow("list") << "var ytInitialData = [1];</script>"
                          << "{}";
    QTest::newRow("marks of a page") << "var ytInitialData = {\"b\":\"<!--<script>&\\u2028\"};</script>"
                                     << "{\"b\":\"\\u003c!--\\u003cscript\\u003e\\u0026\\u2028\"}";
    QTest::newRow("nested too deeply") << QString(u"var ytInitialData = {\"b\":" + QString(1000000, u'[') +
                                                  u"};</script>")
                                       << "{}";
    QTest::newRow("too large") << QString(u"var ytInitialData = {\"b\":\"" + QString(9000000, u'x') + u"\"};</script>")
                               << "{}";
  }
  void theDataObject() {
    QFETCH(QString, page);
    QTEST(DadosDaPesquisa(page), "data");
  }

  void theLinks_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("choice");
    QTest::newRow("play") << "http://video/embed/Ab-1_?titulo=Paz"
                          << "play Ab-1_ Paz";
    QTest::newRow("play, whole address") << "https://www.youtube.com/embed/Ab1?autoplay=1"
                                         << "play Ab1 ";
    QTest::newRow("add") << "http://video/?v=Ab1&titulo=Paz+no%20vale&x=1"
                         << "add Ab1 Paz no vale";
    QTest::newRow("quotes") << "http://video/?v=Ab1&titulo=*|Paz*%7C%20*|"
                            << "add Ab1 \"Paz\" \"";
    QTest::newRow("windows-1252") << "http://video/?v=Ab1&titulo=Can%E7%E3o"
                                  << "add Ab1 Canção";
    QTest::newRow("UTF-8") << "http://video/?v=Ab1&titulo=Can%C3%A7%C3%A3o%20%D7%A9"
                           << "add Ab1 Canção ש";
    QTest::newRow("says nothing") << "http://video/?v=Ab1&titulo=Undefined"
                                  << "add Ab1 ";
    QTest::newRow("without a title") << "http://video/?v=Ab1"
                                     << "add Ab1 ";
    QTest::newRow("embed before all") << "http://video/?v=Ab1&titulo=How%20to%20embed"
                                      << "";
    QTest::newRow("a title about embedding") << "http://video/?v=Ab1&titulo=How%20to%20em%E2%81%A0bed"
                                             << "add Ab1 How to embed";
    QTest::newRow("fields of an agenda") << "http://video/?v=Ab1&titulo=a%7C%23%7C/etc/passwd%7C%23%7C%23"
                                         << "add Ab1 a |/etc/passwd";
    QTest::newRow("line end in a title") << "http://video/?v=Ab1&titulo=a%0D%0Ab"
                                         << "add Ab1 a b";
    QTest::newRow("at the very start") << "embed/Ab1"
                                       << "";
    QTest::newRow("neither") << "https://www.youtube.com/channel/Ab1"
                             << "";
    QTest::newRow("no id") << "http://video/embed/a%22b"
                           << "";
    QTest::newRow("id too long") << QString(u"http://video/?v=" + QString(65, u'a')) << "";
  }
  void theLinks() {
    QFETCH(QString, address);
    const EscolhaDeVideo made = LeEscolhaDeVideo(address);
    QString choice;
    if (made.acao != EscolhaDeVideo::Acao::Nada)
      choice = (made.acao == EscolhaDeVideo::Acao::Tocar ? QStringLiteral("play ") : QStringLiteral("add ")) + made.id +
               u' ' + made.titulo;
    QTEST(choice, "choice");
  }

  void theAddressesOfTheSite() {
    QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("Data"));
    const AppFolder app(folder.path());
    const IniStore store(app);
    const VideoSite site(store);
    QVERIFY(!site.Busca(QStringLiteral("a")).isValid());
    QCOMPARE(site.Embed(QStringLiteral("Ab1")), QStringLiteral("https://www.youtube.com/embed/Ab1"));
    Endpoints(store).GravaPadroes();
    QCOMPARE(site.Busca(QStringLiteral("paz no vale & ç")).toEncoded(),
             QByteArray("https://www.youtube.com/results?search_query=paz+no+vale+%26+%C3%A7"));
    for (const char *address : {"https://consent.youtube.com/m?x", "https://accounts.google.com/signin"})
      QVERIFY(site.PodeNoDialogo(QUrl(QLatin1String(address))) && !site.PodeNoTelao(QUrl(QLatin1String(address))));
    for (const char *address : {"http://www.youtube.com/", "https://www.google.com/", "file:///etc/passwd",
                                "https://accounts.google.com.example.org/", "data:text/html,x"})
      QVERIFY2(!site.PodeNoDialogo(QUrl(QLatin1String(address))), address);
  }

  void thePageIsWrittenAndRemoved() {
    QTemporaryDir folder;
    const AppFolder app(folder.path());
    QVERIFY(MontaPaginaDaPesquisa(app, QStringLiteral("{}"), QString()).isEmpty()); // no template
    QDir(folder.path()).mkdir(QStringLiteral("html"));
    WriteBytes(folder.filePath(QStringLiteral("html/py.dat")), "var d = [resultadoJson]; var s = \"[site]\";");
    const QString data = DadosDaPesquisa(QString::fromUtf8(VideoResultsPage(
        {VideoResult(QStringLiteral("Ab1"), QStringLiteral("</script><script>alert(1)</script> [site]"))})));
    QVERIFY(data.contains(u"Ab1") && !data.contains(u'<'));
    QVERIFY(!MontaPaginaDaPesquisa(app, data, QStringLiteral("https://a\"b\\/")).isEmpty());
    QCOMPARE(ReadBytes(folder.filePath(QStringLiteral("html/pesquisaY.html"))),
             "var d = " + data.toLatin1() + "; var s = \"https://ab/\";");
    RemovePaginaDaPesquisa(app);
    QVERIFY(!QFileInfo::exists(folder.filePath(QStringLiteral("html/pesquisaY.html"))));
  }
};

QTEST_GUILESS_MAIN(TestWebVideoSearch)
#include "test_web_video_search.moc"
