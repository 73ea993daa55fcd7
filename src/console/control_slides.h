#pragma once

#include "console/console_context.h"
#include "display/slide_pages.h"

namespace tolmira {

class ThemeControl;
class VerseStepper;

// The slide document on show: its pages, stepping through it, and its rotation. It is on show as long as TipoAtual is
// "Slides".
class ControlSlides {
public:
  ControlSlides(ConsoleContext &console, SlidePages &paginas, VerseStepper &stepper, ThemeControl &temas);

  bool Visible() const { return m_console.estado.EhSlides(); }
  const SlideDocument &Documento() const { return m_documento; } // without slides while none is on show
  const QString &Caminho() const { return m_caminho; }
  int Leitura() const { return m_carga; } // another number when the document was read anew

  // The document that an entry of the agenda names, by a path or by a name in <app>\Slides\; empty when there is none.
  QString Resolve(const QString &name) const;
  bool TemSlides(const QString &path) const; // it can be read and holds one at least

  // The document becomes the item on show, under the title `caption`, and begins with slide `index`; with the picture
  // of the first one, without text, when there is no such slide. False when it has no slides: the operator is told, and
  // what is on show stays.
  bool LoadmSlide(const QString &path, int index, const QString &caption);
  // Builds the page: alvo 1 the display's, 2 the preview's, 0 both. `index` as SlidePages takes it.
  void CarregarSlides(int index, int alvo);
  void ExibirSlideNoTelao(int index, bool mudaImagem, bool mudaTexto);
  void updateCombos(); // the effects panel takes the document's values

  // The operator goes to a slide, or on by `delta`; both ends hold. While Ctrl holds the projection back only the
  // console moves, until SoltouCtrl.
  void Escolhe(int index);
  void Passo(int delta);
  void SoltouCtrl();

  // A document was saved: the one on show is read again when it is that one. Names or paths, with their extension.
  void DocumentoMudou(const QString &oldName, const QString &newName);
  void Fecha(); // another item has taken its place
  // The document and its slide are on show again, after what ran over them. False when there is none.
  bool Volta();

  // What its font, colours, effects and filters are now, and what the panels change for as long as it is on show.
  TemaRecord &Visual() { return m_documento.visual; }
  void EnviaTexto(Alvo alvo);   // the slide's text, at the size of the page that gets it
  void PreviaMudou();           // the preview has another size
  void PaginaVoltou(Alvo qual); // a page came back after its process died

private:
  bool Le(const QString &path);
  void TomaConsole();
  void Mostra(int index);
  void TickSlides();
  void Envia(int index, bool mudaImagem, bool mudaTexto);
  void Anota();
  QString TextoDoSlide(bool previa) const;

  ConsoleContext &m_console;
  SlidePages &m_paginas;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  SlideDocument m_documento;
  QString m_caminho;
  int m_carga = 0; // counts what was shown, so that one that was overtaken notices
  std::unique_ptr<PeriodicTimer> m_timerSlides;
  std::unique_ptr<PeriodicTimer> m_timerAnota;
};

} // namespace tolmira
