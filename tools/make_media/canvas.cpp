#include "canvas.h"

#include <QPainter>
#include <QRadialGradient>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolmira::media {

namespace {

std::uint64_t Mix(std::uint64_t z) {
  z += 0x9e3779b97f4a7c15ULL;
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
  return z ^ (z >> 31);
}

double ToUnit(std::uint64_t z) {
  return static_cast<double>(z >> 11) * 0x1.0p-53;
}

double Lattice(std::int64_t x, std::int64_t y, std::uint64_t seed) {
  return ToUnit(Mix(Mix(seed ^ static_cast<std::uint64_t>(x)) ^ static_cast<std::uint64_t>(y)));
}

double Smooth(double t) {
  return t * t * (3 - 2 * t);
}

double Value(double x, double y, std::uint64_t seed) {
  const double fx = std::floor(x);
  const double fy = std::floor(y);
  const auto ix = static_cast<std::int64_t>(fx);
  const auto iy = static_cast<std::int64_t>(fy);
  const double u = Smooth(x - fx);
  const double v = Smooth(y - fy);
  return std::lerp(std::lerp(Lattice(ix, iy, seed), Lattice(ix + 1, iy, seed), u),
                   std::lerp(Lattice(ix, iy + 1, seed), Lattice(ix + 1, iy + 1, seed), u), v);
}

QColor WithAlpha(QColor colour, double alpha) {
  colour.setAlphaF(static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
  return colour;
}

// A light that falls off as a bell does, without the visible rim of a straight ramp.
QRadialGradient Bell(QPointF centre, double radius, const QColor &colour, double strength) {
  QRadialGradient gradient(centre, radius);
  constexpr int Steps = 12;
  for (int i = 0; i <= Steps; ++i) {
    const double r = static_cast<double>(i) / Steps;
    gradient.setColorAt(r, WithAlpha(colour, strength * std::exp(-4.5 * r * r) * (1 - r)));
  }
  return gradient;
}

} // namespace

double Random::Next() {
  m_state += 0x9e3779b97f4a7c15ULL;
  return ToUnit(Mix(m_state));
}

double Noise(double x, double y, std::uint64_t seed, int octaves) {
  double sum = 0;
  double weight = 0.5;
  double total = 0;
  for (int i = 0; i < octaves; ++i) {
    sum += weight * Value(x, y, seed + static_cast<std::uint64_t>(i));
    total += weight;
    weight /= 2;
    x = x * 2 + 17.3;
    y = y * 2 + 9.1;
  }
  return sum / total;
}

Canvas::Canvas(QSize size) : m_image(size, QImage::Format_RGBA64_Premultiplied) {
  m_image.fill(Qt::black);
}

void Canvas::Sky(const std::vector<Stop> &stops) {
  QLinearGradient gradient(0, 0, 0, H());
  for (const Stop &stop : stops)
    gradient.setColorAt(stop.at, stop.colour);
  QPainter painter(&m_image);
  painter.fillRect(m_image.rect(), gradient);
}

void Canvas::Light(QPointF at, double radius, const QColor &colour, double strength) {
  QPainter painter(&m_image);
  painter.setCompositionMode(QPainter::CompositionMode_Plus);
  painter.fillRect(m_image.rect(), Bell(Px(at), radius * H(), colour, strength));
}

void Canvas::Rays(QPointF at, double reach, const QColor &colour, double strength, std::uint64_t seed) {
  QImage layer(m_image.size() / 2, QImage::Format_RGBA64_Premultiplied);
  const QPointF centre(at.x() * layer.width(), at.y() * layer.height());
  const double far = reach * layer.height();
  for (int y = 0; y < layer.height(); ++y) {
    auto *line = reinterpret_cast<QRgba64 *>(layer.scanLine(y));
    for (int x = 0; x < layer.width(); ++x) {
      const double dx = x - centre.x();
      const double dy = y - centre.y();
      const double distance = std::hypot(dx, dy) / far;
      const double angle = std::atan2(dy, dx);
      const double beam = Noise(angle * 9, 3.7, seed, 2) * 0.65 + Noise(angle * 26, 8.2, seed + 5, 2) * 0.35;
      const double shaft = std::pow(std::clamp((beam - 0.32) * 1.9, 0.0, 1.0), 1.6);
      const double fall = distance < 1 ? std::pow(1 - distance, 1.4) * Smooth(std::min(1.0, distance * 5)) : 0.0;
      const double a = strength * shaft * fall;
      const auto channel = [&](double value) { return static_cast<quint16>(value * a * 65535); };
      line[x] = QRgba64::fromRgba64(channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()),
                                    static_cast<quint16>(std::min(1.0, a) * 65535));
    }
  }
  AddLayer(layer);
}

void Canvas::Mist(const QColor &colour, double strength, double stretch, std::uint64_t seed,
                  const std::function<double(double, double)> &where) {
  QImage layer(m_image.size() / 4, QImage::Format_RGBA64_Premultiplied);
  const double aspect = static_cast<double>(layer.width()) / layer.height();
  for (int y = 0; y < layer.height(); ++y) {
    auto *line = reinterpret_cast<QRgba64 *>(layer.scanLine(y));
    for (int x = 0; x < layer.width(); ++x) {
      const double u = static_cast<double>(x) / layer.width();
      const double v = static_cast<double>(y) / layer.height();
      const double cloud = Noise(u * aspect * 3 / stretch, v * 3 * stretch, seed, 5);
      const double a = strength * where(u, v) * std::pow(std::clamp((cloud - 0.25) * 1.6, 0.0, 1.0), 1.3);
      const auto channel = [&](double value) { return static_cast<quint16>(value * a * 65535); };
      line[x] = QRgba64::fromRgba64(channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()),
                                    static_cast<quint16>(std::clamp(a, 0.0, 1.0) * 65535));
    }
  }
  AddLayer(layer);
}

void Canvas::AddLayer(const QImage &layer) {
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setCompositionMode(QPainter::CompositionMode_Plus);
  painter.drawImage(m_image.rect(), layer);
}

void Canvas::Stars(int count, double bottom, std::uint64_t seed) {
  Random random(seed);
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_Plus);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < count; ++i) {
    const QPointF at = Px({random.Next(), random.Next() * bottom});
    const double bright = std::pow(random.Next(), 7);
    const double radius = H() * (0.0006 + 0.0013 * bright);
    const QColor colour =
        QColor::fromHsvF(random.Next() < 0.3F ? 0.09F : 0.6F, static_cast<float>(random.Between(0, 0.28)), 1);
    const double fade = 1 - Smooth(std::clamp(at.y() / (H() * bottom) * 1.2 - 0.2, 0.0, 1.0));
    painter.setBrush(WithAlpha(colour, (0.25 + 0.65 * bright) * fade));
    painter.drawEllipse(at, radius, radius);
    if (bright > 0.55)
      painter.fillRect(m_image.rect(), Bell(at, radius * 7, colour, 0.35 * fade));
  }
}

void Canvas::Ridge(double height, double roughness, double waves, const QColor &top, const QColor &bottom,
                   std::uint64_t seed) {
  QPainterPath path(QPointF(-2, H() + 2));
  const int steps = m_image.width() / 2;
  double highest = H();
  for (int i = 0; i <= steps; ++i) {
    const double u = static_cast<double>(i) / steps;
    const double y = (height - roughness * (Noise(u * waves, 0.5, seed, 4) - 0.5) * 2) * H();
    highest = std::min(highest, y);
    path.lineTo(u * (m_image.width() + 4) - 2, y);
  }
  path.lineTo(m_image.width() + 2, H() + 2);
  path.closeSubpath();
  QLinearGradient gradient(0, highest, 0, H());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(path, gradient);
}

void Canvas::Pines(double height, double size, const QColor &colour, std::uint64_t seed) {
  Random random(seed);
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  const double width = static_cast<double>(m_image.width());
  for (double x = -0.02; x < 1.02; x += random.Between(0.12, 0.42) * size) {
    const double foot = (height + 0.03 * (Noise(x * 5, 1.5, seed, 3) - 0.5)) * H();
    const double tall = size * H() * random.Between(0.55, 1.25);
    const double wide = tall * random.Between(0.17, 0.24);
    const int tiers = 7;
    for (int i = 0; i < tiers; ++i) {
      const double from = static_cast<double>(i) / tiers;
      const double tierTop = foot - tall * (1 - from * 0.92);
      const double tierFoot = foot - tall * (1 - (from + 0.3) * 0.92);
      const double half = wide * (from + 0.2) * random.Between(0.8, 1.1);
      QPolygonF tier;
      tier << QPointF(x * width, tierTop) << QPointF(x * width + half, tierFoot)
           << QPointF(x * width - half * random.Between(0.85, 1.1), tierFoot);
      path.addPolygon(tier);
      path.closeSubpath();
    }
    path.addRect(QRectF(x * width - wide * 0.04, foot - tall * 0.2, wide * 0.08, tall * 0.22));
  }
  // The wood stands on ground that rolls as its feet do.
  path.moveTo(-2, H() + 2);
  constexpr int Steps = 200;
  for (int i = 0; i <= Steps; ++i) {
    const double u = -0.01 + 1.02 * i / Steps;
    path.lineTo(u * width, (height - 0.01 + 0.03 * (Noise(u * 5, 1.5, seed, 3) - 0.5)) * H());
  }
  path.lineTo(width + 2, H() + 2);
  path.closeSubpath();
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(path, colour);
}

void Canvas::Disc(QPointF at, double radius, const QColor &colour, double strength) {
  const QPointF centre = Px(at);
  const double r = radius * H();
  QRadialGradient gradient(centre, r);
  gradient.setColorAt(0, WithAlpha(colour, strength * 0.62));
  gradient.setColorAt(0.8, WithAlpha(colour, strength * 0.8));
  gradient.setColorAt(0.91, WithAlpha(colour, strength));
  gradient.setColorAt(1, WithAlpha(colour, 0));
  QPainter painter(&m_image);
  painter.setCompositionMode(QPainter::CompositionMode_Plus);
  painter.fillRect(QRectF(centre.x() - r, centre.y() - r, 2 * r, 2 * r), gradient);
}

void Canvas::Fill(const QPainterPath &path, const QColor &colour) {
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(QTransform::fromScale(m_image.width(), H()).map(path), colour);
}

void Canvas::Vignette(double strength) {
  QRadialGradient gradient(QPointF(m_image.width() / 2.0, H() / 2), std::hypot(m_image.width(), H()) / 2);
  gradient.setColorAt(0, QColor(0, 0, 0, 0));
  gradient.setColorAt(0.45, WithAlpha(Qt::black, strength * 0.12));
  gradient.setColorAt(1, WithAlpha(Qt::black, strength));
  QPainter painter(&m_image);
  painter.fillRect(m_image.rect(), gradient);
}

QImage Canvas::Finish(std::uint64_t seed) const {
  QImage result(m_image.size(), QImage::Format_RGB32);
  Random random(seed);
  const auto channel = [](quint16 value, double grain) {
    return static_cast<int>(std::clamp(value / 257.0 + grain, 0.0, 255.0));
  };
  for (int y = 0; y < m_image.height(); ++y) {
    const auto *from = reinterpret_cast<const QRgba64 *>(m_image.constScanLine(y));
    auto *to = reinterpret_cast<QRgb *>(result.scanLine(y));
    for (int x = 0; x < m_image.width(); ++x) {
      const double grain = random.Next() + random.Next() - 0.5;
      to[x] = qRgb(channel(from[x].red(), grain), channel(from[x].green(), grain), channel(from[x].blue(), grain));
    }
  }
  return result;
}

} // namespace tolmira::media
