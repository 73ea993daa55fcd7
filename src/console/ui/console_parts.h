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

// The logic behind the console's window. All of it outlives the window and its panels.
struct ConsoleParts {
  ConsoleContext &console;
  AgendaDesk &agenda;
  VerseStepper &stepper;
  SongLoader &loader;
  ThemeControl &temas;
  ThemeStore &loja;
  ScreenControls &controles;
  PresentationFlow &fluxo;
  KeyTable &teclas;
};

// The tool tip of what has its place already and no window behind it.
QString AindaNao();

} // namespace tolmira
