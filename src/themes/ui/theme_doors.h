#pragma once

#include "foundation/app_folder.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

class Endpoints;
class PageFetcher;

// What the windows of the themes work with. All of it outlives them.
struct ThemeDoors {
  const AppFolder &app;
  const IniStore &store;
  FormPositions &posicoes;
  UserPrompt &prompt;
  QWidget *dono = nullptr; // the console's window, which they stand over
  std::function<void(const QString &path)> trocarFundoPadrao;
  // Puts the picture over the theme at once; `move`: with slow movement. False when it is refused, which was told.
  std::function<bool(const QString &path, bool move)> exibeImagem;
  std::function<bool()> moveImagens; // whether pictures move now
  // By which pictures are looked for on the web; without them that window does not exist.
  PageFetcher *paginas = nullptr;
  const Endpoints *endpoints = nullptr;
};

// Who opens the gallery, and what becomes of the picture.
struct PedidoDeImagem {
  QString modo;   // "FrmConfigTema", "FrmSlides", "FrmSlideShow", "FundoPadrao" or "FrmMonitor"
  int numero = 0; // of the theme or slide
  std::function<void(const QString &path)> usa; // with the stored path, which lies in <app>\Images\.
  QWidget *dono = nullptr;                      // the window to stand over; the console when it is null
};

} // namespace tolmira
