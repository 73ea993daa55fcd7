#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <time.h>
#include <vector>

namespace tolmira::bench {

inline double NowMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1000.0 + static_cast<double>(now.tv_nsec) / 1e6;
}

inline void SleepMs(double ms) {
  const auto ns = static_cast<long>(ms * 1e6);
  timespec wait{ns / 1000000000L, ns % 1000000000L};
  nanosleep(&wait, nullptr);
}

struct CloseDisplay {
  void operator()(Display *display) const { XCloseDisplay(display); }
};
using Connection = std::unique_ptr<Display, CloseDisplay>;

// Reads a rectangle of the X screen, as it is shown, through shared memory: well under a millisecond for a third of a
// 1280x720 projection.
class ScreenProbe {
public:
  ScreenProbe(Display *display, int x, int y, int width, int height) : m_display(display), m_x(x), m_y(y) {
    const int screen = DefaultScreen(display);
    m_image =
        XShmCreateImage(display, DefaultVisual(display, screen), static_cast<unsigned>(DefaultDepth(display, screen)),
                        ZPixmap, nullptr, &m_segment, static_cast<unsigned>(width), static_cast<unsigned>(height));
    if (!m_image)
      throw std::runtime_error("the X server offers no shared memory images");
    m_bytes = static_cast<size_t>(m_image->bytes_per_line) * static_cast<size_t>(height);
    m_segment.shmid = shmget(IPC_PRIVATE, m_bytes, IPC_CREAT | 0600);
    m_segment.shmaddr = m_image->data = static_cast<char *>(shmat(m_segment.shmid, nullptr, 0));
    m_segment.readOnly = False;
    XShmAttach(display, &m_segment);
    XSync(display, False);
    shmctl(m_segment.shmid, IPC_RMID, nullptr); // lives until the last detach
  }
  ~ScreenProbe() {
    XShmDetach(m_display, &m_segment);
    m_image->data = nullptr;
    XDestroyImage(m_image);
    shmdt(m_segment.shmaddr);
  }
  ScreenProbe(const ScreenProbe &) = delete;
  ScreenProbe &operator=(const ScreenProbe &) = delete;

  void Read() {
    XShmGetImage(m_display, RootWindow(m_display, DefaultScreen(m_display)), m_image, m_x, m_y, AllPlanes);
  }
  bool Differs() const { return m_kept.size() != m_bytes || std::memcmp(m_kept.data(), m_image->data, m_bytes) != 0; }
  void Keep() { m_kept.assign(m_image->data, m_image->data + m_bytes); }

  // The mean colour as 0xRRGGBB: tells a black or a white frame from a picture at a glance.
  uint32_t MeanColour() const {
    uint64_t red = 0, green = 0, blue = 0;
    const auto *pixels = reinterpret_cast<const uint32_t *>(m_image->data);
    const size_t count = m_bytes / 4;
    for (size_t i = 0; i < count; ++i) {
      red += (pixels[i] >> 16) & 0xff;
      green += (pixels[i] >> 8) & 0xff;
      blue += pixels[i] & 0xff;
    }
    return static_cast<uint32_t>(((red / count) << 16) | ((green / count) << 8) | (blue / count));
  }

private:
  Display *m_display;
  int m_x;
  int m_y;
  XImage *m_image = nullptr;
  XShmSegmentInfo m_segment{};
  size_t m_bytes = 0;
  std::vector<char> m_kept;
};

} // namespace tolmira::bench
