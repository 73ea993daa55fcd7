#pragma once

#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "media/cameras.h"

class QWidget;

namespace tolmira {

// What the window of the cameras works with. All of it outlives it.
struct CameraDoors {
  Clock &clock;
  FormPositions &posicoes;
  Cameras &cameras;
  QWidget *dono = nullptr; // the console's window, which it stands over
};

} // namespace tolmira
