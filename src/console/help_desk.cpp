#include "console/help_desk.h"

#include <QFileInfo>
#include <QObject>

namespace tolmira {

namespace {

const QString Titulo = QStringLiteral("Tolmira");

} // namespace

void HelpDesk::AbreAjuda() {
  const QString page = m_folder + QStringLiteral("/index.html");
  if (m_folder.isEmpty() || !QFileInfo(page).isFile()) {
    m_prompt.Message(MessageKind::Warning, Titulo, QObject::tr("The help pages were not found."));
    return;
  }
  Abre(QUrl::fromLocalFile(page));
}

void HelpDesk::AbreSuporte() {
  const QUrl address = m_endpoints.PaginaDoPrograma(Endpoint::Suporte);
  if (address.isValid())
    Abre(address);
  else
    m_prompt.Message(MessageKind::Information, Titulo, m_endpoints.PorQueNao(Endpoint::Suporte));
}

void HelpDesk::Abre(const QUrl &address) {
  if (!m_opener.Open(address))
    m_prompt.Message(MessageKind::Warning, Titulo,
                     QObject::tr("No browser could be started. The page is at:\n\n%1").arg(address.toDisplayString()));
}

} // namespace tolmira
