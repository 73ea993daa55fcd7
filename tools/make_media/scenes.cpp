#include "scenes.h"

#include "canvas.h"

#include <cmath>
#include <numbers>

namespace tolmira::media {

namespace {

constexpr double Tau = 2 * std::numbers::pi;

struct Dawn {
  std::vector<Stop> sky;
  QColor sun;
  QPointF at;
  QColor far;
  QColor near;
  std::uint64_t seed;
};

QColor Between(const QColor &a, const QColor &b, double t) {
  const auto f = static_cast<float>(t);
  return QColor::fromRgbF(std::lerp(a.redF(), b.redF(), f), std::lerp(a.greenF(), b.greenF(), f),
                          std::lerp(a.blueF(), b.blueF(), f));
}

// Hills behind hills, each nearer one darker, with the light of the sky caught between them.
QImage PaintHills(QSize size, const Dawn &dawn) {
  Canvas canvas(size);
  canvas.Sky(dawn.sky);
  canvas.Mist(dawn.sun, 0.2, 3, dawn.seed + 40,
              [](double, double v) { return std::exp(-std::pow((v - 0.36) / 0.2, 2)); });
  canvas.Light(dawn.at, 1.1, dawn.sun, 0.26);
  canvas.Light(dawn.at, 0.34, dawn.sun, 0.2);
  constexpr int Ridges = 6;
  for (int i = 0; i < Ridges; ++i) {
    const double t = static_cast<double>(i) / (Ridges - 1);
    const QColor top = Between(dawn.far, dawn.near, t);
    canvas.Ridge(0.585 + 0.34 * std::pow(t, 1.25), 0.045 + 0.035 * t, 3.4 + 1.1 * i, top, Between(top, dawn.near, 0.55),
                 dawn.seed + static_cast<std::uint64_t>(i) * 11);
    canvas.Light({dawn.at.x(), 0.64 + 0.3 * t}, 0.5, dawn.sun, 0.06 * (1 - t));
  }
  canvas.Vignette(0.5);
  return canvas.Finish(dawn.seed);
}

// Shafts of light from above, with dust in them.
QImage PaintRays(QSize size, const std::vector<Stop> &sky, const QColor &light, QPointF at, std::uint64_t seed) {
  Canvas canvas(size);
  canvas.Sky(sky);
  canvas.Mist(light, 0.16, 1.6, seed + 3, [](double, double v) { return 1 - 0.6 * v; });
  canvas.Rays(at, 1.75, light, 0.62, seed);
  canvas.Light(at, 1.0, light, 0.34);
  Random random(seed + 9);
  for (int i = 0; i < 90; ++i) {
    const double r = random.Between(0.0012, 0.0042);
    canvas.Light({random.Next(), random.Between(0.05, 1)}, r * 3, light, random.Between(0.1, 0.5));
  }
  canvas.Vignette(0.62);
  return canvas.Finish(seed);
}

QImage PaintNight(QSize size, std::uint64_t seed, bool pines) {
  Canvas canvas(size);
  canvas.Sky({{0, QColor(4, 8, 24)}, {0.5, QColor(12, 24, 58)}, {0.78, QColor(34, 52, 98)}, {1, QColor(50, 62, 104)}});
  const auto band = [](double u, double v) {
    const double across = (v - 0.36) + (u - 0.5) * 0.62;
    return std::exp(-std::pow(across / 0.19, 2)) * (v < 0.85 ? 1.0 : 0.0);
  };
  canvas.Mist(QColor(150, 165, 235), 0.34, 1, seed + 1, band);
  canvas.Mist(QColor(225, 170, 200), 0.17, 1, seed + 2, band);
  canvas.Stars(1700, 0.92, seed + 3);
  canvas.Light({0.5, 0.9}, 0.9, QColor(120, 150, 220), 0.14);
  if (pines) {
    canvas.Pines(0.93, 0.13, QColor(10, 17, 36), seed + 6);
    canvas.Pines(1.0, 0.2, QColor(4, 7, 16), seed + 7);
  } else {
    canvas.Ridge(0.83, 0.06, 5, QColor(14, 22, 46), QColor(8, 12, 26), seed + 4);
    canvas.Ridge(0.92, 0.05, 4, QColor(6, 9, 20), QColor(3, 4, 10), seed + 5);
  }
  canvas.Vignette(0.45);
  return canvas.Finish(seed);
}

// A calm sea under a low sun: glints that widen toward the viewer.
QImage PaintSea(QSize size, const std::vector<Stop> &sky, const QColor &sun, double sunX, const QColor &deep,
                std::uint64_t seed) {
  Canvas canvas(size);
  canvas.Sky(sky);
  constexpr double Horizon = 0.55;
  canvas.Mist(sun, 0.26, 4, seed + 1,
              [](double, double v) { return v < Horizon ? std::exp(-std::pow((v - 0.36) / 0.14, 2)) : 0.0; });
  canvas.Light({sunX, Horizon - 0.03}, 1.1, sun, 0.24);
  canvas.Light({sunX, Horizon - 0.03}, 0.22, sun, 0.32);
  QPainterPath water;
  water.addRect(QRectF(-0.01, Horizon, 1.02, 0.5));
  QColor veil = deep;
  veil.setAlphaF(0.9F);
  canvas.Fill(water, veil);
  canvas.Light({sunX, Horizon + 0.06}, 0.55, sun, 0.16);
  Random random(seed + 2);
  for (int i = 0; i < 1500; ++i) {
    const double depth = std::pow(random.Next(), 1.7);
    const double y = Horizon + 0.006 + 0.44 * depth;
    const double spread = 0.02 + 0.24 * depth;
    const double side = random.Next() + random.Next() + random.Next() - 1.5;
    const double x = sunX + side * spread;
    const double wide = (0.006 + 0.035 * depth) * random.Between(0.4, 1);
    QPainterPath glint;
    glint.addEllipse(QPointF(x, y), wide, 0.0007 + 0.0022 * depth);
    QColor colour = sun;
    colour.setAlphaF(static_cast<float>(random.Between(0.05, 0.34) * (1 - std::abs(side) / 1.6) * (1 - 0.55 * depth)));
    canvas.Fill(glint, colour);
  }
  for (int i = 0; i < 420; ++i) {
    const double depth = std::pow(random.Next(), 1.4);
    QPainterPath swell;
    swell.addEllipse(QPointF(random.Next(), Horizon + 0.01 + 0.44 * depth), 0.03 + 0.13 * depth * random.Next(),
                     0.0008 + 0.004 * depth);
    canvas.Fill(swell, QColor(0, 0, 0, 20));
  }
  canvas.Vignette(0.55);
  return canvas.Finish(seed);
}

QImage PaintBokeh(QSize size, const std::vector<Stop> &sky, const std::vector<QColor> &lights, std::uint64_t seed) {
  Canvas canvas(size);
  canvas.Sky(sky);
  canvas.Light({0.5, 0.95}, 1.2, lights.front(), 0.16);
  Random random(seed);
  for (int i = 0; i < 64; ++i) {
    const double low = std::pow(random.Next(), 0.6);
    const QColor &colour = lights[static_cast<std::size_t>(random.Next() * static_cast<double>(lights.size()))];
    const double radius = random.Between(0.018, 0.085);
    canvas.Disc({random.Next(), 0.12 + 0.9 * low}, radius, colour, random.Between(0.04, 0.17) * (0.45 + 0.55 * low));
  }
  canvas.Vignette(0.6);
  return canvas.Finish(seed);
}

QImage PaintForest(QSize size, std::uint64_t seed) {
  Canvas canvas(size);
  canvas.Sky({{0, QColor(24, 44, 52)}, {0.5, QColor(56, 82, 84)}, {1, QColor(30, 48, 50)}});
  canvas.Light({0.56, 0.3}, 0.95, QColor(190, 210, 180), 0.14);
  constexpr int Rows = 5;
  for (int i = 0; i < Rows; ++i) {
    const double t = static_cast<double>(i) / (Rows - 1);
    canvas.Pines(0.56 + 0.46 * t, 0.13 + 0.2 * t, Between(QColor(46, 70, 73), QColor(6, 13, 15), std::pow(t, 0.75)),
                 seed + static_cast<std::uint64_t>(i) * 3);
    const double level = 0.62 + 0.4 * t;
    canvas.Mist(QColor(140, 168, 164), 0.34 * (1 - t), 3, seed + 50 + static_cast<std::uint64_t>(i),
                [level](double, double v) { return std::exp(-std::pow((v - level) / 0.11, 2)); });
  }
  canvas.Vignette(0.55);
  return canvas.Finish(seed);
}

// Folds of light, as of a silk veil.
QImage PaintVeil(QSize size, const QColor &deep, const QColor &light, double phase, std::uint64_t seed) {
  Canvas canvas(size);
  canvas.Sky({{0, deep.darker(150)}, {0.55, deep}, {1, deep.darker(190)}});
  canvas.Light({0.3 + 0.03 * std::sin(Tau * phase), 0.2}, 1.1, light, 0.16);
  constexpr int Folds = 7;
  for (int i = 0; i < Folds; ++i) {
    Random random(seed + static_cast<std::uint64_t>(i) * 101);
    const double base = 0.2 + 0.1 * i;
    const double a1 = random.Between(0.05, 0.12);
    const double a2 = random.Between(0.02, 0.05);
    const double p1 = random.Next();
    const double p2 = random.Next();
    const double w1 = random.Between(0.6, 1.2);
    const double w2 = random.Between(1.6, 2.6);
    // Whole numbers of turns, so that the loop closes.
    const double turn = i % 2 == 0 ? 1 : -1;
    const auto edge = [&](double u) {
      return base + a1 * std::sin(Tau * (w1 * u + p1 + turn * phase)) +
             a2 * std::sin(Tau * (w2 * u + p2 - turn * phase));
    };
    constexpr int Strips = 9;
    for (int s = 0; s < Strips; ++s) {
      const double depth = 0.17 * std::pow(static_cast<double>(s + 1) / Strips, 1.5);
      QPainterPath path;
      constexpr int Steps = 96;
      path.moveTo(-0.01, edge(-0.01));
      for (int k = 0; k <= Steps; ++k) {
        const double u = -0.01 + 1.02 * k / Steps;
        path.lineTo(u, edge(u));
      }
      for (int k = Steps; k >= 0; --k) {
        const double u = -0.01 + 1.02 * k / Steps;
        path.lineTo(u, edge(u) + depth * (0.6 + 0.4 * std::sin(Tau * (0.5 * u + p2 + turn * phase))));
      }
      path.closeSubpath();
      QColor colour = Between(light, deep, static_cast<double>(i) / (2 * Folds));
      colour.setAlphaF(0.026F);
      canvas.Fill(path, colour);
    }
  }
  canvas.Vignette(0.55);
  return canvas.Finish(seed);
}

std::vector<Scene> MakeScenes() {
  const Dawn gold{{{0, QColor(22, 28, 62)},
                   {0.3, QColor(72, 54, 98)},
                   {0.5, QColor(160, 92, 84)},
                   {0.62, QColor(196, 128, 74)},
                   {1, QColor(70, 44, 50)}},
                  QColor(255, 188, 110),
                  {0.62, 0.57},
                  QColor(112, 74, 84),
                  QColor(14, 11, 22),
                  1101};
  const Dawn rose{
      {{0, QColor(26, 24, 58)}, {0.32, QColor(88, 52, 104)}, {0.58, QColor(168, 92, 116)}, {1, QColor(66, 40, 62)}},
      QColor(255, 166, 160),
      {0.33, 0.56},
      QColor(104, 66, 100),
      QColor(13, 10, 24),
      1207};
  const Dawn blue{
      {{0, QColor(8, 22, 50)}, {0.34, QColor(28, 66, 104)}, {0.58, QColor(98, 138, 152)}, {1, QColor(34, 56, 70)}},
      QColor(226, 214, 178),
      {0.5, 0.56},
      QColor(66, 98, 112),
      QColor(6, 14, 24),
      1303};
  return {
      {QStringLiteral("amanhecer-1.jpg"), [gold](QSize s) { return PaintHills(s, gold); }},
      {QStringLiteral("amanhecer-2.jpg"), [rose](QSize s) { return PaintHills(s, rose); }},
      {QStringLiteral("amanhecer-3.jpg"), [blue](QSize s) { return PaintHills(s, blue); }},
      {QStringLiteral("luz-1.jpg"),
       [](QSize s) {
         return PaintRays(s, {{0, QColor(44, 62, 104)}, {0.55, QColor(16, 28, 58)}, {1, QColor(6, 10, 24)}},
                          QColor(176, 204, 255), {0.5, -0.16}, 2101);
       }},
      {QStringLiteral("luz-2.jpg"),
       [](QSize s) {
         return PaintRays(s, {{0, QColor(104, 68, 34)}, {0.5, QColor(48, 28, 22)}, {1, QColor(16, 9, 11)}},
                          QColor(255, 206, 138), {0.16, -0.12}, 2203);
       }},
      {QStringLiteral("noite-1.jpg"), [](QSize s) { return PaintNight(s, 3101, false); }},
      {QStringLiteral("noite-2.jpg"), [](QSize s) { return PaintNight(s, 3209, true); }},
      {QStringLiteral("mar-1.jpg"),
       [](QSize s) {
         return PaintSea(s,
                         {{0, QColor(14, 26, 58)},
                          {0.3, QColor(58, 60, 104)},
                          {0.55, QColor(164, 102, 78)},
                          {1, QColor(20, 24, 44)}},
                         QColor(255, 196, 130), 0.5, QColor(18, 30, 54), 4101);
       }},
      {QStringLiteral("mar-2.jpg"),
       [](QSize s) {
         return PaintSea(
             s,
             {{0, QColor(6, 18, 40)}, {0.35, QColor(20, 54, 84)}, {0.55, QColor(98, 140, 150)}, {1, QColor(8, 20, 32)}},
             QColor(214, 230, 226), 0.68, QColor(10, 34, 50), 4207);
       }},
      {QStringLiteral("bokeh-1.jpg"),
       [](QSize s) {
         return PaintBokeh(s, {{0, QColor(20, 11, 14)}, {0.6, QColor(52, 25, 18)}, {1, QColor(80, 38, 18)}},
                           {QColor(255, 178, 84), QColor(255, 140, 70), QColor(255, 214, 150)}, 5101);
       }},
      {QStringLiteral("bokeh-2.jpg"),
       [](QSize s) {
         return PaintBokeh(s, {{0, QColor(7, 12, 30)}, {0.6, QColor(14, 34, 62)}, {1, QColor(18, 54, 84)}},
                           {QColor(96, 190, 255), QColor(120, 140, 255), QColor(150, 240, 235)}, 5203);
       }},
      {QStringLiteral("floresta.jpg"), [](QSize s) { return PaintForest(s, 6101); }},
      {QStringLiteral("veu-1.jpg"),
       [](QSize s) { return PaintVeil(s, QColor(70, 24, 52), QColor(255, 170, 190), 0, 7101); }},
      {QStringLiteral("veu-2.jpg"),
       [](QSize s) { return PaintVeil(s, QColor(14, 54, 60), QColor(150, 240, 220), 0, 7207); }},
  };
}

} // namespace

const std::vector<Scene> &Scenes() {
  static const std::vector<Scene> scenes = MakeScenes();
  return scenes;
}

QImage LoopFrame(QSize size, double phase) {
  Canvas canvas(size);
  canvas.Sky({{0, QColor(8, 14, 38)}, {0.6, QColor(22, 34, 78)}, {1, QColor(34, 28, 70)}});
  canvas.Light({0.5 + 0.2 * std::sin(Tau * phase), 0.1}, 1.3, QColor(90, 130, 255), 0.3);
  canvas.Light({0.35 + 0.16 * std::cos(Tau * phase), 1.0}, 1.2, QColor(210, 110, 220), 0.2);
  Random random(8101);
  for (int i = 0; i < 46; ++i) {
    const double x = random.Next();
    const double y = random.Next();
    const double radius = random.Between(0.012, 0.07);
    const double sway = random.Between(0.008, 0.03);
    const double turn = random.Next();
    const double strength = random.Between(0.05, 0.16);
    const QColor colour = random.Next() < 0.5 ? QColor(150, 185, 255) : QColor(230, 190, 255);
    // Each light rises a little in its own turn of the loop, and is dark where that turn ends and begins.
    const double age = phase + turn - std::floor(phase + turn);
    const double shine = std::pow(std::sin(std::numbers::pi * age), 2);
    const double rise = y + 0.1 - 0.2 * age;
    canvas.Disc({x + sway * std::sin(Tau * age), rise}, radius, colour, strength * shine);
  }
  canvas.Vignette(0.55);
  return canvas.Finish(8101);
}

} // namespace tolmira::media
