#pragma once

#include "themes/ui/theme_editor_doors.h"

#include <memory>
#include <vector>

namespace tolmira {

class FrmConfigTema;

// The theme editors that stand open, one a theme.
class ThemeEditors {
public:
  explicit ThemeEditors(ThemeEditorDoors doors);
  ~ThemeEditors();

  // Opens the editor on theme n, or brings the one that stands on it to the front.
  void AbreConfigTema(int n);
  // Theme n was given or lost capital letters by another window.
  void MaiusculasMudaram(int n, bool maiusculas);
  PageObject *WV() const; // of the editor that was opened last; null when none stands open
  // Closes all of them, as the operator would; false when one of them stays.
  bool FechaTodos();

private:
  FrmConfigTema *EditorOf(int n) const;

  ThemeEditorDoors m_doors;
  std::vector<std::unique_ptr<FrmConfigTema>> m_editors;
  bool m_closing = false;
};

} // namespace tolmira
