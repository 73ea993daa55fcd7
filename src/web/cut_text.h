#pragma once

#include <QString>
#include <QStringView>

namespace tolmira {

// What the readers of foreign pages share. All of them go through a page once, whatever it holds.

// The text between the first `from` at or behind `start` and the next `to`; empty when one of them is missing. The view
// is for callers that look at its length first: it may be the whole page.
QStringView ViewBetween(QStringView text, QStringView from, QStringView to, qsizetype start = 0);
QString CutBetween(QStringView text, QStringView from, QStringView to, qsizetype start = 0);

// Repairs UTF-8 that was read as windows-1252.
QString FixMojibake(QString text);

// One line of foreign text without what would break it, hide a part of it or turn it round: tabs and line ends become
// blanks; other control characters, marks that override the direction of writing and what is no character go.
QString LinhaLimpa(QString linha);

// What the web gave as a name, as the name of a file in one folder: no folders, no characters that some system forbids,
// no device names, no leading dots, at most 200 bytes long with its extension, which stays. Empty when nothing is left
// of it.
QString NomeSeguro(const QString &nome);

} // namespace tolmira
