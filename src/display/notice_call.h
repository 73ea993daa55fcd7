#pragma once

#include "display/display_seams.h"

#include <QStringList>

namespace tolmira {

inline constexpr QStringView VerboAviso = u"AVISO:|#";
inline constexpr QStringView VerboCancelaAviso = u"CancelaAviso";
inline constexpr qsizetype CamposDoAviso = 8; // with the verb

// Passes a notice, cut into its fields, on to a page (null: nothing happens). What an operator types is text on the
// page, whatever characters it has. There are at least CamposDoAviso.
void PassaAviso(PageObject *pagina, QStringList campos);
void TiraAviso(PageObject *pagina); // takes the running one away

// Either, as the command has it. A notice that lacks a field is passed over.
void PassaComandoDeAviso(PageObject *pagina, const QString &comando);

} // namespace tolmira
