#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "slides/show_document.h"
#include "slides/show_editor.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// The page of a running slide show and the gallery of its editor: how both are filled, and what they say back.

// Writes <app>\html\sshow.html and returns its path; empty when the template is missing or nothing could be written. For
// each picture an effect in and one out are drawn, the way in of all of them first.
QString MontaPaginaDoShow(const AppFolder &app, const SlideShowDocument &show, RandomSource &random);

// Writes <app>\html\galery.html for an area of that height in pixels, likewise.
QString carregaGaleria(const AppFolder &app, const QStringList &imagens, int alturaPx);

// `uri` as the page's navigation gave it. `imagens` is the list that the page was made of: its entries come back as they
// stand there, whatever the page's addresses had to do to them.
RespostaDaGaleria LeRespostaDaGaleria(const QString &uri, const QStringList &imagens);

// A text that a page reports by an address, decoded already: what the page's encoding lacks comes as "&#8364;".
QString TextoRelatado(const QString &texto);

} // namespace tolmira
