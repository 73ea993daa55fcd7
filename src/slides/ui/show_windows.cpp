#include "slides/ui/show_windows.h"

#include "controls/ui/close_all.h"
#include "foundation/real_path.h"
#include "foundation/text_utils.h"
#include "slides/FrmListaSlidesShow.h"
#include "slides/FrmSlideShow.h"
#include "slides/FrmSlideShowControl.h"

namespace tolmira {

ShowWindows::ShowWindows(ShowDoors doors) : m_doors(std::move(doors)) {}
ShowWindows::~ShowWindows() = default;

void ShowWindows::AbreLista() {
  if (!m_lista)
    m_lista = std::make_unique<FrmListaSlidesShow>(
        m_doors, FrmListaSlidesShow::Editor{[this] { return !m_editors.empty(); }, [this] { Novo(); },
                                            [this](const QString &path) { Edita(path); }});
  m_lista->Open();
}

void ShowWindows::AgendaChanged() {
  if (m_lista)
    m_lista->AtualizaAgenda();
}

void ShowWindows::Novo() { AbreEditor(QString()); }

void ShowWindows::Edita(const QString &path) {
  if (m_editors.empty())
    AbreEditor(path);
  else if (IsSameFile(m_editors.back()->Path(), path))
    m_editors.back()->Open();
  else
    m_doors.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                           QStringLiteral("First, close the slideshow editing screen."));
}

void ShowWindows::AbreEditor(const QString &path) {
  FrmSlideShow *editor = m_editors.emplace_back(std::make_unique<FrmSlideShow>(m_doors)).get();
  QObject::connect(editor, &FrmSlideShow::Closed, editor, [this, editor] { ForgetClosed(m_editors, editor); });
  QObject::connect(editor, &FrmSlideShow::Salvou, editor, [this](const QString &nome) {
    if (m_lista && m_lista->isVisible())
      m_lista->AtualizaLista(nome);
  });
  if (editor->CarregarSlide(path)) {
    editor->Open();
    return;
  }
  m_editors.pop_back();
  m_doors.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"),
                         QStringLiteral("This slide show cannot be read. Its file is damaged, or it is no text.\n\n") +
                             FileNameOf(path));
}

bool ShowWindows::FechaTodos() { return CloseAll(m_editors, m_closing); }

PageObject *ShowWindows::WV() const { return m_editors.empty() ? nullptr : m_editors.back()->WV(); }

void ShowWindows::AbreControle(const QString &path) {
  if (!m_control) {
    m_control = std::make_unique<FrmSlideShowControl>(m_doors);
    QObject::connect(m_control.get(), &FrmSlideShowControl::Closed, m_control.get(),
                     [this] { m_control.release()->deleteLater(); });
  }
  FrmSlideShowControl *control = m_control.get();
  control->Open();
  control->SetSlideShow(path);
}

bool ShowWindows::FechaControle() {
  if (!m_control)
    return false;
  m_control->close();
  return true;
}

void ShowWindows::ImagemMudou(const QString &nome) {
  if (m_control)
    m_control->ImagemMudou(nome);
}

} // namespace tolmira
