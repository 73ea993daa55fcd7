#include "console/bible_fit.h"
#include "display/bible_composer.h"
#include "display/page_fixture.h"
#include "foundation/real_seams.h"
#include "support/recording_display.h"
#include "support/scripted_random.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// As long as the longest verse there is.
const QString Longo = QStringLiteral(
    "Then were the king's scribes called at that time in the third month, that is, the month Sivan, on the three and "
    "twentieth day thereof; and it was written according to all that Mordecai commanded unto the Jews, and to the "
    "lieutenants, and the deputies and rulers of the provinces which are from India unto Ethiopia, an hundred twenty "
    "and "
    "seven provinces, unto every province according to the writing thereof, and unto every people after their "
    "language, "
    "and to the Jews according to their writing, and according to their language.");

// Where the band, its words, the title and its words stand: each as left, top, right, bottom. The engine tells places
// inside a zoomed element in that element's own pixels.
const QString Lugares = QStringLiteral(R"((() => {
  const place = (r, e) => [r.left, r.top, r.right, r.bottom].map((n) => n * parseFloat(getComputedStyle(e).zoom));
  const box = (e) => place(e.getBoundingClientRect(), e);
  const words = (e) => {
    const range = document.createRange();
    range.selectNodeContents(e);
    return place(range.getBoundingClientRect(), e);
  };
  const text = document.querySelector('.biblia2');
  const title = document.querySelector('.titulo') || text.nextElementSibling;
  return [box(text), words(text.firstElementChild), box(title), words(title)];
})())");

QRectF Rect(const QVariant &value) {
  const QVariantList r = value.toList();
  return QRectF(QPointF(r.value(0).toDouble(), r.value(1).toDouble()),
                QPointF(r.value(2).toDouble(), r.value(3).toDouble()));
}

} // namespace

// The layouts of Bible text on a page of the real engine, at the sizes that the program fits.
class BiblePagesTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() {
    m_page = std::make_unique<PageFixture>();
    m_estado.TelaPronta = true;
    m_estado.VersaoBiblia = QStringLiteral("KJV");
    m_estado.TemaAtual.Font_Name = Familia;
    m_estado.TemaAtual.Font_Cor = QStringLiteral("16777215");
  }
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
  void cleanupTestCase() { m_page.reset(); }

  void everyLayoutStandsOnTheScreen_data() {
    QTest::addColumn<QSize>("tela");
    QTest::addColumn<QString>("vertical");
    QTest::newRow("wide") << QSize(1280, 720) << QStringLiteral("center");
    QTest::newRow("wide, at the top") << QSize(1280, 720) << QStringLiteral("flex-start");
    QTest::newRow("4:3") << QSize(1024, 768) << QStringLiteral("center");
    QTest::newRow("very wide, at the top") << QSize(1280, 540) << QStringLiteral("flex-start");
  }

  void everyLayoutStandsOnTheScreen() {
    QFETCH(QSize, tela);
    QFETCH(QString, vertical);
    m_page->view().resize(tela);
    QVERIFY(m_page->Load(QStringLiteral("backcolor.html"), {{QStringLiteral("VerticalAlign"), vertical}}));
    QVERIFY(m_page->WaitFor(
        QStringLiteral("innerWidth === %1 && innerHeight === %2").arg(tela.width()).arg(tela.height())));

    const QPair<QString, QString> versos[] = {
        {QStringLiteral("Jesus wept."), QStringLiteral("John 11:35")},
        {QStringLiteral("It is good that a man should both hope and quietly wait for the salvation of the LORD."),
         QStringLiteral("Lamentations of Jeremiah 3:26")},
        {Longo, QStringLiteral("Esther 8:9")},
    };
    for (int estilo = 1; estilo <= 6; ++estilo) {
      for (const auto &[texto, referencia] : versos) {
        for (const double escala : {100.0, 185.0}) {
          const int tamanho = Mostra(texto, referencia, estilo, tela, vertical == u"center", escala);
          const QString where = QStringLiteral("layout %1, %2, %3 pt").arg(estilo).arg(referencia).arg(tamanho);
          const QVariantList r = m_page->Eval(Lugares).toList();
          const QRectF faixa = Rect(r.value(0));
          const QRectF palavras = Rect(r.value(1));
          const QRectF titulo = Rect(r.value(2));
          const QRectF nome = Rect(r.value(3));
          const QRectF quadro(QPointF(0, 0), QSizeF(tela));
          QVERIFY2(faixa.height() > 0 && palavras.height() > 0 && nome.width() > 0, qPrintable(where));
          QVERIFY2(quadro.contains(nome), qPrintable(where));
          QVERIFY2(quadro.contains(faixa.adjusted(1, 0, -1, 0)), qPrintable(where));
          QVERIFY2(faixa.contains(palavras), qPrintable(where));
          QVERIFY2(palavras.left() > 0.03 * tela.width() && palavras.right() < 0.97 * tela.width(), qPrintable(where));
          if (estilo == 1) {
            QVERIFY2(nome.top() >= faixa.bottom(), qPrintable(where));
          } else {
            // Across the upper edge, clear of the words.
            QVERIFY2(titulo.top() >= 0 && titulo.top() < faixa.top() && titulo.bottom() > faixa.top(),
                     qPrintable(where));
            QVERIFY2(titulo.bottom() <= palavras.top() + 1, qPrintable(where));
          }
        }
      }
    }
    QVERIFY2(m_page->errors().isEmpty(), qPrintable(m_page->errors().join(u'\n')));
  }

  void theEntranceEndsWhereTheVerseStandsWithoutIt() {
    m_page->view().resize(1280, 720);
    QVERIFY(m_page->Load(QStringLiteral("backcolor.html")));
    for (int estilo : {1, 2, 5}) {
      Mostra(QStringLiteral("Jesus wept."), QStringLiteral("John 11:35"), estilo, {1280, 720}, true, 100);
      const QVariant parado = m_page->Eval(Lugares);
      m_estado.TemaAtual.Efeito_Texto_Fx = QStringLiteral("FadeIn");
      m_estado.TemaAtual.Efeito_Texto_FxExtra = QStringLiteral("FadeIn Up");
      Mostra(QStringLiteral("Jesus wept."), QStringLiteral("John 11:35"), estilo, {1280, 720}, true, 100, true);
      QVERIFY(m_page->WaitFor(QStringLiteral("document.getAnimations().length > 0 && "
                                             "document.getAnimations().every((a) => a.playState === 'finished')")));
      QCOMPARE(m_page->Eval(Lugares), parado);
    }
  }

private:
  int Mostra(const QString &texto, const QString &referencia, int estilo, const QSize &tela, bool centrado,
             double escala, bool comEfeito = false) {
    m_ajustes.EstiloBiblia = estilo;
    const int tamanho =
        TamanhoBiblia(texto, referencia + u" (KJV)", {tela, Familia, estilo, centrado, escala}, m_measure);
    m_telao.commands.clear();
    m_biblia.ExibeBiblia(texto, referencia, QString::number(tamanho), comEfeito, false);
    m_page->Eval(u"UpdateTextHtml('" + m_telao.commands.value(0).section(QStringLiteral("|#"), 1, 1) + u"')");
    return tamanho;
  }

  const QString Familia = QStringLiteral("Liberation Sans");
  std::unique_ptr<PageFixture> m_page;
  EstadoConsole m_estado;
  AjustesTexto m_ajustes;
  LegendaBiblia m_legenda;
  RecordingDisplay m_telao;
  ScriptedRandom m_random{0.5};
  FontTextMeasure m_measure;
  DisplayChannel m_canal{m_estado, [this]() -> tolmira::Display * { return &m_telao; }};
  BibleComposer m_biblia{m_estado,
                         m_ajustes,
                         m_legenda,
                         m_canal,
                         [this]() -> tolmira::Display * { return &m_telao; },
                         [] { return nullptr; },
                         [] { return 320; },
                         m_random};
};

QTEST_MAIN(BiblePagesTest)
#include "ui_test_bible_pages.moc"
