#include "display/ui/awake_on_x11.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

namespace tolmira {

void KeepScreenAwake() {
  const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t *server = x11 ? x11->connection() : nullptr; // a desktop without hardware has the one without the other
  if (!server)
    return;
  xcb_force_screen_saver(server, XCB_SCREEN_SAVER_RESET);
  xcb_flush(server);
}

} // namespace tolmira
