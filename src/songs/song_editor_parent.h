#pragma once

#include <QString>

namespace tolmira {

// The window from which a song was opened for editing. It outlives the editor.
class SongEditorParent {
public:
  virtual ~SongEditorParent() = default;
  // A song was saved: the list is refreshed and `name` (file name without ".txt") chosen in it.
  virtual void AtualizaLista(const QString &name) = 0;
};

} // namespace tolmira
