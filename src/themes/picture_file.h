#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <functional>

namespace tolmira {

// Pictures are read by their real paths, which is how file dialogues and the desktop name them; SalvaJpeg takes a
// stored one.

enum class PictureProblem {
  None,
  Missing,   // no file of that name
  NoPicture, // a file, but no picture that the program knows
  CutOff,    // its end is missing
  TooLarge,  // decoding it would take more memory than a picture may have
};

// What a picture's header and end say; nothing is decoded.
struct PictureFacts {
  PictureProblem problem = PictureProblem::Missing;
  QByteArray format; // as the reader names it: "jpeg", "png", "webp" ...; of the content, whatever the name says
  QSize size;        // px, upright: orientation tags are honoured
};
PictureFacts ExaminePicture(const QString &realPath);
QSize PictureSize(const QString &realPath); // of the header alone, px, upright; empty when there is none

struct PictureImage {
  QImage image; // null when there is a problem
  QSize size;   // px, of the whole picture, upright
  PictureProblem problem = PictureProblem::None;
};

// The picture upright at the size that `wanted` makes of its own. JPEG is decoded at reduced scale, which saves most of
// the work. An animation gives its first picture. Can be called from any thread.
PictureImage ReadPicture(const QString &realPath, const std::function<QSize(const QSize &)> &wanted);

// The picture on black, for files and places that know no transparency.
QImage WithoutTransparency(const QImage &picture);

// `picture` scaled to that size in pixels. One side may be 0: the other one then fixes the scale, and the proportion is
// kept. The null image when both are 0 or the picture is null.
QImage RedimensionaFoto(const QImage &picture, int largura, int altura);

// Writes a JPEG as one step; transparent parts become black. `qualidade` 0 to 100. False when nothing was written. What
// can be made again at any time need not wait for the disk.
enum class DiskWait { Wait, DontWait };
bool SalvaJpeg(const QImage &picture, const QString &storedPath, int qualidade, DiskWait wait = DiskWait::Wait);

} // namespace tolmira
