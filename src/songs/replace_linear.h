#pragma once

#include <QString>

namespace tolmira {

// What QString::replace does, in time that grows only with the length of the text. The toolkit's search takes minutes
// where a long pattern almost repeats itself all over the text, as the stanzas of a song of refrains do.
QString ReplaceInLinearTime(const QString &text, const QString &old, const QString &replacement);

} // namespace tolmira
