#include "page_fixture.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

using tolmira::testing::PageFixture;

namespace {

const QString Imagem = QStringLiteral("imagem.html");
const QString Video = QStringLiteral("video.html");
const QString BackColor = QStringLiteral("backcolor.html");

// A verse as the composer sends it in the styles with one band; lines joined by "<br>".
QString Band(const QString &lines, const QString &effect = {}) {
  return u"UpdateTextHtml('<div class=\\'textbackground \\' style=\\'line-height:1.5;\\'><div "
         u"class=\\'textbackgroundDiv " %
         effect %
         u"\\' style=\\'font-size:1.3em; background-color:rgb(0,0,0,0.6); min-width: 80%; border-radius: 1.6vw; \\'>" %
         lines % u"</div></div>')";
}

} // namespace

// The pages against the real engine: what the program calls and what it can see of the result.
class PagesTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase();
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void everyPageAnswersTheProgram_data();
  void everyPageAnswersTheProgram();
  void emptyPageIsBlackAndTakesCalls();
  void markerWordShowsNothing();
  void textOfTheCodePageIsRead();
  void apostrophesAndMarkupArrive();
  void initialCommandRunsAfterThePicturesBegan();
  void hiddenTextStaysHidden();
  void textEntranceMoves_data();
  void textEntranceMoves();
  void entranceDoesNotMoveTheLayout();
  void nextVerseStandsWhereTheLastStood();
  void baseSizeSurvivesAlignmentAndStyle();
  void classNamesAreTakenWhereNoElementHasTheId();
  void lonePictureIsShown();
  void everyPictureEffectEndsOnTheNextPicture_data();
  void everyPictureEffectEndsOnTheNextPicture();
  void severalEffectsAndUnknownOnes();
  void pictureFillsAWindowThatWasResized();
  void newPicturesBegin();
  void intervalRunsTheCycle();
  void easingWithAndWithoutQuotes_data();
  void easingWithAndWithoutQuotes();
  void brokenPictureLeavesBlack();
  void onlyPicturesNearTheOneOnShowAreRead();
  void neutralFilterCostsNothing();
  void movementIsSwitched();
  void flatColour();
  void videoIsShown();
  void missingVideoLeavesBlack();
  void bandsOfAnimatedLayoutsTakeTheAlpha();
  void aFadeAndAZoomComeOnTop();
  void noticeRunsAndLeaves();
  void noticesCrawlAtOneSpeed_data();
  void noticesCrawlAtOneSpeed();
  void noticesStandOverEverything_data();
  void noticesStandOverEverything();
  void noticesCrawlWhileThePageIsBusy();
  void noticesKeepTheirPlaceOnAnotherScreen();
  void aNoticeGoesOnOnAnotherPage();
  void thePageOfNoticesTellsOfTheEnd();
  void noticeIsTakenAway();

private:
  std::unique_ptr<PageFixture> m_page;
  QString m_red, m_green, m_blue;
};

void PagesTest::initTestCase() {
  m_page = std::make_unique<PageFixture>();
  QVERIFY2(m_page->hasLibraries(), "the page libraries are missing: run npm ci");
  m_red = m_page->MakePicture(QStringLiteral("red.png"), Qt::red);
  m_green = m_page->MakePicture(QStringLiteral("green field.png"), Qt::green);
  m_blue = m_page->MakePicture(QStringLiteral("blue.png"), Qt::blue);
}

void PagesTest::everyPageAnswersTheProgram_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("pictures") << Imagem;
  QTest::newRow("video") << Video;
  QTest::newRow("colour") << BackColor;
}

void PagesTest::everyPageAnswersTheProgram() {
  QFETCH(QString, name);
  QVERIFY(m_page->Load(name, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_blue})}}));
  const QStringList calls{
      QStringLiteral("UpdateTextHtml('x')"),
      QStringLiteral("ChangeCSS('texto','display','block')"),
      QStringLiteral("SetAttribute('texto','style','color:red')"),
      QStringLiteral("SetAttributeByClass('textoContainer','style','justify-content: center')"),
      QStringLiteral("ChangeOptions('fx','fade')"),
      QStringLiteral("ChangeOptions('timeout','')"),
      QStringLiteral("GotoSlideImage(0)"),
      QStringLiteral("GotoNextImage()"),
      QStringLiteral("StartCycle()"),
      QStringLiteral("ExibeAviso('a','top','1','8','11','#ff0000','#ffffff')"),
      QStringLiteral("ExibeAviso('','','','','','','')"),
      QStringLiteral("ApplyTransparency('0.5')"),
      QStringLiteral("$('.slideshow').cycle(1)"),
      // Names of nothing are no error: the program does not know which page is up.
      QStringLiteral("ChangeCSS('nobody','display','none')"),
      QStringLiteral("SetAttribute('nobody','style','x')"),
      QStringLiteral("SetAttributeByClass('nobody','style','x')"),
      QStringLiteral("GotoSlideImage(99)"),
  };
  for (const QString &call : calls)
    QCOMPARE(m_page->Eval(u"try{" + call + u";'ok'}catch(e){String(e)}").toString(), QStringLiteral("ok"));
  for (const char *id : {"texto", "set_text"})
    QVERIFY(m_page->Eval(u"!!document.getElementById('" + QLatin1String(id) + u"')").toBool());
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::emptyPageIsBlackAndTakesCalls() {
  QVERIFY(m_page->Navigate(QUrl(u"file:///" + m_page->appPath() + u"/html/emptyback.html")));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::black));
  m_page->Eval(QStringLiteral("UpdateTextHtml('x'); ChangeCSS('texto','display','none'); GotoNextImage()"));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::markerWordShowsNothing() {
  QVERIFY(m_page->Load(BackColor, {{QStringLiteral("letra"), QStringLiteral("nada")}}));
  const QString shown = QStringLiteral("document.getElementById('texto').innerText.trim()");
  QCOMPARE(m_page->Eval(shown).toString(), QString());
  m_page->Eval(Band(QStringLiteral("Paz")));
  QCOMPARE(m_page->Eval(shown).toString(), QStringLiteral("Paz"));
  m_page->Eval(QStringLiteral("UpdateTextHtml('nada')"));
  QCOMPARE(m_page->Eval(shown).toString(), QString());
  // Only the whole text is the marker.
  m_page->Eval(QStringLiteral("UpdateTextHtml('nada me falta')"));
  QCOMPARE(m_page->Eval(shown).toString(), QStringLiteral("nada me falta"));
}

void PagesTest::textOfTheCodePageIsRead() {
  // The bytes of "cora\xE7\xE3o \x93fiel\x94" stand in the page file as they are.
  const QString letters = QString::fromLatin1("cora\xE7\xE3o \x93"
                                              "fiel\x94");
  QVERIFY(m_page->Load(BackColor, {{QStringLiteral("letra"), letters}}));
  QCOMPARE(m_page->Eval(QStringLiteral("document.getElementById('texto').innerText")).toString(),
           QString::fromUtf8("cora\u00E7\u00E3o \u201Cfiel\u201D"));
}

void PagesTest::apostrophesAndMarkupArrive() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(Band(QStringLiteral("D\\'Ele &amp; n\\'Ele<br>\"fim\"")));
  QCOMPARE(m_page->Eval(QStringLiteral("document.querySelector('.textbackgroundDiv').innerText")).toString(),
           QStringLiteral("D'Ele & n'Ele\n\"fim\""));
}

void PagesTest::initialCommandRunsAfterThePicturesBegan() {
  QVERIFY(
      m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green, m_blue})},
                            {QStringLiteral("timeoutimage"), QStringLiteral("0")},
                            {QStringLiteral("ComandoInicial"),
                             QStringLiteral("\r\nUpdateTextHtml('<b>Amostra</b>');\r\n$('.slideshow').cycle(2);")}}));
  QCOMPARE(m_page->Eval(QStringLiteral("document.getElementById('texto').innerText")).toString(),
           QStringLiteral("Amostra"));
  QVERIFY(m_page->WaitForPixel(100, 100, Qt::blue));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::hiddenTextStaysHidden() {
  QVERIFY(m_page->Load(BackColor, {{QStringLiteral("displayTexto"), QStringLiteral("none")}}));
  m_page->Eval(Band(QStringLiteral("Oculto")));
  const QString height = QStringLiteral("document.getElementById('texto').getBoundingClientRect().height");
  QCOMPARE(m_page->Eval(height).toDouble(), 0.0);
  m_page->Eval(QStringLiteral("ChangeCSS('texto','display','block')"));
  QVERIFY(m_page->Eval(height).toDouble() > 0);
}

void PagesTest::textEntranceMoves_data() {
  QTest::addColumn<QString>("name");
  const QString all = QStringLiteral(
      "efeitoZoom,efeitoSurgeY,efeitoEsquize,efeitoRotate,efeitoZoomOut,efeitoZoomInAndRotate,efeitoZoomOutAndRotate,"
      "efeitoZoomOutAndRotate2,efeitoPulse,efeitoEstica,efeitoEsticaY,pulse,bounceIn,fadeIn,flipInY,lightSpeedIn,"
      "rotateIn,jackInTheBox,rollIn,zoomIn,bounceInUp,bounceInDown,bounceInLeft,bounceInRight,fadeInUp,fadeInDown,"
      "fadeInLeft,fadeInRight,rotateInDownLeft,rotateInDownRight,rotateInUpLeft,rotateInUpRight,zoomInUp,zoomInDown,"
      "zoomInLeft,zoomInRight,slideInLeft,slideInRight,bounceOut,fadeOut,flipOutX,lightSpeedOut,rollOut,zoomOut,"
      "slideOutUp");
  const QStringList names = all.split(u',');
  for (const QString &name : names)
    QTest::newRow(qPrintable(name)) << name;
  QVERIFY(m_page->Load(BackColor));
}

void PagesTest::textEntranceMoves() {
  QFETCH(QString, name);
  m_page->Eval(Band(QStringLiteral("Um<br>Dois"), u"animated " + name + u" faster"));
  const QString look = QStringLiteral("(()=>{const s=getComputedStyle(document.querySelector('.textbackgroundDiv'));"
                                      "return s.animationName+' '+s.animationDuration+' '+s.animationFillMode})()");
  const QString seen = m_page->Eval(look).toString();
  QVERIFY2(!seen.startsWith(QLatin1String("none")), qPrintable(seen));
  QVERIFY2(seen.endsWith(QLatin1String(" 0.5s both")) || seen.endsWith(QLatin1String("s both")), qPrintable(seen));
  // An animation by name alone would also "move" with keyframes that do not exist.
  QVERIFY(m_page
              ->Eval(QStringLiteral("document.querySelector('.textbackgroundDiv').getAnimations().some("
                                    "a => a.effect.getKeyframes().length > 1)"))
              .toBool());
}

void PagesTest::entranceDoesNotMoveTheLayout() {
  QVERIFY(m_page->Load(BackColor));
  const QString place =
      QStringLiteral("(()=>{const e=document.querySelector('.textbackgroundDiv');"
                     "return [e.offsetLeft,e.offsetTop,e.offsetWidth,e.offsetHeight,"
                     "document.documentElement.scrollWidth,document.documentElement.scrollHeight]+''})()");
  m_page->Eval(Band(QStringLiteral("Um<br>Dois")));
  const QString atRest = m_page->Eval(place).toString();
  for (const char *name : {"bounceInDown", "efeitoZoomOut", "rollIn", "zoomInUp"}) {
    m_page->Eval(Band(QStringLiteral("Um<br>Dois"), u"animated " + QLatin1String(name) + u" faster"));
    QCOMPARE(m_page->Eval(place).toString(), atRest);
  }
}

void PagesTest::nextVerseStandsWhereTheLastStood() {
  QVERIFY(m_page->Load(BackColor));
  const QString middle =
      QStringLiteral("(()=>{const r=document.querySelector('.textbackground').getBoundingClientRect();"
                     "return Math.round(r.left+r.width/2)+' '+Math.round(r.top+r.height/2)})()");
  for (const char *verse : {"Um", "Um<br>Dois", "Um verso bem mais comprido<br>que o outro<br>e mais alto"}) {
    m_page->Eval(Band(QLatin1String(verse)));
    QCOMPARE(m_page->Eval(middle).toString(), QStringLiteral("640 360"));
  }
}

void PagesTest::baseSizeSurvivesAlignmentAndStyle() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("UpdateTextHtml('x')"));
  m_page->Eval(QStringLiteral("ChangeCSS('set_text','font-size','30pt')"));
  m_page->Eval(QStringLiteral("SetAttributeByClass('textoContainer','style','justify-content: flex-end')"));
  m_page->Eval(QStringLiteral("SetAttribute('texto','style','font-family:Arial; color:#ffff00; text-shadow:none;')"));
  QCOMPARE(m_page->Eval(QStringLiteral("getComputedStyle(document.getElementById('texto')).fontSize")).toString(),
           QStringLiteral("40px"));
  QCOMPARE(m_page->Eval(QStringLiteral("getComputedStyle(document.getElementById('texto')).color")).toString(),
           QStringLiteral("rgb(255, 255, 0)"));
  QVERIFY(
      m_page->Eval(QStringLiteral("document.getElementById('texto').getBoundingClientRect().bottom > 650")).toBool());
  m_page->Eval(QStringLiteral("SetAttributeByClass('textoContainer','style','justify-content: flex-start')"));
  QVERIFY(m_page->Eval(QStringLiteral("document.getElementById('texto').getBoundingClientRect().top < 70")).toBool());
}

void PagesTest::classNamesAreTakenWhereNoElementHasTheId() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(
      QStringLiteral("UpdateTextHtml('<div class=\"textbackgroundDiv\">a</div><div class=\"textbackgroundDiv\">"
                     "b</div><div id=\"verso\">c</div><div class=\"verso\">d</div>')"));
  m_page->Eval(QStringLiteral("ChangeCSS('textbackgroundDiv','background-color','rgb(0, 0, 0, 0.3)')"));
  m_page->Eval(QStringLiteral("ChangeCSS('verso','background-color','rgb(0, 0, 0,0.4)')"));
  const QString colours = QStringLiteral("Array.from(document.getElementById('texto').children)"
                                         ".map(e => e.style.backgroundColor).join(';')");
  QCOMPARE(m_page->Eval(colours).toString(),
           QStringLiteral("rgba(0, 0, 0, 0.3);rgba(0, 0, 0, 0.3);rgba(0, 0, 0, 0.4);"));
}

void PagesTest::lonePictureIsShown() {
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red})}}));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::red));
  // There is no other picture to go to, and the empty element in front of it is none.
  m_page->Eval(QStringLiteral("GotoSlideImage(0); GotoNextImage(); GotoSlideImage(1)"));
  QCOMPARE(m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').currSlide")).toInt(), 1);
  QVERIFY(!m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').busy")).toInt());
  QCOMPARE(m_page->PixelAt(640, 360), QColor(Qt::red));
}

void PagesTest::everyPictureEffectEndsOnTheNextPicture_data() {
  QTest::addColumn<QString>("fx");
  const QString all =
      QStringLiteral("none,cover,uncover,curtainX,curtainY,fade,fadeZoom,growX,growY,scrollUp,scrollDown,scrollLeft,"
                     "scrollRight,shuffle,slideX,slideY,toss,turnUp,turnDown,turnLeft,turnRight");
  const QStringList names = all.split(u',');
  for (const QString &name : names)
    QTest::newRow(qPrintable(name)) << name;
  QTest::newRow("empty") << QString();
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green, m_blue})}}));
}

void PagesTest::everyPictureEffectEndsOnTheNextPicture() {
  QFETCH(QString, fx);
  m_page->Eval(u"ChangeOptions('fx','" + fx + u"')");
  const QString state =
      QStringLiteral("(()=>{const o=$('#slideshow').data('cycle.opts');return o.busy?-1:o.currSlide})()");
  const int before = m_page->Eval(state).toInt();
  QVERIFY(before >= 0);
  const int after = (before + 1) % 3;
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitFor(state + u"===" + QString::number(after)));
  // At rest the picture fills the screen and is the only one, whatever the effect did to either.
  QCOMPARE(m_page
               ->Eval(QStringLiteral("$('#slideshow > div:visible').map((i,e)=>{const r=e.getBoundingClientRect();"
                                     "return [$(e).index(),r.left,r.top,r.width,r.height,$(e).css('opacity')]+''})"
                                     ".get().join(';')"))
               .toString(),
           QString::number(after) + u",0,0,1280,720,1");
  const QList<QColor> colours{Qt::red, Qt::green, Qt::blue};
  QVERIFY(m_page->WaitForPixel(5, 5, colours.at(after)));
  QVERIFY(m_page->WaitForPixel(1275, 715, colours.at(after)));
  QCOMPARE(m_page->errors(), QStringList());
}

// On top of whatever the effect moves, and gone when it is over.
void PagesTest::aFadeAndAZoomComeOnTop() {
  const QString moved = QStringLiteral("document.getAnimations().flatMap(a=>a.effect.getKeyframes().flatMap(Object.keys))"
                                       ".filter(k=>k=='opacity'||k=='transform').sort().join()");
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("UpdateTextHtml('<p class=\"animated  faster comFade comZoom\">Paz</p>')"));
  QCOMPARE(m_page->Eval(moved).toString(), QStringLiteral("opacity,opacity,transform,transform"));
  QVERIFY(m_page->WaitFor(QStringLiteral("document.getAnimations().length===0")));

  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})},
                                {QStringLiteral("fximage"), QStringLiteral("scrollUp")},
                                {QStringLiteral("fadeimage"), QStringLiteral("1")},
                                {QStringLiteral("zoomimage"), QStringLiteral("1")}}));
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitFor(moved + u"==='opacity,opacity,transform,transform'"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::severalEffectsAndUnknownOnes() {
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green, m_blue})},
                                {QStringLiteral("fximage"), QStringLiteral("turnUp,nonsense, turnDown")},
                                {QStringLiteral("speedimage"), QString()}}));
  m_page->Eval(QStringLiteral("ChangeOptions('speed','60'); GotoSlideImage(1)"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  // A jump in the middle of a change ends it and goes on.
  m_page->Eval(QStringLiteral("ChangeOptions('speed','3000'); GotoSlideImage(2); ChangeOptions('fx','unknown');"
                              "GotoSlideImage(0)"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::red));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::pictureFillsAWindowThatWasResized() {
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})},
                                {QStringLiteral("fximage"), QStringLiteral("growX")}}));
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  m_page->view().resize(1024, 768);
  QVERIFY(m_page->WaitFor(QStringLiteral("innerWidth===1024 && innerHeight===768")));
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitForPixel(1020, 764, Qt::red));
  QVERIFY(m_page->WaitForPixel(3, 3, Qt::red));
  m_page->view().resize(1280, 720);
  QVERIFY(m_page->WaitFor(QStringLiteral("innerWidth===1280 && innerHeight===720")));
  QVERIFY(m_page->WaitForPixel(1276, 716, Qt::red));
}

void PagesTest::newPicturesBegin() {
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})}}));
  m_page->Eval(QStringLiteral("ChangeOptions('fx','none')"));
  m_page->Eval(u"document.getElementById('slideshow').innerHTML = `" +
               PageFixture::PictureList({m_blue, m_green, m_red}).replace(u'\\', QLatin1String("\\\\")) +
               u"`; StartCycle()");
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::blue));
  // An option that was changed holds for the new pictures too.
  QCOMPARE(m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').fx")).toString(), QStringLiteral("none"));
  m_page->Eval(QStringLiteral("GotoSlideImage(2)"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::red));
}

void PagesTest::intervalRunsTheCycle() {
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})}}));
  m_page->Eval(QStringLiteral("ChangeOptions('timeout','300')"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::red));
  m_page->Eval(QStringLiteral("ChangeOptions('timeout','')"));
  QCOMPARE(m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').timeout")).toInt(), 0);
  // The place in the operator's list of intervals stands for its seconds.
  m_page->Eval(QStringLiteral("ChangeOptions('timeout','2')"));
  QCOMPARE(m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').timeout")).toInt(), 15000);
}

void PagesTest::easingWithAndWithoutQuotes_data() {
  QTest::addColumn<QString>("easing");
  QTest::addColumn<QString>("taken");
  QTest::newRow("quoted") << QStringLiteral(",easing:'linear'") << QStringLiteral("linear");
  QTest::newRow("bare") << QStringLiteral(",easing:linear") << QStringLiteral("linear");
  QTest::newRow("not installed") << QStringLiteral(",easing:'easeOutBounce'") << QString();
}

void PagesTest::easingWithAndWithoutQuotes() {
  QFETCH(QString, easing);
  QFETCH(QString, taken);
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})},
                                {QStringLiteral("easingimage"), easing}}));
  QCOMPARE(m_page->Eval(QStringLiteral("$('#slideshow').data('cycle.opts').easing || ''")).toString(), taken);
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::brokenPictureLeavesBlack() {
  QFile text(m_page->appPath() + u"/Images/text.jpg");
  QVERIFY(text.open(QIODevice::WriteOnly));
  text.write("not a picture");
  text.close();
  const QString missing = m_page->appPath() + u"\\Images\\missing.jpg";
  const QString broken = m_page->appPath() + u"\\Images\\text.jpg";
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({missing, broken})}}));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::black));
  const QImage seen = m_page->view().grab().toImage();
  for (int y = 0; y < seen.height(); y += 7)
    for (int x = 0; x < seen.width(); x += 7)
      QCOMPARE(seen.pixelColor(x, y), QColor(Qt::black));
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitFor(QStringLiteral("$('#slideshow').data('cycle.opts').currSlide===1")));
  QCOMPARE(m_page->errors(), QStringList());

  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), QStringLiteral("<div></div>")}}));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::black));
  QCOMPARE(m_page->errors(), QStringList());
}

// A list of hundreds costs no more than one of three, also when the operator jumps in it.
void PagesTest::onlyPicturesNearTheOneOnShowAreRead() {
  QStringList pictures;
  for (int i = 0; i < 60; ++i)
    pictures << (i % 2 ? m_green : m_red);
  pictures[30] = m_blue;
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList(pictures)},
                                {QStringLiteral("fximage"), QStringLiteral("none")},
                                {QStringLiteral("primeiraimage"), QStringLiteral("7")}}));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  const QString read =
      QStringLiteral("$('#slideshow img').get().map((e,i)=>e.getAttribute('src')?i:-1).filter(i=>i>=0).join()");
  QVERIFY(m_page->WaitFor(read + u"==='6,7,8'"));
  m_page->Eval(QStringLiteral("GotoSlideImage(30)"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::blue));
  QVERIFY(m_page->WaitFor(read + u"==='29,30,31'"));
  // The last one wanted comes, and those in between are left out.
  m_page->Eval(QStringLiteral("GotoSlideImage(50); GotoSlideImage(51); GotoSlideImage(40); GotoSlideImage(59)"));
  QVERIFY(m_page->WaitForPixel(640, 360, Qt::green));
  QVERIFY(m_page->WaitFor(QStringLiteral("$('#slideshow').data('cycle.opts').currSlide===59")));
  m_page->Eval(QStringLiteral("GotoNextImage()"));
  QVERIFY(m_page->WaitFor(QStringLiteral("$('#slideshow').data('cycle.opts').currSlide===0")));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::neutralFilterCostsNothing() {
  const QString filter = QStringLiteral("getComputedStyle(document.querySelector('.efeitos')).filter");
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red})}}));
  QCOMPARE(m_page->Eval(filter).toString(), QStringLiteral("none"));
  m_page->Eval(QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(4px) brightness(50%) contrast(100%) "
                              "saturate(100%)')"));
  QCOMPARE(m_page->Eval(filter).toString(), QStringLiteral("blur(4px) brightness(0.5) contrast(1) saturate(1)"));
  // The picture is half as bright up to its edges.
  QVERIFY(m_page->WaitForPixel(640, 360, QColor(128, 0, 0)));
  QVERIFY(m_page->WaitForPixel(1, 1, QColor(128, 0, 0)));
  m_page->Eval(
      QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(0px) brightness(100%) contrast(100%) "
                     "saturate(100%)')"));
  QCOMPARE(m_page->Eval(filter).toString(), QStringLiteral("none"));

  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red})},
                                {QStringLiteral("saturate"), QStringLiteral("0")}}));
  QCOMPARE(m_page->Eval(filter).toString(), QStringLiteral("blur(0px) brightness(1) contrast(1) saturate(0)"));
}

void PagesTest::movementIsSwitched() {
  const QString state = QStringLiteral("Array.from(document.querySelectorAll('.img'))"
                                       ".map(e => getComputedStyle(e).animationPlayState).join()");
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red, m_green})}}));
  QCOMPARE(m_page->Eval(state).toString(), QStringLiteral("paused,paused"));
  m_page->Eval(QStringLiteral("ChangeCSS('img','animation-play-state','running')"));
  QCOMPARE(m_page->Eval(state).toString(), QStringLiteral("running,running"));
  QVERIFY(
      m_page->Eval(QStringLiteral("document.querySelector('.img').getAnimations()[0].playState==='running'")).toBool());
  // A change of the filters replaces the style of the pictures, and the movement goes on.
  m_page->Eval(QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(1px)')"));
  QCOMPARE(m_page->Eval(state).toString(), QStringLiteral("running,running"));
  QVERIFY(m_page->Load(Imagem, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red})},
                                {QStringLiteral("stateMoveImage"), QStringLiteral("running")}}));
  QCOMPARE(m_page->Eval(state).toString(), QStringLiteral("running"));
}

void PagesTest::flatColour() {
  QVERIFY(m_page->Load(BackColor, {{QStringLiteral("backcolor"), QStringLiteral("#204060")}}));
  QVERIFY(m_page->WaitForPixel(640, 600, QColor(0x20, 0x40, 0x60)));
  m_page->Eval(QStringLiteral("SetAttribute('wheader','style','background-color:#802010')"));
  QVERIFY(m_page->WaitForPixel(640, 600, QColor(0x80, 0x20, 0x10)));
  // The filters leave the colour that was set.
  m_page->Eval(QStringLiteral("SetAttributeByClass('efeitos','style','filter: brightness(50%)')"));
  QVERIFY(m_page->WaitForPixel(640, 600, QColor(0x40, 0x10, 0x08)));
}

void PagesTest::videoIsShown() {
  const QString ffmpeg = QStandardPaths::findExecutable(QStringLiteral("ffmpeg"));
  QVERIFY2(!ffmpeg.isEmpty(), "ffmpeg is missing");
  const QString file = m_page->appPath() + u"/red.mp4";
  QCOMPARE(QProcess::execute(ffmpeg, {QStringLiteral("-loglevel"), QStringLiteral("error"), QStringLiteral("-y"),
                                      QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                                      QStringLiteral("color=c=0x00a000:s=320x180:d=1"), QStringLiteral("-pix_fmt"),
                                      QStringLiteral("yuv420p"), file}),
           0);
  QVERIFY(m_page->Load(
      Video, {{QStringLiteral("urlvideo"), u"<source src='" + m_page->appPath() + u"\\red.mp4' type='video/mp4'>"}}));
  QVERIFY(QTest::qWaitFor([&] { return m_page->PixelAt(640, 360).green() > 120; }, 20000));
  QVERIFY(m_page->WaitFor(QStringLiteral("!document.getElementById('video').paused")));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::missingVideoLeavesBlack() {
  QVERIFY(m_page->Load(
      Video, {{QStringLiteral("urlvideo"), QStringLiteral("<source src='/nowhere\\x.mp4' type='video/mp4'>")}}));
  m_page->Eval(Band(QStringLiteral("Texto")));
  QVERIFY(m_page->WaitForPixel(20, 20, Qt::black));
  QCOMPARE(m_page->errors(), QStringList());
}

void PagesTest::bandsOfAnimatedLayoutsTakeTheAlpha() {
  QVERIFY(m_page->Load(BackColor));
  const QString html = QStringLiteral(
      "UpdateTextHtml('<div class=\"text-container faixaAnimada\" style=\"--faixa:0.6\">"
      "<div class=\"bloco1\"><div id=\"texto1\" class=\"textoL animaL1 efeitoRotate animated fadeIn faster\">a</div>"
      "</div><div class=\"bloco2\"><div id=\"texto2\" class=\"textoR animaR2 animated faster\">b</div></div></div>')");
  const QString colour = QStringLiteral("getComputedStyle(document.querySelector('.faixaAnimada')).backgroundColor");
  m_page->Eval(html);
  QCOMPARE(m_page->Eval(colour).toString(), QStringLiteral("rgba(0, 0, 0, 0.6)"));
  m_page->Eval(QStringLiteral("ApplyTransparency('0.2')"));
  QCOMPARE(m_page->Eval(colour).toString(), QStringLiteral("rgba(0, 0, 0, 0.2)"));
  m_page->Eval(QStringLiteral("ApplyTransparency('1')"));
  QCOMPARE(m_page->Eval(colour).toString(), QStringLiteral("rgb(0, 0, 0)"));
  // A line that carries an effect takes it, with the delay of its place.
  QCOMPARE(m_page->Eval(QStringLiteral("getComputedStyle(document.getElementById('texto1')).animationName")).toString(),
           QStringLiteral("efeitoRotate"));
  QCOMPARE(
      m_page->Eval(QStringLiteral("getComputedStyle(document.getElementById('texto2')).animationDelay")).toString(),
      QStringLiteral("0.12s"));
  // A verse that is only drawn again stands at once.
  m_page->Eval(QString(html).remove(QStringLiteral("animated")));
  QCOMPARE(m_page->Eval(QStringLiteral("document.getAnimations().length")).toInt(), 0);
}

void PagesTest::noticeRunsAndLeaves() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("ExibeAviso('Carro <b>ABC</b>','top','1','10','60','#c00000','#ffff00')"));
  const QString rect = QStringLiteral("(()=>{const r=document.querySelector('.aviso').getBoundingClientRect();"
                                      "return [r.left,r.width,Math.round(r.height)]+''})()");
  QCOMPARE(m_page->Eval(rect).toString(), QStringLiteral("0,1280,72"));
  // Typed text is text, not markup.
  QCOMPARE(m_page->Eval(QStringLiteral("document.querySelector('.avisoTexto').textContent")).toString(),
           QStringLiteral("Carro <b>ABC</b>"));
  QVERIFY(m_page->WaitForPixel(4, 4, QColor(0xc0, 0, 0)));
  QVERIFY(m_page->WaitFor(QStringLiteral("(()=>{const e=document.querySelector('.avisoTexto');return !e||"
                                         "e.getBoundingClientRect().left<600})()")));
  QVERIFY(m_page->WaitFor(QStringLiteral("!document.querySelector('.aviso')")));
}

void PagesTest::noticesCrawlAtOneSpeed_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("toRight");
  QTest::newRow("a word") << QStringLiteral("Carro") << false;
  QTest::newRow("ten thousand characters") << QString(10000, u'm') << false;
  QTest::newRow("lines") << QStringLiteral("a\\nb\\u2028c") << false;
  QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ABC") << true;
}

void PagesTest::noticesCrawlAtOneSpeed() {
  QFETCH(QString, text);
  QFETCH(bool, toRight);
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(u"ExibeAviso('" + text + u"','bottom','3','8','20','#c00000','#ffffff')");
  // Put at two moments by hand: one unit of speed is one per cent of the screen's width in a second.
  m_page->Eval(QStringLiteral("linha=document.querySelector('.avisoTexto');anda=linha.getAnimations()[0];anda.pause();"
                              "lugar=t=>{anda.currentTime=t;return linha.getBoundingClientRect()}"));
  const auto number = [this](const QString &script) { return qRound(m_page->Eval(script).toDouble()); };
  QCOMPARE(number(QStringLiteral("lugar(0).") + (toRight ? u"right" : u"left")), toRight ? 0 : 1280);
  QCOMPARE(number(QStringLiteral("lugar(2000).left-lugar(1000).left")), toRight ? 256 : -256);
  QCOMPARE(number(QStringLiteral("lugar(anda.effect.getTiming().duration-0.01).") + (toRight ? u"left" : u"right")),
           toRight ? 1280 : 0);
  QCOMPARE(number(QStringLiteral("anda.effect.getTiming().iterations")), 3);
  QVERIFY(number(QStringLiteral("linha.offsetHeight")) < 72); // one line
}

// Scripts and layouts of the page, here one that takes two seconds, do not hold a notice up.
void PagesTest::noticesCrawlWhileThePageIsBusy() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("ExibeAviso('Carro ABC 1234','bottom','3','10','40','#c00000','#ffffff')"));
  QVERIFY(m_page->WaitFor(QStringLiteral("document.querySelector('.avisoTexto').getBoundingClientRect().left<1000")));
  bool busy = true;
  QElapsedTimer since;
  since.start();
  m_page->view().page()->runJavaScript(QStringLiteral("(()=>{const t=performance.now();while(performance.now()-t<2000);})()"),
                                       [&busy](const QVariant &) { busy = false; });
  QSet<QByteArray> places; // of the text while the page does nothing else
  while (busy && since.elapsed() < 20000) {
    QTest::qWait(20);
    const QImage picture = m_page->view().grab(QRect(0, 650, 1280, 60)).toImage();
    if (busy && since.elapsed() > 700)
      places.insert(QByteArray(reinterpret_cast<const char *>(picture.constBits()), picture.sizeInBytes()));
  }
  QVERIFY(!busy);
  QVERIFY2(places.size() > 5, qPrintable(QString::number(places.size())));
}

void PagesTest::noticesKeepTheirPlaceOnAnotherScreen() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("ExibeAviso('Carro','bottom','4','8','20','#c00000','#ffffff');"
                              "anda=document.querySelector('.avisoTexto').getAnimations()[0];anda.pause();"
                              "anda.currentTime=1.25*anda.effect.getTiming().duration"));
  m_page->view().resize(640, 360);
  QVERIFY(m_page->WaitFor(QStringLiteral("innerWidth===640")));
  QTRY_COMPARE(qRound(m_page->Eval(QStringLiteral("100*anda.currentTime/anda.effect.getTiming().duration")).toDouble()),
               125);
  // A quarter of the way from the right edge until the text is gone.
  QTRY_COMPARE(qRound(m_page->Eval(QStringLiteral("(()=>{const r=document.querySelector('.avisoTexto')"
                                                  ".getBoundingClientRect();return 100*(640-r.left)/(640+r.width)})()"))
                          .toDouble()),
               25);
  m_page->view().resize(1280, 720);
}

void PagesTest::aNoticeGoesOnOnAnotherPage() {
  QVERIFY(m_page->Load(BackColor));
  QVERIFY(m_page->Eval(QStringLiteral("AvisoEmCurso()")).isNull());
  m_page->Eval(QStringLiteral("ExibeAviso('O carro \\'A\\' <b>','top','4','8','20','#c00000','#ffffff');"
                              "anda=document.querySelector('.avisoTexto').getAnimations()[0];anda.pause();"
                              "anda.currentTime=2.5*anda.effect.getTiming().duration"));
  const QString now = m_page->Eval(QStringLiteral("JSON.stringify(AvisoEmCurso())")).toString();
  QVERIFY(m_page->Navigate(QUrl(u"file:///" + m_page->appPath() + u"/html/aviso.html")));
  m_page->Eval(u"ContinuaAviso(" + now + u")");
  QCOMPARE(m_page->Eval(QStringLiteral("document.querySelector('.avisoTopo .avisoTexto').textContent")).toString(),
           QStringLiteral("O carro 'A' <b>"));
  QVERIFY(m_page->WaitFor(QStringLiteral("(()=>{const f=AvisoEmCurso().feito;return f>2.5&&f<3})()")));
  m_page->Eval(QStringLiteral("ExibeAviso('')"));
  QVERIFY(m_page->Eval(QStringLiteral("AvisoEmCurso()")).isNull());
}

// Every page that the program shows has notices, and they lie over whatever is on it.
void PagesTest::noticesStandOverEverything_data() {
  QTest::addColumn<QString>("name");
  for (const QString &name : {Imagem, Video, BackColor})
    QTest::newRow(qPrintable(name)) << name;
  QTest::newRow("empty") << QStringLiteral("emptyback.html");
  QTest::newRow("slide show") << QStringLiteral("sshow.dat");
}

void PagesTest::noticesStandOverEverything() {
  QFETCH(QString, name);
  if (name == u"emptyback.html") {
    QVERIFY(m_page->Navigate(QUrl(u"file:///" + m_page->appPath() + u"/html/emptyback.html")));
  } else if (name == u"sshow.dat") {
    const QString page = m_page->appPath() + u"/html/sshow.html";
    QFile::remove(page);
    QVERIFY(QFile::copy(m_page->appPath() + u"/html/sshow.dat", page));
    QVERIFY(m_page->Navigate(QUrl(u"file:///" + page)));
  } else {
    QVERIFY(m_page->Load(name, {{QStringLiteral("listaImages"), PageFixture::PictureList({m_red})},
                                {QStringLiteral("letra"), QStringLiteral("<div style='position:fixed;inset:0;background:#fff'>x</div>")}}));
  }
  m_page->Eval(QStringLiteral("ExibeAviso('a','top','20','20','1','#0000c0','#ffffff')"));
  QVERIFY(m_page->WaitForPixel(4, 70, QColor(0, 0, 0xc0)));
}

// The page that the program puts over a video: nothing of it is seen but the band, and it tells when that has gone.
void PagesTest::thePageOfNoticesTellsOfTheEnd() {
  QVERIFY(m_page->Navigate(QUrl(u"file:///" + m_page->appPath() + u"/html/aviso.html")));
  QCOMPARE(m_page->Eval(QStringLiteral("getComputedStyle(document.body).backgroundColor+"
                                       "getComputedStyle(document.documentElement).backgroundColor"))
               .toString(),
           QStringLiteral("rgba(0, 0, 0, 0)rgba(0, 0, 0, 0)"));
  m_page->Eval(QStringLiteral("foi='';navigation.addEventListener('navigate',e=>{foi=e.destination.url;e.preventDefault()});"
                              "ExibeAviso('a','top','1','8','1','','');ExibeAviso('b','bottom','1','8','1','','')"));
  m_page->Eval(QStringLiteral("ExibeAviso('','','','','','','')"));
  QVERIFY(m_page->WaitFor(QStringLiteral("foi==='http://semaviso/?'&&!document.querySelector('.aviso')")));
}

void PagesTest::noticeIsTakenAway() {
  QVERIFY(m_page->Load(BackColor));
  m_page->Eval(QStringLiteral("ExibeAviso('primeiro','bottom','20','8','1','#c00000','#ffffff')"));
  m_page->Eval(QStringLiteral("ExibeAviso('segundo','bottom','20','8','1','#0000c0','#ffffff')"));
  // The new one comes over the old one where that stands, and the old one goes once it is covered.
  QCOMPARE(m_page->Eval(QStringLiteral("Array.from(document.querySelectorAll('.aviso')).map(e=>e.textContent+"
                                       "e.getBoundingClientRect().bottom).slice(1).join()"))
               .toString(),
           QStringLiteral("segundo720"));
  QVERIFY(m_page->WaitFor(QStringLiteral("document.querySelectorAll('.aviso').length===1")));
  QCOMPARE(m_page->Eval(QStringLiteral("document.querySelector('.aviso').textContent")).toString(),
           QStringLiteral("segundo"));
  QVERIFY(m_page->WaitForPixel(4, 715, QColor(0, 0, 0xc0)));
  m_page->Eval(QStringLiteral("ExibeAviso('','','','','','','')"));
  QVERIFY(m_page->WaitFor(QStringLiteral("!document.querySelector('.aviso')")));
  // Blanks are no text either.
  m_page->Eval(
      QStringLiteral("ExibeAviso('terceiro','bottom','1','8','1','#0000c0','#ffffff'); ExibeAviso('  ','bottom',"
                     "'1','8','1','#0000c0','#ffffff')"));
  QVERIFY(m_page->WaitFor(QStringLiteral("!document.querySelector('.aviso')")));
}

QTEST_MAIN(PagesTest)
#include "ui_test_pages.moc"
