#pragma once

#include "foundation/drafts.h"

namespace tolmira {

// An unsaved text of the song editor.
struct SongDraft {
  QString mode; // "Adicionar" or "Editar"
  QString path; // of the song that is being changed; else empty
  QString title;
  QString author;
  QString text;   // CR LF
  FileState song; // the song's file when the editor read or wrote it last

  friend bool operator==(const SongDraft &, const SongDraft &) = default;
};
QJsonObject ToJson(const SongDraft &draft);

// The drafts of songs.
class SongDrafts {
public:
  explicit SongDrafts(const AppFolder &app) : m_folder(app) {}

  struct Found {
    QString id;
    SongDraft draft;
  };
  QList<Found> All() const; // the oldest first; drafts of another kind are left alone
  // The song is there and is not what the draft was written over: saved from elsewhere, or replaced.
  static bool SongHasChanged(const SongDraft &draft);

  const DraftFolder &Folder() const { return m_folder; }

private:
  const DraftFolder m_folder;
};

} // namespace tolmira
