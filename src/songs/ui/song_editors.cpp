#include "songs/ui/song_editors.h"

#include "controls/ui/close_all.h"
#include "foundation/real_path.h"
#include "songs/FrmConfigFormatTexto.h"
#include "songs/FrmEditar.h"
#include "songs/song_drafts.h"

#include <QObject>
#include <algorithm>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
enum Answer { OpenIt = 0, DropIt = 2 };

} // namespace

SongEditors::SongEditors(SongEditorDoors doors, TextFormatDoors formato)
    : m_doors(std::move(doors)), m_formatDoors(std::move(formato)), m_spelling(InstalledDictionaries()) {}

SongEditors::~SongEditors() = default;

FrmEditar *SongEditors::Make(SongEditorParent *parent) {
  FrmEditar *editor = m_editors.emplace_back(std::make_unique<FrmEditar>(m_doors, m_spelling)).get();
  editor->SetFormPai(parent);
  editor->AbertoEmOutro = [this, editor](const QString &path) {
    const FrmEditar *found = EditorOf(path);
    return found && found != editor;
  };
  QObject::connect(editor, &FrmEditar::FormatWanted, editor, [this] { AbreFormato(); });
  QObject::connect(editor, &FrmEditar::Closed, editor, [this, editor] { ForgetClosed(m_editors, editor); });
  return editor;
}

FrmEditar *SongEditors::EditorOf(const QString &path) const {
  const auto found = std::find_if(m_editors.begin(), m_editors.end(),
                                  [&path](const auto &one) { return IsSameFile(one->Caminho(), path); });
  return found == m_editors.end() ? nullptr : found->get();
}

void SongEditors::Novo(SongEditorParent *parent) {
  FrmEditar *editor = Make(parent);
  editor->SetDados(ModoAdicionar, {});
  editor->Open();
}

bool SongEditors::Edita(const QString &path, SongEditorParent *parent) {
  if (FrmEditar *open = EditorOf(path)) {
    open->Open();
    return true;
  }
  FrmEditar *editor = Make(parent);
  if (!editor->SetDados(ModoEditar, path)) {
    m_editors.pop_back();
    return false;
  }
  editor->Open();
  return true;
}

bool SongEditors::EstaAberto(const QString &path) const {
  return EditorOf(path) != nullptr;
}
bool SongEditors::AbertoEmOutra(const QString &path) const {
  return !m_editors.empty() && !EstaAberto(path);
}

bool SongEditors::FechaTodos() {
  return CloseAll(m_editors, m_closing);
}

void SongEditors::OfereceRascunhos(SongEditorParent *parent) {
  const SongDrafts drafts(m_doors.store.App());
  for (const SongDrafts::Found &found : drafts.All()) {
    if (EditorOf(found.draft.path))
      continue; // one file, one editor: this draft is offered again when that one is done
    const QString title = found.draft.title.trimmed();
    const QString question = (SongDrafts::SongHasChanged(found.draft)
                                  ? QStringLiteral("An unsaved text of '%1' was found. The song was changed since.\n\n"
                                                   "Open the text as a new song?")
                                  : QStringLiteral("An unsaved text of '%1' was found. Open it?"))
                                 .arg(title.isEmpty() ? QObject::tr("New song") : title);
    const int answer = m_doors.prompt.Ask(BoxTitle, question,
                                          {QStringLiteral("Open"), QStringLiteral("Later"), QStringLiteral("Discard")});
    if (answer == DropIt)
      drafts.Folder().Drop(found.id);
    if (answer != OpenIt)
      continue;
    FrmEditar *editor = Make(parent);
    editor->SetDados(found);
    editor->Open();
  }
}

void SongEditors::AbreFormato() {
  if (!m_format)
    m_format = std::make_unique<FrmConfigFormatTexto>(m_doors, m_formatDoors);
  m_format->Open();
}

void SongEditors::RefazFormato() {
  if (m_format)
    m_format->Refaz();
}

} // namespace tolmira
