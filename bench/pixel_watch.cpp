// Prints every change of a rectangle of the X screen with its monotonic time, as the mean colour of the rectangle. A
// page change that flashes shows as a line near 000000 or ffffff between the old picture and the new one.

#include "x_probe.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int Near = 10; // what a channel may be off

bool IsNear(unsigned colour, int channel) {
  for (const int shift : {0, 8, 16})
    if (std::abs(static_cast<int>(colour >> shift & 0xff) - channel) > Near)
      return false;
  return true;
}

} // namespace

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
  int samples = 0;
  int black = 0;
  int white = 0;
  while (NowMs() < end) {
    probe.Read();
    const double now = NowMs();
    if (now - before > slowest)
      slowest = now - before;
    before = now;
    ++samples;
    if (probe.Differs()) {
      probe.Keep();
      const unsigned colour = probe.MeanColour();
      black += IsNear(colour, 0x00) ? 1 : 0;
      white += IsNear(colour, 0xff) ? 1 : 0;
      std::printf("%.1f %06x\n", now, colour);
      std::fflush(stdout);
    }
    SleepMs(0.5);
  }
  std::printf("%d samples; pictures that were black: %d, white: %d; longest gap between two samples: %.1f ms\n", samples,
              black, white, slowest);
  return 0;
}
