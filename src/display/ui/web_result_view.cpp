#include "display/ui/web_result_view.h"

#include "controls/ui/palette.h"
#include "display/ui/engine_start.h"
#include "display/ui/page_profile.h"
#include "web/own_network.h"

#include <QChildEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPalette>
#include <QRandomGenerator>
#include <QTimer>
#include <QUrl>
#include <QWebEngineCookieStore>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>
#include <functional>
#include <utility>

namespace tolmira {

namespace {

using RedePropria = WebResultView::RedePropria;

constexpr int MortesDemais = 3; // of the render process over one page

const QString DataHtml = QStringLiteral("data:text/html;charset=UTF-8,");

// The table keeps its cells and lets go of its rows, so that it fits any width.
const QString Estilo = QStringLiteral(R"css(
:root { color-scheme: dark; }
body { margin: 8px; background: %1; color: %2; font: 15px sans-serif; line-height: 1.5; }
h2 { font-size: 18px; font-weight: 600; color: %3; text-align: center; margin-top: 64px; }
h2:empty { display: none; }
h3 { font-size: 15px; margin: 0 0 8px; }
.texto { max-width: 640px; margin: 32px auto; }
.quieto { color: %3; }
table, tbody { display: block; }
tr { display: contents; }
td { display: inline-block; width: 168px; margin: 4px; vertical-align: top; }
td#nulo { display: none; }
a { display: block; border-radius: 6px; outline: none; }
a img { display: block; width: 164px; height: 114px; object-fit: cover; margin: 2px; border-radius: 4px; background: %4; }
a:hover { box-shadow: 0 0 0 2px %3; }
a:focus { box-shadow: 0 0 0 3px %5; }
body.previa { margin: 0; height: 100vh; display: flex; align-items: center; justify-content: center; color: %3; }
body.previa img { max-width: 100vw; max-height: 100vh; object-fit: contain; }
)css");

// In a world of its own, where it works although the page may run nothing.
const QString Ajudante = QStringLiteral(R"js(
(function () {
  const say = (what, text) => console.info('%1:' + what + ':' + text);
  const sheet = new CSSStyleSheet();
  sheet.replaceSync(`%2`);
  document.adoptedStyleSheets = [sheet];
  const links = () => [...document.querySelectorAll('a[id]')].filter(a => a.id !== 'nulo');
  addEventListener('DOMContentLoaded', () => {
    links().forEach(a => {
      const address = a.id.slice(a.id.indexOf('|') + 1).split(/[?#]/)[0];
      a.setAttribute('aria-label', address.slice(address.lastIndexOf('/') + 1) || address);
    });
    (links()[0] || document.body || {focus() {}}).focus();
    say('pronta', '');
  });
  addEventListener('click', e => {
    e.preventDefault();
    const chosen = e.target.closest && e.target.closest('[id]');
    if (e.button === 0 && chosen && chosen.id && chosen.id !== 'nulo') say('clicou', chosen.id);
  }, true);
  addEventListener('auxclick', e => e.preventDefault(), true);
  addEventListener('dragstart', e => e.preventDefault(), true);
  addEventListener('keydown', e => {
    const all = links();
    const at = all.indexOf(document.activeElement);
    if (all.length === 0 || e.ctrlKey || e.altKey || e.metaKey) return;
    const top = a => Math.round(a.getBoundingClientRect().top);
    const columns = all.filter(a => top(a) === top(all[0])).length;
    const to = { ArrowLeft: at - 1, ArrowRight: at + 1, ArrowUp: at - columns, ArrowDown: at + columns,
                 Home: 0, End: all.length - 1 }[e.key];
    if (to === undefined) return;
    e.preventDefault();
    const next = at < 0 ? all[0] : all[to];
    if (next) { next.focus(); next.scrollIntoView({ block: 'nearest' }); }
  }, true);
})();
)js");

// Nothing but the page itself and pictures of the web, whatever the page asks for.
class SoImagens : public QWebEngineUrlRequestInterceptor {
public:
  void interceptRequest(QWebEngineUrlRequestInfo &info) override {
    const QUrl url = info.requestUrl(); // of each step of a redirection
    const QString scheme = url.scheme();
    const bool imagem = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage &&
                        (scheme == u"http" || scheme == u"https") && (redePropria || !DaRedePropria(url.host()));
    const bool pagina = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame && scheme == u"data";
    info.block(!imagem && !pagina);
  }

  bool redePropria = false;
};

class PaginaAlheia : public QWebEnginePage {
public:
  PaginaAlheia(QWebEngineProfile *profile, const QPalette &cores)
      : QWebEnginePage(profile), m_token(QString::number(QRandomGenerator::system()->generate64(), 36)) {
    setBackgroundColor(cores.color(QPalette::Window)); // before the first load, or a white flash is seen
    QWebEngineSettings *own = settings();
    for (const QWebEngineSettings::WebAttribute forbidden :
         {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::JavascriptCanOpenWindows,
          QWebEngineSettings::LocalStorageEnabled, QWebEngineSettings::LocalContentCanAccessFileUrls,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls, QWebEngineSettings::HyperlinkAuditingEnabled,
          QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::FocusOnNavigationEnabled,
          QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::ScreenCaptureEnabled, QWebEngineSettings::AutoLoadIconsForPage,
          QWebEngineSettings::DnsPrefetchEnabled, QWebEngineSettings::NavigateOnDropEnabled})
      own->setAttribute(forbidden, false);
    setUrlRequestInterceptor(&m_soImagens);
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    const auto cor = [&cores](QPalette::ColorRole papel) { return cores.color(papel).name(); };
    script.setSourceCode(
        Ajudante.arg(m_token, Estilo.arg(cor(QPalette::Window), cor(QPalette::WindowText),
                                         cor(QPalette::PlaceholderText), cor(QPalette::Button), cor(QPalette::Link))));
    scripts().insert(script);
  }

  void Carrega(const QString &html, RedePropria rede) {
    m_soImagens.redePropria = rede == RedePropria::Aberta;
    m_carregando = true;
    setHtml(html, QUrl(QStringLiteral("about:blank")));
  }

  std::function<void(const QString &what, const QString &text)> OnDisse;

protected:
  bool acceptNavigationRequest(const QUrl &url, NavigationType, bool isMainFrame) override {
    return isMainFrame && url.scheme() == u"data" && std::exchange(m_carregando, false);
  }
  QWebEnginePage *createWindow(WebWindowType) override { return nullptr; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &message, int, const QString &) override {
    if (OnDisse && message.startsWith(m_token + u':'))
      OnDisse(message.section(u':', 1, 1), message.section(u':', 2));
  }

private:
  SoImagens m_soImagens;
  QString m_token; // the page cannot guess it
  bool m_carregando = false;
};

// The engine's drawing widget is made late and stands at the end of the window's Tab order; the page's place in it is
// that of the widget around it.
class VistaNaOrdem : public QWebEngineView {
public:
  explicit VistaNaOrdem(QWidget *lugar) : QWebEngineView(lugar), m_lugar(lugar) {}

protected:
  // Behind the last link of the page, or before its first.
  bool focusNextPrevChild(bool next) override {
    const auto vizinho = [next](const QWidget *widget) {
      return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *other = vizinho(m_lugar); other && other != m_lugar; other = vizinho(other))
      if (other->window() == m_lugar->window() && !m_lugar->isAncestorOf(other) && !other->focusProxy() &&
          (other->focusPolicy() & Qt::TabFocus) && other->isVisible() && other->isEnabled()) {
        other->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
      }
    return false;
  }

private:
  QWidget *m_lugar;
};

} // namespace

struct WebResultView::Impl {
  // In the order in which they have to end: the view, its page, the profile.
  PageProfile profile;
  std::unique_ptr<PaginaAlheia> page;
  std::unique_ptr<QWebEngineView> view;
  QString html;
  RedePropria rede = RedePropria::Fechada;
  int mortes = 0;
};

WebResultView::WebResultView(QWidget *parent) : QWidget(parent), m_impl(std::make_unique<Impl>()) {
  setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
}

WebResultView::~WebResultView() {
  Esvazia();
}

void WebResultView::Esvazia() {
  if (m_impl->page) {
    m_impl->page->disconnect();
    m_impl->page->OnDisse = {};
  }
  m_impl->view.reset();
  m_impl->page.reset();
  m_impl->profile.reset();
}

bool WebResultView::Vazia() const {
  return !m_impl->view;
}

bool WebResultView::Mostra(const QString &html, RedePropria rede) {
  if (!EngineCanStart() || DataHtml.size() + QUrl::toPercentEncoding(html).size() > MaiorPagina)
    return false;
  if (!m_impl->view) {
    // Of its own: what pictures of the web leave behind does not come near the projection's pages.
    m_impl->profile = NewPageProfile();
    m_impl->profile->cookieStore()->setCookieFilter([](const QWebEngineCookieStore::FilterRequest &) { return false; });
    m_impl->page = std::make_unique<PaginaAlheia>(m_impl->profile.get(), palette());
    m_impl->page->OnDisse = [this](const QString &what, const QString &text) {
      if (what == u"clicou")
        emit Clicou(text);
      else if (what == u"pronta")
        emit Pronta();
    };
    connect(m_impl->page.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
      if (++m_impl->mortes <= MortesDemais)
        QTimer::singleShot(0, this, [this] { m_impl->page->Carrega(m_impl->html, m_impl->rede); });
    });
    m_impl->view = std::make_unique<VistaNaOrdem>(this);
    m_impl->view->setContextMenuPolicy(Qt::PreventContextMenu);
    m_impl->view->setAcceptDrops(false);
    m_impl->view->setAccessibleName(accessibleName());
    m_impl->view->setToolTip(toolTip());
    m_impl->view->installEventFilter(this);
    m_impl->view->setPage(m_impl->page.get());
    m_impl->view->setGeometry(rect());
    m_impl->view->show();
  }
  m_impl->html = html;
  m_impl->rede = rede;
  m_impl->mortes = 0;
  m_impl->page->Carrega(html, rede);
  return true;
}

void WebResultView::focusInEvent(QFocusEvent *event) {
  if (m_impl->view)
    m_impl->view->setFocus(event->reason());
}

void WebResultView::resizeEvent(QResizeEvent *) {
  if (m_impl->view)
    m_impl->view->setGeometry(rect());
}

bool WebResultView::eventFilter(QObject *, QEvent *event) {
  switch (event->type()) {
  case QEvent::ChildAdded:
  case QEvent::ChildPolished: // the engine makes its drawing widget at the first load and a new one for each process
    if (auto *child = qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child())) {
      child->installEventFilter(this);
      if (event->type() == QEvent::ChildPolished)
        child->setFocusPolicy(Qt::ClickFocus); // Tab comes here by way of the widget around it
    }
    return false;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
    if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
      return false;
    [[fallthrough]];
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
    event->ignore(); // for the window
    return true;
  default:
    return false;
  }
}

} // namespace tolmira
