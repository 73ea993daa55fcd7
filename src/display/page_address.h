#pragma once

#include <QUrl>

namespace tolmira {

// The address that the engine loads for what a Navigate names: "file:///" and a stored path (four slashes before an
// absolute one, as the pages are announced, or three), a path with its characters percent-encoded, a bare stored path,
// or a web address. A file's name is looked up without regard to case.
QUrl PageAddress(const QString &text);

} // namespace tolmira
