#include "gallery_room.h"
#include "support/full_disk.h"
#include "themes/picture_adder.h"
#include "themes/picture_folder.h"
#include "themes/small_copy.h"
#include "themes/small_copy_loader.h"

#include <QImageReader>
#include <QSignalSpy>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

using Bytes = std::function<QByteArray()>;

const QString Own = QStringLiteral("Choose file from another folder\n"
                                   "You selected a file already included in the program.");
const QString Taken = QStringLiteral("A file with this name already exists in the Tolmira images folder.\n"
                                     "Do you want to overwrite?");
const QString NotCopied = QStringLiteral("Could not copy the image to the images folder.");

QByteArray Webp() {
  return PictureBytes({40, 30}, "webp", QColor(255, 255, 255, 0));
}

} // namespace

class TestPictures : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void anEarlierInstallationsCopyKeepsItsProportions() {
    GalleryRoom room;
    QDir(room.app.path()).mkpath(QStringLiteral("Imagens/mini"));
    const QString path = room.Write(QStringLiteral("app/Imagens/a.jpg"), NoisyJpeg({400, 100}));
    room.Write(QStringLiteral("app/Imagens/mini/a.jpg"), NoisyJpeg({160, 120}));
    QCOMPARE(TrazMiniaturaDe(room.app, path).size, QSize(400, 100));
    QFile::remove(path);
    QCOMPARE(TrazMiniaturaDe(room.app, path).size, QSize(160, 120)); // better than nothing
  }

  void whatIsWrongWithAFile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<PictureProblem>("problem");
    QTest::newRow("text") << QByteArray("Dear all,") << PictureProblem::NoPicture;
    QTest::newRow("empty") << QByteArray() << PictureProblem::NoPicture;
    QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'></svg>")
                             << PictureProblem::NoPicture;
    QTest::newRow("half a JPEG") << HalfOf(NoisyJpeg({200, 100})) << PictureProblem::CutOff;
    QTest::newRow("half a PNG") << HalfOf(PictureBytes({300, 200}, "png")) << PictureProblem::CutOff;
    QTest::newRow("half a BMP") << HalfOf(PictureBytes({30, 20}, "bmp")) << PictureProblem::CutOff;
    QTest::newRow("half a WebP") << HalfOf(Webp()) << PictureProblem::CutOff;
    QTest::newRow("half an animation") << Gif().chopped(2) << PictureProblem::CutOff;
    QTest::newRow("BMP") << PictureBytes({30, 20}, "bmp") << PictureProblem::None;
    QTest::newRow("animation") << Gif() << PictureProblem::None;
    QTest::newRow("hostile PNG") << PngThatClaims({30000, 30000}) << PictureProblem::TooLarge;
    QTest::newRow("PNG in a JPEG's clothes") << PictureBytes({30, 20}, "png") << PictureProblem::None;
    QTest::newRow("behind the end") << NoisyJpeg({20, 10}) + QByteArray(5000, 'x') << PictureProblem::None;
    QTest::newRow("CMYK") << CmykJpeg() << PictureProblem::None;
  }
  void whatIsWrongWithAFile() {
    GalleryRoom room;
    QFETCH(QByteArray, bytes);
    room.Write(QStringLiteral("app/Images/a.jpg"), bytes);
    const PictureImage copy = TrazMiniatura(room.app, QStringLiteral("a.jpg"));
    QTEST(copy.problem, "problem");
    const bool good = copy.problem == PictureProblem::None;
    QCOMPARE(copy.image.isNull(), !good);
    QCOMPARE(room.Mini(), good ? QStringList(QStringLiteral("a.jpg")) : QStringList());
    QCOMPARE(CriaMiniatura(room.app, QStringLiteral("a.jpg"), true), good);
    QCOMPARE(NomeEmImagens(room.Path(QStringLiteral("app/Images/a.jpg"))).nome.isEmpty(), !good);
  }

  void aSmallCopyIsAJpegOfItsSizeWithThePicturesDate() {
    GalleryRoom room;
    const QString nome = QStringLiteral("Torre d'água #1 50%.png");
    room.Write(u"app/Images/" + nome, PictureBytes({400, 100}, "png", QColor(255, 255, 255, 0)));
    const QDateTime old = QDateTime::currentDateTime().addYears(-3);
    room.SetDate(u"app/Images/" + nome, old);
    QVERIFY(CriaMiniatura(room.app, nome, false));
    QImageReader reader(room.Path(u"app/Images/Mini/" + nome));
    reader.setDecideFormatFromContent(true);
    QCOMPARE(reader.format(), QByteArray("jpeg"));
    const QImage small = reader.read();
    QCOMPARE(small.size(), QSize(160, 120));
    QCOMPARE(small.pixelColor(80, 60), QColor(Qt::black)); // what is transparent shows the screen
    QCOMPARE(QFileInfo(reader.fileName()).lastModified(), old);
    const PictureImage read = TrazMiniatura(room.app, nome);
    QCOMPARE(read.size, QSize(400, 100));
  }

  void aSmallCopyIsMadeAnewForANewerPicture_data() {
    QTest::addColumn<bool>("newer");
    QTest::newRow("newer") << true;
    QTest::newRow("older") << false;
  }
  void aSmallCopyIsMadeAnewForANewerPicture() {
    GalleryRoom room;
    QFETCH(bool, newer);
    const QString nome = QStringLiteral("a.png");
    room.Picture(nome);
    room.Write(QStringLiteral("app/Images/Mini/a.png"), PictureBytes({160, 120}, "jpg", Qt::blue));
    QVERIFY(CriaMiniatura(room.app, nome, false)); // as it is
    room.SetDate(QStringLiteral("app/Images/a.png"), QDateTime::currentDateTime().addDays(newer ? 1 : -1));
    const QColor colour = TrazMiniatura(room.app, nome).image.pixelColor(80, 60);
    QVERIFY(newer ? colour.red() > 200 : colour.blue() > 200);
  }

  void photographsHeldOnTheirSideStandUpright() {
    GalleryRoom room;
    room.Write(QStringLiteral("app/Images/a.jpg"), TurnedJpeg());
    const PictureImage copy = TrazMiniatura(room.app, QStringLiteral("a.jpg"));
    QCOMPARE(copy.size, QSize(8, 16));
    QVERIFY(copy.image.pixelColor(80, 20).red() > 200);
    QVERIFY(copy.image.pixelColor(80, 100).blue() > 200);
  }

  void withoutItsFolderASmallCopyIsStillShown() {
    GalleryRoom room;
    room.Picture(QStringLiteral("a.png"));
    QVERIFY(QDir(room.Path(QStringLiteral("app/Images"))).rmdir(QStringLiteral("Mini")));
    QVERIFY(!CriaMiniatura(room.app, QStringLiteral("a.png"), false));
    QCOMPARE(TrazMiniatura(room.app, QStringLiteral("a.png")).image.size(), SmallCopySize);
  }

  void scaling_data() {
    QTest::addColumn<QSize>("wish");
    QTest::addColumn<QSize>("size");
    QTest::newRow("both") << QSize(160, 120) << QSize(160, 120);
    QTest::newRow("width") << QSize(100, 0) << QSize(100, 25);
    QTest::newRow("height") << QSize(0, 50) << QSize(200, 50);
    QTest::newRow("none") << QSize(0, 0) << QSize(0, 0);
  }
  void scaling() {
    QFETCH(QSize, wish);
    QTEST(RedimensionaFoto(QImage(400, 100, QImage::Format_RGB32), wish.width(), wish.height()).size(), "size");
  }

  void theNewestComesFirst() {
    GalleryRoom room;
    const QDate day(2024, 3, 9);
    for (const char *name : {"nine.jpg", "TEN.PNG", "with copy.bmp", "notes.txt"})
      room.Write(u"app/Images/" + QLatin1String(name), "x");
    room.SetDate(QStringLiteral("app/Images/nine.jpg"), QDateTime(day, QTime(9, 5)));
    room.SetDate(QStringLiteral("app/Images/TEN.PNG"), QDateTime(day, QTime(10, 30)));
    room.SetDate(QStringLiteral("app/Images/with copy.bmp"), QDateTime(day, QTime(23, 0)));
    room.Write(QStringLiteral("app/Images/Mini/with copy.bmp"), "x");
    room.SetDate(QStringLiteral("app/Images/Mini/with copy.bmp"), QDateTime(day, QTime(8, 0)));
    const QStringList entries = room.gallery.ListaPorData(PadraoDaGaleria);
    QCOMPARE(entries,
             QStringList({QStringLiteral("2024-03-09-10-30 (-) TEN.PNG"), QStringLiteral("2024-03-09-9-5 (-) nine.jpg"),
                          QStringLiteral("2024-03-09-8-0 (-) with copy.bmp")}));
    QCOMPARE(NomeDaEntrada(entries.last()), QStringLiteral("with copy.bmp"));
    QCOMPARE(room.gallery.Lista(PadraoDaGaleria),
             QStringList({QStringLiteral("nine.jpg"), QStringLiteral("TEN.PNG"), QStringLiteral("with copy.bmp")}));
  }

  void adding_data() {
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<QStringList>("said");
    QTest::addColumn<QStringList>("arrived");
    const auto mine = [](const char *name) -> QString { return QStringLiteral("mine/") + QString::fromUtf8(name); };
    const QStringList none;
    QTest::newRow("new") << QStringList{mine("new.png")} << QList<int>{} << none
                         << QStringList{QStringLiteral("new.png")};
    QTest::newRow("own") << QStringList{QStringLiteral("app/Images/old.png"), mine("new.png")} << QList<int>{}
                         << QStringList{Own} << QStringList{QStringLiteral("new.png")};
    QTest::newRow("overwritten") << QStringList{mine("old.png")} << QList<int>{0} << QStringList{Taken}
                                 << QStringList{QStringLiteral("old.png")};
    QTest::newRow("overwritten in capitals") << QStringList{mine("OLD.PNG")} << QList<int>{0} << QStringList{Taken}
                                             << QStringList{QStringLiteral("old.png")};
    QTest::newRow("kept") << QStringList{mine("old.png"), mine("new.png")} << QList<int>{1} << QStringList{Taken}
                          << QStringList{QStringLiteral("new.png")};
    QTest::newRow("no answer") << QStringList{mine("old.png")} << QList<int>{} << QStringList{Taken} << none;
    QTest::newRow("converted") << QStringList{mine("a.webp")} << QList<int>{}
                               << QStringList{QStringLiteral(
                                      "Pictures of this kind are kept as JPEG in the program.\na.jpg")}
                               << QStringList{QStringLiteral("a.jpg")};
    QTest::newRow("other name of a JPEG")
        << QStringList{mine("b.JPEG")} << QList<int>{} << none << QStringList{QStringLiteral("b.jpg")};
    QTest::newRow("names") << QStringList{mine("ç d'água #1 100%.png"), mine("a|b.png")} << QList<int>{} << none
                           << QStringList{QString::fromUtf8("ç d'água #1 100%.png"), QStringLiteral("a_b.png")};
    QTest::newRow("no picture") << QStringList{mine("letter.jpg"), mine("missing.jpg"), mine("new.png")} << QList<int>{}
                                << QStringList{NotCopied + u"\nmissing.jpg",
                                               QStringLiteral("This file cannot be used as a picture.\nletter.jpg")}
                                << QStringList{QStringLiteral("new.png")};
  }
  void adding() {
    GalleryRoom room;
    room.Picture(QStringLiteral("old.png"));
    room.Write(QStringLiteral("app/Images/Mini/old.png"), "old copy");
    for (const char *name : {"new.png", "old.png", "OLD.PNG", "ç d'água #1 100%.png", "a|b.png"})
      room.Write(u"mine/" + QString::fromUtf8(name), PictureBytes({64, 48}, "png"));
    room.Write(QStringLiteral("mine/a.webp"), Webp());
    room.Write(QStringLiteral("mine/b.JPEG"), PictureBytes({64, 48}, "jpg"));
    room.Write(QStringLiteral("mine/letter.jpg"), "Dear all,");

    QFETCH(QStringList, files);
    QFETCH(QList<int>, answers);
    QFETCH(QStringList, arrived);
    room.prompt.answers = answers;
    for (QString &file : files)
      file = room.Path(file);
    QCOMPARE(Add(room, files), arrived);
    QTEST(room.Said(), "said");
    for (const QString &nome : arrived) {
      QVERIFY2(room.Images().contains(nome), qPrintable(nome));
      QCOMPARE(QImageReader(room.Path(u"app/Images/" + nome)).format(),
               nome.endsWith(u"jpg") ? QByteArray("jpeg") : QByteArray("png"));
      QCOMPARE(TrazMiniatura(room.app, nome).image.size(), SmallCopySize);
      QVERIFY(room.Read(u"app/Images/Mini/" + nome) != "old copy");
    }
    if (!arrived.contains(QStringLiteral("old.png")))
      QCOMPARE(room.Read(QStringLiteral("app/Images/old.png")), PictureBytes({16, 9}, "png"));
  }

  void aFullDiskLeavesNoHalfFile() {
    GalleryRoom room;
    const QString nome = QStringLiteral("old.jpg");
    const QByteArray before = NoisyJpeg({32, 32});
    room.Write(u"app/Images/" + nome, before);
    const QString from = room.Write(u"mine/" + nome, NoisyJpeg({200, 200}));
    const QString next = room.Write(QStringLiteral("mine/next.jpg"), NoisyJpeg({200, 200}));
    room.prompt.answers = {0};
    QStringList arrived{QStringLiteral("?")};
    {
      const FullDisk full(8000);
      arrived = Add(room, {from, next});
    }
    QCOMPARE(arrived, QStringList());
    QCOMPARE(room.Said(), QStringList({Taken, NotCopied + u"\nold.jpg\nnext.jpg"}));
    QCOMPARE(room.Read(u"app/Images/" + nome), before);
    QCOMPARE(room.Images(), QStringList(nome));
  }

  void bringingAPictureIn_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("theme");  // 0: for the default background
    QTest::addColumn<bool>("taken"); // another picture has that name
    QTest::addColumn<QString>("kept");
    const QString hall = QStringLiteral("Hall.png");
    QTest::newRow("free") << hall << 0 << false << hall;
    QTest::newRow("taken") << hall << 0 << true << QStringLiteral("Hall (2).png");
    QTest::newRow("a mark of lists") << QStringLiteral("a|b\\c.png") << 0 << false << QStringLiteral("a_b_c.png");
    QTest::newRow("blanks") << QStringLiteral(" Hall.png ") << 0 << false << hall;
    QTest::newRow("theme") << hall << 7 << false << hall;
    QTest::newRow("theme, taken") << hall << 7 << true << QStringLiteral("7-Hall.png");
  }
  void bringingAPictureIn() {
    GalleryRoom room;
    QFETCH(QString, name);
    QFETCH(int, theme);
    QFETCH(QString, kept);
    QFETCH(bool, taken);
    const auto bring = [&](const QString &path) {
      return theme > 0 ? TrazParaTema(room.app, path, theme) : TrazParaImagens(room.app, path);
    };
    const QString from = room.Write(u"mine/" + name, PictureBytes({8, 8}, "png"));
    if (taken)
      room.Write(u"app/Images/" + name.toLower(), "another picture"); // case does not count
    for (int i = 0; i < 2; ++i) {                                     // the second time it lies there already
      QCOMPARE(bring(from), kept);
      QCOMPARE(room.Read(u"app/Images/" + kept), room.Read(u"mine/" + name));
    }
    if (taken)
      QCOMPARE(room.Read(u"app/Images/" + name.toLower()), QByteArray("another picture"));
    QCOMPARE(bring(room.Path(u"app/Images/" + kept)), kept);
    const QString disguised = QStringLiteral("animation.png"); // a page shows it all the same
    QCOMPARE(bring(room.Write(u"app/Images/" + disguised, Gif())), disguised);
    QFile::remove(room.Path(u"app/Images/" + disguised));
    QCOMPARE(room.Images().size(), taken ? 2 : 1);
    QCOMPARE(bring(room.Write(QStringLiteral("mine/letter.png"), "no picture")), QString());
  }

  void deleting_data() {
    QTest::addColumn<QString>("use");
    QTest::newRow("free") << QString();
    QTest::newRow("used") << QStringLiteral("This picture is used by the themes 3, 12 and by the default background.");
  }
  void deleting() {
    GalleryRoom room;
    QFETCH(QString, use);
    const QString nome = QStringLiteral("Cross.png");
    room.Picture(nome);
    QVERIFY(CriaMiniatura(room.app, nome, false));
    if (!use.isEmpty()) {
      room.Write(QStringLiteral("app/Data/Themes.ini"),
                 "[Tema-3]\r\nimg=a.png|cross.PNG|\r\n[Tema-4]\r\nimg=a.png|\r\n[Tema-12]\r\nimg=Cross.png|\r\n");
      room.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("padraodefundo"), nome);
      room.prompt.answers = {1, 0};
      QVERIFY(!room.gallery.Exclui(nome, room.prompt));
      QCOMPARE(room.Said(), QStringList(use + QStringLiteral("\nDo you want to delete it all the same?")));
      QCOMPARE(room.Mini().size(), 1);
    }
    QVERIFY(room.gallery.Exclui(nome, room.prompt));
    QCOMPARE(room.Said().isEmpty(), use.isEmpty());
    QVERIFY(room.Images().isEmpty() && room.Mini().isEmpty());
    QCOMPARE(QDir(room.Path(QStringLiteral("home/Trash/files"))).entryList(QDir::Files), QStringList(nome));
  }

  void theFolderUsedLastIsRemembered() {
    GalleryRoom room;
    QCOMPARE(room.gallery.PastaAddImg(), QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    room.gallery.GuardaPastaAddImg(room.Path(QStringLiteral("mine")));
    QCOMPARE(room.gallery.PastaAddImg(), room.Path(QStringLiteral("mine")));
  }

  void wishesReplaceOneAnother() {
    GalleryRoom room;
    QStringList nomes;
    for (int i = 0; i < 40; ++i) {
      nomes.append(QStringLiteral("%1.jpg").arg(i));
      room.Write(u"app/Images/" + nomes.last(), NoisyJpeg({400, 300}));
    }
    SmallCopyLoader loader(room.app);
    QSignalSpy ready(&loader, &SmallCopyLoader::Pronta);
    QSignalSpy large(&loader, &SmallCopyLoader::Ampliada);
    loader.Deseja(nomes);
    loader.Amplia(nomes.first(), {200, 200});
    loader.Deseja({nomes.last()});
    QTRY_COMPARE(large.size(), 1);
    QCOMPARE(large[0][1].value<PictureImage>().image.size(), QSize(200, 150));
    QTRY_VERIFY(!ready.isEmpty() && ready.last()[0].toString() == nomes.last());
    QVERIFY(ready.size() < nomes.size() / 2); // the others were dropped
  }

private:
  static QStringList Add(GalleryRoom &room, const QStringList &paths) {
    PictureAdder adder(room.app, room.prompt);
    QSignalSpy ended(&adder, &PictureAdder::Terminou);
    adder.Adiciona(paths);
    if (ended.isEmpty() && !ended.wait())
      return {QStringLiteral("did not end")};
    return ended[0][0].toStringList();
  }
};

Q_DECLARE_METATYPE(tolmira::PictureProblem)

QTEST_GUILESS_MAIN(TestPictures)
#include "test_pictures.moc"
