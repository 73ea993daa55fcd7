#pragma once

namespace tolmira {

// Whether the browser engine can be started here. It ends the whole program when it cannot start its processes, so what
// can be known is looked at before.
bool EngineCanStart();

} // namespace tolmira
