#include "web/page_body.h"
#include "web/redirects.h"
#include "web/web_client.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// A body as a server sends it: the first byte says how it is packed, the first line which type it has and where a
// redirection of its leads.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QByteArray input(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  if (input.isEmpty())
    return 0;
  const QByteArray type = input.first(qMax<qsizetype>(input.indexOf('\n'), 0));
  const QByteArray sent = input.mid(type.size() + 1);
  PageBody body;
  body.Recebe(sent.constData(), static_cast<size_t>(sent.size()));
  if (body.Desembrulha(input[0] % 2 ? QByteArray("gzip") : QByteArray())) {
    constexpr qsizetype Slice = 1 << 16;
    if (body.Texto(type, input[0] % 3 == 0).size() > LimiteDePagina + Slice)
      std::abort();
  }
  Redirects way(QUrl(QStringLiteral("https://a.example/b/c")));
  if (way.Segue(type) && (way.Atual().scheme() != u"https" || !way.PorHttps()))
    std::abort();
  return 0;
}
