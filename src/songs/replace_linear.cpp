#include "songs/replace_linear.h"

#include <vector>

namespace tolmira {

namespace {

// For each position of the pattern, the length of the longest proper border of what ends there (Knuth, Morris, Pratt).
std::vector<qsizetype> BordersOf(const QString &pattern) {
  std::vector<qsizetype> borders(static_cast<std::size_t>(pattern.size()), 0);
  qsizetype border = 0;
  for (qsizetype i = 1; i < pattern.size(); ++i) {
    while (border > 0 && pattern[i] != pattern[border])
      border = borders[static_cast<std::size_t>(border - 1)];
    if (pattern[i] == pattern[border])
      ++border;
    borders[static_cast<std::size_t>(i)] = border;
  }
  return borders;
}

} // namespace

QString ReplaceInLinearTime(const QString &text, const QString &old, const QString &replacement) {
  if (old.isEmpty() || old.size() > text.size())
    return text;
  const std::vector<qsizetype> borders = BordersOf(old);
  QString result;
  qsizetype copied = 0;
  qsizetype matched = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    while (matched > 0 && text[i] != old[matched])
      matched = borders[static_cast<std::size_t>(matched - 1)];
    if (text[i] == old[matched])
      ++matched;
    if (matched == old.size()) {
      const qsizetype found = i + 1 - matched;
      result.append(QStringView(text).sliced(copied, found - copied)).append(replacement);
      copied = i + 1;
      matched = 0;
    }
  }
  return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

} // namespace tolmira
