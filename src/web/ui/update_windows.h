#pragma once

#include "web/ui/update_doors.h"
#include "web/update.h"

#include <memory>

namespace tolmira {

class FrmComunicado;
class FrmUp;

// Looks for a newer version and, where the operator wants it, fetches its installer.
class UpdateWindows {
public:
  explicit UpdateWindows(UpdateDoors doors);
  ~UpdateWindows();

  void VerifyUpdate();

private:
  void Veio(const QString &resultado);
  void Baixa(const NovaVersao &nova);

  UpdateDoors m_doors;
  Atualizacao m_atualizacao;
  std::unique_ptr<FrmComunicado> m_comunicado;
  std::unique_ptr<FrmUp> m_up;
  std::unique_ptr<WebTask> m_pergunta;
};

} // namespace tolmira
