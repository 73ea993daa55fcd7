#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QSize>
#include <cstdint>
#include <functional>
#include <vector>

namespace tolmira::media {

// Numbers that are the same on every machine, so that a picture is the same wherever it is made.
class Random {
public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}
  double Next(); // [0, 1)
  double Between(double low, double high) { return low + (high - low) * Next(); }

private:
  std::uint64_t m_state;
};

// Smooth noise over the plane, about 0 to 1, in `octaves` of doubling fineness.
double Noise(double x, double y, std::uint64_t seed, int octaves);

struct Stop {
  double at; // 0 to 1
  QColor colour;
};

// A picture in 16 bits a channel, in which the soft gradients of a background stay free of steps. Places are given as
// fractions of width and height, sizes as fractions of the height.
class Canvas {
public:
  explicit Canvas(QSize size);

  void Sky(const std::vector<Stop> &stops);                                     // from top to bottom
  void Light(QPointF at, double radius, const QColor &colour, double strength); // added to what is there
  void Rays(QPointF at, double reach, const QColor &colour, double strength, std::uint64_t seed);
  void Mist(const QColor &colour, double strength, double stretch, std::uint64_t seed,
            const std::function<double(double, double)> &where);
  void Stars(int count, double bottom, std::uint64_t seed);
  // A ridge of hills that fills everything below it; `roughness` is the height of its waves.
  void Ridge(double height, double roughness, double waves, const QColor &top, const QColor &bottom,
             std::uint64_t seed);
  void Pines(double height, double size, const QColor &colour, std::uint64_t seed);
  void Disc(QPointF at, double radius, const QColor &colour, double strength); // a circle of light out of focus
  void Fill(const QPainterPath &path, const QColor &colour);                   // path in fractions
  void Vignette(double strength);

  // The picture in 8 bits, with a grain below what the eye sees in place of steps.
  QImage Finish(std::uint64_t seed) const;

private:
  double H() const { return m_image.height(); }
  QPointF Px(QPointF at) const { return {at.x() * m_image.width(), at.y() * m_image.height()}; }
  void AddLayer(const QImage &layer);

  QImage m_image;
};

} // namespace tolmira::media
