#include "display/ui/awake_on_x11.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

namespace tolmira {

void KeepScreenAwake() {
  const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11)
    return;
  xcb_force_screen_saver(x11->connection(), XCB_SCREEN_SAVER_RESET);
  xcb_flush(x11->connection());
}

} // namespace tolmira
