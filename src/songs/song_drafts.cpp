#include "songs/song_drafts.h"

#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QString Mode = QStringLiteral("mode");
const QString Path = QStringLiteral("path");
const QString Title = QStringLiteral("title");
const QString Author = QStringLiteral("author");
const QString Text = QStringLiteral("text");
const QString SongSize = QStringLiteral("songSize");
const QString SongModified = QStringLiteral("songModified");

} // namespace

QJsonObject ToJson(const SongDraft &draft) {
  return {{Mode, draft.mode},
          {Path, draft.path},
          {Title, draft.title},
          {Author, draft.author},
          {Text, draft.text},
          {SongSize, draft.song.size},
          {SongModified, draft.song.modifiedMs}};
}

QList<SongDrafts::Found> SongDrafts::All() const {
  QList<Found> drafts;
  for (const DraftFolder::Found &found : m_folder.All()) {
    const QJsonObject &object = found.draft;
    if (!object[Text].isString() || !object[Title].isString())
      continue;
    drafts.append({found.id,
                   {object[Mode].toString(),
                    object[Path].toString(),
                    object[Title].toString(),
                    object[Author].toString(),
                    object[Text].toString(),
                    {object[SongSize].toInteger(-1), object[SongModified].toInteger(-1)}}});
  }
  return drafts;
}

bool SongDrafts::SongHasChanged(const SongDraft &draft) {
  return !draft.path.isEmpty() && FileExists(draft.path) && FileStateOf(draft.path) != draft.song;
}

} // namespace tolmira
