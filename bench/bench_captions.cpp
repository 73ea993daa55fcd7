#include "caption_hall.h"
#include "captions/caption_composer.h"

#include <QCoreApplication>
#include <QTcpSocket>
#include <atomic>
#include <benchmark/benchmark.h>
#include <thread>

using namespace tolmira;

namespace {

QString Verse() {
  LegendaLetras look;
  return ComposeLegendaLetra(look,
                             QStringLiteral("You set a lamp beside the road<br>Before I knew the way<br>You took my "
                                            "hurry and my load<br>And taught me how to stay"));
}

void ComposeSong(benchmark::State &state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(Verse());
}
BENCHMARK(ComposeSong);

void ComposePassage(benchmark::State &state) {
  const LegendaBiblia look;
  const QString verse = QString(300, u'x');
  for (auto _ : state)
    benchmark::DoNotOptimize(ComposeLegendaBiblia(look, verse, QStringLiteral("John 3:16"), QStringLiteral("KJV")));
}
BENCHMARK(ComposePassage);

// Polls on one kept connection, asked from another thread. Real time is that of a poll as the client sees it, processor
// time what it takes of the interface thread, with its turn of the message loop.
void Poll(benchmark::State &state) {
  testing::CaptionHall hall;
  hall.legenda.TextoLegenda = Verse();
  std::atomic<qint64> answered = 0;
  std::atomic<bool> going = true;
  std::thread client([&] {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, hall.port);
    socket.waitForConnected();
    while (going) {
      socket.write("GET /getlegenda HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: keep-alive\r\n\r\n");
      socket.waitForBytesWritten();
      QByteArray heard;
      while (going && !heard.endsWith("</div>"))
        heard += socket.waitForReadyRead(100) ? socket.readAll() : QByteArray();
      ++answered;
    }
  });
  const auto oneMore = [&answered] {
    for (const qint64 before = answered; answered == before;)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // at the latest the watchdog's tick ends it
  };
  oneMore();
  for (auto _ : state)
    oneMore();
  going = false;
  client.join();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Poll)->UseRealTime();

} // namespace

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
