#include "foundation/text_file.h"
#include "notices/notice_list.h"
#include "notices/notice_sender.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

struct Room {
  Room() { QDir(folder.path()).mkdir(QStringLiteral("Data")); }
  QString ConfigPath() const { return folder.filePath(QStringLiteral("Data/Config.dat")); }
  QString ListPath() const { return folder.filePath(QStringLiteral("Data/notices.txt")); }

  QTemporaryDir folder;
  AppFolder app{folder.path()};
  IniStore store{app};
  QStringList sent;
  AvisosNaTela avisos{store, [this](const QString &comando) { sent << comando; }};
};

} // namespace

class TestNotices : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void passesAreLimited_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    const QList<QPair<const char *, const char *>> rows{{"0", "1"},   {"1", "1"},         {"20", "20"},
                                                        {"21", "20"}, {"", "1"},          {"-5", "1"},
                                                        {"x", "1"},   {"99999999", "20"}, {"07", "07"}};
    for (const auto &[typed, taken] : rows)
      QTest::addRow("\"%s\"", typed) << QString::fromLatin1(typed) << QString::fromLatin1(taken);
  }
  void passesAreLimited() {
    QFETCH(QString, typed);
    QFETCH(QString, taken);
    QCOMPARE(LimitaVezes(typed), taken);
    Room room;
    room.store.WriteConfig(QStringLiteral("Avisos"), QStringLiteral("AvisoVezes"), typed);
    QCOMPARE(room.avisos.Vezes(), typed.isEmpty() ? QStringLiteral("2") : taken);
  }

  void theCommandCarriesTheLook_data() {
    QTest::addColumn<QByteArray>("stored"); // in the section of the notices
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("command");
    const QString look = QStringLiteral("|#bottom|#2|#8|#11|##C00000|##FFFFFF|#");
    QTest::newRow("nothing stored") << QByteArray() << QStringLiteral("Carro ABC")
                                    << QString(u"AVISO:|#Carro ABC" + look);
    QTest::newRow("as typed") << QByteArray() << QStringLiteral("  o'c \\ |# <b> ")
                              << QString(u"AVISO:|#  o'c \\ |# <b> " + look);
    QTest::newRow("blank") << QByteArray() << QStringLiteral(" \t ") << QStringLiteral("CancelaAviso");
    QTest::newRow("empty") << QByteArray() << QString() << QStringLiteral("CancelaAviso");
    QTest::newRow("everything stored")
        << QByteArray("PorcentoAviso=12\r\nPosicaoAviso=-1\r\nVelocAviso=24\r\nFundoAvisoColor=16711680\r\n"
                      "LetraAvisoColor=65535\r\n")
        << QStringLiteral("a") << QStringLiteral("AVISO:|#a|#top|#2|#12|#25|##0000FF|##FFFF00|#");
    QTest::newRow("only -1 is the top") << QByteArray("PosicaoAviso=1\r\n") << QStringLiteral("a")
                                        << QString(u"AVISO:|#a" + look);
    QTest::newRow("no numbers") << QByteArray("VelocAviso=x\r\nFundoAvisoColor=y\r\nPosicaoAviso=z\r\n")
                                << QStringLiteral("a")
                                << QStringLiteral("AVISO:|#a|#bottom|#2|#8|#1|##000000|##FFFFFF|#");
    QTest::newRow("numbers beyond all bounds")
        << QByteArray("VelocAviso=99999999999999\r\n") << QStringLiteral("a")
        << QStringLiteral("AVISO:|#a|#bottom|#2|#8|#2147483648|##C00000|##FFFFFF|#");
  }
  void theCommandCarriesTheLook() {
    QFETCH(QByteArray, stored);
    QFETCH(QString, text);
    QFETCH(QString, command);
    Room room;
    WriteBytes(room.ConfigPath(), "[Avisos]\r\n" + stored);
    room.avisos.ExibeAviso(text, QStringLiteral("2"));
    QCOMPARE(room.sent, QStringList{command});
    QCOMPARE(room.avisos.UltimoTexto(), text);
  }

  void theLastTextComesBackAsItWasTyped_data() {
    QTest::addColumn<QString>("text");
    for (const char *text : {"\"Paz\"", "\"Amor\" e \"Paz\"", "'", "  a ", "\"", "it's", "[x]=;#", "\"'a'\""})
      QTest::newRow(text) << QString::fromLatin1(text);
  }
  void theLastTextComesBackAsItWasTyped() {
    QFETCH(QString, text);
    Room room;
    room.avisos.ExibeAviso(text, QStringLiteral("1"));
    QCOMPARE(room.avisos.UltimoTexto(), text);
    QCOMPARE(AvisosNaTela(IniStore(room.app), [](const QString &) {}).UltimoTexto(), text);
  }

  void sendingKeepsThePasses() {
    Room room;
    room.avisos.ExibeAviso(QStringLiteral("a"), QStringLiteral("50"));
    QCOMPARE(room.sent.value(0).section(QStringLiteral("|#"), 3, 3), QStringLiteral("20"));
    QCOMPARE(room.avisos.Vezes(), QStringLiteral("20"));
  }

  // The settings begin with another height than what is sent without them, and bring every notice back to the bottom.
  void theSettingsAreWrittenInTheirOrder() {
    Room room;
    VisualDoAviso visual = LeVisualDoAviso(room.store);
    QCOMPARE(visual.PorcentoAviso, 6);
    QCOMPARE(visual.VelocAviso, 10);
    QCOMPARE(visual.FundoAvisoColor, 192);
    QCOMPARE(visual.LetraAvisoColor, 16777215);
    visual.VelocAviso = 30;
    WriteBytes(room.ConfigPath(), "");
    QVERIFY(GravaVisualDoAviso(room.store, visual));
    QCOMPARE(ReadBytes(room.ConfigPath()).trimmed(),
             QByteArray("[Avisos]\r\nFundoAvisoColor=192\r\nLetraAvisoColor=16777215\r\nPorcentoAviso=6\r\n"
                        "VelocAviso=30\r\nPosicaoAviso=0"));
  }

  void theListIsRead_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("list");
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("blank lines") << QByteArray("\r\na\r\n  \r\n\t\r\n  b \r\n\r\n")
                                 << QStringList{QStringLiteral("a"), QStringLiteral("  b ")};
    QTest::newRow("other line ends, none at the end")
        << QByteArray("a\nb\rc") << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    QTest::newRow("windows-1252") << QByteArray("Crian\xe7"
                                                "a\r\n")
                                  << QStringList{QStringLiteral("Criança")};
    QTest::newRow("UTF-8") << QByteArray("Criança\r\n") << QStringList{QStringLiteral("Criança")};
  }
  void theListIsRead() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, list);
    Room room;
    WriteBytes(room.ListPath(), file);
    ListaDeAvisos avisos(room.app);
    avisos.ListarAvisos();
    QCOMPARE(avisos.Avisos(), list);
    QCOMPARE(ReadBytes(room.ListPath()), file); // reading changes nothing
  }

  void everyChangeIsInTheFile() {
    Room room;
    ListaDeAvisos avisos(room.app);
    avisos.ListarAvisos();
    QCOMPARE(ReadBytes(room.ListPath()), QByteArray()); // it is made
    WriteBytes(room.ListPath(), "a\r\n\r\nb\r\n");
    avisos.ListarAvisos();
    QVERIFY(avisos.Acrescenta(QStringLiteral("c\nd")));
    QCOMPARE(ReadBytes(room.ListPath()), QByteArray("a\r\nb\r\nc d\r\n"));
    QVERIFY(avisos.Troca(1, QStringLiteral(" e ")));
    QVERIFY(avisos.Exclui(0));
    QCOMPARE(ReadBytes(room.ListPath()), QByteArray(" e \r\nc d\r\n"));
    QVERIFY(avisos.Acrescenta(QStringLiteral("שלום"))); // what the code page lacks is not lost
    ListaDeAvisos again(room.app);
    again.ListarAvisos();
    QCOMPARE(again.Avisos(), avisos.Avisos());
    QVERIFY(avisos.ExcluiTodos());
    QCOMPARE(ReadBytes(room.ListPath()), QByteArray());
  }

  void whatCannotBeWrittenStays() {
    Room room;
    QDir(room.folder.path()).mkpath(QStringLiteral("Data/notices.txt/in the way"));
    ListaDeAvisos avisos(room.app);
    avisos.ListarAvisos();
    QCOMPARE(avisos.Avisos(), QStringList());
    QVERIFY(!avisos.Acrescenta(QStringLiteral("a")));
    QCOMPARE(avisos.Avisos(), QStringList());
  }

  // A file without an end to be read up to: what was read of it is shown, and it is not cut to that.
  void aFileThatWasReadInPartIsNotWrittenOver() {
    Room room;
    QFile file(room.ListPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("a\r\nb\r\n");
    QVERIFY(file.resize(TextFileLimit + 1));
    file.close();
    ListaDeAvisos avisos(room.app);
    avisos.ListarAvisos();
    QCOMPARE(avisos.Avisos().mid(0, 2), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QVERIFY(!avisos.Exclui(0));
    QCOMPARE(QFileInfo(room.ListPath()).size(), TextFileLimit + 1);
  }
};

QTEST_GUILESS_MAIN(TestNotices)
#include "test_notices.moc"
