#pragma once

#include <QString>

namespace tolmira {

// A song has no title line: its file name is "<title> (<author>).txt", or the title alone.
struct SongName {
  QString title;
  QString author; // may be empty

  friend bool operator==(const SongName &, const SongName &) = default;
};

// Both parts trimmed, without the control characters that no file name should hold.
SongName TidyName(const SongName &name);

// What stands in front of the last "(" is the title when the name ends with ")".
SongName SongNameOf(const QString &path);

// The file's name without folder and ".txt".
QString TitleOfFile(const SongName &name);

// A sentence that says why no file can have this name; empty when one can.
QString ProblemOf(const SongName &name);

} // namespace tolmira
