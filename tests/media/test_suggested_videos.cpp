#include "media/suggested_videos.h"
#include "support/files.h"
#include "support/scripted_web.h"
#include "support/sites/services_site.h"
#include "web/real_web_client.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The list of suggested videos, and one of them on its way into the folder.
class TestSuggestedVideos : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(const QByteArray &address = "https://v.example/h.mp4", WebClient *real = nullptr)
        : app(folder.path()), client(real ? *real : web) {
      QDir(folder.path()).mkdir(QStringLiteral("Videos"));
      WriteBytes(folder.filePath(QStringLiteral("Data/content.dat")),
                 ContentLine("Harbour at dawn", address, SuggestedVideo()));
      video = LeCatalogoDeVideos(app).videos.value(0);
    }
    void Sends(const QByteArray &bytes) {
      web.file = [bytes](const PedidoDeDownload &wanted) {
        WriteBytes(QString(wanted.arquivo).replace(u'\\', u'/'), bytes);
        return FimDoDownload{true, true, wanted.endereco};
      };
    }
    QString In(const char *name) const { return folder.filePath(u"Videos/" + QString::fromLatin1(name)); }
    QStringList Files() const { return QDir(folder.filePath(QStringLiteral("Videos"))).entryList(QDir::Files); }

    QTemporaryDir folder;
    AppFolder app;
    ScriptedWeb web;
    WebClient &client;
    QString end;
    qint64 space = -1;
    qint64 got = 0;
    VideoSugerido video;
    VideosSugeridos videos{app,
                           client,
                           {[](const VideoSugerido &) {}, [this](const QString &, qint64 came, qint64) { got = came; },
                            [this](const QString &said) { end = said; }},
                           [this](const QString &) { return space; }};
  };

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void ReadsALine_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("file"); // empty: refused
    const QByteArray rest = "|#|3|#|" + QByteArray(64, 'a');
    const auto row = [](const char *name, const QByteArray &line, const char *file) {
      QTest::newRow(name) << line << QString::fromUtf8(file);
    };
    row("healthy", "Água viva|#|https://v.example/a/x.MP4?b=1" + rest, "Água viva.mp4");
    row("title with folders", "../../x/Hymn|#|https://v.example/x.webm" + rest, "x Hymn.webm");
    row("title of dots", "...|#|https://v.example/x.mp4" + rest, "");
    row("this machine", "A|#|http://localhost:8/x.mkv" + rest, "A.mkv");
    row("over http", "A|#|http://v.example/x.mp4" + rest, "");
    row("no video", "A|#|https://v.example/x.desktop" + rest, "");
    row("no extension", "A|#|https://v.example/x" + rest, "");
    row("no size", "A|#|https://v.example/x.mp4|#||#|" + QByteArray(64, 'a'), "");
    row("too large to be true", "A|#|https://v.example/x.mp4|#|99999999999999|#|" + QByteArray(64, 'a'), "");
    row("short sum", "A|#|https://v.example/x.mp4|#|3|#|abcd", "");
    row("no sum", "A|#|https://v.example/x.mp4|#|3|#|" + QByteArray(64, 'x'), "");
    row("a field too many", "A|#|https://v.example/x.mp4" + rest + "|#|", "");
  }
  void ReadsALine() {
    QFETCH(QByteArray, line);
    QFETCH(QString, file);
    const QString text = QString::fromUtf8("; note\r\n\r\n" + line + "\r\n" + line);
    const CatalogoDeVideos read = LeCatalogoDeVideos(QStringView(text));
    QCOMPARE(read.videos.value(0).arquivo, file);
    QCOMPARE(read.recusadas, file.isEmpty() ? 2 : 1); // a name stands there once
  }

  void TakesItsPlaceWhenItIsRight_data() {
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<bool>("right");
    QTest::newRow("right") << SuggestedVideo() << true;
    QTest::newRow("too short") << SuggestedVideo().chopped(1) << false;
    QTest::newRow("wrong sum") << SuggestedVideo().replace(0, 1, "N") << false;
  }
  void TakesItsPlaceWhenItIsRight() {
    QFETCH(QByteArray, sent);
    QFETCH(bool, right);
    Room room;
    room.Sends(sent);
    room.videos.Baixa(room.video);
    QTRY_VERIFY(!room.end.isEmpty());
    QCOMPARE(room.videos.Estado(room.video), right ? EstadoDoVideo::Esta : EstadoDoVideo::NaoEsta);
    QCOMPARE(room.Files(), right ? QStringList{QStringLiteral("Harbour at dawn.mp4")} : QStringList());
    QCOMPARE(room.end.contains(u"was removed"), !right);
    QCOMPARE(room.web.asked.value(0).download.limiteBytes, room.video.tamanho);
  }

  void GoesOnWithAPart() {
    Room room;
    WriteBytes(room.In("Harbour at dawn.mp4.download.part"), SuggestedVideo().left(7));
    QCOMPARE(room.videos.Estado(room.video), EstadoDoVideo::Parte);
    QCOMPARE(room.videos.Veio(room.video), 7);
    room.web.answers = false;
    room.videos.Baixa(room.video);
    QVERIFY(room.web.asked.value(0).download.continua);
    room.videos.Para();
    QCOMPARE(room.web.dropped, 1);

    room.web.answers = true; // and breaks off again
    room.videos.Baixa(room.video);
    QTRY_VERIFY(!room.end.isEmpty());
    QCOMPARE(room.videos.Estado(room.video), EstadoDoVideo::Parte);
  }

  // Over the wire: begun, stopped, gone on with at once, and a site that has another file by then.
  void WorksOverTheWire_data() {
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<EstadoDoVideo>("state");
    QTest::newRow("right") << SuggestedVideo() << EstadoDoVideo::Esta;
    QTest::newRow("wrong sum") << SuggestedVideo().replace(80'000, 1, "N") << EstadoDoVideo::NaoEsta;
  }
  void WorksOverTheWire() {
    QFETCH(QByteArray, rest);
    QFETCH(EstadoDoVideo, state);
    SiteServer site;
    RealWebClient client;
    site.On("/h.mp4", [rest](const SiteRequest &request) {
      SiteAnswer answer;
      const QByteArray range = request.headers.value("range"); // "bytes=3-"
      const qsizetype from = range.isEmpty() ? 0 : range.sliced(6).chopped(1).toLongLong();
      answer.body = rest.sliced(from);
      answer.ending = range.isEmpty() ? SiteAnswer::Ending::Drip : SiteAnswer::Ending::Whole;
      answer.status = range.isEmpty() ? 200 : 206;
      const QByteArray size = QByteArray::number(rest.size());
      answer.headers = {{"ETag", "\"one\""}};
      if (!range.isEmpty())
        answer.headers.append(
            qMakePair(QByteArray("Content-Range"), QByteArray("bytes " + QByteArray::number(from) + "-/" + size)));
      return answer;
    });
    Room room(site.Host().toLatin1() + "/h.mp4", &client);
    const QString part = room.In("Harbour at dawn.mp4.download.part");
    room.videos.Baixa(room.video);
    QTRY_VERIFY(room.got > 0);
    room.videos.Para();
    room.videos.Baixa(room.video);
    QTRY_VERIFY(!room.end.isEmpty());
    QVERIFY(site.asked.last().headers.contains("range"));
    QCOMPARE(room.videos.Estado(room.video), state);
    QVERIFY(!QFile::exists(part));
  }

  // The program ended between the last byte and the check.
  void LooksAtWhatHasArrived() {
    Room room;
    WriteBytes(room.In("Harbour at dawn.mp4.download"), SuggestedVideo());
    room.videos.Baixa(room.video);
    QTRY_COMPARE(room.videos.Estado(room.video), EstadoDoVideo::Esta);
    QVERIFY(room.web.asked.isEmpty());
  }

  void LeavesOtherFilesAlone_data() {
    QTest::addColumn<QByteArray>("there");
    QTest::newRow("another size") << QByteArray("mine");
    QTest::newRow("another sum") << SuggestedVideo().replace(0, 1, "N");
  }
  void LeavesOtherFilesAlone() {
    QFETCH(QByteArray, there);
    Room room;
    WriteBytes(room.In("Harbour at dawn.mp4"), there);
    room.videos.Confere({room.video});
    QTRY_COMPARE(room.videos.Estado(room.video), EstadoDoVideo::Outro);
    room.videos.Baixa(room.video);
    QTRY_VERIFY(!room.end.isEmpty());
    QVERIFY(room.web.asked.isEmpty());
    QCOMPARE(ReadBytes(room.In("Harbour at dawn.mp4")), there);
  }

  void AsksForRoomFirst() {
    Room room;
    room.space = room.video.tamanho;
    room.videos.Baixa(room.video);
    QTRY_VERIFY(room.end.startsWith(u"There is no room for it"));
    QVERIFY(room.web.asked.isEmpty());
  }
};

QTEST_GUILESS_MAIN(TestSuggestedVideos)
#include "test_suggested_videos.moc"
