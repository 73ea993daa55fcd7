#pragma once

#include "display/display_seams.h"
#include "display/ui/page_profile.h"
#include "foundation/app_folder.h"

#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;

namespace tolmira {

class WebPageHost;

// A transparent page above the layers of the projection, for notices over a video or a page from the net. It is there
// only while one runs.
class NoticeLayer : public QObject {
public:
  // The observer may be null; window and observer outlive the layer.
  NoticeLayer(QWidget &window, const AppFolder &app, PageProfile profile, DisplayObserver *observer);
  ~NoticeLayer() override;

  PageObject *WV() const; // null while there is none
  // Makes it if need be, for a notice that the caller gives it before the message loop runs. Null without an engine.
  PageObject *ForNotice();

  void Fit(); // to the window
  // Under black or the default picture. It stays awake there, so that a notice ends in time and does not come out
  // again.
  void SetCovered(bool covered);

  // Out of sight until a notice has drawn a new frame. For a window that hides: its last frame would be the first that
  // is seen when it comes back.
  void SetAside();

  std::function<void()> OnMade; // it stands above everything; whoever has something for above it puts it there

private:
  void Check();
  void Uncover();
  void Remove();

  QWidget &m_window;
  AppFolder m_app;
  PageProfile m_profile;
  DisplayObserver *m_observer;
  QPointer<WebPageHost> m_host;
  int m_notices = 0; // that were asked for, so that the end of one is not taken for that of the next
  bool m_covered = false;
  bool m_shown = false; // the page has a notice to show
};

} // namespace tolmira
