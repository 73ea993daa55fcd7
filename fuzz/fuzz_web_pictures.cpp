#include "themes/web_pictures.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// A page of the picture search, through every reader, and the table that is made of it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString page = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  for (const auto read : {getUrlImgsBing, getUrlImgsBingNew, getUrlImgsBingNew2, ImagensDaPagina}) {
    const QList<ImagemDaWeb> images = read(page);
    if (images.size() > MaximoDeImagens)
      std::abort();
    for (const ImagemDaWeb &image : images)
      if (!image.endereco.startsWith(u"http", Qt::CaseInsensitive) || image.nome.contains(u'/') ||
          image.nome.contains(u'\\') || image.nome.startsWith(u'.'))
        std::abort();
    // An address that broke out of its attribute would bring marks of its own.
    const QString table = CriaPagina(images);
    const qsizetype rows = (images.size() + 4) / 5;
    const qsizetype unused = 5 * rows - images.size();
    if (table.count(u'<') != 9 + 2 * rows + 5 * images.size() + 4 * unused ||
        table.count(u'\'') != 6 + 2 * rows + 20 * images.size() + 10 * unused)
      std::abort();
  }
  LeIdDoResultado(page);
  return 0;
}
