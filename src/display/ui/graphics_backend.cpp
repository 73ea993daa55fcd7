#include "display/ui/graphics_backend.h"

#include <EGL/egl.h>
#include <QDir>
#include <QFile>
#include <QList>
#include <QtGlobal>
#include <dlfcn.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr auto QuickBackend = "QT_QUICK_BACKEND";
constexpr auto ChromiumFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr auto XcbGlIntegration = "QT_XCB_GL_INTEGRATION";
constexpr int ProbeLimitMs = 2000;
constexpr int ProbeAnswerLimit = 256;
constexpr unsigned GlRendererEnum = 0x1F01; // GL_RENDERER

// Without a device node of a graphics driver any GL runs on the processor, and there is no need to load it to know.
bool HasGraphicsDevice() {
  const QDir dri(QStringLiteral("/dev/dri"));
  return !dri.entryList({QStringLiteral("renderD*"), QStringLiteral("card*")}, QDir::System).isEmpty() ||
         QFile::exists(QStringLiteral("/dev/nvidiactl"));
}

template <typename Function> Function Resolve(void *library, const char *name) {
  return reinterpret_cast<Function>(dlsym(library, name));
}

// Runs in the child only: writes the renderer's name to `pipe`.
void Probe(int pipe) {
  void *egl = dlopen("libEGL.so.1", RTLD_NOW);
  if (!egl)
    return;
  const auto getDisplay = Resolve<decltype(&eglGetDisplay)>(egl, "eglGetDisplay");
  const auto initialize = Resolve<decltype(&eglInitialize)>(egl, "eglInitialize");
  const auto bindApi = Resolve<decltype(&eglBindAPI)>(egl, "eglBindAPI");
  const auto chooseConfig = Resolve<decltype(&eglChooseConfig)>(egl, "eglChooseConfig");
  const auto createContext = Resolve<decltype(&eglCreateContext)>(egl, "eglCreateContext");
  const auto createPbuffer = Resolve<decltype(&eglCreatePbufferSurface)>(egl, "eglCreatePbufferSurface");
  const auto makeCurrent = Resolve<decltype(&eglMakeCurrent)>(egl, "eglMakeCurrent");
  const auto procAddress = Resolve<decltype(&eglGetProcAddress)>(egl, "eglGetProcAddress");
  if (!getDisplay || !initialize || !bindApi || !chooseConfig || !createContext || !createPbuffer || !makeCurrent ||
      !procAddress)
    return;

  EGLDisplay display = getDisplay(EGL_DEFAULT_DISPLAY);
  if (display == EGL_NO_DISPLAY || !initialize(display, nullptr, nullptr) || !bindApi(EGL_OPENGL_ES_API))
    return;
  const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_ES2_BIT, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint found = 0;
  if (!chooseConfig(display, wanted, &config, 1, &found) || found == 0)
    return;
  const EGLint version[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
  const EGLint size[] = {EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
  EGLContext context = createContext(display, config, EGL_NO_CONTEXT, version);
  EGLSurface surface = createPbuffer(display, config, size);
  if (context == EGL_NO_CONTEXT || surface == EGL_NO_SURFACE || !makeCurrent(display, surface, surface, context))
    return;
  using GetString = const unsigned char *(*)(unsigned);
  const auto getString = reinterpret_cast<GetString>(procAddress("glGetString"));
  const auto *name = getString ? reinterpret_cast<const char *>(getString(GlRendererEnum)) : nullptr;
  if (name && write(pipe, name, qstrnlen(name, ProbeAnswerLimit)) < 0)
    return;
}

} // namespace

bool RendererIsEmulated(QByteArrayView renderer) {
  const QByteArray name = renderer.toByteArray().toLower();
  if (name.isEmpty())
    return true;
  for (const char *emulated : {"llvmpipe", "softpipe", "swrast", "software rasterizer", "swiftshader", "openswr"})
    if (name.contains(emulated))
      return true;
  return false;
}

QByteArray GlRendererName() {
  if (!HasGraphicsDevice())
    return {};
  int ends[2];
  if (pipe(ends) != 0)
    return {};
  const pid_t child = fork();
  if (child < 0) {
    close(ends[0]);
    close(ends[1]);
    return {};
  }
  if (child == 0) {
    close(ends[0]);
    // Drivers like to talk on standard error; the answer goes through the pipe.
    if (!freopen("/dev/null", "w", stderr))
      _exit(1);
    Probe(ends[1]);
    _exit(0);
  }
  close(ends[1]);
  QByteArray name;
  pollfd waiting{ends[0], POLLIN, 0};
  if (poll(&waiting, 1, ProbeLimitMs) > 0) {
    char answer[ProbeAnswerLimit];
    const ssize_t length = read(ends[0], answer, sizeof answer);
    if (length > 0)
      name = QByteArray(answer, length);
  } else {
    kill(child, SIGKILL);
  }
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return name;
}

QByteArray WithFlags(const QByteArray &flags, const QByteArray &wanted) {
  QList<QByteArray> names;
  for (const QByteArray &flag : flags.simplified().split(' '))
    names.append(flag.split('=').first());
  QByteArray result = flags.trimmed();
  for (const QByteArray &flag : wanted.simplified().split(' ')) {
    if (flag.isEmpty() || names.contains(flag.split('=').first()))
      continue;
    if (!result.isEmpty())
      result += ' ';
    result += flag;
  }
  return result;
}

GraphicsBackend ChooseGraphicsBackend(GraphicsBackend wish) {
  if (qEnvironmentVariableIsSet(QuickBackend))
    wish = qgetenv(QuickBackend) == "software" ? GraphicsBackend::Software : GraphicsBackend::Gl;
  else if (wish == GraphicsBackend::Auto)
    wish = RendererIsEmulated(GlRendererName()) ? GraphicsBackend::Software : GraphicsBackend::Gl;

  if (wish == GraphicsBackend::Software) {
    qputenv(QuickBackend, "software");
    qputenv(ChromiumFlags, WithFlags(qgetenv(ChromiumFlags), "--disable-gpu"));
    // Keeps the emulation itself out of the process, which the toolkit would load for nothing: 35 MiB.
    if (!qEnvironmentVariableIsSet(XcbGlIntegration))
      qputenv(XcbGlIntegration, "none");
  }
  return wish;
}

} // namespace tolmira
