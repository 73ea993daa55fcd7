#pragma once

#include "foundation/ini_store.h"

#include <QString>

namespace tolmira {

// Of the settings "Legendas Bíblia", which the projection shares with the captions, what the projection's verse takes.
struct LegendaBiblia {
  bool maiusculas = false;        // the text in capitals; never the reference
  int fontColorTitulo = 16777215; // 0x00BBGGRR
  int backColorTitulo = 16748288; // 0x00BBGGRR
};

// Read at each start and whenever those settings were saved.
LegendaBiblia CarregaLegendaBiblia(const IniStore &store);

} // namespace tolmira
