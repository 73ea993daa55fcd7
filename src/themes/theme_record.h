#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace tolmira {

inline constexpr int NumeroDeTemas = 16;
inline constexpr int SemTemaNaFila = -1; // value of ProximoTema when no theme is queued

// One theme. Text fields hold what the file holds; numbers among them are whole numbers as text. Colours are
// 0x00BBGGRR. The defaults are those of a file without the key.
struct TemaRecord {
  QString Tipo = QStringLiteral("CorDeFundo"); // "Imagem", "Video" or "CorDeFundo"
  QString Imagem;                              // full stored paths, each followed by "|"
  QString Video;                               // full stored path; a "|" may follow
  bool MoveImagens = false;
  qint32 CordeFundo = 0;
  QString Font_Name = QStringLiteral("Myriad Pro");
  bool Font_Bold = true;
  QString Font_Size; // points; set when a page is built, never stored
  QString Font_Cor = QStringLiteral("16777215");
  bool FontSombra_Enabled = true;
  QString FontSombra_Right = QStringLiteral("4"); // px
  QString FontSombra_Down = QStringLiteral("4");  // px
  QString FontSombra_Blur = QStringLiteral("8");  // px
  QString FontSombra_Opacity = QStringLiteral("10");
  QString FontSombra_Cor = QStringLiteral("0");
  bool FontBorda_Enabled = true;
  QString FontBorda_Cor = QStringLiteral("1513494");
  QString FontBorda_Espessura = QStringLiteral("2"); // px
  int brightness = 100;                              // per cent
  int contrast = 100;                                // per cent
  int saturate = 100;                                // per cent
  int blur = 0;                                      // px
  QString Efeito_Imagem_Fx = QStringLiteral("Fade");
  QString Efeito_Imagem_FxExtra = QStringLiteral("Random");
  QString Efeito_Imagem_FxOut;                          // written by the editor, not read at load
  QString Efeito_Imagem_speed = QStringLiteral("1000"); // ms
  QString Efeito_Imagem_timeout = QStringLiteral("1");  // interval code; "-1" means no rotation
  QString Efeito_Imagem_sync = QStringLiteral("1");
  QString Efeito_Imagem_delay = QStringLiteral("0");
  QString Efeito_Imagem_easing;
  QString Efeito_Texto_Fx = QStringLiteral("Fade");
  QString Efeito_Texto_FxExtra = QStringLiteral("Random");
  QString Efeito_Texto_FxOut = QStringLiteral("None");
  QString Efeito_Texto_speed = QStringLiteral("1000"); // ms
  QString Efeito_Texto_timeout = QStringLiteral("1");
  QString Efeito_Texto_sync = QStringLiteral("1");
  QString Efeito_Texto_delay = QStringLiteral("0");
  QString Efeito_Texto_easing;
  bool Maiusculas = true;

  friend bool operator==(const TemaRecord &, const TemaRecord &) = default;
};

// Index 0 is never used.
using TabelaTemas = std::array<TemaRecord, NumeroDeTemas + 1>;

// Pieces of a picture list: the upper index of a split on "|", so "a|b|" has 2 and "" has 0.
int ContaImagens(const QString &lista);

// Milliseconds of an interval code ("1" to "5"); 0 for anything else, which means no timer.
int IntervaloDoCodigo(const QString &codigo);

} // namespace tolmira
