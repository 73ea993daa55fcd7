#pragma once

#include "foundation/app_folder.h"

#include <QString>
#include <QStringView>

namespace tolmira {

// The results of a search for web videos: what of the site's page becomes the page of results, and what that page says
// back when a person chooses.

inline constexpr QStringView MarcaDosResultados =
    u"twoColumnSearchResultsRenderer"; // stands in every page that has any

// The site's data object out of its page, as a literal for a script that holds ASCII alone and nothing that could end
// the script: it was read as data and written anew, so it cannot be a statement. "{}" where the page has none, or it is
// no object, or too large. It may take a second, so it is not for the interface's thread.
QString DadosDaPesquisa(QStringView pagina);

// Writes <app>\html\pesquisaY.html out of py.dat and those data. `site` is the address of the configured site. Returns
// the path; empty when the template is missing or nothing could be written.
QString MontaPaginaDaPesquisa(const AppFolder &app, const QString &dados, const QString &site);
void RemovePaginaDaPesquisa(const AppFolder &app);

// What a link of that page asks for: one with "embed" in it to play, whatever else it holds, and one with "v=" to add.
// Without a valid id it asks for nothing.
struct EscolhaDeVideo {
  enum class Acao { Nada, Tocar, Adicionar };
  Acao acao = Acao::Nada;
  QString id;
  QString titulo; // empty where the link has none, or none that says anything
};
EscolhaDeVideo LeEscolhaDeVideo(const QString &endereco);

} // namespace tolmira
