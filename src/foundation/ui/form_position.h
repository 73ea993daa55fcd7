#pragma once

#include "foundation/ini_store.h"
#include "foundation/seams.h"

#include <QPointer>
#include <QWidget>

namespace tolmira {

// Every secondary window opens where it was closed. A window's section is its object name, followed with `useTag` by
// its dynamic property "varTAG".
class FormPositions {
public:
  // `console` is the window that the others are kept within; the referenced objects outlive this one.
  FormPositions(const IniStore &store, Yielder &yielder) : m_store(store), m_yielder(yielder) {}
  void SetConsole(QWidget *console) { m_console = console; }

  // On unload.
  void SaveFormPosition(const QWidget &form, bool useTag) const;
  // On load; a window that is larger than its screen becomes as large as that. `fixedTop` and `fixedLeft` in pixels; 0
  // means centred. Yields twice at the end.
  void RestoreFormPosition(QWidget &form, bool useTag, int fixedTop = 0, int fixedLeft = 0) const;
  // A window that stands on no monitor any more, or behind `covered` (pixels; empty for nothing), comes to the middle
  // of the console's monitor.
  void TrazDeVolta(QWidget &form, const QRect &covered) const;

private:
  const IniStore &m_store;
  Yielder &m_yielder;
  QPointer<QWidget> m_console;
};

} // namespace tolmira
