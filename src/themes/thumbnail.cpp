#include "themes/thumbnail.h"

#include "foundation/real_path.h"
#include "themes/picture_file.h"

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

} // namespace

bool MakeThumbnail(const QString &picture, const QString &target, const QSize &sizePx) {
  if (sizePx.isEmpty())
    return false;
  const QImage image = ReadPicture(MapStoredPath(picture).text(), [&sizePx](const QSize &whole) {
                         return CoveringSize(whole, sizePx);
                       }).image;
  if (image.isNull())
    return false;

  QImage tile(sizePx, QImage::Format_RGB32);
  if (tile.isNull())
    return false;
  tile.fill(Qt::black);
  QPainter painter(&tile);
  painter.drawImage((sizePx.width() - image.width()) / 2, (sizePx.height() - image.height()) / 2, image);
  painter.end();
  return SalvaJpeg(tile, target, Quality, DiskWait::DontWait);
}

} // namespace tolmira
