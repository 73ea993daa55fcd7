#include "notices/ui/notice_windows.h"

#include "notices/FrmAvisoConfig.h"
#include "notices/FrmExibeAviso.h"
#include "notices/FrmListaAvisos.h"

namespace tolmira {

NoticeWindows::NoticeWindows(NoticeDoors doors) : m_doors(std::move(doors)) {}
NoticeWindows::~NoticeWindows() = default;

void NoticeWindows::AbreAviso() {
  if (!m_aviso)
    m_aviso = std::make_unique<FrmExibeAviso>(m_doors, [this] { AbreLista(); }, [this] { AbreConfig(); });
  m_aviso->Open();
}

void NoticeWindows::AbreLista() {
  if (!m_lista)
    m_lista = std::make_unique<FrmListaAvisos>(m_doors, [this](const QString &texto) {
      AbreAviso();
      m_aviso->UsaTexto(texto);
    });
  m_lista->Open();
}

void NoticeWindows::AbreConfig() {
  if (!m_config)
    m_config = std::make_unique<FrmAvisoConfig>(m_doors);
  m_config->Open();
}

} // namespace tolmira
