#pragma once

#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <functional>

namespace tolmira {

// The engine's page with the rules of a projection: it goes nowhere by itself, opens no windows, and says when a
// document can take scripts and when its first picture is complete.
class WebPage : public QWebEnginePage {
  Q_OBJECT

public:
  WebPage(QWebEngineProfile *profile, QObject *parent);

  // What is loaded holds what others wrote: its scripts read no files, and it may have
  // pictures of the web. Such a page says by a policy of its own what it loads.
  void SetForeign() { m_foreign = true; }
  // Loads an address as the load of this number. Reports of the page before it no longer arrive.
  void Load(const QUrl &url, int load);
  bool HasBegun() const { return m_began; } // the document of the present load exists

  std::function<void(const QString &uri, bool &cancel)> OnNavigating; // only what the page itself starts
  std::function<void(const QString &uri, bool &cancel)> OnRedirected; // by the server of the present load
  std::function<void(int load)> OnReady; // the document is parsed and its own start functions have run
  std::function<void(int load)> OnDrawn; // pictures and video are there and drawn, with what OnReady has changed

protected:
  bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage *createWindow(WebWindowType type) override;
  // No box of a page's stands over the projection or holds the program up; a page that would ask before it is left is
  // left.
  void javaScriptAlert(const QUrl &origin, const QString &message) override;
  bool javaScriptConfirm(const QUrl &origin, const QString &message) override;
  bool javaScriptPrompt(const QUrl &origin, const QString &message, const QString &proposed, QString *answer) override;
  QStringList chooseFiles(FileSelectionMode mode, const QStringList &old, const QStringList &types) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                const QString &source) override;

private:
  void Leave(const QUrl &url, bool &cancel);
  void Settle(); // asks for OnDrawn once the page is ready and complete

  QString m_token; // pages cannot guess it, so they cannot report in the host's name
  int m_load = 0;
  bool m_ready = false;    // OnReady has been called for the present load
  bool m_complete = false; // pictures and video of the present load are there
  bool m_began = false;
  bool m_foreign = false;
  bool m_fromServer = false; // the present load may be redirected
};

} // namespace tolmira
