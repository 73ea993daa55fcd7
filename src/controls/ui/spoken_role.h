#pragma once

#include <QAccessible>

class QWidget;

namespace tolmira {

// The role by which a screen reader announces a widget that the toolkit knows nothing of. To be called first in the
// widget's constructor: giving it a name makes its interface. Its name is the accessible name, as everywhere.
void SetSpokenRole(QWidget *widget, QAccessible::Role role);

} // namespace tolmira
