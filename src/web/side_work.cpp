#include "web/side_work.h"

#include <QObject>
#include <QThread>
#include <utility>

namespace tolmira {

namespace {

class SideWork : public WebTask {
public:
  SideWork(std::function<void(const std::atomic_bool &)> work, std::function<void()> done)
      : m_done(std::move(done)), m_thread(QThread::create([this, work = std::move(work)] { work(m_stop); })) {
    QObject::connect(m_thread.get(), &QThread::finished, &m_here, [this] {
      const std::function<void()> tell = std::move(m_done); // it may drop this
      tell();
    });
    m_thread->start(QThread::LowPriority);
  }
  ~SideWork() override {
    m_stop = true;
    m_thread->wait();
  }

private:
  std::atomic_bool m_stop = false;
  std::function<void()> m_done;
  QObject m_here; // what the thread reports to waits for this thread's message loop
  std::unique_ptr<QThread> m_thread;
};

} // namespace

std::unique_ptr<WebTask> TrabalhaAoLado(std::function<void(const std::atomic_bool &para)> trabalho,
                                        std::function<void()> pronto) {
  return std::make_unique<SideWork>(std::move(trabalho), std::move(pronto));
}

} // namespace tolmira
