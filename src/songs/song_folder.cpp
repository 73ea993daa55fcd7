#include "songs/song_folder.h"

#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QFile>
#include <QUtf8StringView>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr qint64 Second = 1'000'000'000;
// A file that was written a moment ago can be written again without its time moving on; some disks count in steps of
// two seconds.
constexpr qint64 YoungNs = 3 * Second;
constexpr qsizetype FirstRead = 64 * 1024;

qint64 Nanoseconds(const timespec &time) {
  return time.tv_sec * Second + time.tv_nsec;
}

bool IsTextName(const char *name, size_t length) {
  return length >= 4 && strcasecmp(name + length - 4, ".txt") == 0;
}

bool IsUtf8(const QByteArray &real) {
  return QUtf8StringView(real.constData(), real.size()).isValidUtf8();
}

bool IsSpeltByAPath(const QByteArray &real) {
  return IsUtf8(real) &&
         std::none_of(real.begin(), real.end(), [](char c) { return c == '\\' || c == '\r' || c == '\n'; });
}

// Names that are no UTF-8 come from archives of older systems; read in their code page they are at least legible.
QString ReadableName(const QByteArray &real) {
  return IsUtf8(real) ? QString::fromUtf8(real) : DecodeText(real).text;
}

// The letter under an accent, for the letters that European names are written with.
constexpr char16_t EuropeanLetters = 0x180;
char16_t Unaccented(char16_t letter) {
  static const auto table = [] {
    std::array<char16_t, EuropeanLetters> bare{};
    for (char16_t c = 0; c < EuropeanLetters; ++c) {
      const QString parts = QString(QChar(c)).normalized(QString::NormalizationForm_D);
      bare[c] = parts.size() > 1 && parts.at(1).isMark() ? parts.at(0).unicode() : c;
    }
    return bare;
  }();
  return table[letter];
}

QString SortingKey(const QString &lower) {
  QString key = lower;
  for (qsizetype i = 0; i < lower.size(); ++i) {
    const char16_t letter = lower.at(i).unicode();
    if (letter >= EuropeanLetters) {
      key = lower.normalized(QString::NormalizationForm_D);
      key.removeIf([](QChar c) { return c.isMark(); });
      break;
    }
    if (letter >= 0x80)
      key[i] = QChar(Unaccented(letter));
  }
  return key;
}

// One byte a character, in the order of the keys. From a character on that no byte holds, the bytes tell nothing.
quint64 FirstEight(QStringView key) {
  constexpr char16_t Beyond = 0xFF;
  quint64 eight = 0;
  bool told = true;
  for (qsizetype i = 0; i < 8; ++i) {
    const char16_t character = told && i < key.size() ? std::min(key.at(i).unicode(), Beyond) : u'\0';
    told = told && character != Beyond;
    eight = eight << 8 | character;
  }
  return eight;
}

} // namespace

SongFile::SongFile(const QByteArray &real, bool shared)
    : m_shared(shared), m_temCaminho(IsSpeltByAPath(real)), m_arquivo(ReadableName(real)), m_real(real) {
  m_minusculo = m_arquivo.toLower();
  m_parelho = m_minusculo.size() == m_arquivo.size();
  m_chave = SortingKey(m_minusculo);
  m_inicioDaChave = FirstEight(Chave());
}

bool SongFile::ComesBefore(const SongFile &other) const {
  if (m_inicioDaChave != other.m_inicioDaChave)
    return m_inicioDaChave < other.m_inicioDaChave;
  const int order = Chave().compare(other.Chave());
  return order != 0 ? order < 0 : m_real < other.m_real;
}

SongFolder::~SongFolder() {
  Rest();
}

void SongFolder::Observe(const QString &storedPath, bool doubt) {
  Rest();
  ++m_round;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  m_nowNs = Nanoseconds(now);
  const QString path = MapStoredPath(storedPath).text();
  struct stat status {};
  const bool there = stat(QFile::encodeName(path).constData(), &status) == 0;
  if (!there || path != m_path || status.st_ino != m_inode || status.st_dev != m_device) {
    m_watch.Stop();
    for (SongFile &file : m_all)
      file.m_read = false;
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
  for (const QByteArray &name : changes.files) {
    if (SongFile *file = m_byName.value(name))
      file->m_read = false;
  }
}

const SongRows &SongFolder::Files() {
  if (!m_listed)
    List();
  return m_files;
}

void SongFolder::List() {
  m_files.clear();
  m_listed = false; // a folder that cannot be read now is looked at again
  DIR *folder = opendir(QFile::encodeName(m_path).constData());
  if (!folder)
    return;
  m_listed = true;
  const auto next = [folder] {
    errno = 0;
    return readdir(folder);
  };
  while (const dirent *entry = next()) {
    const size_t length = strlen(entry->d_name);
    if (!IsTextName(entry->d_name, length) || entry->d_type == DT_DIR)
      continue;
    const bool plain = entry->d_type == DT_REG;
    m_listed &= plain; // a link's target comes and goes without a word
    struct stat status {};
    if (!plain && (fstatat(dirfd(folder), entry->d_name, &status, 0) != 0 || !S_ISREG(status.st_mode)))
      continue;
    const QByteArray real(entry->d_name, static_cast<qsizetype>(length));
    SongFile *&file = m_byName[real];
    if (!file)
      file = &m_all.emplace_back(real, !plain);
    file->m_shared |= !plain;
    m_files.push_back(file);
  }
  m_listed &= errno == 0; // or the reading broke off
  closedir(folder);
  std::sort(m_files.begin(), m_files.end(), [](const SongFile *a, const SongFile *b) { return a->ComesBefore(*b); });
  for (size_t place = 0; place < m_files.size(); ++place)
    m_files[place]->m_lugar = place;
}

bool SongFolder::IsCertain(const SongFile &file) const {
  return file.m_read && file.m_seen >= (file.m_shared || !m_watch.IsWatching() ? m_round : m_trusted);
}

bool SongFolder::Holds(SongFile &file, const SearchTerm &term, bool longer) {
  if (!IsCertain(file)) {
    struct stat status {};
    const bool same = file.m_read && file.m_stamp.size >= 0 &&
                      fstatat(Folder(), file.m_real.constData(), &status, 0) == 0 && StampOf(status) == file.m_stamp;
    if (!same)
      Read(file);
    file.m_seen = m_round;
  }
  return longer ? file.m_text.HoldsLonger(term) : file.m_text.Holds(term);
}

SongFile::Stamp SongFolder::StampOf(const struct stat &status) {
  return {status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim), status.st_ino};
}

void SongFolder::Read(SongFile &file) {
  ++m_reads;
  file.m_read = false; // what fails now may succeed at the next search
  file.m_stamp = {};
  file.m_text = {};
  // Not waiting for a writer, should a pipe have taken the file's place.
  const int opened = openat(Folder(), file.m_real.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (opened < 0)
    return;
  struct stat status {};
  const bool known = fstat(opened, &status) == 0;
  const qsizetype size = known && S_ISREG(status.st_mode) ? ReadAll(opened, status.st_size) : 0;
  file.m_read = known && size >= 0;
  if (file.m_read && S_ISREG(status.st_mode)) {
    file.m_text = SearchedText(QByteArrayView(m_buffer.constData(), size));
    file.m_shared |= status.st_nlink > 1;
    if (m_nowNs - std::max(Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)) > YoungNs)
      file.m_stamp = StampOf(status);
  }
  close(opened);
}

// Into the buffer, up to the end of the file; how much that is. Nothing of a file beyond the limit. A file that had `size`
// bytes when its stamp was taken ends there for that stamp, and is not asked whether more follows.
qsizetype SongFolder::ReadAll(int file, qint64 size) {
  if (m_buffer.isEmpty())
    m_buffer.resize(FirstRead);
  qsizetype filled = 0;
  for (;;) {
    const qsizetype room = m_buffer.size() - filled;
    const ssize_t got = read(file, m_buffer.data() + filled, static_cast<size_t>(room));
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      return -1;
    filled += got;
    if (got == 0 || (filled == size && got < room))
      return filled;
    if (got == room) {
      if (filled >= TextFileLimit)
        return 0;
      m_buffer.resize(std::min(2 * m_buffer.size(), TextFileLimit));
    }
  }
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
  m_buffer = QByteArray();
}

qint64 SongFolder::TextBytes() const {
  qint64 bytes = 0;
  for (const SongFile &file : m_all)
    bytes += file.m_text.Size();
  return bytes;
}

} // namespace tolmira
