#pragma once

#include <QString>

namespace tolmira {

// Into the desktop's trash where there is one, else for good. True when the file is gone; one that was gone before
// counts as removed, and a folder that took its place is not touched.
bool RemoveToTrash(const QString &storedPath);

} // namespace tolmira
