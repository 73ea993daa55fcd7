#include "bible/bible_download.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// The reply of the list endpoint: whatever it holds, files stay in their folder and addresses on the web.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  const QUrl list(QStringLiteral("https://texts.example/Arquivos/BibleText/biblelist.php?tag=a"));
  const auto read = LeListaDeBiblias(text);
  if (!read)
    return 0;
  if (read->versoes.size() > 500)
    std::abort();
  for (const VersaoOferecida &version : read->versoes) {
    const QUrl address = EnderecoDoArquivo(list, version, Testamento::Velho);
    if (version.nome.contains(u'/') || version.nome.contains(u'\\') || version.nome.isEmpty() ||
        (address.isValid() && address.scheme() != u"https"))
      std::abort();
  }
  return 0;
}
