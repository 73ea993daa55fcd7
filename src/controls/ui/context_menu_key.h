#pragma once

#include <QObject>

namespace tolmira {

// Opens the menu of what has the focus by Shift+F10 in every window; the toolkit itself knows only the menu key, which
// many keyboards lack. Works for as long as it lives, from the making of the application on.
class ContextMenuKey : public QObject {
public:
  ContextMenuKey();

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace tolmira
