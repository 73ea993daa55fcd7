#include "bible/bible_store.h"
#include "foundation/text_file.h"
#include "bible/store_room.h"
#include "support/small_bible.h"

#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

class TestVersionMenu : public QObject, protected StoreRoom {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(MakeRoom());
  }

  void TheMenuFollowsTheFolder() {
    for (const char *name : {"OLD_web", "OLD_Abc_Two", "NEW_Only", "OLD_KJV"})
      QVERIFY(SmallBible::WriteFile(m_dir->path(), QLatin1String(name), ">Genesis [1]\r\n1 a\r\n"));
    QVERIFY(QFile::rename(BiblePath("OLD_web.txt"), BiblePath("old_Web.TXT")));
    QVERIFY(QFile::rename(m_dir->filePath(QStringLiteral("Bible")), m_dir->filePath(QStringLiteral("BIBLE"))));
    m_bible->BuildVersionMenu();
    QStringList files, captions;
    for (const BibleVersion &version : m_bible->Versoes()) {
      files.append(version.arquivo);
      captions.append(version.legenda);
    }
    QCOMPARE(files, QStringList({QStringLiteral("OLD_Abc_Two.txt"), QStringLiteral("OLD_KJV.txt"),
                                 QStringLiteral("old_Web.TXT")}));
    QCOMPARE(captions, QStringList({QStringLiteral("Abc"), QStringLiteral("KJV"), QStringLiteral("Web")}));
    QVERIFY(m_bible->ChooseVersion(3));
    QCOMPARE(m_bible->VersaoBiblia(), QStringLiteral("Web"));
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 a"));
  }

  // Which version is chosen at start, and what the section then says.
  void Choice_data() {
    QTest::addColumn<QString>("stored"); // of the section
    QTest::addColumn<QStringList>("versions");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QStringList>("section"); // lines afterwards
    const QStringList two = {QStringLiteral("ARA"), QStringLiteral("KJV")};
    const auto row = [](const char *name, const char *stored, const QStringList &versions, int chosen,
                        const char *section) {
      QTest::newRow(name) << QString(QLatin1String(stored)) << versions << chosen
                          << QString(QLatin1String(section)).split(u'|');
    };
    row("first start", "", two, 1, "DefaultText=OLD_ARA.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt|Default=1");
    row("as it was left", "Default=2\r\nDefaultText=OLD_KJV.txt\r\n1v=OLD_ARA.txt\r\n2v=OLD_KJV.txt\r\n", two, 2,
        "Default=2|DefaultText=OLD_KJV.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt");
    row("the chosen file has gone", "Default=2\r\nDefaultText=OLD_WEB.txt\r\n", two, 1,
        "Default=1|DefaultText=OLD_ARA.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt");
    row("a name with its extension: the index holds", "Default=1\r\nDefaultText=OLD_KJV.txt\r\n", two, 1,
        "Default=1|DefaultText=OLD_ARA.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt");
    row("index behind the last: the name counts", "Default=3\r\nDefaultText=OLD_KJV.txt\r\n", two, 2,
        "Default=2|DefaultText=OLD_KJV.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt");
    row("no number", "Default=x\r\nDefaultText=OLD_ARA.txt\r\n", two, 1,
        "Default=1|DefaultText=OLD_ARA.txt|1v=OLD_ARA.txt|2v=OLD_KJV.txt");
    row("no version", "Default=2\r\nDefaultText=OLD_KJV.txt\r\n2v=OLD_KJV.txt\r\n", {}, 2,
        "Default=2|DefaultText=OLD_KJV.txt|2v=OLD_KJV.txt");
  }
  void Choice() {
    QFETCH(QString, stored);
    QFETCH(QStringList, versions);
    QFETCH(int, chosen);
    const QString config = m_app->At(u"\\Data\\Config.dat");
    if (!stored.isEmpty())
      QVERIFY(WriteFileAtomically(config, "[Biblias]\r\n" + stored.toLatin1()));
    for (const QString &version : versions)
      QVERIFY(SmallBible::WriteFile(m_dir->path(), u"OLD_" + version,
                                    ">Genesis [1]\r\n1 in " + version.toLatin1() + "\r\n"));
    m_bible->BuildVersionMenu();
    QCOMPARE(m_bible->BibliaAtual(), chosen);
    QCOMPARE(static_cast<qsizetype>(m_bible->Versoes().size()), versions.size());
    const QString caption = versions.isEmpty() ? QString() : versions.at(chosen - 1);
    QCOMPARE(m_bible->LegendaAtual(), caption);
    QCOMPARE(Fetch(u"Genesis 1:1"), versions.isEmpty() ? QString() : QString(u"1 in " + caption));
    QStringList section = ReadWholeFile(config).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    QCOMPARE(section.takeFirst(), QStringLiteral("[Biblias]"));
    QTEST(section, "section");
  }

  void ChoosingStoresAndLoads() {
    for (const QString &version : {QStringLiteral("ARA"), QStringLiteral("KJV")})
      QVERIFY(SmallBible().Chapter(1, 1, {version}).Write(m_dir->path(), version));
    m_bible->BuildVersionMenu();
    for (const int index : {1, 0, -1, 3})
      QVERIFY(!m_bible->ChooseVersion(index));
    QVERIFY(m_bible->ChooseVersion(2));
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 KJV"));
    QCOMPARE(m_bible->VersaoBiblia(), QStringLiteral("KJV"));

    // Read once per run: what happens to the file counts at the next scan.
    QVERIFY(QFile::remove(BiblePath("OLD_KJV.txt")));
    QVERIFY(m_bible->ChooseVersion(1) && m_bible->ChooseVersion(2));
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 KJV"));
    m_bible->BuildVersionMenu();
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 ARA"));
    QCOMPARE(m_bible->BibliaAtual(), 1);
  }

private:
  QString BiblePath(const char *name) const { return m_dir->filePath(QLatin1String("Bible/") + QLatin1String(name)); }
};

QTEST_GUILESS_MAIN(TestVersionMenu)
#include "test_version_menu.moc"
