#include "slides/show_editor.h"
#include "support/files.h"
#include "support/scripted_prompt.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

Q_DECLARE_METATYPE(tolmira::AcaoDoShow)

// The file of a slide show, and what its editor writes and refuses.
class TestSlideShow : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), editor(app, prompt) {
      QDir(folder.path()).mkdir(QStringLiteral("SlideShow"));
      QDir(folder.path()).mkdir(QStringLiteral("temp"));
      qputenv("TEMP", folder.filePath(QStringLiteral("temp")).toUtf8());
    }
    QByteArray Read(const char *name) { return ReadBytes(folder.filePath(QLatin1String(name))); }
    PassoDoEditor Answer(const QStringList &imagens) { return editor.Recebe({RespostaDaGaleria::Lista, imagens}); }
    QTemporaryDir folder;
    AppFolder app;
    ScriptedPrompt prompt;
    ShowEditor editor;
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void writesItsKeysInTheirOrder() {
    Room room;
    WriteBytes(room.folder.filePath(QStringLiteral("a.mp3")), "x");
    room.editor.TxtNome = QStringLiteral("  Demo ");
    room.editor.Tempo = 7000;
    room.editor.audio = room.folder.path() + QStringLiteral("\\a.mp3");
    room.editor.textoInicio = QStringLiteral("\n one\ntwo \n");
    QVERIFY(room.editor.Pede(AcaoDoShow::ApenasSalvar));
    QVERIFY(!room.Answer({QStringLiteral("C:\\b.jpg"), QStringLiteral("/p/c.jpg")}).fecha);
    QCOMPARE(room.Read("SlideShow/Demo.sw"),
             QByteArray("[Setup]\r\nTitulo=\"  Demo \"\r\nTempo=7000\r\nTempoIntevalo=2000\r\nTempoIntevaloSaida=2000\r\n"
                        "ArquivodeAudio=" +
                        room.folder.path().toUtf8() +
                        "\\\\a.mp3\r\ntextoInicio=one<br>two\r\ntextoFim=\r\n"
                        "[Imagens]\r\nImagem1=C:\\b.jpg\r\nImagem2=/p/c.jpg\r\ntotalImagens=2\r\n"));
    QVERIFY(!room.editor.Alterado());

    // Nothing of before lingers, and music that has gone is not named.
    QFile::remove(room.folder.filePath(QStringLiteral("a.mp3")));
    QVERIFY(room.editor.Pede(AcaoDoShow::ApenasSalvar));
    room.Answer({QStringLiteral("/p/c.jpg")});
    const QByteArray again = room.Read("SlideShow/Demo.sw");
    QVERIFY(!again.contains("ArquivodeAudio") && !again.contains("Imagem2"));
    QVERIFY(again.endsWith("Imagem1=/p/c.jpg\r\ntotalImagens=1\r\n"));
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void comesBackAsItWasTyped() {
    Room room;
    const QStringList imagens{QStringLiteral("/p/a|b.jpg"), QStringLiteral("/p/it's 100% #1 ç.jpg"),
                              QString::fromUtf8("/p/\xD7\xA9.png")};
    room.editor.TxtNome = QStringLiteral("É");
    room.editor.textoInicio = QStringLiteral("\"said\"\r\nhe");
    room.editor.textoFim = QStringLiteral("'so'");
    room.editor.Pede(AcaoDoShow::SalvarESair);
    QVERIFY(room.Answer(imagens).fecha);
    ShowEditor other(room.app, room.prompt);
    QVERIFY(other.CarregarSlide(room.editor.Path()));
    QCOMPARE(other.TxtNome, QStringLiteral("É"));
    QCOMPARE(other.Imagens(), imagens);
    QCOMPARE(other.textoInicio, room.editor.textoInicio);
    QCOMPARE(other.textoFim, room.editor.textoFim);
    QVERIFY(!other.Alterado());
  }

  void readsWhateverAFileHolds_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("tempo");
    QTest::addColumn<QStringList>("imagens");
    const QStringList one{QStringLiteral("a.jpg")};
    QTest::newRow("nothing") << QByteArray() << 5000 << QStringList();
    QTest::newRow("no total") << QByteArray("[Imagens]\r\nImagem1=a.jpg\r\n") << 5000 << QStringList();
    QTest::newRow("a million") << QByteArray("[Imagens]\r\ntotalImagens=1000000\r\nImagem1=a.jpg\r\n") << 5000 << one;
    QTest::newRow("minus one") << QByteArray("[Imagens]\r\ntotalImagens=-1\r\nImagem1=a.jpg\r\n") << 5000
                               << QStringList();
    QTest::newRow("a gap") << QByteArray("[Imagens]\r\nImagem2=a.jpg\r\ntotalImagens=3\r\n[Setup]\r\nTempo=99999\r\n")
                           << 32767 << one;
    QTest::newRow("no number") << QByteArray("[Setup]\r\nTempo=soon\r\n[Imagens]\r\ntotalImagens=x\r\n") << 0
                               << QStringList();
  }
  void readsWhateverAFileHolds() {
    QFETCH(QByteArray, file);
    QTemporaryDir dir;
    WriteBytes(dir.filePath(QStringLiteral("x.sw")), file);
    const SlideShowDocument show = LeSlideShow(dir.filePath(QStringLiteral("x.sw")));
    QTEST(int(show.Tempo), "tempo");
    QTEST(show.imagens, "imagens");
  }

  void eachActionHasItsRules_data() {
    QTest::addColumn<AcaoDoShow>("acao");
    QTest::addColumn<QString>("nome");
    QTest::addColumn<bool>("comImagens");
    QTest::addColumn<QStringList>("diz");
    QTest::addColumn<QString>("arquivo");
    const QStringList semNome{QStringLiteral("Enter a name for the slide")};
    const QStringList semItens{QStringLiteral("There are no items listed for display.")};
    const QString a = QStringLiteral("A");
    using enum AcaoDoShow;
    QTest::newRow("show, no name") << ExibirAgora << QString() << true << QStringList() << "temp/Sem Titulo.sw";
    QTest::newRow("show, name") << ExibirAgora << a << true << QStringList() << "SlideShow/A.sw";
    QTest::newRow("show, nothing") << ExibirAgora << a << false << semItens << QString();
    QTest::newRow("save, blank name") << ApenasSalvar << QStringLiteral("  ") << true << semNome << QString();
    QTest::newRow("save, nothing") << ApenasSalvar << a << false << QStringList() << "SlideShow/A.sw";
    QTest::newRow("agenda, nothing") << AdicionarNaAgenda << a << false << QStringList() << "SlideShow/A.sw";
    QTest::newRow("agenda, no name") << AdicionarNaAgenda << QString() << true << semNome << QString();
    QTest::newRow("a path for a name")
        << SalvarESair << QStringLiteral("../A") << true
        << QStringList{QStringLiteral("The name of a slide show becomes the name of a file, which cannot hold  /")}
        << QString();
  }
  void eachActionHasItsRules() {
    QFETCH(AcaoDoShow, acao);
    QFETCH(QString, nome);
    QFETCH(bool, comImagens);
    QFETCH(QString, arquivo);
    Room room;
    room.editor.TxtNome = nome;
    PassoDoEditor passo;
    if (room.editor.Pede(acao))
      passo = room.Answer(comImagens ? QStringList{QStringLiteral("/p/a.jpg")} : QStringList());
    QTEST(room.prompt.TakeTexts(), "diz");
    QStringList written;
    for (const char *folder : {"SlideShow", "temp"})
      for (const QString &file : QDir(room.folder.filePath(QLatin1String(folder))).entryList(QDir::Files))
        written.append(QLatin1String(folder) + u'/' + file);
    QCOMPARE(written, arquivo.isEmpty() ? QStringList() : QStringList{arquivo});
    QCOMPARE(!passo.exibe.isEmpty(), acao == AcaoDoShow::ExibirAgora && !arquivo.isEmpty());
    QCOMPARE(!passo.adiciona.isEmpty(), acao == AcaoDoShow::AdicionarNaAgenda && !arquivo.isEmpty());
    QCOMPARE(passo.fecha, acao != AcaoDoShow::ExibirAgora && acao != AcaoDoShow::ApenasSalvar && !arquivo.isEmpty());
  }

  void theListIsKeptWhoeverSendsIt() {
    Room room;
    room.editor.Adiciona({QStringLiteral("a"), QStringLiteral("b")});
    room.editor.Recebe({RespostaDaGaleria::Indice, {QStringLiteral("b"), QStringLiteral("a")}});
    QCOMPARE(room.editor.Imagens(), QStringList({QStringLiteral("b"), QStringLiteral("a")}));
    room.editor.Recebe({RespostaDaGaleria::Outro, {}});
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList{QStringLiteral("There are still no items to display in this presentation.")});
    QCOMPARE(room.editor.Imagens().size(), 2);
  }

  void anotherShowIsNotReplacedUnasked() {
    Room room;
    WriteBytes(room.folder.filePath(QStringLiteral("SlideShow/A.sw")), "old");
    room.editor.TxtNome = QStringLiteral("a");
    for (const bool replaces : {false, true}) {
      room.prompt.answers = {replaces ? 0 : 1};
      room.editor.Pede(AcaoDoShow::SalvarESair);
      QCOMPARE(room.Answer({QStringLiteral("/p/a.jpg")}).fecha, replaces);
      QCOMPARE(room.Read("SlideShow/A.sw") == "old", !replaces);
    }
  }
};

QTEST_MAIN(TestSlideShow)
#include "test_slide_show.moc"
