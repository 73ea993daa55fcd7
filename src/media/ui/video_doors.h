#pragma once

#include "console/presentation.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "media/video_control.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the windows of the local videos work with. All of it outlives them.
struct VideoDoors {
  const IniStore &store;
  UserPrompt &prompt;
  Clock &clock;
  Presentation &console;
  FormPositions &posicoes;
  VideoControl &controle;
  std::function<QString()> tituloDaAgenda; // of the active agenda
  std::function<bool()> emExibicao;        // a local video is on show
  std::function<void()> encerra;           // ends it and brings the theme back
  QWidget *dono = nullptr;                 // the console's window, which they stand over
};

} // namespace tolmira
