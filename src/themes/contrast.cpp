#include "themes/contrast.h"

#include "foundation/text_fields.h"

#include <QtMath>
#include <algorithm>
#include <cmath>
#include <vector>

namespace tolmira {

namespace {

constexpr QSize Looked{96, 54}; // px: a letter of a verse is about as large as a few of them
// Verses take up to 84 per cent of the width, in the middle of the height.
constexpr double AreaWidth = 0.84;
constexpr double AreaHeight = 0.6;

// How much of what the eye sees beside a letter's edge is outline or shadow. Both are soft; the outline lies all round
// and counts by its thickness, the shadow lies on one side. From the back row a thin one is hardly there.
constexpr double OutlineSharePerPx = 0.08;
constexpr double LargestOutlineShare = 0.3;
constexpr double ShadowShare = 0.1;

double Linear(int channel) {
  const double c = channel / 255.0;
  return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double Luminance(QRgb colour) {
  return 0.2126 * Linear(qRed(colour)) + 0.7152 * Linear(qGreen(colour)) + 0.0722 * Linear(qBlue(colour));
}

QRgb FromStored(qint32 colour) { // 0x00BBGGRR
  return qRgb(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}
QRgb FromStored(const QString &colour) {
  return FromStored(RoundHalfEven(NumericPrefix(colour)));
}

QRgb Mix(QRgb under, QRgb over, double share) {
  const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
  return qRgb(mix(qRed(under), qRed(over)), mix(qGreen(under), qGreen(over)), mix(qBlue(under), qBlue(over)));
}

// Brightness, contrast and saturation one after the other, as the engine applies them; each step ends within 0 and 1.
QRgb Filtered(QRgb colour, const TemaRecord &tema) {
  double channel[] = {qRed(colour) / 255.0, qGreen(colour) / 255.0, qBlue(colour) / 255.0};
  for (double &c : channel) {
    c = std::clamp(c * tema.brightness / 100, 0.0, 1.0);
    c = std::clamp((c - 0.5) * tema.contrast / 100 + 0.5, 0.0, 1.0);
  }
  const double grey = 0.213 * channel[0] + 0.715 * channel[1] + 0.072 * channel[2];
  const auto saturated = [&](double c) {
    return qRound(255 * std::clamp(grey + (c - grey) * tema.saturate / 100, 0.0, 1.0));
  };
  return qRgb(saturated(channel[0]), saturated(channel[1]), saturated(channel[2]));
}

QRectF AreaOfText(const QSizeF &of) {
  const QSizeF size(of.width() * AreaWidth, of.height() * AreaHeight);
  return {QPointF((of.width() - size.width()) / 2, (of.height() - size.height()) / 2), size};
}

} // namespace

double ContrastRatio(QRgb a, QRgb b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QImage BehindText(const QImage &picture, const QSize &real, const QSize &proportions, const TemaRecord &tema) {
  if (picture.isNull() || real.isEmpty() || proportions.isEmpty())
    return {};
  // The part of the picture that fills the screen, in parts of its own size: the copy may be squeezed.
  const QSizeF seen = QSizeF(proportions).scaled(real, Qt::KeepAspectRatio);
  const QRectF area =
      AreaOfText(seen).translated((real.width() - seen.width()) / 2, (real.height() - seen.height()) / 2);
  const double across = picture.width() / static_cast<double>(real.width());
  const double down = picture.height() / static_cast<double>(real.height());
  const QRect part(qFloor(area.x() * across), qFloor(area.y() * down), std::max(1, qRound(area.width() * across)),
                   std::max(1, qRound(area.height() * down)));
  QImage behind = picture.copy(part & picture.rect())
                      .scaled(Looked, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                      .convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < behind.height(); ++y) {
    auto *line = reinterpret_cast<QRgb *>(behind.scanLine(y));
    for (int x = 0; x < behind.width(); ++x)
      line[x] = Filtered(line[x], tema);
  }
  return behind;
}

QImage BehindText(const TemaRecord &tema) {
  QImage behind(1, 1, QImage::Format_RGB32);
  behind.fill(Filtered(FromStored(tema.CordeFundo), tema));
  return behind;
}

double TextContrast(const QImage &behind, const TemaRecord &tema) {
  if (behind.isNull())
    return ContrastRatio(qRgb(0, 0, 0), qRgb(255, 255, 255));
  const QRgb text = FromStored(tema.Font_Cor);
  const QRgb outline = FromStored(tema.FontBorda_Cor);
  const QRgb shadow = FromStored(tema.FontSombra_Cor);
  const double thickness = tema.FontBorda_Enabled ? std::max(0.0, NumericPrefix(tema.FontBorda_Espessura)) : 0;
  const double outlineShare = std::min(thickness * OutlineSharePerPx, LargestOutlineShare);
  const bool hasShadow =
      tema.FontSombra_Enabled && (NumericPrefix(tema.FontSombra_Right) != 0 ||
                                  NumericPrefix(tema.FontSombra_Down) != 0 || NumericPrefix(tema.FontSombra_Blur) != 0);
  std::vector<double> ratios;
  ratios.reserve(static_cast<size_t>(behind.width()) * static_cast<size_t>(behind.height()));
  for (int y = 0; y < behind.height(); ++y) {
    for (int x = 0; x < behind.width(); ++x) {
      QRgb beside = behind.pixel(x, y);
      if (hasShadow)
        beside = Mix(beside, shadow, ShadowShare);
      beside = Mix(beside, outline, outlineShare);
      ratios.push_back(ContrastRatio(text, beside));
    }
  }
  const auto tenth = ratios.begin() + static_cast<qsizetype>(ratios.size() / 10);
  std::nth_element(ratios.begin(), tenth, ratios.end());
  return *tenth;
}

} // namespace tolmira
