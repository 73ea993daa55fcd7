#pragma once

#include <functional>

#include "console/bible_loader.h"
#include "console/control_slides.h"
#include "console/presentation_flow.h"
#include "console/stepping.h"

namespace tolmira {

// The console receives all keys first; this is the table of what it does with them. Key codes are Qt's.
class KeyTable {
public:
  KeyTable(ConsoleContext &console, VerseStepper &stepper, PresentationFlow &flow, AgendaDesk &agenda,
           BibleLoader &leitura, ControlSlides &slides);

  // `onList`: the list of the agenda has the focus. True when the key was used.
  bool KeyDown(int key, bool ctrl, bool onList);
  bool KeyUp(int key);

  // Buttons that a key presses: Image9 (Bible versions) and the add bar. Empty while their window does not exist.
  std::function<void()> Image9;
  std::function<void(int index)> AddBar;

private:
  bool TeclaDeSlide(int key, bool onList);

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  PresentationFlow &m_flow;
  AgendaDesk &m_agenda;
  BibleLoader &m_leitura;
  ControlSlides &m_slides;
};

} // namespace tolmira
