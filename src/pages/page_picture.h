#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QSizeF>

namespace tolmira {

// The largest size inside `screen` with the page's proportions. A page that would leave a strip of less than a
// hundredth of the screen fills it: nobody sees that, and everybody would see the strip. Empty when the page has no
// size.
QSize FitPage(const QSizeF &page, const QSize &screen);

// The page in the middle of a black picture of the screen's size. The projection fills its screen with a picture and
// cuts what stands over, so the bars have to be part of it.
QImage OnScreen(const QImage &page, const QSize &screen);

// A page as a file. PNG keeps letters sharp and is small where areas are even; a page that is mostly photograph becomes
// a JPEG, since its PNG would be ten times as large and take seconds to make.
struct PageFile {
  QByteArray bytes; // empty when it could not be made
  const char *extension = "png";
};
PageFile EncodePage(const QImage &picture);

} // namespace tolmira
