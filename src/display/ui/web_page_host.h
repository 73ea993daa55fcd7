#pragma once

#include <QWidget>

#include <memory>

#include "display/display_seams.h"

namespace tolmira {

// PicWV: the widget that holds one page. Keeps the scripts that arrive while a page loads, keeps the last picture on
// the screen until the new page has drawn itself, brings a dead render process back with the same page.
class WebPageHost : public QWidget {
  Q_OBJECT

public:
  // `name` tells hosts apart for the observer and the logs: "display", "preview".
  WebPageHost(const QString &name, QWidget *parent);
  ~WebPageHost() override;

  // Makes the browser object and attaches it to this widget. False when the engine could not be started.
  bool CriaBrowser();
  PageObject *WV(); // null before CriaBrowser
  void AddObserver(DisplayObserver *observer);

  // Called after a render process died and its page was loaded again; the owner sends the verse on show.
  std::function<void()> OnRecovered;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
