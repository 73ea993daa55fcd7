#include "import_room.h"
#include "support/full_disk.h"

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QtTest>
#include <fcntl.h>
#include <unistd.h>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QByteArray WrittenPdf(const QList<QSizeF> &pagesMm) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  const auto turn = [&](qsizetype i) { writer.setPageSize(QPageSize(pagesMm[i], QPageSize::Millimeter)); };
  writer.setPageMargins({});
  turn(0);
  QPainter painter(&writer);
  for (qsizetype i = 0; i < pagesMm.size(); ++i) {
    if (i > 0) {
      turn(i);
      writer.newPage();
    }
    painter.fillRect(0, 0, 40, 40, Qt::red);
  }
  painter.end();
  return bytes;
}

const char OnePage[] = "echo pages 1; cp $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; echo done\n";

} // namespace

class TestDocumentImport : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void everyPageBecomesASlide();
  void nothingOfAPageIsCut_data();
  void nothingOfAPageIsCut();
  void aSecondImportTakesOtherNames();
  void asksForThePassword();
  void refusesWhatIsNoDocument_data();
  void refusesWhatIsNoDocument();
  void theDrawerIsNotTrusted_data();
  void theDrawerIsNotTrusted();
  void theDrawerIsConfined();
  void aFullDiskLeavesNothing();
  void stopLeavesNothing();
  void goingAwayLeavesNothing();
  void presentationsGoThroughLibreOffice();
  void tellsWhatIsWrongWithAPresentation_data();
  void tellsWhatIsWrongWithAPresentation();
  void allOfLibreOfficeEnds_data();
  void allOfLibreOfficeEnds();
};

void TestDocumentImport::everyPageBecomesASlide() {
  const ImportRoom room;
  ImportRun run(room);
  QVERIFY(run.Run(room.Write("mine/Holy | \"Day\".pdf", WrittenPdf({{160, 90}, {210, 297}, {160, 90}}))));
  QCOMPARE(run.sentence, QString());
  QCOMPARE(run.name, QStringLiteral("Holy _ _Day_"));
  const QStringList names{QStringLiteral("Holy _ _Day_ - page 001.png"), QStringLiteral("Holy _ _Day_ - page 002.png"),
                          QStringLiteral("Holy _ _Day_ - page 003.png")};
  QCOMPARE(room.Images(), names);
  QCOMPARE(room.Mini(), names);
  QCOMPARE(run.pictures.size(), 3);
  QCOMPARE(run.pictures[1], room.app.At(u"\\Images\\") + names[1]);
  QCOMPARE(run.done, 3);
  QVERIFY(QTest::qWaitFor([&] { return QDir(room.Path("temp")).isEmpty(); }));
}

// The page's own lower left corner is red; `red` and `white` are where that and the middle of its paper come to lie on
// a screen of 320 by 180, and `black` is outside of it.
void TestDocumentImport::nothingOfAPageIsCut_data() {
  QTest::addColumn<QByteArray>("page");
  QTest::addColumn<QPoint>("red");
  QTest::addColumn<QPoint>("black");
  const QPoint none(-1, -1);
  QTest::newRow("as wide as the screen") << QByteArray("/MediaBox[0 0 160 90]") << QPoint(2, 177) << none;
  QTest::newRow("almost") << QByteArray("/MediaBox[0 0 161 90]") << QPoint(2, 177) << none;
  QTest::newRow("upright") << QByteArray("/MediaBox[0 0 90 180]") << QPoint(117, 177) << QPoint(112, 90);
  QTest::newRow("flat") << QByteArray("/MediaBox[0 0 320 90]") << QPoint(2, 132) << QPoint(160, 40);
  QTest::newRow("turned") << QByteArray("/MediaBox[0 0 90 160]/Rotate 90") << QPoint(2, 2) << none;
  QTest::newRow("elsewhere") << QByteArray("/MediaBox[-500 700 -340 790]") << QPoint(2, 177) << none;
  QTest::newRow("ten kilometres") << QByteArray("/MediaBox[0 0 32000000 18000000]") << QPoint(2, 177) << none;
}

void TestDocumentImport::nothingOfAPageIsCut() {
  QFETCH(QByteArray, page);
  QFETCH(QPoint, red);
  QFETCH(QPoint, black);
  const ImportRoom room;
  ImportRun run(room);
  // In the page's own coordinates, whatever its box is: a tenth of its width from its lower left corner.
  const QList<QByteArray> box = page.mid(page.indexOf('[') + 1).split(']').first().split(' ');
  const QByteArray side = QByteArray::number((box[2].toInt() - box[0].toInt()) / 10);
  const QByteArray content = "1 0 0 rg " + box[0] + ' ' + box[1] + ' ' + side + ' ' + side + " re f";
  QVERIFY(run.Run(room.Write("mine/a.pdf", OnePagePdf(page, content))));
  QCOMPARE(run.sentence, QString());
  const QImage image = room.Image(QStringLiteral("a - page 001.png"));
  QCOMPARE(image.size(), ImportRoom::Screen);
  QCOMPARE(image.pixelColor(red), QColor(Qt::red));
  QCOMPARE(image.pixelColor(160, 90), QColor(Qt::white));
  if (black.x() >= 0)
    QCOMPARE(image.pixelColor(black), QColor(Qt::black));
}

void TestDocumentImport::aSecondImportTakesOtherNames() {
  const ImportRoom room;
  room.Write("app/Images/SONG - page 077.jpg", "somebody's own");
  ImportRun run(room);
  QVERIFY(run.Run(room.Write("mine/Song.pdf", OnePagePdf("/MediaBox[0 0 160 90]"))));
  QCOMPARE(room.Images(),
           (QStringList{QStringLiteral("SONG - page 077.jpg"), QStringLiteral("Song (2) - page 001.png")}));
  QCOMPARE(run.name, QStringLiteral("Song"));
}

void TestDocumentImport::asksForThePassword() {
  const ImportRoom room;
  ImportRun run(room);
  QList<bool> asked;
  const QStringList answers{QStringLiteral("wrong"), QStringLiteral("amém")};
  connect(&run.import, &DocumentImport::PediuSenha, this, [&](bool wrong) {
    run.import.DaSenha(answers.value(asked.size()));
    asked.append(wrong);
  });
  QVERIFY(run.Run(room.Write("mine/a.pdf", LockedPdf("am\xe9m"))));
  QCOMPARE(asked, (QList<bool>{false, true}));
  QCOMPARE(run.pictures.size(), 1);
}

void TestDocumentImport::refusesWhatIsNoDocument_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("word");
  const QByteArray whole = WrittenPdf({{160, 90}, {160, 90}});
  QTest::newRow("text") << QByteArray("Holy, holy, holy") << "no PDF";
  QTest::newRow("empty") << QByteArray("") << "no PDF";
  QTest::newRow("cut in half") << whole.left(whole.size() / 2) << "no PDF";
  QTest::newRow("without pages") << HandMadePdf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[]/Count 0>>"})
                                 << "no pages";
  QTest::newRow("pages inside themselves")
      << HandMadePdf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[2 0 R 2 0 R]/Count 9>>"}) << "";
  QTest::newRow("a page that is missing")
      << HandMadePdf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[7 0 R]/Count 1>>"}) << "";
  QTest::newRow("a million pages") << HandMadePdf({"<</Type/Catalog/Pages 2 0 R>>",
                                                   "<</Type/Pages/Kids[3 0 R]/Count 1000000>>",
                                                   "<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]>>"})
                                   << "";
}

void TestDocumentImport::refusesWhatIsNoDocument() {
  QFETCH(QByteArray, bytes);
  QFETCH(QString, word);
  const ImportRoom room;
  ImportRun run(room);
  QVERIFY(run.Run(room.Write("mine/a.pdf", bytes)));
  QVERIFY2(!run.sentence.isEmpty() && run.sentence.contains(word), qPrintable(run.sentence));
  QVERIFY(room.LeftNothing());
}

void TestDocumentImport::theDrawerIsNotTrusted_data() {
  QTest::addColumn<QByteArray>("lines");
  QTest::addColumn<QString>("word");
  const auto row = [](const char *name, const char *lines, const char *word = "damaged") {
    QTest::newRow(name) << QByteArray(lines) << word;
  };
  row("crashes", "echo pages 2; cp $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; kill -SEGV $$\n");
  row("hangs", "echo pages 2; sleep 600\n", "Page 1 takes too long");
  row("says nothing", "sleep 600\n", "too long to open");
  row("floods", "yes\n");
  row("floods one line", "cat /dev/zero\n");
  row("ends early", "echo pages 2; cp $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; echo done\n");
  row("promises what is not there", "echo pages 1; echo page 1 page-1.png; echo done\n");
  row("points elsewhere", "echo pages 1; echo page 1 ../../page.png; echo done\n");
  row("links elsewhere", "echo pages 1; ln -s $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; echo done\n");
  row("draws no picture", "echo pages 1; echo hi > $2/page-1.png; echo page 1 page-1.png; echo done\n", "damaged");
  row("draws for another reader", "echo pages 1; cp $ROOM/page.bmp $2/page-1.png; echo page 1 page-1.png; echo done\n");
  row("asks for a password behind a page",
      "echo pages 2; cp $ROOM/page.png $2/page-1.png; echo page 1 page-1.png; echo failed password; exit 1\n");
  row("fills the disk", "echo pages 1; head -c 300000 /dev/zero > $2/page-1.png; echo page 1 page-1.png; sleep 600\n",
      "too much room");
  row("counts without end", "echo pages 2001\n");
}

void TestDocumentImport::theDrawerIsNotTrusted() {
  QFETCH(QByteArray, lines);
  QFETCH(QString, word);
  ImportRoom room;
  room.programs.paginas = room.Script("pages", lines);
  room.Write("page.bmp", PictureBytes(ImportRoom::Screen, "bmp"));
  ImportRun run(room);
  if (lines.contains("sleep"))
    run.import.prazoDaPaginaMs = 1000;
  run.import.maiorTotal = 256 * 1024;
  QVERIFY(run.Run(room.Write("mine/a.pdf", "x")));
  QVERIFY2(run.sentence.contains(word), qPrintable(run.sentence));
  QVERIFY(room.LeftNothing());
}

void TestDocumentImport::theDrawerIsConfined() {
  qputenv("A_SECRET", "word");
  ImportRoom room;
  const int open = ::open(qPrintable(room.Path("page.png")), O_RDONLY); // as a library that knows no better leaves it
  QVERIFY(open >= 0);
  room.programs.paginas = room.Script("pages", QByteArray("[ -z \"$A_SECRET\" ] || exit 3\n"
                                                          "[ $(ulimit -c) = 0 ] && [ $(ulimit -n) = 128 ] || exit 4\n"
                                                          "[ $(ulimit -f) != unlimited ] || exit 5\n"
                                                          "[ $(ulimit -t) != unlimited ] || exit 6\n"
                                                          "[ $(cat /proc/self/oom_score_adj) = 1000 ] || exit 9\n"
                                                          "grep -q 'NoNewPrivs:.*1' /proc/self/status || exit 7\n"
                                                          "ls -l /proc/self/fd | grep -q page.png && exit 8\n") +
                                                   OnePage);
  ImportRun run(room);
  QVERIFY(run.Run(room.Write("mine/a.pdf", "x")));
  ::close(open);
  QCOMPARE(run.sentence, QString());
}

void TestDocumentImport::aFullDiskLeavesNothing() {
  ImportRoom room;
  room.programs.paginas = room.Script("pages", OnePage);
  ImportRun run(room);
  const QString path = room.Write("mine/a.pdf", "x");
  {
    const FullDisk full(64);
    QVERIFY(run.Run(path));
  }
  QVERIFY2(run.sentence.contains(u"Is the disk full?"), qPrintable(run.sentence));
  QVERIFY(room.LeftNothing());
}

void TestDocumentImport::stopLeavesNothing() {
  ImportRoom room;
  room.programs.paginas = room.Script("pages", "echo pages 9; for i in 1 2 3 4; do cp $ROOM/page.png $2/page-$i.png; "
                                               "echo page $i page-$i.png; done; sleep 600\n");
  ImportRun run(room);
  connect(&run.import, &DocumentImport::Andou, this, [&](int pages) {
    if (pages == 2)
      run.import.Para();
  });
  QVERIFY(run.Run(room.Write("mine/a.pdf", "x")));
  QVERIFY(run.stopped);
  QVERIFY(room.LeftNothing());
  room.programs.paginas = room.Script("pages2", OnePage);
  ImportRun another(room);
  QVERIFY(another.Run(room.Path("mine/a.pdf")));
  QCOMPARE(another.pictures.size(), 1);
}

void TestDocumentImport::goingAwayLeavesNothing() {
  ImportRoom room;
  room.programs.paginas = room.Script("pages", "echo pages 9; for i in 1 2 3 4; do cp $ROOM/page.png $2/page-$i.png; "
                                               "echo page $i page-$i.png; done; sleep 600\n");
  {
    ImportRun run(room);
    run.import.Comeca(room.Write("mine/a.pdf", "x"), ImportRoom::Screen, room.programs);
    QVERIFY(QTest::qWaitFor([&] { return run.done >= 1; }));
  }
  QVERIFY(room.LeftNothing());
}

void TestDocumentImport::presentationsGoThroughLibreOffice() {
  ImportRoom room;
  room.Write("made.pdf", WrittenPdf({{160, 90}, {160, 90}}));
  // Called with "... --outdir FOLDER FILE".
  room.programs.escritorio =
      room.Script("soffice", "while [ $# -gt 2 ]; do [ \"$1\" = --outdir ] && out=$2; shift; done\n"
                             "grep -q sermon \"$2\" && cp $ROOM/made.pdf $out/document.pdf\n");
  ImportRun run(room);
  QVERIFY(run.Run(room.Write("mine/--x.PPTX", "a sermon")));
  QCOMPARE(run.sentence, QString());
  QCOMPARE(run.name, QStringLiteral("--x"));
  QCOMPARE(run.pictures.size(), 2);
}

void TestDocumentImport::tellsWhatIsWrongWithAPresentation_data() {
  QTest::addColumn<QByteArray>("lines"); // of LibreOffice; empty where there is none
  QTest::addColumn<QString>("word");
  QTest::newRow("no LibreOffice") << QByteArray() << "not installed";
  QTest::newRow("unreadable") << QByteArray("exit 0\n") << "could not read";
  QTest::newRow("crashes") << QByteArray("kill -SEGV $$\n") << "could not read";
  QTest::newRow("hangs") << QByteArray("sleep 600\n") << "too long";
  QTest::newRow("makes nonsense")
      << QByteArray("while [ $# -gt 2 ]; do [ \"$1\" = --outdir ] && out=$2; shift; done\necho x > $out/document.pdf\n")
      << "damaged";
}

void TestDocumentImport::tellsWhatIsWrongWithAPresentation() {
  QFETCH(QByteArray, lines);
  QFETCH(QString, word);
  ImportRoom room;
  if (!lines.isEmpty())
    room.programs.escritorio = room.Script("soffice", lines);
  ImportRun run(room);
  if (lines.contains("sleep"))
    run.import.prazoDoEscritorioMs = 500;
  QVERIFY(run.Run(room.Write("mine/a.odp", "x")));
  QVERIFY2(run.sentence.contains(word), qPrintable(run.sentence));
  QVERIFY(room.LeftNothing());
}

void TestDocumentImport::allOfLibreOfficeEnds_data() {
  QTest::addColumn<QByteArray>("after"); // the start of the part that stays
  QTest::addColumn<bool>("stop");
  QTest::newRow("it is stopped") << QByteArray("wait\n") << true;
  QTest::newRow("its first process ends") << QByteArray() << false;
}

void TestDocumentImport::allOfLibreOfficeEnds() {
  QFETCH(QByteArray, after);
  QFETCH(bool, stop);
  ImportRoom room;
  room.programs.escritorio = room.Script("soffice", "sleep 600 &\necho $! > $ROOM/pid.part\n"
                                                    "mv $ROOM/pid.part $ROOM/pid\n" +
                                                        after);
  ImportRun run(room);
  run.import.Comeca(room.Write("mine/a.ppt", "x"), ImportRoom::Screen, room.programs);
  QVERIFY(QTest::qWaitFor([&] { return QFile::exists(room.Path("pid")); }));
  if (stop)
    run.import.Para();
  QVERIFY(QTest::qWaitFor([&] { return run.Ended(); }));
  QCOMPARE(run.stopped, stop);
  const QByteArray pid = ReadBytes(room.Path("pid")).trimmed();
  const QString status = u"/proc/" + QString::fromLatin1(pid) + u"/status";
  QVERIFY(QTest::qWaitFor([&] {
    const QByteArray now = ReadBytes(status);
    return !QFile::exists(status) || now.contains("State:\tZ") || now.contains("State:\tX");
  }));
  QVERIFY(room.LeftNothing());
}

QTEST_MAIN(TestDocumentImport)
#include "test_document_import.moc"
