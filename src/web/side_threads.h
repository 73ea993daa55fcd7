#pragma once

#include "web/web_client.h"

#include <QObject>
#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <thread>

namespace tolmira {

// What waits for the web or for a disk beside the interface thread. Reports run on the thread of this object, and none
// runs once its task was dropped. A task that is dropped is not waited for, so a disk that does not answer holds up
// nobody; ending this ends all of them and waits.
class SideThreads : public QObject {
public:
  SideThreads() = default;
  ~SideThreads() override;

  // Who is told of what comes from the web. They stay on the thread of this object, where they also end.
  struct Ouvintes {
    std::function<void(const QString &page)> pagina;
    std::function<void(qint64 veio, qint64 total)> andou;
    std::function<void(const FimDoDownload &fim)> fim;
  };
  using Relato = std::function<void(Ouvintes &)>; // carries plain data
  using Avisa = std::function<void(Relato)>;      // from the work's thread
  // What is to be done; it looks at `parar` often. What it returns is told at the end.
  using Trabalho = std::function<Relato(const std::atomic<bool> &parar, const Avisa &avisa)>;

  std::unique_ptr<WebTask> Comeca(Trabalho trabalho, Ouvintes ouvintes = {});

private:
  struct Estado {
    std::atomic<bool> parar{false}; // also: nobody listens any more
    std::atomic<bool> acabou{false};
    Ouvintes ouvintes;
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
