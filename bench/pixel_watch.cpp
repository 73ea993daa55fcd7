// Prints every change of a rectangle of the X screen with its monotonic time, as the mean colour of the rectangle. A
// page change that flashes shows as a line near 000000 or ffffff between the old picture and the new one.

#include "x_probe.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char **argv) {
  if (argc != 6) {
    std::fprintf(stderr, "usage: pixel_watch X Y WIDTH HEIGHT MILLISECONDS\n");
    return 2;
  }
  const tolmira::bench::Connection connection(XOpenDisplay(nullptr));
  if (!connection) {
    std::fprintf(stderr, "no X display\n");
    return 1;
  }
  Display *display = connection.get();
  using namespace tolmira::bench;
  ScreenProbe probe(display, std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4]));
  const double start = NowMs();
  const double end = start + std::atof(argv[5]);
  double slowest = 0;
  double before = start;
  while (NowMs() < end) {
    probe.Read();
    const double now = NowMs();
    if (now - before > slowest)
      slowest = now - before;
    before = now;
    if (probe.Differs()) {
      probe.Keep();
      std::printf("%.1f %06x\n", now, probe.MeanColour());
      std::fflush(stdout);
    }
    SleepMs(0.5);
  }
  std::printf("longest gap between two samples: %.1f ms\n", slowest);
  return 0;
}
