#pragma once

#include "foundation/app_folder.h"
#include "foundation/code_page.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// Song files and the text inside them, up to the point where the text is cut into verses.

enum class TipoLouvor { Louvor, Harpa };

// "\harpa\" or "\cantor\" anywhere in the path, in any case ("/" counts as "\").
TipoLouvor TipoDoCaminho(const QString &path);

// Reads a song and, under <app>\Harpa and <app>\Lyrics, repairs it and writes the repaired text back. A file that holds
// a NUL byte or could not be read whole is never rewritten. Empty when the file does not exist.
QString ReadSongFile(const AppFolder &app, const QString &path);
// Writes a song with a line end behind it and looks whether it reads back. False when it is not on disk whole; what was
// there before then stands. A text that the encoding cannot hold makes the file UTF-8, and `encoding` says so.
bool WriteSongFile(const QString &path, const QString &text, TextEncoding &encoding);
QString CleanSongText(const QString &text);
QString CollapseBlankRuns(const QString &text);

// The stanzas of a song: the pieces between blank lines, trimmed, blank ones included. A line "-" inside a stanza
// becomes a line with one blank in it.
QStringList SplitStanzas(const QString &text);

// Sets the capital-letter chorus of a hymn behind every stanza. A text that is not laid out exactly as a hymn (numbered
// stanzas, the chorus second) comes back unchanged.
QString RepeatChorus(const QString &text);

// The full stored path of what an agenda entry or the operator gives; empty when there is no such file.
QString ResolveSongPath(const AppFolder &app, const QString &name);

struct PreparedSong {
  QString text;       // CR LF, capitals applied
  QString sourceText; // the same before capitals
  QString fileName;   // the title: file name without folder and ".txt"; empty when the text itself was given
  TipoLouvor tipo = TipoLouvor::Louvor;
  bool maiusculo = false;
};

// `pathOrText` that does not end in ".txt" (any case) is the song's text itself.
PreparedSong PrepareSongText(const AppFolder &app, const QString &pathOrText, bool capitals);

// The stanza around the caret (0-based position) of a multi-line text.
QString StanzaAtCaret(const QString &text, int caret);

} // namespace tolmira
