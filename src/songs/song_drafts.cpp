#include "songs/song_drafts.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>
#include <algorithm>
#include <cstdio>

namespace tolmira {

namespace {

constexpr int DelayMs = 700;
const QString Mode = QStringLiteral("mode");
const QString Path = QStringLiteral("path");
const QString Title = QStringLiteral("title");
const QString Author = QStringLiteral("author");
const QString Text = QStringLiteral("text");
const QString Moment = QStringLiteral("moment"); // ms since 1970
const QString New = QStringLiteral(".new");      // behind the name of a draft that is being written
const QString SongSize = QStringLiteral("songSize");
const QString SongModified = QStringLiteral("songModified");

} // namespace

FileState FileStateOf(const QString &storedPath) {
  const QFileInfo file(MapStoredPath(storedPath).text());
  return file.isFile() ? FileState{file.size(), file.lastModified().toMSecsSinceEpoch()} : FileState();
}

QString SongDrafts::Folder() const {
  return MapStoredPath(m_app.At(u"\\Data\\rascunhos")).text();
}
QString SongDrafts::PathOf(const QString &id) const {
  return Folder() + u'/' + id + u".json";
}
QString SongDrafts::NewId() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QList<SongDrafts::Found> SongDrafts::All() const {
  QList<std::pair<double, Found>> found;
  const QStringList names = QDir(Folder()).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
  for (const QString &name : names) {
    const FileContent content = ReadFileContent(Folder() + u'/' + name);
    const QJsonObject object = QJsonDocument::fromJson(content.complete ? content.bytes : QByteArray()).object();
    if (!object[Text].isString() || !object[Title].isString())
      continue;
    found.append({object[Moment].toDouble(),
                  {name.chopped(5),
                   {object[Mode].toString(),
                    object[Path].toString(),
                    object[Title].toString(),
                    object[Author].toString(),
                    object[Text].toString(),
                    {object[SongSize].toInteger(-1), object[SongModified].toInteger(-1)}}}});
  }
  std::stable_sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
  QList<Found> drafts;
  for (auto &[moment, draft] : found)
    drafts.append(std::move(draft));
  return drafts;
}

bool SongDrafts::SongHasChanged(const SongDraft &draft) {
  return !draft.path.isEmpty() && FileExists(draft.path) && FileStateOf(draft.path) != draft.song;
}

bool SongDrafts::Keep(const QString &id, const SongDraft &draft) const {
  QDir().mkdir(Folder());
  const QJsonObject object{{Mode, draft.mode},          {Path, draft.path},
                           {Title, draft.title},        {Author, draft.author},
                           {Text, draft.text},          {Moment, QDateTime::currentMSecsSinceEpoch()},
                           {SongSize, draft.song.size}, {SongModified, draft.song.modifiedMs}};
  const QByteArray bytes = QJsonDocument(object).toJson(QJsonDocument::Compact);
  // Handed to the system and not forced onto the disk: a crash of the program loses nothing that way, and no slow disk
  // halts the projection every second while somebody types.
  QFile file(PathOf(id) + New);
  const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
  file.close();
  if (written &&
      std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(PathOf(id)).constData()) == 0)
    return true;
  file.remove();
  return false;
}

void SongDrafts::Drop(const QString &id) const {
  QFile::remove(PathOf(id));
  QFile::remove(PathOf(id) + New);
}

DraftKeeper::DraftKeeper(const SongDrafts &drafts, Clock &clock, std::function<SongDraft()> now)
    : m_drafts(drafts), m_now(std::move(now)), m_id(SongDrafts::NewId()), m_timer(clock.NewTimer([this] { Flush(); })) {
}

DraftKeeper::~DraftKeeper() {
  Flush();
}

void DraftKeeper::Adopt(const QString &id) {
  m_id = id;
  m_onDisk = true;
}

// The timer runs on when the next key comes, or somebody who never stops typing would have no draft.
void DraftKeeper::Changed() {
  if (!m_timer->IsActive())
    m_timer->Start(DelayMs);
}

void DraftKeeper::Flush() {
  if (!m_timer->IsActive())
    return;
  m_timer->Stop();
  const bool kept = m_drafts.Keep(m_id, m_now());
  m_onDisk = m_onDisk || kept;
  if (!kept)
    m_timer->Start(DelayMs);
  if (OnKept)
    OnKept(kept);
}

void DraftKeeper::Forget() {
  m_timer->Stop();
  if (m_onDisk)
    m_drafts.Drop(m_id);
  m_onDisk = false;
}

} // namespace tolmira
