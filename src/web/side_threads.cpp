#include "web/side_threads.h"

#include <utility>

namespace tolmira {

class SideThreads::Tarefa : public WebTask {
public:
  explicit Tarefa(std::shared_ptr<Estado> estado) : m_estado(std::move(estado)) {}
  ~Tarefa() override {
    m_estado->parar = true;
    m_estado->ouvintes = {};
  }

private:
  std::shared_ptr<Estado> m_estado;
};

SideThreads::~SideThreads() {
  for (const Fio &fio : m_fios)
    fio.estado->parar = true;
  for (Fio &fio : m_fios)
    fio.thread.join();
}

std::unique_ptr<WebTask> SideThreads::Comeca(Trabalho trabalho, Ouvintes ouvintes) {
  Recolhe();
  auto estado = std::make_shared<Estado>();
  estado->ouvintes = std::move(ouvintes);
  const Avisa avisa = [this, estado](Relato relato) {
    QMetaObject::invokeMethod(
        this,
        [estado, relato = std::move(relato)] {
          if (!estado->parar)
            relato(estado->ouvintes);
        },
        Qt::QueuedConnection);
  };
  std::thread thread([estado, avisa, trabalho = std::move(trabalho)] {
    avisa(trabalho(estado->parar, avisa));
    estado->acabou = true;
  });
  m_fios.push_back({estado, std::move(thread)});
  return std::make_unique<Tarefa>(std::move(estado));
}

void SideThreads::Recolhe() {
  for (auto fio = m_fios.begin(); fio != m_fios.end();) {
    if (fio->estado->acabou) {
      fio->thread.join();
      fio = m_fios.erase(fio);
    } else {
      ++fio;
    }
  }
}

} // namespace tolmira
