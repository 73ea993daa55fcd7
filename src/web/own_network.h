#pragma once

#include <QString>

namespace tolmira {

// Whether a host, as QUrl gives it, is this machine or lies in a network of its own: by its number, or by a name that
// only such a network knows. What the web gave must not make the program ask there. A name of the public web that leads
// to such a number is not seen through.
bool DaRedePropria(const QString &host);

} // namespace tolmira
