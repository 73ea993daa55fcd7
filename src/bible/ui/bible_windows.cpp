#include "bible/ui/bible_windows.h"

#include "bible/FrmAddBibliaNaLista.h"
#include "bible/FrmBibleBrowser.h"
#include "bible/FrmBibleSearch.h"

namespace tolmira {

BibleWindows::BibleWindows(BibleDoors doors) : m_doors(std::move(doors)) {}
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

void BibleWindows::CloseAdd() {
  if (m_add)
    m_add->close();
}

} // namespace tolmira
