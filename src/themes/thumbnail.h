#pragma once

#include <QSize>
#include <QString>

namespace tolmira {

// Writes `picture`, cut to fill `sizePx`, to `target` as a JPEG of quality 90. Both are stored paths; the folder of
// `target` must exist. False, with nothing written, when the picture cannot be read or the file not be written.
bool MakeThumbnail(const QString &picture, const QString &target, const QSize &sizePx);

} // namespace tolmira
