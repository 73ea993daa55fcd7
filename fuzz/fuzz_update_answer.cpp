#include "web/update.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// The answer of the update endpoint: an installer comes over https or not at all.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const NovaVersao found =
      LeNovaVersao(QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
  if (found.paragrafos.size() > 50 || (!found.instalador.isEmpty() && found.instalador.scheme() != u"https"))
    std::abort();
  return 0;
}
