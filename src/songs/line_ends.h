#pragma once

#include <QString>

namespace tolmira {

// Runs of line ends are the only structure of a song's text: two make the blank line between stanzas.
inline const QString LineEnd = QStringLiteral("\r\n");
inline const QString TwoLineEnds = QStringLiteral("\r\n\r\n");
inline const QString ThreeLineEnds = QStringLiteral("\r\n\r\n\r\n");
inline const QString FourLineEnds = QStringLiteral("\r\n\r\n\r\n\r\n");

} // namespace tolmira
