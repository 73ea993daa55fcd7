#pragma once

#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the windows of the update work with. All of it outlives them.
struct UpdateDoors {
  const Endpoints &endpoints;
  PageFetcher &paginas;
  UserPrompt &prompt;
  DesktopOpener &opener;
  FormPositions &posicoes;
  std::function<void()> encerra; // ends the program as closing the console does: who has unsaved work is asked
  QWidget *dono = nullptr;       // the console's window, which they stand over
  std::function<bool()> administrador = {}; // empty: whether the program runs as root
  QString areaDeTrabalho = {};              // real path of the desktop's folder; empty: the user's
};

} // namespace tolmira
