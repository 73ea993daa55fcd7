#include "display/page_fixture.h"
#include "display/ui/page_profile.h"
#include "foundation/real_seams.h"
#include "songs/FrmConfigFormatTexto.h"
#include "songs/FrmEditar.h"
#include "songs/FrmSobregravar.h"
#include "songs/ui/find_bar.h"
#include "songs/ui/lyrics_edit.h"
#include "songs/ui/song_editors.h"
#include "songs/ui/stanza_preview.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/web_fixture.h"
#include "support/window_warnings.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QTextBlock>
#include <QTextLayout>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

QString Lines(const char *text) {
  return QString::fromUtf8(text).replace(u'\n', QStringLiteral("\r\n"));
}

} // namespace

// The windows of the song editor, by keys as an operator presses them.
class UiTestSongEditor : public QObject {
  Q_OBJECT

private:
  class List : public SongEditorParent {
  public:
    void AtualizaLista(const QString &name) override { names.append(name); }
    QStringList names;
  };

  // A program folder with the page files; the editors stand over `desk`.
  struct Room {
    explicit Room(const QString &folder) : app(folder), store(app), positions(store, yielder) {
      QDir root(folder);
      for (const char *sub : {"Data", "Lyrics"}) {
        QDir(root.filePath(QLatin1String(sub))).removeRecursively();
        root.mkdir(QLatin1String(sub));
      }
      estado.TemaAtual.Maiusculas = false;
      estado.TemaAtual.Font_Name = QStringLiteral("Liberation Sans");
      Restart();
    }
    // As a program that was killed and started again: nobody was asked, nothing was tidied up.
    void Restart() {
      editors.reset();
      editors = std::make_unique<SongEditors>(SongEditorDoors{store, prompt, clock, random, yielder, measure, console,
                                                              positions, estado, ajustes, [] { return nullptr; },
                                                              [this](const QString &text, const AjustesTexto &) {
                                                                SongRoom room;
                                                                room.pagina.font.sizePt = 15;
                                                                room.pagina.limitTwips = linesOnScreen * 24 * 15;
                                                                room.tamanhoBase =
                                                                    text.contains(u"long line") ? 20 : 40;
                                                                return room;
                                                              },
                                                              profile, &desk},
                                              TextFormatDoors{[this] { return format; },
                                                              [this](const TextFormat &chosen) {
                                                                format = chosen;
                                                                ++applied;
                                                                return true;
                                                              }});
    }
    void Write(const QString &name, const QByteArray &bytes) { WriteBytes(app.path() + u"/Lyrics/" + name, bytes); }
    QByteArray Read(const QString &name) const { return ReadBytes(app.path() + u"/Lyrics/" + name); }
    QString PathOf(const QString &name) const { return app.path() + u"\\Lyrics\\" + name; }
    qsizetype Drafts() const { return SongDrafts(app).All().size(); }

    AppFolder app;
    IniStore store;
    CountingYielder yielder;
    FormPositions positions;
    FakeClock clock;
    ScriptedRandom random{0.5};
    ScriptedPrompt prompt;
    FixedMeasure measure;
    RecordingPresentation console;
    EstadoConsole estado;
    AjustesTexto ajustes;
    TextFormat format;
    int applied = 0;
    int linesOnScreen = 20;
    QWidget desk;
    PageProfile profile = NewPageProfile();
    List list;
    std::unique_ptr<SongEditors> editors;
  };

  // The open window of a kind that stands over the desk; null when there is none.
  template <typename Window> static Window *Opened(const Room &room) {
    const QList<Window *> found = room.desk.findChildren<Window *>(QString(), Qt::FindDirectChildrenOnly);
    for (Window *window : found)
      if (window->isVisible())
        return window;
    return nullptr;
  }
  template <typename Control> static Control *Named(QWidget *window, const char *name) {
    return window->findChild<Control *>(QLatin1String(name));
  }
  // An editor on a song of that text.
  static FrmEditar *Edit(Room &room, const QByteArray &text) {
    room.Write(QStringLiteral("Song (Me).txt"), text);
    room.editors->Edita(room.PathOf(QStringLiteral("Song (Me).txt")), &room.list);
    return Active(Opened<FrmEditar>(room));
  }
  // Keys of a window count only while it is the active one.
  static FrmEditar *Active(FrmEditar *window) {
    if (window && !QTest::qWaitForWindowActive(window))
      qWarning("the window did not become active");
    return window;
  }
  static QStringList Underlined(const LyricsEdit *box) {
    QStringList words;
    for (QTextBlock block = box->document()->begin(); block.isValid(); block = block.next())
      for (const QTextLayout::FormatRange &range : block.layout()->formats())
        if (range.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
          words.append(block.text().sliced(range.start, range.length));
    return words;
  }

private slots:
  void initTestCase() { m_page = std::make_unique<PageFixture>(); }
  void init() { FailOnWindowWarnings(); }
  void cleanupTestCase() { m_page.reset(); }

  void ANewSongByKeyboardAlone() {
    Room room(m_page->appPath());
    room.editors->Novo(&room.list);
    FrmEditar *window = Opened<FrmEditar>(room);
    QVERIFY(window);
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    QTRY_COMPARE(QApplication::focusWidget(), Named<QLineEdit>(window, "Text1"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Grace"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Newton"));
    for (int tab = 0; tab < 8 && QApplication::focusWidget() != lyrics; ++tab)
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), lyrics);
    QTest::keyClicks(lyrics, QStringLiteral("amazing"));
    for (int enter = 0; enter < 4; ++enter)
      QTest::keyClick(lyrics, Qt::Key_Return);
    QTest::keyClicks(lyrics, QStringLiteral("grace"));
    QVERIFY(window->isWindowModified());
    QTest::keyClick(lyrics, Qt::Key_S, Qt::ControlModifier);

    QCOMPARE(room.Read(QStringLiteral("Grace (Newton).txt")), QByteArray("Amazing\r\n\r\nGrace\r\n"));
    QCOMPARE(lyrics->Text(), Lines("Amazing\n\nGrace"));
    QCOMPARE(room.console.TakeCalls(),
             QStringList(QStringLiteral("ProcessaEditar Grace (Newton).txt Grace (Newton).txt")));
    QCOMPARE(room.list.names, QStringList(QStringLiteral("Grace (Newton)")));
    QVERIFY(!window->isWindowModified());
    // What saving did to the text can be taken back, too.
    QTest::keyClick(lyrics, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(lyrics->Text(), Lines("amazing\n\n\n\ngrace"));
    QTest::keyClick(lyrics, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!window->isWindowModified());
    QTest::keyClick(lyrics, Qt::Key_Escape);
    QVERIFY(!Opened<FrmEditar>(room));
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void ClosingAsks() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    QTest::keyClicks(lyrics, QStringLiteral("Two "));
    room.clock.Advance(1000);
    QCOMPARE(room.Drafts(), 1);
    room.prompt.answers = {2};
    QTest::keyClick(lyrics, Qt::Key_Escape);
    QVERIFY(window->isVisible());
    window->close(); // the box is closed
    QVERIFY(window->isVisible());
    QCOMPARE(room.prompt.shown.size(), 2);
    QCOMPARE(room.prompt.shown[0].buttons.size(), 3);

    room.prompt.answers = {1};
    window->close();
    QVERIFY(!Opened<FrmEditar>(room));
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("One"));
    QCOMPARE(room.Drafts(), 0);

    window = Edit(room, "One");
    QTest::keyClicks(Named<LyricsEdit>(window, "Text2"), QStringLiteral("Two "));
    Named<QLineEdit>(window, "Text1")->clear();
    room.prompt.answers = {0};
    window->close(); // saving is refused, so the window stays
    QVERIFY(window->isVisible());
    QCOMPARE(room.prompt.shown.last().text, QStringLiteral("Please enter the song title"));
    Named<QLineEdit>(window, "Text1")->setText(QStringLiteral("New"));
    room.prompt.answers = {0};
    window->close();
    QVERIFY(!Opened<FrmEditar>(room));
    QCOMPARE(room.Read(QStringLiteral("New (Me).txt")), QByteArray("Two One\r\n"));
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("<missing>"));
    QCOMPARE(room.console.calls.last(), QStringLiteral("ProcessaEditar Song (Me).txt New (Me).txt"));
    QCOMPARE(room.Drafts(), 0);
  }

  void WhatWasTypedSurvives() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    const QDateTime written = QFileInfo(room.app.path() + QStringLiteral("/Lyrics/Song (Me).txt")).lastModified();
    QTest::keyClicks(Named<LyricsEdit>(window, "Text2"), QStringLiteral("Two "));
    room.clock.Advance(1000);
    QTest::qWait(2); // the older draft comes first, by the time of day
    room.editors->Novo();
    for (FrmEditar *each : room.desk.findChildren<FrmEditar *>())
      if (each != window)
        Named<LyricsEdit>(each, "Text2")->TakeText(QStringLiteral("without a name"));
    room.clock.Advance(1000);
    QCOMPARE(room.Drafts(), 2);
    room.Restart();
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("One"));

    room.prompt.answers = {1, 1};
    room.editors->OfereceRascunhos();
    QCOMPARE(room.prompt.shown.value(0).text, QStringLiteral("An unsaved text of 'Song' was found. Open it?"));
    QVERIFY(!Opened<FrmEditar>(room));
    QCOMPARE(room.Drafts(), 2);
    room.Write(QStringLiteral("Song (Me).txt"), "One from elsewhere");
    room.editors->OfereceRascunhos();
    QVERIFY(room.prompt.shown.value(2).text.contains(u"The song was changed since."));
    room.Write(QStringLiteral("Song (Me).txt"), "One");
    QFile same(room.app.path() + QStringLiteral("/Lyrics/Song (Me).txt"));
    QVERIFY(same.open(QIODevice::ReadWrite) && same.setFileTime(written, QFileDevice::FileModificationTime));
    same.close();
    room.prompt.answers = {0, 2};
    room.editors->OfereceRascunhos();
    window = Active(Opened<FrmEditar>(room));
    QVERIFY(window);
    QCOMPARE(Named<LyricsEdit>(window, "Text2")->Text(), QStringLiteral("Two One"));
    QCOMPARE(room.Drafts(), 1);
    QVERIFY(window->isWindowModified());
    QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("Two One\r\n"));
    QCOMPARE(room.Drafts(), 0);
  }

  void TakingBackEverythingLeavesNoDraft() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    QTest::keyClick(lyrics, Qt::Key_X);
    room.clock.Advance(1000);
    QCOMPARE(room.Drafts(), 1);
    QTest::keyClick(lyrics, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!window->isWindowModified());
    QCOMPARE(room.Drafts(), 0);
    window->close();
    QVERIFY(room.prompt.shown.isEmpty());
  }

  void TheProgramsEndAsks() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    QTest::keyClick(Named<LyricsEdit>(window, "Text2"), Qt::Key_X);
    room.editors->Novo();
    room.prompt.answers = {2};
    QVERIFY(!room.editors->FechaTodos());
    QVERIFY(window->isVisible());
    room.prompt.answers = {0};
    QVERIFY(room.editors->FechaTodos());
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("XOne\r\n"));
    QCOMPARE(room.prompt.shown.size(), 2);
  }

  void AnEditorIsNotTakenAwayUnderItsQuestion() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    room.Write(QStringLiteral("Taken.txt"), "Taken");
    Named<QLineEdit>(window, "Text1")->setText(QStringLiteral("Taken"));
    Named<QLineEdit>(window, "Text3")->clear();
    room.prompt.whileAsking = [&] {
      QVERIFY(!room.editors->FechaTodos());
      QVERIFY(!window->close());
      Named<QPushButton>(window, "BotaoFlat1")->click();
    };
    Named<QPushButton>(window, "BotaoFlat1")->click();
    QCOMPARE(room.prompt.shown.size(), 1);
    QVERIFY(window->isVisible());
    room.prompt.answers = {1};
    QVERIFY(room.editors->FechaTodos());
  }

  void OneEditorASong() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "One");
    room.Write(QStringLiteral("Other.txt"), "Other");
    QVERIFY(room.editors->EstaAberto(room.app.path() + u"/lyrics/song (me).TXT"));
    QVERIFY(!room.editors->AbertoEmOutra(room.PathOf(QStringLiteral("Song (Me).txt"))));
    QVERIFY(room.editors->AbertoEmOutra(room.PathOf(QStringLiteral("Other.txt"))));
    QVERIFY(room.editors->Edita(room.PathOf(QStringLiteral("Song (Me).txt"))));
    QCOMPARE(room.desk.findChildren<FrmEditar *>().size(), 1);
    QVERIFY(!room.editors->Edita(room.PathOf(QStringLiteral("Missing.txt"))));
    QCOMPARE(room.desk.findChildren<FrmEditar *>().size(), 1);
    window->close();
    QVERIFY(!room.editors->EstaAberto(room.PathOf(QStringLiteral("Song (Me).txt"))));
  }

  void TheBoxKeepsEveryCharacter() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "A\xA0"
                                   "b\tc \x93quoted\x94\r\nD\r\n");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    QCOMPARE(lyrics->Text(), Lines("A\u00A0b\tc “quoted”\nD"));
    lyrics->GoTo(6);
    QCOMPARE(lyrics->Caret(), 6);
    lyrics->GoTo(lyrics->Text().size());
    QCOMPARE(lyrics->Caret(), lyrics->Text().size());
    QTest::keyClick(lyrics, Qt::Key_X);
    QTest::keyClick(lyrics, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(room.Read(QStringLiteral("Song (Me).txt")), QByteArray("A\xA0"
                                                                    "b\tc \x93quoted\x94\r\nDx\r\n"));
  }

  void FindAndReplace() {
    Room room(m_page->appPath());
    FrmEditar *window = Edit(room, "Holy is he\r\nHoly, HOLY\r\n\r\nWholly his");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    const QString before = lyrics->Text();
    QTest::keyClick(lyrics, Qt::Key_H, Qt::ControlModifier);
    auto *find = Named<QLineEdit>(window, "TxtLocalizar");
    QTRY_COMPARE(QApplication::focusWidget(), find);
    QTest::keyClicks(find, QStringLiteral("holy"));
    const auto *state = Named<QLabel>(window, "LbLocalizar");
    QCOMPARE(state->text(), QStringLiteral("Found 3 times."));
    QTest::keyClick(find, Qt::Key_Return);
    QTest::keyClick(find, Qt::Key_F3);
    QCOMPARE(lyrics->textCursor().selectionStart(), 11);
    QTest::keyClick(find, Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(find, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(lyrics->textCursor().selectedText(), QStringLiteral("HOLY")); // round the beginning

    auto *with = Named<QLineEdit>(window, "TxtSubstituir");
    with->setText(QStringLiteral("holy holy"));
    QTest::keyClick(with, Qt::Key_Return);
    QCOMPARE(lyrics->Text(), Lines("Holy is he\nHoly, holy holy\n\nWholly his"));
    Named<QCheckBox>(window, "ChkCaixa")->setChecked(true);
    Named<QPushButton>(window, "BtSubstituirTudo")->click();
    QCOMPARE(state->text(), QStringLiteral("Replaced: 2."));
    QCOMPARE(lyrics->Text(), Lines("Holy is he\nHoly, holy holy holy holy\n\nWholly his"));
    lyrics->undo();
    lyrics->undo();
    QCOMPARE(lyrics->Text(), before);

    QTest::keyClick(find, Qt::Key_Escape);
    QVERIFY(!Named<FindBar>(window, "PicLocalizar")->isVisible());
    QVERIFY(window->isVisible());
    QVERIFY(lyrics->extraSelections().isEmpty());
  }

  void TheStanzaAtTheCaretIsInThePage() {
    Room room(m_page->appPath());
    room.estado.TemaAtual.CordeFundo = 0x0000ff; // red
    FrmEditar *window = Edit(room, "First one\r\nIt's here\r\n\r\nSecond one");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    auto *preview = Named<StanzaPreview>(window, "PicPreview");
    const auto shown = [&](const QString &text) {
      return Eval(preview->WV(), QStringLiteral("document.getElementById('texto') ? "
                                                "document.getElementById('texto').innerText.trim().split(/\\s*\\n\\s*/)"
                                                ".join('/') : ''")) == u'"' + text + u'"';
    };
    QTRY_VERIFY_WITH_TIMEOUT(shown(QStringLiteral("First one/It's here")), 20000);
    QCOMPARE(Named<QLabel>(window, "LbTamanhoFonte")->text(), QStringLiteral("Font size: 52"));
    lyrics->GoTo(lyrics->Text().size());
    QTest::keyClicks(lyrics, QStringLiteral(" & <more>"));
    room.clock.Advance(500);
    QCOMPARE(Named<QLabel>(window, "LbEstrofe")->text(), QStringLiteral("Stanza 2 of 2"));
    QTRY_VERIFY_WITH_TIMEOUT(shown(QStringLiteral("Second one & more")), 20000);
    QCOMPARE(
        Eval(preview->WV(), QStringLiteral("getComputedStyle(document.getElementById('wheader')).backgroundColor")),
        QStringLiteral("\"rgb(255, 0, 0)\""));
    QVERIFY(room.console.calls.isEmpty());
  }

  void WarningsLeadToTheirPlace() {
    Room room(m_page->appPath());
    room.linesOnScreen = 4;
    FrmEditar *window = Edit(room, "A\r\nB\r\n\r\nC\r\nD\r\nE\r\nF\r\nG\r\nH\r\nI\r\nLong");
    auto *lyrics = Named<LyricsEdit>(window, "Text2");
    auto *warnings = Named<QListWidget>(window, "ListAvisos");
    QCOMPARE(warnings->count(), 1);
    QCOMPARE(warnings->item(0)->text(),
             QStringLiteral("Stanza 2 is too tall for one screen and will be split into 4 verses."));
    warnings->setFocus();
    warnings->setCurrentRow(0);
    QTest::keyClick(warnings, Qt::Key_Return);
    QCOMPARE(lyrics->Caret(), 8);
    QCOMPARE(lyrics->extraSelections().size(), 1);

    lyrics->TakeText(Lines("A\n\nThis is a long line"));
    room.clock.Advance(500);
    QCOMPARE(warnings->count(), 1);
    QCOMPARE(warnings->item(0)->text(),
             QStringLiteral("Stanza 2 is so long that the whole song gets smaller: size 20 instead of 40."));
    lyrics->TakeText(QStringLiteral("A"));
    room.clock.Advance(500);
    QVERIFY(!warnings->isVisible());
  }

  void WrongWordsAreUnderlined() {
    QTemporaryDir folder;
    const auto write = [&](const QString &name, const QByteArray &bytes) {
      WriteBytes(folder.filePath(name), bytes);
    };
    write(QStringLiteral("en_US.aff"), "SET UTF-8\nTRY esianrtolcdugmphbyfvkwz\n");
    write(QStringLiteral("en_US.dic"), "4\namazing\ngrace\nhow\nsweet\n");
    write(QStringLiteral("pt_BR.aff"), "SET ISO8859-1\nTRY aeiou\n");
    write(QStringLiteral("pt_BR.dic"), "3\ngra\xE7"
                                       "a\nque\nsalva\n");
    write(QStringLiteral("xx.dic"), "1\nwithout-aff\n");
    const QList<SpellingDictionary> dictionaries = InstalledDictionaries({folder.path(), folder.path()});
    QCOMPARE(dictionaries.size(), 2);

    Spelling spelling(dictionaries);
    LyricsEdit box(spelling, nullptr);
    box.Load(Lines("Amazing graec\nhow sweet"));
    box.show();
    QVERIFY(Underlined(&box).isEmpty());
    spelling.ChooseFor(box.Text());
    QTRY_COMPARE(Underlined(&box), QStringList(QStringLiteral("graec")));
    QCOMPARE(spelling.Language(), QStringLiteral("en_US"));
    QVERIFY(!box.document()->isUndoAvailable());

    QTextCursor caret = box.textCursor();
    caret.setPosition(9);
    box.setTextCursor(caret);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&box, &menuKey);
    const QPointer<QMenu> menu = box.findChild<QMenu *>(QStringLiteral("MnTexto"));
    QVERIFY(menu);
    QTRY_COMPARE(menu->actions().value(0)->text(), QStringLiteral("grace"));
    menu->actions().value(0)->trigger();
    delete menu.data();
    QTRY_VERIFY(Underlined(&box).isEmpty());
    QCOMPARE(box.Text(), Lines("Amazing grace\nhow sweet"));
    box.undo();
    QTRY_COMPARE(Underlined(&box), QStringList(QStringLiteral("graec")));
    spelling.Accept(QStringLiteral("graec"));
    QVERIFY(Underlined(&box).isEmpty());

    spelling.ChooseFor(Lines("Graça que\nsalva"));
    QTRY_COMPARE(spelling.Language(), QStringLiteral("pt_BR"));
    box.Load(Lines("A graça que salva, Grace"));
    QTRY_COMPARE(Underlined(&box), QStringList({QStringLiteral("A"), QStringLiteral("Grace")}));
    spelling.SetLanguage({});
    QVERIFY(Underlined(&box).isEmpty());
  }

  void TheOptionsOfTheTextHoldAfterOk() {
    Room room(m_page->appPath());
    room.editors->AbreFormato();
    auto *options = Opened<FrmConfigFormatTexto>(room);
    QVERIFY(options);
    auto *capitals = Named<QCheckBox>(options, "ChkMaiusculas");
    QVERIFY(capitals->isChecked());
    QTest::keyClick(capitals, Qt::Key_Space);
    Named<QSlider>(options, "SliderEstilo")->setValue(2);
    QTest::keyClick(options, Qt::Key_Escape);
    QVERIFY(!options->isVisible());
    QCOMPARE(room.applied, 0);
    room.editors->AbreFormato();
    QVERIFY(capitals->isChecked());
    QTest::keyClick(capitals, Qt::Key_Space);
    QTest::keyClick(options, Qt::Key_Return);
    QCOMPARE(room.format, (TextFormat{false, 4}));
    QCOMPARE(room.applied, 1);
  }

  void AnExistingFileHasThreeAnswers_data() {
    QTest::addColumn<int>("tabs");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("answer");
    QTest::newRow("Enter") << 0 << int(Qt::Key_Return) << QStringLiteral("ManterOsDois");
    QTest::newRow("second button") << 1 << int(Qt::Key_Space) << QStringLiteral("Sobregravar");
    QTest::newRow("third button") << 2 << int(Qt::Key_Space) << QStringLiteral("Cancelar");
    QTest::newRow("closed") << 0 << int(Qt::Key_Escape) << QStringLiteral("Cancelar");
  }
  void AnExistingFileHasThreeAnswers() {
    QFETCH(int, tabs);
    QFETCH(int, key);
    FrmSobregravar box(QStringLiteral("Lake & <b>hills</b>.jpg"), nullptr);
    box.show();
    QTRY_VERIFY(box.focusWidget());
    for (int i = 0; i < tabs; ++i)
      QTest::keyClick(&box, Qt::Key_Tab);
    QTest::keyClick(box.focusWidget(), static_cast<Qt::Key>(key));
    QVERIFY(!box.isVisible());
    QTEST(box.Resposta(), "answer");
  }

private:
  std::unique_ptr<PageFixture> m_page;
};

QTEST_MAIN(UiTestSongEditor)
#include "ui_test_song_editor.moc"
