#include "songs/song_folder.h"

#include <QFile>
#include <QHash>
#include <QUtf8StringView>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

constexpr qint64 Second = 1'000'000'000;
// A file that was written a moment ago can be written again without its time moving on; some disks count in steps of two
// seconds.
constexpr qint64 YoungNs = 3 * Second;
constexpr size_t FirstRead = 64 * 1024;

qint64 Nanoseconds(const timespec &time) { return time.tv_sec * Second + time.tv_nsec; }

bool IsTextName(const char *name, size_t length) { return length >= 4 && strcasecmp(name + length - 4, ".txt") == 0; }

// Names that are no UTF-8 come from archives of older systems; read in their code page they are at least legible.
QString ReadableName(const QByteArray &real) {
  return QUtf8StringView(real.constData(), real.size()).isValidUtf8() ? QString::fromUtf8(real)
                                                                       : DecodeText(real).text;
}

QString SortingKey(const QString &lower) {
  if (std::all_of(lower.begin(), lower.end(), [](QChar c) { return c.unicode() < 0x80; }))
    return lower;
  QString key = lower.normalized(QString::NormalizationForm_D);
  key.removeIf([](QChar c) { return c.isMark(); });
  return key;
}

// Up to the end of the file or the limit; empty when it cannot be read whole.
QByteArray ReadAll(int file) {
  QByteArray bytes(static_cast<qsizetype>(FirstRead), Qt::Uninitialized);
  qsizetype filled = 0;
  for (;;) {
    const ssize_t got = read(file, bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      return {};
    filled += got;
    if (got == 0)
      break;
    if (filled == bytes.size()) {
      if (filled >= TextFileLimit)
        return {};
      bytes.resize(std::min<qsizetype>(2 * bytes.size(), TextFileLimit));
    }
  }
  bytes.truncate(filled);
  return bytes;
}

} // namespace

bool ComesBefore(const std::shared_ptr<SongFile> &a, const std::shared_ptr<SongFile> &b) {
  const int order = a->m_chave.compare(b->m_chave);
  return order != 0 ? order < 0 : a->m_real < b->m_real;
}

SongFolder::~SongFolder() { Rest(); }

void SongFolder::Observe(const QString &storedPath, bool doubt) {
  Rest();
  ++m_round;
  const QString path = MapStoredPath(storedPath).text();
  struct stat status {};
  const bool there = stat(QFile::encodeName(path).constData(), &status) == 0;
  if (!there || path != m_path || status.st_ino != m_inode || status.st_dev != m_device) {
    m_watch.Stop();
    m_files.clear();
    m_path = path;
    m_inode = status.st_ino;
    m_device = status.st_dev;
  }

  const FolderWatch::Changes changes = m_watch.Take();
  if (changes.unknown) {
    // First the watch, then the look at the folder: what happens between the two is reported.
    if (there && m_trust == Trust::Watch)
      m_watch.Watch(path);
    m_listed = false;
    m_trusted = m_round;
    return;
  }
  if (doubt)
    m_trusted = m_round;
  if (changes.names)
    m_listed = false;
  for (const std::shared_ptr<SongFile> &file : m_files) {
    if (changes.files.isEmpty())
      break;
    if (changes.files.contains(file->m_real))
      file->m_read = false;
  }
}

const SongRows &SongFolder::Files() {
  if (!m_listed)
    List();
  return m_files;
}

std::shared_ptr<SongFile> SongFolder::NewFile(const QByteArray &real, bool shared) {
  auto file = std::make_shared<SongFile>();
  file->m_real = real;
  file->m_arquivo = ReadableName(real);
  file->m_minusculo = file->m_arquivo.toLower();
  file->m_chave = SortingKey(file->m_minusculo);
  file->m_temCaminho = QFile::encodeName(file->m_arquivo) == real &&
                       std::none_of(file->m_arquivo.begin(), file->m_arquivo.end(),
                                    [](QChar c) { return c == u'\\' || c == u'\r' || c == u'\n'; });
  file->m_shared = shared;
  return file;
}

void SongFolder::List() {
  QHash<QByteArray, std::shared_ptr<SongFile>> known;
  known.reserve(static_cast<qsizetype>(m_files.size()));
  for (const std::shared_ptr<SongFile> &file : m_files)
    known.insert(file->m_real, file);
  m_files.clear();
  m_listed = true;

  DIR *folder = opendir(QFile::encodeName(m_path).constData());
  if (!folder)
    return;
  while (const dirent *entry = readdir(folder)) {
    const size_t length = strlen(entry->d_name);
    if (!IsTextName(entry->d_name, length) || entry->d_type == DT_DIR)
      continue;
    const bool plain = entry->d_type == DT_REG;
    struct stat status {};
    if (!plain && (fstatat(dirfd(folder), entry->d_name, &status, 0) != 0 || !S_ISREG(status.st_mode)))
      continue;
    const QByteArray real(entry->d_name, static_cast<qsizetype>(length));
    std::shared_ptr<SongFile> file = known.take(real);
    if (!file)
      file = NewFile(real, !plain);
    // A link's target comes and goes without a word.
    if (!plain)
      file->m_shared = true;
    m_listed &= plain;
    m_files.push_back(std::move(file));
  }
  closedir(folder);
  std::sort(m_files.begin(), m_files.end(), ComesBefore);
  // Rows of an earlier search may still hold a song that is gone.
  for (const std::shared_ptr<SongFile> &gone : std::as_const(known)) {
    gone->m_read = false;
    gone->m_shared = true;
  }
}

bool SongFolder::IsCertain(const SongFile &file) const {
  return file.m_read && file.m_seen >= (file.m_shared || !m_watch.IsWatching() ? m_round : m_trusted);
}

bool SongFolder::Holds(SongFile &file, const SearchTerm &term) {
  if (!IsCertain(file)) {
    struct stat status {};
    const bool same = file.m_read && file.m_stamp.size >= 0 &&
                      fstatat(Folder(), file.m_real.constData(), &status, 0) == 0 &&
                      StampOf(status) == file.m_stamp;
    if (!same)
      Read(file);
    file.m_seen = m_round;
  }
  return file.m_text.Holds(term);
}

SongFile::Stamp SongFolder::StampOf(const struct stat &status) {
  return {status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim), status.st_ino};
}

void SongFolder::Read(SongFile &file) {
  file.m_read = true;
  file.m_stamp = {};
  file.m_text = {};
  // Not waiting for a writer, should a pipe have taken the file's place.
  const int opened = openat(Folder(), file.m_real.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (opened < 0)
    return;
  struct stat status {};
  if (fstat(opened, &status) == 0 && S_ISREG(status.st_mode)) {
    file.m_text = SearchedText(ReadAll(opened));
    file.m_shared |= status.st_nlink > 1;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (Nanoseconds(now) - std::max(Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)) > YoungNs)
      file.m_stamp = StampOf(status);
  }
  close(opened);
}

int SongFolder::Folder() {
  if (m_folder < 0)
    m_folder = open(QFile::encodeName(m_path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  return m_folder;
}

void SongFolder::Rest() {
  if (m_folder >= 0)
    close(m_folder);
  m_folder = -1;
}

qint64 SongFolder::TextBytes() const {
  qint64 bytes = 0;
  for (const std::shared_ptr<SongFile> &file : m_files)
    bytes += file->m_text.Size();
  return bytes;
}

} // namespace tolmira
