#pragma once

#include "foundation/seams.h"
#include "web/endpoints.h"

#include <QString>
#include <QUrl>

namespace tolmira {

// The help pages and the support page, both in the browser of the desktop. What cannot be opened is said in a box.
class HelpDesk {
public:
  // `folder` holds the help pages; empty when they were not found.
  HelpDesk(const Endpoints &endpoints, UserPrompt &prompt, DesktopOpener &opener, const QString &folder)
      : m_endpoints(endpoints), m_prompt(prompt), m_opener(opener), m_folder(folder) {}

  void AbreAjuda();
  void AbreSuporte();

private:
  void Abre(const QUrl &address);

  const Endpoints &m_endpoints;
  UserPrompt &m_prompt;
  DesktopOpener &m_opener;
  QString m_folder;
};

} // namespace tolmira
