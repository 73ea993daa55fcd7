#include "foundation/drafts.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QUuid>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int DelayMs = 700;
const QString Moment = QStringLiteral("moment"); // ms since 1970
const QString New = QStringLiteral(".new");      // behind the name of a draft that is being written
const QString Extension = QStringLiteral(".json");

} // namespace

FileState FileStateOf(const QString &storedPath) {
  const QFileInfo file(MapStoredPath(storedPath).text());
  return file.isFile() ? FileState{file.size(), file.lastModified().toMSecsSinceEpoch()} : FileState();
}

QString DraftFolder::Folder() const {
  return MapStoredPath(m_app.At(u"\\Data\\rascunhos")).text();
}
QString DraftFolder::PathOf(const QString &id) const {
  return Folder() + u'/' + id + Extension;
}
QString DraftFolder::NewId() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QList<DraftFolder::Found> DraftFolder::All() const {
  QList<Found> found;
  const QStringList names = QDir(Folder()).entryList({u'*' + Extension}, QDir::Files, QDir::Name);
  for (const QString &name : names) {
    const FileContent content = ReadFileContent(Folder() + u'/' + name);
    const QJsonObject object = QJsonDocument::fromJson(content.complete ? content.bytes : QByteArray()).object();
    if (!object.isEmpty())
      found.append({name.chopped(Extension.size()), object});
  }
  std::stable_sort(found.begin(), found.end(), [](const Found &a, const Found &b) {
    return a.draft[Moment].toDouble() < b.draft[Moment].toDouble();
  });
  return found;
}

bool DraftFolder::Keep(const QString &id, const QJsonObject &draft) const {
  QDir().mkdir(Folder());
  QJsonObject object = draft;
  object[Moment] = QDateTime::currentMSecsSinceEpoch();
  // No slow disk may halt the projection every second while somebody types.
  return ReplaceFile(PathOf(id), QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void DraftFolder::Drop(const QString &id) const {
  QFile::remove(PathOf(id));
  QFile::remove(PathOf(id) + New);
}

DraftKeeper::DraftKeeper(const DraftFolder &drafts, Clock &clock, std::function<QJsonObject()> now)
    : m_drafts(drafts), m_now(std::move(now)), m_id(DraftFolder::NewId()),
      m_timer(clock.NewTimer([this] { Flush(); })) {}

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
