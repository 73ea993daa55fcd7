#pragma once

#include "console/console_context.h"

namespace tolmira {

class SongLoader;

// The five screen states, and the settings of text that act on the projection as a whole.
class ScreenControls {
public:
  ScreenControls(ConsoleContext &console, SongLoader &loader);

  void SetScreenState(int index); // 0 Normal, 1 Text Hidden, 2 Black Screen, 3 Background, 4 No Projection
  void SliderExLouvor(int value); // the style of songs, 0 to 8
  void LeAjustes();               // the settings of step 6 and 7 of the start

  static QString LegendaDoEstado(int index); // captions and tool tips of LBTela
  static QString DicaDoEstado(int index);
  static constexpr int UltimoEstilo = 8;

private:
  ConsoleContext &m_console;
  SongLoader &m_loader;
};

} // namespace tolmira
