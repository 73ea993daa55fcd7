#include "display/ui/video_surface.h"

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <mpv/client.h>
#include <mpv/render_gl.h>

namespace tolmira {

namespace {

void *ResolveGl(void *, const char *name) {
  QOpenGLContext *context = QOpenGLContext::currentContext();
  return context ? reinterpret_cast<void *>(context->getProcAddress(name)) : nullptr;
}

// The library's renderer lives in the GL context of the widget. That exists only once the widget has been shown, while
// a file may be loaded before, and it can go and come again.
class GlWidget : public QOpenGLWidget, public VideoSurface {
public:
  explicit GlWidget(QWidget *parent) : QOpenGLWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
    setUpdateBehavior(QOpenGLWidget::NoPartialUpdate);
  }
  ~GlWidget() override { End(); }

  bool Attach(mpv_handle *mpv) override {
    m_mpv = mpv;
    if (isValid()) {
      makeCurrent();
      Begin();
      doneCurrent();
    }
    return true;
  }
  void Detach() override {
    End();
    m_mpv = nullptr;
  }
  QWidget *Widget() override { return this; }
  bool CanDraw() const override { return isValid(); }
  void SetBlank(bool blank) override {
    m_blank = blank;
    update();
  }

protected:
  void initializeGL() override {
    // The context goes when the widget moves to another top-level window or the desktop takes it away.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, [this] {
      const bool drew = m_context;
      End();
      if (drew && OnDrawing)
        OnDrawing(false);
    });
    Begin();
    if (m_context && OnDrawing)
      OnDrawing(true);
  }
  void paintGL() override {
    if (!m_context || m_blank) {
      QOpenGLFunctions *gl = context()->functions();
      gl->glClearColor(0, 0, 0, 1);
      gl->glClear(GL_COLOR_BUFFER_BIT);
      return;
    }
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    mpv_opengl_fbo target{static_cast<int>(defaultFramebufferObject()), pixels.width(), pixels.height(), 0};
    int flip = 1;
    int block = 0; // the window's thread never waits for a frame's time
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_OPENGL_FBO, &target},
                                     {MPV_RENDER_PARAM_FLIP_Y, &flip},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context, parameters);
  }

private:
  void Begin() {
    if (m_context || !m_mpv)
      return;
    mpv_opengl_init_params functions{ResolveGl, nullptr};
    int advanced = 1;
    void *x11 = nullptr;
#if QT_CONFIG(xcb)
    if (auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
      x11 = native->display();
#endif
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_OPENGL)},
                                     {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &functions},
                                     {MPV_RENDER_PARAM_ADVANCED_CONTROL, &advanced},
                                     {x11 ? MPV_RENDER_PARAM_X11_DISPLAY : MPV_RENDER_PARAM_INVALID, x11},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv_render_context_create(&m_context, m_mpv, parameters) < 0) {
      m_context = nullptr;
      return;
    }
    mpv_render_context_set_update_callback(
        m_context,
        [](void *self) {
          auto *widget = static_cast<GlWidget *>(self);
          QMetaObject::invokeMethod(
              widget, [widget] { widget->OnUpdate(); }, Qt::QueuedConnection);
        },
        this);
  }

  void OnUpdate() {
    if (!m_context || !(mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME))
      return;
    update();
    if (OnFrame)
      OnFrame();
  }

  void End() {
    if (!m_context)
      return;
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    makeCurrent();
    mpv_render_context_free(m_context);
    m_context = nullptr;
    doneCurrent();
  }

  mpv_handle *m_mpv = nullptr;
  mpv_render_context *m_context = nullptr;
  bool m_blank = false;
};

} // namespace

std::unique_ptr<VideoSurface> NewGlVideoSurface(QWidget *parent) {
  return std::make_unique<GlWidget>(parent);
}

} // namespace tolmira
