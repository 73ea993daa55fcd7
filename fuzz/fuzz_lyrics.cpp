#include "songs/line_ends.h"
#include "songs/lyrics_results.h"
#include "songs/lyrics_text.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// Pages of lyrics sites: lists of results, lists of artists, and songs.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString page = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  for (const SiteDeLetras site : SitesDeLetras) {
    const SiteEmUso em{site, QStringLiteral("lyrics.example")};
    for (const ResultadosDeLetras &found : {SearchViaEngine(page, em), SearchGenius(page), ArtistPage(page, site)}) {
      if (found.Links.size() != found.Titulos.size() || found.NumResultados() > 500)
        std::abort();
      for (const QString &link : found.Links) {
        const QUrl address = LinkDoSite(em, link);
        if (address.isValid() && address.host() != u"lyrics.example" && !address.host().endsWith(u".lyrics.example"))
          std::abort();
      }
    }
    const QString text = LimpaLetra(CortaLetra(page, site));
    if (text.contains(u'<') || text.contains(QChar(u'\0')) || text.count(u'\n') != text.count(LineEnd))
      std::abort();
    const SongName name = NomeDaLetra(page, site, page.left(300));
    if (name.title.contains(u'\n') || name.author.contains(u'\n'))
      std::abort();
  }
  return 0;
}
