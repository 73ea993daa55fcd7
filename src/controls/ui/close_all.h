#pragma once

#include <algorithm>

namespace tolmira {

// Closes every editor of a house that owns them (pointers; each with Ocupado(), and gone from `editors` when it has
// closed). False when one stays: the operator wants to, or its own question stands open. `closing` says meanwhile that
// this runs, so that a second call from inside one of the questions leaves it alone.
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

// Takes an editor that has closed out of the house. It is still handling the event that closed it, so it goes later.
template <class Editors, class Editor> void ForgetClosed(Editors &editors, Editor *closed) {
  const auto found =
      std::find_if(editors.begin(), editors.end(), [closed](const auto &one) { return one.get() == closed; });
  if (found == editors.end())
    return;
  found->release()->deleteLater();
  editors.erase(found);
}

} // namespace tolmira
