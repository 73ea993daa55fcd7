#include "web/cut_text.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// What the web gave, as text and as the name of a file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  const QString name = NomeSeguro(text);
  if (name.contains(u'/') || name.contains(u'\\') || name.startsWith(u'.') || name.toUtf8().size() > 200)
    std::abort();
  FixMojibake(text);
  CutBetween(text, u"<b>", u"</b>");
  return 0;
}
