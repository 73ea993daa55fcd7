#pragma once

#include "foundation/app_folder.h"

#include <QSize>
#include <QString>
#include <QStringList>

namespace tolmira {

// The pictures of a document's pages among the program's other pictures. All of these can be called from any thread.

// What the document is called here: the file's name without its extension, as pictures and slide documents can have it.
QString TituloDoDocumento(const QString &path);

// The name that all of its pages begin with: the title, with a number when pages of such a name are there already.
QString NomeDaSerie(const AppFolder &app, const QString &titulo);

// "Name - page 007.png": the gallery's order by name is the order of the pages.
QString NomeDaPagina(const QString &serie, int pagina, int total, const QString &extensao);

// Copies the picture at `arquivo` (a real path) in under that name, with its small copy. Unless it is put, nothing of
// it is left there.
enum class Posta {
  Sim,
  Estranha, // it is no PNG or JPEG, as its name says, of that size
  Tomada,   // the name
  SemLugar, // it could not be written
};
Posta PoePagina(const AppFolder &app, const QString &arquivo, const QString &nome, const QSize &tela);

void RetiraPaginas(const AppFolder &app, const QStringList &nomes);

// As slides name them.
QStringList CaminhosDasPaginas(const AppFolder &app, const QStringList &nomes);

} // namespace tolmira
