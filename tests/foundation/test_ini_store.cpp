#include "foundation/ini_store.h"
#include "support/files.h"
#include "support/full_disk.h"

#include <QtTest>

using namespace tolmira;

class TestIniStore : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_dir;
  std::unique_ptr<IniStore> m_store;

  QString Path() const { return m_dir->path() + QStringLiteral("/Data/Config.dat"); }
  void Put(const QByteArray &bytes) const { testing::WriteBytes(Path(), bytes); }
  QByteArray Get() const { return testing::ReadBytes(Path()); }
  QString Read(const QString &section, const QString &key) const {
    const QString value = m_store->ReadConfig(section, key, QStringLiteral("fallback"));
    // A snapshot of the file has to follow the same rules.
    const QString same = IniSnapshot(Path()).Read(section, key, QStringLiteral("fallback"));
    return same == value ? value : QStringLiteral("snapshot: ") + same;
  }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("Data")));
    m_store = std::make_unique<IniStore>(AppFolder(m_dir->path()));
  }

  void Reading_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const QByteArray &file, const QString &value) {
      QTest::newRow(name) << file << value;
    };
    const QString missing = QStringLiteral("fallback");
    row("plain", "[Config]\r\nkey=value\r\n", QStringLiteral("value"));
    row("no line end", "[Config]\nkey=value", QStringLiteral("value"));
    row("case", "[CONFIG]\r\nKEY=value\r\n", QStringLiteral("value"));
    row("blanks", " [Config] \r\n\t key \t=  a b \t\r\n", QStringLiteral("a b"));
    row("no-break space is text", "[Config]\r\nkey=\xA0x\r\n", QStringLiteral(u"\u00A0x"));
    row("empty value", "[Config]\r\nkey=\r\n", missing);
    row("blank value", "[Config]\r\nkey=  \r\n", missing);
    row("quoted", "[Config]\r\nkey=\" a \"\r\n", QStringLiteral(" a "));
    row("single quotes", "[Config]\r\nkey=' a '\r\n", QStringLiteral(" a "));
    row("one pair only", "[Config]\r\nkey=\"\"a\"\"\r\n", QStringLiteral("\"a\""));
    row("unlike quotes", "[Config]\r\nkey=\"a'\r\n", QStringLiteral("\"a'"));
    row("lone quote", "[Config]\r\nkey=\"\r\n", QStringLiteral("\""));
    row("quoted nothing", "[Config]\r\nkey=\"\"\r\n", missing);
    row("equals in value", "[Config]\r\nkey=a=b\r\n", QStringLiteral("a=b"));
    row("first key", "[Config]\r\nkey=1\r\nkey=2\r\n", QStringLiteral("1"));
    row("first key though empty", "[Config]\r\nkey=\r\nkey=2\r\n", missing);
    row("first section", "[Config]\r\na=1\r\n[Other]\r\n[config]\r\nkey=2\r\n", missing);
    row("other section", "[Other]\r\nkey=1\r\n", missing);
    row("before any section", "key=1\r\n[Config]\r\n", missing);
    row("comment", "[Config]\r\n;key=1\r\nkey=2\r\n", QStringLiteral("2"));
    row("unknown lines", "junk\r\n[Config\r\n[Config]\r\nkey\r\n=x\r\nkey=2\r\n", QStringLiteral("2"));
    row("nul ends it", QByteArray("[Config]\r\nkey=a\0b\r\n", 19), QStringLiteral("a"));
    row("utf-8", "[Config]\r\nkey=\xC3\xA9\r\n", QStringLiteral("é"));
    row("utf-8 with mark", "\xEF\xBB\xBF[Config]\r\nkey=\xD7\xA9\r\n", QStringLiteral("ש"));
    row("exactly the limit", "[Config]\r\nkey=" + QByteArray(1023, 'x'), QString(1023, u'x'));
    row("beyond the limit", "[Config]\r\nkey=" + QByteArray(1024, 'x'), QString(1023, u'x'));
    row("empty file", "", missing);
  }
  void Reading() {
    QFETCH(QByteArray, file);
    Put(file);
    QTEST(Read(QStringLiteral("Config"), QStringLiteral("key")), "value");
  }

  void Writing_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("result");
    const auto row = [](const char *name, const QByteArray &before, const QString &value, const QByteArray &after,
                        bool result = true) { QTest::newRow(name) << before << value << after << result; };
    const QString x = QStringLiteral("x");
    row("first value", "", x, "[Config]\r\nkey=x\r\n");
    row("new section", "[A]\r\nkey=1", x, "[A]\r\nkey=1\r\n[Config]\r\nkey=x\r\n");
    row("new key before blank lines", "[Config]\r\na=1\r\n\r\n \r\n[B]\r\n", x,
        "[Config]\r\na=1\r\nkey=x\r\n\r\n \r\n[B]\r\n");
    row("new key in an empty section", "[Config]\r\n\r\n[B]\r\n", x, "[Config]\r\nkey=x\r\n\r\n[B]\r\n");
    row("new key at an open end", "[Config]\r\na=1", x, "[Config]\r\na=1\r\nkey=x\r\n");
    row("new key behind an open section", "[Config]", x, "[Config]\r\nkey=x\r\n");
    row("replaced, the rest stays", "; top\n[config]\n Key = old ; no comment\n;key=1\njunk\nkey=2\n\n[Config]\nkey=3",
        x, "; top\n[config]\n Key =x\n;key=1\njunk\nkey=2\n\n[Config]\nkey=3");
    row("empty value", "[Config]\r\nkey=1\r\n", QString(), "[Config]\r\nkey=\r\n");
    row("line ends cannot break the file", "[Config]\r\nkey=1\r\n", QStringLiteral("a\r\n[B]\nc\rd"),
        "[Config]\r\nkey=a [B] c d\r\n", false);
    row("edge blanks do not come back", "[Config]\r\n", QStringLiteral(" x"), "[Config]\r\nkey= x\r\n", false);
    row("quotes do not come back", "[Config]\r\n", QStringLiteral("\"x\""), "[Config]\r\nkey=\"x\"\r\n", false);
    row("too long to come back", "[Config]\r\n", QString(1024, u'x'),
        "[Config]\r\nkey=" + QByteArray(1024, 'x') + "\r\n", false);
    row("windows-1252", "[Config]\r\n", QStringLiteral("é"), "[Config]\r\nkey=\xE9\r\n");
    row("beyond the code page", "[A]\r\nb=\xE9\r\n", QStringLiteral("ש"),
        "[A]\r\nb=\xC3\xA9\r\n[Config]\r\nkey=\xD7\xA9\r\n");
    row("utf-8 stays", "[Config]\r\na=\xC3\xA9\r\n", x, "[Config]\r\na=\xC3\xA9\r\nkey=x\r\n");
    row("mark stays", "\xEF\xBB\xBF[Config]\r\na=\xC3\xA9\r\n", x, "\xEF\xBB\xBF[Config]\r\na=\xC3\xA9\r\nkey=x\r\n");
    row("undefined bytes and nul stay", QByteArray("[A]\r\nb=\x81\0\xC3\r\n", 12), x,
        QByteArray("[A]\r\nb=\x81\0\xC3\r\n", 12) + "[Config]\r\nkey=x\r\n");
  }
  void Writing() {
    QFETCH(QByteArray, before);
    QFETCH(QString, value);
    Put(before);
    QTEST(m_store->WriteConfig(QStringLiteral("Config"), QStringLiteral("key"), value), "result");
    QTEST(Get(), "after");
  }

  void NamesThatCannotComeBackAreNotWritten_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::newRow("empty key") << QStringLiteral("A") << QString();
    QTest::newRow("equals") << QStringLiteral("A") << QStringLiteral("a=b");
    QTest::newRow("comment") << QStringLiteral("A") << QStringLiteral(";a");
    QTest::newRow("section mark") << QStringLiteral("A") << QStringLiteral("[a]");
    QTest::newRow("line end in key") << QStringLiteral("A") << QStringLiteral("a\nb");
    QTest::newRow("line end in section") << QStringLiteral("A]\r\n[B") << QStringLiteral("a");
  }
  void NamesThatCannotComeBackAreNotWritten() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    Put("[A]\r\nx=1\r\n");
    QVERIFY(!m_store->WriteConfig(section, key, QStringLiteral("v")));
    QCOMPARE(Get(), "[A]\r\nx=1\r\n");
  }

  void ThePathIsHandedBack() {
    QString file;
    m_store->ReadConfig(QStringLiteral("Config"), QStringLiteral("key"), QString(), file);
    QCOMPARE(file, QString(m_dir->path() + u"\\Data\\Config.dat"));
    QString other = m_dir->path() + QStringLiteral("\\Data\\Other.dat");
    QVERIFY(m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("1"), other));
    QVERIFY(QFileInfo::exists(m_dir->path() + QStringLiteral("/Data/Other.dat")));
    QVERIFY(!QFileInfo::exists(Path()));
  }

  void NoFolderIsMade() {
    QVERIFY(QDir(m_dir->path()).rmdir(QStringLiteral("Data")));
    QVERIFY(!m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("1")));
    QVERIFY(!QFileInfo::exists(m_dir->path() + QStringLiteral("/Data")));
    QCOMPARE(Read(QStringLiteral("A"), QStringLiteral("b")), QStringLiteral("fallback"));
  }

  void AFolderInTheFilesPlace() {
    QVERIFY(QDir().mkdir(Path()));
    QVERIFY(!m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("1")));
    QCOMPARE(Read(QStringLiteral("A"), QStringLiteral("b")), QStringLiteral("fallback"));
  }

  void AFileBeyondTheLimitIsNotRewritten() {
    Put("[A]\r\nb=1\r\n");
    QFile file(Path());
    QVERIFY(file.resize(65 * 1024 * 1024)); // a sparse file, so that this costs nothing
    QVERIFY(!m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("2")));
    QCOMPARE(file.size(), 65 * 1024 * 1024);
  }

  void OnAFullDiskEveryOldValueStands() {
    const QByteArray before = "[A]\r\nb=1\r\n";
    Put(before);
    bool written = true;
    {
      const tolmira::testing::FullDisk disk(4);
      written = m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("2"));
    }
    QVERIFY(!written);
    QCOMPARE(Get(), before);
  }

  void EachReadGoesToTheFile() {
    QVERIFY(m_store->WriteConfig(QStringLiteral("A"), QStringLiteral("b"), QStringLiteral("1")));
    Put("[A]\r\nb=2\r\n");
    QCOMPARE(Read(QStringLiteral("A"), QStringLiteral("b")), QStringLiteral("2"));
  }

  void RegistroIsASection() {
    const Registro registro(*m_store);
    QCOMPARE(registro.ReadValue(QStringLiteral("Alinhamento"), QStringLiteral("2")), QStringLiteral("2"));
    registro.WriteValue(QStringLiteral("Alinhamento"), QStringLiteral("0"));
    QCOMPARE(registro.ReadValue(QStringLiteral("Alinhamento"), QStringLiteral("2")), QStringLiteral("0"));
    QCOMPARE(Get(), "[Registro]\r\nAlinhamento=0\r\n");
  }
};

QTEST_GUILESS_MAIN(TestIniStore)
#include "test_ini_store.moc"
