#pragma once

#include "foundation/code_page.h"

#include <QByteArray>
#include <QString>

class QIODevice;
class QSaveFile;

namespace tolmira {

// What reading a file came to. A reader that would write back what it read must look at `complete` first.
struct FileContent {
  QByteArray bytes;
  bool exists = false;
  bool complete = false; // every byte up to the end was read, and the limit was not reached
};

// No text file of the program comes near this; what is larger is read up to the limit and counts as incomplete.
inline constexpr qint64 TextFileLimit = 64 * 1024 * 1024;

// Reads at most `limit` bytes; the device form serves tests that hand in a device which fails after n bytes.
FileContent ReadFileContent(const QString &storedPath, qint64 limit = TextFileLimit);
FileContent ReadDevice(QIODevice &device, qint64 limit = TextFileLimit);

// The file's text (DecodeText); empty on any failure.
QString ReadWholeFile(const QString &storedPath);

// Replaces the file as one step: after a kill or on a full disk it is the old one or the new one, whole. Makes no
// folder. False when nothing was written; the old content then stands.
bool WriteFileAtomically(const QString &storedPath, const QByteArray &bytes);

// The same without waiting for the disk: a crash of the program loses nothing that way, one of the machine may. For
// what is written often or can be made again.
bool ReplaceFile(const QString &storedPath, const QByteArray &bytes);

// The last step for whoever fills a QSaveFile itself: puts it in its place only when every byte reached the disk, which
// commit() alone does not make sure of.
bool CommitWhole(QSaveFile &file);

// Writes `text` and a line end to `path` (CR and LF are taken out of the path), in windows-1252 as EncodeText does; a
// file that was UTF-8 stays UTF-8.
// With `verify` clear the result is whether the file now exists, with `verify` set whether it reads back equal.
bool WriteTextFile(const QString &text, const QString &path, bool verify);

// True when the path names an existing file (not a folder). Any error counts as "does not exist".
bool FileExists(const QString &storedPath);

// "file:///" and the path as a page can open it: as stored, unless the engine could not open it that way (other case,
// backslashes inside a name, or one of "%", "#", "?", "'"): then the real path, percent-encoded.
QString PagePath(const QString &storedPath);

} // namespace tolmira
