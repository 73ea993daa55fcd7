#pragma once

#include "support/site_server.h"
#include "support/test_pictures.h"

#include <QColor>
#include <QString>
#include <QUrlQuery>

namespace tolmira::testing {

// The forms that the page of a picture search has had, the newest first.
enum class PictureForm { Newest, Older, Oldest };

// One page of results: pictures `first` to `first` + `count` - 1 of a site at `host` ("http://127.0.0.1:PORT").
inline QByteArray PicturePage(const QString &host, int first, int count, PictureForm form = PictureForm::Newest) {
  QByteArray page = "<!DOCTYPE html><html><head><title>Pictures</title></head><body><div class=\"grid\">\n";
  for (int n = first; n < first + count; ++n) {
    const QByteArray picture = host.toLatin1() + "/pictures/view-" + QByteArray::number(n) + (n % 2 ? ".jpg" : ".png");
    const QByteArray small = host.toLatin1() + "/thumbs/" + QByteArray::number(n);
    switch (form) {
    case PictureForm::Newest:
      page += "<a class=\"iusc\" m=\"{&quot;cid&quot;:&quot;c" + QByteArray::number(n) +
              "&quot;,&quot;murl&quot;:&quot;" + picture + "&quot;,&quot;turl&quot;:&quot;" + small +
              "&amp;pid=15.1&quot;,&quot;t&quot;:&quot;A view&quot;}\">" + "<img alt=\"A view\"></a>\n";
      break;
    case PictureForm::Older:
      page +=
          "<a href=\"#\" m=\"{ns:&quot;images&quot;,imgurl:&quot;" + picture + "&quot;,oh:&quot;400&quot;}\"></a>\n";
      break;
    case PictureForm::Oldest:
      page += "<a class=\"thumb\" href=\"/images/detail?q=view&amp;imgurl=" +
              QUrl::toPercentEncoding(QString::fromLatin1(picture)) +
              "&amp;imgrefurl=http%3a%2f%2fviews.example%2f\" target=\"_blank\"><img src2=\"" + small +
              "\" src=\"/blank.gif\"></a>\n";
      break;
    }
  }
  return page + "</div></body></html>";
}

// A picture search, the pictures that it finds and their small forms. It finds nothing for "nothing", and nor does it
// for the program's own themes one by one; "textura_e_abstrato" is there, as in the maker's store.
inline void PlayPictures(SiteServer &server, PictureForm form = PictureForm::Newest) {
  server.On("/images/search", [&server, form](const SiteRequest &request) {
    const QUrlQuery query(QUrl(QString::fromLatin1(request.target)));
    const QString term = query.queryItemValue(QStringLiteral("q"));
    const int first = query.queryItemValue(QStringLiteral("first")).toInt();
    const bool none = term == u"nothing" || term == u"abstrato" || term == u"textura" || first > 64;
    SiteAnswer answer;
    answer.body = PicturePage(server.Host(), first, none ? 0 : 20, form);
    return answer;
  });
  const auto draw = [](const SiteRequest &request, const QSize &size) {
    const QByteArray digits = request.target.mid(request.target.lastIndexOf('/') + 1);
    int n = 0;
    for (const char c : digits)
      n = c >= '0' && c <= '9' ? 10 * n + (c - '0') : n;
    const bool png = request.target.endsWith(".png");
    SiteAnswer answer;
    answer.contentType = png ? "image/png" : "image/jpeg";
    answer.body = PictureBytes(size, png ? "png" : "jpg", QColor::fromHsv(n * 37 % 360, 120, 200));
    return answer;
  };
  server.On("/pictures/", [draw](const SiteRequest &request) { return draw(request, {1280, 720}); });
  server.On("/thumbs/", [draw](const SiteRequest &request) { return draw(request, {230, 160}); });
}

} // namespace tolmira::testing
