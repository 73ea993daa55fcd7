#include "web/later.h"

#include <QObject>
#include <QTimer>
#include <utility>

namespace tolmira {

namespace {

class Depois : public WebTask {
public:
  explicit Depois(std::function<void()> pronto) : m_pronto(std::move(pronto)) {
    QTimer::singleShot(0, &m_aqui, [this] {
      const std::function<void()> conta = std::move(m_pronto); // it may drop this
      conta();
    });
  }

private:
  std::function<void()> m_pronto;
  QObject m_aqui;
};

} // namespace

std::unique_ptr<WebTask> ContaDepois(std::function<void()> pronto) {
  return std::make_unique<Depois>(std::move(pronto));
}

} // namespace tolmira
