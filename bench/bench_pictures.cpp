#include "themes/picture_file.h"
#include "themes/small_copy_loader.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>
#include <QThreadPool>
#include <benchmark/benchmark.h>

using namespace tolmira;

namespace {

constexpr QSize TwelveMegapixels{4000, 3000};
constexpr int Pictures = 8;

// Noisy photographs: soft shapes with the grain of a dark hall, which is what costs a decoder its time.
class Album {
public:
  Album() : app(folder.path()) {
    QDir(folder.path()).mkpath(QStringLiteral("Images/Mini"));
    QImage picture(TwelveMegapixels, QImage::Format_RGB32);
    quint32 seed = 7;
    for (int n = 0; n < Pictures; ++n) {
      for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
          seed = seed * 1664525 + 1013904223;
          const int grain = static_cast<int>(seed >> 27);
          line[x] = qRgb((x / 20 + grain + n * 16) & 255, (y / 15 + grain) & 255, ((x + y) / 40 + grain) & 255);
        }
      }
      names.append(QStringLiteral("%1.jpg").arg(n));
      if (!picture.save(Path(names.last()), "jpg", 90))
        qFatal("cannot write a picture");
    }
  }
  QString Path(const QString &name) const { return folder.filePath(u"Images/" + name); }
  void ForgetCopies() const {
    for (const QString &name : names)
      QFile::remove(folder.filePath(u"Images/Mini/" + name));
  }

  QTemporaryDir folder;
  AppFolder app;
  QStringList names;
};

Album &TheAlbum() {
  static Album album;
  return album;
}

// Asks for every copy and runs the loop until all have come.
void WaitForCopies(SmallCopyLoader &loader, const Album &album) {
  QEventLoop loop;
  int ready = 0;
  const auto connection = QObject::connect(&loader, &SmallCopyLoader::Pronta, &loop, [&] {
    if (++ready == Pictures)
      loop.quit();
  });
  loader.Deseja(album.names);
  loop.exec();
  QObject::disconnect(connection);
}

// Small copies as the gallery makes them, on all its threads.
void SmallCopies(benchmark::State &state) {
  Album &album = TheAlbum();
  SmallCopyLoader loader(album.app);
  for (auto _ : state) {
    state.PauseTiming();
    album.ForgetCopies();
    state.ResumeTiming();
    WaitForCopies(loader, album);
  }
  state.SetItemsProcessed(state.iterations() * Pictures);
}
BENCHMARK(SmallCopies)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same copies by decoding the whole pictures first, on as many threads.
void FullDecode(benchmark::State &state) {
  Album &album = TheAlbum();
  for (auto _ : state) {
    album.ForgetCopies();
    QThreadPool pool;
    for (const QString &name : album.names)
      pool.start([&album, name] {
        const QImage whole = QImageReader(album.Path(name)).read();
        SalvaJpeg(RedimensionaFoto(whole, 160, 120), album.folder.filePath(u"Images/Mini/" + name), 50,
                  DiskWait::DontWait);
      });
    pool.waitForDone();
  }
  state.SetItemsProcessed(state.iterations() * Pictures);
}
BENCHMARK(FullDecode)->Unit(benchmark::kMillisecond)->UseRealTime();

// A page of the gallery whose copies are there.
void ReadyCopies(benchmark::State &state) {
  Album &album = TheAlbum();
  SmallCopyLoader loader(album.app);
  for (auto _ : state) {
    WaitForCopies(loader, album);
  }
  state.SetItemsProcessed(state.iterations() * Pictures);
}
BENCHMARK(ReadyCopies)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
