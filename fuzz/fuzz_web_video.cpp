#include "media/video_site.h"
#include "media/web_video_search.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// The site's page of results, and a link of the page that is made of it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  const auto dangerous = [](QChar c) { return c.unicode() > 0x7e || c < u' ' || c == u'<' || c == u'>' || c == u'&'; };
  const QString object = DadosDaPesquisa(text);
  if (!object.startsWith(u'{') || !object.endsWith(u'}') || std::any_of(object.begin(), object.end(), dangerous))
    std::abort();
  const EscolhaDeVideo choice = LeEscolhaDeVideo(text);
  if (choice.acao != EscolhaDeVideo::Acao::Nada && (!EhIdDeVideo(choice.id) || choice.titulo.contains(u'\n')))
    std::abort();
  return 0;
}
