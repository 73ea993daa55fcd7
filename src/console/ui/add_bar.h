#pragma once

#include <QWidget>

#include <array>
#include <functional>

#include "controls/ui/flat_button.h"

namespace tolmira {

// The bar between desk and themes: one button a kind of item, from 0 (Lyrics) to 7 (Notices).
class AddBar : public QWidget {
  Q_OBJECT

public:
  explicit AddBar(QWidget *parent);

  // Buttons have no window behind them until they are given one.
  void SetWindow(int index, const QString &tip, std::function<void()> open);
  void SetCompact(bool compact);
  void Press(int index); // nothing where there is no window

private:
  std::array<FlatButton *, 8> m_buttons{};
};

} // namespace tolmira
