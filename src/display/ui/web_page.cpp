#include "display/ui/web_page.h"

#include <QColor>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

namespace tolmira {

namespace {

Q_LOGGING_CATEGORY(logPage, "tolmira.page", QtWarningMsg)

const QString ReporterName = QStringLiteral("tolmira-reporter");

// Runs in a world of its own when a document begins, so it knows the number of the load that it belongs to.
// Two timers in a row before "ready": the page's libraries call their start functions by one timer after
// DOMContentLoaded. Pictures are decoded and a video has shown a frame before the page counts as complete, since the
// engine would otherwise draw its first frames without them. What the page wants to leave for is stopped in the page: a
// navigation that the engine has begun and the host refuses ends the document's own loading too, and a page may report
// while it still loads.
const QString ReporterSource = QStringLiteral(R"js(
(function () {
  const say = what => console.info('%1:%2:' + what);
  const frames = (n, then) => n === 0 ? then() : requestAnimationFrame(() => frames(n - 1, then));
  const shown = e => { const r = e.getBoundingClientRect(); return r.width > 0 && r.height > 0; };
  say('began');
  navigation.addEventListener('navigate', e => {
    if (e.hashChange || !e.cancelable) return;
    e.preventDefault();
    say('leave:' + e.destination.url);
  });
  addEventListener('DOMContentLoaded', () => setTimeout(() => setTimeout(() => say('ready'), 0), 0));
  const decoded = () => [...document.images].filter(shown).slice(0, 3).map(i => i.decode().catch(() => {}));
  addEventListener('load', () => {
    const videos = [...document.querySelectorAll('video')].filter(v => shown(v) && v.networkState !== 3).slice(0, 1)
      .map(v => new Promise(done => { v.requestVideoFrameCallback(done); v.addEventListener('error', done, true); }));
    Promise.all([...decoded(), ...videos]).then(() => say('complete'));
  });
  const free = then => document.documentElement.hasAttribute('data-espera') ? setTimeout(free, 20, then) : then();
  window.tolmiraSettle = () => Promise.all(decoded()).then(() => free(() => frames(3, () => say('drawn'))));
})();
)js");

// Run behind the scripts that waited for the page, so that the frames it counts show what these have changed, and
// pictures that these have put there. A page that has more to come says so by the attribute data-espera of its root.
const QString SettleScript = QStringLiteral("tolmiraSettle()");

} // namespace

WebPage::WebPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent), m_token(QString::number(QRandomGenerator::system()->generate64(), 36)) {
  setBackgroundColor(QColor(Qt::black)); // before the first load, or a white flash is seen
  QWebEngineSettings *own = settings();
  own->setAttribute(QWebEngineSettings::ShowScrollBars, false);
  own->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, false);
  own->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
  own->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
  own->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
  own->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
  own->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
  own->setAttribute(QWebEngineSettings::PluginsEnabled, false);
  own->setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
  own->setAttribute(QWebEngineSettings::ScreenCaptureEnabled, false);
  own->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes); // or the desktop's programs open
}

void WebPage::Load(const QUrl &url, int load) {
  // A load that has not come to its document may have been given a process by now, with the reporter as it was. The
  // next one would begin there and report by the number of the one before.
  if (m_load != 0 && !m_began)
    triggerAction(Stop);
  for (const QWebEngineScript &old : scripts().find(ReporterName))
    scripts().remove(old);
  QWebEngineScript reporter;
  reporter.setName(ReporterName);
  reporter.setInjectionPoint(QWebEngineScript::DocumentCreation);
  reporter.setWorldId(QWebEngineScript::ApplicationWorld);
  reporter.setSourceCode(ReporterSource.arg(m_token).arg(load));
  scripts().insert(reporter);
  m_load = load;
  m_began = m_ready = m_complete = false;
  m_fromServer = url.scheme().startsWith(u"http");
  settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, !m_fromServer && !m_foreign);
  settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, m_foreign); // pictures, say
  this->load(url);
}

void WebPage::Leave(const QUrl &url, bool &cancel) {
  if (OnNavigating)
    OnNavigating(QString::fromLatin1(url.toEncoded()), cancel);
  qCDebug(logPage) << "page wants to leave for" << url << (cancel ? "refused" : "allowed");
}

bool WebPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) {
  // Frames inside a page are its own content. What a server answers with a redirection is still the host's load.
  if (!isMainFrame || type == NavigationTypeTyped)
    return true;
  bool cancel = false;
  if (type == NavigationTypeRedirect && m_fromServer && !m_began) {
    if (OnRedirected)
      OnRedirected(QString::fromLatin1(url.toEncoded()), cancel);
    return !cancel;
  }
  cancel = true;
  Leave(url, cancel);
  return !cancel;
}

void WebPage::Settle() {
  if (m_ready && m_complete)
    runJavaScript(SettleScript, QWebEngineScript::ApplicationWorld);
}

QWebEnginePage *WebPage::createWindow(WebWindowType) {
  return nullptr;
}

void WebPage::javaScriptAlert(const QUrl &, const QString &) {}

bool WebPage::javaScriptConfirm(const QUrl &, const QString &) {
  return true;
}

bool WebPage::javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *) {
  return false;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) {
  return {};
}

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                       const QString &source) {
  if (!message.startsWith(m_token)) {
    qCDebug(logPage) << "console" << level << source << line << message;
    return;
  }
  // token:load:what, and the address behind "leave:"
  const QString what = message.section(u':', 2);
  if (message.section(u':', 1, 1).toInt() != m_load)
    return; // of a page that is being left
  if (what == u"began") {
    m_began = true;
  } else if (what == u"ready") {
    const int load = m_load;
    if (OnReady)
      OnReady(load);
    if (load == m_load) {
      m_ready = true;
      Settle();
    }
  } else if (what == u"complete") {
    m_complete = true;
    Settle();
  } else if (what == u"drawn") {
    if (OnDrawn)
      OnDrawn(m_load);
  } else if (what.startsWith(u"leave:")) {
    const QUrl url(what.mid(6));
    bool cancel = true;
    Leave(url, cancel);
    if (!cancel)
      load(url);
  }
}

} // namespace tolmira
