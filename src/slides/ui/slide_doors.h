#pragma once

#include "console/presentation.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "display/ui/page_profile.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace tolmira {

// Opens the editor on new slides of these pictures (stored paths), with a name to propose. False when the editor stands
// open on others and the operator wants to go on with them.
using AbreImagens = std::function<bool(const QStringList &imagens, const QString &nome)>;

// What the windows of the slides work with. All of it outlives them.
struct SlideDoors {
  const IniStore &store;
  UserPrompt &prompt;
  Clock &clock;
  RandomSource &random;
  Presentation &console;
  FormPositions &posicoes;
  const EstadoConsole &estado; // whether pictures stand still
  const AjustesTexto &ajustes;
  std::function<Display *()> telao;        // null while there is none
  std::function<QString()> tituloDaAgenda; // of the active agenda
  // Lets the operator choose a picture for slide `numero`; `usa` takes its path. Empty: a file dialogue asks.
  std::function<void(int numero, QWidget *dono, const std::function<void(const QString &path)> &usa)> galeria;
  // Brings a document of another kind in as pictures in <app>\Images. Empty while nothing does.
  std::function<void(const AbreImagens &pronto)> importa;
  PageProfile perfil;      // shared with the other pages; without one the preview makes its own
  QWidget *dono = nullptr; // the console's window, which they stand over
};

// What the windows of the slides know of each other.
struct EstadoSlides {
  QString editorAberto; // "true" while the editor stands open: the editor
};

} // namespace tolmira
