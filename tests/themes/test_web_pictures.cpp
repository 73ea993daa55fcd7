#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "gallery_room.h"
#include "support/scripted_web.h"
#include "support/sites/picture_site.h"
#include "themes/web_picture_adder.h"
#include "themes/web_picture_search.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QSignalSpy>
#include <QtTest>
#include <optional>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

const QString Host = QStringLiteral("https://views.example");

QString Page(int first, int count, PictureForm form = PictureForm::Newest) {
  return QString::fromUtf8(PicturePage(Host, first, count, form));
}

// A picture whose header and end are right, and nothing else.
QByteArray Rubbish(const QByteArray &gif) {
  return gif.left(13) + QByteArray(20, '\x01') + ';';
}

struct Room : GalleryRoom {
  void Configure(const QString &key, const QString &value) const {
    QString file = app.At(u"\\Data\\Endpoints.dat");
    store.WriteConfig(QStringLiteral("Endpoints"), key, value, file);
  }
  Room() {
    Configure(QStringLiteral("PesquisaImagens"), QStringLiteral("search.example"));
    Configure(QStringLiteral("ImagensMv"), QStringLiteral("mv.example"));
    QObject::connect(&search, &WebPictureSearch::Mostrou, &search, [this](const ResultadoDaBusca &r) { shown = r; });
    QObject::connect(&adder, &WebPictureAdder::Terminou, &adder, [this](const FimDaAdicao &end) { ended = end; });
  }
  QStringList Asked() const {
    QStringList all;
    for (const ScriptedWeb::Pedido &one : web.asked)
      all << one.url.toString(QUrl::FullyEncoded);
    return all;
  }
  QString Method() const {
    return store.ReadConfig(QStringLiteral("Config"), QStringLiteral("buscaImagem"), QStringLiteral("-"));
  }
  // Puts these bytes where the download is to go.
  void Serve(const QByteArray &bytes) {
    web.file = [bytes](const PedidoDeDownload &wanted) {
      WriteBytes(MapStoredPath(wanted.arquivo).text(), bytes);
      return FimDoDownload{true, true, wanted.endereco};
    };
  }
  static ImagemDaWeb Image(const QString &address) { return {address, {}, NomeDoEndereco(address)}; }

  ScriptedWeb web;
  PageFetcher fetcher{store, web};
  Endpoints endpoints{store};
  WebPictureSearch search{fetcher, endpoints};
  WebPictureAdder adder{app, web};
  std::optional<ResultadoDaBusca> shown;
  std::optional<FimDaAdicao> ended;
};

} // namespace

class TestWebPictures : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void eachFormIsRead_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QStringList>("found"); // address, small form, name, joined by blanks
    const QString newest = QStringLiteral("murl&quot;:&quot;%1&quot; turl&quot;:&quot;%2&quot;");
    const QString older = QStringLiteral("imgurl:&quot;%1&quot;");
    const QString oldest = QStringLiteral("<a class=\"thumb\" href=\"%1\"><img %2=\"%3\"></a>");
    const QString a = QStringLiteral("http://a.example/a.jpg");
    const QString b = QStringLiteral("http://b.example/b");
    QTest::newRow("newest") << Page(1, 2)
                            << QStringList{Host + u"/pictures/view-1.jpg " + Host + u"/thumbs/1 view-1.jpg",
                                           Host + u"/pictures/view-2.png " + Host + u"/thumbs/2 view-2.png"};
    QTest::newRow("older") << Page(1, 1, PictureForm::Older) << QStringList{Host + u"/pictures/view-1.jpg  view-1.jpg"};
    QTest::newRow("oldest") << Page(1, 1, PictureForm::Oldest)
                            << QStringList{Host + u"/pictures/view-1.jpg " + Host + u"/thumbs/1 view-1.jpg"};
    QTest::newRow("oldest, straight to the picture")
        << oldest.arg(a, QStringLiteral("src"), QStringLiteral("http://t.example/th?id=1&amp;w=2"))
        << QStringList{a + u" http://t.example/th?id=1&w=2 a.jpg"};
    QTest::newRow("no marker") << QStringLiteral("<html><body>imgurl murl</body></html>") << QStringList();
    QTest::newRow("the newest marker decides")
        << older.arg(a) + newest.arg(b, a) << QStringList{b + u' ' + a + u" b.jpg"};
    QTest::newRow("the picture's end is missing")
        << newest.arg(a, b) + u"murl&quot;:&quot;http://c.example/c.jpg" << QStringList{a + u' ' + b + u" a.jpg"};
    QTest::newRow("the small form's end is missing")
        << newest.arg(a, b) + u"murl&quot;:&quot;http://c.example/c.jpg&turl&quot;:&quot;http://c.example/t"
        << QStringList{a + u' ' + b + u" a.jpg", QStringLiteral("http://c.example/c.jpg  c.jpg")};
    QTest::newRow("an address ends at the next &")
        << QStringLiteral("murl&quot;:&quot;http://a.example/a.jpg?w=1&amp;h=2&quot;")
        << QStringList{QStringLiteral("http://a.example/a.jpg?w=1  a.jpg")};
    QTest::newRow("older: the & is looked for further on")
        << QStringLiteral("imgurl:&quot;&abcimgurl:&quot;http://a.example/a.jpg&") << QStringList();
    QTest::newRow("oldest: nothing behind a broken link")
        << QStringLiteral("<a class=\"thumb\" hre=>") + oldest.arg(a, QStringLiteral("src"), b) << QStringList();
    QTest::newRow("no addresses of the web")
        << newest.arg(QStringLiteral("javascript:alert(1)"), b) + newest.arg(QStringLiteral("file:///etc/passwd"), b) +
               newest.arg(QStringLiteral("http://u:p@a.example/a.jpg"), b) + newest.arg(QStringLiteral("/a.jpg"), b) +
               newest.arg(a, QStringLiteral("data:image/svg+xml,x"))
        << QStringList{a + u"  a.jpg"};
    QTest::newRow("oldest: the small form is behind the link")
        << oldest.arg(a + u"?src=", QStringLiteral("src"), b) << QStringList{a + u"?src= " + b + u" a.jpg"};
    QTest::newRow("too long an address") << newest.arg(QString(u"http://a.example/" + QString(MaiorEndereco, u'a')),
                                                       b) +
                                                newest.arg(a, b)
                                         << QStringList{a + u' ' + b + u" a.jpg"};
  }
  void eachFormIsRead() {
    QFETCH(QString, page);
    QStringList found;
    for (const ImagemDaWeb &image : ImagensDaPagina(page))
      found << image.endereco + u' ' + image.miniatura + u' ' + image.nome;
    QTEST(found, "found");
  }

  void aHostilePageStaysSmall() {
    for (const char *marker :
         {"murl&quot;:&quot;http://a/&", "imgurl:&quot;http://a/&", "<a class=\"thumb\" href=\"http://a/\"src=\"\""})
      QCOMPARE(ImagensDaPagina(QString::fromLatin1(marker).repeated(200'000)).size(),
               QByteArray(marker).startsWith('m') ? 1 : MaximoDeImagens);
  }

  // The table of the worst page can still be shown.
  void theLargestTableFits() {
    const QString quotes = u"http://a.example/" + QString(MaiorEndereco - 17, u'\'');
    const QString entry = u"<a class=\"thumb\" href=\"" + quotes + u"\" src=\"" + quotes + u'"';
    const QList<ImagemDaWeb> images = ImagensDaPagina(entry.repeated(300));
    QCOMPARE(images.size(), MaximoDeImagens);
    QVERIFY(QUrl::toPercentEncoding(CriaPagina(images)).size() < 1'900'000);
  }

  void addresses_data() {
    QTest::addColumn<QString>("term");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("path");
    QTest::newRow("words") << "blue night sky" << 0
                           << "/images/search?q=blue+night+sky&qs=n&form=QBIR&pq=blue+night+sky&first=1&count=20";
    QTest::newRow("page 2") << "sea" << 2 << "/images/search?q=sea&qs=n&form=QBIR&pq=sea&first=32&count=20";
    QTest::newRow("marks")
        << QStringLiteral("c\u00e9u & a+b=#_") << 1
        << "/images/search?q=c%C3%A9u+%26+a%2Bb%3D%23_&qs=n&form=QBIR&pq=c%C3%A9u+%26+a%2Bb%3D%23_&first=16&count=20";
  }
  void addresses() {
    QFETCH(QString, term);
    QFETCH(int, page);
    QTEST(CaminhoDaPesquisa(term, page), "path");
  }

  void theTableIsWritten() {
    QList<ImagemDaWeb> images;
    for (int i = 0; i < 6; ++i)
      images.append(
          {QStringLiteral("http://a.example/%1.jpg").arg(i), QStringLiteral("http://t.example/%1").arg(i), {}});
    images[0].endereco = QStringLiteral("http://a.example/'onerror='x\"<b>&c");
    images[1].miniatura.clear();
    const auto cell = [](const QString &id, const QString &src) -> QString {
      return u"<td width='168' align='center' id=''><a  id='" + id +
             u"' href='javascript:void(0);'><img border='0' id='" + id + u"' src='" + src +
             u"' height='114' width='164'></a></td>";
    };
    QString expected = QStringLiteral("<html oncontextmenu='return false;'><head><Title></Title></head>"
                                      "<table border='0' collspacing='0'><tr height='118'>");
    expected += cell(QStringLiteral("0|http://a.example/&#39;onerror=&#39;x&quot;&lt;b&gt;&amp;c"),
                     QStringLiteral("http://t.example/0"));
    expected += cell(QStringLiteral("1|http://a.example/1.jpg"), QStringLiteral("http://a.example/1.jpg"));
    for (int i = 2; i < 6; ++i) {
      if (i == 5)
        expected += QStringLiteral("</tr><tr height='118'>");
      expected +=
          cell(QStringLiteral("%1|http://a.example/%1.jpg").arg(i), QStringLiteral("http://t.example/%1").arg(i));
    }
    expected +=
        QStringLiteral("<td width='168' align='center' id='nulo'><a  id='nulo' href='javascript:void(0);'></a></td>")
            .repeated(4);
    QCOMPARE(CriaPagina(images), QString(expected + u"</tr></table></body></html>"));
  }

  void names_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "http://a/b/Foto.JPG"
                           << "Foto.JPG";
    QTest::newRow("query") << "http://a/b/foto.png?w=1/2#x"
                           << "foto.png";
    QTest::newRow("no extension") << "http://a/b/foto"
                                  << "foto.jpg";
    QTest::newRow("no name") << "http://a/"
                             << "image.jpg";
    QTest::newRow("decoded") << "http://a/c%C3%A9u+azul.jpg" << QStringLiteral("c\u00e9u azul.jpg");
    QTest::newRow("folders") << "http://a/..%2f..%5cData%5cConfig.dat"
                             << "Config.dat";
    QTest::newRow("not western") << "http://a/%E6%B5%B7.jpg" << QStringLiteral("\u6d77.jpg");
    QTest::newRow("windows-1252") << "http://a/c%E9u.jpg" << QStringLiteral("c\u00e9u.jpg");
    QTest::newRow("turned around") << "http://a/a%E2%80%AEgpj.exe" << QStringLiteral("agpj.exe");
    QTest::newRow("ends in the middle") << "http://a/sea%00.jpg%0d%0a?x=/../b"
                                        << "sea.jpg";
    QTest::newRow("hidden") << "http://a/.bashrc"
                            << "bashrc.jpg";
    QTest::newRow("device") << "http://a/con.jpg"
                            << "_con.jpg";
  }
  void names() {
    QFETCH(QString, address);
    QTEST(NomeDoEndereco(address), "name");
  }

  void aSearchLearnsItsWay() {
    Room room;
    room.web.page = [](int method, const QUrl &) { return method == 3 ? Page(1, 2) : QStringLiteral("<html></html>"); };
    room.search.pesquisarImagens(QStringLiteral(" blue sky "), 0);
    QVERIFY(room.search.Buscando());
    QTRY_VERIFY(room.shown);
    QVERIFY(!room.search.Buscando());
    QCOMPARE(room.web.asked.size(), 3);
    QCOMPARE(
        room.Asked().constFirst(),
        QStringLiteral("https://search.example/images/search?q=blue+sky&qs=n&form=QBIR&pq=blue+sky&first=1&count=20"));
    QCOMPARE(room.Method(), QStringLiteral("3"));
    QCOMPARE(room.shown->Label1, QStringLiteral("Page 1"));
    QVERIFY(room.shown->anterior && room.shown->proxima);
    QCOMPARE(room.shown->pagina, CriaPagina(room.search.Imagens()));
    const QString id = QStringLiteral("1|") + room.search.Imagens()[1].endereco;
    QCOMPARE(*room.search.Imagem(id), room.search.Imagens()[1]);
    for (const QString &other :
         QStringList{id + u'x', QStringLiteral("2|x"), QStringLiteral("-1|x"), QStringLiteral("nulo"), QString()})
      QVERIFY2(!room.search.Imagem(other), qPrintable(other));
  }

  // A page outside does not make the program ask this machine's own network for anything.
  void theOwnNetworkIsLeftAlone() {
    Room room;
    const QString entry = QStringLiteral("murl&quot;:&quot;%1&quot; turl&quot;:&quot;%2&quot;");
    room.web.page = [&entry](int, const QUrl &) -> QString {
      return entry.arg(QStringLiteral("http://192.168.1.1/reboot?a.jpg"), Host) +
             entry.arg(Host + u"/a.jpg", QStringLiteral("http://[::1]/t"));
    };
    room.search.pesquisarImagens(QStringLiteral("sea"), 0);
    QTRY_VERIFY(room.shown);
    QCOMPARE(room.search.Imagens(), (QList<ImagemDaWeb>{{Host + u"/a.jpg", {}, QStringLiteral("a.jpg")}}));
    QVERIFY(!room.search.RedePropria());
    room.shown.reset();
    room.Configure(QStringLiteral("PesquisaImagens"), QStringLiteral("http://10.0.0.7"));
    room.search.pesquisarImagens(QStringLiteral("sea"), 0);
    QTRY_VERIFY(room.shown);
    QCOMPARE(room.search.Imagens().size(), 2);
    QVERIFY(room.search.RedePropria());
  }

  void pagesTurn() {
    Room room;
    room.web.page = [](int, const QUrl &url) {
      const int first = QUrlQuery(url).queryItemValue(QStringLiteral("first")).toInt();
      return first < 32 ? Page(first, 2) : QStringLiteral("<html></html>");
    };
    QVERIFY(!room.search.Vizinha(1)); // nothing is on show
    room.search.pesquisarImagens(QStringLiteral("sea"), 0);
    QTRY_VERIFY(room.shown);
    room.shown.reset();
    QVERIFY(!room.search.Vizinha(-1));
    QVERIFY(room.search.Vizinha(1));
    QVERIFY(room.Asked().constLast().contains(u"&first=16&"));
    QTRY_VERIFY(room.shown);
    QCOMPARE(room.shown->Label1, QStringLiteral("Page 2"));
    const QList<ImagemDaWeb> second = room.search.Imagens();
    room.shown.reset();

    QVERIFY(room.search.Vizinha(1)); // stopped, the page on show stays what it is
    room.search.Para();
    QCOMPARE(room.search.Imagens(), second);
    QVERIFY(room.search.Vizinha(1));
    QTRY_VERIFY(room.shown);
    QCOMPARE(room.shown->pagina, QStringLiteral("<h2>There are no results.<h2>"));
    QCOMPARE(room.shown->Label1, QStringLiteral("Page 3"));
    QVERIFY(room.shown->anterior && !room.shown->proxima);
  }

  void whatIsShownWhenNothingIsFound_data() {
    QTest::addColumn<QString>("term");
    QTest::addColumn<bool>("fallback");
    QTest::addColumn<QString>("mv"); // the maker's host
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("asked");
    const QString none = QStringLiteral("<h2>There are no results.<h2>");
    const QString odd = QStringLiteral("<h2>Non-existent or inappropriate result<h2>");
    QTest::newRow("a term") << "sea" << true << "mv.example" << none << 11;
    QTest::newRow("no fallback wanted") << "abstrato" << false << "mv.example" << odd << 11;
    QTest::newRow("own theme") << "Textura" << true << "mv.example" << CriaPagina(ImagensDaPagina(Page(1, 2))) << 12;
    QTest::newRow("own theme, not configured") << "abstrato" << true << "" << odd << 11;
    QTest::newRow("own theme, not there") << "abstrato" << true << "gone.example" << odd << 22;
  }
  void whatIsShownWhenNothingIsFound() {
    QFETCH(QString, term);
    QFETCH(bool, fallback);
    QFETCH(QString, mv);
    Room room;
    room.Configure(QStringLiteral("ImagensMv"), mv);
    room.web.page = [](int, const QUrl &url) {
      return url.host() == u"mv.example" ? Page(1, 2) : QStringLiteral("<html></html>");
    };
    room.search.pesquisarImagens(term, 0, fallback ? Recurso::Sim : Recurso::Nao);
    QTRY_VERIFY(room.shown);
    QTEST(room.shown->pagina, "page");
    QTEST(int(room.web.asked.size()), "asked");
    if (room.web.asked.size() > 11)
      QVERIFY(room.Asked().constLast().contains(
          u".example/images/search?q=textura_e_abstrato&qs=n&form=QBIR&pq=textura_e_abstrato&first=1&count=20"));
    if (room.shown->pagina.contains(u"inappropriate"))
      QVERIFY(!room.shown->anterior && !room.shown->proxima);
    if (room.search.Imagens().size() == 2) { // further pages come from there too
      QVERIFY(room.search.Vizinha(1));
      QCOMPARE(room.web.asked.constLast().url.host(), QStringLiteral("mv.example"));
    }
  }

  void aBlankHostIsTold() {
    Room room;
    room.Configure(QStringLiteral("PesquisaImagens"), QString());
    QSignalSpy told(&room.search, &WebPictureSearch::NaoConfigurada);
    room.search.pesquisarImagens(QStringLiteral("sea"), 0);
    QCOMPARE(told.size(), 1);
    QVERIFY(told[0][0].toString().contains(u"PesquisaImagens"));
    QVERIFY(room.web.asked.isEmpty() && !room.search.Buscando());
  }

  void aPictureComesIntoTheGallery_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name"); // empty for none
    QTest::addColumn<QString>("said");
    const QByteArray jpeg = PictureBytes({64, 36}, "jpg");
    const QByteArray png = PictureBytes({64, 36}, "png");
    const QString added = QStringLiteral("Added successfully.");
    const QString refused = QStringLiteral("This file cannot be used as a picture.");
    QTest::newRow("jpeg") << "http://a/sea.jpg" << jpeg << "sea.jpg" << added;
    QTest::newRow("no extension") << "http://a/sea" << png << "sea.jpg" << added;
    QTest::newRow("other extension") << "http://a/sea.php?x=1" << png << "sea.png" << added;
    QTest::newRow("of a kind that is not kept") << "http://a/sea.gif" << Gif() << "sea.jpg" << added;
    QTest::newRow("a page instead") << "http://a/sea.jpg" << QByteArray("<html>Not for you</html>") << "" << refused;
    QTest::newRow("half a picture") << "http://a/sea.jpg" << HalfOf(NoisyJpeg({64, 64})) << "" << refused;
    QTest::newRow("rubbish between header and end") << "http://a/sea.gif" << Rubbish(Gif()) << "" << refused;
    QTest::newRow("a bomb") << "http://a/sea.png" << PngThatClaims({60000, 60000}) << "" << refused;
    QTest::newRow("nothing") << "http://a/sea.jpg" << QByteArray() << ""
                             << "File not found.";
  }
  void aPictureComesIntoTheGallery() {
    QFETCH(QString, address);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);
    Room room;
    WriteBytes(MapStoredPath(TempFolder() + QStringLiteral("\\imgtemp.jpg")).text(),
               PictureBytes({8, 8}, "jpg")); // an old one
    if (!bytes.isEmpty())
      room.Serve(bytes);
    room.adder.AdicionarImagem(Room::Image(address));
    QCOMPARE(room.web.asked.constLast().download.limiteBytes, qint64(64) * 1024 * 1024);
    QCOMPARE(room.web.asked.constLast().download.arquivo, QString(TempFolder() + QStringLiteral("\\imgtemp.jpg")));
    QTRY_VERIFY(room.ended);
    QTEST(room.ended->texto, "said");
    QCOMPARE(room.ended->nome, name);
    QCOMPARE(room.ended->falhou, name.isEmpty());
    const QStringList expected = name.isEmpty() ? QStringList() : QStringList{name};
    QCOMPARE(room.Images(), expected);
    QCOMPARE(room.Mini(), expected);
    QVERIFY(!room.adder.Trabalhando());
    QVERIFY(!FileExists(TempFolder() + QStringLiteral("\\imgtemp.jpg")));
  }

  void aTakenNameIsAskedAbout() {
    Room room;
    room.Picture(QStringLiteral("sea.jpg"));
    const QByteArray mine = room.Read(QStringLiteral("app/Images/sea.jpg"));
    room.Picture(QStringLiteral("sea(1).jpg"));
    room.Serve(PictureBytes({64, 36}, "jpg", Qt::blue));
    QSignalSpy asked(&room.adder, &WebPictureAdder::Pergunta);
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/SEA.jpg")));
    QTRY_COMPARE(asked.size(), 1);
    room.adder.ImgDownCancel(); // is of the download alone
    QVERIFY(!room.ended);
    room.adder.Cancelar();
    QCOMPARE(room.ended->texto, QStringLiteral("Canceled."));
    QCOMPARE(room.Images().size(), 2);
    room.ended.reset();

    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/sea.jpg")));
    QTRY_COMPARE(asked.size(), 2);
    room.adder.ManterOsDois();
    QTRY_VERIFY(room.ended);
    QCOMPARE(room.ended->nome, QStringLiteral("sea(2).jpg"));
    QCOMPARE(room.Images(),
             QStringList({QStringLiteral("sea(1).jpg"), QStringLiteral("sea(2).jpg"), QStringLiteral("sea.jpg")}));
    QCOMPARE(room.Read(QStringLiteral("app/Images/sea.jpg")), mine);
  }

  void aSeriesThatDoesNotGoOnEnds() {
    Room room;
    room.Picture(QStringLiteral("a(1)(2).jpg"));
    const QString free = NomeLivreEmImagens(room.app, QStringLiteral("a(1)(2).jpg"));
    QVERIFY2(!FileExists(room.app.At(u"\\Images\\") + free) && free.endsWith(u".jpg"), qPrintable(free));
  }

  void aDownloadIsStopped() {
    Room room;
    room.web.answers = false;
    QSignalSpy progress(&room.adder, &WebPictureAdder::Andou);
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/sea.jpg")));
    room.web.progress(10, 100);
    QCOMPARE(progress.constLast(), QVariantList({10, 100}));
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/other.jpg"))); // one at a time
    QCOMPARE(room.web.asked.size(), 1);
    room.adder.ImgDownCancel();
    QCOMPARE(room.ended->texto, QStringLiteral("Download canceled."));
    QCOMPARE(room.web.dropped, 1);
    QVERIFY(room.Images().isEmpty());
  }

  // The look at one that was given up says nothing about the next.
  void whatWasGivenUpIsForgotten() {
    Room room;
    room.Serve(PictureBytes({64, 36}, "jpg"));
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/sea.jpg")));
    QTRY_VERIFY(!room.adder.Baixando()); // it is being looked at
    room.adder.Desiste();
    room.Serve(PictureBytes({64, 36}, "png"));
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/sky.png")));
    QTRY_VERIFY(room.ended);
    QCOMPARE(room.Images(), QStringList{QStringLiteral("sky.png")});
  }

  void aPictureThatCannotBeWrittenIsTold() {
    Room room;
    QDir(room.Path(QStringLiteral("app/Images"))).removeRecursively();
    room.Serve(PictureBytes({64, 36}, "jpg"));
    room.adder.AdicionarImagem(Room::Image(QStringLiteral("http://a/sea.jpg")));
    QTRY_VERIFY(room.ended);
    QCOMPARE(room.ended->texto, QStringLiteral("Não foi possível gravar o arquivo: sea.jpg"));
    QVERIFY(room.ended->falhou);
  }
};

QTEST_MAIN(TestWebPictures)
#include "test_web_pictures.moc"
