#include "themes/picture_file.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <QtEndian>
#include <memory>

namespace tolmira {

namespace {

// The largest cameras stay below; a file that claims more is damaged or hostile.
constexpr qint64 MaxPixels = 120'000'000;
// Only JPEG can be decoded at reduced scale; all else has to fit into memory whole.
constexpr qint64 MaxWholeBytes = 120 * 1024 * 1024;
constexpr qint64 MaxJpegBytes = 128 * 1024 * 1024;
constexpr qint64 TailBytes = 64 * 1024;

bool IsKnown(const QByteArray &format) {
  // Drawings have no pixels to speak of and may draw on other files.
  return !format.isEmpty() && format != "svg" && format != "svgz" && format != "pdf";
}

// Where the first scan of a JPEG begins; -1 when its headers lead nowhere. What stands before it may hold a small
// picture with an end mark of its own.
qsizetype FirstScan(const QByteArray &bytes) {
  qsizetype at = 2;
  while (at + 4 <= bytes.size()) {
    if (static_cast<uchar>(bytes[at]) != 0xff)
      return -1;
    const auto marker = static_cast<uchar>(bytes[at + 1]);
    if (marker == 0xff) { // filler
      ++at;
      continue;
    }
    if (marker == 0xda)
      return at;
    at += 2 + qFromBigEndian<quint16>(bytes.constData() + at + 2);
  }
  return -1;
}

// A decoder takes the missing half of a JPEG for grey and is content; so its end is looked for.
bool IsWholeJpeg(const QByteArray &bytes) {
  const qsizetype scan = FirstScan(bytes);
  return scan >= 0 && bytes.lastIndexOf("\xff\xd9") > scan;
}

template <typename Number> Number LittleEndian(const QByteArray &bytes, qsizetype at) {
  return at + qsizetype(sizeof(Number)) <= bytes.size() ? qFromLittleEndian<Number>(bytes.constData() + at) : Number{};
}

bool IsWholeBmp(const QByteArray &head, qint64 fileSize) {
  if (LittleEndian<quint32>(head, 14) < 40) // the oldest kind of header, which has other fields
    return true;
  const qint64 begin = LittleEndian<quint32>(head, 10);
  const qint64 width = LittleEndian<qint32>(head, 18);
  const qint64 height = LittleEndian<qint32>(head, 22);
  const qint64 rowBytes = (width * LittleEndian<quint16>(head, 28) + 31) / 32 * 4;
  const quint32 compression = LittleEndian<quint32>(head, 30);
  const bool packed = compression == 1 || compression == 2;
  return begin + (packed ? LittleEndian<quint32>(head, 34) : rowBytes * qAbs(height)) <= fileSize;
}

bool IsWholeGif(QByteArray tail) {
  while (tail.endsWith('\0'))
    tail.chop(1);
  return tail.endsWith(';');
}

// Formats whose decoders take a missing rest for black or for whatever memory holds.
bool IsWhole(QFile &file, const QByteArray &format) {
  const qint64 begin = file.pos();
  const auto bytes = [&file](qint64 at, qint64 count) {
    file.seek(qMax<qint64>(0, at));
    return file.read(count);
  };
  bool whole = true;
  if (format == "png")
    whole = bytes(file.size() - TailBytes, TailBytes).contains("IEND");
  else if (format == "bmp")
    whole = IsWholeBmp(bytes(0, 64), file.size());
  else if (format == "gif")
    whole = IsWholeGif(bytes(file.size() - TailBytes, TailBytes));
  else if (format == "webp")
    whole = qint64(LittleEndian<quint32>(bytes(0, 12), 4)) + 8 <= file.size();
  file.seek(begin);
  return whole;
}

// A picture that is being read: the file, or for JPEG its bytes, behind a reader.
class OpenPicture {
  // First, so that they outlive the reader that stands on them.
  QFile m_file;
  QBuffer m_bytes;

public:
  explicit OpenPicture(const QString &realPath) : m_file(realPath) {
    if (QFileInfo(m_file.fileName()).isFile() && m_file.open(QIODevice::ReadOnly))
      facts.problem = LookAtHeader();
  }

  // Whether the file holds all that its header promises.
  void LookAtEnd() {
    if (facts.problem != PictureProblem::None)
      return;
    const bool whole = facts.format == "jpeg" ? TakeJpeg() : IsWhole(m_file, facts.format);
    if (!whole)
      facts.problem = PictureProblem::CutOff;
  }

  PictureFacts facts;
  QImageReader reader;
  bool onItsSide = false; // the stored picture has to be turned by a quarter

private:
  PictureProblem LookAtHeader() {
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    reader.setDevice(&m_file);
    facts.format = reader.canRead() ? reader.format() : QByteArray();
    if (!IsKnown(facts.format))
      return PictureProblem::NoPicture;
    const QSize stored = reader.size();
    if (stored.isEmpty())
      return PictureProblem::NoPicture;
    onItsSide = reader.transformation() & QImageIOHandler::TransformationRotate90;
    facts.size = onItsSide ? stored.transposed() : stored;
    const qint64 pixels = qint64(stored.width()) * stored.height();
    const bool jpeg = facts.format == "jpeg";
    const bool tooLarge = pixels > MaxPixels || (jpeg ? m_file.size() > MaxJpegBytes : pixels * 4 > MaxWholeBytes);
    return tooLarge ? PictureProblem::TooLarge : PictureProblem::None;
  }

  bool TakeJpeg() {
    m_file.seek(0);
    m_bytes.setData(m_file.read(MaxJpegBytes));
    m_bytes.open(QIODevice::ReadOnly);
    reader.setDevice(&m_bytes);
    return IsWholeJpeg(m_bytes.data());
  }
};

} // namespace

PictureFacts ExaminePicture(const QString &realPath) {
  OpenPicture picture(realPath);
  picture.LookAtEnd();
  return picture.facts;
}

QSize PictureSize(const QString &realPath) {
  return OpenPicture(realPath).facts.size;
}

PictureImage ReadPicture(const QString &realPath, const std::function<QSize(const QSize &)> &wanted) {
  OpenPicture picture(realPath);
  picture.LookAtEnd();
  PictureImage result{{}, picture.facts.size, picture.facts.problem};
  if (result.problem != PictureProblem::None)
    return result;
  const QSize size = wanted(result.size).expandedTo({1, 1});
  if (picture.facts.format == "jpeg")
    picture.reader.setScaledSize(picture.onItsSide ? size.transposed() : size);
  result.image = picture.reader.read();
  if (result.image.isNull())
    result.problem = PictureProblem::NoPicture;
  else if (result.image.size() != size)
    result.image = RedimensionaFoto(result.image, size.width(), size.height());
  return result;
}

QImage WithoutTransparency(const QImage &picture) {
  if (!picture.hasAlphaChannel())
    return picture.convertToFormat(QImage::Format_RGB32);
  QImage flat(picture.size(), QImage::Format_RGB32);
  if (flat.isNull())
    return {};
  flat.fill(Qt::black);
  QPainter(&flat).drawImage(0, 0, picture);
  return flat;
}

QImage RedimensionaFoto(const QImage &picture, int largura, int altura) {
  if (picture.isNull() || (largura <= 0 && altura <= 0))
    return {};
  if (largura <= 0)
    return picture.scaledToHeight(altura, Qt::SmoothTransformation);
  if (altura <= 0)
    return picture.scaledToWidth(largura, Qt::SmoothTransformation);
  return picture.scaled(largura, altura, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool SalvaJpeg(const QImage &picture, const QString &storedPath, int qualidade, DiskWait wait) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setQuality(qualidade);
  if (picture.isNull() || !writer.write(WithoutTransparency(picture)))
    return false;
  if (wait == DiskWait::Wait)
    return WriteFileAtomically(storedPath, bytes);
  QSaveFile file(MapStoredPath(storedPath).text());
  // commit() would take a cut-off file for whole, where the rest only fails at the flush.
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
    return false;
  return file.commit();
}

} // namespace tolmira
