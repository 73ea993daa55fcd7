#pragma once

#include "songs/lyrics_sites.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// What a page of results gave: for each a link as the page writes it, and a title. No page gives more than 500.
struct ResultadosDeLetras {
  QStringList Links;
  QStringList Titulos;

  qsizetype NumResultados() const { return Titulos.size(); }
  void Junta(const QString &link, const QString &titulo) {
    Links.append(link);
    Titulos.append(titulo);
  }
};

// The readers of foreign pages. Each goes through the page once, whatever it holds; a title or link of a length that
// none has is passed over.
ResultadosDeLetras SearchViaEngine(const QString &page, const SiteEmUso &em);
ResultadosDeLetras SearchGenius(const QString &page);
ResultadosDeLetras ArtistPage(const QString &page, SiteDeLetras site);

} // namespace tolmira
