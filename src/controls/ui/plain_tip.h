#pragma once

#include <QString>
#include <QTextDocument>

namespace tolmira {

// For texts that come from elsewhere: a tool tip takes markup where it finds any, and this one shows it as it stands.
inline QString PlainTip(const QString &text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace tolmira
