// Stands in for libFuzzer where there is none: every seed, and mutations of it that are the same in every run.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <cstdint>
#include <cstdio>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

constexpr int MutationsOfASeed = 200;
constexpr qsizetype LongestInput = 200'000;

void Run(const QByteArray &input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()), static_cast<size_t>(input.size()));
}

QByteArray Mutated(QByteArray input, const QByteArray &other, std::mt19937 &chance) {
  const auto place = [&chance](qsizetype size) {
    return size > 0 ? static_cast<qsizetype>(chance() % static_cast<size_t>(size)) : qsizetype(0);
  };
  for (unsigned turns = 1 + chance() % 8; turns > 0; --turns) {
    const qsizetype at = place(input.size());
    const qsizetype length = place(qMin<qsizetype>(input.size() - at, 400));
    switch (chance() % 6) {
    case 0:
      input.remove(at, length);
      break;
    case 1:
      input.insert(at, input.sliced(at, length));
      break;
    case 2:
      if (!input.isEmpty())
        input[at] = static_cast<char>(chance());
      break;
    case 3:
      input.truncate(at);
      break;
    case 4:
      input.insert(at, other.mid(place(other.size()), 400));
      break;
    default:
      input.insert(at, "\"<>&;=/"[chance() % 7]);
      break;
    }
  }
  return input.first(qMin(input.size(), LongestInput));
}

} // namespace

int main(int argc, char **argv) {
  QList<QByteArray> seeds = {QByteArray()};
  for (int i = 1; i < argc; ++i) {
    const QDir folder(QString::fromLocal8Bit(argv[i]));
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
      QFile file(folder.filePath(name));
      if (file.open(QIODevice::ReadOnly))
        seeds.append(file.readAll());
    }
  }
  if (seeds.size() < 2) {
    std::fputs("no seeds\n", stderr);
    return 1;
  }
  std::mt19937 chance(1);
  for (const QByteArray &seed : seeds) {
    Run(seed);
    for (int i = 0; i < MutationsOfASeed; ++i)
      Run(Mutated(seed, seeds[static_cast<qsizetype>(chance() % static_cast<size_t>(seeds.size()))], chance));
    // Its markers over and over again: what is not read in one go shows by never ending.
    Run(seed.repeated(seed.isEmpty() ? 0 : static_cast<qsizetype>(1'000'000 / seed.size())));
  }
  std::printf("%d seeds\n", static_cast<int>(seeds.size()));
  return 0;
}
