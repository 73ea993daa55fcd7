#pragma once

#include <QIcon>
#include <QLatin1String>

#include "controls/ui/palette.h"

namespace tolmira {

// One of the program's drawings (icons/<name>.svg, a 24 px grid) in a colour of the palette, sharp at any size. A
// disabled control gets it in the disabled colour.
QIcon DeskIcon(QLatin1String name, QRgb colour = cores::Text);

} // namespace tolmira
