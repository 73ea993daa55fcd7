#pragma once

#include "console/console_core.h"

namespace tolmira {

// The logic behind the console's window. All of it outlives the window and its panels.
struct ConsoleParts {
  ConsoleContext &console;
  AgendaDesk &agenda;
  VerseStepper &stepper;
  SongLoader &loader;
  ThemeControl &temas;
  ThemeStore &loja;
  ScreenControls &controles;
  TextControls &textos;
  EffectControls &efeitos;
  PresentationFlow &fluxo;
  KeyTable &teclas;
  BibleStore &biblia;
  BibleLoader &leitura;
  ControlSlides &slides;

  static ConsoleParts Of(ConsoleCore &core) {
    return {core.contexto, core.agenda, core.stepper,   core.loader, core.temaControle,
            core.loja,     core.controles, core.textos, core.efeitos, core.flow,    core.teclas, core.lojaBiblia,  core.leitura,
            core.slides};
  }
};

// The tool tip of what has its place already and no window behind it.
QString AindaNao();

} // namespace tolmira
