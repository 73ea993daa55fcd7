#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace tolmira {

// The keys of a small window that controls what is on show: Space does one thing wherever the focus is, and never
// presses the button that happens to have it, which might be the one that ends what is on show. Enter presses that one.
class PlayKeys : public QObject {
public:
  // For all parts of the window that can have the focus by now. The window owns this.
  PlayKeys(QWidget *window, std::function<void()> space);

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  std::function<void()> m_space;
};

} // namespace tolmira
