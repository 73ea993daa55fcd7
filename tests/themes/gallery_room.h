#pragma once

#include "foundation/ini_store.h"
#include "support/files.h"
#include "support/scripted_prompt.h"
#include "support/test_pictures.h"
#include "themes/picture_gallery.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tolmira::testing {

// A program folder with its images, and a folder of somebody's own beside it.
class GalleryRoom {
public:
  GalleryRoom() : app(folder.filePath(QStringLiteral("app"))), store(app), gallery(app, store) {
    for (const char *name : {"app/Data", "app/Images/Mini", "mine"})
      QDir(folder.path()).mkpath(QLatin1String(name));
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(QStringLiteral("home")))); // the trash will be there
  }

  QString Path(const QString &name) const { return folder.filePath(name); }
  QString Write(const QString &name, const QByteArray &bytes) const {
    WriteBytes(Path(name), bytes);
    return Path(name);
  }
  QByteArray Read(const QString &name) const { return ReadBytes(Path(name)); }
  QString Picture(const QString &name) const { return Write(u"app/Images/" + name, PictureBytes({16, 9}, "png")); }
  void SetDate(const QString &name, const QDateTime &date) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(date, QFileDevice::FileModificationTime))
      qFatal("cannot date a test file");
  }
  QStringList Images() const { return QDir(Path(QStringLiteral("app/Images"))).entryList(QDir::Files, QDir::Name); }
  QStringList Mini() const { return QDir(Path(QStringLiteral("app/Images/Mini"))).entryList(QDir::Files, QDir::Name); }
  QStringList Said() { return prompt.TakeTexts(); }

  QTemporaryDir folder;
  AppFolder app;
  IniStore store;
  PictureGallery gallery;
  ScriptedPrompt prompt;
};

} // namespace tolmira::testing
