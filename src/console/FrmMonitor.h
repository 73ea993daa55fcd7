#pragma once

#include <QMainWindow>

#include <functional>
#include <memory>

#include "console/ui/console_parts.h"
#include "display/display_seams.h"
#include "display/ui/page_profile.h"

namespace tolmira {

class WebPageHost;

// The operator's window. It copies the records of the console to its controls and forwards what the operator does; it
// decides nothing. It registers itself as the view of the console for as long as it lives.
class FrmMonitor : public QMainWindow, public ConsoleView, public PreviewMirror {
  Q_OBJECT

public:
  using Parts = ConsoleParts;

  // `perfil` is shared with the projection's page; without one the preview makes its own.
  explicit FrmMonitor(Parts parts, PageProfile perfil = {});
  ~FrmMonitor() override;

  std::function<bool()> PodeFechar; // asked first; false keeps the window open. May be empty
  std::function<void()> AoFechar; // the window was closed; the program ends

  // The windows behind the console's buttons, menus and keys.
  struct Windows {
    std::function<void()> newSong;
    std::function<void()> pictureOnScreen;
    std::function<void()> addSong;
    std::function<void()> addBible;
    std::function<void()> browseBible;
    std::function<void()> searchBible;
    std::function<void()> agendaChanged; // another agenda is active, or it has another title
  };
  void SetWindows(Windows windows);

  // What the start needs of the window, in the order of its steps.
  void CarregaFontes();
  void DefineTelao(const QSize &pixels); // the projection's size, for the preview's aspect
  void AjustaPreview();
  void CarregaTiles();
  void positionInicial(); // writes the default rectangle, fills the work area and shows the window
  bool CriaPrevia();      // the engine on the preview; false when it cannot start
  WebPageHost *PicWV();
  void TakeKeysOf(QWidget *window); // keys that reach that window count as the console's

  void AlternaTamanho(); // Image3: work area or the normal rectangle
  void AreaDeTrabalhoMudou(); // a console that filled the work area fills it again

  void Atualiza() override;
  void StripMoved() override;
  void AgendaChanged() override;
  void ThemesChanged() override;
  void FocusStrip() override;
  int PreviewWidthPx() const override;

  void FitMirror() override;
  void ShowMirrorBlack(bool visible) override;
  bool LoadMirrorPicture(const QString &storedPath) override;
  void ShowMirrorPicture(bool visible) override;

protected:
  void closeEvent(QCloseEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void FillWorkArea();
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
