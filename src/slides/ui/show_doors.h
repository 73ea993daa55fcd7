#pragma once

#include "console/presentation.h"
#include "display/ui/page_profile.h"
#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "slides/slide_show_player.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

inline constexpr int TipoSlideShow = 6; // of an agenda entry

// What the windows of the slide shows work with. All of it outlives them.
struct ShowDoors {
  const AppFolder &app;
  UserPrompt &prompt;
  Presentation &console;
  FormPositions &posicoes;
  SlideShowPlayer &player;
  std::function<QString()> tituloDaAgenda; // of the active agenda
  // Lets the operator choose pictures; `usa` takes the path of each. Empty: there is no gallery.
  std::function<void(QWidget *dono, const std::function<void(const QString &path)> &usa)> galeria;
  PageProfile perfil;      // shared with the other pages; without one the editor makes its own
  QWidget *dono = nullptr; // the console's window, which they stand over
};

} // namespace tolmira
