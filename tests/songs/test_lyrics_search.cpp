#include "foundation/ini_store.h"
#include "foundation/text_fields.h"
#include "songs/lyrics_search.h"
#include "songs/lyrics_text.h"
#include "songs/song_text.h"
#include "support/files.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_web.h"
#include "support/sites/lyrics_site.h"
#include "web/real_web_client.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QString Lines(const char *text) {
  return QString::fromUtf8(text).replace(u'\n', QStringLiteral("\r\n"));
}

QString Text(const char *utf8) {
  return QString::fromUtf8(utf8);
}

const QString Host = QStringLiteral("http://127.0.0.1:8080");

} // namespace

Q_DECLARE_METATYPE(SiteDeLetras)

// Lyrics from the web, from the words that are typed to the file among the songs.
class TestLyricsSearch : public QObject {
  Q_OBJECT

private:
  // A program folder whose sites answer what LyricsPage has.
  struct Room {
    Room() : Room(nullptr, Host) {}
    Room(WebClient *real, const QString &host)
        : app(folder.path()), store(app), endpoints(store), fetcher(store, real ? *real : web) {
      for (const char *sub : {"Data", "Lyrics", "Harpa", "Cantor"})
        QDir(folder.path()).mkdir(QLatin1String(sub));
      PointLyricsAt(store, host);
      web.page = [](int, const QUrl &url) {
        return QString::fromUtf8(LyricsPage(Host.toUtf8(), url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority)));
      };
      search = std::make_unique<LyricsSearch>(LyricsSearchDoors{app, endpoints, fetcher, prompt, console,
                                                                [this](const QString &path) { return path == edited; },
                                                                [this](const QString &name) { saved.append(name); }});
    }
    void Wait() const { QTRY_COMPARE_WITH_TIMEOUT(search->EmCurso(), LyricsSearch::Trabalho::Nenhum, 60'000); }
    void Search(const char *words) {
      search->Command1(QString::fromUtf8(words));
      Wait();
    }
    void Open(int row) {
      search->AbreLinha(row);
      Wait();
    }
    QByteArray Song(const QString &name) const { return ReadBytes(folder.filePath(QString(u"Lyrics/" + name))); }
    QStringList Songs() const { return QDir(folder.filePath(QStringLiteral("Lyrics"))).entryList(QDir::Files); }
    QString Key(const char *key) const {
      return store.ReadConfig(QStringLiteral("Config"), QLatin1String(key), QStringLiteral("1"));
    }
    void SetHost(const char *key, const QString &host) {
      QString file = app.At(u"\\Data\\Endpoints.dat");
      store.WriteConfig(QStringLiteral("Endpoints"), QLatin1String(key), host, file);
    }

    QTemporaryDir folder;
    AppFolder app;
    IniStore store;
    Endpoints endpoints;
    ScriptedWeb web;
    PageFetcher fetcher;
    ScriptedPrompt prompt;
    RecordingPresentation console;
    QString edited;
    QStringList saved;
    std::unique_ptr<LyricsSearch> search;
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void AddressesAreAsTold_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QByteArray>("address");
    const QString az = QStringLiteral("www.azlyrics.com");
    QTest::newRow("by the web search") << SiteDeLetras::AZLyrics << az << Text("luz da manhã")
                                       << QByteArray("https://find.example/search?num=20&as_q=luz%20da%20manh%C3%A3"
                                                     "&as_sitesearch=www.azlyrics.com");
    QTest::newRow("by itself") << SiteDeLetras::Genius << QStringLiteral("genius.example")
                               << QStringLiteral("luz na janela")
                               << QByteArray("https://genius.example/search?q=luz%20na%20janela");
    QTest::newRow("signs of an address") << SiteDeLetras::AZLyrics << az << QStringLiteral("1+1 & #2 100%20")
                                         << QByteArray("https://find.example/search?num=20&as_q=1%2B1%20%26%20%232%20"
                                                       "100%2520&as_sitesearch=www.azlyrics.com");
  }
  void AddressesAreAsTold() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, host);
    QFETCH(QString, words);
    Room room;
    room.SetHost("PesquisaWeb", QStringLiteral("find.example"));
    QTEST(EnderecoDaBusca(room.endpoints, {site, host}, words).toEncoded(), "address");
  }

  void OnlyLinksToTheSiteAreFollowed_data() {
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("address");
    const auto row = [](const char *name, const char *host, const char *link, const char *address) {
      QTest::newRow(name) << Text(host) << Text(link) << Text(address);
    };
    row("the site", "www.site.example", "https://www.site.example/a", "https://www.site.example/a");
    row("without www", "www.site.example", "http://site.example/a", "http://site.example/a");
    row("below it", "site.example", "https://m.site.example/a", "https://m.site.example/a");
    row("inside a page", "www.site.example", "/a/b?c", "https://www.site.example/a/b?c");
    row("another host", "www.site.example", "https://evil.example/www.site.example", "");
    row("a host that ends alike", "site.example", "https://notsite.example/a", "");
    row("the host as a name", "site.example", "https://site.example@evil.example/a", "");
    row("a file", "site.example", "file:///etc/passwd", "");
    row("a script", "site.example", "javascript:alert(1)", "");
    row("another port", "site.example", "https://site.example:22/a", "");
    row("the same port", "http://127.0.0.1:8080", "http://127.0.0.1:8080/a", "http://127.0.0.1:8080/a");
    row("not that port", "http://127.0.0.1:8080", "http://127.0.0.1:631/a", "");
    row("not that host", "http://127.0.0.1:8080", "http://127.0.0.2:8080/a", "");
    row("two slashes", "site.example", "//evil.example/a", "");
    row("nothing", "site.example", "", "");
    row("no site", "", "https://site.example/a", "");
  }
  void OnlyLinksToTheSiteAreFollowed() {
    QFETCH(QString, host);
    QFETCH(QString, link);
    QTEST(LinkDoSite({SiteDeLetras::AZLyrics, host}, link).toString(), "address");
  }

  void AnArtistIsAFolderAboveHisSongs_data() {
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("artist");
    QTest::newRow("a song") << "https://s.example/a/b/?x#y"
                            << "https://s.example/a/";
    QTest::newRow("the artist already") << "https://s.example/a"
                                        << "https://s.example/a/";
    QTest::newRow("neither") << "https://s.example/"
                             << "";
  }
  void AnArtistIsAFolderAboveHisSongs() {
    QFETCH(QString, song);
    QTEST(EnderecoDoArtista(QUrl(song)).toString(), "artist");
  }

  void ResultsOfTheWebSearch_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QStringList>("found"); // link, blank, title
    const auto row = [](const char *name, SiteDeLetras site, const char *host, const char *title, const char *found) {
      const QString page = Text("<a href=\"/url?q=https://s.example/a&amp;sa=U\"><b>") + Text(title);
      QTest::newRow(name) << site << Text(host) << page << Text(found).split(u'\n', Qt::SkipEmptyParts);
    };
    const auto az = SiteDeLetras::AZLyrics;
    row("AZLyrics", az, "www.azlyrics.com", " Luz Lyrics - Coro | AZLyrics.com</div>",
        "https://s.example/a Luz - Coro");
    row("Zion Lyrics", SiteDeLetras::ZionLyrics, "zion.example", "Luz - Zion Lyrics</div>", "https://s.example/a Luz");
    row("Letras", SiteDeLetras::Letras, "www.letras.mus.br", "Luz - Coro - LETRAS</div>",
        "https://s.example/a Luz - Coro");
    row("Letras elsewhere", SiteDeLetras::Letras, "www.other.example", "Luz - LETRAS</div>Luz - OTHER.EXAMPLE</div>",
        "https://s.example/a Luz");
    row("other marks", az, "www.azlyrics.com", "Luz - LETRAS</div>", "");
    row("no song", az, "a", "Biografia de Coro | AZLyrics.com</div>", "");
    row("a list", az, "a", "Coro - Discografia de Coro | AZLyrics.com</div>", "");
    row("pictures", az, "a", "Coro (3 fotos) | AZLyrics.com</div>", "");
    row("dashes", az, "a", "A \u00e2\u20ac\u201c B &#8211; C &amp; D (letra e vídeo) | AZLyrics.com</div>",
        "https://s.example/a A - B - C & D");
    row("two of them", az, "a", "A | AZLyrics.com</div><a href=\"/https://s.example/b&\">B | AZLyrics.com</div>",
        "https://s.example/a A\nhttps://s.example/b B");
    row("in front of the mark", az, "a", "A | AZLyrics.com</div><a href=\"/url?q=x\">", "https://s.example/a A");
    row("unseen marks", az, "a", "A\nB\u202e\x01 | AZLyrics.com</div>", "https://s.example/a A B");
    QTest::newRow("no results at all") << az << "a"
                                       << "<a href=\"https://s.example/a&\">A | AZLyrics.com</div>" << QStringList();
  }
  void ResultsOfTheWebSearch() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, host);
    QFETCH(QString, page);
    const ResultadosDeLetras results = SearchViaEngine(page, {site, host});
    QStringList found;
    for (qsizetype i = 0; i < results.NumResultados(); ++i)
      found.append(results.Links[i] + u' ' + results.Titulos[i]);
    QTEST(found, "found");
  }

  void ResultsOfGeniusEndAtTheFirstWithoutATitle() {
    const QString hit = QStringLiteral("ctrl.hit.highlights\" id=12 href=\"%1\">%2");
    const QString title = QStringLiteral("<div class=\"mini_card-title\"> %1 </div>");
    const ResultadosDeLetras results =
        SearchGenius(hit.arg(QStringLiteral("https://g.example/1"), title.arg(Text("PÃ£o"))) +
                     hit.arg(QStringLiteral("/2"), title.arg(QStringLiteral("Luz"))) +
                     hit.arg(QStringLiteral("/3"), title.arg(QString())) +
                     hit.arg(QStringLiteral("/4"), title.arg(QStringLiteral("Mar"))));
    QCOMPARE(results.Titulos, QStringList({Text("Pão"), QStringLiteral("Luz")}));
    QCOMPARE(results.Links, QStringList({QStringLiteral("https://g.example/1"), QStringLiteral("/2")}));
  }

  void LyricsAreCutOut_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, SiteDeLetras site, const char *page, const char *text) {
      QTest::newRow(name) << site << Text(page) << Lines(text);
    };
    row("AZLyrics", SiteDeLetras::AZLyrics, "--> no ringtone --> A<br>\n B&#39;s &lt;<br>\n<br>\nC</div>D",
        "A\nB's &lt;\n\nC");
    row("Zion Lyrics", SiteDeLetras::ZionLyrics,
        "<p>no</p>title text-center\"><p>A<br />B</p>\n<p><i>C</i></p><h2 class", "A\nB\n\nC");
    row("Letras", SiteDeLetras::Letras, "<div class=\"lyric-original\"><p>A<br/>B</p><p>C</p></div>", "A\nB\n\nC");
    row("Genius", SiteDeLetras::Genius, "<print-component :lyrics=\"'A \nB\n\nNÃ£o <b>C</b>'\" :song=\"x\">",
        "A\nB\n\nNão C");
    row("no start", SiteDeLetras::AZLyrics, "-->A</div>", "");
    row("no end", SiteDeLetras::AZLyrics, "ringtone-->A", "");
    row("Genius, lines and stanzas", SiteDeLetras::Genius,
        "<print-component :lyrics=\"'A \nB\nC\n\nD\n \n\nE'\" :song=\"x\">", "A\nB\nC\n\nD\n\n\nE");
    row("Genius, nothing inside", SiteDeLetras::Genius, "<print-component :lyrics=:song=", "");
    row("marks and controls", SiteDeLetras::AZLyrics, "ringtone-->A\x01\r<<script>x</script>></div>", "A x");
  }
  void LyricsAreCutOut() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, page);
    QTEST(TrimAll(CortaLetra(page, site)), "text");
  }

  void TextsAreCleaned_data() {
    QTest::addColumn<QString>("fetched");
    QTest::addColumn<QString>("clean");
    const auto row = [](const char *name, const char *fetched, const char *clean) {
      QTest::newRow(name) << Lines(fetched) << Lines(clean);
    };
    row("remarks", "A\n\n(Refrão)\nB\n\n\n\n(Coro)C\nCoro\nD", "A\n\nB\n\nC\nD");
    row("neighbours", "A\n\nA\n\nA\n\nB", "A\n\nB");
    row("three stanzas", "A\n\nB\n\nA", "A\n\nB\n\nA");
    row("four stanzas", "A\n\nB\n\nC\n\nB", "A\n\nB\n\nC");
    row("three of five once neighbours are one", "A\n\nA\n\nB\n\nB\n\nA", "A\n\nB\n\nA");
    row("the mark itself", "A\n\n-|-\n\nB\n\nC", "A\n\nB\n\nC");
    row("nothing", "\n\n \n\n", "");
  }
  void TextsAreCleaned() {
    QFETCH(QString, fetched);
    QTEST(LimpaLetra(fetched), "clean");
  }

  void RowsAndPagesNameTheSong_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    const auto row = [](const char *name, SiteDeLetras site, const char *text, const char *page, const char *title,
                        const char *artist) {
      QTest::newRow(name) << site << Text(text) << Text(page) << Text(title) << Text(artist);
    };
    const auto zion = SiteDeLetras::ZionLyrics;
    row("last dash", SiteDeLetras::AZLyrics, "A - B - C &#39;D", "", "A - B", "C 'D");
    row("no dash", SiteDeLetras::Letras, " Luz ", "", "Luz", "");
    row("structured", zion, "X - Y", R"("name": "no"http://schema.org "name": "A", "lyricist": "B")", "A", "B");
    row("without scheme", zion, "X", R"(//schema.org{"name":"A","brand":{"@type":"T","name":"B"}})", "A", "B");
    row("by the page's title", zion, "X", R"(<title>B - A - Zion Lyrics</title>https://schema.org "lyricist": "B")",
        "A", "B");
    row("nothing", zion, "X - Y", "", "", "");
  }
  void RowsAndPagesNameTheSong() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, row);
    QFETCH(QString, page);
    const SongName name = NomeDaLetra(page, site, row);
    QTEST(name.title, "title");
    QTEST(name.author, "artist");
  }

  void SongsFromOutsideDoNotTakeTheNamesOfOthers_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("becomes");
    QTest::addColumn<bool>("known");
    const QString luz = QStringLiteral("Luz.txt");
    QTest::newRow("new") << "Mar.txt"
                         << "x"
                         << "Mar.txt" << false;
    QTest::newRow("same") << luz << Lines("\n\nUMA LUZ NA rua") << luz << true;
    QTest::newRow("other") << luz << "Outra luz"
                           << "Luz (3).txt" << false;
    QTest::newRow("left out") << Text("As (12 músicas).txt") << "x" << Text("As (12 músicas).txt") << false;
  }
  void SongsFromOutsideDoNotTakeTheNamesOfOthers() {
    QFETCH(QString, name);
    QFETCH(QString, text);
    Room room;
    WriteBytes(room.folder.filePath(QStringLiteral("Lyrics/Luz.txt")), "\r\nUma luz na janela");
    WriteBytes(room.folder.filePath(QStringLiteral("Lyrics/Luz (2).txt")), "Outra");
    WriteBytes(room.folder.filePath(Text("Lyrics/As (12 músicas).txt")), "y");
    const NomeDeFora found = NomeParaMusicaDeFora(room.app, name, text);
    QTEST(found.arquivo, "becomes");
    QTEST(found.jaExiste, "known");
  }

  void EachSiteIsSearchedOpenedAndSaved_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("file");
    const QString luz = QStringLiteral("Luz na Janela - Coro da Vila");
    const QString file = QStringLiteral("Luz na Janela (Coro da Vila).txt");
    const QString text = Lines("Uma luz na janela\nAcende o caminho\n\nQuem vem pela estrada\nNão anda sozinho");
    QTest::newRow("Genius") << SiteDeLetras::Genius
                            << QStringList({QStringLiteral("Luz na Janela"), Text("Pão na Mesa")}) << text
                            << "Luz na Janela.txt";
    QTest::newRow("Letras") << SiteDeLetras::Letras << QStringList(luz) << text << file;
    QTest::newRow("AZLyrics") << SiteDeLetras::AZLyrics << QStringList({luz, Text("Pão na Mesa - Coro da Vila")})
                              << QString(text).replace(QStringLiteral("Quem"), Lines("Fica acesa, luz\n\nQuem"))
                              << file;
    QTest::newRow("Zion Lyrics") << SiteDeLetras::ZionLyrics << QStringList(QStringLiteral("Luz na Janela"))
                                 << Lines("Uma luz na janela\nAcende o caminho") << file;
  }
  void EachSiteIsSearchedOpenedAndSaved() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, text);
    QFETCH(QString, file);
    Room room;
    room.search->EscolheSite(site);
    room.Search("luz na janela");
    QTEST(room.search->List1(), "rows");
    room.Open(0);
    const SongContent content = room.search->Letra();
    QCOMPARE(content.text.toLower(), text.toLower());
    QVERIFY(!room.search->JaExiste(content.name));
    QCOMPARE(room.search->CmdSalvar(content, false), file.chopped(4));
    QCOMPARE(QString::fromLatin1(room.Song(file)), QString(text + u"\r\n"));
    QCOMPARE(PrepareSongText(room.app, room.app.At(u"\\Lyrics\\") + file, false).text, text);
    QVERIFY(room.search->JaExiste(content.name));
    QCOMPARE(room.saved, QStringList(file.chopped(4)));
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Lyrics successfully added to the list.")));
  }

  void TheMethodThatWorkedIsRemembered() {
    Room room;
    const auto all = room.web.page;
    room.web.page = [all](int method, const QUrl &url) {
      // A refusal that is a page, as hosts send it.
      return method == (url.path().contains(u"search") ? 3 : 4) ? all(method, url) : QStringLiteral("/url?q= go away");
    };
    room.Search("luz na janela");
    QCOMPARE(room.Key("qualbusca"), QStringLiteral("3"));
    QCOMPARE(room.Key("pegaLetra"), QStringLiteral("1"));
    room.Open(0);
    QCOMPARE(room.Key("pegaLetra"), QStringLiteral("4"));
    room.web.asked.clear();
    room.Search("luz na janela");
    QCOMPARE(room.web.asked.size(), 1);
    QCOMPARE(room.web.asked.first().method, 3);
  }

  void FailuresAreTold() {
    Room room;
    int cleared = 0;
    room.search->AoAbrir = [&] { cleared += room.search->Letra().text.isEmpty() ? 1 : 0; };
    room.search->Command1(QStringLiteral("luz"));
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList(QStringLiteral("Enter a word with at least 3 characters for search.")));
    for (const char *key : {"AZLyrics", "PesquisaWeb"}) {
      const QString host = room.endpoints.Host(Endpoint::AZLyrics);
      room.SetHost(key, QString());
      room.search->Command1(QStringLiteral("luz na janela"));
      QVERIFY(room.prompt.TakeTexts().value(0).contains(QLatin1String(key)));
      room.SetHost("AZLyrics", host);
      room.SetHost("PesquisaWeb", Host);
    }
    QVERIFY(room.web.asked.isEmpty());

    room.Search("luz na janela");
    const auto all = room.web.page;
    room.web.page = [](int, const QUrl &) { return QStringLiteral("<html>Changed.</html>"); };
    cleared = 0;
    room.Open(0);
    QCOMPARE(cleared, 2); // at once, and when nothing came
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Unable to download content")));
    QCOMPARE(room.web.asked.size(), 1 + PageFetcher::Rodadas);
    room.search->ListaDoArtista(0);
    room.Wait();
    QCOMPARE(room.prompt.TakeTexts(), QStringList(Text("Não foi possível fazer o download da lista")));
    QCOMPARE(room.search->List1().size(), 2); // they stay
    room.Search("luz na janela");
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Occurrence not found.")));
    QVERIFY(room.search->List1().isEmpty());

    room.web.page = [](int, const QUrl &) {
      return QStringLiteral("<a href=\"/url?q=https://evil.example/a&\">A | AZLyrics.com</div>");
    };
    room.Search("luz na janela");
    room.web.asked.clear();
    room.Open(0);
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Unable to download content")));
    QVERIFY(room.web.asked.isEmpty());
  }

  void AnArtistsSongsBeginWithHim_data() {
    QTest::addColumn<SiteDeLetras>("site");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("Letras") << SiteDeLetras::Letras
                            << QStringList({QStringLiteral("Coro da Vila - Luz na Janela"),
                                            Text("Coro da Vila - Pão na Mesa")});
    QTest::newRow("AZLyrics") << SiteDeLetras::AZLyrics << QStringList(QStringLiteral("Coro da Vila - Luz na Janela"));
  }
  void AnArtistsSongsBeginWithHim() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QStringList, rows);
    Room room;
    room.search->EscolheSite(site);
    room.Search("luz na janela");
    for (int again = 0; again < 2; ++again) {
      room.search->ListaDoArtista(0);
      room.Wait();
      QCOMPARE(room.search->List1(), rows);
    }
    room.Open(0);
    QVERIFY(!room.search->Letra().text.isEmpty());
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void AStopEndsWhatIsUnderWay() {
    Room room;
    room.Search("luz na janela");
    room.web.answers = false;
    room.search->AbreLinha(0);
    room.search->AbreLinha(0); // a double click
    QCOMPARE(room.web.asked.size(), 2);
    room.search->AbreLinha(1); // takes its place
    QCOMPARE(room.web.dropped, 1);
    room.search->Para();
    QCOMPARE(room.web.dropped, 2);
    QCOMPARE(room.search->EmCurso(), LyricsSearch::Trabalho::Nenhum);
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void WhatCannotBeSavedIsTold_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("said"); // how it begins
    const QString forbidden = QStringLiteral("Title and author become the name of a file");
    QTest::newRow("no lyrics") << "Luz"
                               << ""
                               << " \r\n"
                               << "There is no lyrics to save.";
    QTest::newRow("no title") << " "
                              << "Coro"
                              << "A"
                              << "Please enter the file name";
    QTest::newRow("up") << "../Harpa/301 Luz"
                        << ""
                        << "A" << forbidden;
    QTest::newRow("up, the other way") << "..\\Harpa\\301 Luz"
                                       << ""
                                       << "A" << forbidden;
    QTest::newRow("an artist with a folder") << "Luz"
                                             << "A/B"
                                             << "A" << forbidden;
    QTest::newRow("too long") << QString(300, u'a') << ""
                              << "A"
                              << "Title and author together are too long";
    QTest::newRow("being edited") << "Mar"
                                  << ""
                                  << "A"
                                  << "The editing screen for this lyrics is already open.";
    QTest::newRow("no room") << "Pasta"
                             << ""
                             << "A"
                             << "Could not save the file.";
  }
  void WhatCannotBeSavedIsTold() {
    QFETCH(QString, title);
    QFETCH(QString, artist);
    QFETCH(QString, text);
    QFETCH(QString, said);
    Room room;
    WriteBytes(room.folder.filePath(QStringLiteral("Harpa/301 Luz.txt")), "1. Luz");
    QDir(room.folder.path()).mkpath(QStringLiteral("Lyrics/Pasta.txt"));
    room.edited = room.app.At(u"\\Lyrics\\Mar.txt");
    QVERIFY(room.search->CmdAddLista({{title, artist}, text}).isEmpty());
    QVERIFY(room.search->CmdSalvar({{title, artist}, text}, true).isEmpty());
    const QStringList texts = room.prompt.TakeTexts();
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts[0], texts[1]);
    QVERIFY2(texts[0].startsWith(said), qPrintable(texts[0]));
    QVERIFY(room.Songs().isEmpty());
    QVERIFY(room.console.calls.isEmpty());
    QCOMPARE(ReadBytes(room.folder.filePath(QStringLiteral("Harpa/301 Luz.txt"))), QByteArray("1. Luz"));
  }

  void ASongIsWrittenOverWhereTheButtonSaidSo() {
    Room room;
    const QString file = QStringLiteral("Luz (Coro).txt");
    WriteBytes(room.folder.filePath(QString(u"Lyrics/" + file)), "Água\r\n"); // UTF-8, and stays it
    const SongContent content{{QStringLiteral("Luz"), QStringLiteral("Coro")}, Lines("maçã\n\nB")};
    QCOMPARE(room.search->CmdSalvar(content, true), file.chopped(4));
    QCOMPARE(room.Song(file), QByteArray("Maçã\r\n\r\nB\r\n"));
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Lyrics successfully added to the list.")));
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("ProcessaEditar Luz (Coro).txt Luz (Coro).txt")));
  }

  void AnotherSongOfTheNameStays() {
    Room room;
    const QString luz = QStringLiteral("Luz.txt");
    const QString segunda = QStringLiteral("Luz (2).txt");
    WriteBytes(room.folder.filePath(QString(u"Lyrics/" + luz)), "Outra luz\r\n");
    SongContent content{{QStringLiteral("Luz"), {}}, QStringLiteral("Uma luz na janela")};
    // Nobody was told of it: the button said "Save" when the file came, or was not the one that says what it does.
    QCOMPARE(room.search->CmdSalvar(content, false), QStringLiteral("Luz (2)"));
    QCOMPARE(room.search->CmdAddLista(content), QStringLiteral("Added Luz (2)"));
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Lyrics successfully added to the list.")));
    content.text = QStringLiteral("Nova luz");
    QCOMPARE(room.search->CmdSalvar(content, true), QStringLiteral("Luz (2)")); // the song that stands in the boxes
    QCOMPARE(room.Song(luz), QByteArray("Outra luz\r\n"));
    QCOMPARE(room.Song(segunda), QByteArray("Nova luz\r\n"));
    QCOMPARE(room.Songs().size(), 2);
  }

  void TheSameSongIsTakenAsItIs() {
    Room room;
    const QByteArray arranged = "Uma luz na janela\r\nE outro verso\r\n";
    const QString file = QStringLiteral("Luz na Janela (Coro da Vila).txt");
    room.Search("luz na janela");
    room.Open(0);
    WriteBytes(room.folder.filePath(QString(u"Lyrics/" + file)), arranged);
    SongContent content = room.search->Letra();
    QCOMPARE(room.search->CmdAddLista(content), QString(u"Added " + file.chopped(4)));
    QCOMPARE(room.Song(file), arranged);
    QVERIFY(room.prompt.shown.isEmpty() && room.saved.isEmpty());
    content.text += QStringLiteral("!");
    QCOMPARE(room.search->CmdAddLista(content), QString(u"Added " + file.chopped(4)));
    QVERIFY(room.Song(file).endsWith("!\r\n"));
    WriteBytes(room.folder.filePath(QString(u"Lyrics/" + file)), arranged); // somebody, since it was saved from here
    QCOMPARE(room.search->CmdAddLista(content), QString(u"Added " + file.chopped(4)));
    QCOMPARE(room.Song(file), arranged);
  }

  void SavingCanAddAtOnce() {
    Room room;
    QCOMPARE(room.search->CmdAddLista({{QStringLiteral("Luz"), {}}, QStringLiteral("A")}), QStringLiteral("Added Luz"));
    QCOMPARE(room.console.TakeCalls(), QStringList(QStringLiteral("PorNaLista 2 Luz Luz")));
    room.prompt.TakeTexts();
    // Gone while the message about the save stands.
    room.prompt.whileAsking = [&] { QFile::remove(room.folder.filePath(QStringLiteral("Lyrics/Mar.txt"))); };
    QVERIFY(room.search->CmdAddLista({{QStringLiteral("Mar"), {}}, QStringLiteral("A")}).isEmpty());
    QCOMPARE(room.prompt.TakeTexts().last(), QStringLiteral("File not found"));
    QVERIFY(room.console.calls.isEmpty());
  }

  void EachSiteIsReadOverTheNetwork_data() { EachSiteIsSearchedOpenedAndSaved_data(); }
  void EachSiteIsReadOverTheNetwork() {
    QFETCH(SiteDeLetras, site);
    QFETCH(QString, text);
    QFETCH(QString, file);
    SiteServer server;
    PlayLyrics(server);
    RealWebClient web;
    Room room(&web, server.Host());
    room.search->EscolheSite(site);
    room.Search("luz na janela");
    QTEST(room.search->List1(), "rows");
    room.Open(0);
    QVERIFY2(room.prompt.shown.isEmpty(), qPrintable(room.prompt.TakeTexts().join(u' ')));
    QVERIFY(!room.search->CmdSalvar(room.search->Letra(), false).isEmpty());
    QCOMPARE(QString::fromLatin1(room.Song(file)), QString(text + u"\r\n"));
    room.prompt.TakeTexts();

    SiteAnswer broken;
    broken.body = LyricsPage(server.Host().toUtf8(), server.asked.last().target);
    broken.ending = SiteAnswer::Ending::CutShort;
    for (const char *path : {"/search", "/genius/", "/letras/", "/azlyrics/", "/zion/"})
      server.On(path, [&broken](const SiteRequest &) { return broken; });
    room.Open(0);
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Unable to download content")));
    QVERIFY(room.search->Letra().text.isEmpty());
    room.Search("luz na janela");
    QCOMPARE(room.prompt.TakeTexts(), QStringList(QStringLiteral("Occurrence not found.")));
  }

  void HostilePagesEnd_data() {
    QTest::addColumn<QString>("head");
    QTest::addColumn<QString>("again");
    QTest::newRow("marks of results") << "/url?q="
                                      << " | AZLyrics.com</div>";
    QTest::newRow("results") << "/url?q=<a href=\"x&\">"
                             << "A | AZLyrics.com</div>";
    QTest::newRow("links") << "/url?q="
                           << "href=";
    QTest::newRow("hits") << ""
                          << "ctrl.hit.highlights";
    QTest::newRow("hits with a title far away") << ""
                                                << "ctrl.hit.highlights\" id=12 href=\"x\"";
    QTest::newRow("names") << ""
                           << "data-name=";
    QTest::newRow("items") << "item-quick-menu\">"
                           << "<div class=\"quick-menu-wrap\"> class=";
    QTest::newRow("stanzas") << "ringtone-->"
                             << "A<br><br>";
    QTest::newRow("open tags") << "ringtone-->"
                               << "<";
    QTest::newRow("songs") << ""
                           << "title text-center<p>ringtone-->lyric-original<print-component :lyrics=";
  }
  void HostilePagesEnd() {
    QFETCH(QString, head);
    QFETCH(QString, again);
    const QString page = head + again.repeated(500'000) + u"<div class=\"mini_card-title\">A</div>:song=<h2 class";
    for (const SiteDeLetras site : SitesDeLetras) {
      QVERIFY(SearchViaEngine(page, {site, QStringLiteral("a.example")}).NumResultados() <= 500);
      QVERIFY(ArtistPage(page, site).NumResultados() <= 500);
      QVERIFY(LimpaLetra(CortaLetra(page, site)).size() < 100'000);
    }
    QVERIFY(SearchGenius(page).NumResultados() <= 500);
  }
};

QTEST_MAIN(TestLyricsSearch)
#include "test_lyrics_search.moc"
