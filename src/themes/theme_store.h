#pragma once

#include <QSize>
#include <QString>

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "themes/theme_record.h"

namespace tolmira {

// What a theme's tile shows.
struct TemaTile {
  QString miniatura;   // stored path of the thumbnail; empty for none
  qint32 corDeFundo = 0; // 0x00BBGGRR, for a tile without a picture of Tipo "CorDeFundo"
  QString contagem;    // "3 Imagens"; empty for none
  bool emblemaVideo = false;
};

// Reads <app>\Data\Themes.ini. Missing files and keys give defaults, never an error.
class ThemeStore {
public:
  ThemeStore(const AppFolder &app, TabelaTemas &temas);

  void LoadTemas(int n); // 0: all sixteen. Fills the table, drops outdated thumbnails.
  // The tile of theme n; makes a missing thumbnail of a picture theme at `tilePx` (JPEG, quality 90).
  TemaTile CarregaTile(int n, const QSize &tilePx);

  static QString ChaveMiniatura(const TemaRecord &tema); // "<length>_<font>_<tipo>_<sombra>_<borda>"
  QString CaminhoMiniatura(int n) const;
  void excluiMiniInvalidos(int n);

private:
  TemaRecord LeTema(const class IniSnapshot &ini, int n) const;
  const AppFolder m_app;
  TabelaTemas &m_temas;
};

// The next theme for automatic rotation: the queued one, else a draw among the ticked slots. `ticked` has index 1 to
// 16; when the draw finds none, slot 1 is ticked and taken.
int SorteiaTema(int proximoTema, std::array<bool, NumeroDeTemas + 1> &ticked, RandomSource &random);

} // namespace tolmira
