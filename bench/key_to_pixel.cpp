// From the key press to the first changed pixel: presses a key with XTest, watches a rectangle of the projection and
// prints the median and the 95th percentile over the repetitions. A press that changes nothing within the limit counts
// as missed and makes the program fail.

#include "x_probe.h"

#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Wishes {
  int x = 1280, y = 240, width = 1280, height = 240;
  std::vector<std::string> keys;
  int times = 50;
  double pauseMs = 400;
  double limitMs = 1000;
};

bool ReadWishes(int argc, char **argv, Wishes &wishes) {
  for (int i = 1; i < argc; ++i) {
    const std::string name = argv[i];
    const bool rectangle = name == "--area";
    if (i + (rectangle ? 4 : 1) >= argc)
      return false;
    if (rectangle) {
      wishes.x = std::atoi(argv[++i]);
      wishes.y = std::atoi(argv[++i]);
      wishes.width = std::atoi(argv[++i]);
      wishes.height = std::atoi(argv[++i]);
    } else if (name == "--key") {
      wishes.keys.emplace_back(argv[++i]);
    } else if (name == "--times") {
      wishes.times = std::atoi(argv[++i]);
    } else if (name == "--pause") {
      wishes.pauseMs = std::atof(argv[++i]);
    } else {
      return false;
    }
  }
  return !wishes.keys.empty() && wishes.times > 0 && wishes.width > 0 && wishes.height > 0;
}

double Percentile(const std::vector<double> &sorted, double share) {
  const auto index = static_cast<size_t>(std::ceil(share * static_cast<double>(sorted.size()))) - 1;
  return sorted[std::min(index, sorted.size() - 1)];
}

} // namespace

int main(int argc, char **argv) {
  using namespace tolmira::bench;
  Wishes wishes;
  if (!ReadWishes(argc, argv, wishes)) {
    std::fprintf(stderr,
                 "usage: key_to_pixel --key NAME [--key NAME ...] [--area X Y WIDTH HEIGHT] [--times N] [--pause MS]\n"
                 "Several keys are pressed in turn (Down, Up), so that each press changes the picture.\n");
    return 2;
  }
  const Connection connection(XOpenDisplay(nullptr));
  if (!connection) {
    std::fprintf(stderr, "no X display\n");
    return 1;
  }
  Display *display = connection.get();
  std::vector<KeyCode> codes;
  for (const std::string &key : wishes.keys) {
    codes.push_back(XKeysymToKeycode(display, XStringToKeysym(key.c_str())));
    if (codes.back() == 0) {
      std::fprintf(stderr, "unknown key: %s\n", key.c_str());
      return 2;
    }
  }

  ScreenProbe probe(display, wishes.x, wishes.y, wishes.width, wishes.height);
  std::vector<double> taken;
  int missed = 0;
  for (int i = 0; i < wishes.times; ++i) {
    const KeyCode code = codes[static_cast<size_t>(i) % codes.size()];
    // The pause varies over one frame, so that the presses do not fall into step with the page's frame clock.
    SleepMs(wishes.pauseMs + 1.7 * (i % 10));
    probe.Read();
    probe.Keep();
    const double pressed = NowMs();
    XTestFakeKeyEvent(display, code, True, CurrentTime);
    XTestFakeKeyEvent(display, code, False, CurrentTime);
    XFlush(display);
    double seen = 0;
    while (NowMs() - pressed < wishes.limitMs) {
      probe.Read();
      if (probe.Differs()) {
        seen = NowMs();
        break;
      }
      SleepMs(0.3);
    }
    if (seen > 0)
      taken.push_back(seen - pressed);
    else
      ++missed;
  }
  if (taken.empty()) {
    std::printf("no press changed the picture\n");
    return 1;
  }
  std::sort(taken.begin(), taken.end());
  std::printf("presses %d missed %d median %.1f ms p95 %.1f ms min %.1f ms max %.1f ms\n", wishes.times, missed,
              Percentile(taken, 0.5), Percentile(taken, 0.95), taken.front(), taken.back());
  return missed == 0 ? 0 : 1;
}
