#include "console/help_desk.h"

#include <QFileInfo>
#include <QObject>
#include <QUrlQuery>

namespace tolmira {

namespace {

const QString Titulo = QStringLiteral("Tolmira");
const QString Programa = QStringLiteral("Tolmira"); // in the key `prog`

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
  QString file = m_store.App().At(u"\\Data\\Endpoints.dat");
  const QString host =
      m_store.ReadConfig(QStringLiteral("Endpoints"), QStringLiteral("Suporte"), QString(), file).trimmed();
  if (host.isEmpty()) {
    m_prompt.Message(MessageKind::Information, Titulo,
                     QObject::tr("No support address is configured. It is the key Suporte in the section Endpoints of "
                                 "Data\\Endpoints.dat."));
    return;
  }
  const QUrl address = EnderecoDoSuporte(host);
  if (!address.isValid()) {
    m_prompt.Message(MessageKind::Warning, Titulo,
                     QObject::tr("The support address in Data\\Endpoints.dat is not an address of the web: %1").arg(host));
    return;
  }
  Abre(address);
}

QUrl HelpDesk::EnderecoDoSuporte(const QString &host) {
  QUrl address(host.contains(u"://") ? host : QStringLiteral("https://") + host, QUrl::StrictMode);
  const bool web = address.scheme() == u"https" || address.scheme() == u"http";
  if (!address.isValid() || !web || address.host().isEmpty() || !address.userInfo().isEmpty())
    return {};
  QUrlQuery query(address);
  query.addQueryItem(QStringLiteral("prog"), Programa);
  address.setQuery(query);
  return address;
}

void HelpDesk::Abre(const QUrl &address) {
  if (!m_opener.Open(address))
    m_prompt.Message(MessageKind::Warning, Titulo,
                     QObject::tr("No browser could be started. The page is at:\n\n%1").arg(address.toDisplayString()));
}

} // namespace tolmira
