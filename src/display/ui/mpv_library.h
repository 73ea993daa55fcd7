#pragma once

#include <QObject>
#include <functional>
#include <initializer_list>
#include <mpv/client.h>

namespace tolmira {

// The media library's handle: how it is set up, told and heard. It works on threads of its own, so nothing here waits
// but Start. Everything else does nothing before it has started.
class MpvLibrary : public QObject {
public:
  ~MpvLibrary() override;

  // Makes the library once. `canDraw`: there is a place for its pictures already; `hardware`: which may be decoded by
  // the graphics chip. False when it cannot be started, now and ever after.
  bool Start(bool canDraw, bool hardware);
  mpv_handle *Handle() const { return m_mpv; } // null before Start

  void Command(std::initializer_list<const char *> words);
  void Flag(const char *property, bool on);
  void Text(const char *property, const char *value);

  // What the library tells, one after the other, on the thread of this object. Property changes carry their place
  // below.
  std::function<void(const mpv_event &event)> OnEvent;
  enum Watched : uint64_t { WatchTime = 1, WatchDuration, WatchEof, WatchTracks };

private:
  void ReadEvents();

  mpv_handle *m_mpv = nullptr;
  bool m_failed = false;
};

} // namespace tolmira
