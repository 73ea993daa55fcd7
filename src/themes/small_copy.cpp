#include "themes/small_copy.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace tolmira {

namespace {

constexpr int Quality = 50;

struct Copy {
  Copy(const AppFolder &app, const QString &nome)
      : picture(app.At(u"\\Images\\") + nome), small(app.At(u"\\Images\\Mini\\") + nome) {}
  QString picture;
  QString small;
};

PictureImage ReadAtSmallSize(const QString &picture) {
  return ReadPicture(picture, [](const QSize &) { return SmallCopySize; });
}

// With the picture's date, so that the order of the gallery does not depend on which copies were made first.
bool Write(const Copy &copy, const QImage &image) {
  if (!SalvaJpeg(image, copy.small, Quality))
    return false;
  if (QFile file(MapStoredPath(copy.small).text()); file.open(QIODevice::ReadWrite))
    file.setFileTime(QFileInfo(MapStoredPath(copy.picture).text()).lastModified(), QFileDevice::FileModificationTime);
  return true;
}

QImage ReadFresh(const Copy &copy) {
  const QFileInfo picture(MapStoredPath(copy.picture).text());
  const QFileInfo small(MapStoredPath(copy.small).text());
  if (!small.isFile() || small.lastModified() < picture.lastModified())
    return {};
  return ReadAtSmallSize(copy.small).image;
}

} // namespace

bool CriaMiniatura(const AppFolder &app, const QString &nome, bool refazer) {
  const Copy copy(app, nome);
  if (!refazer && FileExists(copy.small))
    return true;
  const PictureImage read = ReadAtSmallSize(copy.picture);
  if (!read.image.isNull())
    Write(copy, read.image);
  return FileExists(copy.small);
}

PictureImage TrazMiniatura(const AppFolder &app, const QString &nome) {
  const Copy copy(app, nome);
  PictureImage result;
  result.image = ReadFresh(copy);
  if (!result.image.isNull()) {
    result.size = PictureSize(copy.picture);
    return result;
  }
  result = ReadAtSmallSize(copy.picture);
  if (!result.image.isNull())
    Write(copy, result.image);
  return result;
}

} // namespace tolmira
