#include "themes/ui/theme_editors.h"

#include "controls/ui/close_all.h"
#include "display/ui/web_page_host.h"
#include "themes/FrmConfigTema.h"
#include "themes/ui/theme_preview.h"

#include <algorithm>

namespace tolmira {

ThemeEditors::ThemeEditors(ThemeEditorDoors doors) : m_doors(std::move(doors)) {}
ThemeEditors::~ThemeEditors() = default;

FrmConfigTema *ThemeEditors::EditorOf(int n) const {
  const auto found =
      std::find_if(m_editors.begin(), m_editors.end(), [n](const auto &one) { return one->Index() == n; });
  return found == m_editors.end() ? nullptr : found->get();
}

void ThemeEditors::AbreConfigTema(int n) {
  if (n < 1 || n > NumeroDeTemas)
    return;
  if (FrmConfigTema *open = EditorOf(n)) {
    open->Open();
    return;
  }
  FrmConfigTema *editor = m_editors.emplace_back(std::make_unique<FrmConfigTema>(m_doors)).get();
  QObject::connect(editor, &FrmConfigTema::Closed, editor, [this, editor] { ForgetClosed(m_editors, editor); });
  editor->SetIndex(n);
  editor->Open();
}

void ThemeEditors::MaiusculasMudaram(int n, bool maiusculas) {
  if (FrmConfigTema *editor = EditorOf(n))
    editor->MaiusculasMudaram(maiusculas);
}

PageObject *ThemeEditors::WV() const {
  return m_editors.empty() ? nullptr : m_editors.back()->Preview()->PicWV()->WV();
}

bool ThemeEditors::FechaTodos() {
  return CloseAll(m_editors, m_closing);
}

} // namespace tolmira
