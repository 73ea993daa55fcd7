#include "media/ui/camera_window.h"

#include "media/FrmCameras.h"

namespace tolmira {

CameraWindow::CameraWindow(const CameraDoors &doors) : m_doors(doors) {}
CameraWindow::~CameraWindow() = default;

void CameraWindow::Abre() {
  if (!m_form && !m_doors.cameras.Pode())
    return;
  if (!m_form) {
    m_form = std::make_unique<FrmCameras>(m_doors);
    // It is still handling the event that closed it.
    QObject::connect(m_form.get(), &FrmCameras::Closed, m_form.get(), [this] { m_form.release()->deleteLater(); });
  }
  m_form->Open();
}

} // namespace tolmira
