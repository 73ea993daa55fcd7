// What opening a song costs: reading and preparing the file, then cutting it into verses with the real text measure.
// An operator must not notice it; below 2 ms together is the aim for such a song of eight stanzas.

#include "foundation/real_seams.h"
#include "songs/pagination.h"
#include "songs/song_text.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace tolmira;

namespace {

// A hymn of four stanzas, shown as eight with the chorus behind each; one stanza is so long that it is cut.
QByteArray Hymn() {
  QByteArray text;
  for (int stanza = 1; stanza <= 4; ++stanza) {
    text += QByteArray::number(stanza) + ". Canta, minha alma, ao Rei da luz eterna,\r\n";
    for (int line = stanza == 3 ? 0 : 5; line < 8; ++line)
      text += "Verso " + QByteArray::number(line) + " da estrofe que fala do caminho e da paz\r\n";
    text += "\r\n";
    if (stanza == 1)
      text += "Coro\r\nGL\xD3RIA AO SENHOR QUE NOS AMOU PRIMEIRO\r\nALELUIA, ALELUIA, AM\xC9M\r\n\r\n";
  }
  return text;
}

PaginationLayout ConsoleLayout() {
  PaginationLayout layout;
  layout.font = {QStringLiteral("Liberation Sans"), 28, true};
  layout.wrapWidthPx = 640;
  layout.limitTwips = 360 * TwipsPerPixel;
  return layout;
}

struct SongOnDisk {
  SongOnDisk() : app(folder.path()), path(app.At(u"\\Harpa\\1 Hino.txt")) {
    QDir(folder.path()).mkdir(QStringLiteral("Harpa"));
    QFile file(folder.filePath(QStringLiteral("Harpa/1 Hino.txt")));
    if (file.open(QIODevice::WriteOnly))
      file.write(Hymn());
  }
  QTemporaryDir folder;
  AppFolder app;
  QString path;
};

void PrepareSong(benchmark::State &state) {
  const SongOnDisk song;
  for (auto _ : state)
    benchmark::DoNotOptimize(PrepareSongText(song.app, song.path, true));
}
BENCHMARK(PrepareSong)->Unit(benchmark::kMillisecond);

void PrepareAndPaginate(benchmark::State &state) {
  const SongOnDisk song;
  FontTextMeasure measure;
  int verses = 0;
  for (auto _ : state) {
    QString text = PrepareSongText(song.app, song.path, true).text;
    verses = PaginateVerses(text, ConsoleLayout(), measure).TotalEstrofes;
  }
  state.counters["verses"] = verses;
}
BENCHMARK(PrepareAndPaginate)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
