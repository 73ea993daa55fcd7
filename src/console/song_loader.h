#pragma once

#include <QString>

#include "console/console_context.h"
#include "console/stepping.h"

namespace tolmira {

class ThemeControl;

// Puts a song or hymn on the console: reads, pages, measures, and prepares the page.
class SongLoader {
public:
  SongLoader(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas);

  // `fileName` as an agenda entry gives it, with ".txt". False with the message shown when there is no such file.
  bool ListMusicasDuploClique(const QString &caption, const QString &fileName, bool applyTheme, bool show);
  void CarregaLouvor(const QString &path, bool applyTheme, bool show);
  // Loads the song on show again (a changed size, style, theme or file) and returns to the same verse. The page is told
  // with `send`; without it the caller builds the page.
  void RecarregaMusica(bool send = true);
  // Fits the frame to the projection's proportions.
  void AjustaQuadro();
  // The panel was resized: frame and strip again, the verse on show stays.
  void PainelMudou();

  double FonteDisplay() const; // points, of the display's measuring label

private:
  void PreparaTexto(const QString &path);
  double AjustaTamanho(const QString &texto) const;
  void AjustaLabel1(const QString &texto);

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
};

} // namespace tolmira
