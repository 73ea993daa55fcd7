#include "media/ui/content_window.h"

#include "media/FrmConteudo.h"

namespace tolmira {

ContentWindow::ContentWindow(ContentDoors doors) : m_doors(std::move(doors)) {}
ContentWindow::~ContentWindow() = default;

void ContentWindow::Abre() {
  if (!m_form)
    m_form = std::make_unique<FrmConteudo>(m_doors);
  m_form->Open();
}

void ContentWindow::AgendaChanged() {
  if (m_form)
    m_form->AtualizaAgenda();
}

} // namespace tolmira
