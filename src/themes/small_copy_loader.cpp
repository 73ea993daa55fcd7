#include "themes/small_copy_loader.h"

#include "foundation/real_path.h"
#include "themes/small_copy.h"

#include <QThread>
#include <algorithm>
#include <utility>

#ifdef Q_OS_LINUX
#include <sys/resource.h>
#endif

namespace tolmira {

namespace {

constexpr int MostThreads = 4; // each may hold a decoded picture of a hundred megabytes

// Of the calling thread alone. The toolkit's thread priorities mean nothing under the usual scheduler.
void GiveWay() {
#ifdef Q_OS_LINUX
  setpriority(PRIO_PROCESS, 0, 10);
#endif
}

} // namespace

SmallCopyLoader::SmallCopyLoader(const AppFolder &app, QObject *parent) : QObject(parent), m_app(app) {
  m_pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount(), 1, MostThreads));
}

SmallCopyLoader::~SmallCopyLoader() {
  {
    const std::scoped_lock lock(m_mutex);
    m_fila.clear();
    m_ampliar.reset();
  }
  m_pool.waitForDone();
}

void SmallCopyLoader::Deseja(const QStringList &nomes) {
  {
    const std::scoped_lock lock(m_mutex);
    m_fila = nomes;
    m_fila.removeIf([this](const QString &nome) { return m_emTrabalho.contains(nome); });
  }
  Acorda();
}

void SmallCopyLoader::Amplia(const QString &nome, const QSize &area) {
  {
    const std::scoped_lock lock(m_mutex);
    m_ampliar = Tarefa{nome, area.expandedTo({1, 1})};
  }
  Acorda();
}

void SmallCopyLoader::Acorda() {
  const std::scoped_lock lock(m_mutex);
  const int wanted = std::min(m_pool.maxThreadCount(), static_cast<int>(m_fila.size()) + (m_ampliar ? 1 : 0));
  for (; m_trabalhadores < wanted; ++m_trabalhadores)
    m_pool.start([this] { Trabalha(); });
}

std::optional<SmallCopyLoader::Tarefa> SmallCopyLoader::Toma() {
  const std::scoped_lock lock(m_mutex);
  if (m_ampliar)
    return std::exchange(m_ampliar, std::nullopt);
  if (m_fila.isEmpty()) {
    --m_trabalhadores;
    return std::nullopt;
  }
  const QString nome = m_fila.takeFirst();
  m_emTrabalho.insert(nome);
  return Tarefa{nome, {}};
}

void SmallCopyLoader::Trabalha() {
  GiveWay();
  while (const std::optional<Tarefa> tarefa = Toma()) {
    const QString nome = tarefa->nome;
    if (!tarefa->area.isEmpty()) {
      const QSize area = tarefa->area;
      const auto inside = [area](const QSize &size) {
        const bool fits = size.width() <= area.width() && size.height() <= area.height();
        return fits ? size : size.scaled(area, Qt::KeepAspectRatio);
      };
      const PictureImage imagem = ReadPicture(MapStoredPath(m_app.At(u"\\Images\\") + nome).text(), inside);
      QMetaObject::invokeMethod(
          this, [this, nome, imagem] { emit Ampliada(nome, imagem); }, Qt::QueuedConnection);
      continue;
    }
    const bool caminho = nome.contains(u'\\') || nome.contains(u'/');
    const PictureImage imagem = caminho ? TrazMiniaturaDe(m_app, nome) : TrazMiniatura(m_app, nome);
    QMetaObject::invokeMethod(
        this,
        [this, nome, imagem] {
          // Only now, so that a wish in the meantime does not have the same work done twice.
          {
            const std::scoped_lock lock(m_mutex);
            m_emTrabalho.remove(nome);
          }
          emit Pronta(nome, imagem);
        },
        Qt::QueuedConnection);
  }
}

} // namespace tolmira
