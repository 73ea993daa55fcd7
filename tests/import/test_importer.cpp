#include "bible/bible_store.h"
#include "bible/books.h"
#include "foundation/text_file.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <rawcom.h>
#include <rawtext.h>
#include <versekey.h>

using namespace tolmira;

// The importer as a program: with the real King James module, and with small modules that are made here.
class TestImporter : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> m_temp;
  QByteArray m_output;

  QString Temp(const QString &name) const { return m_temp->filePath(name); }
  QString Folder() const { return Temp(QStringLiteral("Bible")); }

  // Runs the importer; `library` is the folder of modules of our own, nothing for those of the system.
  int Import(const QStringList &arguments, const QString &library = QString()) {
    QProcess importer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_temp->path());
    if (!library.isEmpty())
      environment.insert(QStringLiteral("SWORD_PATH"), library);
    importer.setProcessEnvironment(environment);
    importer.setProcessChannelMode(QProcess::MergedChannels);
    importer.start(qEnvironmentVariable("TOLMIRA_BIN_DIR") + QStringLiteral("/tolmira-bible-import"), arguments);
    if (!importer.waitForFinished() || importer.exitStatus() != QProcess::NormalExit)
      return -1;
    m_output = importer.readAll();
    return importer.exitCode();
  }

  struct Entry {
    const char *reference;
    QByteArray text;
  };

  template <class Module>
  QString MakeModule(const QByteArray &driver, const QByteArray &configuration, const std::vector<Entry> &entries,
                     const char *numbering = "KJV") {
    const QString library = Temp(QStringLiteral("library"));
    const QString data = library + QStringLiteral("/modules/small");
    QDir().mkpath(library + QStringLiteral("/mods.d"));
    QDir().mkpath(data);
    WriteFileAtomically(library + QStringLiteral("/mods.d/small.conf"),
                        "[Small]\nDataPath=./modules/small/\nModDrv=" + driver +
                            "\nDescription=Small\nLang=en\nVersification=" + numbering + "\n" + configuration);
    const QByteArray path = QFile::encodeName(data);
    Module::createModule(path.constData(), numbering);
    Module module(path.constData(), nullptr, nullptr, nullptr, sword::ENC_UTF8, sword::DIRECTION_LTR, sword::FMT_PLAIN,
                  nullptr, numbering);
    for (const Entry &entry : entries) {
      sword::VerseKey key;
      key.setVersificationSystem(numbering);
      key.setText(entry.reference);
      module.setKey(key);
      module.setEntry(entry.text.constData(), entry.text.size());
    }
    return library;
  }

  int ImportSmall(const QString &library) {
    return Import({QStringLiteral("Small"), QStringLiteral("X"), Folder()}, library);
  }
  QByteArray File(const QString &name) const { return ReadFileContent(Folder() + u'/' + name).bytes; }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_temp = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(Temp(QStringLiteral("Data"))));
  }

  void kingJames() {
    QCOMPARE(Import({QStringLiteral("engKJV2006eb"), QStringLiteral("KJV"), Folder()}), 0);
    QCOMPARE(m_output, "KJV: 66 books, 1,189 chapters, 31,102 verses\n");

    const AppFolder app(m_temp->path());
    const IniStore settings(app);
    BibleStore store(app, settings);
    store.BuildVersionMenu();
    QCOMPARE(store.VersaoBiblia(), QStringLiteral("KJV"));

    static const QRegularExpression header(QStringLiteral("^>(.+) \\[(\\d+)\\]$"));
    static const QRegularExpression unwanted(
        QStringLiteral("[<>\\\\{}_|*#¶&\\x{FFFD}]|  | $|strong:[GH]|[GH]\\d{3}|[a-z][A-Z]|[,;:?][A-Za-z]"));
    int book = 0;
    int chapter = 0;
    int verse = 0;
    int chapters = 0;
    int verses = 0;
    for (const QString &name : {QStringLiteral("OLD_KJV.txt"), QStringLiteral("NEW_KJV.txt")}) {
      const QByteArray bytes = File(name);
      QVERIFY(bytes.endsWith("\r\n"));
      QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
      QCOMPARE(DecodeText(bytes).encoding, TextEncoding::Windows1252);
      const QStringList lines = DecodeText(bytes.chopped(2)).text.split(QStringLiteral("\r\n"));
      for (const QString &line : lines) {
        const QRegularExpressionMatch start = header.match(line);
        if (start.hasMatch()) {
          if (chapter == ChapterCount(book)) {
            ++book;
            chapter = 0;
          }
          QCOMPARE(line, QString(u'>' + BookName(book) + u" [" + QString::number(++chapter) + u']'));
          verse = 0;
          ++chapters;
          continue;
        }
        const QString number = QString::number(++verse) + u' ';
        QVERIFY2(line.startsWith(number) && line.size() > number.size() + 5, qPrintable(line));
        QVERIFY2(!line.contains(unwanted), qPrintable(line));
        QString reference = BookName(book) + u' ' + QString::number(chapter) + u':' + QString::number(verse);
        QCOMPARE(store.GetVerse(reference), line);
        ++verses;
      }
    }
    QCOMPARE(book, 66);
    QCOMPARE(chapters, 1189);
    QCOMPARE(verses, 31102);

    for (const auto &[known, text] :
         {std::pair(u"Genesis 1:1", u"1 In the beginning God created the heaven and the earth."),
          std::pair(u"Psalms 117:1", u"1 O praise the LORD, all ye nations: praise him, all ye people."),
          std::pair(u"John 3:16",
                    u"16 For God so loved the world, that he gave his only begotten Son, that whosoever believeth in "
                    u"him should not perish, but have everlasting life."),
          std::pair(u"Revelation 22:21", u"21 The grace of our Lord Jesus Christ be with you all. Amen.")}) {
      QString reference = QString::fromUtf16(known);
      QCOMPARE(store.GetVerse(reference), QString::fromUtf16(text));
    }
  }

  void installedBiblesAreListed() {
    QCOMPARE(Import({QStringLiteral("--list")}), 0);
    QVERIFY2(m_output.contains("engKJV2006eb\ten\tKing James Version\n"), m_output.constData());
  }

  void incompleteModule() {
    const QString library = MakeModule<sword::RawText>("RawText", "Encoding=Latin-1\n",
                                                       {{"Ezra 1:1", "Ci\xf3"
                                                                     "ro"},
                                                        {"Ezra 1:3", "third"},
                                                        {"Ezra 3:1", "seventh month"},
                                                        {"Jude 1:1", "servant"}});
    QCOMPARE(ImportSmall(library), 0);
    QVERIFY2(m_output.startsWith("X: 2 books, 3 chapters, 4 verses\nX: 64 books are not in the module: Genesis, "),
             m_output.constData());
    QVERIFY2(m_output.contains("X: 8 chapters are without text: Ezra 2, Ezra 4, "), m_output.constData());
    QVERIFY2(m_output.contains("verses are without text: Ezra 1:2, Ezra 1:4, "), m_output.constData());
    QVERIFY2(m_output.contains("blanks stand before the first chapters"), m_output.constData());
    QCOMPARE(File(QStringLiteral("OLD_X.txt")).trimmed(),
             ">Ezra [1]\r\n1 Ci\xf3ro\r\n2 \r\n3 third\r\n>Ezra [3]\r\n1 seventh month");
    QCOMPARE(File(QStringLiteral("NEW_X.txt")).trimmed(), ">Jude [1]\r\n1 servant");
  }

  // The numbering is the module's own: Joel has four chapters in the Hebrew one.
  void otherNumbering() {
    const QString library = MakeModule<sword::RawText>(
        "RawText", "Encoding=UTF-8\nSourceType=OSIS\n",
        {{"Joel 4:21", "<w>I will cleanse</w><note>x</note>"}, {"Gen 1:1", "In <title>T</title>"}}, "Leningrad");
    QCOMPARE(ImportSmall(library), 0);
    QVERIFY(File(QStringLiteral("OLD_X.txt")).contains(">Joel [4]\r\n1 \r\n"));
    QVERIFY(File(QStringLiteral("OLD_X.txt")).endsWith("\r\n21 I will cleanse\r\n"));
    QVERIFY(File(QStringLiteral("NEW_X.txt")).isEmpty());
  }

  void refusals_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("message");
    const QString small = QStringLiteral("Small");
    const QString name = QStringLiteral("X");
    QTest::newRow("unknown module") << QStringList{QStringLiteral("Missing"), name, QStringLiteral("Bible")} << 1
                                    << QByteArray("there is no SWORD module 'Missing' here; installed are ");
    QTest::newRow("file for a folder") << QStringList{small, name, QStringLiteral("file")} << 1
                                       << QByteArray("file cannot be made");
    QTest::newRow("short name") << QStringList{small, QStringLiteral("A_B"), QStringLiteral("Bible")} << 2
                                << QByteArray("letters, digits and hyphens");
    QTest::newRow("no folder") << QStringList{small, name} << 2 << QByteArray("give MODULE SHORTNAME FOLDER");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--all")} << 2 << QByteArray("Unknown option");
  }
  void refusals() {
    QFETCH(QStringList, arguments);
    QVERIFY(WriteFileAtomically(Temp(QStringLiteral("file")), "here"));
    const QString library = MakeModule<sword::RawText>("RawText", "Encoding=UTF-8\n", {{"Gen 1:1", "In"}});
    if (arguments.size() == 3)
      arguments[2] = Temp(arguments[2]);
    QTEST(Import(arguments, library), "code");
    QFETCH(QByteArray, message);
    QVERIFY2(m_output.startsWith("tolmira-bible-import: ") && m_output.contains(message), m_output.constData());
    QVERIFY(!QDir(Folder()).exists());
    QCOMPARE(ReadFileContent(Temp(QStringLiteral("file"))).bytes, "here");
  }

  // Its data were cut off: what the library cannot unpack is told as missing, in one line.
  void damagedModule() {
    const QString library = Temp(QStringLiteral("library"));
    const QString data = library + QStringLiteral("/modules/texts/ztext/spaRV1909eb");
    QVERIFY(QDir().mkpath(library + QStringLiteral("/mods.d")) && QDir().mkpath(data));
    const QString installed = QStringLiteral("/usr/share/sword");
    QVERIFY(QFile::copy(installed + QStringLiteral("/mods.d/spaRV1909eb.conf"),
                        library + QStringLiteral("/mods.d/spaRV1909eb.conf")));
    for (const char *name : {"ot.bzs", "ot.bzv", "ot.bzz", "nt.bzs", "nt.bzv", "nt.bzz"}) {
      const QString file = QStringLiteral("/modules/texts/ztext/spaRV1909eb/") + QLatin1String(name);
      QVERIFY(QFile::copy(QString(installed + file), QString(library + file)));
    }
    QVERIFY(QFile::resize(data + QStringLiteral("/ot.bzz"), 300000));
    QCOMPARE(Import({QStringLiteral("spaRV1909eb"), QStringLiteral("X"), Folder()}, library), 0);
    QVERIFY2(m_output.contains("X: 36 books are not in the module: Numbers, "), m_output.left(2000).constData());
    QVERIFY2(m_output.count('\n') == 3, m_output.left(2000).constData());
  }

  void modulesThatGiveNothing() {
    const QString commentary = MakeModule<sword::RawCom>("RawCom", "Encoding=UTF-8\n", {{"Gen 1:1", "On this"}});
    QCOMPARE(ImportSmall(commentary), 1);
    QVERIFY2(m_output.contains("is no Bible"), m_output.constData());
    const QString empty = MakeModule<sword::RawText>("RawText", "Encoding=UTF-8\n", {});
    QCOMPARE(ImportSmall(empty), 1);
    QVERIFY2(m_output.contains("no verse of the module Small can be read"), m_output.constData());
    const QString locked = MakeModule<sword::RawText>("RawText", "CipherKey=\n", {{"Gen 1:1", "@#%"}});
    QCOMPARE(ImportSmall(locked), 1);
    QVERIFY2(m_output.contains("is locked"), m_output.constData());
    QVERIFY(!QDir(Folder()).exists());
  }
};

QTEST_GUILESS_MAIN(TestImporter)
#include "test_importer.moc"
