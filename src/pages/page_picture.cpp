#include "pages/page_picture.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <cmath>

namespace tolmira {

namespace {

constexpr double LargestStretch = 0.01; // of a side
constexpr double MostGrain = 0.25;      // share of pixels; pages of text and drawings stay below a tenth
constexpr int PngQuality = 70;          // of the writer's scale: a third of zlib's effort, for a tenth more bytes
constexpr int JpegQuality = 90;

// The share of pixels that differ from both their left and their upper neighbour, seen on every fourth row. Even areas
// and straight gradients have none, letters only at their edges.
double Grain(const QImage &picture) {
  qint64 seen = 0;
  qint64 grains = 0;
  for (int y = 1; y < picture.height(); y += 4) {
    const auto *above = reinterpret_cast<const QRgb *>(picture.constScanLine(y - 1));
    const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
    for (int x = 1; x < picture.width(); ++x)
      grains += line[x] != line[x - 1] && line[x] != above[x];
    seen += picture.width() - 1;
  }
  return seen > 0 ? static_cast<double>(grains) / static_cast<double>(seen) : 0;
}

} // namespace

QSize FitPage(const QSizeF &page, const QSize &screen) {
  if (!(page.width() > 0 && page.height() > 0) || !std::isfinite(page.width()) || !std::isfinite(page.height()))
    return {};
  const double scale = std::min(screen.width() / page.width(), screen.height() / page.height());
  const auto side = [](double length, int whole) {
    return whole - length < whole * LargestStretch ? whole : std::max(1, static_cast<int>(std::lround(length)));
  };
  return {side(page.width() * scale, screen.width()), side(page.height() * scale, screen.height())};
}

QImage OnScreen(const QImage &page, const QSize &screen) {
  QImage whole(screen, QImage::Format_RGB32);
  if (whole.isNull())
    return {};
  whole.fill(Qt::black);
  QPainter(&whole).drawImage((screen.width() - page.width()) / 2, (screen.height() - page.height()) / 2, page);
  return whole;
}

PageFile EncodePage(const QImage &picture) {
  const bool photograph = Grain(picture) > MostGrain;
  PageFile file;
  file.extension = photograph ? "jpg" : "png";
  QBuffer buffer(&file.bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, file.extension);
  writer.setQuality(photograph ? JpegQuality : PngQuality);
  if (!writer.write(picture))
    file.bytes.clear();
  return file;
}

} // namespace tolmira
