#pragma once

#include "themes/theme_record.h"

#include <QImage>
#include <QRgb>
#include <QSize>

namespace tolmira {

// How well a theme's text stands out from what is behind it, by the contrast ratio of the Web Content Accessibility
// Guidelines: 1 for two equal colours, 21 for black on white.

double ContrastRatio(QRgb a, QRgb b);

// A text in large letters that has less than this cannot be read from the last row.
inline constexpr double LeastContrast = 3.0;

// The picture as the page shows it behind the text: cut to the proportions of a screen of `proportions`, under the
// theme's filters, and of that the part where verses stand. `picture` is of any size and may be squeezed; `real` is the
// size that it is a copy of. Small, for it is only looked at.
QImage BehindText(const QImage &picture, const QSize &real, const QSize &proportions, const TemaRecord &tema);
// The plain background colour under the theme's filters, in the same form.
QImage BehindText(const TemaRecord &tema);

// The ratio that the darkest or brightest tenth of `behind` leaves: nine tenths of the area have more. Outline and
// shadow count as what they put between text and background. 21 for a null image.
double TextContrast(const QImage &behind, const TemaRecord &tema);

} // namespace tolmira
