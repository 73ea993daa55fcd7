#pragma once

#include "slides/ui/document_list.h"
#include "slides/ui/slide_doors.h"

namespace tolmira {

// The list of the slide documents.
class FrmListaSlides : public DocumentList {
  Q_OBJECT

public:
  // The editor, of which there is one.
  struct Editor {
    std::function<void()> novo;
    std::function<void(const QString &path)> edita;
    std::function<void()> importa;
  };
  FrmListaSlides(const SlideDoors &doors, const EstadoSlides &estado, Editor editor);
};

} // namespace tolmira
