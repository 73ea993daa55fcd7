#include "console/key_table.h"

#include <Qt>

namespace tolmira {

KeyTable::KeyTable(ConsoleContext &console, VerseStepper &stepper, PresentationFlow &flow, AgendaDesk &agenda,
                   BibleLoader &leitura, ControlSlides &slides)
    : m_console(console), m_stepper(stepper), m_flow(flow), m_agenda(agenda), m_leitura(leitura), m_slides(slides) {}

// The paging keys are those of hand-held presenters too. In a list that has the focus they are the list's.
bool KeyTable::TeclaDeSlide(int key, bool onList) {
  switch (key) {
  case Qt::Key_Down:
  case Qt::Key_Right:
    m_slides.Passo(1);
    return true;
  case Qt::Key_Up:
  case Qt::Key_Left:
    m_slides.Passo(-1);
    return true;
  default:
    break;
  }
  if (onList)
    return false;
  switch (key) {
  case Qt::Key_PageDown:
    m_slides.Passo(1);
    return true;
  case Qt::Key_PageUp:
    m_slides.Passo(-1);
    return true;
  case Qt::Key_Home:
    m_slides.Escolhe(1);
    return true;
  case Qt::Key_End:
    m_slides.Escolhe(m_slides.Documento().Count());
    return true;
  default:
    return false;
  }
}

bool KeyTable::KeyDown(int key, bool ctrl, bool onList) {
  if (ctrl) {
    if (key == Qt::Key_B && Image9) {
      Image9();
      return true;
    }
    if ((key == Qt::Key_A || key == Qt::Key_M) && AddBar) {
      AddBar(key == Qt::Key_A ? 7 : 0);
      return true;
    }
  }

  if (m_slides.Visible() && TeclaDeSlide(key, onList))
    return true;
  const bool biblia = m_console.estado.TipoAtual == u"Bíblia";
  const bool label1 = m_console.faixa.Label1Visible;
  if (biblia && (key == Qt::Key_Up || key == Qt::Key_Left || key == Qt::Key_Down || key == Qt::Key_Right)) {
    m_leitura.CMDProximo_Click(key == Qt::Key_Up || key == Qt::Key_Left ? 1 : 0);
    return true;
  }
  switch (key) {
  case Qt::Key_Control:
    m_stepper.CtrlDown();
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!onList || !m_agenda.Lista().HasSelection())
      return false;
    m_flow.exibirSelecinado();
    return true;
  case Qt::Key_Up:
    // Without the test of the strip that the other three keys have; with no song loaded the step finds no verse.
    if (!label1 && m_console.estado.TotalEstrofes == 0)
      return false;
    m_stepper.TeclaEstrofe(-1);
    return true;
  case Qt::Key_Left:
    if (!label1)
      return false;
    m_stepper.TeclaEstrofe(-1);
    return true;
  case Qt::Key_Down:
  case Qt::Key_Right:
    if (!label1)
      return false;
    m_stepper.TeclaEstrofe(1);
    return true;
  default:
    return false;
  }
}

bool KeyTable::KeyUp(int key) {
  if (key != Qt::Key_Control)
    return false;
  m_stepper.CtrlUp();
  if (m_slides.Visible())
    m_slides.SoltouCtrl();
  return true;
}

} // namespace tolmira
