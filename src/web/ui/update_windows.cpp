#include "web/ui/update_windows.h"

#include "web/FrmComunicado.h"
#include "web/FrmUp.h"

namespace tolmira {

UpdateWindows::UpdateWindows(UpdateDoors doors)
    : m_doors(std::move(doors)), m_atualizacao(m_doors.endpoints, m_doors.paginas) {}

UpdateWindows::~UpdateWindows() = default;

void UpdateWindows::VerifyUpdate() {
  if (m_up && m_up->isVisible()) {
    m_up->Open();
    return;
  }
  if (const QString porque = m_atualizacao.PorQueNao(); !porque.isEmpty()) {
    m_doors.prompt.Message(MessageKind::Information, NomeDoPrograma, porque);
    return;
  }
  if (!m_comunicado) {
    m_comunicado = std::make_unique<FrmComunicado>(m_doors, [this](const NovaVersao &nova) { Baixa(nova); });
    QObject::connect(m_comunicado.get(), &FrmComunicado::Fechada, m_comunicado.get(), [this] { m_pergunta.reset(); });
  }
  m_comunicado->Espera();
  m_pergunta = m_atualizacao.VerificaVersao([this](const QString &resultado) { Veio(resultado); });
}

void UpdateWindows::Veio(const QString &resultado) {
  m_pergunta.reset();
  if (const std::optional<QStringView> resposta = Atualizacao::RespostaComLink(resultado)) {
    m_comunicado->Mostra(LeNovaVersao(*resposta));
    return;
  }
  m_comunicado->close();
  m_doors.prompt.Message(MessageKind::Information, NomeDoPrograma, resultado);
}

void UpdateWindows::Baixa(const NovaVersao &nova) {
  m_up = std::make_unique<FrmUp>(m_doors, nova.instalador, m_atualizacao.PaginaDeDownload());
  m_up->Open();
}

} // namespace tolmira
