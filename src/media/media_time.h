#pragma once

#include <QString>

namespace tolmira {

// A place in a file as clocks write it: "03:07", from an hour on "1:03:07". Anything below 0 counts as 0.
QString TempoDeMidia(double seconds);

} // namespace tolmira
