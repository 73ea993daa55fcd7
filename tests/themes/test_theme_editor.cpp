#include "support/counting_yielder.h"
#include "support/files.h"
#include "support/full_disk.h"
#include "support/scripted_prompt.h"
#include "themes/theme_editor.h"
#include "themes/theme_store.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The theme editor's logic: what is written, what is refused, and what becomes of pictures.
class TestThemeEditor : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() {
      for (const char *folder : {"Data/mini", "Images/Mini", "other"})
        QDir(dir.path()).mkpath(QLatin1String(folder));
      loja.LoadTemas(0);
    }
    QString File(const QString &name) const { return dir.filePath(name); }
    QString Picture(const QString &name, Qt::GlobalColor colour = Qt::red) const {
      QImage image(16, 9, QImage::Format_RGB32);
      image.fill(colour);
      image.save(File(name), "png");
      return File(name);
    }
    QByteArray Ini() const { return ReadBytes(File(QStringLiteral("Data/Themes.ini"))); }
    QString Value(const QString &key, int n = 1) const {
      return IniSnapshot(app.At(u"\\Data\\Themes.ini"))
          .Read(QStringLiteral("Tema-%1").arg(n), key, QStringLiteral("<none>"));
    }
    bool Save() {
      return editor.SalvarDados([] {
        QImage image(640, 480, QImage::Format_RGB32);
        image.fill(Qt::green);
        return image;
      });
    }

    QTemporaryDir dir;
    AppFolder app{dir.path()};
    IniStore store{app};
    TabelaTemas temas;
    ThemeStore loja{app, temas};
    ScriptedPrompt prompt;
    CountingYielder yielder;
    ThemeEditor editor{{store, loja, temas, prompt, yielder, QSize(96, 54)}};
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void allKeysInTheirOrder() {
    Room room;
    WriteBytes(room.File(QStringLiteral("Data/Themes.ini")), "; mine\r\n[Tema-2]\r\nFont_Bold=0\r\nother=1\r\n");
    room.loja.LoadTemas(0);
    room.editor.SetIndex(3);
    QCOMPARE(room.editor.Titulo(), QStringLiteral("THEME 3 - Settings"));
    QVERIFY(room.editor.AdicionarAoTema(room.Picture(QStringLiteral("other/a.png"))));
    QVERIFY(room.editor.AdicionarAoTema(room.Picture(QStringLiteral("other/b.png"))));
    room.editor.DefinePicIntervalo(2);
    room.editor.tema.Efeito_Imagem_FxOut = QStringLiteral("Fade");
    room.editor.tema.Font_Bold = false;
    QVERIFY(room.editor.Alterado());
    QVERIFY(room.Save());
    QCOMPARE(room.Ini(),
             QByteArray("; mine\r\n[Tema-2]\r\nFont_Bold=0\r\nother=1\r\n[Tema-3]\r\n"
                        "img=a.png|b.png|\r\nvid=\r\nIntervalo=2\r\nFont_Name=Myriad Pro\r\nFont_Cor=16777215\r\n"
                        "MoveImagens=0\r\nFontSombra_Enabled=1\r\nFontSombra_Cor=0\r\nFontSombra_Blur=8\r\n"
                        "FontSombra_Down=4\r\nFontSombra_Right=4\r\nFontSombra_Opacity=10\r\nFontBorda_Enabled=1\r\n"
                        "FontBorda_Cor=1513494\r\nFontBorda_Espessura=2\r\nbrightness=100\r\ncontrast=100\r\nblur=0\r\n"
                        "saturate=100\r\nTipo=Imagem\r\nCordeFundo=0\r\nMaiusculas=1\r\nEfeito_Imagem_delay=0\r\n"
                        "Efeito_Imagem-Fx=Fade\r\nEfeito_Imagem-FxExtra=Random\r\nEfeito_Imagem-FxOut=Fade\r\n"
                        "Efeito_Imagem_speed=1000\r\nEfeito_Imagem_sync=1\r\nEfeito_Imagem_timeout=2\r\n"
                        "Efeito_Texto_delay=0\r\nEfeito_Texto-Fx=Fade\r\nEfeito_Texto-FxExtra=Random\r\n"
                        "Efeito_Texto-FxOut=None\r\nEfeito_Texto_speed=1000\r\nEfeito_Texto_sync=1\r\n"
                        "Efeito_Texto_timeout=1\r\n"));
    QVERIFY(!room.editor.Alterado());
    QCOMPARE(room.yielder.calls, std::vector<int>{10});
    // What is never written is bold again, what is never read is kept by the table alone.
    QVERIFY(room.temas[3].Font_Bold);
    QCOMPARE(room.temas[3].Efeito_Imagem_FxOut, QStringLiteral("Fade"));
    const QImage mini(room.File(QStringLiteral("Data/mini/tema3-5_MyriadPro_Imagem_1_1.jpg")), "jpg");
    QCOMPARE(mini.size(), QSize(96, 54));
    QVERIFY(mini.pixelColor(48, 27).green() > 245);
  }

  void kinds_data() {
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<int>("pictures");
    QTest::addColumn<QString>("img");
    QTest::addColumn<QString>("vid");
    QTest::addColumn<QString>("timeout");
    QTest::addColumn<QString>("move");
    const QString none = QStringLiteral("<none>");
    QTest::newRow("colour keeps both") << TipoCorDeFundo << 2 << "old.png|" << "(APP)/other/old.mp4" << "-1" << "0";
    QTest::newRow("one picture") << TipoImagem << 1 << "p1.png|" << none << "-1" << "1";
    QTest::newRow("pictures") << TipoImagem << 2 << "p1.png|p2.png|" << none << "3" << "1";
    QTest::newRow("video") << TipoVideo << 2 << none << "(APP)/other/v.mp4" << "-1" << "0";
  }
  void kinds() {
    QFETCH(QString, tipo);
    QFETCH(int, pictures);
    Room room;
    WriteBytes(room.File(QStringLiteral("Data/Themes.ini")), "[Tema-1]\r\nimg=old.png|\r\nvid=(APP)/other/old.mp4\r\n");
    WriteBytes(room.File(QStringLiteral("other/v.mp4")), "x");
    room.loja.LoadTemas(0);
    room.editor.SetIndex(1);
    for (int i = 1; i <= pictures; ++i)
      room.editor.AdicionarAoTema(room.Picture(QStringLiteral("other/p%1.png").arg(i)));
    room.editor.tema.MoveImagens = true;
    room.editor.DefinePicIntervalo(3);
    room.editor.DefineTextVideo(room.File(QStringLiteral("other/v.mp4")));
    QVERIFY(room.editor.CheckTipo(tipo));
    QVERIFY(room.Save());
    QTEST(room.Value(QStringLiteral("img")), "img");
    QTEST(room.Value(QStringLiteral("vid")), "vid");
    QTEST(room.Value(QStringLiteral("Intervalo")), "timeout");
    QTEST(room.Value(QStringLiteral("Efeito_Imagem_timeout")), "timeout");
    QTEST(room.Value(QStringLiteral("MoveImagens")), "move");
    QCOMPARE(room.temas[1].Tipo, tipo);
  }

  void aRefusalChangesNothing_data() {
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QString>("video");
    QTest::addColumn<QString>("message");
    const QString semVideo = QStringLiteral("Selecione um arquivo de vídeo, ou troque para Imagem ou Cor de Fundo");
    QTest::newRow("no video") << TipoVideo << QString() << semVideo;
    QTest::newRow("video gone") << TipoVideo << QStringLiteral("/nowhere/v.mp4") << semVideo;
    QTest::newRow("no pictures") << TipoImagem << QString()
                                 << QStringLiteral("Selecione um arquivo de fundo, ou troque para Vídeo ou Cor de Fundo");
  }
  void aRefusalChangesNothing() {
    QFETCH(QString, tipo);
    QFETCH(QString, video);
    Room room;
    const QByteArray before("[Tema-1]\r\nFont_Cor=5\r\n");
    WriteBytes(room.File(QStringLiteral("Data/Themes.ini")), before);
    room.loja.LoadTemas(0);
    room.editor.SetIndex(1);
    room.editor.AdicionarAoTema(room.Picture(QStringLiteral("other/a.png")));
    QFile::remove(room.File(QStringLiteral("Images/a.png"))); // it went while the editor stood open
    room.editor.tema.Font_Cor = QStringLiteral("7");
    room.editor.CheckTipo(tipo);
    room.editor.DefineTextVideo(video);
    QVERIFY(!room.Save());
    QCOMPARE(room.prompt.shown.size(), 1);
    QTEST(room.prompt.shown[0].text, "message");
    QCOMPARE(room.Ini(), before);
    QCOMPARE(room.temas[1].Font_Cor, QStringLiteral("5"));
    QVERIFY(room.editor.Alterado());
  }

  void aFullDiskLosesNothing() {
    Room room;
    const QByteArray before("[Tema-9]\r\nFont_Cor=5\r\n");
    WriteBytes(room.File(QStringLiteral("Data/Themes.ini")), before);
    room.loja.LoadTemas(0);
    room.editor.SetIndex(1);
    room.editor.tema.Font_Cor = QStringLiteral("7");
    {
      const FullDisk full(100);
      QVERIFY(!room.Save());
    }
    QCOMPARE(room.prompt.shown.size(), 1);
    QCOMPARE(room.Ini(), before);
    QCOMPARE(room.temas[1].Font_Cor, QStringLiteral("16777215"));
    QVERIFY(room.Save());
    QCOMPARE(room.Value(QStringLiteral("Font_Cor")), QStringLiteral("7"));
    QCOMPARE(room.Value(QStringLiteral("Font_Cor"), 9), QStringLiteral("5"));
  }

  void picturesGetTheirNames() {
    Room room;
    room.editor.SetIndex(4);
    room.Picture(QStringLiteral("Images/inside.png"));
    QDir(room.dir.path()).mkpath(QStringLiteral("second"));
    QVERIFY(!room.editor.AdicionarAoTema(room.File(QStringLiteral("other/none.png"))));
    QVERIFY(room.prompt.shown.isEmpty());
    QVERIFY(room.editor.AdicionarAoTema(room.app.At(u"\\Images\\inside.png")));
    QVERIFY(room.editor.AdicionarAoTema(room.Picture(QStringLiteral("other/same.png"), Qt::red)));
    QVERIFY(room.editor.AdicionarAoTema(room.Picture(QStringLiteral("second/same.png"), Qt::blue)));
    WriteBytes(room.File(QStringLiteral("other/text.jpg")), "no picture");
    QVERIFY(!room.editor.AdicionarAoTema(room.File(QStringLiteral("other/text.jpg"))));
    QCOMPARE(room.prompt.shown.size(), 1);
    QCOMPARE(QDir(room.File(QStringLiteral("Images"))).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("4-same.png"), QStringLiteral("inside.png"), QStringLiteral("same.png")}));
    QVERIFY(QFile::exists(room.File(QStringLiteral("Images/Mini/4-same.png"))));
    QCOMPARE(room.editor.Imagens().size(), 3);

    room.editor.MoveImagem(3, 1);
    room.editor.RemoveImagem(2);
    QVERIFY(room.Save());
    QCOMPARE(room.Value(QStringLiteral("img"), 4), QStringLiteral("4-same.png|same.png|"));
    QCOMPARE(room.editor.ProximaImagem(), 2);
    QCOMPARE(room.editor.ProximaImagem(), 1);
  }

  void aListThatASettingCannotHoldIsNotBegun() {
    Room room;
    room.editor.SetIndex(1);
    room.Picture(QStringLiteral("Images/") + QString(200, u'x') + QStringLiteral(".png"));
    int added = 0;
    while (added < 9 && room.editor.AdicionarAoTema(room.app.At(u"\\Images\\") + QString(200, u'x') + QStringLiteral(".png")))
      ++added;
    QCOMPARE(added, 4); // 1023 characters are what a reader gets
    QCOMPARE(room.prompt.shown.size(), 1);
  }

  void videosAreAskedForInTheirFolder() {
    Room room;
    room.editor.SetIndex(1);
    WriteBytes(room.File(QStringLiteral("other/v.mp4")), "x");
    room.prompt.files = {room.File(QStringLiteral("other/gone.mp4")), room.File(QStringLiteral("other/v.mp4")), QString()};
    QVERIFY(!room.editor.CommandVideo());
    QCOMPARE(room.prompt.shown.at(0).text, QStringLiteral("Arquivo de vídeo não encontrado"));
    QVERIFY(room.editor.CommandVideo());
    QCOMPARE(room.editor.tema.Tipo, TipoVideo);
    QVERIFY(!room.editor.CommandVideo());
    QCOMPARE(room.prompt.fileQuestions.at(0).folder, room.File(QStringLiteral("Videos")));
    QCOMPARE(room.prompt.fileQuestions.at(2).folder, room.File(QStringLiteral("other")));
    QCOMPARE(room.editor.TextVideo(), room.File(QStringLiteral("other/v.mp4")));
  }

  void sampleText() {
    Room room;
    room.editor.SetIndex(1);
    QCOMPARE(room.editor.GetTextoTema(), QStringLiteral("VAELIS"));
    room.editor.tema.Maiusculas = false;
    QCOMPARE(room.editor.GetTextoTema(), QStringLiteral("Vaelis"));
    room.editor.textoDoOperador = QStringLiteral("Deus é Fiel");
    QCOMPARE(room.editor.GetTextoTema(), QStringLiteral("Deus é Fiel"));
  }
};

QTEST_GUILESS_MAIN(TestThemeEditor)
#include "test_theme_editor.moc"
