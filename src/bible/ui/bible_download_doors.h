#pragma once

#include "bible/bible_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "web/endpoints.h"
#include "web/web_client.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the window that brings Bible versions works with. All of it outlives it.
struct BibleDownloadDoors {
  BibleStore &biblia;
  const AppFolder &app;
  const Endpoints &endpoints;
  WebClient &web;
  UserPrompt &prompt;
  FormPositions &posicoes;
  QString importador;                   // real path of tolmira-bible-import; empty: nothing is offered from SWORD
  std::function<void()> versoesMudaram; // scans the versions anew and shows them (BibleLoader::CarregaVersoes)
  QWidget *dono = nullptr;              // the console's window, which it stands over
};

} // namespace tolmira
