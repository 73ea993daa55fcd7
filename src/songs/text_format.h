#pragma once

#include <QString>
#include <functional>

namespace tolmira {

// How the text of songs is shown.
struct TextFormat {
  bool maiusculas = true; // capital letters: of the theme in force
  int estilo = 4;         // 0 to 8: 0 and 1 plain, 2 to 6 with a band, 7 and 8 animated

  friend bool operator==(const TextFormat &, const TextFormat &) = default;
};

// The console's side of it.
struct TextFormatDoors {
  std::function<TextFormat()> le;
  // In force at once, also for the song on show, and kept. False when it could not be written; then it holds until the
  // program ends.
  std::function<bool(const TextFormat &)> aplica;
};

} // namespace tolmira
