#include <QtTest>

#include "console_fixture.h"

using namespace tolmira;
using namespace tolmira::testing;

class TestAgenda : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<ConsoleFixture>();
  }

  void readsAndWritesGroupByGroup() {
    Write(1, "3|#|1 Luz|#|1 Luz\r\n\r\n   \r\n2|#|Gra\xE7" "a|#|Gra\xE7" "a\r\n2|#|Antiga\r\n");
    Desk().SelectTab(1);
    QCOMPARE(Lista().Count(2), 2);
    QCOMPARE(Lista().NameAt(2, 1), QStringLiteral("Graça"));
    QCOMPARE(Lista().CaptionAt(2, 2), QStringLiteral("Antiga")); // a line of two fields
    QVERIFY(Desk().salvaListTarefas(1));
    QCOMPARE(Read(1), QByteArray("2|#|Gra\xE7" "a|#|Gra\xE7" "a\r\n2|#|Antiga|#|Antiga\r\n3|#|1 Luz|#|1 Luz\r\n"));
    QVERIFY(!QFile::exists(m_fixture->folder.filePath(QStringLiteral("Data/agenda1.bak"))));
  }

  void aSaveThatWouldDropLinesKeepsACopy_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("unknown kind") << QByteArray("9|#|a|#|b\r\n2|#|c|#|c\r\n");
    QTest::newRow("no kind at all") << QByteArray("notes of the choir\r\n2|#|c|#|c\r\n");
    QTest::newRow("a separator inside a name") << QByteArray("2|#|c|#|c|#|d\r\n");
  }
  void aSaveThatWouldDropLinesKeepsACopy() {
    QFETCH(QByteArray, bytes);
    Write(2, bytes);
    Desk().SelectTab(2);
    QVERIFY(Desk().salvaListTarefas(2));
    QCOMPARE(Read(2), QByteArray("2|#|c|#|c\r\n"));
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/agenda2.bak")), bytes);
  }

  void whatCannotBeWrittenIsNotLost() {
    Desk().SelectTab(3);
    QDir(m_fixture->folder.path()).remove(QStringLiteral("Data/agenda3.dat"));
    BlockFile(3);
    QString message;
    Desk().PorNaLista(QStringLiteral("Graça"), 2, QString(), message);
    Desk().SelectTab(4);
    QCOMPARE(Lista().ListCount(), 0);
    Desk().SelectTab(3);
    QCOMPARE(Lista().NameAt(2, 1), QStringLiteral("Graça"));
    UnblockFile(3);
    Desk().SelectTab(4);
    QCOMPARE(Read(3), QByteArray("2|#|Gra\xE7" "a|#|Gra\xE7" "a\r\n"));
  }

  void whatWaitedForTheDiskGoesOutWithTheNextSave() {
    BlockFile(3);
    Desk().SelectTab(3);
    QString message;
    Desk().PorNaLista(QStringLiteral("Graça"), 2, QString(), message);
    Desk().SelectTab(4);
    Desk().RenameInAgendas(QStringLiteral("Graça"), QStringLiteral("Paz"), 2);
    UnblockFile(3);
    QVERIFY(Desk().salvaListTarefas(4)); // as at the end of the program
    QCOMPARE(Read(3), QByteArray("2|#|Paz|#|Paz\r\n"));
  }

  void aFileThatCouldNotBeReadIsNotOverwritten_data() {
    QTest::addColumn<QString>("added");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing added") << QString() << QByteArray("2|#|Antiga|#|Antiga\r\n");
    QTest::newRow("added") << QStringLiteral("Nova") << QByteArray("2|#|Antiga|#|Antiga\r\n2|#|Nova|#|Nova\r\n");
    QTest::newRow("added again") << QStringLiteral("Antiga") << QByteArray("2|#|Antiga|#|Antiga\r\n");
  }
  void aFileThatCouldNotBeReadIsNotOverwritten() {
    QFETCH(QString, added);
    BlockFile(3);
    Desk().SelectTab(3);
    QCOMPARE(Lista().ListCount(), 0);
    UnblockFile(3);
    Write(3, "2|#|Antiga|#|Antiga\r\n");
    QString message;
    if (!added.isEmpty())
      Desk().PorNaLista(added, 2, QString(), message);
    Desk().SelectTab(4);
    QTEST(Read(3), "bytes");
    Desk().SelectTab(3);
    QCOMPARE(Lista().NameAt(2, 1), QStringLiteral("Antiga"));
  }

  void aCopyIsMadeOnlyOfWhatASaveDrops() {
    Write(2, "9|#|a|#|b\r\n2|#|c|#|c\r\n");
    Desk().SelectTab(2);
    QString message;
    Desk().PorNaLista(QStringLiteral("Um|#|Dois"), 2, QString(), message);
    const QByteArray copy = m_fixture->Read(QStringLiteral("Data/agenda2.bak"));
    Desk().PorNaLista(QStringLiteral("Outra"), 2, QString(), message);
    QVERIFY(Read(2).contains("2|#|Um|#|Dois|#|Um|#|Dois\r\n"));
    QCOMPARE(m_fixture->Read(QStringLiteral("Data/agenda2.bak")), copy);
    QVERIFY(!QFile::exists(m_fixture->folder.filePath(QStringLiteral("Data/agenda2.bak.new"))));
  }

  void adding_data() {
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("stored");
    const QString ok = QStringLiteral("Adicionado com sucesso em 'Culto'");
    QTest::newRow("as it is") << QStringLiteral("Graça sobre Graça") << 2 << ok << QStringLiteral("Graça sobre Graça");
    QTest::newRow("capitals") << QStringLiteral("GRAÇA-SEM FIM") << 2 << ok << QStringLiteral("Graça-Sem Fim");
    QTest::newRow("lower case") << QStringLiteral("água viva") << 3 << ok << QStringLiteral("Água Viva");
    QTest::newRow("of two lines") << QStringLiteral("Graça\r\nsem\nFim") << 2 << ok << QStringLiteral("Graça sem Fim");
    QTest::newRow("there already") << QStringLiteral("Antiga") << 2 << QStringLiteral("Item já consta em 'Culto'")
                                   << QString();
    QTest::newRow("same name, other group") << QStringLiteral("Antiga") << 3 << ok << QStringLiteral("Antiga");
    QTest::newRow("no reference") << QString() << 1
                                  << QStringLiteral("Primeiro selecione o item que deseja adicionar na lista")
                                  << QString();
    QTest::newRow("no link") << QString() << 4 << QStringLiteral("Insira um link válido de um video do Youtube")
                             << QString();
    QTest::newRow("no song") << QString() << 2
                             << QStringLiteral("Primeiro selecione o nome da música que deseja adicionar na lista")
                             << QString();
    QTest::newRow("unknown kind") << QStringLiteral("x") << 7 << QStringLiteral("This kind of item is not known.")
                                  << QString();
  }
  void adding() {
    Write(1, "2|#|Antiga|#|Antiga\r\n");
    Desk().SelectTab(1);
    Desk().RenameTab(1, QStringLiteral("Culto"));
    QFETCH(QString, label);
    QFETCH(int, kind);
    QString message = QStringLiteral("old");
    Desk().PorNaLista(label, kind, QString(), message);
    QTEST(message, "message");
    QFETCH(QString, stored);
    if (!stored.isEmpty()) {
      QCOMPARE(Lista().NameAt(kind, Lista().Count(kind)), stored);
      QVERIFY(QString::fromLatin1(Read(1)).contains(stored));
    } else {
      QCOMPARE(Lista().ListCount(), 1);
    }
  }

  void tipsOfAnEmptyAgenda() {
    Desk().SelectTab(2);
    QVERIFY(m_fixture->core.painel.PicDicaAgenda);
    QCOMPARE(m_fixture->core.painel.LbDicaAgenda,
             QStringLiteral("Click on 'Lyrics', 'Bible', or other buttons in the Main Menu to add items to the "
                            "'Agenda 2', or select another agenda that already contains the items you want to "
                            "display."));
    Desk().RenameTab(3, QStringLiteral("Jovens"));
    Desk().SelectTab(3);
    QVERIFY(m_fixture->core.painel.LbDicaAgenda.contains(QStringLiteral("'Agenda 'Jovens', or")));
    QVERIFY(m_fixture->core.painel.LbDicaAgenda.endsWith(QStringLiteral("display..")));
    Desk().RenameTab(3, QStringLiteral("Coral"));
    QVERIFY(m_fixture->core.painel.LbDicaAgenda.contains(QStringLiteral("'Agenda 'Coral', or")));
    Desk().RenameTab(3, QStringLiteral("Jovens"));
    QCOMPARE(Desk().ClearCaption(), QStringLiteral("Clear List"));
    QVERIFY(!m_fixture->core.painel.PicAviso2);
    QString message;
    Desk().PorNaLista(QStringLiteral("Graça"), 2, QString(), message);
    QCOMPARE(Desk().ClearCaption(), QStringLiteral("Clear 'Jovens'"));
    QVERIFY(!m_fixture->core.painel.PicDicaAgenda);
    QVERIFY(m_fixture->core.painel.PicAviso2); // something to choose again, and nothing loaded
  }

  void clearingReachesTheFileWithTheTabChange() {
    Write(1, "2|#|a|#|a\r\n");
    Desk().SelectTab(1);
    Desk().ClearList();
    QCOMPARE(Read(1), QByteArray("2|#|a|#|a\r\n"));
    Desk().SelectTab(2);
    QCOMPARE(Read(1), QByteArray());
  }

  void anEmptiedTitleGoesBackToItsNumber() {
    Desk().RenameTab(5, QStringLiteral("  Ensaio \r\n geral "));
    QCOMPARE(Desk().TabTitle(5), QStringLiteral("Ensaio geral"));
    Desk().RenameTab(5, QString());
    QCOMPARE(Desk().TabTitle(5), QStringLiteral("Agenda 5"));
  }

  void moving_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("selected"); // index of "b" afterwards
    QTest::newRow("down") << 1 << 3 << QStringLiteral("bcad") << 1;
    QTest::newRow("up") << 4 << 1 << QStringLiteral("dabc") << 3;
    QTest::newRow("the selected one") << 2 << 4 << QStringLiteral("acdb") << 4;
    QTest::newRow("out of range") << 2 << 9 << QStringLiteral("abcd") << 2;
  }
  void moving() {
    Write(1, "2|#|a|#|a\r\n2|#|b|#|b\r\n2|#|c|#|c\r\n2|#|d|#|d\r\n");
    Desk().SelectTab(1);
    Desk().SelectEntry(2, 2);
    QFETCH(int, from);
    QFETCH(int, to);
    Desk().MoveEntry(2, from, to);
    QString order;
    for (int i = 1; i <= 4; ++i)
      order += Lista().NameAt(2, i);
    QTEST(order, "order");
    QTEST(Lista().SelectedIndex(), "selected");
    QCOMPARE(Lista().SelectedName(), QStringLiteral("b"));
    QCOMPARE(Read(1).at(4), order.at(0).toLatin1());
  }

  void renamingReachesAllFiveFiles() {
    for (int n = 1; n <= 5; ++n)
      Write(n, "2|#|Velha|#|Velha\r\n\r\n3|#|Velha|#|Velha\r\n5|#|Doc|#|Doc.sld\r\n");
    Desk().SelectTab(1);
    Desk().RenameInAgendas(QStringLiteral("Velha"), QStringLiteral("Nova"), 2);
    Desk().RenameInAgendas(QStringLiteral("Doc"), QStringLiteral("Outro.sld"), 5);
    for (int n = 1; n <= 5; ++n)
      QCOMPARE(Read(n), QByteArray("2|#|Nova|#|Nova\r\n3|#|Velha|#|Velha\r\n5|#|Outro|#|Outro.sld\r\n"));
    Desk().RemoveFromAgendas(3, QStringLiteral("Velha"));
    QCOMPARE(Read(4), QByteArray("2|#|Nova|#|Nova\r\n5|#|Outro|#|Outro.sld\r\n"));
    QCOMPARE(Lista().Count(3), 0);
  }

  // Adding writes "GRAÇA" as "Graça"; the target still names the file.
  void aSongIsKnownByLabelOrTarget_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("file"); // another song's, or none
    QTest::addColumn<bool>("known");
    const QByteArray both = "2|#|Gra\xE7" "a Sem Fim|#|GRA\xC7" "A SEM FIM";
    const QByteArray label = "2|#|Gra\xE7" "a Sem Fim|#|Gra\xE7" "a Sem Fim";
    QTest::newRow("target") << both << QByteArray() << true;
    QTest::newRow("label alone") << label << QByteArray() << true;
    QTest::newRow("another song's label") << label << QByteArray("Graça Sem Fim.txt") << false;
    QTest::newRow("another kind") << QByteArray("3" + both.mid(1)) << QByteArray() << false;
  }
  void aSongIsKnownByLabelOrTarget() {
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, file);
    QFETCH(bool, known);
    if (!file.isEmpty())
      m_fixture->Write(QStringLiteral("Lyrics/") + QString::fromUtf8(file), "Outra");
    for (int n = 1; n <= 2; ++n)
      Write(n, line + "\r\n");
    Desk().SelectTab(1);
    const QString name = QStringLiteral("GRAÇA SEM FIM");
    Desk().RenameInAgendas(name, QStringLiteral("Nova"), 2);
    QCOMPARE(Read(2), known ? QByteArray("2|#|Nova|#|Nova\r\n") : line + "\r\n");
    Desk().RenameOnScreen(2, name, QStringLiteral("Nova"), QStringLiteral("Nova"));
    QCOMPARE(Lista().NameAt(2, 1) == QStringLiteral("Nova"), known);
    Write(2, line + "\r\n");
    Desk().RemoveFromAgendas(2, name);
    QCOMPARE(Read(2), known ? QByteArray() : line + "\r\n");
  }

  void aFileWithoutAMatchIsLeftAsItIs() {
    Write(1, "9|#|odd|#|odd\n\n2|#|a|#|a");
    Desk().RenameInAgendas(QStringLiteral("x"), QStringLiteral("y"), 2);
    QCOMPARE(Read(1), QByteArray("9|#|odd|#|odd\n\n2|#|a|#|a"));
  }

  void messagesOfTheBar() {
    Desk().SelectTab(1);
    Desk().EditSelected();
    Desk().RemoveSelected();
    Write(2, "2|#|Sumiu|#|Sumiu\r\n5|#|Doc|#|Doc.sld\r\n");
    Desk().SelectTab(2);
    Desk().SelectEntry(2, 1);
    Desk().EditSelected();
    Desk().SelectEntry(5, 1);
    Desk().EditSelected();
    QStringList texts;
    for (const auto &box : m_fixture->prompt.shown)
      texts.append(box.text);
    QCOMPARE(texts,
             (QStringList{QStringLiteral("First, select the name of the tre you want to edit from the list."),
                          QStringLiteral("First, select the item you want to remove from the list."),
                          QStringLiteral("Item not found or cannot be edited."), QStringLiteral("Slide not found")}));
  }

  void songsGoToTheirEditor_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("another"); // the editor stands open on another song
    QTest::addColumn<QStringList>("opened");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("song") << 2 << false << QStringList(QStringLiteral("\\Lyrics\\7 Sol.txt")) << QStringList();
    QTest::newRow("hymn") << 3 << false << QStringList(QStringLiteral("\\Harpa\\8 Lua.txt")) << QStringList();
    QTest::newRow("another one is open")
        << 2 << true << QStringList()
        << QStringList(QStringLiteral("First, finish editing the lyrics you are currently editing."));
  }
  void songsGoToTheirEditor() {
    QFETCH(int, kind);
    QFETCH(bool, another);
    m_fixture->Write(QStringLiteral("Lyrics/7 Sol.txt"), "Sol");
    m_fixture->Write(QStringLiteral("Harpa/8 Lua.txt"), "1. Lua");
    Write(1, "1|#|John 3:16|#|John 3:16\r\n2|#|Sol|#|7 Sol\r\n3|#|Lua|#|8 Lua\r\n");
    Desk().SelectTab(1);
    Desk().SelectEntry(kind, 1);
    QVERIFY(!Desk().CanEdit());
    QStringList opened;
    Desk().editorDeMusicas = {[&](const QString &) { return another; },
                              [&](const QString &path) {
                                opened.append(path.mid(m_fixture->folder.path().size()));
                                return true;
                              }};
    QVERIFY(Desk().CanEdit());
    Desk().EditSelected();
    QTEST(opened, "opened");
    QStringList told;
    for (const auto &box : m_fixture->prompt.shown)
      told.append(box.text);
    QTEST(told, "told");
    Desk().SelectEntry(1, 1);
    QVERIFY(!Desk().CanEdit());
  }

private:
  AgendaDesk &Desk() { return m_fixture->core.agenda; }
  const ListTarefas &Lista() { return m_fixture->core.agenda.Lista(); }
  void Write(int n, const QByteArray &bytes) {
    m_fixture->Write(QStringLiteral("Data/agenda%1.dat").arg(n), bytes);
  }
  // A folder in the place of the file can neither be read nor written.
  void BlockFile(int n) { QDir(m_fixture->folder.path()).mkpath(QStringLiteral("Data/agenda%1.dat/in the way").arg(n)); }
  void UnblockFile(int n) {
    QDir(m_fixture->folder.filePath(QStringLiteral("Data/agenda%1.dat").arg(n))).removeRecursively();
  }
  QByteArray Read(int n) { return m_fixture->Read(QStringLiteral("Data/agenda%1.dat").arg(n)); }

  std::unique_ptr<ConsoleFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestAgenda)
#include "test_agenda.moc"
