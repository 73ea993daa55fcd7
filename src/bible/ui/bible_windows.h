#pragma once

#include "bible/ui/bible_doors.h"
#include "bible/ui/bible_download_doors.h"

#include <memory>
#include <optional>

namespace tolmira {

class FrmAddBibliaNaLista;
class FrmBaixarBiblia;
class FrmBibleBrowser;
class FrmBibleSearch;

// The windows of the Bible, each made when it is first wanted.
class BibleWindows {
public:
  // Without the second doors no versions can be brought.
  explicit BibleWindows(BibleDoors doors, std::optional<BibleDownloadDoors> baixar = std::nullopt);
  ~BibleWindows();

  void OpenAdd();
  void OpenBrowser();
  void OpenSearch();
  void AbreBaixar();  // versions to download
  bool FechaBaixar(); // false when a download is under way that the operator does not want to end
  void CloseAdd();    // another item is being shown
  void VersionChanged();

private:
  BibleDoors m_doors;
  std::optional<BibleDownloadDoors> m_baixarDoors;
  std::unique_ptr<FrmAddBibliaNaLista> m_add;
  std::unique_ptr<FrmBibleBrowser> m_browser;
  std::unique_ptr<FrmBibleSearch> m_search;
  std::unique_ptr<FrmBaixarBiblia> m_baixar;
};

} // namespace tolmira
