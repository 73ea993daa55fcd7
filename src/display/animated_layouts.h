#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tolmira {

// The layouts in which every line of a verse comes in as an element of its own. Style 7 sets groups of lines below each
// other, from style 8 on the verse stands in two columns with a coloured bar between them.
//
// "[efeito]" stands in the class of the outer element and of each line. "animated" in its place lets the lines run in;
// nothing in its place leaves them standing. The outer element is the band; its alpha is the variable "--faixa".
struct LayoutAnimado {
  int estilo = 7;
  QString alturaLinha; // line height, a plain number
  QString alfa;        // alpha of the band
  QString efeito;      // class of the entrance effect
  double alturaEm = 0; // what the screen has room for from top to bottom, in em of the page's base size
  // The size of a line in em, as text: at most `maximoEm`, and no wider than `percentual` per cent of the screen.
  std::function<QString(const QString &linha, double percentual, double maximoEm)> tamanho;
};

// Apostrophes are not escaped.
QString MontaLayoutAnimado(const QStringList &linhas, const LayoutAnimado &layout);

} // namespace tolmira
