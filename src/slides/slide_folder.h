#pragma once

#include "foundation/app_folder.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// The slide documents of <app>\Slides and the slide shows of <app>\SlideShow, known by their names without extension and
// listed in the order of these.
QString CaminhoDoSlide(const AppFolder &app, const QString &nome);
QStringList ListaDeSlides(const AppFolder &app);
QStringList ListaDeSlideShows(const AppFolder &app);
QStringList SlidesComPalavras(const QStringList &nomes, const QString &palavras); // those that hold each of the words

} // namespace tolmira
