#include <QtTest>

#include <QTcpServer>
#include <QTcpSocket>
#include <csignal>

#include "remote_program.h"
#include "support/files.h"

// The operator's main job on the real program and the real engine, and what a bad day does to it.
class TestProgram : public QObject {
  Q_OBJECT

private slots:
  void init() { m_folder = std::make_unique<QTemporaryDir>(); }

  void songReachesTheScreen() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    QVERIFY(program.State().value(QStringLiteral("Agenda")).toArray().size() >= 4); // the starter service
    Write(QStringLiteral("Lyrics/Teste.txt"), "D'Ele \xE9 a gl\xF3ria\r\nS\xF3 d'Ele\r\n\r\nSegunda\r\n");
    Show(program, QStringLiteral("Teste"));
    QCOMPARE(program.State().value(QStringLiteral("TotalEstrofes")).toInt(), 2);
    Key(program, QStringLiteral("Down"));
    const bool capitals = program.State().value(QStringLiteral("VersoTextoAtual")).toString().startsWith(u"D'ELE É");
    const QString first = capitals ? QStringLiteral("D'ELE É A GLÓRIA SÓ D'ELE") : QStringLiteral("D'Ele é a glória Só d'Ele");
    for (const QString &page : {QStringLiteral("display"), QStringLiteral("preview")})
      QVERIFY(program.WaitForText(page, first));
    Key(program, QStringLiteral("Right"));
    QVERIFY(program.WaitForText(QStringLiteral("display"), capitals ? QStringLiteral("SEGUNDA") : QStringLiteral("Segunda")));
    // The text lies inside the projection.
    const QString inside = program.Eval(
        QStringLiteral("display"), QStringLiteral("(() => { const r = document.getElementById('texto').firstElementChild."
                                                  "getBoundingClientRect(); return r.width > 100 && r.left >= 0 && r.top "
                                                  ">= 0 && r.right <= innerWidth && r.bottom <= innerHeight; })()"));
    QCOMPARE(inside, QStringLiteral("true"));

    program.Do(QStringLiteral("screen"), {{QStringLiteral("index"), 2}});
    QTRY_VERIFY(Brightest(program.Grab(QStringLiteral("FrmQuendar"))) == 0);
    program.Do(QStringLiteral("screen"), {{QStringLiteral("index"), 0}});
    QTRY_VERIFY(Brightest(program.Grab(QStringLiteral("FrmQuendar"))) > 200);
    QVERIFY(program.Quit());
    QCOMPARE(program.Process().exitCode(), 0);
    QVERIFY2(!program.Output().contains("Uncaught"), program.Output().constData());
  }

  void everyThemeIsDrawn() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    for (const int slot : {1, 3, 11}) { // pictures, a video, a colour
      program.Do(QStringLiteral("theme"), {{QStringLiteral("slot"), slot}});
      QVERIFY(program.WaitFor(QStringLiteral("IndiceTema"), slot));
      QTRY_VERIFY_WITH_TIMEOUT(Brightest(program.Grab(QStringLiteral("FrmQuendar"))) > 20, 20000);
    }
    QVERIFY(program.Quit());
  }

  void aKilledRenderProcessComesBackWithItsVerse() {
    RemoteProgram program(m_folder->path());
    StartOnFirstVerse(program);
    for (int round = 0; round < 2; ++round) {
      QVERIFY(!program.Renderers().isEmpty());
      // The second time in the middle of the coming back.
      for (const int pauseMs : {0, 40}) {
        QTest::qWait(pauseMs);
        for (const qint64 pid : program.Renderers())
          ::kill(static_cast<pid_t>(pid), SIGKILL);
      }
      QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("1 2 3"), 30000));
      QVERIFY(program.WaitForText(QStringLiteral("preview"), QStringLiteral("1 2 3"), 30000));
    }
    Key(program, QStringLiteral("Down"));
    QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("4 5 6")));
  }

  // Each of the two pages dies in its turn, and the other one is neither loaded again nor given anything.
  void onePageDoesNotNoticeTheOthersEnd() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    Write(QStringLiteral("Lyrics/Teste.txt"), "1 2 3\r\n\r\n4 5 6");
    Show(program, QStringLiteral("Teste"));
    Key(program, QStringLiteral("Down"));
    const QStringList pages{QStringLiteral("display"), QStringLiteral("preview")};
    QSet<QString> died;
    for (const qint64 pid : program.Renderers()) {
      for (const QString &page : pages) {
        QVERIFY(program.WaitForText(page, QStringLiteral("1 2 3")));
        program.Eval(page, QStringLiteral("window.changes = 0; new MutationObserver(() => ++changes)"
                                          ".observe(document, {subtree: true, childList: true, attributes: true})"));
        const auto calm = [&] { // the verse may still be on its way in
          program.Eval(page, QStringLiteral("changes = 0"));
          QTest::qWait(700);
          return program.Eval(page, QStringLiteral("changes")) == u"0";
        };
        QVERIFY(QTest::qWaitFor(calm, 20000));
      }
      const auto lost = [&] {
        QStringList which;
        for (const QString &page : pages)
          if (program.Eval(page, QStringLiteral("typeof changes")) == u"undefined")
            which << page;
        return which;
      };
      ::kill(static_cast<pid_t>(pid), SIGKILL);
      if (!QTest::qWaitFor([&] { return !lost().isEmpty(); }, 5000))
        continue; // a process that is kept in reserve
      QCOMPARE(lost().size(), 1);
      const QString dead = lost().first();
      const QString other = pages[1 - pages.indexOf(dead)];
      QVERIFY(program.WaitForText(dead, QStringLiteral("1 2 3"), 30000));
      QCOMPARE(program.Eval(other, QStringLiteral("changes")), QStringLiteral("0"));
      died.insert(dead);
    }
    QCOMPARE(died.size(), 2);
  }

  void aClosedProjectionComesBackWithTheNextCommand() {
    RemoteProgram program(m_folder->path());
    StartOnFirstVerse(program);
    const QImage before = program.Grab(QStringLiteral("FrmQuendar"));
    program.Do(QStringLiteral("send"), {{QStringLiteral("comando"), QStringLiteral("Fechar")}});
    QVERIFY(!program.State().value(QStringLiteral("DisplayVisivel")).toBool());
    program.Do(QStringLiteral("send"), {{QStringLiteral("comando"), QStringLiteral("Show")}});
    QVERIFY(program.State().value(QStringLiteral("DisplayVisivel")).toBool());
    QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("1 2 3")));
    QCOMPARE(Brightest(program.Grab(QStringLiteral("FrmQuendar"))), 0); // a new window begins black
    program.Do(QStringLiteral("screen"), {{QStringLiteral("index"), 0}});
    QTRY_VERIFY(Brightest(program.Grab(QStringLiteral("FrmQuendar"))) > 200);
    QCOMPARE(program.Grab(QStringLiteral("FrmQuendar")).size(), before.size());
    Key(program, QStringLiteral("Down"));
    QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("4 5 6")));
    QVERIFY(program.Quit());
  }

  void aClosedProjectionComesBackWithItsPassage() {
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Bible")));
    Write(QStringLiteral("Bible/OLD_TST.txt"), ">Genesis [1]\r\n1 One\r\n2 Two\r\n");
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    const QString reference = QStringLiteral("Genesis 1:2");
    program.Do(QStringLiteral("show"), {{QStringLiteral("kind"), 1},
                                        {QStringLiteral("label"), reference},
                                        {QStringLiteral("target"), reference}});
    const QString shown = QStringLiteral("Two Genesis 1:2 (TST)");
    QVERIFY(program.WaitForText(QStringLiteral("display"), shown));
    program.Do(QStringLiteral("send"), {{QStringLiteral("comando"), QStringLiteral("Fechar")}});
    program.Do(QStringLiteral("send"), {{QStringLiteral("comando"), QStringLiteral("Show")}});
    QVERIFY(program.WaitForText(QStringLiteral("display"), shown));
    QVERIFY(program.Quit());
  }

  void captionsAreHandedOutAndTheProgramEndsBehindTheirForm() {
    RemoteProgram program(m_folder->path());
    StartOnFirstVerse(program);
    const auto click = [&program](const char *window, const char *control) {
      program.Do(QStringLiteral("click"),
                 {{QStringLiteral("window"), QLatin1String(window)}, {QStringLiteral("control"), QLatin1String(control)}});
    };
    click("FrmMonitor", "BarraAdicionar6");
    QTRY_VERIFY_WITH_TIMEOUT(program.OpenBoxes().contains(QStringLiteral("FrmLegendas")), 20000);
    QTcpSocket client;
    const auto connected = [&] { // another program may take the port in between
      QTcpServer free;
      free.listen(QHostAddress::Any);
      const quint16 port = free.serverPort();
      free.close();
      program.Do(QStringLiteral("set"), {{QStringLiteral("window"), QStringLiteral("FrmLegendas")},
                                         {QStringLiteral("control"), QStringLiteral("Text1")},
                                         {QStringLiteral("value"), QString::number(port)}});
      click("FrmLegendas", "BotaoFlat1");
      return QTest::qWaitFor(
          [&] {
            client.connectToHost(QHostAddress::LocalHost, port);
            return client.waitForConnected(100);
          },
          10000);
    };
    QVERIFY(connected() || connected());
    QByteArray heard;
    client.write("GET /getlegenda HTTP/1.1\r\n\r\n");
    QTRY_VERIFY_WITH_TIMEOUT((heard += client.readAll()).contains(">1 2 3</div>"), 20000);
    QVERIFY(program.Quit());
    QCOMPARE(program.Process().exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.Process().exitCode(), 0);
  }

  void aSecondCopyIsToldAndDoesNotStart() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    RemoteProgram second(m_folder->path());
    QVERIFY(second.StartOnly());
    QTRY_COMPARE_WITH_TIMEOUT(second.OpenBoxes(), QStringList{QStringLiteral("MessageBox")}, 20000);
    second.Do(QStringLiteral("answer"), {{QStringLiteral("button"), QStringLiteral("OK")}});
    QVERIFY(second.Process().waitForFinished(20000));
    QCOMPARE(second.Process().exitCode(), 1);
    QVERIFY(program.State().value(QStringLiteral("TelaPronta")).toBool());
    // A killed program leaves nothing behind that keeps the next one from starting.
    program.Kill();
    RemoteProgram third(m_folder->path());
    QVERIFY(third.Start());
  }

  void lyricsThatWereTypedSurviveAKill() {
    const auto with = [](const char *control, const QString &text) {
      return QJsonObject{{QStringLiteral("window"), QStringLiteral("FrmEditar")},
                         {QStringLiteral("control"), QLatin1String(control)},
                         {QStringLiteral("text"), text}};
    };
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    program.Do(QStringLiteral("click"), {{QStringLiteral("window"), QStringLiteral("FrmMonitor")},
                                         {QStringLiteral("control"), QStringLiteral("MnNovaLetra")}});
    QTRY_VERIFY_WITH_TIMEOUT(program.OpenBoxes().contains(QStringLiteral("FrmEditar")), 20000);
    program.Do(QStringLiteral("type"), with("Text1", QStringLiteral("Manhã")));
    program.Do(QStringLiteral("type"), with("Text2", QStringLiteral("luz")));
    const QDir drafts(m_folder->filePath(QStringLiteral("Data/rascunhos")));
    const auto kept = [&] {
      const QStringList names = drafts.entryList(QDir::Files);
      return names.size() == 1 && Read(QStringLiteral("Data/rascunhos/") + names[0]).contains("luz");
    };
    QTRY_VERIFY_WITH_TIMEOUT(kept(), 20000);
    program.Kill();

    RemoteProgram next(m_folder->path());
    QVERIFY(next.Start());
    QTRY_COMPARE_WITH_TIMEOUT(next.OpenBoxes(), QStringList{QStringLiteral("MessageBox")}, 20000);
    next.Do(QStringLiteral("answer"), {{QStringLiteral("button"), QStringLiteral("Open")}});
    QTRY_VERIFY_WITH_TIMEOUT(next.OpenBoxes().contains(QStringLiteral("FrmEditar")), 20000);
    next.Do(QStringLiteral("click"), {{QStringLiteral("window"), QStringLiteral("FrmEditar")},
                                      {QStringLiteral("control"), QStringLiteral("BotaoFlat1")}});
    QTRY_COMPARE_WITH_TIMEOUT(Read(QStringLiteral("Lyrics/Manhã.txt")), QByteArray("Luz\r\n"), 20000);
    QVERIFY(drafts.entryList(QDir::Files).isEmpty());
    QVERIFY(next.Quit());
  }

  void oneMonitorIsARehearsalInAWindow() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.StartOnly(1));
    QTRY_COMPARE_WITH_TIMEOUT(program.OpenBoxes(), QStringList{QStringLiteral("MessageBox")}, 20000);
    program.Do(QStringLiteral("answer"), {{QStringLiteral("button"), QStringLiteral("OK")}});
    QVERIFY(program.WaitFor(QStringLiteral("TelaPronta"), true));
    const QImage window = program.Grab(QStringLiteral("FrmQuendar"));
    QCOMPARE(window.size(), QSize(640, 400));
  }

  void aFolderFullOfNonsenseStarts() {
    for (const char *sub : {"Data", "Lyrics", "Harpa", "html"})
      QDir(m_folder->path()).mkdir(QLatin1String(sub));
    QByteArray noise;
    for (int i = 0; i < 5000; ++i)
      noise += static_cast<char>((i * 7919) % 251);
    Write(QStringLiteral("Data/Themes.ini"), noise + "\r\n[Tema-1]\r\nTipo=Imagem\r\nimg=|||\r\nblur=lots\r\n");
    Write(QStringLiteral("Data/Config.dat"), noise);
    Write(QStringLiteral("Data/agenda1.dat"), "2|#|Antiga\r\n\x81\x8D|#|?\r\n77|#|a|#|b\r\n" + noise);
    Write(QStringLiteral("html/imagem.html"), QByteArray());
    Write(QStringLiteral("Lyrics/Vazia.txt"), QByteArray());
    Write(QStringLiteral("Lyrics/Binaria.txt"), noise + QByteArray(1, '\0') + noise);
    QByteArray huge;
    while (huge.size() < 5 * 1024 * 1024)
      huge += "Uma linha comum do louvor\r\nOutra linha comum\r\n\r\n";
    Write(QStringLiteral("Lyrics/Enorme.txt"), huge);
    QDir(m_folder->path()).mkdir(QStringLiteral("Lyrics/Pasta.txt"));

    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    for (const char *song : {"Vazia", "Binaria", "Enorme"}) {
      Show(program, QLatin1String(song));
      Key(program, QStringLiteral("Down"));
      Key(program, QStringLiteral("Down"));
      QVERIFY(program.State().value(QStringLiteral("TelaPronta")).toBool());
    }
    QCOMPARE(Read(QStringLiteral("Lyrics/Binaria.txt")), noise + QByteArray(1, '\0') + noise);
    program.Do(QStringLiteral("show"), {{QStringLiteral("kind"), 2},
                                        {QStringLiteral("label"), QStringLiteral("Pasta")},
                                        {QStringLiteral("target"), QStringLiteral("Pasta")}});
    QTRY_COMPARE(program.OpenBoxes(), QStringList{QStringLiteral("MessageBox")});
    program.Do(QStringLiteral("answer"), {{QStringLiteral("button"), QStringLiteral("OK")}});
    const QByteArray agenda = Read(QStringLiteral("Data/agenda1.dat"));
    QVERIFY(program.Quit());
    QCOMPARE(Read(QStringLiteral("Data/agenda1.bak")), agenda);
    QVERIFY(Read(QStringLiteral("Data/agenda1.dat")).startsWith("2|#|Antiga|#|Antiga\r\n"));
  }

  void keysFasterThanAPersonEndOnTheRightVerse() {
    RemoteProgram program(m_folder->path());
    QVERIFY(program.Start());
    QByteArray song;
    for (int i = 1; i <= 30; ++i)
      song += QByteArray::number(1000 + i) + "\r\n\r\n";
    Write(QStringLiteral("Lyrics/Longa.txt"), song);
    Show(program, QStringLiteral("Longa"));
    for (int i = 0; i < 25; ++i)
      Key(program, QStringLiteral("Down"));
    for (int i = 0; i < 8; ++i)
      Key(program, QStringLiteral("Up"));
    QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("1017")));
    QVERIFY(program.WaitForText(QStringLiteral("preview"), QStringLiteral("1017")));
  }

private:
  void Write(const QString &name, const QByteArray &bytes) {
    tolmira::testing::WriteBytes(m_folder->filePath(name), bytes);
  }
  QByteArray Read(const QString &name) { return tolmira::testing::ReadBytes(m_folder->filePath(name)); }
  static void Show(RemoteProgram &program, const QString &song) {
    program.Do(QStringLiteral("show"), {{QStringLiteral("kind"), 2},
                                        {QStringLiteral("label"), song},
                                        {QStringLiteral("target"), song}});
    QVERIFY(program.WaitFor(QStringLiteral("TituloAtual"), song, 30000));
  }
  // Of a song of two: "1 2 3" and "4 5 6".
  void StartOnFirstVerse(RemoteProgram &program) {
    QVERIFY(program.Start());
    Write(QStringLiteral("Lyrics/Teste.txt"), "1 2 3\r\n\r\n4 5 6");
    Show(program, QStringLiteral("Teste"));
    Key(program, QStringLiteral("Down"));
    QVERIFY(program.WaitForText(QStringLiteral("display"), QStringLiteral("1 2 3")));
  }
  static void Key(RemoteProgram &program, const QString &key) {
    QVERIFY(program.Do(QStringLiteral("key"), {{QStringLiteral("key"), key}}).value(QStringLiteral("ok")).toBool());
  }
  static int Brightest(const QImage &image) {
    int brightest = -1;
    for (int y = 0; y < image.height(); y += 2)
      for (int x = 0; x < image.width(); x += 2)
        brightest = std::max(brightest, qGray(image.pixel(x, y)));
    return brightest;
  }

  std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
