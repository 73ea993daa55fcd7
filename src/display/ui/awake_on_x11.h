#pragma once

namespace tolmira {

// Tells the X server that somebody is there, so that neither its screen saver nor its power saving darkens the
// projector in the middle of a film. Holds until the server's own time is over; to be called again before. Does nothing
// elsewhere.
void KeepScreenAwake();

} // namespace tolmira
