#pragma once

#include "media/ui/camera_doors.h"

#include <memory>

namespace tolmira {

class FrmCameras;

// The one window of the cameras, made when it is asked for.
class CameraWindow {
public:
  explicit CameraWindow(const CameraDoors &doors);
  ~CameraWindow();

  void Abre(); // not while the page on show has no cameras

private:
  CameraDoors m_doors;
  std::unique_ptr<FrmCameras> m_form;
};

} // namespace tolmira
