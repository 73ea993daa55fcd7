#pragma once

#include "console/presentation.h"
#include "foundation/app_folder.h"
#include "foundation/ui/form_position.h"
#include "web/web_client.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the window of the suggested videos works with. All of it outlives it.
struct ContentDoors {
  const AppFolder &app;
  WebClient &web;
  Presentation &console;
  FormPositions &posicoes;
  std::function<QString()> tituloDaAgenda; // of the active agenda
  QWidget *dono = nullptr;                 // the console's window, which it stands over
};

} // namespace tolmira
