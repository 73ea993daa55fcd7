#pragma once

#include <QString>
#include <optional>

class QMimeData;

namespace tolmira {

// What another window drags to the agenda's list: an entry that is not in it yet.
struct EntryDrag {
  int group = 0; // counts from 1, as the list's groups
  QString label;
  QString target;

  QMimeData *ToMime() const; // the caller owns it
  static std::optional<EntryDrag> FromMime(const QMimeData *data);
};

} // namespace tolmira
