#pragma once

#include <QPushButton>

namespace tolmira {

// A button that is a drawing alone (a name of the icons). `spoken` is both its tool tip and its name for a screen
// reader.
QPushButton *NewIconButton(const QString &name, const char *drawing, const QString &spoken, QWidget *parent);

} // namespace tolmira
