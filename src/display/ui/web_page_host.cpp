#include "display/ui/web_page_host.h"

#include "display/page_address.h"
#include "display/script_queue.h"
#include "display/ui/engine_start.h"
#include "display/ui/held_picture.h"
#include "display/ui/prompt_drawing.h"
#include "display/ui/web_page.h"

#include <QApplication>
#include <QChildEvent>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QPointer>
#include <QQuickWidget>
#include <QScreen>
#include <QTimer>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace tolmira {

namespace {

Q_LOGGING_CATEGORY(logPage, "tolmira.page", QtWarningMsg)

constexpr int DefaultTimeoutSeconds = 8;
constexpr int HoldLimitMs = 4000; // however slow a page, the old picture goes
// The page tells that it has drawn; its frame takes another road to the screen and may come a little later.
constexpr int FrameOnItsWayMs = 60;
constexpr int HoldAfterReadyMs = 1500; // a parsed page shows itself even when its pictures or video do not come
constexpr int FirstReloadDelayMs = 250;
constexpr int LongestReloadDelayMs = 30000;
constexpr int QuietAfterCrashMs = 60000; // a process that lived this long starts the delays anew

// The kinds of a permission request as pages' hosts number them.
constexpr int PermissionOther = 0;
constexpr int PermissionMicrophone = 1;
constexpr int PermissionCamera = 2;
constexpr int PermissionPlace = 3;
constexpr int PermissionNotifications = 4;
constexpr int PermissionAllow = 1;

int PermissionKind(QWebEnginePage::Feature feature) {
  switch (feature) {
  case QWebEnginePage::MediaAudioCapture:
  case QWebEnginePage::MediaAudioVideoCapture: // a camera with a microphone is asked for as one
    return PermissionMicrophone;
  case QWebEnginePage::MediaVideoCapture:
    return PermissionCamera;
  case QWebEnginePage::Geolocation:
    return PermissionPlace;
  case QWebEnginePage::Notifications:
    return PermissionNotifications;
  default:
    return PermissionOther;
  }
}

QString JsonOf(const QVariant &value) {
  // An array of one, because a bare value is no JSON document.
  const QByteArray text = QJsonDocument(QJsonArray{QJsonValue::fromVariant(value)}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(text.mid(1, text.size() - 2));
}

} // namespace

struct WebPageHost::Impl : public PageObject {
  Impl(WebPageHost &owner, QString hostName, PageProfile shared)
      : host(owner), name(std::move(hostName)), profile(std::move(shared)) {}
  ~Impl() override;

  void Navigate(const QString &url, int timeoutSeconds) override;
  void ExecuteScript(const QString &script) override;
  void SetPageProperty(const QString &path, const QString &value) override;
  void SetZoomFactor(double factor) override;
  void Evaluate(const QString &script, std::function<void(const QString &json)> onResult) override;

  void Create();
  void MakePage();
  void Load(int load);
  void OnReady(int load);
  void OnLoading(const QWebEngineLoadingInfo &info);
  void OnProcessEnded();
  void FailEvaluations();
  void HoldPicture();
  void HoldLastPicture();
  void ReleasePicture();
  void Tame(QWidget *widget);
  void RefuseFocus(QWidget *old, QWidget *now);

  WebPageHost &host;
  QString name;
  PageProfile profile;
  std::vector<DisplayObserver *> observers;

  // In the order in which they have to end: the view, its page, the profile.
  std::unique_ptr<WebPage> page;
  std::unique_ptr<QWebEngineView> view;
  HeldPicture *held = nullptr;
  PromptDrawing promptDrawing{nullptr};

  ScriptQueue queue;
  QUrl address; // of the page that is or should be there
  int timeoutMs = DefaultTimeoutSeconds * 1000;
  double zoom = 1.0;
  QTimer timeout;
  QTimer holdLimit;
  QTimer reload;
  QElapsedTimer sinceCrash;
  int reloadDelayMs = 0;
  bool waits = false; // Espera
  bool drawn = false; // the present page has, behind the held picture
  bool recovering = false;
  bool everReady = false;
  bool interactive = false;
  bool transparent = false;
  bool foreign = false;
  int nextEvaluation = 0;
  std::map<int, std::function<void(const QString &)>> evaluations;
};

WebPageHost::Impl::~Impl() {
  if (page)
    page->disconnect();
  queue.GiveUp();
  FailEvaluations();
}

void WebPageHost::Impl::Create() {
  if (!profile)
    profile = NewPageProfile();
  view = std::make_unique<QWebEngineView>(&host);
  view->setContextMenuPolicy(Qt::PreventContextMenu);
  view->setAcceptDrops(false);
  Tame(view.get());
  MakePage();
  view->setGeometry(host.rect());
  view->show();
  held = new HeldPicture(&host);
  QObject::connect(qApp, &QApplication::focusChanged, &host,
                   [this](QWidget *old, QWidget *now) { RefuseFocus(old, now); });

  for (QTimer *timer : {&timeout, &holdLimit, &reload})
    timer->setSingleShot(true);
  QObject::connect(&timeout, &QTimer::timeout, &host, [this] {
    qCDebug(logPage) << name << "gave up waiting for" << address;
    if (recovering && !page->HasBegun())
      return OnProcessEnded(); // the new process died before it was heard of, or never came
    queue.GiveUp();
    ReleasePicture();
  });
  QObject::connect(&holdLimit, &QTimer::timeout, &host, [this] { ReleasePicture(); });
  QObject::connect(&reload, &QTimer::timeout, &host, [this] {
    MakePage();
    if (held->isVisible())
      holdLimit.start(HoldLimitMs);
    Load(queue.Restart());
  });
}

// Also in place of a page whose render process died: a page that goes on in a new process is white until it has drawn
// itself, and now and then it comes up without the scripts that were installed in it.
void WebPageHost::Impl::MakePage() {
  const std::unique_ptr<WebPage> old =
      std::exchange(page, std::make_unique<WebPage>(profile.get(), nullptr)); // ends when the view has let go of it
  if (old)
    old->disconnect();
  page->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, interactive);
  if (transparent)
    page->setBackgroundColor(Qt::transparent);
  if (foreign)
    page->SetForeign();
  page->OnRedirected = [this](const QString &uri, bool &cancel) {
    if (AoDesviar)
      AoDesviar(uri, cancel);
  };
  page->OnNavigating = [this](const QString &uri, bool &cancel) {
    if (AoNavegar)
      AoNavegar(uri, cancel);
  };
  page->OnReady = [this](int load) { OnReady(load); };
  page->OnDrawn = [this](int load) {
    if (load != queue.Load() || !held->isVisible())
      return;
    drawn = true;
    if (!waits)
      holdLimit.start(FrameOnItsWayMs);
  };
  QObject::connect(page.get(), &QWebEnginePage::loadingChanged, &host,
                   [this](const QWebEngineLoadingInfo &info) { OnLoading(info); });
  QObject::connect(page.get(), &QWebEnginePage::renderProcessTerminated, &host, [this] { OnProcessEnded(); });
  QObject::connect(page.get(), &QWebEnginePage::featurePermissionRequested, &host,
                   [this](const QUrl &origin, QWebEnginePage::Feature feature) {
                     int state = 0;
                     // Only pages of our own are asked about; what comes from the web gets nothing.
                     if (AoPermissao && origin.isLocalFile())
                       AoPermissao(PermissionKind(feature), state);
                     page->setFeaturePermission(origin, feature,
                                                state == PermissionAllow ? QWebEnginePage::PermissionGrantedByUser
                                                                         : QWebEnginePage::PermissionDeniedByUser);
                   });
  view->setPage(page.get());
}

void WebPageHost::Impl::Navigate(const QString &url, int timeoutSeconds) {
  for (DisplayObserver *observer : observers)
    observer->OnNavigate(name, url);
  qCDebug(logPage) << name << "navigates to" << url;
  if (host.OnLeave)
    host.OnLeave();
  HoldPicture();
  drawn = false;
  address = PageAddress(url);
  timeoutMs = (timeoutSeconds > 0 ? timeoutSeconds : DefaultTimeoutSeconds) * 1000;
  recovering = false;
  if (reload.isActive()) {
    reload.stop();
    MakePage();
  }
  Load(queue.Begin());
}

void WebPageHost::Impl::Load(int load) {
  timeout.start(timeoutMs);
  page->Load(address, load);
}

void WebPageHost::Impl::OnReady(int load) {
  if (load != queue.Load())
    return;
  timeout.stop();
  everReady = true;
  if (!waits && holdLimit.isActive() && holdLimit.remainingTime() > HoldAfterReadyMs)
    holdLimit.start(HoldAfterReadyMs);
  view->setZoomFactor(zoom); // the engine keeps it for a process, and a load may have brought another one
  queue.Ready(load);
  if (std::exchange(recovering, false) && host.OnRecovered)
    host.OnRecovered();
}

void WebPageHost::Impl::OnLoading(const QWebEngineLoadingInfo &info) {
  // A navigation of the page's own that was refused is reported as stopped; only a load of ours that failed counts.
  if (info.status() != QWebEngineLoadingInfo::LoadFailedStatus || info.url() != address || !queue.IsWaiting())
    return;
  qCDebug(logPage) << name << "could not load" << address << info.errorDomain() << info.errorString();
  // Not an answer about the address: the process died on the way to it, which the page may have told or not.
  if (info.errorDomain() == QWebEngineLoadingInfo::NoErrorDomain)
    return OnProcessEnded();
  timeout.stop();
  queue.GiveUp();
  // Black, and nothing of the older page goes on behind it: a video that was to stop has stopped.
  page->Load(QUrl(QStringLiteral("about:blank")), queue.Load());
}

void WebPageHost::Impl::OnProcessEnded() {
  qCDebug(logPage) << name << "lost its render process";
  FailEvaluations();
  if (address.isEmpty() || reload.isActive())
    return;
  HoldLastPicture();
  if (host.OnLost)
    host.OnLost();
  reloadDelayMs = sinceCrash.isValid() && sinceCrash.elapsed() < QuietAfterCrashMs
                      ? std::clamp(reloadDelayMs * 2, FirstReloadDelayMs, LongestReloadDelayMs)
                      : 0;
  sinceCrash.start();
  recovering = true;
  timeout.stop();
  queue.Restart(); // what arrives from now on waits for the page
  reload.start(reloadDelayMs);
}

void WebPageHost::Impl::ExecuteScript(const QString &script) {
  for (DisplayObserver *observer : observers)
    observer->OnScript(name, script);
  queue.Push({[this, script] { page->runJavaScript(script); }, {}});
}

void WebPageHost::Impl::SetPageProperty(const QString &path, const QString &value) {
  ExecuteScript(path + u" = " + JsonOf(value));
}

void WebPageHost::Impl::SetZoomFactor(double factor) {
  zoom = factor;
  view->setZoomFactor(factor);
}

void WebPageHost::Impl::Evaluate(const QString &script, std::function<void(const QString &json)> onResult) {
  const int number = ++nextEvaluation;
  evaluations[number] = std::move(onResult);
  const auto answer = [this, number](const QString &json) {
    const auto found = evaluations.find(number);
    if (found == evaluations.end())
      return;
    const auto receiver = std::move(found->second);
    evaluations.erase(found);
    receiver(json);
  };
  const auto run = [this, script, answer, alive = QPointer<WebPageHost>(&host)] {
    page->runJavaScript(script, [answer, alive](const QVariant &value) {
      if (alive)
        answer(JsonOf(value));
    });
  };
  queue.Push({run, [answer] { answer(QStringLiteral("null")); }});
}

// Whoever asked a page that is gone gets an answer all the same. Those that still wait in the queue are asked later.
void WebPageHost::Impl::FailEvaluations() {
  if (queue.IsWaiting())
    return;
  for (auto &[number, receiver] : std::exchange(evaluations, {}))
    receiver(QStringLiteral("null"));
}

void WebPageHost::Impl::HoldPicture() {
  if (transparent || !view->isVisible() || !everReady || host.size().isEmpty())
    return;
  if (!held->isVisible())
    held->Hold(view->grab());
  holdLimit.start(HoldLimitMs);
}

// The view has nothing to draw any more, but its last picture still stands on the screen. It stays until the page is
// back, however often that has to be tried. A desktop that gives no pictures of its windows leaves black.
void WebPageHost::Impl::HoldLastPicture() {
  holdLimit.stop();
  if (transparent || !view->isVisible() || host.size().isEmpty() || held->isVisible())
    return;
  const QPoint place = host.mapTo(host.window(), QPoint());
  QPixmap picture =
      host.screen()->grabWindow(host.window()->winId(), place.x(), place.y(), host.width(), host.height());
  if (picture.isNull()) {
    picture = QPixmap(host.size());
    picture.fill(Qt::black);
  }
  held->Hold(picture);
}

void WebPageHost::Impl::ReleasePicture() {
  holdLimit.stop();
  held->Release();
}

void WebPageHost::Impl::Tame(QWidget *widget) {
  if (!interactive)
    widget->setFocusPolicy(Qt::NoFocus);
  widget->installEventFilter(&host);
  if (auto *drawing = qobject_cast<QQuickWidget *>(widget)) {
    promptDrawing.Watch(drawing);
    if (transparent) // white until the engine has a say
      drawing->setClearColor(Qt::transparent);
  }
}

// The engine takes the focus at a mouse press by itself, whatever the widget's policy.
void WebPageHost::Impl::RefuseFocus(QWidget *old, QWidget *now) {
  if (interactive || !now || !view->isAncestorOf(now))
    return;
  if (old && old != now && !view->isAncestorOf(old))
    old->setFocus(Qt::OtherFocusReason);
  else
    now->clearFocus();
}

WebPageHost::WebPageHost(const QString &name, QWidget *parent, PageProfile profile)
    : QWidget(parent), m_impl(std::make_unique<Impl>(*this, name, std::move(profile))) {
  QPalette black = palette();
  black.setColor(QPalette::Window, Qt::black);
  setPalette(black);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::NoFocus);
}

WebPageHost::~WebPageHost() = default;

void WebPageHost::SetInteractive() {
  m_impl->interactive = true;
}

void WebPageHost::SetForeign() {
  m_impl->foreign = true;
}

void WebPageHost::SetTransparent() {
  m_impl->transparent = true;
  setAutoFillBackground(false);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

bool WebPageHost::CriaBrowser() {
  if (m_impl->view)
    return true;
  if (!EngineCanStart())
    return false;
  m_impl->Create();
  return true;
}

PageObject *WebPageHost::WV() {
  return m_impl->view ? m_impl.get() : nullptr;
}

void WebPageHost::AddObserver(DisplayObserver *observer) {
  m_impl->observers.push_back(observer);
}

void WebPageHost::Segura(const QPixmap &picture) {
  if (!m_impl->held || picture.isNull())
    return;
  m_impl->held->Hold(picture);
  m_impl->holdLimit.start(HoldLimitMs);
}

void WebPageHost::Espera(bool espera) {
  const bool ended = std::exchange(m_impl->waits, espera) && !espera;
  if (ended && m_impl->drawn && IsHolding())
    m_impl->holdLimit.start(FrameOnItsWayMs);
}

bool WebPageHost::IsHolding() const {
  return m_impl->held && m_impl->held->isVisible();
}

void WebPageHost::resizeEvent(QResizeEvent *) {
  if (!m_impl->view)
    return;
  m_impl->view->setGeometry(rect());
  if (m_impl->held->isVisible())
    m_impl->held->setGeometry(rect());
}

bool WebPageHost::eventFilter(QObject *, QEvent *event) {
  switch (event->type()) {
  case QEvent::ChildAdded:
  case QEvent::ChildPolished:
    // The engine makes its drawing widget at the first load and a new one for each process, and asks for the focus in
    // its constructor, which is over when the child is polished.
    if (auto *child = qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()))
      m_impl->Tame(child);
    return false;
  case QEvent::MouseMove:
    if (OnMouseMove)
      OnMouseMove();
    return false;
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::NativeGesture:
  case QEvent::TouchBegin:
  case QEvent::TouchUpdate:
  case QEvent::TouchEnd:
    if (m_impl->interactive)
      return false;
    [[fallthrough]];
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
    event->ignore(); // for the parent, as if the page were not there
    return true;
  default:
    return false;
  }
}

} // namespace tolmira
