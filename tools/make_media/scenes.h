#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <functional>
#include <vector>

namespace tolmira::media {

struct Scene {
  QString file; // its name under Images
  std::function<QImage(QSize)> paint;
};

// The pictures of the starter service. All are dim enough for white text without a band.
const std::vector<Scene> &Scenes();

// The looping video: the picture at `phase` of its loop, 0 to 1, where 1 is 0 again.
QImage LoopFrame(QSize size, double phase);

} // namespace tolmira::media
