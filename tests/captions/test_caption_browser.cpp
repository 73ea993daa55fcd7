#include "caption_hall.h"
#include "captions/caption_composer.h"
#include "support/real_browser.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// A broadcast tool's browser source: a real browser that loads the page and polls.
class TestCaptionBrowser : public QObject {
  Q_OBJECT

  static constexpr int Patience = 20000; // ms, for a loaded machine

  static QString Shown() { return QStringLiteral("document.querySelector('.camada.visivel')?.innerText.trim() ?? ''"); }
  static QString Song(const QString &verse, int estilo = 3) {
    LegendaLetras look;
    look.estilo = estilo;
    return ComposeLegendaLetra(look, verse);
  }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void versesReachTheSource() {
    CaptionHall hall;
    RealBrowser browser;
    QVERIFY2(browser.Start(), "chromium is needed");
    hall.legenda.TextoLegenda = Song(QStringLiteral("I will call<br>Upon Your name"));
    browser.Go(hall.Url());
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("I will call\nUpon Your name"),
                              Patience);
    // By its own origin, since the page was not opened by the address that the program shows.
    QCOMPARE(
        browser.Eval(QStringLiteral("new URL(performance.getEntriesByType('resource').at(-1).name).host")).toString(),
        QStringLiteral("127.0.0.1:%1").arg(hall.port));

    hall.legenda.TextoLegenda =
        ComposeLegendaBiblia({}, QStringLiteral("água viva ש"), QStringLiteral("John 4:10"), QStringLiteral("KJV"));
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("John 4:10 (KJV)\nágua viva ש"),
                              Patience);
    hall.legenda.TextoLegenda.clear();
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QString(), Patience);
  }

  void quotationMarksDoNotHoldItUp() {
    CaptionHall hall;
    RealBrowser browser;
    QVERIFY2(browser.Start(), "chromium is needed");
    browser.Go(hall.Url());
    for (int verse = 1; verse <= 4; ++verse) {
      hall.legenda.TextoLegenda = Song(QStringLiteral("He said: \"Come %1\" \"\"").arg(verse));
      QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("He said: Come %1").arg(verse),
                                Patience);
    }
  }

  // The composers leave what a text says, so the page looks to it that no text runs and none takes the words behind it
  // along.
  void aVerseIsTextAndNoScript_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("shown");
    const QString open = QStringLiteral("Grace <img src=x onerror=window.x=1 and more");
    QTest::newRow("song") << Song(open) << open;
    QTest::newRow("passage") << ComposeLegendaBiblia(
                                    {}, QStringLiteral("1 < 2, <i>Selah</i> <img src=data:, onerror=window.x=1> end"),
                                    QStringLiteral("John 4:10"), QStringLiteral("KJV"))
                             << QStringLiteral("John 4:10 (KJV)\n1 < 2, Selah <img src=data:, onerror=window.x=1> end");
  }
  void aVerseIsTextAndNoScript() {
    QFETCH(QString, caption);
    QFETCH(QString, shown);
    CaptionHall hall;
    RealBrowser browser;
    QVERIFY2(browser.Start(), "chromium is needed");
    hall.legenda.TextoLegenda = caption;
    browser.Go(hall.Url());
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), shown, Patience);
    // Nor does what passes for text: the picture fails, and its handler is not the page's.
    QCOMPARE(browser
                 .Eval(QStringLiteral("new Promise(d => { document.body.insertAdjacentHTML('beforeend', "
                                      "'<img src=data:, onerror=window.x=1>');"
                                      "document.querySelector('img:last-of-type').addEventListener('error', "
                                      "() => d(String(window.x))); })"))
                 .toString(),
             QStringLiteral("undefined"));
  }

  void itComesBackWithTheProgram() {
    RealBrowser browser;
    QVERIFY2(browser.Start(), "chromium is needed");
    auto hall = std::make_unique<CaptionHall>();
    const quint16 port = hall->port;
    hall->legenda.TextoLegenda = Song(QStringLiteral("before"));
    browser.Go(hall->Url());
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("before"), Patience);
    hall.reset();
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QString(), Patience); // nobody knows what is on show
    hall = std::make_unique<CaptionHall>();
    QString error;
    QVERIFY(hall->server.Liga(QString::number(port), error));
    hall->legenda.TextoLegenda = Song(QStringLiteral("after"));
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("after"), Patience);
  }

  void twoSourcesTakeTurns() {
    CaptionHall hall;
    RealBrowser one, other;
    QVERIFY2(one.Start() && other.Start(), "chromium is needed");
    one.Go(hall.Url());
    other.Go(hall.Url());
    for (int verse = 1; verse <= 3; ++verse) {
      const QString text = QStringLiteral("verse %1").arg(verse);
      hall.legenda.TextoLegenda = Song(text);
      QTRY_VERIFY_WITH_TIMEOUT(one.Eval(Shown()).toString() == text && other.Eval(Shown()).toString() == text,
                               Patience);
    }
  }

  // A plate that both verses have keeps its alpha at every moment of the change.
  void aChangeOfVerseDoesNotFlash() {
    CaptionHall hall;
    RealBrowser browser;
    QVERIFY2(browser.Start(), "chromium is needed");
    hall.legenda.TextoLegenda = Song(QStringLiteral("one"), 1);
    browser.Go(hall.Url());
    QTRY_COMPARE_WITH_TIMEOUT(browser.Eval(Shown()).toString(), QStringLiteral("one"), Patience);
    const auto plate = [&browser] {
      const QImage picture = browser.Picture();
      return qAlpha(
          picture.pixel(40, browser
                                .Eval(QStringLiteral("Math.round((r => (r.top + r.bottom) / 2)(document.querySelector("
                                                     "'.camada.visivel .textDefault').getBoundingClientRect()))"))
                                .toInt()));
    };
    QTRY_COMPARE_WITH_TIMEOUT(plate(), 153, Patience);
    QCOMPARE(qAlpha(browser.Picture().pixel(40, 40)), 0); // and round it the picture is free
    // The fade stands still where it is halfway.
    browser.Eval(QStringLiteral("document.head.insertAdjacentHTML('beforeend', '<style>.camada { transition: none }"
                                ".camada, .camada.visivel { opacity: 0.5 }</style>')"));
    hall.legenda.TextoLegenda = Song(QStringLiteral("two"), 1);
    browser.Eval(QStringLiteral("new Promise(d => new MutationObserver(d).observe(document.body, {subtree: true, "
                                "childList: true})).then(() => 1)"));
    QVERIFY(std::abs(plate() - 153) <= 2);
  }

  void everyStyleIsSeenAtEverySize_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("1280x720") << QSize(1280, 720);
    QTest::newRow("3840x2160") << QSize(3840, 2160);
  }
  // No text leaves the picture, however long it is, and all of it grows with the picture.
  void everyStyleIsSeenAtEverySize() {
    QFETCH(QSize, size);
    CaptionHall hall;
    RealBrowser browser;
    QVERIFY2(browser.Start(size), "chromium is needed");
    browser.Go(hall.Url());
    const QString longVerse = QStringLiteral("a long verse that nobody could read in one breath ").repeated(14);
    for (int estilo = 1; estilo <= 19; ++estilo) {
      LegendaBiblia look;
      look.estilo = estilo - 11;
      const QString mark = QStringLiteral("style %1").arg(estilo);
      hall.legenda.TextoLegenda =
          estilo <= 11
              ? Song(mark + u"<br>" + longVerse, estilo)
              : ComposeLegendaBiblia(look, mark + u' ' + longVerse, QStringLiteral("John 3:16"), QStringLiteral("KJV"));
      QTRY_VERIFY2_WITH_TIMEOUT(browser.Eval(Shown()).toString().contains(mark), qPrintable(mark), Patience);
      const QJsonArray box =
          browser
              .Eval(QStringLiteral(
                  "(() => { const c = document.querySelector('.camada.visivel .conteudo');"
                  "const r = document.createRange(); r.selectNodeContents(c); const b = r.getBoundingClientRect();"
                  "return [b.top / innerHeight, b.bottom / innerHeight, b.right / innerWidth, c.innerText.length,"
                  "parseFloat(getComputedStyle(c.querySelector('.fontBold, .fontNormal')).fontSize) / innerHeight] "
                  "})()"))
              .toArray();
      QVERIFY2(box[0].toDouble() >= 0 && box[1].toDouble() <= 1.001 && box[2].toDouble() <= 1.001, qPrintable(mark));
      QVERIFY2(box[4].toDouble() > 0.012, qPrintable(mark));
    }
  }
};

QTEST_GUILESS_MAIN(TestCaptionBrowser)
#include "test_caption_browser.moc"
