#pragma once

#include <QString>
#include <vector>

namespace tolmira {

// One verse of the loaded song: where it stands in the text strip of the console, and its text.
struct Estrofe {
  int Topo = 0;  // twips from the top of the strip to the first line
  int Base = 0;  // twips from the top of the strip to the end; equal to Topo for a verse without text
  QString Texto; // CR LF line ends, no padding
};

// Index 1 is the first verse; element 0 is never used, so that the size is TotalEstrofes + 1 (or 0 before the first
// item).
using TabelaEstrofes = std::vector<Estrofe>;

inline constexpr int TwipsPerPixel = 15;

} // namespace tolmira
