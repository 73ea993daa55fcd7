#pragma once

#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the windows of the notices work with. All of it outlives them.
struct NoticeDoors {
  const IniStore &store;
  UserPrompt &prompt;
  FormPositions &posicoes;
  std::function<void(const QString &comando)> envia; // a command of the projection
  // Why nobody sees a notice now, in a sentence; empty while one is seen. May be empty
  std::function<QString()> porQueNaoSeVe;
  std::function<void(bool)> aberto; // the window from which notices are sent was opened or closed. May be empty
  QWidget *dono = nullptr;          // the console's window, which they stand over
};

} // namespace tolmira
