#pragma once

#include <memory>

#include "bible/ui/bible_doors.h"

namespace tolmira {

class FrmAddBibliaNaLista;
class FrmBibleBrowser;
class FrmBibleSearch;

// The windows of the Bible, each made when it is first wanted.
class BibleWindows {
public:
  explicit BibleWindows(BibleDoors doors);
  ~BibleWindows();

  void OpenAdd();
  void OpenBrowser();
  void OpenSearch();
  void CloseAdd(); // another item is being shown
  void VersionChanged();

private:
  BibleDoors m_doors;
  std::unique_ptr<FrmAddBibliaNaLista> m_add;
  std::unique_ptr<FrmBibleBrowser> m_browser;
  std::unique_ptr<FrmBibleSearch> m_search;
};

} // namespace tolmira
