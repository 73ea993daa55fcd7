#pragma once

#include <QString>
#include <QUrl>

#include "foundation/ini_store.h"
#include "foundation/seams.h"

namespace tolmira {

// The help pages and the support page, both in the browser of the desktop. What cannot be opened is said in a box.
class HelpDesk {
public:
  // `folder` holds the help pages; empty when they were not found.
  HelpDesk(const IniStore &store, UserPrompt &prompt, DesktopOpener &opener, const QString &folder)
      : m_store(store), m_prompt(prompt), m_opener(opener), m_folder(folder) {}

  void AbreAjuda();
  void AbreSuporte();

  // The support page with the program's name in the key `prog`. `host` is what Data\Endpoints.dat has as `Suporte` in
  // the section `Endpoints`: a host, with a path behind it or not, read over https; or a whole address of the web.
  // Invalid when it is neither.
  static QUrl EnderecoDoSuporte(const QString &host);

private:
  void Abre(const QUrl &address);

  const IniStore &m_store;
  UserPrompt &m_prompt;
  DesktopOpener &m_opener;
  QString m_folder;
};

} // namespace tolmira
