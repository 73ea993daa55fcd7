#pragma once

#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "media/cameras.h"

#include <functional>

class QWidget;

namespace tolmira {

// What the window of the cameras works with. All of it outlives it.
struct CameraDoors {
  Clock &clock;
  FormPositions &posicoes;
  Cameras &cameras;
  std::function<void()> aoTexto; // the keyboard goes to the console's text
  QWidget *dono = nullptr; // the console's window, which it stands over
};

} // namespace tolmira
