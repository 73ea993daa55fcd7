#include "display/ui/state_on_x11.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace tolmira {

namespace {

constexpr int SentByAProgram = 0x80;
constexpr uint32_t MostStates = 64;
constexpr int MostTries = 10;
constexpr uint32_t AddState = 1;
constexpr uint32_t FromAnApplication = 1;

struct Free {
  void operator()(void *reply) const { std::free(reply); }
};

xcb_connection_t *Server() {
  const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

uint Atom(xcb_connection_t *server, const char *name) {
  const auto cookie = xcb_intern_atom(server, false, static_cast<uint16_t>(std::strlen(name)), name);
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(server, cookie, nullptr));
  return reply ? reply->atom : 0;
}

// One or two states to add.
void Ask(xcb_connection_t *server, WId window, uint property, uint state, uint another = 0) {
  xcb_client_message_event_t wish = {};
  wish.response_type = XCB_CLIENT_MESSAGE;
  wish.format = 32;
  wish.window = static_cast<xcb_window_t>(window);
  wish.type = property;
  wish.data.data32[0] = AddState;
  wish.data.data32[1] = state;
  wish.data.data32[2] = another;
  wish.data.data32[3] = FromAnApplication;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  xcb_send_event(server, false, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char *>(&wish));
  xcb_flush(server);
}

} // namespace

StateOnX11::StateOnX11() {
  if (xcb_connection_t *server = Server()) {
    m_state = Atom(server, "_NET_WM_STATE");
    m_fullScreen = Atom(server, "_NET_WM_STATE_FULLSCREEN");
    m_skipTaskbar = Atom(server, "_NET_WM_STATE_SKIP_TASKBAR");
    m_skipPager = Atom(server, "_NET_WM_STATE_SKIP_PAGER");
  }
}

std::vector<uint> StateOnX11::Kept(WId window) const {
  xcb_connection_t *server = Server();
  const auto cookie =
      xcb_get_property(server, false, static_cast<xcb_window_t>(window), m_state, XCB_ATOM_ATOM, 0, MostStates);
  const std::unique_ptr<xcb_get_property_reply_t, Free> reply(xcb_get_property_reply(server, cookie, nullptr));
  if (!reply || reply->format != 32)
    return {};
  const auto *atoms = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get()));
  return {atoms, atoms + reply->value_len};
}

void StateOnX11::Restore(WId window, bool fullScreen) {
  xcb_connection_t *server = m_state && m_asked < MostTries ? Server() : nullptr;
  if (!server)
    return;
  const std::vector<uint> kept = Kept(window);
  const auto lacks = [&](uint state) { return std::find(kept.begin(), kept.end(), state) == kept.end(); };
  const bool inTaskbar = lacks(m_skipTaskbar) || lacks(m_skipPager);
  const bool small = fullScreen && lacks(m_fullScreen);
  if (inTaskbar)
    Ask(server, window, m_state, m_skipTaskbar, m_skipPager);
  if (small)
    Ask(server, window, m_state, m_fullScreen);
  m_asked += inTaskbar || small;
}

bool StateOnX11::IsChange(const QByteArray &eventType, const void *message) const {
  if (!m_state || eventType != "xcb_generic_event_t")
    return false;
  const auto *event = static_cast<const xcb_property_notify_event_t *>(message);
  return (event->response_type & ~SentByAProgram) == XCB_PROPERTY_NOTIFY && event->atom == m_state;
}

} // namespace tolmira
