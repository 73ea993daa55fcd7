#pragma once

#include "media/ui/content_doors.h"

#include <memory>

namespace tolmira {

class FrmConteudo;

// The window of the suggested videos, made when it is first wanted.
class ContentWindow {
public:
  explicit ContentWindow(ContentDoors doors);
  ~ContentWindow();

  void Abre();
  void AgendaChanged(); // another agenda is active, or it has another title

private:
  ContentDoors m_doors;
  std::unique_ptr<FrmConteudo> m_form;
};

} // namespace tolmira
