#pragma once

#include "console/console_context.h"

namespace tolmira {

class BibleLoader;
class ControlSlides;
class SongLoader;
class ThemeControl;
enum class GrupoEfeito;

// Effects, filters, font and background colour of the theme in force, or of the slide document on show. They are
// changed for this session only: applying a theme, or showing the document anew, brings back what it says. A value
// given before the console has loaded is dropped.
class EffectControls {
public:
  EffectControls(ConsoleContext &console, ThemeControl &temas, SongLoader &loader, BibleLoader &leitura,
                 ControlSlides &slides);

  const TemaRecord &Visual() const; // what they belong to now

  // Families and variants by their names in the catalogue. Picture effects reach the pages at once, text effects come
  // with the next verse. A new family keeps the variant if it has one of that name, else it begins with "Random".
  void ComboEfeitoImagem(const QString &familia);
  void ComboEfeitoImagemExtra(const QString &variante);
  void ComboEfeitoTexto(const QString &familia);
  void ComboEfeitoTextoExtra(const QString &variante);

  // One picture over the theme, placed by hand: no item changes the theme until the text is moved. `move` as
  // ChkMoveImagem. False while slides, a show or a video are on, which is told.
  bool ImagemDaGaleria(const QString &path, bool move);
  void ChkMoveImagem(bool ligado);
  void ChkFadeImagem(bool ligado);
  void ChkZoomImagem(bool ligado);
  void ChkFadeTexto(bool ligado);
  void ChkZoomTexto(bool ligado);

  void slider1(int porCento);                  // brightness
  void slider3(int porCento);                  // contrast
  void slider4(int porCento);                  // saturation
  void slider5(int pixels);                    // blur
  void updateEfeitos(Alvo alvo = Alvo::Ambas); // the filters go to the pages
  void updateEfeitos2();                       // the sliders take the theme's values; nothing is sent

  void SelectColors1(); // asks for a colour and makes it the background
  void ComboFontes(const QString &fonte);

  // A page came back as it was built: it gets what it was told since.
  void PaginaVoltou(Alvo qual);

  static constexpr int MaiorFiltro = 200;  // per cent
  static constexpr int MaiorDesfoque = 20; // pixels

private:
  TemaRecord &Visual();
  bool Carregado() const { return m_console.estado.ConsoleCarregado; }
  void EnviaEfeitoDaImagem(Alvo alvo = Alvo::Ambas);
  void EnviaMovimento(Alvo alvo = Alvo::Ambas);
  void EnviaCorDeFundo(Alvo alvo = Alvo::Ambas);
  void EnviaFonte(Alvo alvo = Alvo::Ambas);
  void Terminou(); // what every handler ends with

  ConsoleContext &m_console;
  ThemeControl &m_temas;
  SongLoader &m_loader;
  BibleLoader &m_leitura;
  ControlSlides &m_slides;
};

} // namespace tolmira
