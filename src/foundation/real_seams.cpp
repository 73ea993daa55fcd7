#include "foundation/real_seams.h"

#include <QDesktopServices>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTimer>
#include <algorithm>
#include <chrono>

namespace tolmira {
namespace {

class QtPeriodicTimer : public PeriodicTimer {
public:
  explicit QtPeriodicTimer(std::function<void()> onTick) : m_timer(new QTimer) {
    m_timer->setTimerType(Qt::PreciseTimer);
    // The function is called as a copy: a tick may destroy this object.
    QObject::connect(m_timer, &QTimer::timeout, m_timer, [tick = std::move(onTick), depth = m_ticking] {
      const std::function<void()> call = tick;
      const std::shared_ptr<int> level = depth;
      ++*level;
      call();
      --*level;
    });
  }

  ~QtPeriodicTimer() override {
    m_timer->stop();
    // Inside its own tick the toolkit still holds the object.
    if (*m_ticking > 0)
      m_timer->deleteLater();
    else
      delete m_timer;
  }

  QtPeriodicTimer(const QtPeriodicTimer &) = delete;
  QtPeriodicTimer &operator=(const QtPeriodicTimer &) = delete;

  void Start(int intervalMs) override {
    m_intervalMs = std::max(intervalMs, 0);
    if (m_intervalMs > 0)
      m_timer->start(m_intervalMs);
    else
      m_timer->stop();
  }
  void Stop() override { m_timer->stop(); }
  bool IsActive() const override { return m_timer->isActive(); }
  int IntervalMs() const override { return m_intervalMs; }

private:
  QTimer *m_timer; // owned
  std::shared_ptr<int> m_ticking = std::make_shared<int>(0);
  int m_intervalMs = 0;
};

} // namespace

qint64 SystemClock::NowMs() const {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::unique_ptr<PeriodicTimer> SystemClock::NewTimer(std::function<void()> onTick) {
  return std::make_unique<QtPeriodicTimer>(std::move(onTick));
}

// User input waits: the toolkit keeps it in its own queue until the next full round. Sockets are asked to wait as well,
// but only the toolkit's plain dispatcher does so, the one on GLib runs them all the same; hence IsYielding. Timers,
// posted events and what the window system wants painted run under both (the window system is read by a thread of
// its own, not by a notifier that the flags would hold back).
void LoopYielder::Yield(int times) {
  ++m_depth;
  for (int i = 0; i < times; ++i)
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
  --m_depth;
}

double SystemRandom::Draw() {
  return QRandomGenerator::global()->generateDouble();
}

bool SystemOpener::Open(const QUrl &address) { return QDesktopServices::openUrl(address); }

} // namespace tolmira
