// What the Bible costs: loading a version, fetching any of its verses, searching it by words, keeping it in memory. The
// aims are 100 ms for loading, 0.2 ms for a verse at the 99th percentile, 20 ms for a search, and four times the size
// of the files in memory. TOLMIRA_BENCH_BIBLE names a folder with version files; without it a version of the usual size
// is made up.

#include "bible/bible_store.h"
#include "bible/books.h"
#include "bible/word_search.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <malloc.h>

using namespace tolmira;

namespace {

constexpr int Verses = 31102;
const char *const RareWord = "whirlwindish";

QByteArray VerseText(qsizetype length, quint32 &state) {
  static constexpr const char *Words[] = {"the", "and",   "of",      "the",    "that",   "he",     "shall",   "unto",
                                          "the", "in",    "his",     "valley", "answer", "people", "river",   "the",
                                          "to",  "light", "morning", "spoke",  "they",   "was",    "servant", "hills"};
  QByteArray text;
  while (text.size() < length) {
    state = state * 1664525u + 1013904223u;
    text += Words[(state >> 16) % std::size(Words)];
    text += (state >> 8) % 9 == 0 ? ", " : " ";
  }
  return text;
}

// As long, book for book, as the version that SearchStart was measured on, and a little longer.
void WriteVersion(const QString &folder) {
  QByteArray files[2];
  quint32 state = 1;
  int chapters = 0;
  for (int book = 1; book <= BookCount; ++book) {
    QByteArray &file = files[book > OldTestamentBooks];
    const bool last = book == OldTestamentBooks || book == BookCount;
    const qsizetype length = last ? 60000 : static_cast<qsizetype>((SearchStart(book + 1) - SearchStart(book)) / 0.7);
    for (int chapter = 1; chapter <= ChapterCount(book); ++chapter, ++chapters) {
      const int verses = Verses / 1189 + (chapters < Verses % 1189 ? 1 : 0);
      file += '>' + BookName(book).toLatin1() + " [" + QByteArray::number(chapter) + "]\r\n";
      for (int verse = 1; verse <= verses; ++verse)
        file += QByteArray::number(verse) + ' ' + VerseText(length / ChapterCount(book) / verses, state) + "\r\n";
    }
  }
  files[1].insert(files[1].size() - 2, RareWord);
  for (const int i : {0, 1}) {
    QFile file(folder + (i == 0 ? u"/OLD_BENCH.txt" : u"/NEW_BENCH.txt"));
    if (file.open(QIODevice::WriteOnly))
      file.write(files[i]);
  }
}

struct Desk {
  Desk() : app(folder.path()), store(app) {
    QDir(folder.path()).mkdir(QStringLiteral("Data"));
    const QString bible = folder.filePath(QStringLiteral("Bible"));
    if (const QString given = qEnvironmentVariable("TOLMIRA_BENCH_BIBLE"); !given.isEmpty()) {
      QFile::link(QDir(given).absolutePath(), bible);
      return;
    }
    QDir(folder.path()).mkdir(QStringLiteral("Bible"));
    WriteVersion(bible);
  }
  qint64 FileSize(const BibleStore &bible) const {
    const QString name = bible.Versoes().front().arquivo.mid(3);
    const QString path = folder.filePath(QStringLiteral("Bible/"));
    return QFile(path + u"OLD" + name).size() + QFile(path + u"NEW" + name).size();
  }
  QTemporaryDir folder;
  AppFolder app;
  IniStore store;
};

double HeapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

double PssBytes() {
  QFile file(QStringLiteral("/proc/self/smaps_rollup"));
  if (!file.open(QIODevice::ReadOnly))
    return 0;
  for (const QByteArray &line : file.readAll().split('\n')) {
    if (line.startsWith("Pss:"))
      return line.mid(4).trimmed().split(' ').first().toDouble() * 1024;
  }
  return 0;
}

// From the disk's cache, with the scan of the folder in front of it. The memory is given in sizes of the two files.
void LoadVersion(benchmark::State &state) {
  const Desk desk;
  BibleStore bible(desk.app, desk.store);
  malloc_trim(0);
  const double heap = HeapBytes();
  const double pss = PssBytes();
  bible.BuildVersionMenu();
  const auto size = static_cast<double>(desk.FileSize(bible));
  state.counters["heap_per_file"] = (HeapBytes() - heap) / size;
  state.counters["pss_per_file"] = (PssBytes() - pss) / size;
  state.counters["file_MB"] = size / 1e6;
  for (auto _ : state)
    bible.BuildVersionMenu();
}
BENCHMARK(LoadVersion)->Unit(benchmark::kMillisecond);

void GetEveryVerse(benchmark::State &state) {
  const Desk desk;
  BibleStore bible(desk.app, desk.store);
  bible.BuildVersionMenu();
  QStringList references;
  for (int book = 1; book <= BookCount; ++book) {
    for (const int chapter : bible.CapitulosDoLivro(book)) {
      const qsizetype verses = bible.VersiculosDoCapitulo(book, chapter).size();
      for (int verse = 1; verse <= verses; ++verse)
        references.append(QStringLiteral("%1 %2:%3").arg(BookName(book)).arg(chapter).arg(verse));
    }
  }
  std::vector<double> times(static_cast<size_t>(references.size()));
  qsizetype empty = 0;
  for (auto _ : state) {
    for (qsizetype i = 0; i < references.size(); ++i) {
      const auto start = std::chrono::steady_clock::now();
      const QString verse = bible.GetVerse(references[i]);
      const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
      times[static_cast<size_t>(i)] = time.count();
      empty += verse.isEmpty() ? 1 : 0;
    }
  }
  std::sort(times.begin(), times.end());
  state.counters["references"] = static_cast<double>(references.size());
  state.counters["empty"] = static_cast<double>(empty);
  state.counters["p99_us"] = times[times.size() * 99 / 100];
  state.counters["worst_us"] = times.back();
}
BENCHMARK(GetEveryVerse)->Unit(benchmark::kMillisecond)->Iterations(1);

// With the making of the search, as each query of the operator makes one.
void SearchFor(benchmark::State &state, const QString &query) {
  const Desk desk;
  BibleStore bible(desk.app, desk.store);
  bible.BuildVersionMenu();
  const int version = bible.BibliaAtual();
  QList<SearchHit> hits;
  for (auto _ : state) {
    hits.clear();
    WordSearch search(bible.Texto(version, false), bible.Texto(version, true), query);
    while (search.Next(64 * 1024, hits)) {
    }
  }
  state.counters["hits"] = static_cast<double>(hits.size());
}

void SearchRareWord(benchmark::State &state) {
  SearchFor(state, QLatin1String(qEnvironmentVariableIsEmpty("TOLMIRA_BENCH_BIBLE") ? RareWord : "Mesopotamia"));
}
BENCHMARK(SearchRareWord)->Unit(benchmark::kMillisecond);

void SearchCommonWord(benchmark::State &state) {
  SearchFor(state, QStringLiteral("the"));
}
BENCHMARK(SearchCommonWord)->Unit(benchmark::kMillisecond);

void SearchPhrase(benchmark::State &state) {
  SearchFor(state, QStringLiteral("\"and the people of\" light"));
}
BENCHMARK(SearchPhrase)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
