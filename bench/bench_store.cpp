#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include "foundation/ini_store.h"

using namespace tolmira;

namespace {

// A store as a church has it after some years: every setting written, and the captions' and notices' sections.
struct Store {
  Store() : app(folder.path()), store(app) {
    QDir(folder.path()).mkdir(QStringLiteral("Data"));
    for (const char *section : {"Config", "Avisos", "Biblias", "Legendas", "Registro"})
      for (int i = 0; i < 20; ++i)
        store.WriteConfig(QLatin1String(section), QStringLiteral("chave%1").arg(i), QStringLiteral("valor %1").arg(i));
  }
  QTemporaryDir folder;
  AppFolder app;
  IniStore store;
};

void ReadConfig(benchmark::State &state) {
  const Store s;
  for (auto _ : state)
    benchmark::DoNotOptimize(
        s.store.ReadConfig(QStringLiteral("Registro"), QStringLiteral("chave19"), QStringLiteral("0")));
}
BENCHMARK(ReadConfig)->Unit(benchmark::kMicrosecond);

void WriteConfig(benchmark::State &state) {
  const Store s;
  int n = 0;
  for (auto _ : state)
    s.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("chave7"), QString::number(++n));
}
BENCHMARK(WriteConfig)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
