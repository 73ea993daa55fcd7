#pragma once

#include "slides/document_import.h"
#include "support/files.h"
#include "support/hand_made_pdf.h"
#include "support/test_pictures.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tolmira::testing {

// A program folder, documents of somebody's own beside it, and programs to draw them, real and false.
class ImportRoom {
public:
  static constexpr QSize Screen{320, 180};

  ImportRoom() : app(folder.filePath(QStringLiteral("app"))) {
    for (const char *name : {"app/Images/Mini", "mine", "temp"})
      QDir(folder.path()).mkpath(QLatin1String(name));
    qputenv("TMPDIR", QFile::encodeName(Path("temp")));
    programs.paginas = qEnvironmentVariable("TOLMIRA_BIN_DIR") + QStringLiteral("/tolmira-pages");
    WriteBytes(Path("page.png"), PictureBytes(Screen, "png"));
  }

  QString Path(const char *name) const { return folder.filePath(QLatin1String(name)); }
  QString Write(const char *name, const QByteArray &bytes) const {
    WriteBytes(Path(name), bytes);
    return Path(name);
  }
  // A program of these shell lines. $ROOM is this folder; for one that draws, $1 to $3 are what tolmira-pages gets.
  QString Script(const char *name, const QByteArray &lines) const {
    const QString path = Write(name, "#!/bin/sh\nROOM='" + QFile::encodeName(folder.path()) + "'\n" + lines);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return path;
  }
  QStringList Images() const { return Names("app/Images"); }
  QStringList Mini() const { return Names("app/Images/Mini"); }
  bool LeftNothing() const {
    return Images().isEmpty() && Mini().isEmpty() &&
           QDir(Path("temp")).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot);
  }
  QImage Image(const QString &name) const { return QImage(Path("app/Images/") + name); }

  QTemporaryDir folder;
  AppFolder app;
  DocumentImport::Programas programs;

private:
  QStringList Names(const char *name) const { return QDir(Path(name)).entryList(QDir::Files, QDir::Name); }
};

// One import and what it said. `Run` waits for its end.
class ImportRun {
public:
  explicit ImportRun(const ImportRoom &of) : room(of), import(of.app) {
    QObject::connect(&import, &DocumentImport::Terminou, &import,
                     [this](const QStringList &made, const QString &title) {
                       pictures = made;
                       name = title;
                       ended = true;
                     });
    QObject::connect(&import, &DocumentImport::Falhou, &import, [this](const QString &text) {
      sentence = text;
      ended = true;
    });
    QObject::connect(&import, &DocumentImport::Parou, &import, [this] { stopped = ended = true; });
    QObject::connect(&import, &DocumentImport::Andou, &import, [this](int pages, int all) {
      done = pages;
      total = all;
    });
  }
  bool Ended() const { return ended; }
  bool Run(const QString &path) {
    ended = false;
    import.Comeca(path, ImportRoom::Screen, room.programs);
    return QTest::qWaitFor([this] { return ended; }, 60'000);
  }

  const ImportRoom &room;
  DocumentImport import;
  QStringList pictures; // stored paths
  QString name;
  QString sentence;
  bool ended = false;
  bool stopped = false;
  int done = -1;
  int total = -1;
};

} // namespace tolmira::testing
