#pragma once

#include <QString>

#include <functional>

#include "display/display_channel.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "display/lyrics_composer.h"
#include "foundation/app_folder.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"

namespace tolmira {

// Fills a template into a page file and has it loaded. A verse is never part of the page: it is sent afterwards.
class PageBuilder {
public:
  struct Hosts {
    std::function<Display *()> telao;      // null while there is none
    std::function<PageObject *()> previa;  // null while there is none
    std::function<int()> larguraPrevia;    // width of the preview host in px
    std::function<double()> fonteDisplay;  // font size in points of the display's measuring label
    std::function<void(bool)> ajustaTelaFundo; // the console's routine, called once a target
    std::function<void()> exibeBiblia;         // sends the passage on show again; may be empty
    std::function<void(Alvo)> paginaMontada;   // that page is new; may be empty
  };

  PageBuilder(const AppFolder &app, const IniStore &store, EstadoConsole &estado, const AjustesTexto &ajustes,
              DisplayChannel &canal, LyricsComposer &letras, Hosts hosts, RandomSource &random, Yielder &yielder);

  // alvo: 1 the display only, 2 the preview only, anything else both, the display first. Yields to the message loop;
  // the page shows the theme as it was at the call, whatever becomes of `tema` meanwhile.
  void MontaPagina(TemaRecord &tema, int posicao, int alvo);

  // For windows that show a theme in a small host of their own, `host` px large. `html` is a verse, ready to stand
  // between the single quotes of a script, or empty; `indiceCycle` is the picture to begin with (1: the first). Returns
  // the written file's path.
  QString MontaPaginaConfig(const QSize &host, TemaRecord &tema, int indiceCycle, const QString &html);

  // The picture elements of a list whose pieces are closed by "|"; what stands behind the last "|" is no piece.
  static QString ListaHtmlImagens(const QString &lista);

private:
  void MontaAlvo(const TemaRecord &tema, int posicao, bool previa);
  QString TransparenciaInicial(int posicao, bool previa) const;
  const AppFolder &m_app;
  const IniStore &m_store;
  EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  DisplayChannel &m_canal;
  LyricsComposer &m_letras;
  Hosts m_hosts;
  RandomSource &m_random;
  Yielder &m_yielder;
};

// The preview's font size for `tamanho` points on the display; the widths are in px. Without a display or a preview there
// is nothing to scale against. Pages and scripts both take it from here and round it, so the text does not jump.
double TamanhoNaPrevia(double tamanho, int larguraTelao, int larguraPrevia);

// `nome` when a font of that exact name is installed, otherwise "Arial".
QString FonteInstalada(const QString &nome);

} // namespace tolmira
