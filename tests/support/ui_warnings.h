#pragma once

#include <QRegularExpression>

namespace tolmira::testing {

// Every warning but those by which the offscreen desktop says that it has no window manager.
inline QRegularExpression UnexpectedWarning() {
  return QRegularExpression(QStringLiteral("^(?!This plugin does not support )"));
}

} // namespace tolmira::testing
