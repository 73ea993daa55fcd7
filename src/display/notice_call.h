#pragma once

#include "display/display_seams.h"

namespace tolmira {

inline constexpr QStringView VerboAviso = u"AVISO:|#";
inline constexpr QStringView VerboCancelaAviso = u"CancelaAviso";

// Passes a command of the notices on to a page (null: nothing happens). A notice that lacks a field is passed over. What an
// operator types is text on the page, whatever characters it has.
void PassaAviso(PageObject *pagina, const QString &comando);

} // namespace tolmira
