#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "themes/theme_record.h"

#include <QSize>
#include <QString>

namespace tolmira {

// What a theme's tile shows.
struct TemaTile {
  QString miniatura;     // stored path of the thumbnail; empty for none
  qint32 corDeFundo = 0; // 0x00BBGGRR, for a tile without a picture of Tipo "CorDeFundo"
  QString contagem;      // "3 Imagens"; empty for none
  bool emblemaVideo = false;
  QString imagemAFazer; // the picture that a missing thumbnail is to be made of; stored path
  QString destino;      // and where to
};

// Reads <app>\Data\Themes.ini. Missing files and keys give defaults, never an error.
class ThemeStore {
public:
  ThemeStore(const AppFolder &app, TabelaTemas &temas);

  // 0: all sixteen; any other number that is no theme's does nothing. Fills the table, drops outdated thumbnails. What
  // the file does not keep (Efeito_Imagem_FxOut, Font_Size) stays as it was in the table.
  void LoadTemas(int n);
  // The tile of theme n as it is on the disk. Where the thumbnail of a picture theme is missing it says what to make it
  // of.
  TemaTile CarregaTile(int n) const;

  static QString ChaveMiniatura(const TemaRecord &tema); // "<length>_<font>_<tipo>_<sombra>_<borda>"
  QString CaminhoMiniatura(int n) const;
  void excluiMiniInvalidos(int n); // deletes the thumbnails of theme n that its present key does not name

private:
  TemaRecord LeTema(const class IniSnapshot &ini, int n) const;
  QString ImagensExistentes(const QString &nomes) const;

  const AppFolder m_app;
  TabelaTemas &m_temas;
};

// Makes the thumbnail that the tile lacks, at `tilePx` (JPEG, quality 90), and names it; does nothing for any other
// tile. Can be called from any thread. True when it was made.
bool FazMiniatura(TemaTile &tile, const QSize &tilePx);

// The next theme for automatic rotation: the queued one, else a draw among the ticked slots. `ticked` has index 1 to
// 16; when the queued slot is not ticked, or the draw finds no ticked one, slot 1 is ticked and taken. Slot 16 is never
// drawn; it can only be queued.
int SorteiaTema(int proximoTema, std::array<bool, NumeroDeTemas + 1> &ticked, RandomSource &random);

} // namespace tolmira
