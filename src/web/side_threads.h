#pragma once

#include "web/web_client.h"

#include <QObject>
#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <thread>

namespace tolmira {

// Work that takes its time (the web, a disk) beside the interface thread. Its reports run on the thread of this object.
// Dropping its task tells it to stop and waits for nothing, so a disk that does not answer holds up nobody; no report
// runs after that. Ending this tells all work to stop and waits for it.
class SideThreads : public QObject {
public:
  SideThreads() = default;
  ~SideThreads() override;

  using Relato = std::function<void()>;
  using Avisa = std::function<void(Relato)>; // from the work's thread: runs that on the other one
  // What is to be done; it looks at `parar` often. What it returns runs at the end.
  using Trabalho = std::function<Relato(const std::atomic<bool> &parar, const Avisa &avisa)>;

  std::unique_ptr<WebTask> Comeca(Trabalho trabalho);

private:
  struct Estado {
    std::atomic<bool> parar{false}; // also: nobody listens any more
    std::atomic<bool> acabou{false};
  };
  class Tarefa;
  struct Fio {
    std::shared_ptr<Estado> estado;
    std::thread thread;
  };
  void Recolhe();

  std::list<Fio> m_fios;
};

} // namespace tolmira
