#include "support/files.h"
#include "slides/slide_document.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;

class TestSlideDocument : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(m_dir.isValid());
  }

  void writesItsKeysInTheirOrder();
  void comesBackAsItWasWritten_data();
  void comesBackAsItWasWritten();
  void theTwoReadersKnowTheLookByDifferentKeys();
  void keepsWhatOnlyThePresentationReads();
  void believesACountAsFarAsItIsPlausible_data();
  void believesACountAsFarAsItIsPlausible();

private:
  QString Path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }
  QTemporaryDir m_dir;
};

void TestSlideDocument::writesItsKeysInTheirOrder() {
  SlideDocument document;
  document.Intervalo = 2;
  document.slides.append({QStringLiteral("C:\\a.jpg"), QStringLiteral("One"), QStringLiteral("x\r\ny")});
  QVERIFY(GravaSlide(Path("a.sld"), document));
  const QByteArray expected = "[Config]\r\nCount=1\r\nImagem1=C:\\a.jpg\r\nTitulo1=One\r\nTexto1=x*|y\r\n"
                              "Alinhamento1=0\r\nEspacamento1=12\r\nFontSize1=4\r\nincluirTexto1=1\r\n"
                              "Intervalo=2\r\nFont_Name=Myriad Pro\r\nMaiusculas=0\r\nMoveImagens=0\r\n"
                              "Efeito_Texto-Fx=Fade\r\nEfeito_Texto-FxExtra=Random\r\nEfeito_Texto-FxOut=None\r\n"
                              "Efeito_Imagem_delay=0\r\nEfeito_Imagem_easing=\r\nEfeito_Imagem-Fx=Fade\r\n"
                              "Efeito_Imagem-FxExtra=Random\r\nEfeito_Imagem_speed=1000\r\nEfeito_Imagem_sync=1\r\n"
                              "FontSombra=1\r\nFontBorda=1\r\nFontCorSombra=0\r\nFontEspalhamentoSombra=6\r\n"
                              "FontFor\xE7"
                              "aSombra=10\r\nFontSombra_Right=4\r\nFontSombra_Down=4\r\nFontCorBorda=True\r\n"
                              "FontGrossuraBorda=3\r\nFontCor=16777215\r\nCordeFundo=0\r\n";
  QCOMPARE(testing::ReadBytes(Path("a.sld")), expected);
}

void TestSlideDocument::comesBackAsItWasWritten_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");
  const auto row = [](const char *name, const char16_t *text, const char16_t *expected = nullptr) {
    QTest::newRow(name) << QString::fromUtf16(text) << QString::fromUtf16(expected ? expected : text);
  };
  row("lines", u"one\r\n\r\nthree\r\n");
  row("the stored line break", u"a*|b", u"a\r\nb");
  row("the separator of commands", u"a|#b|#");
  row("quotation marks", u"\"holy\"");
  row("outer blanks", u"  in the middle  ");
  row("outside the code page", u"שלום");
  row("like another key", u"[Config]\r\nCount=7");
}

void TestSlideDocument::comesBackAsItWasWritten() {
  QFETCH(QString, text);
  QFETCH(QString, expected);
  SlideDocument document;
  document.slides.append({QStringLiteral("C:\\a.jpg"), QStringLiteral("One"), text});
  document.slides.append({QString(), QString(), QStringLiteral("last"), AlinhamentoCentrado, 15, 7, 0});
  document.visual.FontBorda_Cor = QStringLiteral("0"); // of a saved document the outline's colour is always black
  QVERIFY(GravaSlide(Path("b.sld"), document));
  document.slides[0].Texto = expected;
  QCOMPARE(LoadSlideNew(Path("b.sld")), document);
}

void TestSlideDocument::theTwoReadersKnowTheLookByDifferentKeys() {
  testing::WriteBytes(Path("c.sld"), "[config]\r\ncount=1\r\nFontCor=255\r\nFont_Cor=65280\r\nFontCorSombra=1\r\n"
                                     "FontBorda=0\r\nFontBorda_Espessura=9\r\n");
  const SlideDocument editor = LoadSlideNew(Path("c.sld"));
  const SlideDocument presenter = LeSlidesParaExibir(Path("c.sld"));
  QCOMPARE(editor.visual.Font_Cor, QStringLiteral("255"));
  QCOMPARE(presenter.visual.Font_Cor, QStringLiteral("65280"));
  QCOMPARE(presenter.visual.FontSombra_Cor, QStringLiteral("0"));
  QVERIFY(!editor.visual.FontBorda_Enabled && presenter.visual.FontBorda_Enabled);
  QCOMPARE(editor.visual.FontBorda_Espessura, QString());
  QCOMPARE(presenter.visual.FontBorda_Espessura, QStringLiteral("9"));
  QCOMPARE(presenter.visual.FontSombra_Opacity, QStringLiteral("1"));
  QVERIFY(!editor.visual.Maiusculas && presenter.visual.Maiusculas);
  QCOMPARE(editor.Em(1), Slide());
  QCOMPARE(presenter.Em(1), (Slide{{}, {}, {}, 0, 0, 16, 1}));
}

void TestSlideDocument::keepsWhatOnlyThePresentationReads() {
  testing::WriteBytes(Path("d.sld"),
                      "[Config]\r\nCount=1\r\nImagem1=a\r\nImagem2=gone\r\nFont_Cor=65280\r\nNote=hi\r\n");
  SlideDocument document = LoadSlideNew(Path("d.sld"));
  document.Em(1).Titulo = QStringLiteral("new");
  QVERIFY(GravaSlide(Path("e.sld"), document));
  QCOMPARE(LeSlidesParaExibir(Path("e.sld")).visual.Font_Cor, QStringLiteral("65280"));
  const QByteArray written = testing::ReadBytes(Path("e.sld"));
  QVERIFY(written.endsWith("CordeFundo=0\r\nFont_Cor=65280\r\nNote=hi\r\n"));
  QVERIFY(!written.contains("Imagem2"));
}

void TestSlideDocument::believesACountAsFarAsItIsPlausible_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<int>("count");
  QTest::newRow("no file") << QByteArray() << 0;
  QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) << 0;
  QTest::newRow("below none") << QByteArray("[Config]\r\nCount=-1\r\nImagem1=a\r\n") << 0;
  QTest::newRow("no number") << QByteArray("[Config]\r\nCount=many\r\n") << 0;
  QTest::newRow("without their keys") << QByteArray("[Config]\r\nCount=3\r\nImagem1=a\r\n") << 3;
  QTest::newRow("a million") << QByteArray("[Config]\r\nCount=1000000\r\nImagem1=a\r\n") << 2000;
  QTest::newRow("a million, some of them there")
      << QByteArray("[Config]\r\nCount=1000000\r\nTexto2500=a\r\nImagem2400=a\r\n") << 2500;
  QTest::newRow("a thousand million") << QByteArray("[Config]\r\nCount=999999999\r\nImagem999999999=a\r\n") << 20000;
}

void TestSlideDocument::believesACountAsFarAsItIsPlausible() {
  QFETCH(QByteArray, file);
  QFETCH(int, count);
  if (!file.isEmpty())
    testing::WriteBytes(Path("f.sld"), file);
  QCOMPARE(LoadSlideNew(Path("f.sld")).Count(), count);
  QCOMPARE(LeSlidesParaExibir(Path("f.sld")).Count(), count);
}

QTEST_GUILESS_MAIN(TestSlideDocument)
#include "test_slide_document.moc"
