#pragma once

#include <algorithm>

namespace tolmira {

// Closes every editor of a house that owns them (pointers; each with Ocupado(), and gone from `editors` when it has closed).
// False when one stays: the operator wants to, or its own question stands open. `closing` says meanwhile that this runs, so that
// a second call from inside one of the questions leaves it alone.
template <class Editors> bool CloseAll(Editors &editors, bool &closing) {
  if (closing || std::any_of(editors.begin(), editors.end(), [](const auto &one) { return one->Ocupado(); }))
    return false;
  closing = true;
  while (!editors.empty()) {
    auto &editor = *editors.back();
    editor.raise();
    const auto before = editors.size();
    // One whose own question stands open says that it is closed and stays.
    if (!editor.close() || editors.size() == before)
      break;
  }
  closing = false;
  return editors.empty();
}

} // namespace tolmira
