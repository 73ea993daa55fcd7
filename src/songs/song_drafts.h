#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"

#include <QList>
#include <QString>
#include <QtGlobal>
#include <functional>
#include <memory>

namespace tolmira {

// By which a file is known to be as it was; a file that is not there has no size.
struct FileState {
  qint64 size = -1;       // bytes
  qint64 modifiedMs = -1; // since 1970

  friend bool operator==(const FileState &, const FileState &) = default;
};
FileState FileStateOf(const QString &storedPath);

// An unsaved text of the song editor.
struct SongDraft {
  QString mode; // "Adicionar" or "Editar"
  QString path; // of the song that is being changed; else empty
  QString title;
  QString author;
  QString text; // CR LF
  FileState song; // the song's file when the editor read or wrote it last

  friend bool operator==(const SongDraft &, const SongDraft &) = default;
};

// The drafts in <app>\Data\rascunhos, one file each. A file there that is no draft is left alone.
class SongDrafts {
public:
  explicit SongDrafts(const AppFolder &app) : m_app(app) {}

  struct Found {
    QString id;
    SongDraft draft;
  };
  QList<Found> All() const; // the oldest first
  // The song is there and is not what the draft was written over: saved from elsewhere, or replaced.
  static bool SongHasChanged(const SongDraft &draft);

  static QString NewId();
  // Replaces the draft as one step; false when it could not be written.
  bool Keep(const QString &id, const SongDraft &draft) const;
  void Drop(const QString &id) const;

private:
  QString Folder() const;
  QString PathOf(const QString &id) const;

  const AppFolder m_app;
};

// Keeps the draft of one editor up to date: on disk less than a second after a change, however fast the keys follow
// each other. What has not been written when it goes is written then.
class DraftKeeper {
public:
  // `now` gives what stands in the boxes.
  DraftKeeper(const SongDrafts &drafts, Clock &clock, std::function<SongDraft()> now);
  ~DraftKeeper();
  DraftKeeper(const DraftKeeper &) = delete;
  DraftKeeper &operator=(const DraftKeeper &) = delete;

  void Adopt(const QString &id); // goes on with a draft that was found
  void Changed();
  void Forget(); // saved, given up, or back as it was
  void Flush();

  std::function<void(bool kept)> OnKept; // after each try to write

private:
  const SongDrafts m_drafts;
  std::function<SongDraft()> m_now;
  QString m_id;
  bool m_onDisk = false;
  std::unique_ptr<PeriodicTimer> m_timer;
};

} // namespace tolmira
