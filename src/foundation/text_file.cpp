#include "foundation/text_file.h"

#include "foundation/real_path.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QUrl>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace tolmira {
namespace {

Q_LOGGING_CATEGORY(logStore, "tolmira.store", QtWarningMsg)

constexpr qint64 ReadStep = 256 * 1024;

// What an address cannot hold as it is: signs with a meaning of their own there, signs that would end the quotation
// marks round the address in a page or a script, and what the address parser drops (control characters, a last blank).
bool NeedsEncoding(const QString &path) {
  static constexpr QStringView Special = u"%#?'\"<>";
  return path.endsWith(u' ') || std::any_of(path.begin(), path.end(), [](QChar character) {
           return character < u' ' || Special.contains(character);
         });
}

// Some file systems know no such call; that is no failure of the writing.
bool IsOnDisk(int descriptor) {
  return fdatasync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

} // namespace

FileContent ReadDevice(QIODevice &device, qint64 limit) {
  FileContent content;
  content.exists = device.isOpen();
  if (!device.isReadable())
    return content;
  while (content.bytes.size() < limit) {
    const qint64 wanted = std::min(ReadStep, limit - content.bytes.size());
    const qsizetype before = content.bytes.size();
    content.bytes.resize(before + wanted);
    const qint64 got = device.read(content.bytes.data() + before, wanted);
    content.bytes.resize(before + std::max<qint64>(got, 0));
    if (got < 0)
      return content;
    if (got == 0) {
      content.complete = true;
      return content;
    }
  }
  return content;
}

FileContent ReadFileContent(const QString &storedPath, qint64 limit) {
  const QString path = MapStoredPath(storedPath).text();
  FileContent content;
  const QFileInfo info(path);
  content.exists = info.exists();
  // Only plain files: opening a pipe would wait for a writer, and a folder has no text.
  if (!info.isFile())
    return content;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    return content;
  return ReadDevice(file, limit);
}

QString ReadWholeFile(const QString &storedPath) {
  const FileContent content = ReadFileContent(storedPath);
  return content.complete ? DecodeText(content.bytes).text : QString();
}

bool WriteFileAtomically(const QString &storedPath, const QByteArray &bytes) {
  const QString path = MapStoredPath(storedPath).text();
  if (path.isEmpty())
    return false;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    qCDebug(logStore) << "not written:" << path << file.errorString();
    return false;
  }
  if (file.write(bytes) != bytes.size())
    file.cancelWriting();
  const bool written = CommitWhole(file);
  qCDebug(logStore) << (written ? "written:" : "not written:") << path << bytes.size();
  return written;
}

bool ReplaceFile(const QString &storedPath, const QByteArray &bytes) {
  const QString path = MapStoredPath(storedPath).text();
  QFile file(path + QStringLiteral(".new"));
  const bool written =
      !path.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
  file.close();
  if (written && std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(path).constData()) == 0)
    return true;
  file.remove();
  return false;
}

bool CommitWhole(QSaveFile &file) {
  // What is still buffered is only tried now, and a network disk may refuse it as late as here. commit() takes both for
  // success and would put the cut-off file in the place of the old one.
  if (!file.flush() || !IsOnDisk(file.handle()))
    file.cancelWriting();
  return file.commit();
}

bool WriteTextFile(const QString &text, const QString &path, bool verify) {
  const FileContent old = ReadFileContent(path);
  const TextEncoding encoding = old.complete ? DecodeText(old.bytes).encoding : TextEncoding::Windows1252;
  const QString written = text + u"\r\n";
  WriteFileAtomically(path, EncodeText(written, encoding));
  return verify ? ReadWholeFile(path) == written : FileExists(path);
}

bool FileExists(const QString &storedPath) {
  const QString path = MapStoredPath(storedPath).text();
  return !path.isEmpty() && QFileInfo(path).isFile();
}

QString PagePath(const QString &storedPath) {
  const QString prefix = QStringLiteral("file:///");
  // The engine turns the backslashes of an address of this kind itself.
  const QString asEngineSeesIt = QString(storedPath).replace(u'\\', u'/');
  const QString real = MapStoredPath(storedPath).text();
  if (real == asEngineSeesIt && !NeedsEncoding(real))
    return prefix + storedPath;
  return prefix + QString::fromLatin1(QUrl::toPercentEncoding(real, "/"));
}

} // namespace tolmira
