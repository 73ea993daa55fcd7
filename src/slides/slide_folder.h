#pragma once

#include "foundation/app_folder.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// The slide documents of <app>\Slides, known by their names without extension.
QString CaminhoDoSlide(const AppFolder &app, const QString &nome);
QStringList ListaDeSlides(const AppFolder &app);                                  // in the order of their names
QStringList SlidesComPalavras(const QStringList &nomes, const QString &palavras); // those that hold each of the words

} // namespace tolmira
