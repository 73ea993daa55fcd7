#include "media/ui/site_view.h"

#include "controls/ui/palette.h"

#include <QColor>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <utility>

namespace tolmira {

namespace {

// Unlike pages of our own it goes on by itself: forms are sent, buttons lead on. What is to open in a window of its own
// opens in its place.
class SitePage : public QWebEnginePage {
public:
  SitePage(QWebEngineProfile *profile, std::function<bool(const QUrl &)> pode,
           std::function<void(const QUrl &)> recusou)
      : QWebEnginePage(profile, nullptr), m_pode(std::move(pode)), m_recusou(std::move(recusou)) {
    setBackgroundColor(QColor(cores::Desk));
    setAudioMuted(true); // which would be heard in the hall
    QWebEngineSettings *own = settings();
    own->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
    own->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    own->setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
    own->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    own->setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
    own->setAttribute(QWebEngineSettings::ScreenCaptureEnabled, false);
    own->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    own->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &origin, Feature feature) {
      setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
  }

protected:
  bool acceptNavigationRequest(const QUrl &url, NavigationType, bool isMainFrame) override {
    if (!isMainFrame)
      return url.scheme() != u"file";
    if (m_pode(url) || url.scheme() == u"about")
      return true;
    m_recusou(url);
    return false;
  }
  QWebEnginePage *createWindow(WebWindowType) override { return this; }
  // Boxes of a page's would hold the program up, and files of this computer are none of the site's business.
  void javaScriptAlert(const QUrl &, const QString &) override {}
  bool javaScriptConfirm(const QUrl &, const QString &) override { return true; }
  bool javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *) override { return false; }
  QStringList chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) override { return {}; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int, const QString &) override {}

private:
  std::function<bool(const QUrl &)> m_pode;
  std::function<void(const QUrl &)> m_recusou;
};

} // namespace

SiteView::SiteView(PageProfile profile, std::function<bool(const QUrl &)> pode, QWidget *parent)
    : QWidget(parent), m_profile(std::move(profile)), m_pode(std::move(pode)) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
}

SiteView::~SiteView() {
  Fecha();
}

void SiteView::Abre(const QUrl &url) {
  Fecha();
  if (!m_profile)
    m_profile = NewPageProfile();
  m_page = std::make_unique<SitePage>(m_profile.get(), m_pode, [this](const QUrl &where) {
    m_recusou = true; // which also counts as a load that failed
    emit Recusado(where);
  });
  connect(m_page.get(), &QWebEnginePage::urlChanged, this, [this](const QUrl &now) {
    if (std::exchange(m_url, now) != now && m_pode(now)) // one that was refused comes back to where it was
      emit Endereco(now);
  });
  connect(m_page.get(), &QWebEnginePage::loadFinished, this, [this](bool ok) {
    if (!std::exchange(m_recusou, false) && !ok)
      emit Falhou();
  });
  // Not from within the page's own event.
  connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
    QTimer::singleShot(0, m_page.get(), [this] {
      Fecha();
      emit Falhou();
    });
  });
  m_view = new QWebEngineView(this);
  m_view->setContextMenuPolicy(Qt::PreventContextMenu);
  m_view->setAcceptDrops(false);
  m_view->setPage(m_page.get());
  layout()->addWidget(m_view);
  m_view->show();
  m_view->setFocus();
  m_page->load(url);
}

// The view goes before its page.
void SiteView::Fecha() {
  if (m_page)
    m_page->disconnect(this);
  delete m_view;
  m_view = nullptr;
  m_page.reset();
}

void SiteView::Volta() {
  if (m_page)
    m_page->triggerAction(QWebEnginePage::Back);
}

} // namespace tolmira
