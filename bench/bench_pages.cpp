#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Pages = 12;

// A third of the pages are text on white, a third text on a gradient, a third text on a photograph of the hall.
void WriteDocument(const QString &path) {
  QImage photograph(1920, 1080, QImage::Format_RGB32);
  quint32 seed = 7;
  for (int y = 0; y < photograph.height(); ++y)
    for (int x = 0; x < photograph.width(); ++x) {
      seed = seed * 1664525 + 1013904223;
      const int grain = static_cast<int>(seed >> 28);
      photograph.setPixel(x, y, qRgb((x / 10 + grain) & 255, (y / 8 + grain) & 255, ((x + y) / 16 + grain) & 255));
    }
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QSizeF(254, 142.875), QPageSize::Millimeter));
  writer.setPageMargins({});
  writer.setResolution(150);
  QPainter painter(&writer);
  const QRect page(0, 0, writer.width(), writer.height());
  for (int n = 0; n < Pages; ++n) {
    if (n > 0)
      writer.newPage();
    if (n % 3 == 1) {
      QLinearGradient gradient(0, 0, 0, page.height());
      gradient.setColorAt(0, QColor(20, 30, 90));
      gradient.setColorAt(1, QColor(90, 140, 220));
      painter.fillRect(page, gradient);
    } else if (n % 3 == 2) {
      painter.drawImage(page, photograph);
    }
    painter.setPen(n % 3 == 0 ? Qt::black : Qt::white);
    painter.setFont(QFont(QStringLiteral("Liberation Sans"), 20));
    for (int line = 0; line < 10; ++line)
      painter.drawText(100, 150 + line * 65, QStringLiteral("A lamp is lit and the hall is bright, verse %1").arg(line));
  }
}

// The drawer of pages as the program starts it: one process for the document, pictures on disk.
void DrawPages(benchmark::State &state) {
  static const QTemporaryDir folder;
  static const QString document = folder.filePath(QStringLiteral("document.pdf"));
  if (!QFile::exists(document))
    WriteDocument(document);
  const QString drawer = QCoreApplication::applicationDirPath() + QStringLiteral("/../bin/tolmira-pages");
  for (auto _ : state) {
    const QTemporaryDir pages;
    QProcess process;
    process.start(drawer, {document, pages.path(), QStringLiteral("%1x%2").arg(state.range(0)).arg(state.range(1))});
    process.closeWriteChannel();
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
      qFatal("tolmira-pages did not draw");
  }
  state.SetItemsProcessed(state.iterations() * Pages);
}
BENCHMARK(DrawPages)->Args({1280, 720})->Args({1920, 1080})->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
