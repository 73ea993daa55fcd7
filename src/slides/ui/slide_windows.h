#pragma once

#include "slides/ui/slide_doors.h"

#include <memory>
#include <vector>

namespace tolmira {

class FrmListaSlides;
class FrmSlides;
struct SlideDraft;

// The windows of the slides: the list, and the editor, of which there is one. What the editor holds unsaved when this
// goes is kept and offered at the next start.
class SlideWindows {
public:
  explicit SlideWindows(SlideDoors doors);
  ~SlideWindows();

  void AbreLista();
  void AgendaChanged(); // another agenda is active, or it has another title

  void Novo();
  // Opens the editor on a document, or brings it to the front when it stands on it. One that stands on another document
  // is closed first, as the operator would. False when there is no such file.
  bool Edita(const QString &path);
  bool EditorAberto() const { return !m_editors.empty(); }
  bool AbreComImagens(const QStringList &imagens, const QString &nome); // AbreImagens

  bool FechaTodos();       // as the operator would; false when the editor stays
  void OfereceRascunhos(); // asks about what an earlier run left behind
  PageObject *WV() const;  // of the editor; null when it is closed

private:
  FrmSlides *Make(const QString &pedido = {}); // the document's name as whoever wants it spells it
  bool LivraEditor();

  SlideDoors m_doors;
  EstadoSlides m_estado;
  std::unique_ptr<FrmListaSlides> m_lista;
  std::vector<std::unique_ptr<FrmSlides>> m_editors; // one at most
  bool m_closing = false;
};

} // namespace tolmira
