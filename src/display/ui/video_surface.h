#pragma once

#include <QWidget>
#include <functional>
#include <memory>

struct mpv_handle;

namespace tolmira {

// The widget that shows what the media library decodes. Attach before the first file is loaded; Detach (or the
// destructor) before the library's handle ends. Where it cannot draw, the library has no renderer, and a video begun
// then stays without a picture.
class VideoSurface {
public:
  virtual ~VideoSurface() = default;
  virtual bool Attach(mpv_handle *mpv) = 0;
  virtual void Detach() = 0;
  virtual QWidget *Widget() = 0;
  virtual bool CanDraw() const = 0;
  // Black instead of the picture, as a stopped player looks.
  virtual void SetBlank(bool blank) = 0;
  std::function<void()> OnFrame; // a new picture is on its way to the screen; on the window's thread
  std::function<void(bool can)> OnDrawing; // that changed, after Attach; the library's renderer is there, or gone
};

// Draws on the processor, in a thread of its own. For desktops where GL is only emulated: a GL widget would force the
// whole projection, page included, through that emulation.
std::unique_ptr<VideoSurface> NewSoftwareVideoSurface(QWidget *parent);

// Draws with GL, decoding in hardware where the card can.
std::unique_ptr<VideoSurface> NewGlVideoSurface(QWidget *parent);

} // namespace tolmira
