#pragma once

#include <QString>

#include <functional>

#include "bible/bible_store.h"
#include "console/presentation.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

class QWidget;

namespace tolmira {

// What the windows of the Bible work with. All of it outlives them.
struct BibleDoors {
  BibleStore &biblia;
  const IniStore &store;
  Presentation &console;
  FormPositions &posicoes;
  Clock &clock;
  QWidget *dono = nullptr;                    // the console's window, which they stand over
  std::function<QString()> referenciaNoTelao; // of the passage on show; empty when there is none
};

// The key `ctrlenter` of section "Config": what Enter and Ctrl+Enter do in the add dialog and in the browser.
// "off": Enter adds and Ctrl+Enter shows; "on": the other way round.
class CtrlEnter {
public:
  explicit CtrlEnter(const IniStore &store) : m_store(store) {}
  bool IsOn() const;
  void Toggle(); // stored at once
  bool EnterShows(bool ctrl) const { return IsOn() != ctrl; }
  QString Hint() const; // "Enter adds, Ctrl+Enter shows", or the other way round

private:
  const IniStore &m_store;
};

} // namespace tolmira
