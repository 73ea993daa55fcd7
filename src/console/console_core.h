#pragma once

#include "bible/bible_store.h"
#include "captions/estado_legenda.h"
#include "console/agenda_desk.h"
#include "console/bible_loader.h"
#include "console/console_context.h"
#include "console/control_slides.h"
#include "console/effect_controls.h"
#include "console/key_table.h"
#include "console/presentation_flow.h"
#include "console/screen_controls.h"
#include "console/slide_show_runner.h"
#include "console/song_loader.h"
#include "console/stepping.h"
#include "console/text_controls.h"
#include "console/text_format_control.h"
#include "console/theme_control.h"
#include "console/video_runner.h"
#include "console/web_video_runner.h"
#include "display/bible_composer.h"
#include "media/cameras.h"
#include "media/video_control.h"
#include "media/web_video_control.h"

namespace tolmira {

// The doors to the outside that the console's logic is given.
struct ConsoleDoors {
  const AppFolder &app;
  const IniStore &store;
  Clock &clock;
  RandomSource &random;
  Yielder &yielder;
  UserPrompt &prompt;
  TextMeasure &measure;
  std::function<Display *()> telao;     // null while there is no projection window
  std::function<PageObject *()> previa; // null while the preview has no page
};

// All the logic of one running console, made once in the order in which the parts need each other. It owns the records;
// everybody else holds references into it.
class ConsoleCore {
public:
  explicit ConsoleCore(const ConsoleDoors &doors);
  ConsoleCore(const ConsoleCore &) = delete;
  ConsoleCore &operator=(const ConsoleCore &) = delete;

  EstadoConsole estado;
  AjustesTexto ajustes;
  FaixaTexto faixa;
  PainelConsole painel;
  TabelaTemas temas;
  EstadoLegenda legenda;

  DisplayChannel canal;
  LyricsComposer letras;
  BibleComposer biblia;
  PageBuilder paginas;
  SlidePages paginasDeSlides;
  ConsoleContext contexto; // `contexto.view` is set when the window stands
  ThemeStore loja;
  BibleStore lojaBiblia;
  AgendaDesk agenda;
  VerseStepper stepper;
  ThemeControl temaControle;
  SongLoader loader;
  BibleLoader leitura;
  ControlSlides slides;
  ScreenControls controles;
  TextControls textos;
  EffectControls efeitos;
  TextFormatControl formato;
  VideoRunner video;
  VideoControl controleDeVideo;
  WebVideoControl controleDaWeb;
  WebVideoRunner videoDaWeb;
  Cameras cameras;
  PresentationFlow flow;
  SlideShowRunner show;
  KeyTable teclas;

  // A page came back after its process died: it gets what was on it, and the other one sees nothing.
  void PaginaVoltou(Alvo qual = Alvo::Ambas);
  // The preview has another size: text and shadow on it follow.
  void PreviaMudou();
  // The projection changed its size: the item on show is fitted to it and its page built anew.
  void TelaMudou();
  // The look of the captions was saved: the text on show is presented again where it stands, which composes its caption.
  void LegendasSalvas();
  // The projection's window was made anew: it gets the page of the item on show.
  void TelaoRefeito();

private:
  MediaPlayer *Wmp() const; // null while there is no projection
  int VersoNoTelao() const;
  PageBuilder::Hosts Hosts(const ConsoleDoors &doors);
};

} // namespace tolmira
