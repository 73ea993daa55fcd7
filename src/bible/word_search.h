#pragma once

#include <QString>
#include <QStringList>

#include "bible/version_text.h"

namespace tolmira {

// A search by words over a version: case and accents do not matter, every word must occur (whole words), a phrase in
// double quotes must stand as it is. Works in slices, so that the window lists results as they are found and stays
// answerable.
struct SearchHit {
  int book = 0; // 1 to 66
  int chapter = 0;
  int verse = 0;
  QString text; // of the verse, without its number
};

} // namespace tolmira
