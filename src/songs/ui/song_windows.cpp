#include "songs/ui/song_windows.h"

#include "songs/FrmAddMusicaNaLista.h"

namespace tolmira {

SongWindows::SongWindows(SongDoors doors) : m_doors(std::move(doors)) {}
SongWindows::~SongWindows() = default;

void SongWindows::PrepareAdd() {
  if (m_add)
    return;
  m_add = std::make_unique<FrmAddMusicaNaLista>(m_doors);
  m_add->Prepare();
}

void SongWindows::OpenAdd() {
  if (!m_add)
    m_add = std::make_unique<FrmAddMusicaNaLista>(m_doors);
  m_add->Open();
}

void SongWindows::AgendaChanged() {
  if (m_add)
    m_add->AtualizaAgenda();
}

void SongWindows::AtualizaLista(const QString &nome) {
  if (m_add && m_add->isVisible())
    m_add->AtualizaLista(nome);
}

} // namespace tolmira
