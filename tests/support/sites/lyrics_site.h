#pragma once

#include "foundation/ini_store.h"
#include "support/site_server.h"

#include <QByteArray>
#include <QString>

namespace tolmira::testing {

// The four lyrics sites and the web search on one host, as folders of it, with two invented songs of an invented choir.
// The pages bear what the readers look for and some of what stands round it on such pages.

// The endpoints, for a program folder; `host` as SiteServer::Host gives it.
inline void PointLyricsAt(const IniStore &store, const QString &host) {
  QString file = store.App().At(u"\\Data\\Endpoints.dat");
  const QString section = QStringLiteral("Endpoints");
  store.WriteConfig(section, QStringLiteral("PesquisaWeb"), host, file);
  store.WriteConfig(section, QStringLiteral("Genius"), QString(host + u"/genius"), file);
  store.WriteConfig(section, QStringLiteral("Letras"), QString(host + u"/letras"), file);
  store.WriteConfig(section, QStringLiteral("AZLyrics"), QString(host + u"/azlyrics"), file);
  store.WriteConfig(section, QStringLiteral("ZionLyrics"), QString(host + u"/zion"), file);
}

namespace lyrics_pages {

inline QByteArray Result(const QByteArray &link, const QByteArray &title) {
  return "<div class=\"kCrYT\"><a href=\"/url?q=" + link + "&amp;sa=U&amp;ved=0\"><h3><div>" + title +
         "</div></h3></a></div>\n";
}

inline QByteArray WebSearch(const QByteArray &host, const QByteArray &target) {
  QByteArray page = "<html><head><title>Search</title></head><body>\n";
  if (target.endsWith("/azlyrics"))
    page += Result(host + "/azlyrics/lyrics/corodavila/luznajanela.html",
                   "Luz na Janela Lyrics - Coro da Vila | AZLyrics.com") +
            Result(host + "/azlyrics/lyrics/corodavila/paonamesa.html",
                   "P\303\243o na Mesa - Coro da Vila | AZLyrics.com") +
            Result(host + "/azlyrics/c/corodavila.html", "Coro da Vila Discografia | AZLyrics.com");
  if (target.endsWith("/letras"))
    page += Result(host + "/letras/coro-da-vila/luz-na-janela/",
                   "Luz na Janela (letra e v\303\255deo) &#8211; Coro da Vila - 127.0.0.1") +
            Result(host + "/letras/coro-da-vila/fotos/", "Coro da Vila (12 fotos) - 127.0.0.1");
  if (target.endsWith("/zion"))
    page += Result(host + "/zion/luz-na-janela", "Luz na Janela - Zion Lyrics");
  return page + "</body></html>";
}

inline QByteArray GeniusSearch(const QByteArray &host) {
  const auto hit = [&host](const QByteArray &path, const QByteArray &title) -> QByteArray {
    return "<div ng-if=\"ctrl.hit.highlights\" id=12 href=\"" + host + path + "\"><div class=\"mini_card-title\"> " +
           title + " </div></div>\n";
  };
  return "<html><body>" + hit("/genius/Coro-da-vila-luz-na-janela-lyrics", "Luz na Janela") +
         hit("/genius/Coro-da-vila-pao-na-mesa-lyrics", "P\303\243o na Mesa") + "</body></html>";
}

} // namespace lyrics_pages

// The page of a path and query; empty where there is none.
inline QByteArray LyricsPage(const QByteArray &host, const QByteArray &target) {
  using namespace lyrics_pages;
  if (target.startsWith("/search?num=20&as_q="))
    return WebSearch(host, target);
  if (target.startsWith("/genius/search?q="))
    return GeniusSearch(host);
  if (target == "/genius/Coro-da-vila-luz-na-janela-lyrics")
    return "<html><body><print-component :lyrics=\"'Uma luz na janela \nacende o caminho\n\nQuem vem pela estrada\n"
           "n\303\243o anda sozinho'\" :song=\"{}\"></print-component></body></html>";
  if (target == "/letras/coro-da-vila/luz-na-janela/")
    return "<html><body><div class=\"lyric-original\"> <p>Uma luz na janela<br/>Acende o caminho</p>\n"
           "<p>Quem vem pela estrada<br/>N\303\243o anda sozinho</p></div></body></html>";
  if (target == "/letras/coro-da-vila/")
    return "<html><body><li data-name=\"Luz na Janela\" data-artist=\"Coro da Vila\" data-shareurl=\"" + host +
           "/letras/coro-da-vila/luz-na-janela/\"><span class=\"title-default weight-normal\">1</span></li>\n"
           "<li data-name=\"P\303\243o na Mesa\" data-artist=\"Coro da Vila\" data-shareurl=\"" +
           host + "/letras/coro-da-vila/pao-na-mesa/\"></li></body></html>";
  if (target == "/azlyrics/lyrics/corodavila/luznajanela.html")
    return "<html><body><div class=\"ringtone\"></div><b>\"Luz na Janela\"</b><br>\n<div>\n<!-- Not for sale. -->\n"
           "Uma luz na janela<br>\nAcende o caminho<br>\n<br>\n(Refr\303\243o)<br>\nFica acesa, luz<br>\n<br>\n"
           "Quem vem pela estrada<br>\nN\303\243o anda sozinho<br>\n<br>\n(Refr\303\243o)<br>\n"
           "Fica acesa, luz<br>\n</div></body></html>";
  if (target == "/azlyrics/lyrics/corodavila/")
    return "<html><body><div class=\"item-quick-menu\"><div class=\"quick-menu-wrap\"><a href=\"/azlyrics/lyrics/"
           "corodavila/luznajanela.html\" class=\"x\"><span class=\"title-default weight-normal\">Luz na\n Janela"
           "</span></a></div></div></body></html>";
  if (target == "/zion/luz-na-janela")
    return "<html><head><title>Luz na Janela - Coro da Vila - Zion Lyrics</title>"
           "<script>{\"@context\": \"https://schema.org\", \"name\": \"Luz na Janela\", \"lyricist\": "
           "\"Coro da Vila\"}</script></head><body><h1 class=\"title text-center\">Luz na Janela</h1>"
           "<p>Uma luz na janela<br />Acende o caminho</p><h2 class=\"more\">More</h2></body></html>";
  return {};
}

inline void PlayLyrics(SiteServer &server) {
  const QByteArray host = server.Host().toUtf8();
  for (const char *path : {"/search", "/genius/", "/letras/", "/azlyrics/", "/zion/"})
    server.On(path, [host](const SiteRequest &request) {
      SiteAnswer answer;
      answer.body = LyricsPage(host, request.target);
      return answer.body.isEmpty() ? SiteAnswer::Status(404) : answer;
    });
}

} // namespace tolmira::testing
