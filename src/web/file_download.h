#pragma once

#include "web/web_client.h"

#include <QSet>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace tolmira {

// The files that downloads are writing now. A download that was dropped may still hold its place for a moment, and the
// next one to the same place waits for it. For any thread.
class LugaresEmUso {
public:
  bool Toma(const QString &arquivo, const std::atomic<bool> &parar, int esperaMs); // false: stopped, or not in time
  void Deixa(const QString &arquivo);

private:
  std::mutex m_mutex;
  std::condition_variable m_livre;
  QSet<QString> m_arquivos;
};

// The agent string of the control `DL`.
QByteArray AgenteDoDL();

// Fetches a file on the thread that calls it, which ends when nothing came for that long. `andou` is told some ten
// times a second.
FimDoDownload BaixaArquivo(const PedidoDeDownload &pedido, int limiteParadoMs, LugaresEmUso &lugares,
                           const std::atomic<bool> &parar, const std::function<void(qint64 veio, qint64 total)> &andou);

} // namespace tolmira
