#include "display/ui/video_surface.h"

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QResizeEvent>
#include <condition_variable>
#include <cstdlib>
#include <mpv/client.h>
#include <mpv/render.h>
#include <mutex>
#include <thread>

namespace tolmira {

namespace {

constexpr int Alignment = 64; // the library's scaler takes its fast path on aligned rows only

QImage NewFrame(const QSize &size) {
  const int stride = (size.width() * 4 + Alignment - 1) / Alignment * Alignment;
  void *pixels = std::aligned_alloc(Alignment, static_cast<size_t>(stride) * static_cast<size_t>(size.height()));
  if (!pixels)
    return {};
  return QImage(static_cast<uchar *>(pixels), size.width(), size.height(), stride, QImage::Format_RGB32, std::free,
                pixels);
}

class SoftwareWidget : public QWidget, public VideoSurface {
public:
  explicit SoftwareWidget(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
  }
  ~SoftwareWidget() override { End(); }

  bool Attach(mpv_handle *mpv) override {
    int advanced = 1;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_SW)},
                                     {MPV_RENDER_PARAM_ADVANCED_CONTROL, &advanced},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv_render_context_create(&m_context, mpv, parameters) < 0) {
      m_context = nullptr;
      return false;
    }
    m_ending = false;
    m_size = PixelSize();
    m_thread = std::thread([this] { Draw(); });
    mpv_render_context_set_update_callback(
        m_context, [](void *self) { static_cast<SoftwareWidget *>(self)->Wake(); }, this);
    return true;
  }
  void Detach() override { End(); }
  QWidget *Widget() override { return this; }
  bool CanDraw() const override { return true; }
  void SetBlank(bool blank) override {
    m_blank = blank;
    update();
  }

protected:
  void paintEvent(QPaintEvent *) override {
    QPainter painter(this);
    const std::lock_guard lock(m_frameLock);
    if (m_blank || m_shown.isNull())
      painter.fillRect(rect(), Qt::black);
    else
      painter.drawImage(rect(), m_shown);
  }
  void resizeEvent(QResizeEvent *) override {
    {
      const std::lock_guard lock(m_wakeLock);
      m_size = PixelSize();
      m_redraw = true;
    }
    m_wake.notify_one();
  }

private:
  QSize PixelSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

  void Wake() {
    {
      const std::lock_guard lock(m_wakeLock);
      m_updated = true;
    }
    m_wake.notify_one();
  }

  // The drawing thread: waits for the library's wake-ups, draws into a frame of its own and hands it to the window.
  void Draw() {
    QImage frame;
    for (;;) {
      QSize size;
      bool redraw = false;
      {
        std::unique_lock lock(m_wakeLock);
        m_wake.wait(lock, [this] { return m_ending || m_updated || m_redraw; });
        if (m_ending)
          return;
        m_updated = false;
        redraw = std::exchange(m_redraw, false);
        size = m_size;
      }
      const uint64_t flags = mpv_render_context_update(m_context);
      if ((!(flags & MPV_RENDER_UPDATE_FRAME) && !redraw) || size.isEmpty())
        continue;
      if (frame.size() != size)
        frame = NewFrame(size);
      if (frame.isNull())
        continue;
      int extent[2] = {size.width(), size.height()};
      size_t stride = static_cast<size_t>(frame.bytesPerLine());
      mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SW_SIZE, extent},
                                       {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char *>("bgr0")},
                                       {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                       {MPV_RENDER_PARAM_SW_POINTER, frame.bits()},
                                       {MPV_RENDER_PARAM_INVALID, nullptr}};
      if (mpv_render_context_render(m_context, parameters) < 0)
        continue;
      {
        const std::lock_guard lock(m_frameLock);
        m_shown.swap(frame);
      }
      QMetaObject::invokeMethod(
          this,
          [this] {
            update();
            if (OnFrame)
              OnFrame();
          },
          Qt::QueuedConnection);
    }
  }

  void End() {
    if (!m_context)
      return;
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    {
      const std::lock_guard lock(m_wakeLock);
      m_ending = true;
    }
    m_wake.notify_one();
    m_thread.join();
    mpv_render_context_free(m_context);
    m_context = nullptr;
  }

  mpv_render_context *m_context = nullptr;
  std::thread m_thread;
  std::mutex m_wakeLock; // guards the five fields below
  std::condition_variable m_wake;
  bool m_updated = false;
  bool m_redraw = false;
  bool m_ending = false;
  QSize m_size;
  std::mutex m_frameLock; // guards m_shown
  QImage m_shown;
  bool m_blank = false;
};

} // namespace

std::unique_ptr<VideoSurface> NewSoftwareVideoSurface(QWidget *parent) {
  return std::make_unique<SoftwareWidget>(parent);
}

} // namespace tolmira
