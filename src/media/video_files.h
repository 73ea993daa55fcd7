#pragma once

#include "foundation/ini_store.h"
#include "foundation/seams.h"

#include <QString>
#include <QStringList>

namespace tolmira {

inline constexpr int TipoVideoDaAgenda = 4; // kind of an agenda entry

// Asks for videos, beginning in the folder where one was picked last, and remembers that of the chosen ones. Files that
// are not there are left out. Empty when the operator gave up.
QStringList EscolheVideos(const IniStore &store, UserPrompt &prompt);
// The same for one file, beginning beside `atual`.
QString EscolheOutroVideo(const IniStore &store, UserPrompt &prompt, const QString &atual);

// The label of a video in the agenda: its file's name without the extension.
QString NomeDoVideo(const QString &path);
// A sound without pictures, by the kind of file that it is.
bool EhSoAudio(const QString &path);

} // namespace tolmira
