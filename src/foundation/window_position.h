#pragma once

#include <QRect>
#include <QString>

#include "foundation/ini_store.h"

namespace tolmira {

// Where a secondary window opens. All rectangles are in pixels; the file keeps twips (15 to the pixel).
struct WindowPlacement {
  QRect window;            // the size counts; the position is the present one
  QRect screen;            // the screen that a centred window is centred on
  QRect console;           // the console's rectangle
  bool isConsole = false;  // the window being placed is the console itself
  bool consoleMinimised = false;
  int fixedTop = 0;        // 0 means centred
  int fixedLeft = 0;
};

// The section of a window in Data\FormPositions.dat is its name followed by its tag.
void SaveFormPosition(const IniStore &store, const QString &section, const QPoint &topLeft);

// The top left corner for the window: the saved one when it lies within the console's span, else centred.
QPoint RestoredFormPosition(const IniStore &store, const QString &section, const WindowPlacement &placement);

} // namespace tolmira
