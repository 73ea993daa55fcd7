#include "display/show_page.h"
#include "support/files.h"
#include "support/scripted_random.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

// How the page of a show and the gallery are filled, and what of the gallery's answers is understood.
class TestShowPage : public QObject {
  Q_OBJECT

private:
  QTemporaryDir m_dir;
  QString Fill(const SlideShowDocument &show, const QByteArray &modelo, RandomSource &random) {
    WriteBytes(m_dir.filePath(QStringLiteral("html/sshow.dat")), modelo);
    MontaPaginaDoShow(AppFolder(m_dir.path()), show, random);
    return QString::fromLatin1(ReadBytes(m_dir.filePath(QStringLiteral("html/sshow.html"))));
  }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void theShowIsFilled() {
    SlideShowDocument show;
    show.Tempo = 4000;
    show.TempoIntevaloSaida = 10;
    show.textoInicio = QStringLiteral("Bem-vindos<br>Fé & Paz");
    show.imagens = {QStringLiteral("C:\\a\\[listaImagens].jpg"), QStringLiteral("/b.png")};
    ScriptedRandom random{0.0, 0.999, 0.5, 0.1};
    QCOMPARE(Fill(show,
                  "[listaImagens];[Tempo De Imagem];[Tempo de transicao];[Tempo de transicao saida];[Arquivo de Audio];"
                  "[Texto de Inicio];[Texto do Final];[[Random Effect In]];[Random Effect Out]",
                  random),
             QStringLiteral("<img id='[listaImagens].jpg' src='C:\\a\\[listaImagens].jpg' alt='1' class='img'>"
                            "<img id='b.png' src='/b.png' alt='2' class='img'>;4000;2000;10;;"
                            "Bem-vindos<br>Fé & Paz;;[1,10];6,2"));
    show.imagens.removeLast();
    ScriptedRandom one{0.25};
    QCOMPARE(Fill(show, "[Random Effect In]|[Random Effect Out]", one), QStringLiteral("3|3"));
  }

  void nothingBreaksAStringOfAScript_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("audio");
    QTest::addColumn<QString>("noTexto");
    QTest::addColumn<QString>("noAudio");
    const auto row = [](const char *name, const char *texto, const char *audio, const char *noTexto, const char *noAudio) {
      QTest::newRow(name) << QString::fromUtf8(texto) << QString::fromUtf8(audio) << QString::fromUtf8(noTexto)
                          << QString::fromUtf8(noAudio);
    };
    row("quotes", "\"a\" 'b'", "/a/\"x'.mp3", "&quot;a&quot; &#39;b&#39;", "/a/\\\"x\\'.mp3");
    row("backslashes", "a\\", "C:\\\\a\\\\b.mp3", "a&#92;", "C:\\\\a\\\\b.mp3");
    row("lone backslashes", "x", "C:\\a.mp3\\", "x", "C:\\\\a.mp3\\\\");
    row("the end of the script", "</script><!--", "/a</script>", "&lt;/script>&lt;!--", "/a<\\/script>");
    row("weights", "<b>a</b><BR>I <3 you <here>", "", "<b>a</b><BR>I &lt;3 you &lt;here>", "");
  }
  void nothingBreaksAStringOfAScript() {
    QFETCH(QString, texto);
    QFETCH(QString, audio);
    QFETCH(QString, noTexto);
    QFETCH(QString, noAudio);
    SlideShowDocument show;
    show.textoFim = texto;
    show.ArquivodeAudio = audio;
    ScriptedRandom random{0.5};
    QCOMPARE(Fill(show, "[Texto do Final]", random), noTexto);
    QCOMPARE(Fill(show, "[Arquivo de Audio]", random), noAudio);
  }

  void withoutItsTemplateThereIsNoShow() {
    QTemporaryDir empty;
    ScriptedRandom random{0.5};
    QCOMPARE(MontaPaginaDoShow(AppFolder(empty.path()), {}, random), QString());
    QCOMPARE(random.Count(), 0);
  }

  void theGalleryIsFilled() {
    WriteBytes(m_dir.filePath(QStringLiteral("html/galery.dat")), "[height]:[imagens]");
    carregaGaleria(AppFolder(m_dir.path()), {QStringLiteral("/p/a.jpg"), QStringLiteral("/p/b.jpg")}, 321);
    QCOMPARE(ReadBytes(m_dir.filePath(QStringLiteral("html/galery.html"))),
             QByteArray("321px:<div draggable='true' class='box' ><img src='/p/a.jpg' alt='1' class='img'></div>"
                        "<div draggable='true' class='box' ><img src='/p/b.jpg' alt='2' class='img'></div>"));
  }

  void anAnswerGivesThePathsBack_data() {
    QTest::addColumn<QString>("uri");
    QTest::addColumn<int>("verbo");
    QTest::addColumn<QStringList>("imagens");
    const QString pipe = QStringLiteral("/p/a|b.jpg");
    const QString hard = QStringLiteral("/p/it's 100% #1 ç.jpg");
    const auto row = [](const char *name, const char *uri, int verbo, const QStringList &imagens = {}) {
      QTest::newRow(name) << QString::fromLatin1(uri) << verbo << imagens;
    };
    row("the trailing separator", "http://lista//?/x/a.jpg|/x/b+c.jpg|", RespostaDaGaleria::Lista,
        {QStringLiteral("/x/a.jpg"), QStringLiteral("/x/b c.jpg")});
    row("file addresses", "http://index//?file:///C:/a.jpg|file:////x/b.jpg|file:///x/c.jpg", RespostaDaGaleria::Indice,
        {QStringLiteral("C:/a.jpg"), QStringLiteral("/x/b.jpg"), QStringLiteral("/x/c.jpg")});
    row("what stands in the page",
        "http://lista//?%2Fp%2Fa%257Cb.jpg|file:////p/it%2527s%2520100%2525%2520%25231%2520%25C3%25A7.jpg|",
        RespostaDaGaleria::Lista, {pipe, hard});
    row("as the engine names it", "http://lista//?file:///p/it's%20100%25%20%231%20%C3%A7.jpg|", RespostaDaGaleria::Lista,
        {hard});
    row("up to the first without a path", "http://lista//?/x/a.jpg||/x/b.jpg|", RespostaDaGaleria::Lista,
        {QStringLiteral("/x/a.jpg")});
    row("nothing", "http://lista//?", RespostaDaGaleria::Lista);
    row("no question mark", "http://lista//", RespostaDaGaleria::Lista);
    row("another verb", "http://lista/?/x/a.jpg|", RespostaDaGaleria::Outro);
  }
  void anAnswerGivesThePathsBack() {
    QFETCH(QString, uri);
    QFETCH(int, verbo);
    const RespostaDaGaleria resposta =
        LeRespostaDaGaleria(uri, {QStringLiteral("/p/a|b.jpg"), QStringLiteral("/p/it's 100% #1 ç.jpg")});
    QCOMPARE(int(resposta.verbo), verbo);
    QTEST(resposta.imagens, "imagens");
  }
};

QTEST_MAIN(TestShowPage)
#include "test_show_page.moc"
