#pragma once

#include "songs/folder_watch.h"
#include "songs/searched_text.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <deque>
#include <vector>

struct stat;

namespace tolmira {

// One song of a folder's list. Its folder keeps it for as long as the folder lives, also when the file goes. What a
// search asks of every song comes first and fills one line of the processor's cache.
class alignas(64) SongFile {
public:
  SongFile(const QByteArray &real, bool shared);

  const QString &Arquivo() const { return m_arquivo; }     // file name with its extension
  const QString &Minusculo() const { return m_minusculo; } // the same in lower case
  QString Linha() const { return m_arquivo.chopped(4); }   // the list row
  bool Parelho() const { return m_parelho; } // every letter stands at the same place in both
  // False for a name that no stored path can spell: with a line end, a backslash, or bytes that are no UTF-8. Such a
  // song is listed and searched, and nothing else can be done with it.
  bool TemCaminho() const { return m_temCaminho; }

  // Where it stood when its folder was last listed.
  size_t Lugar() const { return m_lugar; }

  // A search has found the song by its name, and not looked at the text.
  void FoundByName() { m_text.ForgetPlace(); }

  // A search is about to look at the song.
  void Prefetch() const {
    __builtin_prefetch(m_minusculo.constData());
    m_text.Prefetch();
  }

private:
  friend class SongFolder;
  struct Stamp {
    qint64 size = -1; // -1: no stamp can vouch for the text
    qint64 modifiedNs = 0;
    qint64 changedNs = 0;
    quint64 inode = 0;
    friend bool operator==(const Stamp &, const Stamp &) = default;
  };

  // Sorts without regard to case and accents, and equal ones by their plain names, so that the order is always the same.
  bool ComesBefore(const SongFile &other) const;
  QStringView Chave() const { return QStringView(m_chave).chopped(4); }

  QString m_minusculo;
  SearchedText m_text;
  quint32 m_seen = 0; // the round in which the text was last known to be the file's
  bool m_read = false;
  bool m_shared; // it has other names, through which it changes unseen
  bool m_parelho;
  bool m_temCaminho;
  QString m_arquivo;
  QByteArray m_real;       // as the disk spells it
  QString m_chave;         // to sort by, but for the extension; shared with m_minusculo where that has no accents
  quint64 m_inicioDaChave; // its first characters, for a quick comparison
  size_t m_lugar = 0;
  Stamp m_stamp;
};

using SongRows = std::vector<SongFile *>;

// The songs of one folder with their texts, kept in memory from one search to the next. Every answer is the one that
// the files themselves would give after the last call of Observe.
class SongFolder {
public:
  enum class Trust {
    Watch,   // what the system reports of the folder is enough where it reports
    Compare, // every text is compared with its file's size and times
  };

  explicit SongFolder(Trust trust = Trust::Watch) : m_trust(trust) {}
  ~SongFolder();
  SongFolder(const SongFolder &) = delete;
  SongFolder &operator=(const SongFolder &) = delete;

  // A search begins: takes note of what has happened in the folder since the last one. The path may be another one than
  // before. `doubt` has every text compared with its file once more, which finds what the system does not report.
  void Observe(const QString &storedPath, bool doubt = false);

  // Every plain file "*.txt" (any case), sorted. Lists the folder when something came or went.
  const SongRows &Files();

  // Whether the song's text holds the term. Reads the file when its text is not known or may have changed; a file that
  // cannot be read holds nothing, and the next search tries it again. `longer`: the search before this one found the song
  // by the term's beginning.
  bool Holds(SongFile &file, const SearchTerm &term, bool longer = false);

  // The search is over: nothing of the folder is held open, so that its disk can be taken out.
  void Rest();

  quint32 Round() const { return m_round; } // counts the searches
  qint64 TextBytes() const;
  int Reads() const { return m_reads; } // files that were opened so far

private:
  bool IsCertain(const SongFile &file) const;
  void List();
  void Read(SongFile &file);
  int Folder();
  qsizetype ReadAll(int file, qint64 size); // -1 when the disk fails
  static SongFile::Stamp StampOf(const struct stat &status);

  Trust m_trust;
  QString m_path;
  quint64 m_inode = 0;
  quint64 m_device = 0;
  FolderWatch m_watch;
  std::deque<SongFile> m_all; // every song that was ever listed
  QHash<QByteArray, SongFile *> m_byName;
  SongRows m_files; // those that are there
  bool m_listed = false;
  quint32 m_round = 0;
  quint32 m_trusted = 0; // texts seen in this round or later are certain while the folder is watched
  qint64 m_nowNs = 0;    // when the round began
  int m_folder = -1;     // open while a search runs
  QByteArray m_buffer;   // likewise
  int m_reads = 0;
};

} // namespace tolmira
