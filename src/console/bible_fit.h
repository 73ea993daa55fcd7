#pragma once

#include "foundation/seams.h"

#include <QSize>
#include <QString>

namespace tolmira {

// What the font size of a Bible verse depends on.
struct AjusteDeVersiculo {
  QSize telaPx;  // the projection
  QString fonte; // family
  int EstiloBiblia = 1;
  bool centrado = true; // VerticalAlign is "center"
  double escala = 100;  // EscalaBiblia, per cent
  int zoom = 100;       // of the page, per cent: it enlarges what is fitted, and the verse must still be whole
};

// The size in points, a whole number and at least 8, at which `texto` and its title `ref` stand on the projection: 0.9
// of the size that fits for a centred text and 0.7 otherwise, scaled as the operator wants it, but never so large that
// the verse leaves the screen.
int TamanhoBiblia(const QString &texto, const QString &ref, const AjusteDeVersiculo &tela, TextMeasure &measure);

} // namespace tolmira
