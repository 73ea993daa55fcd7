#include "themes/contrast.h"

#include <QPainter>
#include <QtTest>

using namespace tolmira;

namespace {

constexpr QSize Screen{1280, 720};

TemaRecord Plain(const char *colour) {
  TemaRecord tema;
  tema.Font_Cor = QLatin1String(colour);
  tema.FontSombra_Enabled = tema.FontBorda_Enabled = false;
  return tema;
}

QImage Filled(const QSize &size, QColor colour) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

} // namespace

class TestContrast : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void ratio() {
    QCOMPARE(ContrastRatio(qRgb(0, 0, 0), qRgb(255, 255, 255)), 21.0);
    QCOMPARE(ContrastRatio(qRgb(9, 9, 9), qRgb(9, 9, 9)), 1.0);
    // The guidelines' own example of a grey that just passes on white.
    QVERIFY(qAbs(ContrastRatio(qRgb(0x76, 0x76, 0x76), qRgb(255, 255, 255)) - 4.54) < 0.01);
  }

  void isEnough_data() {
    QTest::addColumn<TemaRecord>("tema");
    QTest::addColumn<QColor>("behind");
    QTest::addColumn<bool>("enough");
    const auto with = [](TemaRecord tema, const std::function<void(TemaRecord &)> &change) {
      change(tema);
      return tema;
    };
    const TemaRecord white = Plain("16777215");
    QTest::newRow("white on black") << white << QColor(Qt::black) << true;
    QTest::newRow("white on white") << white << QColor(Qt::white) << false;
    QTest::newRow("yellow on white") << Plain("65535") << QColor(Qt::white) << false;
    QTest::newRow("red on blue") << Plain("255") << QColor(Qt::blue) << false;
    QTest::newRow("black on white") << Plain("0") << QColor(Qt::white) << true;
    QTest::newRow("white on white as every theme begins") << TemaRecord() << QColor(Qt::white) << false;
    QTest::newRow("an outline helps a little") << with(white, [](TemaRecord &t) { t.FontBorda_Enabled = true; })
                                               << QColor(150, 150, 150) << true;
    QTest::newRow("the same without") << white << QColor(150, 150, 150) << false;
    QTest::newRow("and alone is not enough") << with(white, [](TemaRecord &t) { t.FontBorda_Enabled = true; })
                                             << QColor(Qt::white) << false;
    QTest::newRow("an outline of no thickness") << with(white, [](TemaRecord &t) {
      t.FontBorda_Enabled = true;
      t.FontBorda_Espessura = QStringLiteral("0");
    }) << QColor(150, 150, 150) << false;
    QTest::newRow("darkened by the filter") << with(white, [](TemaRecord &t) { t.brightness = 40; })
                                            << QColor(Qt::white) << true;
    QTest::newRow("no contrast left") << with(white, [](TemaRecord &t) {
      t.contrast = 0;
      t.brightness = 200;
    }) << QColor(Qt::black) << true;
  }
  void isEnough() {
    QFETCH(TemaRecord, tema);
    QFETCH(QColor, behind);
    const QImage picture = BehindText(Filled(QSize(64, 36), behind), QSize(64, 36), Screen, tema);
    QTEST(TextContrast(picture, tema) >= LeastContrast, "enough");
    // A flat colour is the same as a picture of it.
    tema.CordeFundo = behind.red() | behind.green() << 8 | behind.blue() << 16;
    QCOMPARE(TextContrast(BehindText(tema), tema), TextContrast(picture, tema));
  }

  // Only what verses can stand on counts, and of that the worst tenth.
  void whichPartCounts_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRectF>("bright"); // in parts of the picture
    QTest::addColumn<bool>("enough");
    const QSize wide(1600, 900);
    QTest::newRow("the edges") << wide << QRectF(0, 0, 1, 0.19) << true;
    QTest::newRow("a speck in the middle") << wide << QRectF(0.45, 0.45, 0.1, 0.1) << true;
    QTest::newRow("a fifth of the middle") << wide << QRectF(0.1, 0.2, 0.18, 0.6) << false;
    QTest::newRow("beside what a wide screen shows") << QSize(900, 1600) << QRectF(0, 0, 1, 0.35) << true;
  }
  void whichPartCounts() {
    QFETCH(QSize, size);
    QFETCH(QRectF, bright);
    QImage picture = Filled(QSize(160, 120), Qt::black); // squeezed, as a small copy is
    QPainter painter(&picture);
    painter.fillRect(QRectF(bright.x() * 160, bright.y() * 120, bright.width() * 160, bright.height() * 120), Qt::white);
    painter.end();
    const TemaRecord tema = Plain("16777215");
    QTEST(TextContrast(BehindText(picture, size, Screen, tema), tema) >= LeastContrast, "enough");
  }

  void withoutAPictureThereIsNothingToSay() {
    const TemaRecord tema = Plain("16777215");
    QVERIFY(TextContrast(BehindText(QImage(), QSize(), Screen, tema), tema) >= LeastContrast);
    QVERIFY(TextContrast(BehindText(Filled(QSize(1, 1), Qt::black), QSize(1, 1), Screen, tema), tema) > 20);
  }
};

QTEST_GUILESS_MAIN(TestContrast)
#include "test_contrast.moc"
