#pragma once

#include "foundation/app_folder.h"

#include <QString>

namespace tolmira {

// <app>\Images\, where all pictures of the program lie. `path` is a real path, as a file dialogue gives it.

// Files of the toolkit's dialogue form that can stand behind a text or be made into ones that can.
QString FiltroDeImagens();

// Whether a file lies in that folder or one of its own.
bool EstaEmImagens(const AppFolder &app, const QString &path);

// The name that a picture gets there: one that settings and lists of pictures can keep, with the extension of what the
// file holds when the gallery would not list its own. Empty when the file is no picture.
struct NomeDeImagem {
  QString nome;
  bool converte = false; // the picture is none of JPEG, PNG and BMP and becomes a JPEG
  bool sumiu = false;    // there is no file to look at any more, or none that can be read
};
NomeDeImagem NomeEmImagens(const QString &path);
// The same for a file that lies under another name than its own.
NomeDeImagem NomeEmImagens(const QString &path, const QString &nome);

// The first of the series behind `nome` ("Foto(1).jpg", "Foto(2).jpg" ...) that no picture there has.
QString NomeLivreEmImagens(const AppFolder &app, const QString &nome);

// Puts the picture there under that name as one step: whole, or not at all. What stood there is replaced, and its small
// copy removed. Can be called from any thread.
enum class Copia {
  Feita,
  SemImagem, // the file is no picture, or its end is missing
  SemLugar,  // it could not be read to its end or not be written: a full disk, a folder that may not be changed
};
Copia CopiaParaImagens(const AppFolder &app, const QString &path, const QString &nome);

// The bare name under which the picture at `path` lies there, as a setting can keep it. A picture from elsewhere, or
// with a name that a setting or a list of pictures would break, is copied in first, under a free name; nothing there is
// ever replaced, and a picture that lies there already is not copied twice. Empty when the file is no picture or could
// not be copied.
QString TrazParaImagens(const AppFolder &app, const QString &path);

// The same for theme `n`, by the theme's rule: a name that is taken gets `n` + "-" in front.
QString TrazParaTema(const AppFolder &app, const QString &path, int n);

} // namespace tolmira
