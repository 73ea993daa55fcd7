#pragma once

#include "console/presentation.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "display/ui/page_profile.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "songs/song_check.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the song editor works with. All of it outlives the windows.
struct SongEditorDoors {
  const IniStore &store;
  UserPrompt &prompt;
  Clock &clock;
  RandomSource &random;
  Yielder &yielder;
  TextMeasure &measure;
  Presentation &console;
  FormPositions &posicoes;
  const EstadoConsole &estado; // the theme in force
  const AjustesTexto &ajustes;
  std::function<Display *()> telao; // null while there is none
  // How a text would be cut and sized if it were shown with these settings.
  std::function<SongRoom(const QString &texto, const AjustesTexto &ajustes)> sala;
  PageProfile perfil;      // shared with the other pages; without one each preview makes its own
  QWidget *dono = nullptr; // the console's window, which they stand over
};

} // namespace tolmira
