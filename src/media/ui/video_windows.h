#pragma once

#include "media/ui/video_doors.h"

#include <memory>

namespace tolmira {

class FrmAddVideoNaLista;
class FrmPesquisaYoutube;
class FrmVideoControl;
class FrmYoutubeCtrl;

// The windows of the videos, of each of which there is one: the add dialog, the search of the web, and the controls of
// what is on show.
class VideoWindows {
public:
  explicit VideoWindows(VideoDoors doors);
  ~VideoWindows();

  void AbreAdicionar();
  void AbrePesquisa();
  void AgendaChanged(); // another agenda is active, or it has another title
  // Of the video on show, a local one or one of the web. The operator asks for it with the keyboard; the console opens
  // it beside his work.
  void AbreControle(bool comTeclado);
  void FechaControle();
  void UnloadFrmYoutube();
  PageObject *WV() const; // of the search's results; may be null

private:
  VideoDoors m_doors;
  std::unique_ptr<FrmAddVideoNaLista> m_add;
  std::unique_ptr<FrmPesquisaYoutube> m_pesquisa;
  std::unique_ptr<FrmVideoControl> m_control;
  std::unique_ptr<FrmYoutubeCtrl> m_youtube;
};

} // namespace tolmira
