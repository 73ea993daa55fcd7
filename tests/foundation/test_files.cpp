#include "foundation/app_folder.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "support/files.h"
#include "support/full_disk.h"

#include <QBuffer>
#include <QtTest>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace tolmira;

namespace {

// A device that breaks after its first bytes, as a failing disk does.
class BreakingDevice : public QIODevice {
public:
  explicit BreakingDevice(int goodBytes) : m_left(goodBytes) { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
  bool isSequential() const override { return true; }

protected:
  qint64 readData(char *data, qint64 size) override {
    if (m_left == 0)
      return -1;
    const qint64 count = qMin<qint64>(size, m_left);
    memset(data, 'x', static_cast<size_t>(count));
    m_left -= static_cast<int>(count);
    return count;
  }
  qint64 writeData(const char *, qint64) override { return -1; }

private:
  int m_left;
};

} // namespace

class TestFiles : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_dir;

  QString At(const QString &literal) const { return m_dir->path() + literal; }
  void Put(const QString &name, const QByteArray &bytes = "x") const { testing::WriteBytes(At(u'/' + name), bytes); }
  QByteArray Get(const QString &name) const { return testing::ReadBytes(At(u'/' + name)); }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
  }

  void StoredPaths_data() {
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("real");
    const auto row = [](const char *name, const QStringList &files, const QString &stored, const QString &real) {
      QTest::newRow(name) << files << stored << real;
    };
    const QString song = QStringLiteral("Lyrics/Água Viva.txt");
    row("as written", {song}, QStringLiteral("\\Lyrics\\Água Viva.txt"), QStringLiteral("/Lyrics/Água Viva.txt"));
    row("other case", {song}, QStringLiteral("\\LYRICS\\água viva.TXT"), QStringLiteral("/Lyrics/Água Viva.txt"));
    row("new file in a folder of other case", {song}, QStringLiteral("\\lyrics\\Nova.txt"),
        QStringLiteral("/Lyrics/Nova.txt"));
    row("nothing there", {}, QStringLiteral("\\Data\\\\Config.dat"), QStringLiteral("/Data//Config.dat"));
    row("exact one wins", {QStringLiteral("a.txt"), QStringLiteral("A.txt")}, QStringLiteral("\\a.txt"),
        QStringLiteral("/a.txt"));
    row("else the first in name order",
        {QStringLiteral("FOTO.jpg"), QStringLiteral("Foto.jpg"), QStringLiteral("foTO.jpg")},
        QStringLiteral("\\foto.JPG"), QStringLiteral("/FOTO.jpg"));
    row("line ends are no part of it", {song}, QStringLiteral("\\Lyrics\\Água\r\n Viva.txt\r\n"),
        QStringLiteral("/Lyrics/Água Viva.txt"));
    row("trailing separator", {song}, QStringLiteral("\\lyrics\\"), QStringLiteral("/Lyrics/"));
    row("a file is no folder", {QStringLiteral("Data")}, QStringLiteral("\\data\\x.dat"),
        QStringLiteral("/Data/x.dat"));
    row("upwards", {song}, QStringLiteral("\\lyrics\\..\\LYRICS\\Água Viva.txt"),
        QStringLiteral("/Lyrics/../Lyrics/Água Viva.txt"));
  }
  void StoredPaths() {
    QFETCH(QStringList, files);
    QFETCH(QString, stored);
    QFETCH(QString, real);
    for (const QString &file : files)
      Put(file);
    QCOMPARE(MapStoredPath(At(stored)).text(), At(real));
  }

  void EmptyPathStaysEmpty() {
    QVERIFY(MapStoredPath(QString()).isEmpty());
    QVERIFY(!FileExists(QString()));
    QVERIFY(!WriteFileAtomically(QString(), "x"));
  }

  void Existence() {
    Put(QStringLiteral("Data/Config.dat"));
    QVERIFY(FileExists(At(QStringLiteral("\\data\\CONFIG.DAT"))));
    QVERIFY(!FileExists(At(QStringLiteral("\\Data"))));
    QVERIFY(!FileExists(At(QStringLiteral("\\Data\\Other.dat"))));
  }

  void ReadingTellsWhetherItIsWhole() {
    Put(QStringLiteral("a.txt"), "12345");
    const FileContent whole = ReadFileContent(At(QStringLiteral("\\A.txt")));
    QVERIFY(whole.exists && whole.complete);
    QCOMPARE(whole.bytes, "12345");
    const FileContent cut = ReadFileContent(At(QStringLiteral("\\a.txt")), 5);
    QVERIFY(cut.exists && !cut.complete);
    QCOMPARE(cut.bytes, "12345");
    QVERIFY(!ReadFileContent(At(QStringLiteral("\\b.txt"))).exists);
    QVERIFY(QDir().mkdir(At(QStringLiteral("/c.txt"))));
    const FileContent folder = ReadFileContent(At(QStringLiteral("\\c.txt")));
    QVERIFY(folder.exists && !folder.complete);
  }

  void APipeIsNotWaitedFor() {
    QCOMPARE(mkfifo(QFile::encodeName(At(QStringLiteral("/pipe"))).constData(), 0600), 0);
    QVERIFY(!ReadFileContent(At(QStringLiteral("\\pipe"))).complete);
  }

  void BrokenDeviceIsNotComplete() {
    BreakingDevice device(7);
    const FileContent content = ReadDevice(device);
    QCOMPARE(content.bytes, "xxxxxxx");
    QVERIFY(!content.complete);
    QBuffer closed;
    QVERIFY(!ReadDevice(closed).complete);
  }

  void LargeFileComesWhole() {
    const QByteArray large(1000003, 'y');
    QBuffer buffer;
    buffer.setData(large);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    const FileContent content = ReadDevice(buffer);
    QVERIFY(content.complete);
    QVERIFY(content.bytes == large);
  }

  void WritingReplacesTheFileBehindAnotherCase() {
    Put(QStringLiteral("Data/Themes.ini"), "old");
    QVERIFY(WriteFileAtomically(At(QStringLiteral("\\data\\themes.INI")), "new"));
    QCOMPARE(Get(QStringLiteral("Data/Themes.ini")), "new");
    QCOMPARE(QDir(At(QStringLiteral("/Data"))).entryList(QDir::Files), QStringList{QStringLiteral("Themes.ini")});
  }

  void WritingMakesNoFolderAndHarmsNothing() {
    QVERIFY(!WriteFileAtomically(At(QStringLiteral("\\Data\\x.dat")), "x"));
    QVERIFY(!QFileInfo::exists(At(QStringLiteral("/Data"))));
    Put(QStringLiteral("folder/inside.txt"));
    QVERIFY(!WriteFileAtomically(At(QStringLiteral("\\folder")), "x"));
    QCOMPARE(Get(QStringLiteral("folder/inside.txt")), "x");
  }

  void OnAFullDiskTheOldFileStands_data() {
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("size");
    for (const int size : {100, 8000, 100'000}) {
      QTest::addRow("%d bytes, no room at all", size) << 0 << size;
      QTest::addRow("%d bytes, room for a part", size) << size / 2 << size;
    }
  }
  void OnAFullDiskTheOldFileStands() {
    QFETCH(int, room);
    QFETCH(int, size);
    Put(QStringLiteral("Data/a.dat"), "old");
    const QString path = At(QStringLiteral("\\Data\\a.dat"));
    bool written = true;
    bool verified = true;
    {
      const tolmira::testing::FullDisk disk(static_cast<rlim_t>(room));
      written = WriteFileAtomically(path, QByteArray(size, 'x'));
      verified = WriteTextFile(QString(size, u'x'), path, true);
    }
    QVERIFY(!written);
    QVERIFY(!verified);
    QCOMPARE(Get(QStringLiteral("Data/a.dat")), "old");
    QCOMPARE(QDir(At(QStringLiteral("/Data"))).entryList(QDir::Files), QStringList{QStringLiteral("a.dat")});
  }

  void TextFiles() {
    const QString path = At(QStringLiteral("\\no\r\nta.txt"));
    QVERIFY(WriteTextFile(QStringLiteral("é\r\nb"), path, true));
    QCOMPARE(Get(QStringLiteral("nota.txt")), "\xE9\r\nb\r\n");
    QVERIFY(WriteTextFile(QStringLiteral("ש"), path, true));
    QCOMPARE(ReadWholeFile(path), QStringLiteral("ש\r\n"));
    QVERIFY(WriteTextFile(QStringLiteral("é"), path, true));
    QCOMPARE(Get(QStringLiteral("nota.txt")), "\xC3\xA9\r\n");
    QVERIFY(!WriteTextFile(QStringLiteral("x"), At(QStringLiteral("\\none\\x.txt")), false));
    QVERIFY(!WriteTextFile(QStringLiteral("x"), At(QStringLiteral("\\none\\x.txt")), true));
    QCOMPARE(ReadWholeFile(At(QStringLiteral("\\none\\x.txt"))), QString());
  }

  void PagePaths_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, const QString &file, const QString &stored, const QString &path) {
      QTest::newRow(name) << file << stored << path;
    };
    row("as stored", QStringLiteral("Images/a b é.jpg"), QStringLiteral("\\Images\\a b é.jpg"),
        QStringLiteral("\\Images\\a b é.jpg"));
    row("missing", QStringLiteral("x"), QStringLiteral("\\Images\\none.jpg"), QStringLiteral("\\Images\\none.jpg"));
    row("other case", QStringLiteral("Images/A b.jpg"), QStringLiteral("\\images\\a b.jpg"),
        QStringLiteral("/Images/A%20b.jpg"));
    row("percent", QStringLiteral("100%.jpg"), QStringLiteral("\\100%.jpg"), QStringLiteral("/100%25.jpg"));
    row("hash", QStringLiteral("n#1.jpg"), QStringLiteral("\\n#1.jpg"), QStringLiteral("/n%231.jpg"));
    row("question mark", QStringLiteral("a?.jpg"), QStringLiteral("\\a?.jpg"), QStringLiteral("/a%3F.jpg"));
    row("apostrophe", QStringLiteral("d'água.jpg"), QStringLiteral("\\d'água.jpg"),
        QStringLiteral("/d%27%C3%A1gua.jpg"));
  }
  void PagePaths() {
    QFETCH(QString, file);
    QFETCH(QString, stored);
    QFETCH(QString, path);
    Put(file);
    QCOMPARE(PagePath(At(stored)), QString(u"file:///" + At(path)));
  }

  void AppPaths() {
    const AppFolder app(QStringLiteral("/home/ana/tolmira/"));
    QCOMPARE(app.At(u"\\Data\\Config.dat"), QStringLiteral("/home/ana/tolmira\\Data\\Config.dat"));
    const QString stored = QStringLiteral("(APP)\\a.jpg|(APP)\\b.jpg|C:\\c.jpg");
    const QString full = QStringLiteral("/home/ana/tolmira\\a.jpg|/home/ana/tolmira\\b.jpg|C:\\c.jpg");
    QCOMPARE(app.ExpandAppPath(stored), full);
    QCOMPARE(app.CompactAppPath(full), stored);
    QCOMPARE(app.ExpandAppPath(QStringLiteral("C:\\c.jpg")), QStringLiteral("C:\\c.jpg"));
    QCOMPARE(AppFolder(QStringLiteral("/")).CompactAppPath(QStringLiteral("/a")), QStringLiteral("/a"));
  }

  void TemporaryFolder() {
    struct Restore {
      const char *name;
      QByteArray value = qgetenv(name);
      ~Restore() { value.isNull() ? qunsetenv(name) : qputenv(name, value); }
    };
    const Restore temp{"TEMP"};
    const Restore cache{"XDG_CACHE_HOME"};
    const Restore runtime{"XDG_RUNTIME_DIR"};
    const QByteArray ours = m_dir->path().toLocal8Bit();
    qputenv("TEMP", "/some/where\\");
    QCOMPARE(TempFolder(), QStringLiteral("/some/where"));

    qunsetenv("TEMP");
    qputenv("XDG_CACHE_HOME", ours + "/cache");
    qputenv("XDG_RUNTIME_DIR", ours);
    QCOMPARE(TempFolder(), At(QStringLiteral("/tolmira")));
    for (const char *unusable : {"", "/no/such/folder"}) {
      qputenv("XDG_RUNTIME_DIR", unusable);
      QCOMPARE(TempFolder(), At(QStringLiteral("/cache/tolmira/tmp")));
    }
    for (const char *folder : {"/tolmira", "/cache/tolmira/tmp"}) {
      struct stat info = {};
      QCOMPARE(stat(QByteArray(ours + folder).constData(), &info), 0);
      QCOMPARE(info.st_mode & 0777u, 0700u);
    }
  }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
