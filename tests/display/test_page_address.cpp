#include "display/page_address.h"
#include "foundation/text_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;

class TestPageAddress : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void findsTheFile_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked"); // %1 is the folder
    QTest::newRow("four slashes") << "temp.html"
                                  << "file:///%1/temp.html";
    QTest::newRow("three slashes") << "temp.html"
                                   << "file://%1/temp.html";
    QTest::newRow("bare path") << "temp.html"
                               << "%1/temp.html";
    QTest::newRow("backslashes") << "temp.html"
                                 << "file:///%1\\temp.html";
    QTest::newRow("other case") << "Temp.HTML"
                                << "file:///%1\\temp.html";
    QTest::newRow("line end in the path") << "temp.html"
                                          << "file:///%1/temp.html\r\n";
    QTest::newRow("space and accent") << "página um.html"
                                      << "file:///%1/página um.html";
    QTest::newRow("percent in the name") << "100%.html"
                                         << "file:///%1/100%.html";
    QTest::newRow("an escape in the name") << "a%20b.html"
                                           << "file:///%1/a%20b.html";
    QTest::newRow("number sign") << "hino #3.html"
                                 << "file:///%1/hino #3.html";
    QTest::newRow("question mark") << "quem?.html"
                                   << "%1\\quem?.html";
    QTest::newRow("percent-encoded") << "hino #3.html"
                                     << "file:///%1/hino%20%233.html";
  }
  void findsTheFile() {
    QFETCH(QString, name);
    QFETCH(QString, asked);
    QTemporaryDir folder;
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(PageAddress(asked.arg(folder.path())).toLocalFile(), file.fileName());
  }

  void takesWhatPagePathGives() {
    QTemporaryDir folder;
    for (const QString &name : {QStringLiteral("a.html"), QStringLiteral("50% #1?'.html"), QStringLiteral("B.html")}) {
      QFile file(folder.filePath(name));
      QVERIFY(file.open(QIODevice::WriteOnly));
      QCOMPARE(PageAddress(PagePath(folder.path() + u'\\' + name.toLower())).toLocalFile(), file.fileName());
    }
  }

  void keepsQueryAndFragmentOfAFile() {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("show.html")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QUrl url = PageAddress(QStringLiteral("file:///%1/show.html?n=3#end").arg(folder.path()));
    QCOMPARE(url.toLocalFile(), file.fileName());
    QCOMPARE(url.query(), QStringLiteral("n=3"));
    QCOMPARE(url.fragment(), QStringLiteral("end"));
  }

  void leavesWebAddressesAlone() {
    const QString text = QStringLiteral("https://example.org/embed/x?autoplay=1");
    QCOMPARE(PageAddress(text).toString(), text);
    QCOMPARE(PageAddress(QStringLiteral("about:blank")).scheme(), QStringLiteral("about"));
  }

  void namesAMissingFileAsWritten() {
    QCOMPARE(PageAddress(QStringLiteral("file:////nowhere/x.html")).toLocalFile(), QStringLiteral("/nowhere/x.html"));
  }
};

QTEST_GUILESS_MAIN(TestPageAddress)
#include "test_page_address.moc"
