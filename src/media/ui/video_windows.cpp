#include "media/ui/video_windows.h"

#include "media/FrmAddVideoNaLista.h"
#include "media/FrmVideoControl.h"

namespace tolmira {

VideoWindows::VideoWindows(VideoDoors doors) : m_doors(std::move(doors)) {}
VideoWindows::~VideoWindows() = default;

void VideoWindows::AbreAdicionar() {
  if (!m_add)
    m_add = std::make_unique<FrmAddVideoNaLista>(m_doors, [this] { AbreControle(true); });
  m_add->Open();
}

void VideoWindows::AgendaChanged() {
  if (m_add)
    m_add->AtualizaAgenda();
}

void VideoWindows::AbreControle(bool comTeclado) {
  if (m_add)
    m_add->AtualizaControle();
  if (!m_doors.emExibicao())
    return;
  if (!m_control) {
    m_control = std::make_unique<FrmVideoControl>(m_doors);
    // It is still handling the event that closed it.
    QObject::connect(m_control.get(), &FrmVideoControl::Closed, m_control.get(),
                     [this] { m_control.release()->deleteLater(); });
  }
  m_control->Open(comTeclado);
}

void VideoWindows::FechaControle() {
  if (m_add)
    m_add->AtualizaControle();
  if (m_control)
    m_control->close();
}

} // namespace tolmira
