#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"

#include <QJsonObject>
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

// What somebody writes and has not saved, in <app>\Data\rascunhos, one file each. What is in a draft, and how one kind
// is told from another, is the editors' business.
class DraftFolder {
public:
  explicit DraftFolder(const AppFolder &app) : m_app(app) {}

  struct Found {
    QString id;
    QJsonObject draft;
  };
  QList<Found> All() const; // the oldest first; a file that is no draft at all is left alone

  static QString NewId();
  // Replaces the draft as one step; false when it could not be written.
  bool Keep(const QString &id, const QJsonObject &draft) const;
  void Drop(const QString &id) const;

private:
  QString Folder() const;
  QString PathOf(const QString &id) const;

  AppFolder m_app;
};

// Keeps the draft of one editor up to date: on disk less than a second after a change, however fast the keys follow
// each other. What has not been written when it goes is written then.
class DraftKeeper {
public:
  // `now` gives what stands in the editor.
  DraftKeeper(const DraftFolder &drafts, Clock &clock, std::function<QJsonObject()> now);
  ~DraftKeeper();
  DraftKeeper(const DraftKeeper &) = delete;
  DraftKeeper &operator=(const DraftKeeper &) = delete;

  void Adopt(const QString &id); // goes on with a draft that was found
  void Changed();
  void Forget(); // saved, given up, or back as it was
  void Flush();

  std::function<void(bool kept)> OnKept; // after each try to write

private:
  const DraftFolder m_drafts;
  std::function<QJsonObject()> m_now;
  QString m_id;
  bool m_onDisk = false;
  std::unique_ptr<PeriodicTimer> m_timer;
};

} // namespace tolmira
