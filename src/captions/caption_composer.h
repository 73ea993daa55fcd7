#pragma once

#include "captions/estado_legenda.h"

#include <QString>

namespace tolmira {

// The verse on show as the HTML fragment that a caption page receives. The classes that it names are the page's.

// Lines are separated by "<br>"; other markup is taken out, and more than two lines become two. Style 0 becomes 1 in
// the record too.
QString ComposeLegendaLetra(LegendaLetras &estilo, const QString &texto);
QString ComposeLegendaBiblia(const LegendaBiblia &estilo, const QString &texto, const QString &referencia,
                             const QString &versao);

// Lines at the mark "|#|", made into two where their lengths come closest; one or two lines stay.
QString EquilibraLinhas(const QString &texto);

QString ComposeCor(qint32 cor);                      // "rgb(r,g,b)"
QString ComposeFundo(qint32 cor, int transparencia); // "rgb(r,g,b, 0.t)", opaque from 10 on

} // namespace tolmira
