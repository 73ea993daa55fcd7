#pragma once

#include "slides/slide_document.h"

#include <QString>

namespace tolmira {

// A slide as HTML for the page's text area: a title and a body that take their size from the width of the page that
// shows them (`larguraPx`). `transparencia` is AjustesTexto::TransparenciaFaixa, "0" to "10". A number that no slide
// has gives empty texts. The result can stand in a page and in a field of a command; between the single quotes of a script
// it needs EscapaApostrofos and nothing more.

// As it is presented.
QString GetSlideTextoFormatado(const SlideDocument &documento, int index, int larguraPx, const QString &transparencia);

// As the editor's preview shows it. `efeito` is the entrance class, or empty; `comTexto` says whether the slide that is
// being edited shows its text.
QString GetSlideTexto_Formatado(const SlideDocument &documento, int index, int larguraPx, const QString &transparencia,
                                const QString &efeito, bool comTexto);

} // namespace tolmira
