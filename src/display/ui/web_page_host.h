#pragma once

#include "display/display_seams.h"
#include "display/ui/page_profile.h"

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>

namespace tolmira {

// PicWV: the widget that holds one page. Keeps the scripts that arrive while a page loads, keeps the last picture on
// the screen until the new page has drawn itself, brings a dead render process back with the same page. Neither wheel
// nor keyboard reach the page, and it never takes the keyboard focus.
class WebPageHost : public QWidget {
  Q_OBJECT

public:
  // `name` tells hosts apart for the observer and the logs: "display", "preview". Hosts that are given one profile
  // share it; without one the host makes its own.
  WebPageHost(const QString &name, QWidget *parent, PageProfile profile = {});
  ~WebPageHost() override;

  // A page to work on, not to look at: it takes the mouse, the wheel, keys and the focus, and shows scroll bars. Before
  // CriaBrowser.
  void SetInteractive();
  // A page of ours with what others wrote in it: its scripts read no files of this computer, and it may have pictures of
  // the web. It says by a policy of its own (CSP) that it loads nothing else. Before CriaBrowser.
  void SetForeign();
  // A page over others, which are seen where it draws nothing. It lets the mouse through and holds no picture, so it is
  // for one page only. Before CriaBrowser.
  void SetTransparent();
  // Makes the browser object and attaches it to this widget. False when the engine could not be started.
  bool CriaBrowser();
  PageObject *WV();                            // null before CriaBrowser
  void AddObserver(DisplayObserver *observer); // not owned; outlives the host

  // Covers the page with that picture until the next page has drawn itself, or for a moment when none is navigated to.
  void Segura(const QPixmap &picture);
  // While on, what covers the page stays when the page has drawn itself: something else is coming over it. Not for
  // longer than a slow page would be waited for.
  void Espera(bool espera);
  // The picture of the page before stands on the screen while the page is drawing itself.
  bool IsHolding() const;

  // Called after a render process died and its page was loaded again; the owner sends the verse on show.
  std::function<void()> OnRecovered;
  std::function<void()> OnLost;      // its process died; OnRecovered follows, unless it goes to another page
  std::function<void()> OnLeave;     // it goes to another page; scripts still reach the one that is left
  std::function<void()> OnMouseMove; // the pointer moved over the page

protected:
  void resizeEvent(QResizeEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
