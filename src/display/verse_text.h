#pragma once

#include <QString>

namespace tolmira {

// A verse as it can stand in a page and between the single quotes of a script: nothing in it ends the script's string or
// is read as an escape, or the whole verse would be lost. Apostrophes, and a backslash right in front of one, are left to
// the escaping of apostrophes. A whole character reference, as lyrics from web pages hold them, shows its character; an
// "&" that only happens to stand before a letter stays an "&". CR LF stays.
QString TextoParaPagina(QString verso);

// Without the separator of a command's fields. As a character reference it is the same text on a page.
QString SemSeparador(QString texto);

} // namespace tolmira
