#pragma once

#include "slides/ui/document_list.h"
#include "slides/ui/show_doors.h"

namespace tolmira {

// The list of the slide shows.
class FrmListaSlidesShow : public DocumentList {
  Q_OBJECT

public:
  // The editor, of which there is one.
  struct Editor {
    std::function<bool()> aberto;
    std::function<void()> novo;
    std::function<void(const QString &path)> edita;
  };
  FrmListaSlidesShow(const ShowDoors &doors, Editor editor);
};

} // namespace tolmira
