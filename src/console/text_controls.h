#pragma once

#include "console/console_context.h"

namespace tolmira {

class BibleLoader;
class SongLoader;

// Reads the settings of text from the store. A value that is no number, or out of range, becomes the nearest that can
// be shown.
void LeAjustes(ConsoleContext &console);

// The settings of text. Each is a key of the store, a value that the composers read, and what the pages are told so
// that it holds at once. A value given before the console has loaded is dropped.
class TextControls {
public:
  TextControls(ConsoleContext &console, SongLoader &loader, BibleLoader &leitura);

  // Songs.
  void SliderExLouvor(int value); // the style, 0 to 8. A move into or out of the animated styles lays the song out anew
  void ComboFontSize(int index);  // 0 small, 1 medium, 2 large
  void SliderFaixa(int value);    // the band, 0 to 10
  void SliderFaixaUpdate(Alvo alvo = Alvo::Ambas); // the same for a page that has just come
  void SliderZoom(int percent);   // 60 upward
  void Image4(int alinhamento);   // 0 left, 1 right, 2 centre; kept at exit

  // Songs and Bible text.
  void ApplyVerticalAlign(const QString &value); // "center", "flex-start", "flex-end"
  void ImgAlinhamentoVertical();                 // the button: the next of the three
  void ImgBtFontSize(int index);                 // the console's own text: 1 normal, 2 large; kept at exit

  // Bible text. A verse on show follows at once, without effect.
  void SliderExBiblia(int value);      // the layout, 0 to 6
  void slider2(int value);             // the band, 0 to 10; kept when the drag ends
  void slider2Solto();                 // the drag ended
  void sliderFontSizeAjust(int value); // 0 to 100; 15 is the size that fits
  void sliderZoomBiblia(int percent);  // 60 upward
  void Image5(int alinhamento);        // 0 left, 1 right, 2 centre; kept at exit

  // A page came back as it was built: it gets what it was told since. The verse is there already.
  void PaginaVoltou(Alvo qual);

  static constexpr int UltimoEstilo = 8;
  static constexpr int UltimoEstiloBiblia = 6;
  static constexpr int MaiorAjusteBiblia = 100;  // of sliderFontSizeAjust
  static constexpr int MenorZoom = 60;           // per cent
  static constexpr int MaiorZoom = 500;          // per cent, what a page takes
  static int ValorDeEscala(double escalaBiblia); // where sliderFontSizeAjust stands for that scale

private:
  bool Carregado() const { return m_console.estado.ConsoleCarregado; }
  bool LouvorNaTela() const;
  void Grava(const QString &key, const QString &value);
  void DefineFaixa(QStringView antesDoAlfa, Alvo alvo = Alvo::Ambas);
  void DefineZoom(int percent);
  void EnviaAlinhamentoVertical(Alvo alvo = Alvo::Ambas);
  void RefazLouvor();

  ConsoleContext &m_console;
  SongLoader &m_loader;
  BibleLoader &m_leitura;
};

} // namespace tolmira
