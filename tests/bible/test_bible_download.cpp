#include "bible/bible_download.h"
#include "bible/store_room.h"
#include "support/files.h"
#include "support/scripted_web.h"
#include "support/sites/services_site.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// Finding versions on the web and on the computer, and bringing them into the folder.
class TestBibleDownload : public QObject, protected StoreRoom {
  Q_OBJECT

private:
  QString InBible(const QString &name) const { return m_dir->filePath(u"Bible/" + name); }
  FilaDeBiblias::Ouvinte Listening() {
    m_said.clear();
    m_ended = false;
    return {[this](const QString &text) { m_said << text; }, [](qint64, qint64) {},
            [this](const QString &name, const QString &what) { m_said << QString(name + u"> " + what); },
            [this] { m_ended = true; }};
  }
  // Serves the files of the site over https.
  void Serve(const QHash<QString, QByteArray> &files) {
    m_web->file = [files](const PedidoDeDownload &wanted) {
      if (!files.contains(wanted.endereco.path()))
        return FimDoDownload();
      WriteBytes(QString(wanted.arquivo).replace(u'\\', u'/'), files.value(wanted.endereco.path()));
      return FimDoDownload{true, true, wanted.endereco};
    };
  }

  std::unique_ptr<ScriptedWeb> m_web;
  QStringList m_said;
  bool m_ended = false;
  const QUrl m_list{QStringLiteral("https://texts.example/Arquivos/BibleText/biblelist.php?tag=a")};

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(MakeRoom());
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("Bible")));
    m_web = std::make_unique<ScriptedWeb>();
    qputenv("TEMP", m_dir->path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", m_dir->filePath(QStringLiteral("share")).toLocal8Bit()); // the trash
  }

  void ReadsAList_data() {
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QStringList>("names"); // "-": no list at all
    const QStringList none, noList{QStringLiteral("-")};
    QTest::newRow("empty") << "" << noList;
    QTest::newRow("refusal page") << "url|:|/t|:|T|:|KJV<br>" << noList;
    QTest::newRow("no row") << "[Lista]" << none;
    QTest::newRow("two") << QString::fromLatin1(BibleListReply())
                         << QStringList{QStringLiteral("HARBOUR"), QStringLiteral("HILLSIDE")};
    QTest::newRow("too few fields") << "[Lista]<br>url|:|/t|:|KJV" << none;
    QTest::newRow("names that lead elsewhere")
        << "[Lista]<br>url|:|/t|:|T|:|../x<br>url|:|/t|:|T|:|a\\b<br>url|:|/t|:|T|:|.x<br>url|:|/t|:|T|:|a:b" << none;
    QTest::newRow("names the menu would misread")
        << "[Lista]<br>url|:|/t|:|T|:|AOLD_B<br>url|:|/t|:|T|:|A.txt<br>url|:|/t|:|T|:|" << none;
    QTest::newRow("twice") << "[Lista]<br>url|:|/a|:|A|:|KJV<br>url|:|/b|:|B|:|kjv"
                           << QStringList{QStringLiteral("KJV")};
    QTest::newRow("a row with a marker before it")
        << "[Lista]<li>url|:|/a|:|A|:| X |:|more<br>" << QStringList{QStringLiteral("X")};
  }
  void ReadsAList() {
    QFETCH(QString, reply);
    QFETCH(QStringList, names);
    QStringList read;
    if (const auto list = LeListaDeBiblias(reply))
      for (const VersaoOferecida &version : list->versoes)
        read << version.nome;
    else
      read << QStringLiteral("-");
    QCOMPARE(read, names);
  }

  void FindsAFile_data() {
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("address"); // empty: refused
    const char *https = "https://t.example/a/list.php?tag=x", *http = "http://127.0.0.1:8/list.php";
    QTest::newRow("whole") << https << "https://f.example/b/?q=1"
                           << "https://f.example/b/NEW_A%20B.txt";
    QTest::newRow("of the host") << https << "/texts"
                                 << "https://t.example/texts/NEW_A%20B.txt";
    QTest::newRow("beside the list") << https << "texts/"
                                     << "https://t.example/a/texts/NEW_A%20B.txt";
    QTest::newRow("tests' own server") << http << "/texts"
                                       << "http://127.0.0.1:8/texts/NEW_A%20B.txt";
    QTest::newRow("away from https") << https << "http://f.example"
                                     << "";
    QTest::newRow("a file") << http << "file:///etc"
                            << "";
    QTest::newRow("with a password") << https << "https://u:p@f.example"
                                     << "";
  }
  void FindsAFile() {
    QFETCH(QString, list);
    QFETCH(QString, folder);
    QFETCH(QString, address);
    const VersaoOferecida version{QStringLiteral("A B"), QString(), folder, QString()};
    QCOMPARE(EnderecoDoArquivo(QUrl(list), version, Testamento::Novo).toString(QUrl::FullyEncoded), address);
  }

  // Method 1, the control, method 2; a reply without the marker is none.
  void AsksThreeTimes_data() {
    QTest::addColumn<int>("answersAt"); // the try that gives the list
    QTest::addColumn<QList<int>>("methods");
    QTest::addColumn<bool>("found");
    QTest::newRow("first") << 1 << QList<int>{1} << true;
    QTest::newRow("the control") << 2 << QList<int>{1, 0} << true;
    QTest::newRow("last") << 3 << QList<int>{1, 0, 2} << true;
    QTest::newRow("never") << 4 << QList<int>{1, 0, 2} << false;
  }
  void AsksThreeTimes() {
    QFETCH(int, answersAt);
    QFETCH(QList<int>, methods);
    QFETCH(bool, found);
    const QString reply = QString::fromLatin1(BibleListReply());
    m_web->page = [&](int method, const QUrl &) {
      return (method == 1 && answersAt == 1) || (method == 2 && answersAt == 3) ? reply : QStringLiteral("Try later");
    };
    if (answersAt == 2)
      Serve({{QStringLiteral("/Arquivos/BibleText/biblelist.php"), BibleListReply()}});
    const Endpoints endpoints(*m_config);
    QString file = m_app->At(u"\\Data\\Endpoints.dat");
    m_config->WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("ListaBiblias"), QStringLiteral("texts.example"),
                          file);
    BuscaDeBiblias search(endpoints, *m_web);
    const QUrl address = search.Endereco(QStringLiteral("João & Rei #1"));
    QCOMPARE(address.toString(QUrl::FullyEncoded),
             QStringLiteral("https://texts.example/Arquivos/BibleText/biblelist.php?tag=Jo%C3%A3o%20%26%20Rei%20%231"));
    std::optional<qsizetype> count;
    bool answered = false;
    std::unique_ptr<WebTask> task;
    task = search.Procura(address, [&](const auto &list) {
      answered = true;
      if (list)
        count = list->versoes.size();
      task.reset();
    });
    QTRY_VERIFY(answered);
    QCOMPARE(count, found ? std::optional<qsizetype>(2) : std::nullopt);
    QList<int> asked;
    for (const ScriptedWeb::Pedido &one : m_web->asked)
      asked << one.method;
    QCOMPARE(asked, methods);
    QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral("temp01.dat"))));
  }

  void BringsWhatIsMissing() {
    WriteBytes(InBible(QStringLiteral("OLD_HARBOUR.txt")), "mine");
    Serve({{QStringLiteral("/texts/NEW_HARBOUR.txt"), TinyVersion("Matthew", "The tide came in.")},
           {QStringLiteral("/texts/OLD_HILLSIDE.txt"), TinyVersion("Matthew", "In the wrong testament.")}});
    ImportadorDeBiblias importer{QString()};
    FilaDeBiblias queue(*m_app, *m_web, importer, Listening());
    queue.Comeca(m_list, LeListaDeBiblias(QString::fromLatin1(BibleListReply()))->versoes);
    QTRY_VERIFY(m_ended);
    QCOMPARE(m_said,
             QStringList({QStringLiteral("there is already: HARBOUR Old Testament"),
                          QStringLiteral("HARBOUR> there is already: HARBOUR Old Testament"),
                          QStringLiteral("Downloading: HARBOUR New"), QStringLiteral("HARBOUR> New Testament: added"),
                          QStringLiteral("Downloading: HILLSIDE Old"),
                          QStringLiteral("HILLSIDE> Old Testament: what came is no text of a version, and was "
                                         "removed"),
                          QStringLiteral("Downloading: HILLSIDE New"),
                          QStringLiteral("HILLSIDE> New Testament: it could not be downloaded")}));
    QCOMPARE(queue.Trouxe(), 1);
    QCOMPARE(queue.Faltaram(), 2);
    QCOMPARE(ReadBytes(InBible(QStringLiteral("OLD_HARBOUR.txt"))), QByteArray("mine"));
    QCOMPARE(QDir(InBible(QString())).entryList(QDir::Files | QDir::Hidden, QDir::Name),
             QStringList({QStringLiteral("NEW_HARBOUR.txt"), QStringLiteral("OLD_HARBOUR.txt")}));

    queue.Comeca(m_list, {{QStringLiteral("HARBOUR"), QString(), QStringLiteral("/texts"), QString()}});
    QVERIFY(m_said.contains(QStringLiteral("Already exists: HARBOUR New Testament")));
    QVERIFY(!queue.Roda());
  }

  void AStopEndsTheQueue() {
    m_web->answers = false;
    ImportadorDeBiblias importer{QString()};
    FilaDeBiblias queue(*m_app, *m_web, importer, Listening());
    queue.Comeca(m_list, LeListaDeBiblias(QString::fromLatin1(BibleListReply()))->versoes);
    queue.Para();
    QCOMPARE(m_web->dropped, 1);
    QVERIFY(!queue.Roda() && !m_ended);
  }

  // The importer is played by a script that writes what the real one would.
  void ImportsAModule() {
    const QString program = m_dir->filePath(QStringLiteral("importer"));
    WriteBytes(program, "#!/bin/sh\n"
                        "if [ \"$1\" = --list ]; then printf 'engOldBook\\ten\\tThe Old Book\\nbroken\\n'; exit 0; fi\n"
                        "printf '>Genesis [1]\\n1 From %s\\n' \"$2\" > \"$4/OLD_$3.txt\"\n"
                        ": > \"$4/NEW_$3.txt\"\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    ImportadorDeBiblias importer(program);
    QList<BibliaInstalada> listed;
    bool answered = false;
    auto task = importer.Lista([&](const QList<BibliaInstalada> &bibles) {
      listed = bibles;
      answered = true;
    });
    QTRY_VERIFY(answered);
    QCOMPARE(listed.size(), 1);
    QCOMPARE(listed[0].descricao, QStringLiteral("The Old Book"));
    const QString name = NomeCurtoDoModulo(listed[0].modulo);
    QCOMPARE(name, QStringLiteral("engBook")); // "OLD" tells the files of a version apart

    FilaDeBiblias queue(*m_app, *m_web, importer, Listening());
    queue.Comeca(m_list, {{name, QString(), QString(), listed[0].modulo}});
    QTRY_VERIFY(m_ended);
    QCOMPARE(ReadBytes(InBible(QStringLiteral("OLD_engBook.txt"))), QByteArray(">Genesis [1]\n1 From engOldBook\n"));
    QCOMPARE(QDir(InBible(QString())).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("OLD_engBook.txt")});
    QCOMPARE(m_said.last(), QStringLiteral("engBook> New Testament: the module has no text of it"));

    answered = false;
    ImportadorDeBiblias missing(m_dir->filePath(QStringLiteral("nowhere")));
    task = missing.Lista([&](const QList<BibliaInstalada> &bibles) {
      listed = bibles;
      answered = true;
    });
    QTRY_VERIFY(answered);
    QVERIFY(listed.isEmpty());
  }

  // The numbers in the menu shift when versions come and go.
  void TheVersionInForceStays() {
    for (const char *name : {"KJV", "MID", "WEB"})
      WriteBytes(InBible(ArquivoDaVersao(QLatin1String(name), Testamento::Velho)), TinyVersion("Genesis", name));
    m_bible->BuildVersionMenu();
    QVERIFY(m_bible->ChooseVersion(2));
    WriteBytes(InBible(QStringLiteral("OLD_AAA.txt")), TinyVersion("Genesis", "AAA"));
    m_bible->GuardaEscolha();
    m_bible->BuildVersionMenu();
    QCOMPARE(m_bible->VersaoBiblia(), QStringLiteral("MID"));
    QVERIFY(RemoveVersao(*m_app, QStringLiteral("AAA")));
    m_bible->GuardaEscolha();
    m_bible->BuildVersionMenu();
    QCOMPARE(m_bible->VersaoBiblia(), QStringLiteral("MID"));
    QVERIFY(RemoveVersao(*m_app, QStringLiteral("MID")));
    m_bible->GuardaEscolha();
    m_bible->BuildVersionMenu();
    QCOMPARE(m_bible->VersaoBiblia(), QStringLiteral("KJV"));
    QCOMPARE(Fetch(u"Genesis 1:1"), QStringLiteral("1 KJV"));

    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("Bible/NEW_WEB.txt/full"))); // what cannot be removed
    QVERIFY(!RemoveVersao(*m_app, QStringLiteral("WEB")));
    QVERIFY(OlhaPasta(*m_app, QStringLiteral("WEB")).velho);
  }
};

QTEST_GUILESS_MAIN(TestBibleDownload)
#include "test_bible_download.moc"
