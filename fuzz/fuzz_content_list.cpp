#include "media/suggested_videos.h"

#include <cstdint>
#include <cstdlib>

using namespace tolmira;

// Data\content.dat: whatever it holds, files stay in their folder and are videos.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  const CatalogoDeVideos found = LeCatalogoDeVideos(QStringView(text));
  if (found.videos.size() > 500)
    std::abort();
  for (const VideoSugerido &video : found.videos)
    if (video.arquivo.contains(u'/') || video.arquivo.contains(u'\\') || video.arquivo.startsWith(u'.') ||
        video.tamanho <= 0 || video.sha256.size() != 32)
      std::abort();
  return 0;
}
