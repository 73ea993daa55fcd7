#pragma once

class QString;

namespace tolmira {

// Moves the file into the desktop's trash. False when it is still where it was; then there is no trash to be had.
bool MoveToTrash(const QString &path);

// Into the trash, or for good where there is none. True when the file is gone; one that was gone before counts as
// removed, and a folder that took its place is not touched.
bool RemoveFile(const QString &storedPath);

} // namespace tolmira
