#pragma once

class QString;

namespace tolmira {

// Moves the file into the desktop's trash. False when it is still where it was; then there is no trash to be had.
bool MoveToTrash(const QString &path);

} // namespace tolmira
