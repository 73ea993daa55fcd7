#include "foundation/ui/form_position.h"

#include "foundation/window_position.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVariant>

namespace tolmira {
namespace {

QString SectionOf(const QWidget &form, bool useTag) {
  return useTag ? QString(form.objectName() + form.property("varTAG").toString()) : form.objectName();
}

// What the desktop puts round a window. One that never stood on it does not know, so the console's counts.
QSize FrameOf(const QWidget &form, const QWidget *console) {
  const QSize own = form.frameGeometry().size() - form.size();
  return own.isNull() && console ? console->frameGeometry().size() - console->size() : own;
}

} // namespace

void FormPositions::SaveFormPosition(const QWidget &form, bool useTag) const {
  tolmira::SaveFormPosition(m_store, SectionOf(form, useTag), form.pos());
}

void FormPositions::RestoreFormPosition(QWidget &form, bool useTag, int fixedTop, int fixedLeft) const {
  const QScreen *screen = m_console ? m_console->screen() : QGuiApplication::primaryScreen();
  const QSize frame = FrameOf(form, m_console);
  if (screen && m_console != &form) // a small screen must show its lowest row of buttons too
    form.resize(form.size().boundedTo(screen->availableGeometry().size() - frame));
  WindowPlacement placement;
  placement.window = QRect(form.pos(), form.size() + frame);
  placement.screen = screen ? screen->geometry() : QRect();
  placement.console = m_console ? m_console->frameGeometry() : placement.screen;
  placement.isConsole = m_console == &form;
  placement.consoleMinimised = m_console && m_console->isMinimized();
  placement.fixedTop = fixedTop;
  placement.fixedLeft = fixedLeft;
  form.move(RestoredFormPosition(m_store, SectionOf(form, useTag), placement));
  m_yielder.Yield(2);
}

void FormPositions::TrazDeVolta(QWidget &form, const QRect &covered) const {
  const QPoint middle = form.frameGeometry().center();
  if (QGuiApplication::screenAt(middle) && !covered.contains(middle))
    return;
  const QScreen *screen = m_console ? m_console->screen() : QGuiApplication::primaryScreen();
  if (!screen)
    return;
  const QRect room = screen->availableGeometry();
  const QSize size = form.frameGeometry().size();
  form.move(room.left() + qMax(0, (room.width() - size.width()) / 2),
            room.top() + qMax(0, (room.height() - size.height()) / 2));
}

} // namespace tolmira
