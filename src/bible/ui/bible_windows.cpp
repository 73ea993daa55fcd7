#include "bible/ui/bible_windows.h"

#include "bible/FrmAddBibliaNaLista.h"
#include "bible/FrmBaixarBiblia.h"
#include "bible/FrmBibleBrowser.h"
#include "bible/FrmBibleSearch.h"

namespace tolmira {

BibleWindows::BibleWindows(BibleDoors doors, std::optional<BibleDownloadDoors> baixar)
    : m_doors(std::move(doors)), m_baixarDoors(std::move(baixar)) {}
BibleWindows::~BibleWindows() = default;

void BibleWindows::OpenAdd() {
  if (!m_add) {
    m_add = std::make_unique<FrmAddBibliaNaLista>(m_doors);
    QObject::connect(m_add.get(), &FrmAddBibliaNaLista::BrowserWanted, m_add.get(), [this] { OpenBrowser(); });
    QObject::connect(m_add.get(), &FrmAddBibliaNaLista::SearchWanted, m_add.get(), [this] { OpenSearch(); });
  }
  m_add->Open();
}

void BibleWindows::OpenBrowser() {
  if (!m_browser)
    m_browser = std::make_unique<FrmBibleBrowser>(m_doors);
  m_browser->Open();
}

void BibleWindows::OpenSearch() {
  if (!m_search)
    m_search = std::make_unique<FrmBibleSearch>(m_doors);
  m_search->Open();
}

void BibleWindows::AbreBaixar() {
  if (!m_baixarDoors)
    return;
  if (!m_baixar)
    m_baixar = std::make_unique<FrmBaixarBiblia>(*m_baixarDoors);
  m_baixar->Open();
}

bool BibleWindows::FechaBaixar() {
  return !m_baixar || !m_baixar->isVisible() || m_baixar->close();
}

void BibleWindows::CloseAdd() {
  if (m_add)
    m_add->close();
}

// A window that is not to be seen looks at the version when it is opened.
void BibleWindows::VersionChanged() {
  if (m_add && m_add->isVisible())
    m_add->ShowVerse();
  if (m_browser && m_browser->isVisible())
    m_browser->VersionChanged();
  if (m_search && m_search->isVisible())
    m_search->StartSearch();
}

} // namespace tolmira
