#include "app/program_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSaveFile>
#include <QStandardPaths>

#include "foundation/app_folder.h"
#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QStringList SubFolders = {
    QStringLiteral("Data"),        QStringLiteral("Data/mini"), QStringLiteral("Lyrics"),
    QStringLiteral("Harpa"),       QStringLiteral("Cantor"),    QStringLiteral("Bible"),
    QStringLiteral("Slides"),      QStringLiteral("SlideShow"), QStringLiteral("Images"),
    QStringLiteral("Images/Mini"), QStringLiteral("Imagens"),   QStringLiteral("Imagens/Mini"),
    QStringLiteral("Videos"),      QStringLiteral("html"),
};

// Stands in the folder while its first filling is under way.
const QString FillingMark = QStringLiteral(".filling");
const QString InstalledList = QStringLiteral("html/.installed");

QByteArray Checksum(QIODevice &device) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  return hash.addData(&device) ? hash.result().toHex() : QByteArray();
}

// Empty when the file cannot be read.
QByteArray ChecksumOf(const QString &path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? Checksum(file) : QByteArray();
}

// The checksums of the templates as they were installed, by path relative to html/.
class InstalledTemplates {
public:
  explicit InstalledTemplates(QString path) : m_path(std::move(path)) {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
      return;
    while (!file.atEnd()) {
      const QByteArray line = file.readLine(4096).trimmed();
      const qsizetype blank = line.indexOf(' ');
      if (blank > 0)
        m_checksums.insert(QString::fromUtf8(line.mid(blank + 1)).trimmed(), line.left(blank));
    }
  }

  QByteArray Of(const QString &name) const { return m_checksums.value(name); }

  void Put(const QString &name, const QByteArray &checksum) {
    if (m_checksums.value(name) == checksum)
      return;
    m_checksums.insert(name, checksum);
    m_changed = true;
  }

  bool Save() const {
    if (!m_changed)
      return true;
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
      return false;
    for (auto entry = m_checksums.begin(); entry != m_checksums.end(); ++entry)
      file.write(entry.value() + ' ' + entry.key().toUtf8() + '\n');
    return CommitWhole(file);
  }

private:
  QString m_path;
  QMap<QString, QByteArray> m_checksums;
  bool m_changed = false;
};

// Samples that name other files of the folder. What they name them by is a full path, which is not known before.
bool NamesFiles(const QString &relative) {
  return relative.endsWith(u".sld") || relative.endsWith(u".sw") || relative.startsWith(u"Data/agenda");
}

class Filling {
public:
  Filling(const QString &app, const AssetPlaces &assets, FillResult &result)
      : m_app(app), m_assets(assets), m_result(result) {}

  void Run() {
    const QFileInfo folder(m_app);
    const bool absent = !folder.exists();
    if (folder.exists() && !folder.isDir()) {
      Problem(QStringLiteral("it is a file, not a folder"));
      return;
    }
    if (absent && !QDir().mkpath(m_app)) {
      Problem(QStringLiteral("the folder could not be made"));
      return;
    }
    m_result.usable = true;
    const bool empty =
        absent || QDir(m_app).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    const bool wasCutOff = QFileInfo::exists(InApp(FillingMark));
    m_result.isNew = empty || wasCutOff;

    if (empty) {
      QFile mark(InApp(FillingMark));
      if (!mark.open(QIODevice::WriteOnly))
        Problem(QStringLiteral("nothing can be written there (%1)").arg(mark.errorString()));
    }
    for (const QString &name : SubFolders)
      MakeFolder(name);
    if (m_result.isNew) {
      AddMissing(m_assets.sample, QString());
      for (const QString &kind : {QStringLiteral("Images"), QStringLiteral("Videos")})
        if (!m_assets.sampleMedia.isEmpty())
          AddMissing(QDir(m_assets.sampleMedia).filePath(kind), kind + u'/');
    }
    if (m_result.isNew || WantsBible())
      AddMissing(m_assets.bibles, QStringLiteral("Bible/"));
    Templates();
    // The mark goes only when everything is there, so that a disk that was full is filled at the next start.
    if (m_result.isNew && m_problems.isEmpty())
      QFile::remove(InApp(FillingMark));
  }

  QString ProblemText() const {
    if (m_problems.isEmpty())
      return {};
    QString text = QStringLiteral("The program folder %1 is not complete: %2.")
                       .arg(QDir::toNativeSeparators(m_app), m_problems.first());
    if (m_problems.size() > 1)
      text += QStringLiteral(" %1 more files or folders could not be written.").arg(m_problems.size() - 1);
    return text;
  }

private:
  // The real path of something in the program folder, whatever the case of the names that are there.
  QString InApp(const QString &relative) const { return MapStoredPath(m_app + u'/' + relative).text(); }

  // A folder from the time before the Bibles, say; one on read-only media is no fault that the operator could mend.
  bool WantsBible() const {
    const QString folder = InApp(QStringLiteral("Bible"));
    return QFileInfo(folder).isWritable() &&
           QDir(folder).entryList({QStringLiteral("OLD_*.txt")}, QDir::Files).isEmpty();
  }

  void Problem(const QString &what) { m_problems << what; }

  void MakeFolder(const QString &relative) {
    const QString path = InApp(relative);
    if (!QFileInfo(path).isDir() && !QDir().mkpath(path))
      Problem(QStringLiteral("the folder %1 could not be made").arg(relative));
  }

  bool Copy(const QString &source, const QString &relative) {
    const QString target = InApp(relative);
    QFile in(source);
    QSaveFile out(target);
    const bool ready = in.open(QIODevice::ReadOnly) && QDir().mkpath(QFileInfo(target).path()) &&
                       out.open(QIODevice::WriteOnly);
    bool whole = ready;
    while (whole && !in.atEnd()) {
      const QByteArray piece = in.read(256 * 1024);
      whole = in.error() == QFileDevice::NoError && out.write(piece) == piece.size();
    }
    if (whole && CommitWhole(out)) {
      m_result.written << relative;
      return true;
    }
    const QString reason = in.error() != QFileDevice::NoError ? in.errorString() : out.errorString();
    Problem(QStringLiteral("the file %1 could not be written (%2)").arg(relative, reason));
    return false;
  }

  static QStringList FilesUnder(const QString &root) {
    QStringList names;
    if (root.isEmpty())
      return names;
    QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    const QDir base(root);
    while (files.hasNext())
      names << base.relativeFilePath(files.next());
    names.sort();
    return names;
  }

  void AddMissing(const QString &root, const QString &prefix) {
    for (const QString &name : FilesUnder(root)) {
      const QString relative = prefix + name;
      if (QFileInfo::exists(InApp(relative)))
        continue;
      if (NamesFiles(relative))
        CopyWithPaths(QDir(root).filePath(name), relative);
      else
        Copy(QDir(root).filePath(name), relative);
    }
  }

  void CopyWithPaths(const QString &source, const QString &relative) {
    const QString text = AppFolder(m_app).ExpandAppPath(ReadWholeFile(source));
    if (!text.isEmpty() && WriteFileAtomically(InApp(relative), EncodeText(text)))
      m_result.written << relative;
    else
      Problem(QStringLiteral("the file %1 could not be written").arg(relative));
  }

  void Templates() {
    InstalledTemplates installed(InApp(InstalledList));
    for (const QString &name : FilesUnder(m_assets.html))
      Template(installed, QDir(m_assets.html).filePath(name), name);
    for (const QString &name : FilesUnder(m_assets.pageLibs))
      Template(installed, QDir(m_assets.pageLibs).filePath(name), QStringLiteral("lib/") + name);
    // Without the list a later version only leaves these templates alone, which is no news for a folder on read-only media.
    if (!installed.Save() && !m_result.written.isEmpty())
      Problem(QStringLiteral("the file %1 could not be written").arg(InstalledList));
  }

  void Template(InstalledTemplates &installed, const QString &source, const QString &name) {
    const QString relative = QStringLiteral("html/") + name;
    const QString target = InApp(relative);
    const QByteArray ours = ChecksumOf(source);
    if (QFileInfo::exists(target)) {
      const QByteArray present = ChecksumOf(target);
      if (present == ours) {
        installed.Put(name, ours);
        return;
      }
      // One that the operator changed, or brought along, stays as it is.
      if (present.isEmpty() || present != installed.Of(name))
        return;
    }
    if (Copy(source, relative))
      installed.Put(name, ours);
  }

  const QString m_app;
  const AssetPlaces &m_assets;
  FillResult &m_result;
  QStringList m_problems;
};

} // namespace

QString ChooseProgramFolder(const QString &wish, const QString &executableFolder) {
  QString folder = wish;
  if (folder.isEmpty() && QFileInfo(MapStoredPath(executableFolder + QStringLiteral("/Data")).text()).isDir())
    folder = executableFolder;
  if (folder.isEmpty())
    folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tolmira");
  folder = QDir::cleanPath(QDir(folder).absolutePath());
  return folder;
}

FillResult FillProgramFolder(const QString &app, const AssetPlaces &assets) {
  FillResult result;
  Filling filling(app, assets, result);
  filling.Run();
  result.problem = filling.ProblemText();
  if (result.problem.isEmpty() && !assets.Found() && result.usable)
    result.problem = QStringLiteral("The page templates that belong to Tolmira were not found.");
  return result;
}

} // namespace tolmira
