#include "display/ui/mpv_library.h"

#include <QByteArray>
#include <clocale>
#include <vector>

namespace tolmira {

MpvLibrary::~MpvLibrary() {
  if (!m_mpv)
    return;
  mpv_set_wakeup_callback(m_mpv, nullptr, nullptr);
  mpv_terminate_destroy(m_mpv);
}

bool MpvLibrary::Start(bool canDraw, bool hardware) {
  if (m_mpv || m_failed)
    return m_mpv != nullptr;
  std::setlocale(LC_NUMERIC, "C"); // the library refuses to start under another decimal sign
  m_mpv = mpv_create();
  m_failed = !m_mpv;
  if (m_failed)
    return false;
  const auto option = [this](const char *name, const char *value) { mpv_set_option_string(m_mpv, name, value); };
  option("config", "no");
  option("terminal", "no");
  option("osc", "no");
  option("input-default-bindings", "no");
  option("input-vo-keyboard", "no");
  option("load-scripts", "no");
  option("ytdl", "no");
  // Without a place to draw on the library would give the picture up, so it plays on without one until there is.
  option("vo", canDraw ? "libmpv" : "null");
  option("hwdec", hardware ? "auto-safe" : "no");
  option("idle", "yes");
  option("keep-open", "yes"); // the last picture stands at the end, instead of a sudden black
  option("hr-seek", "yes");
  option("audio-display", "no");
  option("sub-auto", "no");
  option("sid", "no");
  // A file is what it is: none of them leads the player to others, here or in a network.
  option("access-references", "no");
  option("ordered-chapters", "no");
  option("demuxer-lavf-o", "protocol_whitelist=[file,crypto,data]");
  option("audio-client-name", "Tolmira");
  if (const QByteArray device = qgetenv("TOLMIRA_AO"); !device.isEmpty())
    option("ao", device.constData());
  if (mpv_initialize(m_mpv) < 0) {
    mpv_terminate_destroy(m_mpv);
    m_mpv = nullptr;
    m_failed = true;
    return false;
  }
  mpv_observe_property(m_mpv, WatchTime, "time-pos", MPV_FORMAT_DOUBLE);
  mpv_observe_property(m_mpv, WatchDuration, "duration", MPV_FORMAT_DOUBLE);
  mpv_observe_property(m_mpv, WatchEof, "eof-reached", MPV_FORMAT_FLAG);
  mpv_observe_property(m_mpv, WatchTracks, "track-list", MPV_FORMAT_NODE);
  mpv_set_wakeup_callback(
      m_mpv,
      [](void *self) {
        auto *library = static_cast<MpvLibrary *>(self);
        QMetaObject::invokeMethod(
            library, [library] { library->ReadEvents(); }, Qt::QueuedConnection);
      },
      this);
  return true;
}

void MpvLibrary::Command(std::initializer_list<const char *> words) {
  if (!m_mpv)
    return;
  std::vector<const char *> arguments(words);
  arguments.push_back(nullptr);
  mpv_command_async(m_mpv, 0, arguments.data());
}

void MpvLibrary::Flag(const char *property, bool on) {
  int value = on ? 1 : 0;
  if (m_mpv)
    mpv_set_property_async(m_mpv, 0, property, MPV_FORMAT_FLAG, &value);
}

void MpvLibrary::Text(const char *property, const char *value) {
  if (m_mpv)
    mpv_set_property_async(m_mpv, 0, property, MPV_FORMAT_STRING, &value);
}

void MpvLibrary::ReadEvents() {
  while (m_mpv) {
    const mpv_event *event = mpv_wait_event(m_mpv, 0);
    if (event->event_id == MPV_EVENT_NONE)
      return;
    if (OnEvent)
      OnEvent(*event);
  }
}

} // namespace tolmira
