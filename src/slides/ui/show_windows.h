#pragma once

#include "slides/ui/show_doors.h"

#include <memory>
#include <vector>

namespace tolmira {

class FrmListaSlidesShow;
class FrmSlideShow;
class FrmSlideShowControl;
class PageObject;

// The windows of the slide shows: the list, the editor and the remote, of each of which there is one.
class ShowWindows {
public:
  explicit ShowWindows(ShowDoors doors);
  ~ShowWindows();

  void AbreLista();
  void AgendaChanged(); // another agenda is active, or it has another title

  void Novo();
  // Opens the editor on a show. One that stands open already is brought to the front if it is on that show; on another
  // one it has to be closed first, which is told.
  void Edita(const QString &path);
  bool FechaTodos();      // the editor, as the operator would; false when it stays
  PageObject *WV() const; // of the editor; null when it is closed

  void AbreControle(const QString &path); // opens the remote, which starts the show
  bool FechaControle();                   // ends the show; false when none ran
  void ImagemMudou(const QString &nome);  // the page says which picture is on show; nothing without the remote

private:
  void AbreEditor(const QString &path);

  ShowDoors m_doors;
  std::unique_ptr<FrmListaSlidesShow> m_lista;
  std::vector<std::unique_ptr<FrmSlideShow>> m_editors; // one at most
  std::unique_ptr<FrmSlideShowControl> m_control;
  bool m_closing = false;
};

} // namespace tolmira
