#include "display/ui/notice_layer.h"

#include "display/ui/web_page_host.h"

#include <QTimer>
#include <QWidget>
#include <utility>

namespace tolmira {

namespace {

constexpr int PageSeconds = 8;
// The page tells that it has drawn; its frame takes another road to the screen and may come a little later.
constexpr int FrameOnItsWayMs = 60;
const QString FirstFrame = QStringLiteral("http://temaviso/");
const QString NoticeRuns = QStringLiteral("!!document.querySelector('.aviso')");

} // namespace

NoticeLayer::NoticeLayer(QWidget &window, const AppFolder &app, PageProfile profile, DisplayObserver *observer)
    : m_window(window), m_app(app), m_profile(std::move(profile)), m_observer(observer) {}

NoticeLayer::~NoticeLayer() {
  delete std::exchange(m_host, nullptr).data();
}

PageObject *NoticeLayer::WV() const {
  return m_host ? m_host->WV() : nullptr;
}

PageObject *NoticeLayer::ForNotice() {
  if (!m_host) {
    m_host = new WebPageHost(QStringLiteral("notice"), &m_window, m_profile);
    m_host->setObjectName(QStringLiteral("PicWVAviso"));
    m_host->SetTransparent();
    if (!m_host->CriaBrowser()) {
      delete m_host;
      return nullptr;
    }
    if (m_observer)
      m_host->AddObserver(m_observer);
    // The notice went with the process; one that was sent since has begun when the page is back. Its first frame is
    // white again.
    m_host->OnLost = [this] { SetAside(); };
    m_host->OnRecovered = [this] { Check(); };
    m_host->WV()->AoNavegar = [this](const QString &uri, bool &cancel) {
      cancel = true;
      if (uri.startsWith(FirstFrame))
        QTimer::singleShot(FrameOnItsWayMs, m_host, [this] { Uncover(); });
      else
        Check();
    };
    m_shown = false;
    Fit();
    m_host->show();
    m_host->raise();
    if (OnMade)
      OnMade();
    m_host->WV()->Navigate(m_app.At(u"\\html\\aviso.html"), PageSeconds);
  }
  ++m_notices;
  // A page that could not be loaded shows nothing and never tells of an end.
  QTimer::singleShot(0, this, [this] { Check(); });
  return m_host->WV();
}

void NoticeLayer::Check() {
  if (!m_host)
    return;
  m_host->WV()->Evaluate(NoticeRuns, [layer = QPointer(this), asked = m_notices](const QString &json) {
    if (!layer || !layer->m_host)
      return;
    if (json != u"true" && layer->m_notices == asked)
      layer->Remove();
  });
}

void NoticeLayer::SetAside() {
  m_shown = false;
  Fit();
}

void NoticeLayer::Uncover() {
  m_shown = true;
  Fit();
}

void NoticeLayer::Remove() {
  if (!m_host)
    return;
  // It may be the page's own event that runs.
  WebPageHost *host = std::exchange(m_host, nullptr);
  host->hide();
  host->deleteLater();
}

void NoticeLayer::Fit() {
  if (m_host)
    m_host->setGeometry(m_covered || !m_shown ? m_window.rect().translated(0, m_window.height()) : m_window.rect());
}

// Aside until it has something to show, so that none of its beginnings is seen, and under a cover aside instead of
// beneath: with hardware drawing a transparent page lies above all that does not draw by hardware. And not hidden: the
// engine puts hidden pages to sleep.
void NoticeLayer::SetCovered(bool covered) {
  m_covered = covered;
  Fit();
}

} // namespace tolmira
