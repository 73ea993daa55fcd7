#pragma once

#include "console/console_context.h"
#include "songs/text_format.h"
#include "themes/theme_record.h"

namespace tolmira {

class TextControls;
class SongLoader;

// The text-format options of songs: capital letters belong to the theme in force, the style to the console.
class TextFormatControl {
public:
  TextFormatControl(ConsoleContext &console, TabelaTemas &temas, SongLoader &loader, TextControls &textos);

  TextFormat Le() const;
  // In force at once, also for the song on show, which stays at its verse. False when it could not be written.
  bool Aplica(const TextFormat &format);

private:
  bool AplicaMaiusculas(bool maiusculas);

  ConsoleContext &m_console;
  TabelaTemas &m_temas;
  SongLoader &m_loader;
  TextControls &m_textos;
};

} // namespace tolmira
