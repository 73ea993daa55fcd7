#include "songs/song_text.h"
#include "support/files.h"
#include "support/full_disk.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using testing::ReadBytes;

namespace {

QString SamplesFolder() {
  return qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + QStringLiteral("/tests/data/songs");
}

QString Lines(const char *text) {
  return QString::fromUtf8(text).replace(u'\n', QStringLiteral("\r\n"));
}

} // namespace

class TestSongText : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_dir = std::make_unique<QTemporaryDir>();
    m_app = std::make_unique<AppFolder>(m_dir->path());
    for (const char *folder : {"Lyrics", "Harpa", "Cantor"})
      QVERIFY(QDir(m_dir->path()).mkdir(QLatin1String(folder)));
  }

  // Every sample: what is shown, and what stands in the file afterwards (the same bytes where no expectation lies
  // beside it).
  void samples_data() {
    QTest::addColumn<QString>("sample");
    QDirIterator found(SamplesFolder(), {QStringLiteral("*.txt")}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
      const QString sample = QDir(SamplesFolder()).relativeFilePath(found.next()).chopped(4);
      if (!sample.startsWith(u"expected/"))
        QTest::addRow("%s", qPrintable(sample)) << sample;
    }
  }
  void samples() {
    QFETCH(QString, sample);
    const QString source = SamplesFolder() + u'/' + sample + u".txt";
    const QString expected = SamplesFolder() + u"/expected/" + sample;
    const QString opened = m_dir->path() + u'/' + sample + u".txt";
    QVERIFY(QFile::copy(source, opened));

    const PreparedSong song = PrepareSongText(*m_app, Stored(sample), false);

    QCOMPARE(song.text, QString::fromUtf8(ReadBytes(expected + u".shown.txt")));
    const QString changed = expected + u".file.txt";
    QCOMPARE(ReadBytes(opened), ReadBytes(QFileInfo::exists(changed) ? changed : source));
    QCOMPARE(song.fileName, sample.section(u'/', -1));
    QCOMPARE(song.tipo == TipoLouvor::Louvor, sample.startsWith(u"Lyrics"));

    const PreparedSong again = PrepareSongText(*m_app, Stored(sample), false);
    QCOMPARE(again.text, song.text);
  }

  void aRepairedFileIsNotWrittenAgain() {
    const QString path = Write(QStringLiteral("Lyrics/a.txt"), "Um\r\nDois");
    const QDateTime old(QDate(2001, 2, 3), QTime(4, 5));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(old, QFileDevice::FileModificationTime));
    file.close();
    ReadSongFile(*m_app, m_app->At(u"\\Lyrics\\a.txt"));
    QCOMPARE(QFileInfo(path).lastModified(), old);
  }

  void repairLooksAtTheFolderWithoutRegardToCaseOrSeparator() {
    for (const char16_t *path : {u"\\LYRICS\\a.TXT", u"/lyrics/a.txt"}) {
      Write(QStringLiteral("Lyrics/a.txt"), "Um\r\ndois");
      QCOMPARE(ReadSongFile(*m_app, m_app->At(path)), QStringLiteral("Um dois"));
    }
    QTemporaryDir elsewhere;
    QVERIFY(QDir(elsewhere.path()).mkdir(QStringLiteral("Lyrics")));
    QFile other(elsewhere.filePath(QStringLiteral("Lyrics/a.txt")));
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("Um\r\ndois");
    other.close();
    QCOMPARE(ReadSongFile(*m_app, other.fileName()), Lines("\nUm\ndois"));
  }

  void aFileThatIsNotThereIsEmpty() {
    QCOMPARE(ReadSongFile(*m_app, m_app->At(u"\\Lyrics\\none.txt")), QString());
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("Lyrics/folder.txt")));
    QCOMPARE(PrepareSongText(*m_app, m_app->At(u"\\Lyrics\\folder.txt"), true).text, QString());
  }

  void aSongThatCannotBeWrittenIsShownRepaired() {
    // The new file is made beside the old one, so a name of the greatest length leaves no room for it.
    const QString name = QString(251, u'x') + u".txt";
    const QString path = Write(QStringLiteral("Lyrics/") + name, "Um\r\ndois");
    QCOMPARE(ReadSongFile(*m_app, m_app->At(u"\\Lyrics\\") + name), QStringLiteral("Um dois"));
    const QByteArray after = ReadBytes(path);
    QVERIFY2(after == "Um\r\ndois" || after == "Um dois", after.constData());
  }

  void onAFullDiskASongIsShownRepairedAndItsFileStands() {
    const QByteArray before = QByteArray("Um \r\n").repeated(2000);
    const QString path = Write(QStringLiteral("Lyrics/a.txt"), before);
    QString shown;
    {
      const tolmira::testing::FullDisk disk(4096);
      shown = ReadSongFile(*m_app, m_app->At(u"\\Lyrics\\a.txt"));
    }
    QVERIFY(shown.startsWith(QStringLiteral("Um\r\nUm\r\n")));
    QCOMPARE(ReadBytes(path), before);
  }

  void theKindComesFromThePath_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("hymn");
    QTest::newRow("hymnal") << QStringLiteral("C:\\x\\HARPA\\1 a.txt") << true;
    QTest::newRow("second hymnal, slashes") << QStringLiteral("/x/cantor/1 a.txt") << true;
    QTest::newRow("worship song") << QStringLiteral("/x/Lyrics/Harpa.txt") << false;
    QTest::newRow("folder that only begins so") << QStringLiteral("/x/Harpa nova/a.txt") << false;
  }
  void theKindComesFromThePath() {
    QFETCH(QString, path);
    QFETCH(bool, hymn);
    QCOMPARE(TipoDoCaminho(path) == TipoLouvor::Harpa, hymn);
  }

  void textThatIsNoPathIsTakenAsItIs() {
    const PreparedSong song = PrepareSongText(*m_app, Lines("\n\nUm <b>\ndois\n\n\n\n\nTrês"), false);
    QCOMPARE(song.text, Lines("Um <b>\ndois\n\nTrês"));
    QCOMPARE(song.fileName, QString());
  }

  void capitalsComeAfterTheChorus() {
    Write(QStringLiteral("Harpa/1 a.txt"), "1. Um\r\n\r\nCoro\r\nSIM\r\n\r\n2. \xE9s");
    const PreparedSong song = PrepareSongText(*m_app, m_app->At(u"\\Harpa\\1 a.TXT"), true);
    QCOMPARE(song.sourceText, Lines("1. Um\n\nSIM\n\n2. és\n\nSIM\n\n"));
    QCOMPARE(song.text, Lines("1. UM\n\nSIM\n\n2. ÉS\n\nSIM\n\n"));
    QVERIFY(song.maiusculo);
    QCOMPARE(song.fileName, QStringLiteral("1 a"));
  }

  void chorusRule_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    const QString twoStanzas = Lines("1. a\n\nB\n\n");
    QTest::newRow("stanza and chorus only") << Lines("1. a\n\nB") << twoStanzas;
    QTest::newRow("chorus without letters") << Lines("1. a\n\n(2)") << Lines("1. a\n\n(2)\n\n");
    QTest::newRow("dash inside the chorus") << Lines("1. a\n\nB\n-\nC") << Lines("1. a\n\nB\n \nC\n\n");
    for (const char *unchanged : {"", "1. a", "2. a\n\nB", "a\n\nB", "1. a\n\nB\n\n2. c\n\n2. d", "1. a\n\nB\n\nc"})
      QTest::addRow("unchanged: %s", unchanged) << Lines(unchanged) << Lines(unchanged);
  }
  void chorusRule() {
    QFETCH(QString, text);
    QFETCH(QString, result);
    QCOMPARE(RepeatChorus(text), result);
  }

  void aChorusThatWouldFillTheMemoryIsNotRepeated() {
    QString text = QStringLiteral("1. a\r\n\r\n") + QString(1'000'000, u'X');
    for (int i = 2; i < 2000; ++i)
      text += QStringLiteral("\r\n\r\n%1. b").arg(i);
    QCOMPARE(RepeatChorus(text).size(), text.size());
  }

  void blankRunsShrink_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    for (const auto &[before, after] : {std::pair{1, 1}, {2, 2}, {3, 2}, {4, 2}, {5, 2}, {8, 4}, {12, 5}})
      QTest::addRow("%d", before) << before << after;
  }
  void blankRunsShrink() {
    QFETCH(int, before);
    QFETCH(int, after);
    QCOMPARE(CollapseBlankRuns(QStringLiteral("\r\n").repeated(before)), QStringLiteral("\r\n").repeated(after));
  }

  void pathsAreResolved() {
    const QString given = Write(QStringLiteral("loose.txt"), "x");
    Write(QStringLiteral("Lyrics/a.txt"), "x");
    Write(QStringLiteral("Lyrics/5 a.txt"), "x");
    Write(QStringLiteral("Cantor/5 a.txt"), "x");
    Write(QStringLiteral("Cantor/6 a.txt"), "x");
    Write(QStringLiteral("Harpa/6 a.txt"), "x");
    Write(QStringLiteral("Harpa/a.txt"), "x");
    QCOMPARE(ResolveSongPath(*m_app, given), given);
    QCOMPARE(ResolveSongPath(*m_app, QStringLiteral("A.TXT")), m_app->At(u"\\Lyrics\\A.TXT"));
    QCOMPARE(ResolveSongPath(*m_app, QStringLiteral("5 a.txt")), m_app->At(u"\\Cantor\\5 a.txt"));
    QCOMPARE(ResolveSongPath(*m_app, QStringLiteral("6 a.txt")), m_app->At(u"\\Harpa\\6 a.txt"));
    QCOMPARE(ResolveSongPath(*m_app, QStringLiteral("b.txt")), QString());
    QCOMPARE(ResolveSongPath(*m_app, QString()), QString());
  }

  void stanzaAtCaret_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("stanza");
    const QString text = Lines("Um\nDois\n\nTrês\n\n Quatro ");
    const int secondStart = static_cast<int>(text.indexOf(u"Três"));
    const QString first = Lines("Um\nDois");
    QTest::newRow("start") << text << 0 << first;
    QTest::newRow("end of the first") << text << secondStart - 4 << first;
    QTest::newRow("start of the second") << text << secondStart << QStringLiteral("Três");
    QTest::newRow("end of the second") << text << secondStart + 4 << QStringLiteral("Três");
    QTest::newRow("end of the text") << text << static_cast<int>(text.size()) << QStringLiteral("Quatro");
    QTest::newRow("behind the text") << text << 1000 << QStringLiteral("Quatro");
    QTest::newRow("too near to the start") << Lines("\n\nUm") << 4 << QString();
    QTest::newRow("empty") << QString() << 9 << QString();
    QTest::newRow("negative") << text << -1 << first;
  }
  void stanzaAtCaret() {
    QFETCH(QString, text);
    QFETCH(int, caret);
    QFETCH(QString, stanza);
    QCOMPARE(StanzaAtCaret(text, caret), stanza);
  }

  // The time limit of the test is the assertion: a quadratic pass over megabytes would take hours.
  void hugeFilesDoNotHang_data() {
    QTest::addColumn<QByteArray>("bytes");
    constexpr int size = 2'000'000;
    QTest::newRow("one line") << QByteArray(size, 'x');
    QTest::newRow("blanks") << QByteArray(size, ' ');
    QTest::newRow("line ends") << QByteArray("\r\n").repeated(size / 2);
    QTest::newRow("broken lines") << QByteArray("a b\r\n").repeated(size / 5);
    QTest::newRow("small l") << QByteArray("l.").repeated(size / 2);
  }
  void hugeFilesDoNotHang() {
    QFETCH(QByteArray, bytes);
    Write(QStringLiteral("Harpa/1 a.txt"), bytes);
    PrepareSongText(*m_app, m_app->At(u"\\Harpa\\1 a.txt"), true);
  }

private:
  QString Stored(QString sample) const {
    return m_app->At(u"\\") + sample.replace(u'/', u'\\') + QStringLiteral(".txt");
  }
  QString Write(const QString &relative, const QByteArray &bytes) const {
    QFile file(m_dir->filePath(relative));
    if (file.open(QIODevice::WriteOnly))
      file.write(bytes);
    return file.fileName();
  }

  std::unique_ptr<QTemporaryDir> m_dir;
  std::unique_ptr<AppFolder> m_app;
};

QTEST_GUILESS_MAIN(TestSongText)
#include "test_song_text.moc"
