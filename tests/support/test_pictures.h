#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QtEndian>

namespace tolmira::testing {

// Pictures of every kind that reaches the program, made by the tests themselves.

inline QByteArray PictureBytes(const QSize &size, const char *format, const QColor &colour = Qt::red) {
  QImage picture(size, QImage::Format_ARGB32);
  picture.fill(colour);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, format))
    qFatal("cannot make a picture");
  return bytes;
}

// A photograph held on its side: 16 by 8 as it is stored, its left half red, to be turned by a quarter to the right.
inline QByteArray TurnedJpeg() {
  QImage picture(16, 8, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 8; ++x)
      picture.setPixelColor(x, y, Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "jpg", 100);
  const QByteArray orientation("\xff\xe1\x00\x22"
                               "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
                               36);
  return bytes.insert(2, orientation);
}

// 16 by 8 pixels of red in the four colours of a printer.
inline QByteArray CmykJpeg() {
  return QByteArray::fromBase64(
      "/9j/7gAOQWRvYmUAZAAAAAAC/9sAQwAQCwwODAoQDg0OEhEQExgoGhgWFhgxIyUdKDozPTw5Mzg3QEhcTkBEV0U3OFBtUVdfYmdo"
      "Zz5NcXlwZHhcZWdj/9sAQwEREhIYFRgvGhovY0I4QmNjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2NjY2Nj"
      "Y2NjY2Nj/8AAFAgACAAQBAERAAIRAQMRAQQRAP/EABYAAQEBAAAAAAAAAAAAAAAAAAAFB//EABQQAQAAAAAAAAAAAAAAAAAAAAD/"
      "xAAWAQEBAQAAAAAAAAAAAAAAAAAABQb/xAAUEQEAAAAAAAAAAAAAAAAAAAAA/9oADgQBAAIRAxEEAAA/ALSowbQAB//Z");
}

// A small file whose header claims a picture of that size.
inline QByteArray PngThatClaims(const QSize &size) {
  QByteArray bytes = PictureBytes({1, 1}, "png");
  qToBigEndian<quint32>(static_cast<quint32>(size.width()), bytes.data() + 16);
  qToBigEndian<quint32>(static_cast<quint32>(size.height()), bytes.data() + 20);
  quint32 sum = 0xffffffff;
  for (int at = 12; at < 29; ++at) {
    sum ^= static_cast<uchar>(bytes[at]);
    for (int bit = 0; bit < 8; ++bit)
      sum = sum & 1 ? 0xedb88320 ^ sum >> 1 : sum >> 1;
  }
  qToBigEndian<quint32>(~sum, bytes.data() + 29);
  return bytes;
}

// One pixel.
inline QByteArray Gif() {
  return QByteArray::fromHex("47494638396101000100800000000000ffffff21f90400000000002c00000000010001000002024401003b");
}

inline QByteArray HalfOf(const QByteArray &bytes) {
  return bytes.left(bytes.size() / 2);
}

// A JPEG with enough in it that half of it still has a header.
inline QByteArray NoisyJpeg(const QSize &size) {
  QImage picture(size, QImage::Format_RGB32);
  quint32 seed = 1;
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x)
      picture.setPixel(x, y, 0xff000000 | (seed = seed * 1664525 + 1013904223) >> 8);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "jpg", 90);
  return bytes;
}

} // namespace tolmira::testing
