#pragma once

#include "console/agenda_desk.h"
#include "console/console_context.h"
#include "console/key_table.h"
#include "console/presentation_flow.h"
#include "console/screen_controls.h"
#include "console/song_loader.h"
#include "console/stepping.h"
#include "console/theme_control.h"

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

  DisplayChannel canal;
  LyricsComposer letras;
  PageBuilder paginas;
  ConsoleContext contexto; // `contexto.view` is set when the window stands
  ThemeStore loja;
  AgendaDesk agenda;
  VerseStepper stepper;
  ThemeControl temaControle;
  SongLoader loader;
  ScreenControls controles;
  PresentationFlow flow;
  KeyTable teclas;

private:
  PageBuilder::Hosts Hosts(const ConsoleDoors &doors);
};

} // namespace tolmira
