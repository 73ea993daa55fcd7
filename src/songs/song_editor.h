#pragma once

#include "foundation/app_folder.h"
#include "foundation/code_page.h"
#include "foundation/seams.h"
#include "songs/song_drafts.h"
#include "songs/song_name.h"

#include <QString>
#include <functional>

namespace tolmira {

// The two ways in which the song editor is opened.
inline const QString ModoAdicionar = QStringLiteral("Adicionar");
inline const QString ModoEditar = QStringLiteral("Editar");

// What stands in the boxes of the editor; the text has CR LF line ends.
struct SongContent {
  SongName name;
  QString text;

  friend bool operator==(const SongContent &, const SongContent &) = default;
};

// One song while it is written or changed: loading, naming and saving. The operator is asked and told through the
// prompt; a save that does not succeed changes nothing here, so that no text is lost.
class SongEditor {
public:
  SongEditor(const AppFolder &app, UserPrompt &prompt);

  // `path` is a full stored path; in "Adicionar" there is none. False when there is no file that can be read whole as
  // text; the song then counts as empty.
  bool SetDados(const QString &mode, const QString &path);
  // As SetDados, for a text that was kept from an earlier run: the file need not exist any more. Where the song was
  // changed meanwhile the text is a new song, which is saved over nothing unasked.
  void SetDadosDeRascunho(const SongDraft &draft);

  const QString &Modo() const { return m_mode; }
  const QString &Caminho() const { return m_path; }       // empty before the first save of a new song
  const SongContent &Guardado() const { return m_saved; } // as it stands on disk; empty for a new song
  const FileState &Arquivo() const { return m_file; }     // the file when it was read or written last

  enum class Outcome { Saved, BadName, GivenUp, Failed };
  struct Result {
    Outcome outcome = Outcome::Failed;
    QString oldName; // file names with ".txt"; the old one equals the new one where there was none
    QString newName;
  };
  // On success the song is one that is being changed, whatever it was before, and Guardado() is what was written.
  Result Save(const SongContent &content);

  // Whether that file stands in another editor, which would overwrite what is saved here; may be empty.
  std::function<bool(const QString &path)> AbertoEmOutro;

private:
  QString TargetOf(const SongName &name) const;
  QString FreeTarget(const QString &target, const SongName &name) const;
  void FinishRename(const QString &target);
  void Say(MessageKind kind, const QString &text);

  const AppFolder m_app;
  UserPrompt &m_prompt;
  QString m_mode = ModoAdicionar;
  QString m_path;
  SongContent m_saved;
  FileState m_file;
  TextEncoding m_encoding = TextEncoding::Windows1252;
};

// The first letter of each line in capitals, where a line begins with a letter.
QString CapitalLines(const QString &text);

} // namespace tolmira
