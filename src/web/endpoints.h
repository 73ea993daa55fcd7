#pragma once

#include "foundation/ini_store.h"

#include <QList>
#include <QString>
#include <QUrl>

namespace tolmira {

// The sites and services that the program reads, each a key in the section `Endpoints` of Data\Endpoints.dat.
enum class Endpoint {
  Suporte,         // the support page
  Atualizacao,     // whether a newer version exists
  PaginaDownload,  // where the newest version is offered to people
  ListaBiblias,    // Bible versions to download
  Genius,          // lyrics
  Letras,          // lyrics
  AZLyrics,        // lyrics
  ZionLyrics,      // lyrics
  PesquisaWeb,     // web search, by which the lyrics of most sites are found
  PesquisaImagens, // picture search
  ImagensMv,       // the maker's own pictures
  VideosWeb,       // web videos: search, pages and embedding
};

// Where they are. A value is a host, with a path behind it or not, read over https; or a whole address of the web. A
// blank one means that the feature is not configured, which the operator is told when he asks for it.
class Endpoints {
public:
  explicit Endpoints(const IniStore &store) : m_store(store) {}

  // Writes the keys that the file does not have yet, with their defaults. What stands there stays, blank or not.
  void GravaPadroes() const;

  QString Host(Endpoint endpoint) const; // as stored, trimmed; empty when it is not configured
  static QString HostPadrao(Endpoint endpoint);

  // The address of `caminho` ("/search?q=a") there: written out and not changed, so that the order and the escapes of a
  // query stay as the caller wrote them; what no address can hold (blanks, accents) is percent-encoded in UTF-8.
  // Invalid when the endpoint is blank or no address of the web.
  QUrl Endereco(Endpoint endpoint, const QString &caminho) const;
  static QUrl EnderecoEm(const QString &host, const QString &caminho);
  // The page there for people, with the program's name in the key `prog`.
  QUrl PaginaDoPrograma(Endpoint endpoint) const;

  // What the operator is told when Endereco is invalid: that it is not configured and where that is done, or that what
  // stands there is no address.
  QString PorQueNao(Endpoint endpoint) const;

private:
  const IniStore &m_store;
};

} // namespace tolmira
