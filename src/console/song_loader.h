#pragma once

#include <QString>
#include <QStringList>

#include "console/console_context.h"
#include "console/stepping.h"
#include "songs/song_check.h"

namespace tolmira {

class ThemeControl;

// Where verse `n`, from 1, of `antes` is in `agora`. Cut for another frame, a song has its stanzas split at other lines: it
// is the verse with the line by which that one began. A text that was edited meanwhile keeps the number, as far as it
// goes.
int MesmoLugar(const QStringList &antes, int n, const QStringList &agora);

// Puts a song or hymn on the console: reads, pages, measures, and prepares the page.
class SongLoader {
public:
  SongLoader(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas);

  // `fileName` as an agenda entry gives it, with ".txt". False with the message shown when there is no such file; what
  // is on show then stays. `show` prepares the page.
  bool ListMusicasDuploClique(const QString &caption, const QString &fileName, bool applyTheme, bool show);

  // As above on a full path; what does not end in ".txt" is the song's text itself.
  void CarregaLouvor(const QString &path, bool applyTheme, bool show);

  // Loads the song on show again (a changed size, style, theme or file) and returns to the same verse. With `send` the
  // pages are told; without it the caller builds them.
  void RecarregaMusica(bool send);

  // The song's verse on the pages once more, composed with the settings of now. While Ctrl holds the projection back
  // that is the verse that is out, not the one in the frame.
  void ReenviaVerso();

  // A page came back after its process died, as it was when it was built: it gets the text size, the state of the text
  // and the verse on show. On a page that was alive this changes nothing.
  void PaginaVoltou(Alvo qual = Alvo::Ambas);

  // Fits the frame to the projection's proportions.
  void AjustaQuadro();
  // The strip stands in its panel as the alignment of songs says: at the left edge for 0, else in the middle.
  void AlinhaTira();
  // The panel was resized: frame and strip follow, verses and the verse on show stay.
  void PainelMudou();

  double FonteDisplay() const; // points, of the display's measuring label

  // How `texto` (capitals applied) would be cut and sized if it were shown now with `ajustes`. Nothing on show changes.
  SongRoom Sala(const QString &texto, const AjustesTexto &ajustes) const;

private:
  void PreparaTexto(const QString &path);
  void AjustaTamanhos(const SongRoom &sala);
  int LarguraDaTira() const;  // twips
  int AlturaDoQuadro() const; // twips
  double LarguraDisponivelPx() const;

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;

  // The strip as it was paged, for scaling it as a whole when the panel changes.
  struct Referencia {
    double escala = 1;
    int painelLargura = 0;
    int frameHeight = 0;
  } m_referencia;
};

} // namespace tolmira
