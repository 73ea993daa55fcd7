#include <QRegularExpression>
#include <QtTest>

#include "display/display_commands.h"
#include "support/fake_clock.h"
#include "support/recording_layers.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// A projection window with everything in it except the window.
struct Projection {
  EstadoConsole estado;
  AppFolder app{QStringLiteral("/srv/tolmira")};
  RecordingLayers layers;
  RecordingMirror mirror;
  FakeClock clock;
  QString bibleVerse, bibleReference, songVerse; // what the caption composers were given
  CaptionComposers captions{[this](const QString &verse, const QString &reference) {
                              bibleVerse = verse;
                              bibleReference = reference;
                              return QStringLiteral("bible caption");
                            },
                            [this](const QString &verse) {
                              songVerse = verse;
                              return QStringLiteral("song caption");
                            }};
  DisplayCommands commands{estado, app, layers, &mirror, captions, clock};

  QStringList Send(const QString &comando) {
    layers.journal.clear();
    commands.ProcessaComando(comando);
    return layers.journal;
  }
  void StartRamp(const QString &ms) {
    bool cancel = false;
    commands.AoNavegar(u"http://vaiacabar/?" + ms, cancel);
  }
};

QString Hidden() { return QStringLiteral("window hidden"); }
QString Shown() { return QStringLiteral("window shown"); }

} // namespace

class TestCommands : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void verbReachesItsTarget_data();
  void verbReachesItsTarget();
  void noticesRunWhereTheyAreSeen_data();
  void noticesRunWhereTheyAreSeen();
  void aNoticeGoesAboveWhereThePageHasNone_data();
  void aNoticeGoesAboveWhereThePageHasNone();
  void aNoticeGoesOnWhenItsPageIsLeft();
  void brokenNotices_data();
  void brokenNotices();
  void missingFieldSkipsOnlyItsStep();
  void commandsSurviveAPageThatIsNotThere();

  void normalTakesBlackAndPictureAway();
  void blackScreen_data();
  void blackScreen();
  void defaultPictureLiesOverTheBlack();
  void unreadableDefaultPictureLeavesTheOldOne();
  void takingThePictureAwayTakesTheBlackToo();
  void youtubeKeepsTheBlackScreenInFront();
  void closingTouchesNothingAfterwards();

  void visibilityFollowsTheCommands();
  void hiddenWindowStaysHiddenThroughText();

  void captionFollowsTheKindOfItem_data();
  void captionFollowsTheKindOfItem();
  void captionWithoutComposersIsEmpty();

  void everyNavigationOfThePageIsRefused_data();
  void everyNavigationOfThePageIsRefused();
  void imageNameReachesTheShowControl_data();
  void imageNameReachesTheShowControl();
  void endReachesTheShow();
  void rampFadesTheSoundToSilence();
  void rampIntervalComesFromTheVolume_data();
  void rampIntervalComesFromTheVolume();
  void anyCommandEndsTheRamp_data();
  void anyCommandEndsTheRamp();
  void onlyTheCameraIsPermitted();
};

void TestCommands::verbReachesItsTarget_data() {
  QTest::addColumn<QString>("comando");
  QTest::addColumn<QStringList>("calls"); // without the visibility at the end

  const auto row = [](const char *name, const QString &comando, const QStringList &calls) {
    QTest::newRow(name) << comando << calls;
  };
  const QString empty = QStringLiteral("WV: Navigate /srv/tolmira\\html\\emptyback.html 8s");

  row("theme page", QStringLiteral("CarregaTema|#file:////tmp/t\\temp.html"),
      {QStringLiteral("Picwmp hidden"), QStringLiteral("wmp: stop"), QStringLiteral("wmp: close"),
       QStringLiteral("Picwmp to back"), QStringLiteral("WV: Navigate file:////tmp/t\\temp.html 8s")});
  row("web video", QStringLiteral("YOUTUBE:|#https://video.example/embed/1?autoplay=1|#"),
      {QStringLiteral("WV: Navigate https://video.example/embed/1?autoplay=1 8s"), QStringLiteral("PicWV shown")});
  row("end of a web video", QStringLiteral("PararYoutube"), {empty});
  row("local video", QStringLiteral("Video|#/srv/v.mp4"),
      {QStringLiteral("media fitted"), QStringLiteral("wmp shown"), QStringLiteral("wmp: stretchToFit 1"),
       QStringLiteral("wmp: volume 50"), empty, QStringLiteral("Picwmp shown"), QStringLiteral("wmp shown"),
       QStringLiteral("wmp: stop"), QStringLiteral("wmp: close"), QStringLiteral("wmp: URL /srv/v.mp4"),
       QStringLiteral("wmp: play"), QStringLiteral("wmp: fullScreen 1"), QStringLiteral("PicWV to back")});
  row("reserved verb", QStringLiteral("VideoComando|#play"), {});
  row("notice", QStringLiteral("AVISO:|#Carro ABC|#top|#3|#10|#5|##000000|##ffffff|#"),
      {QStringLiteral("WV: ExibeAviso('Carro ABC','top','3','10','5','#000000','#ffffff')")});
  row("a notice is text in the script, whatever it has", QStringLiteral("AVISO:|#a'b\\'c\n\u2028|#'+x()+'|#1|#8|#11|##0|##1|#"),
      {QStringLiteral("WV: ExibeAviso('a\\'b\\\\\\'c\\n\\u2028','\\'+x()+\\'','1','8','11','#0','#1')")});
  row("notice taken away", QStringLiteral("CancelaAviso"), {QStringLiteral("WV: ExibeAviso('','','','','','','')")});
  row("style", QStringLiteral("ChangeCSS|#texto|#display|#none"),
      {QStringLiteral("WV: ChangeCSS('texto','display','none')")});
  row("next picture", QStringLiteral("GotoNextImage"), {QStringLiteral("WV: GotoNextImage()")});
  row("picture by number", QStringLiteral("GotoSlideImage|#3"), {QStringLiteral("WV: GotoSlideImage(3)")});
  row("text", QStringLiteral("UpdateText|#<b>a</b>|#|#|#a"), {QStringLiteral("WV: UpdateTextHtml('<b>a</b>')")});
  row("no text", QStringLiteral("UpdateText|#"), {QStringLiteral("WV: UpdateTextHtml('')")});
  row("text loses its line ends", QStringLiteral("UpdateText|#a\r\nb\r\n"),
      {QStringLiteral("WV: UpdateTextHtml('ab')")});
  row("pictures", QStringLiteral("UpdateImagesInHtml|#<div></div>"),
      {QStringLiteral("WV: document.getElementById('slideshow').innerHTML = <div></div>"),
       QStringLiteral("WV: StartCycle()")});
  row("the bridge does not know it", QStringLiteral("SetAttributeByClass|#a|#b|#c"), {});
  row("attribute", QStringLiteral("SetAtributo|#wheader|#style|#color:red"),
      {QStringLiteral("WV: SetAttribute('wheader','style','color:red')")});
  row("option, field behind the last", QStringLiteral("ChangeOptions|#fx|#fade|#"),
      {QStringLiteral("WV: ChangeOptions('fx','fade')")});
  row("not topmost", QStringLiteral("NoTopMost"), {QStringLiteral("topmost hidden")});
  row("show", QStringLiteral("Show"), {QStringLiteral("window shown"), QStringLiteral("topmost shown")});
  row("position is not applied", QStringLiteral("Position|#0|#0|#800|#600|#2|#"),
      {QStringLiteral("window shown"), QStringLiteral("topmost shown")});
  row("unknown", QStringLiteral("xyz"), {});
  row("another case", QStringLiteral("gotonextimage"), {});
  row("more than the verb", QStringLiteral("GotoNextImage "), {});
  row("verb without its separator", QStringLiteral("UpdateText"), {});
  row("empty", QString(), {});
}

void TestCommands::verbReachesItsTarget() {
  QFETCH(QString, comando);
  QFETCH(QStringList, calls);
  Projection p;
  QStringList journal = p.Send(comando);
  QVERIFY(!journal.isEmpty());
  QCOMPARE(journal.takeLast(), p.commands.DisplayVisivel() ? Shown() : Hidden());
  QCOMPARE(journal, calls);
}

void TestCommands::noticesRunWhereTheyAreSeen_data() {
  QTest::addColumn<QStringList>("before");
  QTest::addColumn<QString>("page");
  const QString theme = QStringLiteral("CarregaTema|#file:////tmp/temp.html");
  const QString web = QStringLiteral("YOUTUBE:|#https://video.example/embed/1|#");
  const QString video = QStringLiteral("Video|#/srv/v.mp4");
  QTest::newRow("theme") << QStringList{theme} << QStringLiteral("WV");
  QTest::newRow("empty page behind a web video") << QStringList{web, QStringLiteral("PararYoutube")} << QStringLiteral("WV");
  QTest::newRow("web video") << QStringList{theme, web} << QStringLiteral("above");
  QTest::newRow("local video") << QStringList{theme, video} << QStringLiteral("above");
  QTest::newRow("theme after a video") << QStringList{video, theme} << QStringLiteral("WV");
  QTest::newRow("one runs above already") << QStringList{video, QStringLiteral("AVISO:|#a|#top|#1|#8|#11|#|#|#"), theme}
                                          << QStringLiteral("above");
}

void TestCommands::noticesRunWhereTheyAreSeen() {
  QFETCH(QStringList, before);
  QFETCH(QString, page);
  Projection p;
  for (const QString &comando : before)
    p.Send(comando);
  QCOMPARE(p.Send(QStringLiteral("AVISO:|#b|#top|#1|#8|#11|#|#|#")).first(),
           QString(page + u": ExibeAviso('b','top','1','8','11','','')"));
  const QStringList cancelled = p.Send(QStringLiteral("CancelaAviso"));
  QCOMPARE(cancelled.contains(QStringLiteral("above: ExibeAviso('','','','','','','')")), page == u"above");
  QVERIFY(cancelled.contains(QStringLiteral("WV: ExibeAviso('','','','','','','')")));
}

// A template of the operator's own, or a page that could not be loaded and never answers.
void TestCommands::aNoticeGoesAboveWhereThePageHasNone_data() {
  QTest::addColumn<QString>("answer");
  QTest::newRow("no such function") << QStringLiteral("false");
  QTest::newRow("no answer") << QStringLiteral("null");
}

void TestCommands::aNoticeGoesAboveWhereThePageHasNone() {
  QFETCH(QString, answer);
  Projection p;
  p.layers.page.answer = answer;
  QVERIFY(p.Send(QStringLiteral("AVISO:|#b|#top|#1|#8|#11|#|#|#"))
              .contains(QStringLiteral("above: ExibeAviso('b','top','1','8','11','','')")));
}

void TestCommands::aNoticeGoesOnWhenItsPageIsLeft() {
  const QString above = QStringLiteral("above: ContinuaAviso({\"campos\":[\"a\"],\"feito\":0.5})");
  Projection p;
  const auto leave = [&p] {
    p.layers.journal.clear();
    p.commands.PaginaVaiEmbora();
    return p.layers.journal;
  };
  QVERIFY(leave().isEmpty());
  p.Send(QStringLiteral("AVISO:|#a|#top|#1|#8|#11|#|#|#"));
  p.layers.page.answer = QStringLiteral("null"); // it has ended
  QVERIFY(leave().isEmpty());
  p.layers.page.answer = QStringLiteral("true");
  p.Send(QStringLiteral("AVISO:|#a|#top|#1|#8|#11|#|#|#"));
  p.Send(QStringLiteral("CancelaAviso"));
  p.layers.page.answer = QStringLiteral("{\"campos\":[\"a\"],\"feito\":0.5}");
  QVERIFY(leave().isEmpty());
  p.layers.page.answer = QStringLiteral("true");
  p.Send(QStringLiteral("AVISO:|#a|#top|#1|#8|#11|#|#|#"));
  p.layers.page.answer = QStringLiteral("{\"campos\":[\"a\"],\"feito\":0.5}");
  QCOMPARE(leave(), QStringList{above});
  QVERIFY(leave().isEmpty()); // that page has none any more
}

void TestCommands::brokenNotices_data() {
  QTest::addColumn<QString>("comando");
  QTest::addColumn<bool>("takesAway");
  QTest::newRow("without fields") << QStringLiteral("AVISO:|#") << false;
  QTest::newRow("a field short") << QStringLiteral("AVISO:|#a|#top|#1|#8|#11|#") << false;
  QTest::newRow("the mark at the beginning of its text") << QStringLiteral("AVISO:|#|#abc|#top|#1|#8|#11|#|#|#") << true;
}

void TestCommands::brokenNotices() {
  QFETCH(QString, comando);
  QFETCH(bool, takesAway);
  Projection p;
  p.Send(QStringLiteral("Video|#/srv/v.mp4"));
  const QStringList calls = p.Send(comando).filter(QStringLiteral("ExibeAviso"));
  QCOMPARE(calls, takesAway ? QStringList{QStringLiteral("WV: ExibeAviso('','','','','','','')")} : QStringList());
  QVERIFY(!p.layers.avisoAcima);
}

void TestCommands::missingFieldSkipsOnlyItsStep() {
  Projection p;
  p.estado.TextoLegenda = QStringLiteral("old");
  QCOMPARE(p.Send(QStringLiteral("ChangeCSS|#texto|#display")), QStringList{Hidden()});
  QCOMPARE(p.Send(QStringLiteral("AVISO:|#a|#top|#1|#10|#5|##000000")), QStringList{Hidden()});

  p.estado.TipoAtual = QStringLiteral("Louvor");
  QCOMPARE(p.Send(QStringLiteral("UpdateText|#h|#|#|#")).first(), QStringLiteral("WV: UpdateTextHtml('h')"));
  QCOMPARE(p.estado.TextoLegenda, QStringLiteral("song caption"));
  p.estado.TextoLegenda = QStringLiteral("old");
  QCOMPARE(p.Send(QStringLiteral("UpdateText|#h|#")).first(), QStringLiteral("WV: UpdateTextHtml('h')"));
  QCOMPARE(p.estado.TextoLegenda, QStringLiteral("old"));
}

void TestCommands::commandsSurviveAPageThatIsNotThere() {
  Projection p;
  p.layers.hasPage = false;
  const QStringList journal = p.Send(QStringLiteral("CarregaTema|#file:////a.html"));
  QCOMPARE(journal, QStringList({QStringLiteral("Picwmp hidden"), QStringLiteral("wmp: stop"),
                                 QStringLiteral("wmp: close"), QStringLiteral("Picwmp to back"), Hidden()}));
  p.Send(QStringLiteral("Normal"));
  QVERIFY(p.commands.DisplayVisivel());
  p.Send(QStringLiteral("UpdateText|#a|#|#|#a"));
  p.Send(QStringLiteral("UpdateImagesInHtml|#a"));
}

void TestCommands::normalTakesBlackAndPictureAway() {
  Projection p;
  p.Send(QStringLiteral("PadraDeFundo|#/img/a.jpg"));
  p.Send(QStringLiteral("TelaPreta|#true"));
  const QStringList journal = p.Send(QStringLiteral("Normal"));
  QVERIFY(journal.contains(QStringLiteral("WV: ChangeCSS('texto','display','block')")));
  QVERIFY(!p.layers.telaPreta && !p.layers.imagePadrao && !p.mirror.black && !p.mirror.pictureShown);
  QVERIFY(p.layers.windowVisible);

  p.Send(QStringLiteral("TelaPreta|#true"));
  QVERIFY(p.Send(QStringLiteral("OcultarTexto")).filter(QStringLiteral("WV:")).isEmpty());
  QVERIFY(!p.layers.telaPreta);
}

void TestCommands::blackScreen_data() {
  QTest::addColumn<QString>("comando");
  QTest::addColumn<bool>("black");
  QTest::newRow("on") << QStringLiteral("TelaPreta|#true") << true;
  QTest::newRow("on in capitals") << QStringLiteral("TelaPreta|#TRUE") << true;
  QTest::newRow("one is off") << QStringLiteral("TelaPreta|#1") << false;
  QTest::newRow("nothing is off") << QStringLiteral("TelaPreta|#") << false;
  QTest::newRow("blank behind it is off") << QStringLiteral("TelaPreta|#true ") << false;
}

void TestCommands::blackScreen() {
  QFETCH(QString, comando);
  QFETCH(bool, black);
  Projection p;
  p.layers.telaPreta = !black;
  const QStringList journal = p.Send(comando);
  QCOMPARE(p.layers.telaPreta, black);
  QCOMPARE(p.mirror.black, black);
  QVERIFY(p.mirror.fits > 0);
  QVERIFY(journal.contains(QStringLiteral("grip timer stopped")));
  QCOMPARE(journal[journal.size() - 2], QStringLiteral("PicMove to front"));
  QVERIFY(p.commands.DisplayVisivel());
  if (black)
    QVERIFY(journal.lastIndexOf(QStringLiteral("PicTelaPreta to front")) >
            journal.lastIndexOf(QStringLiteral("PicTelaPreta shown")));
}

void TestCommands::defaultPictureLiesOverTheBlack() {
  Projection p;
  const QStringList journal = p.Send(QStringLiteral("PadraDeFundo|#/srv/tolmira\\Images\\a.jpg"));
  QVERIFY(p.layers.telaPreta && p.layers.imagePadrao && p.mirror.black && p.mirror.pictureShown);
  QCOMPARE(p.layers.picture, QStringLiteral("/srv/tolmira\\Images\\a.jpg"));
  QCOMPARE(p.mirror.picture, p.layers.picture);
  const auto black = journal.lastIndexOf(QStringLiteral("PicTelaPreta to front"));
  const auto picture = journal.lastIndexOf(QStringLiteral("ImagePadrao to front"));
  const auto grip = journal.lastIndexOf(QStringLiteral("PicMove to front"));
  QVERIFY(black >= 0 && black < picture && picture < grip);

  p.Send(QStringLiteral("PadraDeFundo|#"));
  QVERIFY(!p.layers.telaPreta && !p.layers.imagePadrao && !p.mirror.black && !p.mirror.pictureShown);
}

void TestCommands::unreadableDefaultPictureLeavesTheOldOne() {
  Projection p;
  p.layers.unreadable.append(QStringLiteral("/gone.jpg"));
  p.Send(QStringLiteral("PadraDeFundo|#/a.jpg"));
  p.Send(QStringLiteral("PadraDeFundo|#/gone.jpg"));
  QCOMPARE(p.layers.picture, QStringLiteral("/a.jpg"));
  QVERIFY(p.layers.imagePadrao);
}

void TestCommands::takingThePictureAwayTakesTheBlackToo() {
  Projection p;
  p.commands.DefineTelaPreta(true);
  QVERIFY(p.layers.telaPreta);
  p.commands.DefineFundoPadrao(QString());
  QVERIFY2(!p.layers.telaPreta, "taking the default picture away takes the black away too");
}

void TestCommands::youtubeKeepsTheBlackScreenInFront() {
  Projection p;
  p.Send(QStringLiteral("TelaPreta|#true"));
  const QStringList journal = p.Send(QStringLiteral("YOUTUBE:|#https://video.example/1|#"));
  QVERIFY(journal.indexOf(QStringLiteral("PicTelaPreta to front")) > journal.indexOf(QStringLiteral("PicWV shown")));
}

void TestCommands::closingTouchesNothingAfterwards() {
  Projection p;
  QCOMPARE(p.Send(QStringLiteral("Fechar")), QStringList{QStringLiteral("unloaded")});
}

void TestCommands::visibilityFollowsTheCommands() {
  Projection p;
  QVERIFY(!p.commands.DisplayVisivel());
  for (const QString &comando :
       {QStringLiteral("Normal"), QStringLiteral("OcultarTexto"), QStringLiteral("TelaPreta|#false"),
        QStringLiteral("PadraDeFundo|#"), QStringLiteral("Show"), QStringLiteral("Position|#")}) {
    p.Send(QStringLiteral("Hide"));
    QVERIFY2(!p.commands.DisplayVisivel() && !p.layers.windowVisible, qPrintable(comando));
    p.Send(comando);
    QVERIFY2(p.commands.DisplayVisivel() && p.layers.windowVisible, qPrintable(comando));
  }
}

void TestCommands::hiddenWindowStaysHiddenThroughText() {
  Projection p;
  p.Send(QStringLiteral("Show"));
  p.Send(QStringLiteral("Hide"));
  p.layers.windowVisible = true; // somebody else showed it
  p.Send(QStringLiteral("UpdateText|#a|#|#|#a"));
  QVERIFY(!p.layers.windowVisible);
  p.layers.windowVisible = true;
  p.Send(QStringLiteral("xyz"));
  QVERIFY(!p.layers.windowVisible);
}

void TestCommands::captionFollowsTheKindOfItem_data() {
  QTest::addColumn<QString>("tipo");
  QTest::addColumn<QString>("caption");
  QTest::newRow("song") << QStringLiteral("Louvor") << QStringLiteral("song caption");
  QTest::newRow("hymn") << QStringLiteral("Harpa") << QStringLiteral("song caption");
  QTest::newRow("bible") << QStringLiteral("Bíblia") << QStringLiteral("bible caption");
  QTest::newRow("slides") << QStringLiteral("Slides") << QString();
  QTest::newRow("nothing yet") << QString() << QString();
}

void TestCommands::captionFollowsTheKindOfItem() {
  QFETCH(QString, tipo);
  QFETCH(QString, caption);
  Projection p;
  p.estado.TipoAtual = tipo;
  p.estado.TextoLegenda = QStringLiteral("old");
  p.Send(QStringLiteral("UpdateText|#<p>h</p>|#two|#three|#four<br>lines"));
  QCOMPARE(p.estado.TextoLegenda, caption);
  if (caption.startsWith(u"song"))
    QCOMPARE(p.songVerse, QStringLiteral("four<br>lines"));
  if (caption.startsWith(u"bible"))
    QCOMPARE(p.bibleVerse + u'/' + p.bibleReference, QStringLiteral("two/three"));
}

void TestCommands::captionWithoutComposersIsEmpty() {
  EstadoConsole estado;
  estado.TextoLegenda = QStringLiteral("old");
  RecordingLayers layers;
  FakeClock clock;
  DisplayCommands commands(estado, AppFolder(QStringLiteral("/srv")), layers, nullptr, {}, clock);
  estado.TipoAtual = QStringLiteral("Louvor");
  commands.ProcessaComando(QStringLiteral("UpdateText|#h|#|#|#v"));
  QCOMPARE(estado.TextoLegenda, QString());
  commands.ProcessaComando(QStringLiteral("PadraDeFundo|#/a.jpg")); // without a mirror
  QVERIFY(layers.imagePadrao);
}

void TestCommands::everyNavigationOfThePageIsRefused_data() {
  QTest::addColumn<QString>("uri");
  QTest::newRow("link") << QStringLiteral("https://example.org/a?b=c");
  QTest::newRow("file") << QStringLiteral("file:///etc/passwd");
  QTest::newRow("image") << QStringLiteral("http://image/?a.jpg");
  QTest::newRow("image without a name") << QStringLiteral("http://image/");
  QTest::newRow("end without a number") << QStringLiteral("http://vaiacabar/?");
  QTest::newRow("nothing") << QString();
}

void TestCommands::everyNavigationOfThePageIsRefused() {
  QFETCH(QString, uri);
  Projection p; // and no show control is open
  bool cancel = false;
  p.commands.AoNavegar(uri, cancel);
  QVERIFY(cancel);
}

void TestCommands::imageNameReachesTheShowControl_data() {
  QTest::addColumn<QString>("uri");
  QTest::addColumn<QString>("name");
  QTest::newRow("plain") << QStringLiteral("http://image/?a.jpg") << QStringLiteral("a.jpg");
  QTest::newRow("encoded") << QStringLiteral("http://image/?Sexta%2Dfeira+%E0+noite%20(1).jpg")
                           << QStringLiteral("Sexta-feira à noite (1).jpg");
  QTest::newRow("cut at the first mark only")
      << QStringLiteral("http://image/?quem%3F.jpg?x") << QStringLiteral("quem?.jpg?x");
  QTest::newRow("empty name") << QStringLiteral("http://image/?") << QStringLiteral("");
}

void TestCommands::imageNameReachesTheShowControl() {
  QFETCH(QString, uri);
  QFETCH(QString, name);
  Projection p;
  QStringList names;
  p.commands.OnImageName = [&](const QString &n) { names.append(n); };
  bool cancel = false;
  p.commands.AoNavegar(uri, cancel);
  p.commands.AoNavegar(QStringLiteral("http://image.example/?other"), cancel);
  QCOMPARE(names, QStringList{name});
}

void TestCommands::endReachesTheShow() {
  Projection p;
  QList<int> ends;
  p.commands.OnShowEnding = [&](int ms) { ends.append(ms); };
  for (const char *ms : {"10000", "0.5", "-99999", "abc", "9e300"})
    p.StartRamp(QLatin1String(ms));
  QCOMPARE(ends, QList<int>({10000, 0, 0, 0, 24 * 60 * 60 * 1000}));
}

void TestCommands::rampFadesTheSoundToSilence() {
  Projection p;
  p.layers.player.volume = 50;
  p.layers.player.state = PlayState::Playing;
  p.StartRamp(QStringLiteral("10000"));
  p.clock.Advance(300);
  QCOMPARE(p.layers.player.volume, 49);
  p.clock.Advance(300 * 47);
  QCOMPARE(p.layers.player.volume, 2);
  p.clock.Advance(300);
  QCOMPARE(p.layers.player.volume, 1);
  p.clock.Advance(999); // from the volume 2 on, a step takes a second
  QCOMPARE(p.layers.player.volume, 1);
  p.clock.Advance(1);
  QCOMPARE(p.layers.player.volume, 0);
  QCOMPARE(p.layers.player.state, PlayState::Playing);
  p.clock.Advance(1000);
  QCOMPARE(p.layers.player.state, PlayState::Stopped);
  QCOMPARE(p.clock.ActiveTimers(), 0);
}

void TestCommands::rampIntervalComesFromTheVolume_data() {
  QTest::addColumn<int>("volume");
  QTest::addColumn<QString>("ms");
  QTest::addColumn<int>("firstStepAfter"); // 0: no ramp
  QTest::newRow("usual") << 50 << QStringLiteral("10000") << 300;
  QTest::newRow("halves to even") << 100 << QStringLiteral("250050") << 2550;
  QTest::newRow("quiet") << 10 << QStringLiteral("0") << 500;
  QTest::newRow("too quiet for a ramp") << 9 << QStringLiteral("10000") << 0;
  QTest::newRow("silent") << 0 << QStringLiteral("10000") << 0;
  QTest::newRow("no number") << 50 << QStringLiteral("abc") << 100;
  QTest::newRow("in the past") << 50 << QStringLiteral("-99999") << 0;
  QTest::newRow("beyond every clock") << 50 << QStringLiteral("9e300") << 2147483647;
}

void TestCommands::rampIntervalComesFromTheVolume() {
  QFETCH(int, volume);
  QFETCH(QString, ms);
  QFETCH(int, firstStepAfter);
  Projection p;
  p.layers.player.volume = volume;
  p.StartRamp(ms);
  QCOMPARE(p.clock.ActiveTimers(), firstStepAfter > 0 ? 1 : 0);
  if (firstStepAfter == 0) {
    p.clock.Advance(60000);
    QCOMPARE(p.layers.player.volume, volume);
    return;
  }
  p.clock.Advance(firstStepAfter - 1);
  QCOMPARE(p.layers.player.volume, volume);
  p.clock.Advance(1);
  QCOMPARE(p.layers.player.volume, volume - 1);
}

void TestCommands::anyCommandEndsTheRamp_data() {
  QTest::addColumn<QString>("comando");
  for (const QString &comando :
       {QStringLiteral("xyz"), QStringLiteral("UpdateText|#a"), QStringLiteral("VideoComando|#"),
        QStringLiteral("GotoNextImage"), QStringLiteral("Fechar")})
    QTest::newRow(qPrintable(comando)) << comando;
}

void TestCommands::anyCommandEndsTheRamp() {
  QFETCH(QString, comando);
  Projection p;
  p.StartRamp(QStringLiteral("10000"));
  p.clock.Advance(3000);
  QCOMPARE(p.layers.player.volume, 40);
  p.Send(comando);
  p.clock.Advance(60000);
  QCOMPARE(p.layers.player.volume, 40);
}

void TestCommands::onlyTheCameraIsPermitted() {
  Projection p;
  for (int kind = 0; kind < 8; ++kind) {
    int state = 7;
    p.commands.AoPermissao(kind, state);
    QCOMPARE(state, kind == 2 ? 1 : 0);
  }
}

QTEST_APPLESS_MAIN(TestCommands)
#include "test_commands.moc"
