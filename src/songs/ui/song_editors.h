#pragma once

#include "songs/song_editor_parent.h"
#include "songs/spelling.h"
#include "songs/text_format.h"
#include "songs/ui/editor_doors.h"

#include <memory>
#include <vector>

namespace tolmira {

class FrmConfigFormatTexto;
class FrmEditar;
struct SongDraft;

// The editors that stand open, one a file, and what they share. Unsaved texts of editors that still stand open when it
// goes are kept and offered at the next start.
class SongEditors {
public:
  SongEditors(SongEditorDoors doors, TextFormatDoors formato);
  ~SongEditors();

  void Novo(SongEditorParent *parent = nullptr);
  // Opens the editor on a song, or brings the one that stands on it to the front. False when the file cannot be read as
  // text.
  bool Edita(const QString &path, SongEditorParent *parent = nullptr);
  bool EstaAberto(const QString &path) const;
  bool AbertoEmOutra(const QString &path) const; // an editor stands open, and not on this song

  // Closes all of them, as the operator would; false when one of them stays because its text is not saved.
  bool FechaTodos();

  // Asks about each unsaved text that an earlier run left behind.
  void OfereceRascunhos(SongEditorParent *parent = nullptr);
  void AbreFormato();  // the text-format options
  void RefazFormato(); // another theme is in force

private:
  FrmEditar *Make(SongEditorParent *parent);
  FrmEditar *EditorOf(const QString &path) const;

  SongEditorDoors m_doors;
  TextFormatDoors m_formatDoors;
  Spelling m_spelling;
  std::vector<std::unique_ptr<FrmEditar>> m_editors;
  bool m_closing = false;
  std::unique_ptr<FrmConfigFormatTexto> m_format;
};

} // namespace tolmira
