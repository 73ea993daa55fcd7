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
      : picture(MapStoredPath(app.At(u"\\Images\\") + nome).text()), stored(app.At(u"\\Images\\Mini\\") + nome) {}
  QString Small() const { return MapStoredPath(stored).text(); }

  QDateTime DateOfPicture() const { return QFileInfo(picture).lastModified(); }

  QString picture; // real path
  QString stored;  // of the small copy
};

PictureImage ReadAtSmallSize(const QString &picture) {
  return ReadPicture(picture, [](const QSize &) { return SmallCopySize; });
}

// With the date that the picture had before it was read: the order of the gallery does not depend on which copies were
// made first, and a picture that changed meanwhile is newer than its copy.
bool Write(const Copy &copy, const QImage &image, const QDateTime &date) {
  if (!SalvaJpeg(image, copy.stored, Quality, DiskWait::DontWait))
    return false;
  if (QFile file(copy.Small()); file.open(QIODevice::ReadWrite))
    file.setFileTime(date, QFileDevice::FileModificationTime);
  return true;
}

QImage ReadFresh(const Copy &copy) {
  const QFileInfo picture(copy.picture);
  const QFileInfo small(copy.Small());
  if (!small.isFile() || small.lastModified() < picture.lastModified())
    return {};
  return ReadAtSmallSize(copy.Small()).image;
}

} // namespace

bool CriaMiniatura(const AppFolder &app, const QString &nome, bool refazer) {
  const Copy copy(app, nome);
  if (!refazer && FileExists(copy.stored))
    return true;
  const QDateTime date = copy.DateOfPicture();
  const PictureImage read = ReadAtSmallSize(copy.picture);
  if (!read.image.isNull())
    Write(copy, read.image, date);
  return FileExists(copy.stored);
}

PictureImage TrazMiniatura(const AppFolder &app, const QString &nome) {
  const Copy copy(app, nome);
  PictureImage result;
  result.image = ReadFresh(copy);
  if (!result.image.isNull()) {
    result.size = PictureSize(copy.picture);
    return result;
  }
  const QDateTime date = copy.DateOfPicture();
  result = ReadAtSmallSize(copy.picture);
  if (!result.image.isNull())
    Write(copy, result.image, date);
  return result;
}

namespace {

// Documents of earlier installations name pictures in \Imagens\, whose small copies lie in \Imagens\mini\.
QString MiniaturaAntiga(const QString &caminho) {
  static const QString pasta = QStringLiteral("\\Imagens\\");
  const QString comBarras = QString(caminho).replace(u'/', u'\\');
  const qsizetype onde = comBarras.lastIndexOf(pasta, -1, Qt::CaseInsensitive);
  return onde < 0 ? QString() : QString(comBarras).insert(onde + pasta.size(), QStringLiteral("mini\\"));
}

} // namespace

PictureImage TrazMiniaturaDe(const AppFolder &app, const QString &caminho) {
  if (const QString antiga = MiniaturaAntiga(caminho); !antiga.isEmpty() && FileExists(antiga))
    if (PictureImage result = ReadAtSmallSize(MapStoredPath(antiga).text()); !result.image.isNull()) {
      // Small copies have one size whatever the picture's, which gives back its proportions.
      if (const QSize size = PictureSize(MapStoredPath(caminho).text()); !size.isEmpty())
        result.size = size;
      return result;
    }
  const auto comBarras = [](QString path) { return path.replace(u'\\', u'/'); };
  const QString pasta = comBarras(app.At(u"\\Images\\"));
  const QString onde = comBarras(caminho);
  const bool deImagens = onde.startsWith(pasta, Qt::CaseInsensitive) && !onde.mid(pasta.size()).contains(u'/');
  return deImagens ? TrazMiniatura(app, onde.mid(pasta.size())) : ReadAtSmallSize(MapStoredPath(caminho).text());
}

} // namespace tolmira
