#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace tolmira {

// The text of one INI file, line by line. Sections and keys are compared without regard to case, the first section of
// a name and the first key in it count, and a change leaves every other line as it stands.

// The longest value that a reader gets.
inline constexpr qsizetype IniValueLimit = 1023;

// The value of the key as a reader gets it: trimmed, without its pair of quotation marks, cut at the first NUL and at
// the limit. Nothing when the key is missing.
std::optional<QString> IniValue(QStringView text, QStringView section, QStringView key);

// Calls `visit` with section, key and value of every key that IniValue can find, in the order of the file.
void ForEachIniValue(QStringView text,
                     const std::function<void(QStringView section, QStringView key, const QString &value)> &visit);

// The text with the key set. A new key goes behind the last line of its section that is not blank, a new section to
// the end of the text. Nothing when section or key could not be found again under their name; line ends and NUL in the
// value become blanks, so that it stays one line.
std::optional<QString> WithIniValue(const QString &text, const QString &section, const QString &key,
                                    const QString &value);

// The value as it has to stand in a file so that readers get all of it: what they would take off, blanks and a pair of
// quotation marks at its ends, they leave when one more pair stands around it.
QString QuotedIniValue(const QString &value);

} // namespace tolmira
