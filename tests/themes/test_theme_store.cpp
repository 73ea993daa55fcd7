#include "support/files.h"
#include "support/scripted_random.h"
#include "themes/theme_store.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using tolmira::testing::ScriptedRandom;

class TestThemeStore : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_dir = std::make_unique<QTemporaryDir>();
    m_app = std::make_unique<AppFolder>(m_dir->path());
    m_temas = {};
    m_store = std::make_unique<ThemeStore>(*m_app, m_temas);
    for (const char *folder : {"Data/mini", "Images"})
      QVERIFY(QDir(m_dir->path()).mkpath(QLatin1String(folder)));
  }

  void withoutAFileAllThemesAreThePlainOne_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("absent") << QByteArray();
    QTest::newRow("no sections") << QByteArray("Tipo=Imagem\r\nFont_Name=x\r\n");
    QTest::newRow("binary") << QByteArray("\x00\xFF[Tema-1\x00]]\r\n=\r\n[[\r\n\xFE\xFE", 22);
    QTest::newRow("empty values") << QByteArray("[Tema-1]\r\nTipo=\r\nFont_Cor=\r\nMaiusculas=\r\nbrightness=\r\n");
    QTest::newRow("values without sense")
        << QByteArray("[Tema-1]\r\nTipo=Holograma\r\nbrightness=x\r\nblur=--\r\nCordeFundo=red\r\ncontrast=.\r\n");
  }
  void withoutAFileAllThemesAreThePlainOne() {
    QFETCH(QByteArray, ini);
    if (!ini.isNull())
      Write("Data/Themes.ini", ini);
    m_store->LoadTemas(0);
    for (const int n : {1, 16}) {
      const TemaRecord &tema = Tema(n);
      QCOMPARE(tema.Tipo, QStringLiteral("CorDeFundo"));
      QCOMPARE(tema.CordeFundo, 0);
      QCOMPARE(tema.Font_Name, QStringLiteral("Myriad Pro"));
      QCOMPARE(tema.Font_Cor, QStringLiteral("16777215"));
      QCOMPARE(tema.Efeito_Imagem_timeout, QStringLiteral("-1"));
      QCOMPARE(tema.Efeito_Texto_FxOut, QStringLiteral("None"));
      QVERIFY(tema.Font_Bold && tema.Maiusculas && tema.FontSombra_Enabled && tema.FontBorda_Enabled);
      QCOMPARE(QList<int>({tema.brightness, tema.contrast, tema.saturate, tema.blur}), QList<int>({100, 100, 100, 0}));
    }
  }

  void everyKeyReachesItsField() {
    Write("Data/Themes.ini",
          "[Tema-3]\r\nTipo=CorDeFundo\r\nMaiusculas=0\r\nMoveImagens=1\r\nEfeito_Imagem_delay=a\r\n"
          "Efeito_Imagem_easing=b\r\nEfeito_Imagem-Fx=c\r\nEfeito_Imagem-FxExtra=d\r\n"
          "Efeito_Imagem-FxOut=never read\r\nEfeito_Imagem_speed=e\r\nEfeito_Imagem_sync=f\r\n"
          "Efeito_Texto_delay=g\r\nEfeito_Texto_easing=h\r\nEfeito_Texto-Fx=i\r\n"
          "Efeito_Texto-FxExtra=j\r\nEfeito_Texto-FxOut=k\r\nEfeito_Texto_speed=l\r\n"
          "Efeito_Texto_sync=m\r\nEfeito_Texto_timeout=n\r\nFont_Name=o\r\nFont_Bold=0\r\n"
          "Font_Cor=255x\r\nFontSombra_Enabled=0\r\nFontSombra_Right=-1.5\r\nFontSombra_Down=p\r\n"
          "FontSombra_Blur=3px\r\nFontSombra_Opacity=q\r\nFontSombra_Cor=7\r\nFontBorda_Enabled=yes\r\n"
          "FontBorda_Cor=8\r\nFontBorda_Espessura=1e999\r\nbrightness=90\r\ncontrast=99999\r\n"
          "saturate=-5\r\nblur=2.5\r\nCordeFundo=65280\r\n");
    m_store->LoadTemas(0);
    const TemaRecord &t = Tema(3);
    QVERIFY(!t.Maiusculas && t.MoveImagens && !t.Font_Bold && !t.FontSombra_Enabled && !t.FontBorda_Enabled);
    QCOMPARE(QStringList({t.Efeito_Imagem_delay, t.Efeito_Imagem_easing, t.Efeito_Imagem_Fx, t.Efeito_Imagem_FxExtra,
                          t.Efeito_Imagem_speed, t.Efeito_Imagem_sync, t.Efeito_Texto_delay, t.Efeito_Texto_easing,
                          t.Efeito_Texto_Fx, t.Efeito_Texto_FxExtra, t.Efeito_Texto_FxOut, t.Efeito_Texto_speed,
                          t.Efeito_Texto_sync, t.Efeito_Texto_timeout, t.Font_Name, t.FontSombra_Opacity})
                 .join(u','),
             QStringLiteral("a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,q"));
    QCOMPARE(t.Efeito_Imagem_FxOut, QString());
    QCOMPARE(QStringList({t.Font_Cor, t.FontSombra_Right, t.FontSombra_Down, t.FontSombra_Blur, t.FontSombra_Cor,
                          t.FontBorda_Cor, t.FontBorda_Espessura})
                 .join(u','),
             QStringLiteral("255,-1.5,0,3,7,8,0"));
    QCOMPARE(QList<int>({t.brightness, t.contrast, t.saturate, t.blur}), QList<int>({90, 32767, -5, 2}));
    QCOMPARE(t.CordeFundo, 65280);
    QCOMPARE(Tema(2).Font_Name, QStringLiteral("Myriad Pro"));
  }

  void missingPicturesAreLeftOut_data() {
    QTest::addColumn<QByteArray>("img");
    QTest::addColumn<QStringList>("kept");
    QTest::newRow("all there") << QByteArray("a.png|b.png|")
                               << QStringList{QStringLiteral("a.png"), QStringLiteral("b.png")};
    QTest::newRow("first gone") << QByteArray("x.png|b.png|") << QStringList{QStringLiteral("b.png")};
    QTest::newRow("another case") << QByteArray("A.PNG|") << QStringList{QStringLiteral("A.PNG")};
    QTest::newRow("no trailing mark") << QByteArray("a.png|b.png")
                                      << QStringList{QStringLiteral("a.png"), QStringLiteral("b.png")};
    QTest::newRow("empty piece ends") << QByteArray("a.png||b.png|") << QStringList{QStringLiteral("a.png")};
    QTest::newRow("none there") << QByteArray("x.png|y.png|") << QStringList{};
    QTest::newRow("empty") << QByteArray("") << QStringList{};
    QTest::newRow("only a mark") << QByteArray("|a.png|") << QStringList{};
  }
  void missingPicturesAreLeftOut() {
    QFETCH(QByteArray, img);
    QFETCH(QStringList, kept);
    Write("Images/a.png", "x");
    Write("Images/b.png", "x");
    Write("Data/Themes.ini", "[Tema-1]\r\nTipo=Imagem\r\nimg=" + img + "\r\n");
    m_store->LoadTemas(1);
    QString expected;
    for (const QString &name : kept)
      expected += m_app->At(u"\\Images\\") + name + u'|';
    QCOMPARE(Tema(1).Imagem, expected);
    QCOMPARE(Tema(1).Tipo, kept.isEmpty() ? QStringLiteral("CorDeFundo") : QStringLiteral("Imagem"));
    QCOMPARE(Tema(1).Efeito_Imagem_timeout, kept.isEmpty() ? QStringLiteral("-1") : QStringLiteral("1"));
    QCOMPARE(ContaImagens(Tema(1).Imagem), static_cast<int>(kept.size()));
  }

  void aVideoThatIsGoneIsAPlainColour() {
    Write("Data/Themes.ini", "[Tema-1]\r\nTipo=Video\r\nvid=(APP)\\Images\\v.mp4|\r\nEfeito_Imagem_timeout=3\r\n");
    m_store->LoadTemas(1);
    QCOMPARE(Tema(1).Tipo, QStringLiteral("CorDeFundo"));
    QCOMPARE(Tema(1).Video, QString());

    Write("Images/v.mp4", "x");
    m_store->LoadTemas(1);
    QCOMPARE(Tema(1).Tipo, QStringLiteral("Video"));
    QCOMPARE(Tema(1).Video, m_app->At(u"\\Images\\v.mp4|"));
    QCOMPARE(Tema(1).Efeito_Imagem_timeout, QStringLiteral("-1"));
    QVERIFY(Tile(1, QSize(80, 45)).emblemaVideo);
  }

  void whatTheFileDoesNotKeepOutlivesALoad() {
    m_temas[1].Efeito_Imagem_FxOut = QStringLiteral("Fade");
    m_temas[1].Font_Name = QStringLiteral("changed");
    m_store->LoadTemas(1);
    QCOMPARE(Tema(1).Efeito_Imagem_FxOut, QStringLiteral("Fade"));
    QCOMPARE(Tema(1).Font_Name, QStringLiteral("Myriad Pro"));
  }

  void numbersOutsideTheTableDoNothing() {
    for (const int n : {-1, 17, 1000}) {
      m_store->LoadTemas(n);
      QCOMPARE(Tile(n, QSize(10, 10)).miniatura, QString());
      m_store->excluiMiniInvalidos(n);
    }
  }

  void thumbnailKey() {
    TemaRecord tema;
    QCOMPARE(ThemeStore::ChaveMiniatura(tema), QStringLiteral("0_MyriadPro_CorDeFundo_1_1"));
    tema.Tipo = QStringLiteral("Imagem");
    tema.Imagem = QStringLiteral("/x\\Images\\abc.jpg|/x\\Images\\longer.jpg|");
    tema.FontBorda_Enabled = false;
    QCOMPARE(ThemeStore::ChaveMiniatura(tema), QStringLiteral("7_MyriadPro_Imagem_1_0"));
    tema.Tipo = QStringLiteral("Video");
    tema.Video = QStringLiteral("/x\\Videos\\ab.mp4|");
    QCOMPARE(ThemeStore::ChaveMiniatura(tema), QStringLiteral("6_MyriadPro_Video_1_0"));
  }

  void aPictureThemeGetsItsThumbnail_data() {
    QTest::addColumn<QSize>("picture");
    QTest::newRow("wide") << QSize(1600, 200);
    QTest::newRow("high") << QSize(200, 1600);
    QTest::newRow("small") << QSize(3, 2);
    QTest::newRow("hair") << QSize(4000, 1);
  }
  void aPictureThemeGetsItsThumbnail() {
    QFETCH(QSize, picture);
    QImage red(picture, QImage::Format_RGB32);
    red.fill(Qt::red);
    QVERIFY(red.save(m_dir->filePath(QStringLiteral("Images/a.png"))));
    Write("Images/b.png", "x");
    Write("Data/Themes.ini", "[Tema-2]\r\nTipo=Imagem\r\nimg=a.png|b.png|\r\n");
    m_store->LoadTemas(0);
    const TemaTile tile = Tile(2, QSize(96, 54));
    QCOMPARE(tile.contagem, QStringLiteral("2 Imagens"));
    QCOMPARE(tile.miniatura, m_app->At(u"\\Data\\mini\\tema2-5_MyriadPro_Imagem_1_1.jpg"));
    const QImage made(m_dir->filePath(QStringLiteral("Data/mini/tema2-5_MyriadPro_Imagem_1_1.jpg")), "jpg");
    QCOMPARE(made.size(), QSize(96, 54));
    for (const QPoint corner : {QPoint(0, 0), QPoint(95, 53)})
      QVERIFY(made.pixelColor(corner).red() > 245 && made.pixelColor(corner).blue() < 10);
  }

  void aThumbnailThatIsThereIsNotMadeAgain() {
    Write("Images/a.png", "no picture at all");
    Write("Data/Themes.ini", "[Tema-1]\r\nTipo=Imagem\r\nimg=a.png|\r\n");
    m_store->LoadTemas(0);
    TemaTile tile = Tile(1, QSize(96, 54));
    QCOMPARE(tile.miniatura, QString());
    QCOMPARE(tile.contagem, QString());
    QVERIFY(Mini().isEmpty());

    Write("Data/mini/tema1-5_MyriadPro_Imagem_1_1.jpg", "old");
    tile = Tile(1, QSize(96, 54));
    QCOMPARE(tile.miniatura, m_store->CaminhoMiniatura(1));
    QCOMPARE(Read("Data/mini/tema1-5_MyriadPro_Imagem_1_1.jpg"), QByteArray("old"));
  }

  void withoutItsFolderAThumbnailIsJustMissing() {
    QVERIFY(QDir(m_dir->path()).rmdir(QStringLiteral("Data/mini")));
    QVERIFY(QImage(10, 10, QImage::Format_RGB32).save(m_dir->filePath(QStringLiteral("Images/a.png"))));
    Write("Data/Themes.ini", "[Tema-1]\r\nTipo=Imagem\r\nimg=a.png|\r\n");
    m_store->LoadTemas(0);
    QCOMPARE(Tile(1, QSize(96, 54)).miniatura, QString());
    QVERIFY(!QDir(m_dir->path()).exists(QStringLiteral("Data/mini")));
  }

  void transparentPicturesLieOnBlack() {
    QImage clear(20, 20, QImage::Format_ARGB32);
    clear.fill(QColor(255, 255, 255, 0));
    QVERIFY(clear.save(m_dir->filePath(QStringLiteral("Images/a.png"))));
    Write("Data/Themes.ini", "[Tema-1]\r\nTipo=Imagem\r\nimg=a.png|\r\n");
    m_store->LoadTemas(1);
    QVERIFY(!Tile(1, QSize(16, 9)).miniatura.isEmpty());
    QCOMPARE(QImage(m_dir->filePath(QStringLiteral("Data/mini/") + Mini().first())).pixelColor(8, 4),
             QColor(Qt::black));
  }

  void outdatedThumbnailsGo() {
    for (const char *name : {"tema1-0_MYRIADPRO_CorDeFundo_1_1.jpg", "tema1-5_Arial_Imagem_1_1.jpg",
                             "TEMA1-9_Arial_Imagem_1_1.JPG", "tema11-0_Old_CorDeFundo_1_1.jpg", "tema1-note.png"})
      Write(QByteArray("Data/mini/").append(name).constData(), "x");
    m_store->LoadTemas(1);
    QCOMPARE(Mini(),
             QStringList({QStringLiteral("tema1-0_MYRIADPRO_CorDeFundo_1_1.jpg"), QStringLiteral("tema1-note.png"),
                          QStringLiteral("tema11-0_Old_CorDeFundo_1_1.jpg")}));
  }

  void aPlainColourTileHasItsColour() {
    Write("Data/Themes.ini", "[Tema-1]\r\nCordeFundo=255\r\n");
    m_store->LoadTemas(1);
    const TemaTile tile = Tile(1, QSize(96, 54));
    QCOMPARE(tile.corDeFundo, 255);
    QVERIFY(tile.miniatura.isEmpty() && tile.contagem.isEmpty() && !tile.emblemaVideo);
  }

  void intervals() {
    QList<int> found;
    for (const char16_t *code : {u"1", u"2", u"3", u"4", u"5", u"0", u"6", u"-1", u"", u"x"})
      found << IntervaloDoCodigo(QString::fromUtf16(code));
    QCOMPARE(found, QList<int>({10000, 15000, 20000, 30000, 60000, 0, 0, 0, 0, 0}));
  }

  void pictureCount() {
    QCOMPARE(ContaImagens(QString()), 0);
    QCOMPARE(ContaImagens(QStringLiteral("a|")), 1);
    QCOMPARE(ContaImagens(QStringLiteral("a|b|")), 2);
  }

  void draw_data() {
    QTest::addColumn<int>("queued");
    QTest::addColumn<QList<int>>("tickedSlots");
    QTest::addColumn<double>("first");
    QTest::addColumn<int>("slot");
    QTest::newRow("first slot") << SemTemaNaFila << QList<int>{1, 2, 16} << 0.0 << 1;
    QTest::newRow("never the last") << SemTemaNaFila << QList<int>{1, 15, 16} << 0.9999 << 15;
    QTest::newRow("a draw beyond its range") << SemTemaNaFila << QList<int>{16} << 1.5 << 16;
    QTest::newRow("unticked slots are passed over") << SemTemaNaFila << QList<int>{8} << 0.0 << 8;
    QTest::newRow("only the last one is ticked") << SemTemaNaFila << QList<int>{16} << 0.0 << 1;
    QTest::newRow("none is ticked") << SemTemaNaFila << QList<int>{} << 0.0 << 1;
    QTest::newRow("queued") << 16 << QList<int>{2, 16} << 0.0 << 16;
    QTest::newRow("queued but unticked") << 4 << QList<int>{2} << 0.0 << 1;
    QTest::newRow("the other value for none") << 65535 << QList<int>{2} << 0.1 << 2;
  }
  void draw() {
    QFETCH(int, queued);
    QFETCH(QList<int>, tickedSlots);
    QFETCH(double, first);
    QFETCH(int, slot);
    std::array<bool, NumeroDeTemas + 1> ticked{};
    for (const int i : tickedSlots)
      ticked[static_cast<std::size_t>(i)] = true;
    ScriptedRandom random{first, 0.5};
    QCOMPARE(SorteiaTema(queued, ticked, random), slot);
    QVERIFY(ticked[static_cast<std::size_t>(slot)]);
    QVERIFY(random.Count() <= 300);
  }

private:
  // With the thumbnail that it lacks.
  TemaTile Tile(int n, const QSize &px) const {
    TemaTile tile = m_store->CarregaTile(n);
    FazMiniatura(tile, px);
    return tile;
  }

  const TemaRecord &Tema(int n) const { return m_temas[static_cast<std::size_t>(n)]; }
  QStringList Mini() const {
    return QDir(m_dir->filePath(QStringLiteral("Data/mini"))).entryList(QDir::Files, QDir::Name);
  }
  void Write(const char *relative, const QByteArray &bytes) const {
    testing::WriteBytes(m_dir->filePath(QLatin1String(relative)), bytes);
  }
  QByteArray Read(const char *relative) const { return testing::ReadBytes(m_dir->filePath(QLatin1String(relative))); }

  std::unique_ptr<QTemporaryDir> m_dir;
  std::unique_ptr<AppFolder> m_app;
  TabelaTemas m_temas;
  std::unique_ptr<ThemeStore> m_store;
};

QTEST_GUILESS_MAIN(TestThemeStore)
#include "test_theme_store.moc"
