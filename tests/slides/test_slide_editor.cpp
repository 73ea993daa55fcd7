#include "slides/slide_editor.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/scripted_prompt.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

struct Room {
  Room() {
    QDir(dir.path()).mkdir(QStringLiteral("Slides"));
    QDir(dir.path()).mkdir(QStringLiteral("Data"));
    editor.Salvou = [this](const QString &oldName, const QString &newName) { told = oldName + u" -> " + newName; };
  }
  QString File(const QString &name) const { return dir.filePath(QStringLiteral("Slides/") + name); }
  void Document(const QString &name, const char *title) {
    WriteBytes(File(name), QByteArray("[Config]\r\nCount=1\r\nImagem1=a.jpg\r\nTitulo1=") + title + "\r\n");
  }
  QStringList Files() const { return QDir(File({})).entryList(QDir::Files, QDir::Name); }
  QString TitleIn(const QString &name) const { return LoadSlideNew(File(name)).slides.value(0).Titulo; }

  QTemporaryDir dir;
  AppFolder app{dir.path()};
  ScriptedPrompt prompt;
  SlideEditor editor{app, prompt};
  QString told;
};

QStringList Titles(const SlideEditor &editor) {
  QStringList titles;
  for (const Slide &slide : editor.Documento().slides)
    titles.append(slide.Titulo);
  return titles;
}

} // namespace

class TestSlideEditor : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  // The folder holds "Old.sld" and "Other.sld"; the editor's title is "New".
  void namesADocument_data() {
    QTest::addColumn<QString>("opened"); // empty: a new document
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message"); // empty: saved
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("told");
    const QString old = QStringLiteral("Old.sld");
    const QStringList both{QStringLiteral("Old.sld"), QStringLiteral("Other.sld")};
    const auto taken = [](const char *name) {
      return QStringLiteral("A Slide with this name already exists in your collection.\n\n%1\n\nEnter another name for "
                            "the file.")
          .arg(QLatin1String(name));
    };
    const auto row = [](const char *what, const QString &opened, const char *name, const QString &message,
                        const QStringList &files, const QString &told) {
      QTest::newRow(what) << opened << QString::fromUtf8(name) << message << files << told;
    };
    row("no name", {}, "   ", QStringLiteral("Enter a name for the file."), both, {});
    row("a new one", {}, " Ação 1 ", {}, both + QStringList(QStringLiteral("Ação 1.sld")),
        QStringLiteral(" -> Ação 1.sld"));
    row("a new one onto another", {}, "Other", taken("Other"), both, {});
    row("a new one onto another in other case", {}, "oTHER", taken("oTHER"), both, {});
    row("under its own name", old, "Old", {}, both, QStringLiteral("Old.sld -> Old.sld"));
    row("its own name in other case", old, "OLD", {}, {QStringLiteral("OLD.sld"), QStringLiteral("Other.sld")},
        QStringLiteral("Old.sld -> OLD.sld"));
    row("renamed", old, "Fresh", {}, {QStringLiteral("Fresh.sld"), QStringLiteral("Other.sld")},
        QStringLiteral("Old.sld -> Fresh.sld"));
    row("renamed onto another", old, "Other", taken("Other"), both, {});
    row("no name for a file", old, "a/b?",
        QStringLiteral("The name becomes the name of a file, which cannot hold  /  ?"), both, {});
  }
  void namesADocument() {
    QFETCH(QString, opened);
    QFETCH(QString, name);
    QFETCH(QString, message);
    QFETCH(QStringList, files);
    Room room;
    room.Document(QStringLiteral("Old.sld"), "Old");
    room.Document(QStringLiteral("Other.sld"), "Other");
    QVERIFY(room.editor.LoadSlide(opened.isEmpty() ? QString() : room.app.At(u"\\Slides\\") + opened));
    const QString before = room.editor.Path();
    if (opened.isEmpty())
      room.editor.AddImage(QStringLiteral("b.jpg"));
    room.editor.DefineTitulo(QStringLiteral("New"));
    room.editor.nome = name;
    QCOMPARE(room.editor.SalvarSlide(), message.isEmpty());
    QCOMPARE(room.prompt.TakeTexts(), message.isEmpty() ? QStringList() : QStringList(message));
    files.sort();
    QCOMPARE(room.Files(), files);
    QTEST(room.told, "told");
    if (message.isEmpty()) {
      QCOMPARE(room.TitleIn(name.trimmed() + u".sld"), QStringLiteral("New"));
      QVERIFY(!room.editor.Alterado());
    } else { // nothing has happened to anything
      QCOMPARE(room.editor.Path(), before);
      QVERIFY(room.editor.Alterado());
      QCOMPARE(room.TitleIn(QStringLiteral("Old.sld")), QStringLiteral("Old"));
    }
    QCOMPARE(room.TitleIn(QStringLiteral("Other.sld")), QStringLiteral("Other"));
  }

  void twoFilesThatDifferByCaseAreTwoDocuments() {
    Room room;
    room.Document(QStringLiteral("song.sld"), "one");
    room.Document(QStringLiteral("Song.sld"), "two");
    QVERIFY(room.editor.LoadSlide(room.app.At(u"\\Slides\\song.sld")));
    room.editor.nome = QStringLiteral("Song");
    QVERIFY(!room.editor.SalvarSlide());
    QCOMPARE(room.TitleIn(QStringLiteral("Song.sld")), QStringLiteral("two"));
  }

  // Made on another system, and opened by an agenda that spells it in its own way.
  void aDocumentKeepsTheNameThatItHas_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("opened");
    QTest::newRow("other case") << QStringLiteral("Old.sld") << QStringLiteral("oLD.sld");
    QTest::newRow("a character that no name may have") << QStringLiteral("Who?.sld") << QStringLiteral("Who?.sld");
    QTest::newRow("blanks around it") << QStringLiteral(" Old .sld") << QStringLiteral(" Old .sld");
  }
  void aDocumentKeepsTheNameThatItHas() {
    QFETCH(QString, name);
    QFETCH(QString, opened);
    Room room;
    room.Document(name, "Old");
    QVERIFY(room.editor.LoadSlide(room.app.At(u"\\Slides\\") + opened));
    QVERIFY(!room.editor.Alterado());
    room.editor.DefineTitulo(QStringLiteral("New"));
    QVERIFY(room.editor.SalvarSlide());
    QCOMPARE(room.prompt.TakeTexts(), QStringList());
    QCOMPARE(room.Files(), QStringList(name));
    QCOMPARE(room.TitleIn(name), QStringLiteral("New"));
    QCOMPARE(room.told, QString(name + u" -> " + name));
    QVERIFY(!room.editor.Alterado());
  }

  void whatSomebodyElseSavedIsNotOverwrittenUnasked_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("under its name") << QStringLiteral("Old");
    QTest::newRow("renamed") << QStringLiteral("Fresh");
  }
  void whatSomebodyElseSavedIsNotOverwrittenUnasked() {
    QFETCH(QString, name);
    Room room;
    room.Document(QStringLiteral("Old.sld"), "Old");
    QVERIFY(room.editor.LoadSlide(room.app.At(u"\\Slides\\Old.sld")));
    room.editor.DefineTitulo(QStringLiteral("Mine"));
    room.Document(QStringLiteral("Old.sld"), "Somebody else's");
    room.editor.nome = name;
    room.prompt.answers = {1, 0};
    QVERIFY(!room.editor.SalvarSlide());
    QCOMPARE(room.Files(), QStringList(QStringLiteral("Old.sld")));
    QCOMPARE(room.TitleIn(QStringLiteral("Old.sld")), QStringLiteral("Somebody else's"));
    QVERIFY(room.editor.Alterado());
    QVERIFY(room.editor.SalvarSlide());
    QVERIFY(room.editor.SalvarSlide()); // its own writing is no change
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList(2, QStringLiteral("The file of these slides was changed since.\nDo you want to overwrite?")));
    QCOMPARE(room.Files(), QStringList(QString(name + u".sld")));
    QCOMPARE(room.TitleIn(name + u".sld"), QStringLiteral("Mine"));
  }

  void anEmptyDocumentIsNotSaved() {
    Room room;
    room.Document(QStringLiteral("Old.sld"), "Old");
    QVERIFY(room.editor.LoadSlide(room.app.At(u"\\Slides\\Old.sld")));
    room.editor.RemoveSlide(1);
    QVERIFY(!room.editor.SalvarSlide());
    QCOMPARE(room.prompt.TakeTexts(),
             QStringList(QStringLiteral("Click 'Add image' to add the first slide.\nYou need to "
                                        "add at least 1 slide to save the file.")));
    QCOMPARE(room.TitleIn(QStringLiteral("Old.sld")), QStringLiteral("Old"));
  }

  void whatCannotBeReadIsNotOpened() {
    Room room;
    WriteBytes(room.File(QStringLiteral("bad.sld")), QByteArray("[Config]\r\nCount=1\r\n\0\0", 21));
    QVERIFY(!room.editor.LoadSlide(room.app.At(u"\\Slides\\bad.sld")));
    QVERIFY(!room.editor.LoadSlide(room.app.At(u"\\Slides\\none.sld")));
  }

  void changesAreTakenBackAndMadeAgain() {
    Room room;
    SlideEditor &editor = room.editor;
    QVERIFY(editor.LoadSlide({}));
    for (const char *name : {"a.jpg", "b.jpg", "c.jpg"}) {
      editor.AddImage(QLatin1String(name));
      editor.DefineTitulo(QLatin1String(name).left(1));
    }
    // Letter by letter, as the box tells it: "two words", then the last letter away.
    const QString typed = QStringLiteral("two words");
    for (qsizetype i = 1; i <= typed.size(); ++i)
      editor.DefineTexto(typed.left(i));
    editor.DefineTexto(typed.chopped(1));
    editor.SelecionaSlide(1);
    editor.MoveSlide(1, 3);
    for (const int size : {5, 6, 7}) // a slider on its way
      editor.DefineFontSize(static_cast<qint16>(size));
    QCOMPARE(Titles(editor), QStringList({QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")}));

    editor.Desfaz();
    QCOMPARE(editor.Documento().Em(3).FontSize, qint16(4));
    editor.Desfaz();
    QCOMPARE(Titles(editor), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(editor.Indice(), 1);
    QStringList texts;
    for (int i = 0; i < 3; ++i) {
      editor.Desfaz();
      QCOMPARE(editor.Indice(), 3); // where the change was
      texts.append(editor.Documento().Em(3).Texto);
    }
    QCOMPARE(texts, QStringList({typed, QStringLiteral("two"), QString()}));
    editor.Refaz();
    editor.Refaz();
    QCOMPARE(editor.Documento().Em(3).Texto, typed);

    // Each click is a step, and a slider that was put back where it stood is none.
    for (const qint16 alignment : {AlinhamentoCentrado, qint16(0)})
      editor.DefineAlinhamento(alignment);
    editor.Desfaz();
    QCOMPARE(editor.Documento().Em(editor.Indice()).Alinhamento, AlinhamentoCentrado);
    for (const int size : {5, 4})
      editor.DefineFontSize(static_cast<qint16>(size));
    editor.Desfaz();
    QCOMPARE(editor.Documento().Em(editor.Indice()).Alinhamento, qint16(0));

    // A new change ends what could be made again, and all of it can be taken back to where it began.
    editor.RemoveSlide(3);
    QVERIFY(!editor.PodeRefazer());
    while (editor.PodeDesfazer())
      editor.Desfaz();
    QCOMPARE(editor.Documento().Count(), 0);
    QVERIFY(!editor.Alterado());
  }

  void textsEndWhereTheFileWouldCutThem() {
    const QString full(MaiorTextoDeSlide, u'x');
    Room room;
    SlideEditor &editor = room.editor;
    QVERIFY(editor.LoadSlide({}));
    editor.AddImage(QStringLiteral("a.jpg"));
    editor.DefineTexto(full.chopped(3));
    // Pasted into the middle: what stood behind it stays.
    editor.DefineTexto(full.left(10) + QStringLiteral("1\n2345") + full.mid(13));
    QCOMPARE(editor.Documento().Em(1).Texto, full.left(10) + QStringLiteral("1\r\n") + full.mid(13));
    editor.DefineTexto(editor.Documento().Em(1).Texto + u'y');
    QCOMPARE(editor.Documento().Em(1).Texto.size(), MaiorTextoDeSlide);
    editor.nome = QStringLiteral("Long");
    QVERIFY(editor.SalvarSlide());
    QCOMPARE(LoadSlideNew(room.File(QStringLiteral("Long.sld"))).Em(1).Texto, editor.Documento().Em(1).Texto);
  }

  void aTemplateIsWhereNewDocumentsBegin() {
    Room room;
    SlideEditor &editor = room.editor;
    room.Document(QStringLiteral("Old.sld"), "Old");
    QVERIFY(editor.LoadSlide(room.app.At(u"\\Slides\\Old.sld")));
    TemaRecord visual = editor.Documento().visual;
    visual.Font_Name = QStringLiteral("Liberation Serif");
    visual.Maiusculas = true;
    editor.DefineVisual(visual);
    editor.DefineIntervalo(3);
    QVERIFY(editor.SalvarModelo());
    QCOMPARE(LoadSlideNew(room.File(QStringLiteral("template.tp"))).Count(), 1);

    // A new document: saving it leaves the template and the document that it was made of alone.
    QCOMPARE(editor.Path(), QString());
    QCOMPARE(editor.nome, QString());
    QCOMPARE(editor.Documento().Count(), 0);
    QVERIFY(!editor.Alterado());
    editor.AddImage(QStringLiteral("n.jpg"));
    editor.nome = QStringLiteral("Next");
    QVERIFY(editor.SalvarSlide());
    QCOMPARE(room.Files(),
             QStringList({QStringLiteral("Next.sld"), QStringLiteral("Old.sld"), QStringLiteral("template.tp")}));
    const SlideDocument next = LoadSlideNew(room.File(QStringLiteral("Next.sld")));
    QCOMPARE(next.visual.Font_Name, QStringLiteral("Liberation Serif"));
    QVERIFY(next.visual.Maiusculas);
    QCOMPARE(next.Intervalo, 3);
    QCOMPARE(next.Em(1).FontSize, qint16(4));
  }

  void aDraftSurvives_data() {
    QTest::addColumn<bool>("changed"); // the document's file, before the next start
    QTest::newRow("the file is as it was") << false;
    QTest::newRow("the file was changed") << true;
  }
  void aDraftSurvives() {
    QFETCH(bool, changed);
    Room room;
    room.Document(QStringLiteral("Old.sld"), "Old");
    FakeClock clock;
    const DraftFolder folder(room.app);
    SlideDraft typed;
    {
      SlideEditor &editor = room.editor;
      DraftKeeper keeper(folder, clock, [&] { return ToJson(editor.Draft()); });
      QVERIFY(editor.LoadSlide(room.app.At(u"\\Slides\\Old.sld")));
      editor.AddImage(QStringLiteral("ж'.jpg"));
      editor.DefineTexto(QStringLiteral("one\ntwo"));
      TemaRecord visual = editor.Documento().visual;
      visual.FontBorda_Cor = QStringLiteral("255"); // a file would lose it
      editor.DefineVisual(visual);
      typed = editor.Draft();
      keeper.Changed();
      clock.Advance(1000);
    }
    if (changed)
      room.Document(QStringLiteral("Old.sld"), "Somebody else's");

    const QList<DraftFolder::Found> found = folder.All();
    QCOMPARE(found.size(), 1);
    const std::optional<SlideDraft> draft = SlideDraftFrom(found[0].draft);
    QVERIFY(draft);
    QCOMPARE(*draft, typed);
    SlideEditor next(room.app, room.prompt);
    next.LoadDraft(*draft);
    QCOMPARE(next.Documento(), typed.documento);
    QVERIFY(next.Alterado());
    QCOMPARE(next.SalvarSlide(), !changed); // not over what somebody saved since
    QCOMPARE(room.TitleIn(QStringLiteral("Old.sld")),
             changed ? QStringLiteral("Somebody else's") : QStringLiteral("Old"));
  }
};

QTEST_GUILESS_MAIN(TestSlideEditor)
#include "test_slide_editor.moc"
