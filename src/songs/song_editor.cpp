#include "songs/song_editor.h"

#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "songs/line_ends.h"
#include "songs/song_text.h"

#include <QFile>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
const QString Extension = QStringLiteral(".txt");
enum Answer { Yes = 0, No = 1 };

QString OwnFolder(const QString &path) {
  return path.chopped(FileNameOf(path).size());
}

} // namespace

QString CapitalLines(const QString &text) {
  QString result = text;
  bool lineStart = true;
  for (QChar &c : result) {
    if (lineStart && c.isLetter())
      c = c.toUpper();
    lineStart = c == u'\n' || c == u'\r';
  }
  return result;
}

SongEditor::SongEditor(const AppFolder &app, UserPrompt &prompt) : m_app(app), m_prompt(prompt) {}

bool SongEditor::SetDados(const QString &mode, const QString &path) {
  m_mode = mode;
  m_path.clear();
  m_saved = {};
  m_file = {};
  m_encoding = TextEncoding::Windows1252;
  if (mode != ModoEditar)
    return true;
  // What is cut off or is no text could not be written back as it was.
  const FileContent content = ReadFileContent(path);
  if (!content.complete || content.bytes.contains('\0'))
    return false;
  m_path = path;
  m_encoding = DecodeText(content.bytes).encoding;
  m_saved = {SongNameOf(path), ReadSongFile(m_app, path)};
  m_file = FileStateOf(path); // the reader may have repaired it
  return true;
}

void SongEditor::SetDadosDeRascunho(const SongDraft &draft) {
  if (SongDrafts::SongHasChanged(draft)) {
    SetDados(ModoAdicionar, {});
    return;
  }
  if (!SetDados(draft.mode, draft.path))
    m_path = draft.path; // a file that has gone, or went bad: the next save makes it anew
}

QString SongEditor::TargetOf(const SongName &name) const {
  if (m_mode != ModoEditar)
    return m_app.At(u"\\Lyrics\\") + TitleOfFile(name) + Extension;
  // A name that is written otherwise than this program would ("Song(Author).txt") stays as long as nobody changes it.
  if (name == TidyName(SongNameOf(m_path)))
    return m_path;
  return OwnFolder(m_path) + TitleOfFile(name) + Extension;
}

QString SongEditor::FreeTarget(const QString &target, const SongName &name) const {
  for (int counter = 1;; ++counter) {
    const QString candidate = OwnFolder(target) + TitleOfFile(name) + QStringLiteral(" (%1)").arg(counter) + Extension;
    if (!FileExists(candidate))
      return candidate;
  }
}

SongEditor::Result SongEditor::Save(const SongContent &content) {
  const SongName name = TidyName(content.name);
  if (name.title.isEmpty()) {
    Say(MessageKind::Information, QStringLiteral("Please enter the song title"));
    return {Outcome::BadName, {}, {}};
  }
  if (const QString problem = ProblemOf(name); !problem.isEmpty()) {
    Say(MessageKind::Information, problem);
    return {Outcome::BadName, {}, {}};
  }

  QString target = TargetOf(name);
  if (FileExists(target) && !IsSameFile(target, m_path)) {
    const int answer = m_prompt.Ask(BoxTitle,
                                    QStringLiteral("There is already a song with this name in your collection\n\n") +
                                        TitleOfFile(name) + QStringLiteral("\n\nOverwrite the file?"),
                                    {QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")});
    if (answer == No) {
      target = FreeTarget(target, name);
      Say(MessageKind::Information, QStringLiteral("The file will be saved as: ") + FileNameOf(target));
    } else if (answer != Yes) {
      return {Outcome::GivenUp, {}, {}};
    } else if (AbertoEmOutro && AbertoEmOutro(target)) {
      Say(MessageKind::Information, QStringLiteral("The editing screen for this lyrics is already open."));
      return {Outcome::GivenUp, {}, {}};
    }
  }

  // The reader puts a line end in front of hymns of the second hymnal; written back, they would become more each time.
  const QString text = CapitalLines(TrimCrLf(CollapseBlankRuns(content.text)));
  if (!WriteSongFile(target, text, m_encoding)) {
    Say(MessageKind::Critical,
        QStringLiteral("Could not save the file.\n\n%1\n\nThe text stays in the window.").arg(FileNameOf(target)));
    return {};
  }
  const QString newName = FileNameOf(target);
  const Result result{Outcome::Saved, m_path.isEmpty() ? newName : FileNameOf(m_path), newName};
  FinishRename(target);
  m_mode = ModoEditar;
  m_path = target;
  m_saved = {SongNameOf(target), text};
  m_file = FileStateOf(target);
  return result;
}

// The song has a new name and stands safely under it. The file of the old name goes, or the song would be there twice.
void SongEditor::FinishRename(const QString &target) {
  if (m_path.isEmpty())
    return;
  const QString old = MapStoredPath(m_path).text();
  const QString now = MapStoredPath(target).text();
  // One file under two names, on a disk without regard to case or through a link: removing the old name would remove the
  // song that was just written.
  if (old != now && IsSameFile(m_path, target))
    return;
  if (old == now) {
    // Only capitals changed: the target was found to be the own file, which still bears the old ones.
    const QString wanted = OwnFolder(now) + FileNameOf(target);
    if (now != wanted)
      QFile::rename(now, wanted);
    return;
  }
  if (FileExists(m_path) && !QFile::remove(old))
    Say(MessageKind::Warning, QStringLiteral("The song was saved as: ") + FileNameOf(target) +
                                  QStringLiteral("\n\nThe file with its old name could not be removed: ") +
                                  FileNameOf(m_path));
}

void SongEditor::Say(MessageKind kind, const QString &text) {
  m_prompt.Message(kind, BoxTitle, text);
}

} // namespace tolmira
