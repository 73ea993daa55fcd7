#pragma once

#include "songs/lyrics_sites.h"
#include "songs/song_name.h"

#include <QString>

namespace tolmira {

class AppFolder;

// From the page of a song to the text of a song file.

// The lyrics inside the page, as plain text with CR LF line ends; empty where the site's marks are not there.
QString CortaLetra(const QString &page, SiteDeLetras site);

// What every fetched text goes through: remarks for the chorus, blank lines, stanzas that the page repeats.
QString LimpaLetra(QString letra);
QString TiraRepetidas(const QString &letra);

// Title and artist in the title of a row, apart by the last "-".
SongName NomeDaLinha(const QString &titulo);
// Title and artist of an opened row: from the page's structured data for Zion Lyrics, else from the row's title.
SongName NomeDaLetra(const QString &page, SiteDeLetras site, const QString &tituloDaLinha);

// For songs that come from outside under a name that a song in Lyrics has already.
bool MesmaMusica(const QString &uma, const QString &outra); // by how their texts begin
struct NomeDeFora {
  QString arquivo;       // under which the song goes into Lyrics
  bool jaExiste = false; // the same song is there; its file is taken as it is
};
NomeDeFora NomeParaMusicaDeFora(const AppFolder &app, const QString &arquivo, const QString &texto);

} // namespace tolmira
