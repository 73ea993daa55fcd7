#pragma once

#include <QDate>
#include <QString>

namespace tolmira {

// Stateless text routines that many windows share. None reports an error: bad input gives a harmless result.

QString FoldText(const QString &text);      // for comparison: no accents, no case, single blanks
QString ReplaceAll(QString text, const QString &old, const QString &replacement); // until none is left
QString TitleCaseSong(const QString &text); // capitals of a song title
QString StripMarkup(const QString &text);   // plain text of an HTML fragment
QString RepairEntities(const QString &text);// HTML fragment of a lyric to plain text with CR LF line ends
QString ColorToHex(qint32 color);           // 0x00BBGGRR to "#RRGGBB"
QString UrlDecode(const QString &text);     // "+" and "%xx" (one windows-1252 byte each)
QString UrlDecodeSplit(const QString &text);
QString UrlEncode(const QString &text);

QString FileNameOf(const QString &path);    // behind the last "\" or "/"
QString FileNameWithoutExtension(const QString &path, const QString &delimiter);
QString ExtensionOf(const QString &name);   // behind the last "."
QString FolderOf(const QString &path, const QString &delimiter); // up to and including the last delimiter
// "Foto.jpg", "Foto(1).jpg", "Foto(2).jpg" ... The number is read behind the first "(" and put behind the last one, so
// a name with two of them can come back unchanged: a caller that looks for a free name must stop there.
QString NextFreeName(const QString &name);

// A version "1.2.3" as the number by which versions are compared, as text: 12003.
QString VersionCode(const QString &version);
bool VersionIsNewer(const QString &current, const QString &latest); // by the text of their codes
// `shortPattern` is the system's short date pattern; the three-number form asks the system locale for it.
QDate FormatDate(int day, int month, int year, const QString &shortPattern);
QDate FormatDate(int day, int month, int year);

// Escapes what a text needs to stand inside HTML ("&", "<", ">").
QString EscapeHtml(const QString &text);

} // namespace tolmira
