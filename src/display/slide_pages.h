#pragma once

#include <QSize>

#include "display/page_builder.h"
#include "slides/slide_document.h"

namespace tolmira {

// The pages of a slide document: all its pictures in order, one of them on show, and that slide's text over it. Stepping
// never builds one anew.
class SlidePages {
public:
  SlidePages(const AppFolder &app, const IniStore &store, EstadoConsole &estado, const AjustesTexto &ajustes,
             DisplayChannel &canal, PageBuilder::Hosts hosts, RandomSource &random, Yielder &yielder);

  // Has the page loaded, with the picture and the text of slide `index`; any number below 1 begins with the first picture
  // and no text. alvo: 1 the display, 2 the preview, anything else both, the display first. Yields to the message loop;
  // the page shows the document as it was at the call. The document's font must be one that is installed.
  void CarregarSlides(const SlideDocument &documento, int index, int alvo);

  // Writes both pages again as CarregarSlides would, without having them loaded: a page whose process dies begins with
  // what was on show. The pictures must be those of the last CarregarSlides.
  void AnotaPaginas(const SlideDocument &documento, int index);

  // Pixels that a slide's text takes its size from, on the projection or on the preview.
  int LarguraPx(bool previa) const;

private:
  void MontaAlvo(const SlideDocument &documento, int index, bool previa);
  QString Pagina(const SlideDocument &documento, int index, bool previa) const;

  const AppFolder &m_app;
  const IniStore &m_store;
  EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  DisplayChannel &m_canal;
  PageBuilder::Hosts m_hosts;
  RandomSource &m_random;
  Yielder &m_yielder;
  QString m_imagens; // of the document that was loaded last
};

// Writes the page of the slide editor's preview and returns its path; the editor has it loaded. It begins with slide
// `index` and the text `html` (GetSlideTexto_Formatado for the width of the editor's host). `estado` says whether text is
// hidden and pictures stand still.
QString MontaPaginaDoEditor(const AppFolder &app, const IniStore &store, const EstadoConsole &estado,
                            const AjustesTexto &ajustes, const SlideDocument &documento, int index, const QString &html,
                            RandomSource &random);

} // namespace tolmira
