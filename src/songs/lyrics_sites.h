#pragma once

#include "web/endpoints.h"

#include <QString>
#include <QUrl>
#include <array>

namespace tolmira {

// The sites that lyrics are fetched from, in the order in which they are offered.
enum class SiteDeLetras { Genius, Letras, AZLyrics, ZionLyrics };
inline constexpr std::array SitesDeLetras = {SiteDeLetras::Genius, SiteDeLetras::Letras, SiteDeLetras::AZLyrics,
                                             SiteDeLetras::ZionLyrics};
inline constexpr SiteDeLetras SitePadrao = SiteDeLetras::AZLyrics;

// How a site writes its pages. These texts are all that is known of them.
struct PaginaDeLetra {
  Endpoint endpoint;
  QString nome;          // as the operator reads it
  QString inicio;        // what a page with lyrics holds, in front of them
  QString inicioInterno; // behind it; the lyrics follow. Empty for Genius, whose lyrics are counted off
  QString fim;
};
const PaginaDeLetra &PaginaDe(SiteDeLetras site);

// A site at the address that is configured for it. `SiteBusca` is that address as it is stored.
struct SiteEmUso {
  SiteDeLetras site = SitePadrao;
  QString SiteBusca;
};

// What stands behind the title of a result of the web search.
QString MarcaDepoisDoTitulo(const SiteEmUso &em);

// By which endpoint the site is searched: Genius by itself, the others by the web search.
Endpoint EndpointDaBusca(SiteDeLetras site);
// Invalid when that endpoint is not configured.
QUrl EnderecoDaBusca(const Endpoints &endpoints, const SiteEmUso &em, const QString &palavras);

// The address of a link that a page gave, where it leads to the site itself: its host or a host below it, and the same
// port where one is configured. Invalid for any other, which must not be followed.
QUrl LinkDoSite(const SiteEmUso &em, const QString &link);

// The page of a song's artist, one folder above the song's page.
QUrl EnderecoDoArtista(const QUrl &letra);

} // namespace tolmira
