#include "media/ui/video_windows.h"

#include "media/FrmAddVideoNaLista.h"
#include "media/FrmPesquisaYoutube.h"
#include "media/FrmVideoControl.h"
#include "media/FrmYoutubeCtrl.h"

namespace tolmira {

namespace {

// A control is gone when it is closed, but not before it has handled the event that closed it.
template <class Control> void OpenControl(std::unique_ptr<Control> &control, const VideoDoors &doors, bool comTeclado) {
  if (!control) {
    control = std::make_unique<Control>(doors);
    QObject::connect(control.get(), &Control::Closed, control.get(), [&control] { control.release()->deleteLater(); });
  }
  control->Open(comTeclado);
}

} // namespace

VideoWindows::VideoWindows(VideoDoors doors) : m_doors(std::move(doors)) {}
VideoWindows::~VideoWindows() = default;

void VideoWindows::AbreAdicionar() {
  if (!m_add)
    m_add = std::make_unique<FrmAddVideoNaLista>(m_doors, [this] { AbreControle(true); });
  m_add->Open();
}

void VideoWindows::AbrePesquisa() {
  if (!m_pesquisa)
    m_pesquisa = std::make_unique<FrmPesquisaYoutube>(m_doors);
  m_pesquisa->Open();
}

void VideoWindows::AgendaChanged() {
  if (m_add)
    m_add->AtualizaAgenda();
}

void VideoWindows::AbreControle(bool comTeclado) {
  if (m_add)
    m_add->AtualizaControle();
  if (m_doors.daWebEmExibicao())
    OpenControl(m_youtube, m_doors, comTeclado);
  else if (m_doors.emExibicao())
    OpenControl(m_control, m_doors, comTeclado);
}

void VideoWindows::FechaControle() {
  if (m_add)
    m_add->AtualizaControle();
  if (m_control)
    m_control->close();
}

void VideoWindows::UnloadFrmYoutube() {
  if (m_add)
    m_add->AtualizaControle();
  if (m_youtube)
    m_youtube->close();
}

PageObject *VideoWindows::WV() const {
  return m_pesquisa ? m_pesquisa->WV() : nullptr;
}

} // namespace tolmira
