// What the list of songs costs in a folder of 10,000 songs of 4 to 8 stanzas: from the tick of TimerFind to the painted
// list. The aims are 100 ms for the first key of a term when no text is in memory, 8 ms for a rare word and 40 ms for a
// word of nearly every song when they are, 5 ms for a key that narrows, 40 ms from opening the dialog to the painted
// list, and no event that blocks the window longer than a frame (`block_ms`).

#include "controls/ui/palette.h"
#include "foundation/ini_store.h"
#include "foundation/real_seams.h"
#include "songs/FrmAddMusicaNaLista.h"
#include "songs/ui/list_musicas.h"
#include "support/recording_presentation.h"
#include "support/scripted_prompt.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <malloc.h>

using namespace tolmira;

namespace {

constexpr int Songs = 10000;
constexpr int SongsWithWord = 8500;

double Ms(const QElapsedTimer &timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Knows how long the longest event took, those inside it included.
class TimedApplication : public QApplication {
public:
  using QApplication::QApplication;
  bool notify(QObject *receiver, QEvent *event) override {
    if (m_depth++ == 0)
      m_timer.start();
    const bool result = QApplication::notify(receiver, event);
    if (--m_depth == 0)
      longest = std::max(longest, Ms(m_timer));
    return result;
  }
  double longest = 0; // ms

private:
  QElapsedTimer m_timer;
  int m_depth = 0;
};

// TimerFind is the first timer that a finder makes; here it ticks when the bench says so.
class BenchClock : public SystemClock {
public:
  std::unique_ptr<PeriodicTimer> NewTimer(std::function<void()> onTick) override {
    if (!tick)
      tick = onTick;
    return SystemClock::NewTimer(std::move(onTick));
  }
  std::function<void()> tick;
};

class Paints : public QObject {
public:
  bool eventFilter(QObject *, QEvent *event) override {
    seen |= event->type() == QEvent::Paint;
    return false;
  }
  bool seen = false;
};

QString Word(quint32 number) {
  static constexpr const char *Starts[] = {"can", "lou", "gra", "ben", "sal", "ale", "mis", "cor", "son", "vid"};
  static constexpr const char *Ends[] = {"to", "vor", "ça", "ção", "do", "gria", "ração", "ar", "ha", "mento", "es"};
  return QString::fromUtf8(Starts[number % std::size(Starts)]) +
         QString::fromUtf8(Ends[number / std::size(Starts) % std::size(Ends)]);
}

struct Collection {
  Collection() : app(folder.path()), store(app) {
    QDir(folder.path()).mkdir(QStringLiteral("Lyrics"));
    QDir(folder.path()).mkdir(QStringLiteral("Data"));
    quint32 state = 7;
    const auto next = [&state] { return (state = state * 1664525u + 1013904223u) >> 12; };
    for (int i = 0; i < Songs; ++i) {
      QString text;
      const int stanzas = 4 + static_cast<int>(next() % 5);
      for (int line = 0; line < stanzas * 4; ++line) {
        for (int word = 0; word < 6; ++word)
          text += Word(next()) + u' ';
        if (line == 9 && i % 20 < 17)
          text += QStringLiteral("Senhor ");
        if (line == 12 && i == Songs / 2)
          text += QStringLiteral("Zimbro ");
        text += line % 4 == 3 ? QStringLiteral("\r\n\r\n") : QStringLiteral("\r\n");
      }
      QString name = Word(next()) + u' ' + Word(next()) + u' ' + QString::number(i);
      name[0] = name[0].toUpper();
      QFile file(folder.filePath(QStringLiteral("Lyrics/%1.txt").arg(name)));
      if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write a song");
      diskBytes += file.write(EncodeBytes(text));
    }
  }
  static QByteArray EncodeBytes(const QString &text) { return text.toLatin1(); }

  QTemporaryDir folder;
  AppFolder app;
  IniStore store;
  qint64 diskBytes = 0;
};

const Collection &TheCollection() {
  static const Collection collection;
  return collection;
}

TimedApplication &App() {
  return *static_cast<TimedApplication *>(qApp);
}

struct Desk {
  Desk() : positions(TheCollection().store, yielder) {}

  void Make() {
    clock.tick = nullptr;
    dialog = std::make_unique<FrmAddMusicaNaLista>(
        SongDoors{TheCollection().app, console, positions, clock, prompt, nullptr, nullptr, nullptr, nullptr, nullptr});
    list = dialog->findChild<ListMusicas *>();
    box = dialog->findChild<QLineEdit *>();
    list->viewport()->installEventFilter(&paints);
  }
  // Until the list is painted with the rows of the search that was started.
  double UntilPainted(const std::function<void()> &start) {
    bool listed = false;
    const auto connection = QObject::connect(list, &ListMusicas::Listed, list, [&] {
      listed = true;
      paints.seen = false;
    });
    App().longest = 0;
    QElapsedTimer timer;
    timer.start();
    start();
    const double first = Ms(timer);
    while (!listed || !paints.seen)
      QCoreApplication::processEvents(QEventLoop::AllEvents);
    const double spent = Ms(timer);
    block = std::max({block, App().longest, first});
    QObject::disconnect(connection);
    return spent;
  }
  void Settle() {
    while (list->Finder().Buscando())
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
  }
  double Key(const QString &text) {
    box->setText(text);
    return UntilPainted([this] { clock.tick(); });
  }

  LoopYielder yielder;
  FormPositions positions;
  BenchClock clock;
  testing::RecordingPresentation console;
  testing::ScriptedPrompt prompt;
  Paints paints;
  std::unique_ptr<FrmAddMusicaNaLista> dialog;
  ListMusicas *list = nullptr;
  QLineEdit *box = nullptr;
  double block = 0;
};

// The first opening; the toolkit keeps some things from one dialog to the next. `ahead_ms` is what is done before it
// where the dialog was prepared, which the program does shortly after its start.
void OpenDialog(benchmark::State &state, bool prepared) {
  TheCollection();
  Desk desk;
  for (auto _ : state) {
    desk.dialog.reset();
    QElapsedTimer making;
    making.start();
    desk.Make();
    if (prepared)
      desk.dialog->Prepare();
    const double made = Ms(making);
    state.counters["ahead_ms"] = prepared ? made : 0;
    QCoreApplication::processEvents();
    state.SetIterationTime(((prepared ? 0 : made) + desk.UntilPainted([&desk] { desk.dialog->Open(); })) / 1e3);
    desk.Settle();
  }
  state.counters["rows"] = desk.list->model()->rowCount();
}
BENCHMARK_CAPTURE(OpenDialog, prepared, true)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(8);
BENCHMARK_CAPTURE(OpenDialog, unprepared, false)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(8);

void FirstKeyCold(benchmark::State &state) {
  Desk desk;
  for (auto _ : state) {
    desk.dialog.reset();
    desk.Make();
    desk.dialog->Open();
    desk.list->Finder().CancelaBusca(); // or the measuring run reads the texts
    QCoreApplication::processEvents();
    state.SetIterationTime(desk.Key(QStringLiteral("zimbro")) / 1e3);
  }
  state.counters["block_ms"] = desk.block;
}
BENCHMARK(FirstKeyCold)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(8);

void Search(benchmark::State &state, const QString &before, const QString &term) {
  Desk desk;
  desk.Make();
  desk.dialog->Open();
  desk.Settle();
  for (auto _ : state) {
    desk.Key(before);
    const double block = std::exchange(desk.block, 0);
    state.SetIterationTime(desk.Key(term) / 1e3);
    desk.block = std::max(block, desk.block);
  }
  state.counters["rows"] = desk.list->model()->rowCount();
  state.counters["block_ms"] = desk.block;
}

void FirstKeyRareWord(benchmark::State &state) {
  Search(state, QStringLiteral("q"), QStringLiteral("zimbro"));
}
BENCHMARK(FirstKeyRareWord)->Unit(benchmark::kMillisecond)->UseManualTime();

void FirstKeyCommonWord(benchmark::State &state) {
  Search(state, QStringLiteral("q"), QStringLiteral("senhor"));
}
BENCHMARK(FirstKeyCommonWord)->Unit(benchmark::kMillisecond)->UseManualTime();

void NarrowCommonWord(benchmark::State &state) {
  Search(state, QStringLiteral("senho"), QStringLiteral("senhor"));
}
BENCHMARK(NarrowCommonWord)->Unit(benchmark::kMillisecond)->UseManualTime();

void NarrowToLess(benchmark::State &state) {
  Search(state, QStringLiteral("se"), QStringLiteral("senhor s"));
}
BENCHMARK(NarrowToLess)->Unit(benchmark::kMillisecond)->UseManualTime();

void NarrowRareWord(benchmark::State &state) {
  Search(state, QStringLiteral("zim"), QStringLiteral("zimb"));
}
BENCHMARK(NarrowRareWord)->Unit(benchmark::kMillisecond)->UseManualTime();

// A part of the opening: the names of the folder, sorted.
void ListFolder(benchmark::State &state) {
  TheCollection();
  for (auto _ : state) {
    SongFolder folder;
    folder.Observe(TheCollection().app.At(u"\\Lyrics"));
    benchmark::DoNotOptimize(folder.Files());
  }
}
BENCHMARK(ListFolder)->Unit(benchmark::kMillisecond);

// A part of a first key: the texts in memory, without list and window.
void ScanTexts(benchmark::State &state) {
  SongFolder folder;
  folder.Observe(TheCollection().app.At(u"\\Lyrics"));
  const SongRows files = folder.Files();
  const SearchTerm term(QStringLiteral("zimbro"));
  for (auto _ : state)
    for (SongFile *file : files)
      benchmark::DoNotOptimize(folder.Holds(*file, term));
}
BENCHMARK(ScanTexts)->Unit(benchmark::kMillisecond);

// What the texts take in memory, with everything that comes with them but the list of names.
void TextMemory(benchmark::State &state) {
  const auto heap = [] {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
  };
  SongFolder folder;
  const SearchTerm nothing(QStringLiteral("zimbro"));
  for (auto _ : state) {
    folder.Observe(TheCollection().app.At(u"\\Lyrics"));
    const SongRows &files = folder.Files();
    const double before = heap();
    for (SongFile *file : files)
      folder.Holds(*file, nothing);
    state.counters["heap_per_file"] = (heap() - before) / static_cast<double>(TheCollection().diskBytes);
    state.counters["disk_MB"] = static_cast<double>(TheCollection().diskBytes) / 1e6;
  }
}
BENCHMARK(TextMemory)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char **argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  TimedApplication application(argc, argv);
  ApplyLook(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
