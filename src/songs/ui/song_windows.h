#pragma once

#include "songs/song_editor_parent.h"
#include "songs/ui/song_doors.h"

#include <memory>

namespace tolmira {

class FrmAddMusicaNaLista;

// The windows of the songs, each made when it is first wanted or shortly before.
class SongWindows : public SongEditorParent {
public:
  explicit SongWindows(SongDoors doors);
  ~SongWindows() override;

  // Makes ahead what the first OpenAdd would make; for a moment when the operator waits for nothing.
  void PrepareAdd();
  void OpenAdd();
  void AgendaChanged(); // another agenda is active, or it has another title
  // A song was saved under this name (without folder and extension): the open list shows it.
  void AtualizaLista(const QString &nome) override;

private:
  SongDoors m_doors;
  std::unique_ptr<FrmAddMusicaNaLista> m_add;
};

} // namespace tolmira
