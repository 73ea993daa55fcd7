#pragma once

#include "support/sites/lyrics_site.h"
#include "support/sites/picture_site.h"
#include "support/sites/services_site.h"
#include "support/sites/video_site.h"

namespace tolmira::testing {

// Everything that the program reads of the web, on one server.
inline void PlayAllSites(SiteServer &server) {
  PlayVideoSite(server);
  PlayPictures(server);
  PlayServices(server);
  PlayLyrics(server);
}

// Points a program folder at it: all endpoints, and the suggested videos. The folder has its Data already.
inline void PointAllAt(const IniStore &store, const SiteServer &server) {
  PointLyricsAt(store, server.Host());
  for (const char *key : {"Atualizacao", "PaginaDownload", "ListaBiblias", "PesquisaImagens", "VideosWeb"}) {
    QString file = store.App().At(u"\\Data\\Endpoints.dat");
    store.WriteConfig(QStringLiteral("Endpoints"), QLatin1String(key), server.Host(), file);
  }
  WriteBytes(store.App().path() + QStringLiteral("/Data/content.dat"), ServicesContentList(server));
}

} // namespace tolmira::testing
