#pragma once

#include "console/console_context.h"

namespace tolmira {

class BibleLoader;
class SongLoader;

// The five screen states, and the settings of text that act on the projection as a whole.
class ScreenControls {
public:
  ScreenControls(ConsoleContext &console, SongLoader &loader, BibleLoader &leitura);

  void SetScreenState(int index); // 0 Normal, 1 Text Hidden, 2 Black Screen, 3 Background, 4 No Projection
  void SliderExLouvor(int value); // the style of songs, 0 to 8
  void LeAjustes();               // the settings of step 6 and 7 of the start

  // The settings of Bible text. A verse on show follows at once, without effect.
  void SliderExBiblia(int value);      // the layout, 0 to 6
  void slider2(int value);             // the band, 0 to 10; kept when the drag ends
  void slider2Solto();                 // the drag ended
  void sliderFontSizeAjust(int value); // 0 to 100; 15 is the size that fits
  void sliderZoomBiblia(int percent);  // 60 upward
  void Image5(int alinhamento);        // 0 left, 1 right, 2 centre; kept at exit

  static QString LegendaDoEstado(int index); // captions and tool tips of LBTela
  static QString DicaDoEstado(int index);
  static constexpr int UltimoEstilo = 8;
  static constexpr int UltimoEstiloBiblia = 6;
  static constexpr int MaiorAjusteBiblia = 100; // of sliderFontSizeAjust
  static int ValorDeEscala(double escalaBiblia); // where sliderFontSizeAjust stands for that scale

private:
  ConsoleContext &m_console;
  SongLoader &m_loader;
  BibleLoader &m_leitura;
};

} // namespace tolmira
