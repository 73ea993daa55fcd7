#pragma once

#include <QString>
#include <QStringView>

namespace tolmira {

// What the readers of foreign pages share. All of them go through a page once, whatever it holds.

// The text between the first `from` at or behind `start` and the next `to`; empty when one of them is missing.
QString CutBetween(QStringView text, QStringView from, QStringView to, qsizetype start = 0);

// Repairs UTF-8 that was read as windows-1252.
QString FixMojibake(QString text);

// What the web gave as a name, as the name of a file in one folder: no folders, no characters that some system forbids,
// no device names, no leading dots, at most 200 bytes long with its extension, which stays. Empty when nothing is left
// of it.
QString NomeSeguro(const QString &nome);

} // namespace tolmira
