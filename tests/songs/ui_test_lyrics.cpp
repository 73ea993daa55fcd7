#include "controls/ui/palette.h"
#include "display/page_fixture.h"
#include "display/ui/page_profile.h"
#include "songs/FrmBusca.h"
#include "songs/ui/lyrics_window.h"
#include "songs/ui/stanza_preview.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/files.h"
#include "support/fixed_measure.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/scripted_web.h"
#include "support/sites/lyrics_site.h"
#include "support/window_warnings.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The window of the web lyrics, by keys as an operator presses them.
class UiTestLyrics : public QObject {
  Q_OBJECT

private:
  struct Room {
    explicit Room(const QString &folder)
        : app(folder), store(app), positions(store, yielder), endpoints(store), fetcher(store, web) {
      for (const char *sub : {"Data", "Lyrics"}) {
        QDir(folder + u'/' + QLatin1String(sub)).removeRecursively();
        QDir(folder).mkdir(QLatin1String(sub));
      }
      const QString host = QStringLiteral("http://127.0.0.1:8080");
      PointLyricsAt(store, host);
      web.page = [host](int, const QUrl &url) {
        return QString::fromUtf8(LyricsPage(host.toUtf8(), url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority)));
      };
      estado.TemaAtual.Maiusculas = false;
      estado.TemaAtual.Font_Name = QStringLiteral("Liberation Sans");
      const auto room = [](const QString &, const AjustesTexto &) {
        SongRoom made;
        made.pagina.font.sizePt = 15;
        made.tamanhoBase = 40;
        return made;
      };
      window = std::make_unique<LyricsWindow>(
          LyricsDoors{{app, endpoints, fetcher, prompt, console, {}, [this](const QString &name) { saved = name; }},
                      {store, prompt, clock, random, yielder, measure, console, positions, estado, ajustes,
                       [] { return nullptr; }, room, NewPageProfile(), &desk}});
    }
    FrmBusca *Open(const QString &words) {
      window->AbreBusca(words);
      auto *form = desk.findChild<FrmBusca *>();
      [&] { QVERIFY(QTest::qWaitForWindowActive(form)); }();
      return form;
    }

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
    Endpoints endpoints;
    ScriptedWeb web;
    PageFetcher fetcher;
    QWidget desk;
    QString saved;
    std::unique_ptr<LyricsWindow> window;
  };
  template <typename Control> static Control *Named(QWidget *window, const char *name) {
    return window->findChild<Control *>(QLatin1String(name));
  }
  std::unique_ptr<PageFixture> m_page;

private slots:
  void initTestCase() { m_page = std::make_unique<PageFixture>(); }
  void init() { FailOnWindowWarnings(); }
  void cleanupTestCase() { m_page.reset(); }

  void ASongIsFoundCheckedAndSavedByKeysAlone() {
    Room room(m_page->appPath());
    FrmBusca *form = room.Open(QStringLiteral("luz na janela"));
    auto *list = Named<QListWidget>(form, "List1");
    auto *save = Named<QPushButton>(form, "CmdSalvar");
    auto *exists = Named<QLabel>(form, "LbJaExiste");
    auto *preview = form->findChild<StanzaPreview *>();
    QTRY_COMPARE(QApplication::focusWidget(), Named<QLineEdit>(form, "Text1"));
    QVERIFY(!preview->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!Named<QPushButton>(form, "Command1")->isEnabled());
    QVERIFY(Named<QPushButton>(form, "BtParar")->isVisible());
    QTRY_COMPARE(list->count(), 2);
    QVERIFY(Named<QPushButton>(form, "Command1")->isEnabled());
    QCOMPARE(QApplication::focusWidget(), list);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_COMPARE(Named<QLineEdit>(form, "Text3")->text(), QStringLiteral("Luz na Janela"));
    QCOMPARE(Named<QLineEdit>(form, "Text4")->text(), QStringLiteral("Coro da Vila"));
    QVERIFY(preview->isVisible());
    QVERIFY(Named<QLabel>(form, "LbTamanhoFonte")->text().startsWith(u"Tamanho da fonte: "));
    QCOMPARE(save->text(), QStringLiteral("Save"));
    QVERIFY(!exists->isVisible());

    auto *lyrics = Named<QPlainTextEdit>(form, "Text2");
    lyrics->setFocus();
    QTest::keyClicks(lyrics, QStringLiteral("Oh, "));
    QTest::keyClick(lyrics, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(ReadBytes(room.app.path() + QStringLiteral("/Lyrics/Luz na Janela (Coro da Vila).txt"))
                .startsWith("Oh, Uma luz na janela\r\nAcende o caminho\r\n\r\nFica"));
    QCOMPARE(room.saved, QStringLiteral("Luz na Janela (Coro da Vila)"));
    QCOMPARE(save->text(), QStringLiteral("Overwrite"));
    QVERIFY(exists->isVisible());
    Named<QLineEdit>(form, "Text3")->setText(QStringLiteral("Luz"));
    QCOMPARE(save->text(), QStringLiteral("Save"));
    QVERIFY(!exists->isVisible());
    Named<QPushButton>(form, "CmdAddLista")->click();
    QCOMPARE(room.console.TakeCalls(),
             QStringList(QStringLiteral("PorNaLista 2 Luz (Coro da Vila) Luz (Coro da Vila)")));
    QCOMPARE(Named<QLabel>(form, "LabelStatus")->text(), QStringLiteral("Added Luz (Coro da Vila)"));

    Named<QPushButton>(form, "CmdArtista")->click();
    QTRY_COMPARE(list->count(), 1);
    QCOMPARE(lyrics->toPlainText(), QString());
    QVERIFY(!preview->isVisible());
  }

  void WhatIsUnderWayIsStoppedOrClosed() {
    Room room(m_page->appPath());
    FrmBusca *form = room.Open(QStringLiteral("luz na janela"));
    room.web.answers = false;
    auto *search = Named<QPushButton>(form, "Command1");
    search->click();
    Named<QPushButton>(form, "BtParar")->click();
    QCOMPARE(room.web.dropped, 1);
    QVERIFY(search->isEnabled());
    QCOMPARE(Named<QLabel>(form, "LabelStatus")->text(), QStringLiteral("Stopped."));
    search->click();
    QTest::keyClick(form, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    QCOMPARE(room.web.dropped, 2);
    room.window->AbreBusca(QStringLiteral("mar"));
    QVERIFY(search->isEnabled());
    QCOMPARE(Named<QLineEdit>(form, "Text1")->text(), QStringLiteral("mar"));
  }
};

QTEST_MAIN(UiTestLyrics)
#include "ui_test_lyrics.moc"
