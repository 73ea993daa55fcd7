#include "slides/ui/slide_windows.h"

#include "controls/ui/close_all.h"
#include "display/ui/web_page_host.h"
#include "foundation/drafts.h"
#include "foundation/file_name.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "slides/FrmListaSlides.h"
#include "slides/FrmSlides.h"
#include "slides/slide_drafts.h"
#include "slides/ui/slide_preview.h"

#include <QObject>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
enum Answer { OpenIt = 0, DropIt = 2 };

} // namespace

SlideWindows::SlideWindows(SlideDoors doors) : m_doors(std::move(doors)) {}
SlideWindows::~SlideWindows() {
  m_editors.clear(); // it tells the state that it has gone
}

void SlideWindows::AbreLista() {
  if (!m_lista) {
    const auto edita = [this](const QString &path) {
      if (!Edita(path))
        m_doors.prompt.Message(MessageKind::Information, BoxTitle, QStringLiteral("Slide not found"));
    };
    const auto importa = [this] {
      m_doors.importa(
          [this](const QStringList &imagens, const QString &nome) { return AbreComImagens(imagens, nome); });
    };
    m_lista =
        std::make_unique<FrmListaSlides>(m_doors, m_estado, FrmListaSlides::Editor{[this] { Novo(); }, edita, importa});
  }
  m_lista->Open();
}

void SlideWindows::AgendaChanged() {
  if (m_lista)
    m_lista->AtualizaAgenda();
}

FrmSlides *SlideWindows::Make(const QString &pedido) {
  FrmSlides *editor = m_editors.emplace_back(std::make_unique<FrmSlides>(m_doors, m_estado)).get();
  const auto salvou = [this, outro = QString(pedido)](const QString &oldName, const QString &newName) mutable {
    if (!oldName.isEmpty())
      m_doors.console.ProcessaEditarSlide(oldName, newName);
    // An agenda may know the document by another spelling than the disk; from now on it has the disk's.
    if (outro != oldName && outro.compare(oldName, Qt::CaseInsensitive) == 0)
      m_doors.console.ProcessaEditarSlide(outro, newName);
    outro.clear();
    if (m_lista && m_lista->isVisible())
      m_lista->AtualizaLista(BaseNameBefore(newName, QStringLiteral(".")));
  };
  QObject::connect(editor, &FrmSlides::Salvou, editor, salvou);
  QObject::connect(editor, &FrmSlides::Closed, editor, [this, editor] { ForgetClosed(m_editors, editor); });
  return editor;
}

bool SlideWindows::LivraEditor() {
  return m_editors.empty() || CloseAll(m_editors, m_closing);
}

void SlideWindows::Novo() {
  AbreComImagens({}, {});
}

bool SlideWindows::AbreComImagens(const QStringList &imagens, const QString &nome) {
  if (!LivraEditor())
    return false;
  FrmSlides *editor = Make();
  editor->LoadSlide({});
  if (!imagens.isEmpty())
    editor->TomaImagens(imagens, nome);
  editor->Open();
  return true;
}

bool SlideWindows::Edita(const QString &path) {
  if (!m_editors.empty() && IsSameFile(m_editors.front()->Path(), path)) {
    m_editors.front()->Open();
    return true;
  }
  if (!LivraEditor())
    return true; // the operator wants to go on with the other one
  FrmSlides *editor = Make(FileNameOf(path));
  if (!editor->LoadSlide(path)) {
    m_editors.clear();
    if (!FileExists(path))
      return false;
    m_doors.prompt.Message(MessageKind::Warning, BoxTitle,
                           QStringLiteral("These slides cannot be read. Their file is damaged, or it is no text.\n\n") +
                               FileNameOf(path));
    return true;
  }
  editor->Open();
  return true;
}

bool SlideWindows::FechaTodos() {
  return LivraEditor();
}

void SlideWindows::OfereceRascunhos() {
  const DraftFolder drafts(m_doors.store.App());
  for (const DraftFolder::Found &found : drafts.All()) {
    const std::optional<SlideDraft> draft = SlideDraftFrom(found.draft);
    if (!draft)
      continue;
    if (!m_editors.empty())
      return; // one editor: the others are offered again at the next start
    const QString nome = TidyFileName(draft->nome);
    const QString question =
        (DocumentHasChanged(*draft)
             ? QStringLiteral("Unsaved slides of '%1' were found. Their file was changed since.\n\n"
                              "Open them as new slides?")
             : QStringLiteral("Unsaved slides of '%1' were found. Open them?"))
            .arg(nome.isEmpty() ? QObject::tr("New slides") : nome);
    const int answer = m_doors.prompt.Ask(BoxTitle, question,
                                          {QStringLiteral("Open"), QStringLiteral("Later"), QStringLiteral("Discard")});
    if (answer == DropIt)
      drafts.Drop(found.id);
    if (answer != OpenIt)
      continue;
    FrmSlides *editor = Make();
    editor->LoadDraft(found.id, *draft);
    editor->Open();
  }
}

PageObject *SlideWindows::WV() const {
  return m_editors.empty() ? nullptr : m_editors.front()->Preview()->PicWV()->WV();
}

} // namespace tolmira
