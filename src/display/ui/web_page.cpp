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

// Runs in a world of its own when a document begins, so it knows the number of the load that it belongs to. Two timers in a
// row: the page's libraries call their start functions by one timer after DOMContentLoaded. Pictures are decoded before
// the first frame counts, since the engine would otherwise draw that frame without the large ones.
const QString ReporterSource = QStringLiteral(R"js(
(function () {
  const say = what => console.info('%1:%2:' + what);
  const frames = (n, then) => n === 0 ? then() : requestAnimationFrame(() => frames(n - 1, then));
  const shown = e => { const r = e.getBoundingClientRect(); return r.width > 0 && r.height > 0; };
  addEventListener('DOMContentLoaded', () => setTimeout(() => setTimeout(() => say('ready'), 0), 0));
  addEventListener('load', () => {
    const pictures = [...document.images].filter(shown).slice(0, 3).map(i => i.decode().catch(() => {}));
    const videos = [...document.querySelectorAll('video')].filter(v => shown(v) && v.readyState < 2).slice(0, 1)
      .map(v => new Promise(done => { v.addEventListener('loadeddata', done); v.addEventListener('error', done, true); }));
    Promise.all([...pictures, ...videos]).then(() => frames(3, () => say('drawn')));
  });
})();
)js");

} // namespace

WebPage::WebPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent),
      m_token(QString::number(QRandomGenerator::system()->generate64(), 36)) {
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
}

void WebPage::Load(const QUrl &url, int load) {
  for (const QWebEngineScript &old : scripts().find(ReporterName))
    scripts().remove(old);
  QWebEngineScript reporter;
  reporter.setName(ReporterName);
  reporter.setInjectionPoint(QWebEngineScript::DocumentCreation);
  reporter.setWorldId(QWebEngineScript::ApplicationWorld);
  reporter.setSourceCode(ReporterSource.arg(m_token).arg(load));
  scripts().insert(reporter);
  this->load(url);
}

bool WebPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) {
  // Frames inside a page are its own content. What a server answers with a redirection is still the host's load.
  if (!isMainFrame || type == NavigationTypeTyped || type == NavigationTypeRedirect)
    return true;
  bool cancel = true;
  if (OnNavigating)
    OnNavigating(QString::fromLatin1(url.toEncoded()), cancel);
  qCDebug(logPage) << "page wants to leave for" << url << (cancel ? "refused" : "allowed");
  return !cancel;
}

QWebEnginePage *WebPage::createWindow(WebWindowType) { return nullptr; }

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                       const QString &source) {
  const QStringList parts = message.split(u':');
  if (parts.size() == 3 && parts[0] == m_token) {
    const int load = parts[1].toInt();
    if (parts[2] == u"ready" && OnReady)
      OnReady(load);
    else if (parts[2] == u"drawn" && OnDrawn)
      OnDrawn(load);
    return;
  }
  qCDebug(logPage) << "console" << level << source << line << message;
}

} // namespace tolmira
