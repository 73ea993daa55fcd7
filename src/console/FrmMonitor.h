#pragma once

#include "console/ui/console_parts.h"
#include "display/display_seams.h"
#include "display/ui/page_profile.h"

#include <QMainWindow>
#include <functional>
#include <memory>

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

  std::function<bool()> PodeFechar;  // asked first; false keeps the window open. May be empty
  std::function<void()> AoFechar;    // the window was closed; the program ends
  std::function<void()> PreviaMudou; // the preview has another size, for a moment already. May be empty

  // The windows behind the console's buttons, menus and keys.
  struct Windows {
    std::function<void()> newSong;
    std::function<void()> pictureOnScreen;
    std::function<void()> addSong;
    std::function<void()> addBible;
    std::function<void()> addSlides;
    std::function<void()> addShows;
    std::function<void()> addVideos;
    std::function<void()> searchVideos;
    std::function<void()> captions;
    std::function<void()> notices;
    std::function<void()> videoControl;
    std::function<void()> cameras;
    std::function<void()> browseBible;
    std::function<void()> searchBible;
    std::function<void()> searchVersions; // of the Bible
    std::function<void()> downloadLyrics;
    std::function<void()> downloadPictures;
    std::function<void()> downloadVideos;  // those that are suggested
    std::function<void(int)> configTema;   // the editor of a theme
    std::function<void(int)> chooseScreen; // for the projection: index into the panel's `telas`
    std::function<void()> help;
    std::function<void()> support;
    std::function<void()> verifyUpdate;
    std::function<void()> about;
    std::function<void(QWidget &form)> restorePosition; // of a window of the console's own, before it is shown
    std::function<void(QWidget &form)> savePosition;    // when it was closed
    std::function<void()> agendaChanged;                // another agenda is active, or it has another title
  };
  void SetWindows(Windows windows);

  // What the start needs of the window, in the order of its steps.
  void CarregaFontes();
  void DefineTelao(const QSize &pixels); // the projection's size, for the preview's aspect
  void AjustaPreview();
  void CarregaTiles();
  void RecarregaTile(int n); // theme n has another picture
  void positionInicial();    // writes the default rectangle, fills the work area and shows the window
  bool CriaPrevia();         // the engine on the preview; false when it cannot start
  WebPageHost *PicWV();
  void TakeKeysOf(QWidget *window); // keys that reach that window count as the console's

  void AlternaTamanho(); // Image3: work area or the normal rectangle
  // The desktop is about to change: whether the console fills its work area is seen now or never.
  void AnotaTamanho();
  // After it has: to that screen, filling it if the console filled its own. A console that stands on that screen, of a
  // size of its own and within reach, stays as it is.
  void LevaPara(QScreen *screen);

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
  void changeEvent(QEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;

private:
  void FillWorkArea(QScreen *on);
  bool FillsWorkArea() const;
  void PlaceEdges();
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
