#include "themes/thumbnail.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

namespace tolmira {

namespace {

constexpr int Quality = 90;

// The size at which the reader shall decode: the picture just covers the tile. A strip so long that covering would
// blow it up beyond reason is squeezed into the tile instead.
QSize CoveringSize(const QSize &picture, const QSize &tile) {
  const QSize covering = picture.scaled(tile, Qt::KeepAspectRatioByExpanding);
  const bool reasonable = covering.width() <= 20 * tile.width() && covering.height() <= 20 * tile.height();
  return reasonable ? covering : tile;
}

// Decodes at tile size, which for JPEG saves most of the work.
QImage ReadCovering(const QString &picture, const QSize &tile) {
  QImageReader reader(MapStoredPath(picture).text());
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && !size.isEmpty()) {
    const bool onItsSide = reader.transformation() & QImageIOHandler::TransformationRotate90;
    reader.setScaledSize(CoveringSize(size, onItsSide ? tile.transposed() : tile));
  }
  return reader.read();
}

} // namespace

bool MakeThumbnail(const QString &picture, const QString &target, const QSize &sizePx) {
  if (sizePx.isEmpty())
    return false;
  QImage image = ReadCovering(picture, sizePx);
  if (image.isNull())
    return false;
  const QSize covering = CoveringSize(image.size(), sizePx);
  if (image.size() != covering)
    image = image.scaled(covering, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

  QImage tile(sizePx, QImage::Format_RGB32);
  if (tile.isNull())
    return false;
  tile.fill(Qt::black);
  QPainter painter(&tile);
  painter.drawImage((sizePx.width() - covering.width()) / 2, (sizePx.height() - covering.height()) / 2, image);
  painter.end();

  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setQuality(Quality);
  return writer.write(tile) && WriteFileAtomically(target, bytes);
}

} // namespace tolmira
