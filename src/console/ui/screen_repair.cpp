#include "console/ui/screen_repair.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

#include <cstdlib>
#include <xcb/xcb.h>

namespace tolmira {

namespace {

constexpr int LastOfItsEvents = 1; // a change of the whole screen, a change of one monitor
constexpr int SentByAProgram = 0x80;

} // namespace

ScreenRepair::ScreenRepair() {
  const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11 || !x11->connection())
    return;
  constexpr char Name[] = "RANDR";
  const auto cookie = xcb_query_extension(x11->connection(), sizeof(Name) - 1, Name);
  if (xcb_query_extension_reply_t *reply = xcb_query_extension_reply(x11->connection(), cookie, nullptr)) {
    if (reply->present)
      m_firstEvent = reply->first_event;
    std::free(reply);
  }
  if (m_firstEvent > 0)
    qGuiApp->installNativeEventFilter(this);
}

ScreenRepair::~ScreenRepair() {
  if (qGuiApp)
    qGuiApp->removeNativeEventFilter(this);
}

bool ScreenRepair::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *) {
  if (eventType != "xcb_generic_event_t")
    return false;
  const int type = static_cast<xcb_generic_event_t *>(message)->response_type & ~SentByAProgram;
  if (type >= m_firstEvent && type <= m_firstEvent + LastOfItsEvents)
    QTimer::singleShot(0, this, &ScreenRepair::Repair); // the toolkit itself reads it behind this filter
  return false;
}

void ScreenRepair::Repair() {
  for (QScreen *screen : QGuiApplication::screens())
    if (const QPlatformScreen *known = screen->handle();
        known && known->deviceIndependentGeometry() != screen->geometry())
      QWindowSystemInterface::handleScreenGeometryChange(screen, known->geometry(), known->availableGeometry());
}

} // namespace tolmira
