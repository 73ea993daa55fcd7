#pragma once

#include <QSize>
#include <QString>

#include "display/estado.h"
#include "foundation/seams.h"

namespace tolmira {

// What the base font size of a song depends on.
struct AjusteDeTela {
  QSize telaPx;              // the projection
  QString fonte;             // family
  bool negrito = true;
  int FontSizeClass = 1;
  int EstiloLouvor = 4;
  bool centrado = true;      // VerticalAlign is "center"
};

// The base size in points at which every stanza of `texto` (CR LF, stanzas apart by a blank line) fits the projection
// when the composer has laid it out: the class gives the size, the tallest stanza and the longest line of a long
// stanza bound it. A whole number, at least 8. The empty text gives the size of the class.
double TamanhoBase(const QString &texto, const AjusteDeTela &tela, TextMeasure &measure);

// The size in points of the console's own text: the longest line fills 0.8 of the strip's width, and the calibration
// line acts as a floor, so that one long line does not make the whole song tiny.
double TamanhoLabel1(const QString &texto, const FontSpec &fonte, double larguraPx, TextMeasure &measure);

} // namespace tolmira
