#pragma once

class QKeyEvent;
class QWidget;

namespace tolmira {

// The keys that a window of the Bible has wherever the focus is, unless the control there wants them: Enter presses the
// button that has the focus, Escape closes the window. True when the key was used.
bool PressedInDialog(QWidget &window, const QKeyEvent &event);

} // namespace tolmira
