#pragma once

#include <QString>

#include "display/display_seams.h"
#include "themes/theme_record.h"

namespace tolmira {

// A theme's colours, shadow and outline as CSS text, for every writer of pages. `k` scales for a preview: the preview
// host's width over the display's width, 1 for the display. The outline is not scaled.
QString SombraTexto(const TemaRecord &tema, double k);
QString ContornoTexto(const TemaRecord &tema);
// The inline style of the element "texto".
QString EstiloTexto(const TemaRecord &tema);
void AplicaEstiloTexto(PageObject *pagina, const TemaRecord &tema);

// "#RRGGBB" of a colour that is stored as a whole number in text.
QString CorDoTexto(const QString &numero);

// The band alpha as text: "1" when the strength is at least 10, otherwise "0." and the strength.
QString AlfaFaixa(const QString &transparenciaFaixa);

} // namespace tolmira
