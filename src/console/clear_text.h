#pragma once

#include "console/console_context.h"

namespace tolmira {

class VerseStepper;

// The console holds no text of a song or a passage any more, and shows no tip about one. Nothing is sent.
void EsvaziaConsole(ConsoleContext &console, VerseStepper &stepper);

} // namespace tolmira
