#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "songs/song_finder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/no_file_handles.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// Every look at the time takes a millisecond, so that a search needs many slices.
class BusyClock : public FakeClock {
public:
  qint64 NowMs() const override { return FakeClock::NowMs() + (busy ? ++m_looks : 0); }
  bool busy = false;

private:
  mutable qint64 m_looks = 0;
};

// A program folder with a finder that a test drives by its clock.
struct Room {
  Room() : app(folder.path()), finder(app, clock) {
    for (const char *name : {"Lyrics", "Harpa", "Cantor"})
      QDir(folder.path()).mkdir(QLatin1String(name));
  }
  QString On(const QString &name) const { return folder.filePath(name); }
  void Write(const QString &name, const QByteArray &bytes) const { WriteBytes(On(name), bytes); }
  QStringList Rows() const {
    QStringList rows;
    for (const auto &file : finder.List1())
      rows.append(file->Linha());
    return rows;
  }
  QStringList Search(const QString &term) {
    finder.SetTermoBusca(term);
    clock.Advance(1000);
    return Rows();
  }

  QTemporaryDir folder;
  AppFolder app;
  BusyClock clock;
  SongFinder finder;
};

bool NaiveHolds(const QString &path, const QString &term) {
  return ReadWholeFile(path).toLower().contains(term.toLower());
}

QString NaiveKey(const QString &name) {
  QString key;
  for (const QChar c : name.toLower().normalized(QString::NormalizationForm_D))
    if (!c.isMark())
      key += c;
  return key;
}

// What reading every file gives.
QStringList NaiveSearch(const QString &folder, const QString &term) {
  QStringList names;
  QDirIterator files(folder, QDir::Files | QDir::Hidden);
  while (files.hasNext()) {
    files.next();
    if (files.fileName().endsWith(u".txt", Qt::CaseInsensitive))
      names.append(files.fileName());
  }
  std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
    const int order = NaiveKey(a.chopped(4)).compare(NaiveKey(b.chopped(4)));
    return order != 0 ? order < 0 : a.toUtf8() < b.toUtf8();
  });
  QStringList groups[3];
  for (const QString &name : std::as_const(names)) {
    if (name.left(term.size()).toLower() == term.toLower())
      groups[0].append(name.chopped(4));
    else if (name.toLower().contains(term.toLower()))
      groups[1].append(name.chopped(4));
    else if (NaiveHolds(folder + u'/' + name, term))
      groups[2].append(name.chopped(4));
  }
  return groups[0] + groups[1] + groups[2];
}

QString Pick(QRandomGenerator &random, const QStringList &list) {
  return list.at(random.bounded(list.size()));
}

} // namespace

class TestSongFinder : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void EveryByteIsLoweredAsTheToolkitDoes() {
    for (int byte = 0; byte < 256; ++byte) {
      const QByteArray bytes = "\xE9 " + QByteArray(1, static_cast<char>(byte)); // no UTF-8
      const QString text = DecodeText(bytes).text;
      QVERIFY2(SearchedText(bytes).Holds(SearchTerm(text)), qPrintable(QString::number(byte)));
      QVERIFY2(SearchedText(bytes).Holds(SearchTerm(text.toUpper())) ==
                   text.toLower().contains(text.toUpper().toLower()),
               qPrintable(QString::number(byte)));
    }
  }

  void TextIsSearchedAsDecoded_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("term");
    QTest::addColumn<bool>("found");
    const QByteArray codePage = "GL\xD3RIA \x8A\x80 fim";
    QTest::newRow("code page, other case") << codePage << QStringLiteral("glória") << true;
    QTest::newRow("not folded") << codePage << QStringLiteral("gloria") << false;
    QTest::newRow("upper controls") << codePage << QStringLiteral("š€") << true;
    QTest::newRow("beyond the code page") << codePage << QStringLiteral("ша") << false;
    QTest::newRow("a mark for what is beyond it") << QByteArray("que? sim") << QStringLiteral("ש") << false;
    const QByteArray utf8 = QStringLiteral("ЖИЗНЬ İstanbul 𝄞 ÇA").toUtf8();
    QTest::newRow("UTF-8") << utf8 << QStringLiteral("Жизнь") << true;
    QTest::newRow("two bytes that span letters") << utf8 << QStringLiteral("\u0096") << false;
    QTest::newRow("a letter that becomes two") << utf8 << QStringLiteral("İs") << true;
    QTest::newRow("half of a pair") << utf8 << QString(QChar(0xD834)) << true;
    QTest::newRow("the other half") << utf8 << QString(QChar(0xDD1F)) << false;
    QTest::newRow("a byte order mark is no text") << QByteArray("\xEF\xBB\xBF"
                                                                "ABC")
                                                  << QStringLiteral("\uFEFF") << false;
    QTest::newRow("behind the mark") << QByteArray("\xEF\xBB\xBF"
                                                   "ABC")
                                     << QStringLiteral("abc") << true;
    QTest::newRow("cut-off UTF-8 is code page") << QByteArray("caf\xC3") << QStringLiteral("cafÃ") << true;
    QTest::newRow("NUL") << QByteArray("a\0b", 3) << QStringLiteral("B") << true;
    QTest::newRow("across a line end") << QByteArray("Sol\r\nMar") << QStringLiteral("sol\r\nmar") << true;
    QTest::newRow("nothing in nothing") << QByteArray() << QString() << true;
  }
  void TextIsSearchedAsDecoded() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, term);
    QFETCH(bool, found);
    QCOMPARE(DecodeText(bytes).text.toLower().contains(term.toLower()), found);
    QCOMPARE(SearchedText(bytes).Holds(SearchTerm(term)), found);
  }

  void TextInMemoryIsNoLongerThanAllowed() {
    const QByteArray growing = QStringLiteral("İ\u023A\u023E").repeated(1000).toUtf8();
    QVERIFY(SearchedText(growing).Size() <= growing.size() * 3 / 2);
    const QByteArray codePage(1000, '\xC4');
    QCOMPARE(SearchedText(codePage).Size(), 1000);
  }

  void TermsChooseFolderAndRows_data() {
    QTest::addColumn<QString>("term");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("rows");
    using L = QStringList;
    const QString lyrics = QStringLiteral("Lyrics"), harpa = QStringLiteral("Harpa"), cantor = QStringLiteral("Cantor");
    const auto row = [](const char *name, const char *term, const QString &path, const QStringList &rows) {
      QTest::newRow(name) << QString::fromUtf8(term) << path << rows;
    };
    const L all{QStringLiteral("Água Viva"), QStringLiteral("amor"), QStringLiteral("Chuva"),
                QStringLiteral("Grande Amor"), QStringLiteral("Zelo")};
    const L three{QStringLiteral("30 Luz"), QStringLiteral("300 Paz"), QStringLiteral("301 Amor")};
    row("start, inside, text", "AMOR", lyrics, {all[1], all[3], all[0]});
    row("a hymn's number", "h301", harpa, {three[2]});
    row("capital letter", "H301", harpa, {three[2]});
    row("numbers that begin so", "h30", harpa, three);
    row("no more than four digits", "h301xyz", harpa, {three[2]});
    row("blank in front of the number", "h 301", harpa, {three[2]});
    row("halves to the even number", "h29.5", harpa, three);
    row("other hymnal", "c12", cantor, {QStringLiteral("12 Rocha")});
    row("no such hymn", "c99", cantor, {});
    row("a word that begins with c", "chuva", lyrics, {all[2]});
    row("number zero", "h0", lyrics, {});
    row("number too large for sixteen bits", "h9e9", lyrics, {});
    row("prefix, title and text", "h:amor", harpa, {three[2], three[0]});
    row("prefix with blanks and capital", "H: amor ", harpa, {three[2], three[0]});
    row("blank in front of the prefix eats into it", " h:amor", harpa, {});
    row("prefix alone", "c:", cantor, {QStringLiteral("12 Rocha"), QStringLiteral("13 Vale")});
    row("blank term", "  ", lyrics, all);
    row("blank behind the word counts", "amor ", lyrics, {all[0]});
    row("blank in front of the number's letter", " h301", lyrics, {});
    row("the extension is a part of the name", "zelo.tx", lyrics, {all[4]});
  }
  void TermsChooseFolderAndRows() {
    QFETCH(QString, term);
    Room room;
    room.Write(QStringLiteral("Lyrics/Zelo.txt"), "nada");
    room.Write(QStringLiteral("Lyrics/amor.TXT"), "nada");
    room.Write(QStringLiteral("Lyrics/Grande Amor.txt"), "amor");
    room.Write(QStringLiteral("Lyrics/Água Viva.txt"), "O AMOR \xE9");
    room.Write(QStringLiteral("Lyrics/Chuva.txt"), "chuva");
    room.Write(QStringLiteral("Lyrics/amor.doc"), "amor");
    room.Write(QStringLiteral("Harpa/301 Amor.txt"), "");
    room.Write(QStringLiteral("Harpa/300 Paz.txt"), "");
    room.Write(QStringLiteral("Harpa/30 Luz.TXT"), "amor");
    room.Write(QStringLiteral("Harpa/130 Sol.txt"), "");
    room.Write(QStringLiteral("Cantor/12 Rocha.txt"), "");
    room.Write(QStringLiteral("Cantor/13 Vale.txt"), "");
    QTEST(room.Search(term), "rows");
    QFETCH(QString, path);
    QCOMPARE(room.finder.Path(), room.app.path() + u'\\' + path);
  }

  void LongerTermLooksAtTheRowsOnly() {
    Room room;
    room.Write(QStringLiteral("Lyrics/A.txt"), "amora");
    room.Write(QStringLiteral("Lyrics/B amo.txt"), "");
    QCOMPARE(room.Search(QStringLiteral("amo")), QStringList({QStringLiteral("B amo"), QStringLiteral("A")}));
    room.Write(QStringLiteral("Lyrics/C.txt"), "amor");
    QCOMPARE(room.Search(QStringLiteral("amor")), QStringList(QStringLiteral("A")));
    QCOMPARE(room.Search(QStringLiteral("amorx")), QStringList());
    room.Write(QStringLiteral("Lyrics/D.txt"), "amorxy");
    QCOMPARE(room.Search(QStringLiteral("amorxy")), QStringList()); // nothing grows out of nothing
    QCOMPARE(room.Search(QStringLiteral("amo")),
             QStringList({QStringLiteral("B amo"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("D")}));
  }

  void NarrowedRowsAreSortedAnew() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Am z.txt"), "amo");
    room.Write(QStringLiteral("Lyrics/A cam.txt"), "amo");
    room.Write(QStringLiteral("Lyrics/Ábaco.txt"), "amo");
    QCOMPARE(room.Search(QStringLiteral("am")),
             QStringList({QStringLiteral("Am z"), QStringLiteral("A cam"), QStringLiteral("Ábaco")}));
    QCOMPARE(room.Search(QStringLiteral("amo")),
             QStringList({QStringLiteral("A cam"), QStringLiteral("Ábaco"), QStringLiteral("Am z")}));
  }

  void NamesOfAllScriptsAreInOrder() {
    Room room;
    const QStringList sorted{QStringLiteral("a"),         QStringLiteral("Á a"),       QStringLiteral("abcdefgh"),
                             QStringLiteral("Abcdefghi"), QStringLiteral("abcdefgĩa"), QStringLiteral("ÿ"),
                             QStringLiteral("þb"),        QStringLiteral("ωa"),        QStringLiteral("Жb"),
                             QStringLiteral("жc"),        QStringLiteral("日")};
    for (const QString &name : sorted)
      room.Write(QStringLiteral("Lyrics/%1.txt").arg(name), "");
    QCOMPARE(room.Search(QString()), sorted);
  }

  // Rows of another folder or of a search that was cancelled are no ground to narrow on.
  void OnlyRowsOfTheShorterTermAreNarrowed() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Amor.txt"), "");
    room.Write(QStringLiteral("Harpa/1 Amor.txt"), "");
    QCOMPARE(room.Search(QStringLiteral("h:am")), QStringList(QStringLiteral("1 Amor")));
    QCOMPARE(room.Search(QStringLiteral("amo")), QStringList(QStringLiteral("Amor")));
    QCOMPARE(room.Search(QStringLiteral("h1")), QStringList(QStringLiteral("1 Amor")));
    QCOMPARE(room.Search(QStringLiteral("amor")), QStringList(QStringLiteral("Amor")));
    QCOMPARE(room.Search(QStringLiteral("zz")), QStringList());
    room.clock.busy = true;
    for (int i = 0; i < 50; ++i)
      room.Write(QStringLiteral("Lyrics/%1.txt").arg(i), "amor");
    room.finder.SetTermoBusca(QStringLiteral("am"));
    room.clock.Advance(room.finder.IntervaloBusca());
    QVERIFY(room.finder.Buscando());
    QCOMPARE(room.Rows(), QStringList());
    room.finder.SetTermoBusca(QStringLiteral("amo")); // at once, over all files
    room.clock.Advance(1000);
    QVERIFY(!room.finder.Buscando());
    QCOMPARE(room.Rows().size(), 51);
  }

  // A longer term is looked for from the place of the shorter one: in the text, of this search, as the file is now.
  void NarrowingLooksAtNoPlaceOfAnotherSearch() {
    Room room;
    const auto writeAll = [&room] {
      for (int i = 0; i < 50; ++i)
        room.Write(QStringLiteral("Lyrics/%1.txt").arg(i), "amor e am");
    };
    writeAll();
    room.Write(QStringLiteral("Lyrics/Am.txt"), "amor e am");
    QCOMPARE(room.Search(QStringLiteral("e am")).size(), 51);
    QCOMPARE(room.Search(QStringLiteral("am")).size(), 51); // one of them by its name
    QCOMPARE(room.Search(QStringLiteral("amor")).size(), 51);

    QCOMPARE(room.Search(QStringLiteral("e am")).size(), 51);
    QCOMPARE(room.Search(QStringLiteral("am")).size(), 51);
    writeAll(); // each has to be read again, so that the search can be stopped halfway
    room.clock.busy = true;
    room.finder.SetTermoBusca(QStringLiteral("e am"));
    room.clock.Advance(room.finder.IntervaloBusca());
    QVERIFY(room.finder.Buscando());
    room.finder.CancelaBusca();
    room.clock.busy = false;
    QCOMPARE(room.Search(QStringLiteral("amor")).size(), 51);
  }

  void KeysDelayAndStopASearch() {
    Room room;
    for (int i = 0; i < 100; ++i)
      room.Write(QStringLiteral("Lyrics/%1.txt").arg(i), "luz");
    int lists = 0;
    room.finder.AoListar = [&lists] { ++lists; };
    room.finder.CarregaTudo(true);
    QCOMPARE(lists, 1);
    QCOMPARE(room.Rows().size(), 100);
    QVERIFY(room.finder.Buscando());
    room.clock.Advance(1000);
    QVERIFY(!room.finder.Buscando());
    QCOMPARE(room.finder.IntervaloBusca(), 40);
    QCOMPARE(room.Rows().size(), 100); // the measure keeps them

    for (const char *typed : {"l", "lu", "luz"}) {
      room.finder.SetTermoBusca(QLatin1String(typed));
      room.clock.Advance(39);
    }
    QCOMPARE(lists, 1);
    room.clock.Advance(1);
    QCOMPARE(lists, 2);

    room.clock.busy = true; // each song takes a millisecond now
    room.finder.CarregaTudo(true);
    room.clock.Advance(10000);
    QVERIFY(room.finder.IntervaloBusca() >= 110);
    QVERIFY(room.finder.IntervaloBusca() < 250);
    lists = 0;
    for (int i = 0; i < 100; ++i)
      room.Write(QStringLiteral("Lyrics/%1.txt").arg(i), "lua"); // each has to be read again
    room.finder.SetTermoBusca(QStringLiteral("lu"));
    room.clock.Advance(room.finder.IntervaloBusca());
    QVERIFY(room.finder.Buscando());
    room.finder.CancelaBusca();
    room.clock.Advance(1000);
    QCOMPARE(lists, 0);
    QCOMPARE(room.Rows().size(), 100);
    room.finder.CarregaTudo(false);
    QCOMPARE(room.finder.IntervaloBusca(), 30);
  }

  void AnswersAreThoseOfTheFiles_data() {
    QTest::addColumn<SongFolder::Trust>("trust");
    QTest::newRow("told by the system") << SongFolder::Trust::Watch;
    QTest::newRow("compared") << SongFolder::Trust::Compare;
  }
  // A folder that other programs keep changing, searched for random terms.
  void AnswersAreThoseOfTheFiles() {
    QFETCH(SongFolder::Trust, trust);
    QTemporaryDir temp;
    const QString path = temp.filePath(QStringLiteral("Lyrics"));
    const QString aside = temp.filePath(QStringLiteral("Aside"));
    QDir().mkpath(path);
    QDir().mkpath(aside);
    const QStringList words{QStringLiteral("amor"), QStringLiteral("AMO"),   QStringLiteral("Água"),
                            QStringLiteral("água"), QStringLiteral("luz"),   QStringLiteral("LUZ€"),
                            QStringLiteral("paz "), QStringLiteral("Ωmega"), QStringLiteral("İs"),
                            QStringLiteral("p?z"),  QStringLiteral("x\r\n"), QStringLiteral("ção")};
    QRandomGenerator random(20240611);
    const auto name = [&] {
      return QString(Pick(random, words).remove(u'\r').remove(u'\n') + QString::number(random.bounded(12)) +
                     (random.bounded(4) == 0 ? u".TXT" : u".txt"));
    };
    const auto content = [&] {
      QString text;
      for (int i = random.bounded(6); i > 0; --i)
        text += Pick(random, words);
      switch (random.bounded(3)) {
      case 0:
        return text.toUtf8();
      case 1:
        return QByteArray("\xEF\xBB\xBF").append(text.toUtf8());
      default:
        return EncodeText(text);
      }
    };
    const auto write = [&](const QString &file, QIODevice::OpenMode mode) {
      QFile out(file);
      if (out.open(mode))
        out.write(content());
    };
    SongFolder folder(trust);
    for (int step = 0; step < 500; ++step) {
      const QString one = path + u'/' + name();
      const QString other = path + u'/' + name();
      switch (random.bounded(13)) {
      case 0:
      case 1:
      case 2:
        write(one, QIODevice::WriteOnly);
        break;
      case 3:
        write(one, QIODevice::Append);
        break;
      case 4:
        QFile::remove(one);
        break;
      case 5:
        ::rename(QFile::encodeName(one).constData(), QFile::encodeName(other).constData());
        break;
      case 6:
        WriteFileAtomically(one, content());
        break;
      case 7: { // written again with its old time
        struct stat status {};
        if (stat(QFile::encodeName(one).constData(), &status) == 0) {
          write(one, QIODevice::WriteOnly);
          const utimbuf times{status.st_atime, status.st_mtime};
          utime(QFile::encodeName(one).constData(), &times);
        }
        break;
      }
      case 8: // a link, whose file changes elsewhere
        QFile::link(aside + u'/' + QString::number(random.bounded(3)), one);
        break;
      case 9:
        write(aside + u'/' + QString::number(random.bounded(3)), QIODevice::WriteOnly);
        break;
      case 10: // which root may read all the same
        QFile::setPermissions(one,
                              random.bounded(2) == 0 ? QFile::Permissions() : QFile::ReadOwner | QFile::WriteOwner);
        break;
      case 11:
        if (random.bounded(20) == 0) { // another folder takes its place
          QDir(temp.path()).rename(QStringLiteral("Lyrics"), QStringLiteral("Old%1").arg(step));
          QDir().mkpath(path);
        }
        break;
      default:
        if (random.bounded(3) == 0)
          QDir().mkdir(one);
        break;
      }
      if (random.bounded(2) == 0)
        continue;
      const QString term = Pick(random, words).left(1 + random.bounded(4));
      folder.Observe(path, random.bounded(10) == 0);
      SongSearch search(folder, term, std::nullopt);
      while (search.Next([&] { return random.bounded(2) == 0; })) {
      }
      QStringList rows;
      for (const auto &file : search.TakeRows())
        rows.append(file->Linha());
      const QStringList expected = NaiveSearch(path, term);
      QVERIFY2(rows == expected, qPrintable(QStringLiteral("step %1, term '%2':\n%3\nnot\n%4")
                                                .arg(step)
                                                .arg(term, rows.join(u'|'), expected.join(u'|'))));
    }
  }

  // A second name of a file, in another folder, is not watched; the opening of the dialog finds what came through it.
  void OtherNamesOfAFileAreFoundOut() {
    Room room;
    room.Write(QStringLiteral("Lyrics/A.txt"), "sol");
    QCOMPARE(room.Search(QStringLiteral("sol")), QStringList(QStringLiteral("A")));
    QCOMPARE(::link(QFile::encodeName(room.On(QStringLiteral("Lyrics/A.txt"))).constData(),
                    QFile::encodeName(room.On(QStringLiteral("other"))).constData()),
             0);
    room.Write(QStringLiteral("other"), "mar");
    room.finder.CarregaTudo(true);
    room.clock.Advance(1000);
    QCOMPARE(room.Search(QStringLiteral("mar")), QStringList(QStringLiteral("A")));
    room.Write(QStringLiteral("other"), "rio");
    QCOMPARE(room.Search(QStringLiteral("rio")), QStringList(QStringLiteral("A")));
  }

  void ReadsAgainOnDemand() {
    Room room;
    room.Write(QStringLiteral("Lyrics/A.txt"), "sol");
    QCOMPARE(room.Search(QStringLiteral("so")), QStringList(QStringLiteral("A")));
    QCOMPARE(room.Search(QStringLiteral("sol")), QStringList(QStringLiteral("A")));
    room.Write(QStringLiteral("Lyrics/B.txt"), "sol");
    room.finder.BuscaDeNovo();
    QCOMPARE(room.Rows(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
  }

  void WhatCouldNotBeReadIsTriedAgain_data() {
    QTest::addColumn<QString>("written");
    QTest::newRow("a file") << QStringLiteral("Lyrics/A.txt");
    QTest::newRow("the folder") << QStringLiteral("Lyrics/B.txt");
  }
  void WhatCouldNotBeReadIsTriedAgain() {
    QFETCH(QString, written);
    Room room;
    room.Write(QStringLiteral("Lyrics/A.txt"), "mar");
    QCOMPARE(room.Search(QStringLiteral("sol")), QStringList());
    room.Write(written, "o sol");
    {
      NoFileHandles none;
      QCOMPARE(room.Search(QStringLiteral("o sol")), QStringList());
    }
    QCOMPARE(room.Search(QStringLiteral("sol")), QStringList(written.sliced(7, 1)));
  }

  void ALinkIsListedWhenItsFileComes() {
    Room room;
    QFile::link(room.On(QStringLiteral("later")), room.On(QStringLiteral("Lyrics/Luz.txt")));
    QCOMPARE(room.Search(QStringLiteral("luz")), QStringList());
    room.Write(QStringLiteral("later"), "sol");
    QCOMPARE(room.Search(QStringLiteral("sol")), QStringList(QStringLiteral("Luz")));
  }

  void WhatIsNoSongDoesNotMatch() {
    Room room;
    QDir(room.On(QStringLiteral("Lyrics"))).mkdir(QStringLiteral("folder luz.txt"));
    QFile::link(room.On(QStringLiteral("missing")), room.On(QStringLiteral("Lyrics/dangling luz.txt")));
    QCOMPARE(::mkfifo(QFile::encodeName(room.On(QStringLiteral("Lyrics/pipe luz.txt"))).constData(), 0600), 0);
    room.Write(QStringLiteral("Lyrics/it's \"so\" luz.txt"), "");
    room.Write(QStringLiteral("Lyrics/.txt"), "luz");
    QCOMPARE(room.Search(QStringLiteral("luz")), QStringList({QStringLiteral("it's \"so\" luz"), QString()}));
  }

  void NamesThatNoPathSpellsAreMarked_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("row");
    QTest::newRow("bytes that are no UTF-8") << QByteArray("Can\xE7\xE3o") << QStringLiteral("Canção");
    QTest::newRow("line end") << QByteArray("um\r\ndois") << QStringLiteral("um\r\ndois");
    QTest::newRow("backslash") << QByteArray("um\\dois") << QStringLiteral("um\\dois");
  }
  void NamesThatNoPathSpellsAreMarked() {
    QFETCH(QByteArray, name);
    Room room;
    const QByteArray path = QFile::encodeName(room.On(QStringLiteral("Lyrics/"))) + name + ".txt";
    const int file = ::creat(path.constData(), 0600);
    QVERIFY(file >= 0);
    QCOMPARE(::write(file, "farol", 5), 5);
    ::close(file);
    QTEST(room.Search(QStringLiteral("FAROL")).value(0), "row");
    QVERIFY(!room.finder.List1().front()->TemCaminho());
    room.Write(QStringLiteral("Lyrics/Ação.txt"), "farol");
    room.finder.BuscaDeNovo();
    QCOMPARE(room.Rows().first(), QStringLiteral("Ação"));
    QVERIFY(room.finder.List1().front()->TemCaminho());
    ::unlink(path.constData());
  }

  void AFolderMayVanishDuringASearch() {
    Room room;
    for (int i = 0; i < 100; ++i)
      room.Write(QStringLiteral("Lyrics/%1.txt").arg(i), "luz");
    room.clock.busy = true;
    room.finder.SetTermoBusca(QStringLiteral("luz"));
    room.clock.Advance(room.finder.IntervaloBusca());
    QVERIFY(room.finder.Buscando());
    QVERIFY(QDir(room.On(QStringLiteral("Lyrics"))).removeRecursively());
    room.clock.Advance(1000);
    QVERIFY(!room.finder.Buscando());
    QVERIFY(room.Rows().size() < 100); // what was read is found, the rest is not
    QCOMPARE(room.Search(QStringLiteral("lu")), QStringList());
    QDir(room.folder.path()).mkdir(QStringLiteral("LYRICS")); // back, in another case
    room.Write(QStringLiteral("LYRICS/A.txt"), "luz");
    QCOMPARE(room.Search(QStringLiteral("luz")), QStringList());
    QCOMPARE(room.Search(QStringLiteral("lu")), QStringList(QStringLiteral("A")));
  }
};

QTEST_GUILESS_MAIN(TestSongFinder)
#include "test_song_finder.moc"
