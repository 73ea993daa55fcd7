#pragma once

#include <QString>
#include <QStringList>

namespace tolmira {

// Names that somebody types and that become files: the rules of every system to which the files may be carried.

QString TidyFileName(QString name);                   // trimmed, a blank for each control character
QStringList ForbiddenInFileName(const QString &name); // the characters of `name` that no file name can hold, each once
bool IsTooLongForFileName(const QString &nameWithExtension);

} // namespace tolmira
