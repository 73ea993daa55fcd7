#include "display/ui/picture_layer.h"

#include "foundation/real_path.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace tolmira {

namespace {

constexpr QSize LargestPicture(3840, 2160); // more could not be seen, and a camera's picture costs 100 MB

} // namespace

PictureLayer::PictureLayer(QWidget *parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

bool PictureLayer::Load(const QString &storedPath) {
  const QString path = MapStoredPath(storedPath).text();
  const QFileInfo file(path);
  // One change of the screen's state names the picture more than once, and a camera's takes its time.
  if (path == m_path && file.lastModified() == m_changed && file.size() == m_bytes)
    return true;
  QImageReader reader(path);
  reader.setAutoTransform(true);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isValid() && (size.width() > LargestPicture.width() || size.height() > LargestPicture.height()))
    reader.setScaledSize(size.scaled(LargestPicture, Qt::KeepAspectRatio));
  const QImage picture = reader.read();
  if (picture.isNull())
    return false;
  m_picture = picture;
  m_path = path;
  m_changed = file.lastModified();
  m_bytes = file.size();
  m_scaled = {};
  update();
  return true;
}

void PictureLayer::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  if (m_picture.isNull()) {
    painter.fillRect(rect(), Qt::black);
    return;
  }
  if (m_scaled.isNull()) {
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    const QImage scaled = m_picture.scaled(pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QRect part(QPoint((scaled.width() - pixels.width()) / 2, (scaled.height() - pixels.height()) / 2), pixels);
    m_scaled = QPixmap::fromImage(scaled.copy(part));
  }
  painter.fillRect(rect(), Qt::black); // under a picture with transparent parts
  painter.drawPixmap(rect(), m_scaled);
}

void PictureLayer::resizeEvent(QResizeEvent *) {
  m_scaled = {};
}

} // namespace tolmira
