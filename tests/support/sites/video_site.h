#pragma once

#include "support/clips.h"
#include "support/files.h"
#include "support/site_server.h"
#include "support/test_pictures.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace tolmira::testing {

// One result as the site's data object has it.
inline QJsonObject VideoResult(const QString &id, const QString &title, const QString &length = QStringLiteral("3:07"),
                               const QString &channel = QStringLiteral("Coro da Serra"), const QString &picture = {}) {
  const auto runs = [](const QString &text) {
    return QJsonObject{{QStringLiteral("runs"), QJsonArray{QJsonObject{{QStringLiteral("text"), text}}}}};
  };
  return {{QStringLiteral("videoRenderer"),
           QJsonObject{{QStringLiteral("videoId"), id},
                       {QStringLiteral("title"), runs(title)},
                       {QStringLiteral("lengthText"), QJsonObject{{QStringLiteral("simpleText"), length}}},
                       {QStringLiteral("ownerText"), runs(channel)},
                       {QStringLiteral("thumbnail"),
                        QJsonObject{{QStringLiteral("thumbnails"),
                                     QJsonArray{QJsonObject{{QStringLiteral("url"), picture}}}}}}}}};
}

// The page of results around them, in the form in which the site sends it.
inline QByteArray VideoResultsPage(const QJsonArray &results) {
  const auto in = [](const char *name, const QJsonValue &value) { return QJsonObject{{QLatin1String(name), value}}; };
  const QJsonArray sections{in("itemSectionRenderer", in("contents", results)),
                            in("continuationItemRenderer", QJsonObject())};
  const QJsonObject data =
      in("contents", in("twoColumnSearchResultsRenderer",
                        in("primaryContents", in("sectionListRenderer", in("contents", sections)))));
  const QByteArray text = QJsonDocument(data).toJson(QJsonDocument::Compact).replace('<', "\\u003c");
  return "<!DOCTYPE html><html><body><script nonce=\"a\">var ytInitialData = " + text +
         ";</script><script>if (window.ytcsi) {}</script></body></html>";
}

// A site of invented videos: its results at /results, the page of each at /embed/, with a clip of two seconds that
// plays again and again. "Consent_1" sends to a page that asks for consent, "Nothing_1" has no video.
inline void PlayVideoSite(SiteServer &server) {
  const QTemporaryDir folder;
  const QString clip = MakeMedia(folder.filePath(QStringLiteral("clip.webm")),
                                 "-f lavfi -i testsrc=size=320x180:rate=25:duration=2 -f lavfi -i sine=duration=2 "
                                 "-c:v libvpx -c:a libvorbis");
  server.Page("/clip.webm", ReadBytes(clip), "video/webm");
  server.Page("/vi/", PictureBytes({320, 180}, "jpg", QColor(40, 90, 160)), "image/jpeg");
  server.On("/results", [host = server.Host()](const SiteRequest &) {
    const auto video = [&](const char *id, const QString &title, const QString &length) {
      return VideoResult(QLatin1String(id), title, length, QStringLiteral("Coro da Serra"),
                         host + u"/vi/" + QLatin1String(id) + u".jpg");
    };
    SiteAnswer answer;
    answer.body = VideoResultsPage(
        {video("Still_Water1", QStringLiteral("Águas tranquilas - Coro da Serra (ao vivo)"), QStringLiteral("3:07")),
         video("Morning_2", QStringLiteral("Morning \"Light\" & shade <live>"), QStringLiteral("1:02:03")),
         video("Consent_1", QStringLiteral("A video that asks first"), QStringLiteral("0:40")),
         video("Nothing_1", QStringLiteral("A page without a video"), QString())});
    return answer;
  });
  server.Page("/embed/", "<!DOCTYPE html><html><body style='margin:0;background:#000'><video src='/clip.webm' loop "
                         "style='width:100vw;height:100vh'></video><script>if (/autoplay=1/.test(location.search)) "
                         "document.querySelector('video').play();</script></body></html>");
  server.Page("/embed/Nothing_1", "<!DOCTYPE html><html><body>Gone.</body></html>");
  server.On("/embed/Consent_1", [](const SiteRequest &) { return SiteAnswer::Redirect("/consent?continue=/embed/"); });
  server.Page("/consent", "<!DOCTYPE html><html><body style='background:#f00'><form method='post' action='/'>"
                          "<button>Accept all</button></form></body></html>");
  server.Page("/", "<!DOCTYPE html><html><body><h1>Videos</h1><a href='/consent'>Cookies</a> "
                   "<a href='https://example.org/'>elsewhere</a></body></html>");
}

} // namespace tolmira::testing
