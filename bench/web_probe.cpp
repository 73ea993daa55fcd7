// What reading the web costs the interface thread: the longest time between two turns of its loop while a page comes.
#include "support/site_server.h"
#include "web/real_web_client.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

constexpr int Times = 9;

QByteArray LargePage(qsizetype size) {
  QByteArray block;
  while (block.size() < 100'000)
    block += "<a href=\"/url?q=https://a.example/l/" + QByteArray::number(block.size()) + "&x=1\">Luz e canção</a>\n";
  return block.repeated(size / block.size());
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

} // namespace

int main(int argc, char **argv) {
  QCoreApplication app(argc, argv);
  QThread aside;
  QString host;
  QObject starter;
  starter.moveToThread(&aside);
  SiteServer *site = nullptr;
  aside.start();
  QMetaObject::invokeMethod(
      &starter,
      [&] {
        site = new SiteServer;
        site->Page("/usual", LargePage(1'000'000));
        site->Page("/largest", LargePage(LimiteDePagina));
        host = site->Host();
      },
      Qt::BlockingQueuedConnection);

  RealWebClient client;
  QElapsedTimer clock;
  clock.start();
  double longest = 0;
  double last = 0;
  QTimer beat;
  beat.setTimerType(Qt::PreciseTimer);
  QObject::connect(&beat, &QTimer::timeout, [&] {
    const double now = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    longest = std::max(longest, now - last);
    last = now;
  });
  beat.start(1);
  for (const char *page : {"/usual", "/largest"})
    for (const int method : {2, 4}) {
      std::vector<double> whole, gaps;
      for (int i = 0; i < Times; ++i) {
        bool told = false;
        qsizetype size = 0;
        QCoreApplication::processEvents();
        longest = 0;
        last = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        const double begun = last;
        const auto task = client.FetchBy(method, QUrl(host + QString::fromLatin1(page)), [&](const QString &text) {
          told = true;
          size = text.size();
        });
        while (!told)
          QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (size == 0)
          return 1;
        whole.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6 - begun);
        gaps.push_back(longest);
      }
      std::printf("%s by method %d: %.1f ms, longest turn of the loop %.1f ms (worst %.1f)\n", page, method,
                  Median(whole), Median(gaps), *std::max_element(gaps.begin(), gaps.end()));
    }
  QMetaObject::invokeMethod(
      &starter, [&] { delete site; }, Qt::BlockingQueuedConnection);
  aside.quit();
  aside.wait();
  return 0;
}
