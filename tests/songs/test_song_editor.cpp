#include "songs/song_check.h"
#include "songs/song_drafts.h"
#include "songs/song_editor.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/full_disk.h"
#include "support/scripted_prompt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QString Lines(const char *text) {
  return QString::fromUtf8(text).replace(u'\n', QStringLiteral("\r\n"));
}

enum Answer { Yes = 0, No = 1, Cancel = 2 };

} // namespace

// What the song editor does without its window: names, questions, writing, and the texts that are not saved yet.
class TestSongEditor : public QObject {
  Q_OBJECT

private:
  struct Room {
    Room() : app(folder.path()), editor(app, prompt) {
      for (const char *sub : {"Data", "Lyrics", "Harpa", "Cantor"})
        QDir(folder.path()).mkdir(QLatin1String(sub));
    }
    QString Real(const QString &name) const { return folder.path() + u'/' + name; }
    void Write(const QString &name, const QByteArray &bytes) { WriteBytes(Real(name), bytes); }
    QByteArray Read(const QString &name) const { return ReadBytes(Real(name)); }
    QStringList Songs() const { return QDir(Real(QStringLiteral("Lyrics"))).entryList(QDir::Files, QDir::Name); }
    bool Open(const QString &name) { return editor.SetDados(ModoEditar, app.path() + u'\\' + name); }
    SongEditor::Outcome Save(const QString &title, const QString &author, const QString &text) {
      return editor.Save({{title, author}, text}).outcome;
    }

    QTemporaryDir folder;
    AppFolder app;
    ScriptedPrompt prompt;
    SongEditor editor;
  };
  using Outcome = SongEditor::Outcome;

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void NamesAndFiles_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("author");
    QTest::newRow("title alone") << "Grace.txt"
                                 << "Grace"
                                 << "";
    QTest::newRow("author") << "Grace (J. Newton).TXT"
                            << "Grace"
                            << "J. Newton";
    QTest::newRow("two parentheses") << "Grace (live) (J. Newton).txt"
                                     << "Grace (live)"
                                     << "J. Newton";
    QTest::newRow("no blank") << "Grace(Newton).txt"
                              << "Grace"
                              << "Newton";
    QTest::newRow("only closing") << "Grace).txt"
                                  << "Grace)"
                                  << "";
    QTest::newRow("inside") << "Grace (live) again.txt"
                            << "Grace (live) again"
                            << "";
    QTest::newRow("points") << "Mr. Grace.txt"
                            << "Mr. Grace"
                            << "";
  }
  void NamesAndFiles() {
    QFETCH(QString, file);
    const SongName name = SongNameOf(u"C:\\app/Lyrics\\" + file);
    QTEST(name.title, "title");
    QTEST(name.author, "author");
  }

  void ForbiddenCharactersAreNamed_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("named");
    QTest::newRow("one") << "Who?"
                         << ""
                         << "  ?";
    QTest::newRow("in the author") << "Grace"
                                   << "AC/DC"
                                   << "  /";
    QTest::newRow("several, once each") << "a:b:c"
                                        << "<x>|"
                                        << "  :  <  >  |";
    QTest::newRow("all") << "\\/:*?\"<>|"
                         << ""
                         << "  \\  /  :  *  ?  \"  <  >  |";
  }
  void ForbiddenCharactersAreNamed() {
    QFETCH(QString, title);
    QFETCH(QString, author);
    QFETCH(QString, named);
    Room room;
    QCOMPARE(room.Save(title, author, Lines("A")), Outcome::BadName);
    QCOMPARE(room.prompt.shown.size(), 1);
    QVERIFY2(room.prompt.shown[0].text.endsWith(named), qPrintable(room.prompt.shown[0].text));
    QVERIFY(room.Songs().isEmpty());
  }

  void AnEmptyTitleIsAskedFor() {
    Room room;
    QCOMPARE(room.Save(QStringLiteral("  "), QStringLiteral("Newton"), Lines("A")), Outcome::BadName);
    QCOMPARE(room.prompt.shown.value(0).text, QStringLiteral("Please enter the song title"));
    QCOMPARE(room.Save(QString(300, u'é'), QString(), Lines("A")), Outcome::BadName);
    QVERIFY(room.Songs().isEmpty());
  }

  void WhatIsWritten_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("capitals where a line begins with a letter")
        << Lines("amazing grace\nhow sweet\n\n\"the sound\n1 that\nétude")
        << QByteArray("Amazing grace\r\nHow sweet\r\n\r\n\"the sound\r\n1 that\r\n\xC9tude\r\n");
    QTest::newRow("blank runs") << Lines("A\n\n\n\nB\n\n\nC") << QByteArray("A\r\n\r\nB\r\n\r\nC\r\n");
    QTest::newRow("outer line ends") << Lines("\n\nA\n\n") << QByteArray("A\r\n");
    QTest::newRow("beyond the code page") << Lines("Слава é") << QByteArray("Слава é\r\n");
    QTest::newRow("nothing") << QString() << QByteArray();
  }
  void WhatIsWritten() {
    QFETCH(QString, text);
    Room room;
    QCOMPARE(room.Save(QStringLiteral("Grace"), QStringLiteral("Newton"), text), Outcome::Saved);
    QTEST(room.Read(QStringLiteral("Lyrics/Grace (Newton).txt")), "bytes");
    QVERIFY(room.prompt.shown.isEmpty());
    QCOMPARE(room.editor.Modo(), ModoEditar);
  }

  void TheFileKeepsItsEncoding_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("windows-1252") << QByteArray("Can\xE7\xE3o") << QByteArray("Can\xE7\xE3o nova\r\n");
    QTest::newRow("UTF-8") << QByteArray("Can\xC3\xA7\xC3\xA3o") << QByteArray("Can\xC3\xA7\xC3\xA3o nova\r\n");
    QTest::newRow("with a mark") << QByteArray("\xEF\xBB\xBF"
                                               "Can\xC3\xA7\xC3\xA3o")
                                 << QByteArray("\xEF\xBB\xBF"
                                               "Can\xC3\xA7\xC3\xA3o nova\r\n");
  }
  void TheFileKeepsItsEncoding() {
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    Room room;
    room.Write(QStringLiteral("Lyrics/Song.txt"), before);
    QVERIFY(room.Open(QStringLiteral("Lyrics\\Song.txt")));
    const QString text = room.editor.Guardado().text + QStringLiteral(" nova");
    QCOMPARE(room.Save(QStringLiteral("Song"), {}, text), Outcome::Saved);
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Song.txt")), after);
    // Under a new name too, though there is no file yet that would tell.
    QCOMPARE(room.Save(QStringLiteral("Other"), {}, text), Outcome::Saved);
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Other.txt")), after);
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void ATakenNameIsAskedAbout_data() {
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<QStringList>("songs");
    QTest::addColumn<QByteArray>("old");
    const QStringList before{QStringLiteral("Grace (1).txt"), QStringLiteral("Grace.txt")};
    QTest::newRow("Yes") << int(Yes) << true << before << QByteArray("New\r\n");
    QTest::newRow("No") << int(No) << true
                        << QStringList(before[0]) + QStringList{QStringLiteral("Grace (2).txt"), before[1]}
                        << QByteArray("Old");
    QTest::newRow("Cancel") << int(Cancel) << false << before << QByteArray("Old");
    QTest::newRow("closed") << -1 << false << before << QByteArray("Old");
  }
  void ATakenNameIsAskedAbout() {
    QFETCH(int, answer);
    QFETCH(bool, saved);
    Room room;
    room.Write(QStringLiteral("Lyrics/Grace.txt"), "Old");
    room.Write(QStringLiteral("Lyrics/Grace (1).txt"), "Older");
    room.prompt.answers = {answer};
    QCOMPARE(room.Save(QStringLiteral("Grace"), {}, QStringLiteral("New")) == Outcome::Saved, saved);
    QCOMPARE(
        room.prompt.shown[0].text,
        QStringLiteral("There is already a song with this name in your collection\n\nGrace\n\nOverwrite the file?"));
    QCOMPARE(room.prompt.shown[0].buttons,
             QStringList({QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")}));
    if (answer == No)
      QCOMPARE(room.prompt.shown[1].text, QStringLiteral("The file will be saved as: Grace (2).txt"));
    QTEST(room.Songs(), "songs");
    QTEST(room.Read(QStringLiteral("Lyrics/Grace.txt")), "old");
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Grace (1).txt")), QByteArray("Older"));
  }

  void ANewNameMovesTheSong() {
    Room room;
    room.Write(QStringLiteral("Harpa/7 Old.txt"), "1. A");
    QVERIFY(room.Open(QStringLiteral("Harpa\\7 Old.txt")));
    const SongEditor::Result result =
        room.editor.Save({{QStringLiteral("7 New"), QStringLiteral("B")}, QStringLiteral("1. A")});
    QCOMPARE(result.oldName, QStringLiteral("7 Old.txt"));
    QCOMPARE(result.newName, QStringLiteral("7 New (B).txt"));
    QCOMPARE(QDir(room.Real(QStringLiteral("Harpa"))).entryList(QDir::Files), QStringList(result.newName));
    QVERIFY(room.prompt.shown.isEmpty());
    // Capitals alone are a new name as well.
    QCOMPARE(room.Save(QStringLiteral("7 NEW"), QStringLiteral("B"), QStringLiteral("1. A")), Outcome::Saved);
    QCOMPARE(QDir(room.Real(QStringLiteral("Harpa"))).entryList(QDir::Files),
             QStringList(QStringLiteral("7 NEW (B).txt")));
    QVERIFY(room.prompt.shown.isEmpty());
  }

  // The file of the old name is the file of the new one: nothing is asked, and nothing goes.
  void ANameThatLeadsToTheSameFileLosesNothing() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Grace.txt"), "Old\r\n");
    QVERIFY(QFile::link(room.Real(QStringLiteral("Lyrics/Grace.txt")), room.Real(QStringLiteral("Lyrics/Link.txt"))));
    QVERIFY(room.Open(QStringLiteral("Lyrics/Grace.txt")));
    QCOMPARE(room.Save(QStringLiteral("Link"), {}, QStringLiteral("New")), Outcome::Saved);
    QVERIFY(room.prompt.shown.isEmpty());
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Link.txt")), QByteArray("New\r\n"));
  }

  void ANameOfAnotherFormStaysUntilItIsChanged() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Grace(Newton).txt"), "A");
    QVERIFY(room.Open(QStringLiteral("Lyrics\\Grace(Newton).txt")));
    QCOMPARE(room.Save(QStringLiteral("Grace"), QStringLiteral("Newton"), QStringLiteral("B")), Outcome::Saved);
    QCOMPARE(room.Songs(), QStringList(QStringLiteral("Grace(Newton).txt")));
  }

  void OuterBlanksOfANameStayUntilItIsChanged() {
    Room room;
    room.Write(QStringLiteral("Lyrics/ Grace .txt"), "A");
    QVERIFY(room.Open(QStringLiteral("Lyrics\\ Grace .txt")));
    QCOMPARE(room.Save(room.editor.Guardado().name.title, {}, QStringLiteral("B")), Outcome::Saved);
    QCOMPARE(room.Songs(), QStringList(QStringLiteral(" Grace .txt")));
    QCOMPARE(room.Save(QStringLiteral("Grace"), QStringLiteral("Newton"), QStringLiteral("B")), Outcome::Saved);
    QCOMPARE(room.Songs(), QStringList(QStringLiteral("Grace (Newton).txt")));
  }

  // The reader puts a line end in front of these texts; it must not become one more at each save.
  void ASecondHymnalSongDoesNotGrow() {
    Room room;
    room.Write(QStringLiteral("Cantor/1 A.txt"), "1. A\r\nb\r\n");
    for (int i = 0; i < 3; ++i) {
      QVERIFY(room.Open(QStringLiteral("Cantor\\1 A.txt")));
      QCOMPARE(room.Save(QStringLiteral("1 A"), {}, room.editor.Guardado().text), Outcome::Saved);
      QCOMPARE(room.Read(QStringLiteral("Cantor/1 A.txt")), QByteArray("1. A\r\nB\r\n"));
    }
  }

  void AFailedSaveChangesNothing() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Old.txt"), "Old");
    QVERIFY(room.Open(QStringLiteral("Lyrics\\Old.txt")));
    const QString text = QStringLiteral("A line of the song\r\n").repeated(400);
    {
      FullDisk full(2000);
      QCOMPARE(room.Save(QStringLiteral("Old"), {}, text), Outcome::Failed);
      QCOMPARE(room.Save(QStringLiteral("New"), {}, text), Outcome::Failed);
    }
    QCOMPARE(room.prompt.shown.size(), 2);
    QVERIFY(room.prompt.shown[0].text.startsWith(u"Could not save the file."));
    QCOMPARE(room.Songs(), QStringList(QStringLiteral("Old.txt")));
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Old.txt")), QByteArray("Old"));
    QCOMPARE(room.editor.Guardado().text, QStringLiteral("Old"));
    QCOMPARE(room.Save(QStringLiteral("New"), {}, text), Outcome::Saved);
    QCOMPARE(room.Songs(), QStringList(QStringLiteral("New.txt")));
  }

  void WhatIsNoTextIsNotEdited() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Bytes.txt"), QByteArray("a\0b", 3));
    QDir(room.Real(QStringLiteral("Lyrics"))).mkdir(QStringLiteral("Folder.txt"));
    for (const char *name : {"Lyrics\\Bytes.txt", "Lyrics\\Folder.txt", "Lyrics\\Missing.txt"})
      QVERIFY(!room.Open(QLatin1String(name)));
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Bytes.txt")), QByteArray("a\0b", 3));
  }

  void ASongInAnotherEditorIsNotOverwritten() {
    Room room;
    room.Write(QStringLiteral("Lyrics/Grace.txt"), "Old");
    room.editor.AbertoEmOutro = [](const QString &path) { return path.endsWith(u"Grace.txt"); };
    room.prompt.answers = {Yes};
    QCOMPARE(room.Save(QStringLiteral("Grace"), {}, QStringLiteral("New")), Outcome::GivenUp);
    QCOMPARE(room.prompt.shown.last().text, QStringLiteral("The editing screen for this lyrics is already open."));
    QCOMPARE(room.Read(QStringLiteral("Lyrics/Grace.txt")), QByteArray("Old"));
  }

  void ADraftIsOnDiskWithinASecond() {
    Room room;
    const SongDrafts drafts(room.app);
    FakeClock clock;
    SongDraft typed{ModoAdicionar, {}, QStringLiteral("Grace"), {}, {}, {}};
    {
      DraftKeeper keeper(drafts.Folder(), clock, [&] { return ToJson(typed); });
      // Somebody who never stops typing.
      for (int key = 0; key < 20; ++key) {
        typed.text += QStringLiteral("Ж\r\n");
        keeper.Changed();
        clock.Advance(100);
      }
      QVERIFY(!drafts.All().isEmpty());
      QVERIFY(drafts.All()[0].draft.text.size() >= typed.text.size() - 30);
      clock.Advance(1000);
      QCOMPARE(drafts.All()[0].draft, typed);
      QCOMPARE(clock.ActiveTimers(), 0);
      // What the next run finds when this one is killed now.
      const SongDrafts nextRun(room.app);
      QCOMPARE(nextRun.All().size(), 1);

      typed.text += QStringLiteral("last key");
      keeper.Changed();
    }
    QCOMPARE(drafts.All()[0].draft, typed);

    DraftKeeper next(drafts.Folder(), clock, [&] { return ToJson(typed); });
    next.Adopt(drafts.All()[0].id);
    typed.title = QStringLiteral("Another");
    next.Changed();
    clock.Advance(1000);
    QCOMPARE(drafts.All().size(), 1);
    QCOMPARE(drafts.All()[0].draft, typed);
    next.Changed();
    next.Forget();
    clock.Advance(1000);
    QVERIFY(drafts.All().isEmpty());
  }

  void ADraftKnowsWhetherItsSongHasChanged_data() {
    QTest::addColumn<QByteArray>("now"); // the song's file at the next start; null: it has gone
    QTest::addColumn<int>("later");      // seconds between the two times of the file
    QTest::addColumn<bool>("changed");
    QTest::newRow("as it was") << QByteArray("Old") << 0 << false;
    QTest::newRow("other size") << QByteArray("Older") << 0 << true;
    QTest::newRow("other time") << QByteArray("New") << 2 << true;
    QTest::newRow("gone") << QByteArray() << 0 << false;
  }
  void ADraftKnowsWhetherItsSongHasChanged() {
    QFETCH(QByteArray, now);
    QFETCH(int, later);
    QFETCH(bool, changed);
    Room room;
    const QString song = QStringLiteral("Lyrics/Grace.txt");
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    const auto write = [&](const QByteArray &bytes, const QDateTime &time) {
      QFile file(room.Real(song));
      QVERIFY(file.open(QIODevice::WriteOnly));
      file.write(bytes);
      QVERIFY(file.flush() && file.setFileTime(time, QFileDevice::FileModificationTime));
    };
    write("Old", moment);
    QVERIFY(room.Open(QStringLiteral("Lyrics\\Grace.txt")));
    const SongDrafts drafts(room.app);
    QVERIFY(drafts.Folder().Keep(DraftFolder::NewId(), ToJson({room.editor.Modo(), room.editor.Caminho(),
                                                               QStringLiteral("Grace"), QString(),
                                                               QStringLiteral("Typed"), room.editor.Arquivo()})));
    if (now.isNull())
      QVERIFY(QFile::remove(room.Real(song)));
    else
      write(now, moment.addSecs(later));

    const SongDraft found = drafts.All().value(0).draft;
    QCOMPARE(SongDrafts::SongHasChanged(found), changed);
    room.editor.SetDadosDeRascunho(found);
    QCOMPARE(room.editor.Modo(), changed ? ModoAdicionar : ModoEditar);
    room.prompt.answers = {No};
    QCOMPARE(room.Save(QStringLiteral("Grace"), {}, found.text), Outcome::Saved);
    QCOMPARE(room.prompt.shown.size(), changed ? 2 : 0);
    QCOMPARE(room.Read(song), changed ? now : QByteArray("Typed\r\n"));
  }

  void BrokenDraftsDoNoHarm() {
    Room room;
    const SongDrafts drafts(room.app);
    const QStringList ids{DraftFolder::NewId(), DraftFolder::NewId()};
    const SongDraft one{ModoEditar,      QStringLiteral("C:\\x.txt"), QStringLiteral("A"), QStringLiteral("B"),
                        Lines("l\n\nm"), {3, 1'700'000'000'000}};
    QVERIFY(drafts.Folder().Keep(ids[0], ToJson(one)));
    QVERIFY(drafts.Folder().Keep(ids[1], ToJson({})));
    for (const QByteArray &bytes : {QByteArray(), QByteArray("{\"text\":"), QByteArray("[1,2]"),
                                    QByteArray("{\"text\":3,\"title\":{}}"), QByteArray(1000, '\xff')}) {
      room.Write(QStringLiteral("Data/rascunhos/broken%1.json").arg(bytes.size()), bytes);
    }
    QDir(room.Real(QStringLiteral("Data/rascunhos"))).mkdir(QStringLiteral("folder.json"));
    const QList<SongDrafts::Found> all = drafts.All();
    QCOMPARE(all.size(), 2);
    // Kept within one millisecond, they may come in either order.
    QCOMPARE(all[all[0].id == ids[0] ? 0 : 1].draft, one);
    drafts.Folder().Drop(ids[0]);
    QCOMPARE(drafts.All().size(), 1);
    QCOMPARE(drafts.All()[0].id, ids[1]);
  }

  void ADraftThatCannotBeWrittenIsTriedAgain() {
    Room room;
    const SongDrafts drafts(room.app);
    FakeClock clock;
    const SongDraft typed{ModoAdicionar, {}, QStringLiteral("Grace"), {}, QString(5000, u'x'), {}};
    DraftKeeper keeper(drafts.Folder(), clock, [&] { return ToJson(typed); });
    QList<bool> told;
    keeper.OnKept = [&](bool kept) { told.append(kept); };
    keeper.Changed();
    {
      FullDisk full(100);
      clock.Advance(1000);
    }
    QCOMPARE(told, QList<bool>({false}));
    QVERIFY(QDir(room.Real(QStringLiteral("Data/rascunhos"))).isEmpty());
    clock.Advance(1000);
    QCOMPARE(told.last(), true);
    QCOMPARE(drafts.All().value(0).draft, typed);
  }

  void StanzasThatChangeTheSizeAreTold() {
    FixedMeasure measure;
    PaginationLayout layout;
    layout.font.sizePt = 15;
    layout.limitTwips = 5 * 24 * 15; // five lines are too many
    const SongMeasures by{layout, measure,
                          [](const QString &verse) {
                            return VerseSize{verse.contains(u"very long") ? 20.0 : 40.0, 40.0};
                          },
                          [](const QString &text) { return text.contains(u"seven") ? 10.0 : 50.0; }};
    const QString text = Lines("a\nb\n\n\n\nc\nthis is very long\nd\n\n1\n2\n3\n4\n5\n6\nseven\n8");
    using Kind = SongWarning::Kind;
    const QList<SongWarning> warnings = CheckSong(text, by);
    QCOMPARE(warnings.size(), 3);
    QCOMPARE(warnings[0].kind, Kind::SmallLine);
    QCOMPARE(warnings[0].stanza, 2);
    QVERIFY(text.sliced(warnings[0].position).startsWith(u"this is very long"));
    QCOMPARE(warnings[1].kind, Kind::SplitStanza);
    QCOMPARE(warnings[1].stanza, 3);
    QCOMPARE(warnings[1].parts, 2);
    QVERIFY(text.sliced(warnings[1].position).startsWith(u"1\r\n2"));
    QCOMPARE(warnings[2].kind, Kind::SmallSong);
    QCOMPARE(warnings[2].size.pt, 10.0);
  }
};

QTEST_GUILESS_MAIN(TestSongEditor)
#include "test_song_editor.moc"
