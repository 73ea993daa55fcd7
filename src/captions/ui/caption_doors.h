#pragma once

#include "captions/caption_server.h"
#include "captions/estado_legenda.h"
#include "display/ui/page_profile.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <functional>

class QWidget;

namespace tolmira {

// What the form of the captions works with. All of it outlives it.
struct CaptionDoors {
  const IniStore &store;
  UserPrompt &prompt;
  FormPositions &posicoes;
  EstadoLegenda &legenda;
  CaptionServer &servidor;
  std::function<void()> salvas; // the settings were saved; the record has them
  PageProfile perfil;
  QWidget *dono = nullptr; // the console's window, which it stands over
};

} // namespace tolmira
