#pragma once

#include "console/presentation.h"
#include "display/ui/page_profile.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "media/video_control.h"
#include "media/web_video_control.h"
#include "web/page_fetcher.h"

#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the windows of the videos work with. All of it outlives them.
struct VideoDoors {
  const IniStore &store;
  UserPrompt &prompt;
  Clock &clock;
  Presentation &console;
  FormPositions &posicoes;
  VideoControl &controle;
  std::function<QString()> tituloDaAgenda; // of the active agenda
  std::function<bool()> emExibicao;        // a local video is on show
  std::function<void()> encerra;           // ends the video on show, of either kind, and brings the theme back
  QWidget *dono = nullptr;                 // the console's window, which they stand over

  // The videos of the web.
  WebVideoControl &controleDaWeb;
  std::function<bool()> daWebEmExibicao;
  std::function<PageFetcher *()> paginas; // null while the program has no way into the web
  // Of the results and of the site's own pages. The projection shares it, so that what the site was answered holds
  // there too; nothing of it is kept on disk.
  PageProfile perfil;
};

} // namespace tolmira
