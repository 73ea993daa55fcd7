#pragma once

#include <QString>

#include "display/display_seams.h"
#include "foundation/ini_store.h"
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

// Where the text stands, as Data\Config.dat has it: "flex-start", "center" or "flex-end". Whatever else somebody wrote
// there would go into the page's style as it is, so it counts as "center".
QString LeAlinhamentoVertical(const IniStore &store);

// The band alpha as text: "1" when the strength is at least 10, otherwise "0." and the strength.
QString AlfaFaixa(const QString &transparenciaFaixa);

} // namespace tolmira
