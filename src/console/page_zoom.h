#pragma once

#include "console/console_context.h"

namespace tolmira {

// Sets the zoom of both pages by the kind and style of what is on show, and the zoom slider with it.
void ApplyZoom(ConsoleContext &console);

} // namespace tolmira
