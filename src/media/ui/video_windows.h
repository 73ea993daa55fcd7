#pragma once

#include "media/ui/video_doors.h"

#include <memory>

namespace tolmira {

class FrmAddVideoNaLista;
class FrmVideoControl;

// The windows of the local videos: the add dialog and the control, of each of which there is one.
class VideoWindows {
public:
  explicit VideoWindows(VideoDoors doors);
  ~VideoWindows();

  void AbreAdicionar();
  void AgendaChanged(); // another agenda is active, or it has another title
  // The operator asks for it with the keyboard; the console opens it beside his work.
  void AbreControle(bool comTeclado);
  void FechaControle();

private:
  VideoDoors m_doors;
  std::unique_ptr<FrmAddVideoNaLista> m_add;
  std::unique_ptr<FrmVideoControl> m_control;
};

} // namespace tolmira
