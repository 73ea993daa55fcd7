#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include "display/page_builder.h"
#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/recording_display.h"
#include "support/scripted_random.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

const QStringList Common = {QStringLiteral("apppath"),      QStringLiteral("VerticalAlign"),
                            QStringLiteral("letra"),        QStringLiteral("TransparenciaFaixa"),
                            QStringLiteral("blur"),         QStringLiteral("brightness"),
                            QStringLiteral("contrast"),     QStringLiteral("saturate"),
                            QStringLiteral("fontsize"),     QStringLiteral("fontname"),
                            QStringLiteral("fontcolor"),    QStringLiteral("text-shadow"),
                            QStringLiteral("displayTexto"), QStringLiteral("ComandoInicial"),
                            QStringLiteral("width"),        QStringLiteral("height"),
                            QStringLiteral("timeouttext"),  QStringLiteral("naoexiste")};
const QStringList OfPictures = {QStringLiteral("fximage"),     QStringLiteral("syncimage"),
                                QStringLiteral("speedimage"),  QStringLiteral("delayimage"),
                                QStringLiteral("easingimage"), QStringLiteral("timeoutimage"),
                                QStringLiteral("listaImages"), QStringLiteral("stateMoveImage")};

// A program folder whose templates name each placeholder once, and a console around it.
struct Desk {
  QTemporaryDir folder;
  AppFolder app{folder.path() + QStringLiteral("/program")};
  IniStore store{app};
  EstadoConsole estado;
  AjustesTexto ajustes;
  RecordingDisplay display;
  bool hasDisplay = true;
  RecordingPage preview;
  FixedMeasure measure;
  ScriptedRandom random{0.99};
  CountingYielder yielder;
  DisplayChannel canal{estado, [this] { return Telao(); }};
  LyricsComposer letras{estado,  ajustes, canal, [this] { return Telao(); }, [this] { return &preview; },
                        measure, random};
  int previewWidth = 320;
  double labelSize = 60;
  int frameCalls = 0;
  int bibleCalls = 0;
  PageBuilder paginas{app,
                      store,
                      estado,
                      ajustes,
                      canal,
                      letras,
                      {[this] { return Telao(); }, [this] { return &preview; }, [this] { return previewWidth; },
                       [this] { return labelSize; }, [this](bool ligado) { frameCalls += ligado ? 1 : 100; },
                       [this] { ++bibleCalls; }, {}},
                      random,
                      yielder};

  Desk() {
    estado.TelaPronta = true;
    QDir().mkpath(app.path() + QStringLiteral("/html"));
    QDir().mkpath(app.path() + QStringLiteral("/Data"));
    QDir().mkpath(TempPath());
    qputenv("TEMP", TempPath().toLocal8Bit());
    WriteTemplate(QStringLiteral("imagem.html"), Listing(OfPictures + Common));
    WriteTemplate(QStringLiteral("video.html"), Listing(QStringList{QStringLiteral("urlvideo")} + Common));
    WriteTemplate(QStringLiteral("backcolor.html"), Listing(QStringList{QStringLiteral("backcolor")} + Common));
  }
  ~Desk() { qunsetenv("TEMP"); }

  tolmira::Display *Telao() { return hasDisplay ? &display : nullptr; }
  QString TempPath() const { return folder.path() + QStringLiteral("/temp"); }
  static QByteArray Listing(const QStringList &names) {
    QByteArray text;
    for (const QString &name : names)
      text += name.toLatin1() + "={[" + name.toLatin1() + "]}\r\n";
    return text;
  }
  void WriteTemplate(const QString &name, const QByteArray &bytes) {
    WriteBytes(app.path() + QStringLiteral("/html/") + name, bytes);
  }
  QByteArray Page(const QString &name) const { return ReadBytes(TempPath() + u'/' + name); }
  QByteArray DisplayPage() const { return Page(QStringLiteral("temp.html")); }
  QByteArray PreviewPage() const { return Page(QStringLiteral("temp-pv.html")); }
  static QString Value(const QByteArray &page, const QString &name) {
    const QRegularExpression line(u"(?:^|\n)" + QRegularExpression::escape(name) + u"=\\{(.*?)\\}\r\n",
                                  QRegularExpression::DotMatchesEverythingOption);
    return line.match(QString::fromLatin1(page)).captured(1);
  }
  // What the display's page says for a placeholder, built anew.
  QString Filled(const QString &name) {
    paginas.MontaPagina(estado.TemaAtual, 0, 1);
    return Value(DisplayPage(), name);
  }
};

} // namespace

class TestPageBuilder : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void displayThenPreview();
  void oneTargetAlone();
  void everyPlaceholderOfTheDisplay();
  void previewIsScaled();
  void templateFollowsTheKindOfBackground_data();
  void templateFollowsTheKindOfBackground();
  void missingTemplateGivesAnEmptyPage();
  void templateBytesArriveAsTheyAre();
  void valuesAreNotFilledTwice();

  void pictureLists_data();
  void pictureLists();
  void picturesTheEngineCouldNotOpenAreEncoded();
  void picturesStandStillWhenFrozen_data();
  void picturesStandStillWhenFrozen();
  void bandAtTheStart_data();
  void bandAtTheStart();
  void hiddenTextStaysHidden();
  void fontSizeIsAWholeNumber_data();
  void fontSizeIsAWholeNumber();

  void verseOnShowIsSentAgain();
  void bibleIsSentAgainUnlessPlain();
  void themeChangedDuringTheYieldsDoesNotMixPages();

  void pageOfAWindow();
  void fontsThatAreNotInstalledBecomeArial();
};

void TestPageBuilder::displayThenPreview() {
  Desk desk;
  QStringList order;
  desk.yielder.onYield = [&](int times) {
    order.append(QStringLiteral("%1 commands, %2 previews, %3 yields")
                     .arg(desk.display.commands.size())
                     .arg(desk.preview.urls.size())
                     .arg(times));
  };
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);

  QCOMPARE(desk.display.commands, QStringList{QString(u"CarregaTema|#file:///" + desk.TempPath() + u"\\temp.html")});
  QCOMPARE(desk.preview.urls, QStringList{QString(u"file:///" + desk.TempPath() + u"\\temp-pv.html")});
  QCOMPARE(order, QStringList({QStringLiteral("1 commands, 1 previews, 4 yields"),
                               QStringLiteral("1 commands, 1 previews, 4 yields")}));
  QCOMPARE(desk.frameCalls, 2);
}

void TestPageBuilder::oneTargetAlone() {
  Desk desk;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 1);
  QCOMPARE(desk.PreviewPage(), QByteArray("<missing>"));
  QVERIFY(desk.preview.urls.isEmpty());
  QCOMPARE(desk.yielder.Total(), 4);

  Desk other;
  other.paginas.MontaPagina(other.estado.TemaAtual, 0, 2);
  QCOMPARE(other.DisplayPage(), QByteArray("<missing>"));
  QVERIFY(other.display.commands.isEmpty());
  QCOMPARE(other.preview.urls.size(), 1);
  QCOMPARE(other.yielder.Total(), 8);
}

void TestPageBuilder::everyPlaceholderOfTheDisplay() {
  Desk desk;
  TemaRecord &tema = desk.estado.TemaAtual;
  tema.Tipo = QStringLiteral("Imagem");
  tema.Imagem = QStringLiteral("/i/a.jpg|/i/b.jpg|");
  tema.MoveImagens = true;
  tema.Efeito_Imagem_Fx = QStringLiteral("Turn");
  tema.Efeito_Imagem_FxExtra = QStringLiteral("Turn Up");
  tema.Efeito_Imagem_speed = QStringLiteral("1500");
  tema.Efeito_Imagem_easing = QStringLiteral("'swing'");
  tema.blur = 3;
  tema.brightness = 90;
  tema.contrast = 110;
  tema.saturate = 120;
  tema.Font_Name = QStringLiteral("Liberation Sans");
  tema.Font_Cor = QStringLiteral("255");
  tema.FontBorda_Cor = QStringLiteral("0");
  desk.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("VerticalAlign"), QStringLiteral("flex-end"));
  desk.paginas.MontaPagina(tema, 0, 1);

  const auto expected = [&](const char *value) { return QString::fromLatin1(value); };
  const QByteArray page = desk.DisplayPage();
  const auto value = [&](const char *name) { return Desk::Value(page, QString::fromLatin1(name)); };
  QCOMPARE(value("fximage"), expected("turnUp"));
  QCOMPARE(value("syncimage"), expected("1"));
  QCOMPARE(value("speedimage"), expected("1500"));
  QCOMPARE(value("delayimage"), expected("0"));
  QCOMPARE(value("easingimage"), expected(",easing:'swing'"));
  QCOMPARE(value("stateMoveImage"), expected("running"));
  QCOMPARE(value("apppath"), desk.app.path());
  QCOMPARE(value("VerticalAlign"), expected("flex-end"));
  QCOMPARE(value("letra"), QString());
  QCOMPARE(value("blur"), expected("3"));
  QCOMPARE(value("brightness"), expected("90"));
  QCOMPARE(value("contrast"), expected("110"));
  QCOMPARE(value("saturate"), expected("120"));
  QCOMPARE(value("ComandoInicial"), QString());
  QCOMPARE(value("fontsize"), expected("60"));
  QCOMPARE(value("fontname"), expected("Liberation Sans"));
  QCOMPARE(value("fontcolor"), expected("#FF0000"));
  QCOMPARE(value("text-shadow"), expected("#000000 0px 1px 2px ,#000000 4px 4px 8px ;"));
  QCOMPARE(value("displayTexto"), expected("block"));
  for (const char *left : {"timeoutimage", "width", "height", "timeouttext", "naoexiste"})
    QCOMPARE(value(left), QString(u'[' + QString::fromLatin1(left) + u']'));
  QCOMPARE(tema.Font_Size, expected("60"));

  tema.Efeito_Imagem_easing.clear();
  QCOMPARE(desk.Filled(QStringLiteral("easingimage")), QString());
  tema.FontSombra_Enabled = false;
  tema.FontBorda_Enabled = false;
  QCOMPARE(desk.Filled(QStringLiteral("text-shadow")), expected("#000000 0px 0px 0px , 0px 0px 0px ;"));
}

void TestPageBuilder::previewIsScaled() {
  Desk desk; // 320 px of 1280
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 2);
  QCOMPARE(Desk::Value(desk.PreviewPage(), QStringLiteral("fontsize")), QStringLiteral("15"));
  QVERIFY(Desk::Value(desk.PreviewPage(), QStringLiteral("text-shadow")).endsWith(u",#000000 1px 1px 2px ;"));

  // The size over the ratio of the widths is 31.5 and goes to the even neighbour; the size times the inverse ratio would
  // lie a hair below.
  desk.labelSize = 90;
  desk.previewWidth = 448;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 2);
  QCOMPARE(Desk::Value(desk.PreviewPage(), QStringLiteral("fontsize")), QStringLiteral("32"));
  desk.labelSize = 60;

  desk.hasDisplay = false; // nothing to scale against
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 2);
  QCOMPARE(Desk::Value(desk.PreviewPage(), QStringLiteral("fontsize")), QStringLiteral("60"));
}

void TestPageBuilder::templateFollowsTheKindOfBackground_data() {
  QTest::addColumn<QString>("tipo");
  QTest::addColumn<QString>("pagina");
  QTest::addColumn<QString>("placeholder");
  QTest::addColumn<QString>("value");
  QTest::newRow("pictures") << QStringLiteral("Imagem") << QStringLiteral("imagem.html") << QStringLiteral("delayimage")
                            << QStringLiteral("0");
  QTest::newRow("video") << QStringLiteral("Video") << QStringLiteral("video.html") << QStringLiteral("urlvideo")
                         << QStringLiteral("<source src='C:\\v.mp4' type='video/mp4'>");
  QTest::newRow("colour") << QStringLiteral("CorDeFundo") << QStringLiteral("backcolor.html")
                          << QStringLiteral("backcolor") << QStringLiteral("#0000FF");
}

void TestPageBuilder::templateFollowsTheKindOfBackground() {
  QFETCH(QString, tipo);
  QFETCH(QString, pagina);
  QFETCH(QString, placeholder);
  Desk desk;
  desk.estado.TemaAtual.Tipo = tipo;
  desk.estado.TemaAtual.Video = QStringLiteral("C:\\v.mp4|x");
  desk.estado.TemaAtual.CordeFundo = 0xFF0000;
  QTEST(desk.Filled(placeholder), "value");
  QCOMPARE(desk.estado.PaginaAtual, pagina);
}

void TestPageBuilder::missingTemplateGivesAnEmptyPage() {
  Desk desk;
  QVERIFY(QFile::remove(desk.app.path() + QStringLiteral("/html/backcolor.html")));
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 1);
  QCOMPARE(desk.DisplayPage(), QByteArray());
  QCOMPARE(desk.display.commands.size(), 1);
  QCOMPARE(desk.estado.PaginaAtual, QStringLiteral("backcolor.html"));

  desk.estado.TemaAtual.Tipo = QStringLiteral("Filme");
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 1);
  QCOMPARE(desk.DisplayPage(), QByteArray());
  QCOMPARE(desk.display.commands.size(), 2);
  QCOMPARE(desk.estado.PaginaAtual, QStringLiteral("backcolor.html"));
}

void TestPageBuilder::templateBytesArriveAsTheyAre() {
  Desk desk;
  QByteArray every;
  for (int byte = 0; byte < 256; ++byte)
    every += static_cast<char>(byte);
  const QByteArray utf8 = "\xEF\xBB\xBF\xC3\xA9 a[0] b[[fontname]] [fontname";
  desk.WriteTemplate(QStringLiteral("backcolor.html"), every + utf8);
  desk.estado.TemaAtual.Font_Name = QString::fromUtf8("Ó שלום");
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 1);
  QCOMPARE(desk.DisplayPage(), every + "\xEF\xBB\xBF\xC3\xA9 a[0] b[\xD3 &#1513;&#1500;&#1493;&#1501;] [fontname");
}

void TestPageBuilder::valuesAreNotFilledTwice() {
  Desk desk;
  desk.estado.TemaAtual.Tipo = QStringLiteral("Imagem");
  desk.estado.TemaAtual.Imagem = QStringLiteral("/i/[blur].jpg|/i/b.jpg|");
  QVERIFY(desk.Filled(QStringLiteral("listaImages")).contains(u"src='/i/[blur].jpg'"));
}

void TestPageBuilder::pictureLists_data() {
  QTest::addColumn<QString>("lista");
  QTest::addColumn<QString>("html");
  const QString a = QStringLiteral("<div><img class='img efeitos' src='/i\\a.jpg'></div>\r\n");
  const QString b = QStringLiteral("<div><img class='img efeitos' src='C:\\Fotos\\é.png'></div>\r\n");
  const QString empty = QStringLiteral("<div></div>");
  QTest::newRow("two") << QStringLiteral("/i\\a.jpg|C:\\Fotos\\é.png|") << a + b;
  QTest::newRow("one: the cycle needs two slides") << QStringLiteral("/i\\a.jpg|") << empty + a;
  QTest::newRow("one without its end") << QStringLiteral("/i\\a.jpg") << empty + a;
  QTest::newRow("none") << QString() << empty;
  QTest::newRow("an end alone") << QStringLiteral("|") << empty;
  QTest::newRow("a gap is no picture") << QStringLiteral("/i\\a.jpg||") << a;
}

void TestPageBuilder::pictureLists() {
  QFETCH(QString, lista);
  Desk desk;
  desk.estado.TemaAtual.Tipo = QStringLiteral("Imagem");
  desk.estado.TemaAtual.Imagem = lista;
  QTEST(desk.Filled(QStringLiteral("listaImages")), "html");
}

void TestPageBuilder::picturesTheEngineCouldNotOpenAreEncoded() {
  Desk desk;
  QFile file(desk.folder.path() + QStringLiteral("/Foto.jpg"));
  QVERIFY(file.open(QIODevice::WriteOnly));
  const QString folder = desk.folder.path();
  QVERIFY(PageBuilder::ListaHtmlImagens(folder + QStringLiteral("\\FOTO.JPG|"))
              .contains(QString(u"src='file:///" + folder + u"/Foto.jpg'")));
  QVERIFY(
      PageBuilder::ListaHtmlImagens(folder + QStringLiteral("/d'água #1.jpg|")).contains(u"d%27%C3%A1gua%20%231.jpg'"));
  QVERIFY(
      PageBuilder::ListaHtmlImagens(QStringLiteral("/i/a&copy b & c.jpg|")).contains(u"src='/i/a&amp;copy b & c.jpg'"));
}

void TestPageBuilder::picturesStandStillWhenFrozen_data() {
  QTest::addColumn<bool>("move");
  QTest::addColumn<bool>("frozen");
  QTest::addColumn<QString>("display");
  QTest::addColumn<QString>("preview");
  QTest::addColumn<QString>("window");
  const QString running = QStringLiteral("running"), paused = QStringLiteral("paused");
  QTest::newRow("moving") << true << false << running << running << running;
  QTest::newRow("frozen: the display moves on") << true << true << running << paused << paused;
  QTest::newRow("still") << false << false << paused << paused << paused;
  QTest::newRow("still and frozen") << false << true << paused << paused << paused;
}

void TestPageBuilder::picturesStandStillWhenFrozen() {
  QFETCH(bool, move);
  QFETCH(bool, frozen);
  Desk desk;
  TemaRecord &tema = desk.estado.TemaAtual;
  tema.Tipo = QStringLiteral("Imagem");
  tema.MoveImagens = move;
  desk.estado.ImagensCongeladas = frozen;
  desk.paginas.MontaPagina(tema, 0, 0);
  desk.paginas.MontaPaginaConfig(QSize(100, 100), tema, 1, QString());
  const QString name = QStringLiteral("stateMoveImage");
  QTEST(Desk::Value(desk.DisplayPage(), name), "display");
  QTEST(Desk::Value(desk.PreviewPage(), name), "preview");
  QTEST(Desk::Value(desk.Page(QStringLiteral("tempConfig.html")), name), "window");
}

void TestPageBuilder::bandAtTheStart_data() {
  QTest::addColumn<QString>("tipo");
  QTest::addColumn<QString>("reference");
  QTest::addColumn<QString>("verse"); // on show
  QTest::addColumn<int>("posicao");
  QTest::addColumn<QString>("display");
  QTest::addColumn<QString>("preview");
  QTest::addColumn<QString>("letra");
  const QString none, h = QStringLiteral("<div>"), song = QStringLiteral("Louvor"), bible = QStringLiteral("Bíblia");
  const QString ref = QStringLiteral("Salmos 23:1"), off = QStringLiteral("0.0"), zero = QStringLiteral("0");
  const QString alpha = QStringLiteral("0.7");
  QTest::newRow("song, no verse yet") << song << none << none << 0 << off << off << none;
  QTest::newRow("song with a verse") << song << none << h << 0 << alpha << alpha << none;
  QTest::newRow("song, a position") << song << none << h << 1 << zero << zero << none;
  QTest::newRow("slides") << QStringLiteral("Slides") << none << h << 1 << off << off << QStringLiteral("nada");
  QTest::newRow("bible") << bible << ref << h << 0 << off << off << none;
  QTest::newRow("bible, a position") << bible << ref << h << 2 << zero << off << none;
  QTest::newRow("bible without a reference") << bible << none << h << 2 << zero << zero << none;
}

void TestPageBuilder::bandAtTheStart() {
  QFETCH(QString, tipo);
  QFETCH(QString, reference);
  QFETCH(QString, verse);
  QFETCH(int, posicao);
  Desk desk;
  desk.estado.TipoAtual = tipo;
  desk.estado.ReferenciaAtual = reference;
  desk.estado.VersoHtmlAtual = verse;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, posicao, 0);
  const QString name = QStringLiteral("TransparenciaFaixa");
  QTEST(Desk::Value(desk.DisplayPage(), name), "display");
  QTEST(Desk::Value(desk.PreviewPage(), name), "preview");
  QTEST(Desk::Value(desk.DisplayPage(), QStringLiteral("letra")), "letra");
}

void TestPageBuilder::hiddenTextStaysHidden() {
  Desk desk;
  desk.estado.EstadoTela = QStringLiteral("OcultarTexto");
  QCOMPARE(desk.Filled(QStringLiteral("displayTexto")), QStringLiteral("none"));
  desk.estado.EstadoTela = QStringLiteral("TelaPreta");
  QCOMPARE(desk.Filled(QStringLiteral("displayTexto")), QStringLiteral("block"));
}

void TestPageBuilder::fontSizeIsAWholeNumber_data() {
  QTest::addColumn<double>("label");
  QTest::addColumn<QString>("size");
  QTest::newRow("down") << 60.4 << QStringLiteral("60");
  QTest::newRow("half to even") << 60.5 << QStringLiteral("60");
  QTest::newRow("half to even, above") << 61.5 << QStringLiteral("62");
}

void TestPageBuilder::fontSizeIsAWholeNumber() {
  QFETCH(double, label);
  Desk desk;
  desk.labelSize = label;
  QTEST(desk.Filled(QStringLiteral("fontsize")), "size");
}

void TestPageBuilder::verseOnShowIsSentAgain() {
  Desk desk;
  desk.estado.TipoAtual = QStringLiteral("Harpa");
  desk.estado.FonteTamanho = QStringLiteral("60");
  desk.estado.TextoEstrofes = {QStringLiteral("um"), QStringLiteral("dois")};
  desk.estado.EstrofeAtual = 2;
  int sentBeforeTheLastYield = -1;
  desk.yielder.onYield = [&](int) { sentBeforeTheLastYield = static_cast<int>(desk.display.commands.size()); };
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);
  QCOMPARE(sentBeforeTheLastYield, 1); // the page had its moment before the verse
  QCOMPARE(desk.display.commands.size(), 2);
  QVERIFY(desk.display.commands.last().endsWith(u"|#|#|#dois"));
  QVERIFY(desk.display.commands.last().contains(u"animated"));
  QVERIFY(!desk.DisplayPage().contains("dois"));

  desk.display.TakeCommands();
  desk.estado.EstrofeAtual = -1;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);
  QCOMPARE(desk.display.commands.size(), 1);
}

void TestPageBuilder::bibleIsSentAgainUnlessPlain() {
  Desk desk;
  desk.estado.TipoAtual = QStringLiteral("Bíblia");
  desk.ajustes.EstiloBiblia = 2;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);
  QCOMPARE(desk.bibleCalls, 1);
  desk.ajustes.EstiloBiblia = 1;
  desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);
  QCOMPARE(desk.bibleCalls, 1);
  QCOMPARE(desk.display.commands.size(), 2);
}

void TestPageBuilder::themeChangedDuringTheYieldsDoesNotMixPages() {
  Desk desk;
  TemaRecord &tema = desk.estado.TemaAtual;
  tema.Font_Name = QStringLiteral("First");
  bool nested = false;
  desk.yielder.onYield = [&](int) {
    if (nested)
      return;
    nested = true;
    TemaRecord second;
    second.Font_Name = QStringLiteral("Second");
    desk.estado.TemaAtual = second;
    desk.paginas.MontaPagina(desk.estado.TemaAtual, 0, 0);
  };
  desk.paginas.MontaPagina(tema, 0, 0);
  QCOMPARE(Desk::Value(desk.DisplayPage(), QStringLiteral("fontname")), QStringLiteral("Second"));
  QCOMPARE(Desk::Value(desk.PreviewPage(), QStringLiteral("fontname")), QStringLiteral("Second"));
  QCOMPARE(desk.display.commands.size(), 2);
  QCOMPARE(desk.preview.urls.size(), 2);
}

void TestPageBuilder::pageOfAWindow() {
  Desk desk;
  TemaRecord tema;
  tema.Tipo = QStringLiteral("Imagem");
  tema.Imagem = QStringLiteral("/i/a.jpg|/i/b.jpg|");
  desk.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("VerticalAlign"), QStringLiteral("flex-end"));
  desk.estado.TipoAtual = QStringLiteral("Slides");
  const auto value = [&](const char *name) {
    return Desk::Value(desk.Page(QStringLiteral("tempConfig.html")), QString::fromLatin1(name));
  };

  const QString path = desk.paginas.MontaPaginaConfig(QSize(400, 225), tema, 1, QString());
  QCOMPARE(path, desk.TempPath() + u"\\tempConfig.html");
  QCOMPARE(value("timeoutimage"), QStringLiteral("0"));
  QCOMPARE(value("timeouttext"), QStringLiteral("0"));
  QCOMPARE(value("width"), QStringLiteral("400px"));
  QCOMPARE(value("height"), QStringLiteral("225px"));
  QCOMPARE(value("fontsize"), QStringLiteral("36"));
  QCOMPARE(value("VerticalAlign"), QStringLiteral("center"));
  QCOMPARE(value("letra"), QString());
  QCOMPARE(value("TransparenciaFaixa"), QStringLiteral("[TransparenciaFaixa]"));
  QCOMPARE(value("ComandoInicial"), QString());
  QCOMPARE(tema.Font_Size, QStringLiteral("60"));

  desk.paginas.MontaPaginaConfig(QSize(400, 225), tema, 1, QStringLiteral("<b>[blur]</b>"));
  QCOMPARE(value("ComandoInicial"), QStringLiteral("\r\nUpdateTextHtml('<b>[blur]</b>');"));
  desk.paginas.MontaPaginaConfig(QSize(400, 225), tema, 2, QStringLiteral("x"));
  QCOMPARE(value("ComandoInicial"), QStringLiteral("\r\nUpdateTextHtml('x');\r\n$('.slideshow').cycle(2);"));
  QVERIFY(desk.display.commands.isEmpty() && desk.preview.urls.isEmpty());
  QCOMPARE(desk.yielder.Total(), 0);
}

void TestPageBuilder::fontsThatAreNotInstalledBecomeArial() {
  QCOMPARE(FonteInstalada(QStringLiteral("Liberation Sans")), QStringLiteral("Liberation Sans"));
  QCOMPARE(FonteInstalada(QStringLiteral("liberation sans")), QStringLiteral("Arial"));
  QCOMPARE(FonteInstalada(QStringLiteral("No Such Font")), QStringLiteral("Arial"));
  QCOMPARE(FonteInstalada(QString()), QStringLiteral("Arial"));
}

QTEST_MAIN(TestPageBuilder)
#include "test_page_builder.moc"
