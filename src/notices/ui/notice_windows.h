#pragma once

#include "notices/ui/notice_doors.h"

#include <memory>

namespace tolmira {

class FrmAvisoConfig;
class FrmExibeAviso;
class FrmListaAvisos;

// The windows of the notices, of each of which there is one.
class NoticeWindows {
public:
  explicit NoticeWindows(NoticeDoors doors);
  ~NoticeWindows();

  void AbreAviso();
  void AbreLista();
  void AbreConfig();

private:
  NoticeDoors m_doors;
  std::unique_ptr<FrmExibeAviso> m_aviso;
  std::unique_ptr<FrmListaAvisos> m_lista;
  std::unique_ptr<FrmAvisoConfig> m_config;
};

} // namespace tolmira
