#pragma once

#include <QWindow>
#include <vector>

namespace tolmira {

// What the window manager keeps of the projection's state: no entry in the task bar, and the whole screen where it was
// asked for. A manager that is still busy with the window's hiding takes the state away after the window was shown with
// it, and the toolkit does not notice. Without X11 nothing is known or done.
class StateOnX11 {
public:
  StateOnX11();

  // Asks once more for what is missing, a few times for each showing: a manager may refuse.
  void Restore(WId window, bool fullScreen);
  void Shown() { m_asked = 0; }
  // Whether a native event tells of a change of some window's state.
  bool IsChange(const QByteArray &eventType, const void *message) const;

private:
  std::vector<uint> Kept(WId window) const;

  uint m_state = 0; // atoms of the server; 0 without X11
  uint m_fullScreen = 0;
  uint m_skipTaskbar = 0;
  uint m_skipPager = 0;
  int m_asked = 0;
};

} // namespace tolmira
