#pragma once

#include "console/presentation.h"
#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the windows of the songs work with. All of it outlives them.
struct SongDoors {
  const AppFolder &app;
  Presentation &console;
  FormPositions &posicoes;
  Clock &clock;
  UserPrompt &prompt;
  QWidget *dono = nullptr;                           // the console's window, which they stand over
  std::function<QString()> tituloDaAgenda;           // of the active agenda
  // On the song at that stored path; false when it cannot be read. Empty while there is no editor.
  std::function<bool(const QString &)> abreEditor;
  std::function<bool(const QString &)> editorAberto; // whether an editor stands open on that song
  // Fetches lyrics from the web, with these words in the search box. Empty while there is no such window.
  std::function<void(const QString &palavras)> abreBusca = {};
};

} // namespace tolmira
