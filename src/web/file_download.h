#pragma once

#include "web/web_client.h"

#include <atomic>
#include <functional>

namespace tolmira {

// The agent string of the control `DL`.
QByteArray AgenteDoDL();

// Fetches a file on the thread that calls it, which ends when nothing came for that long. `andou` is told some ten
// times a second.
FimDoDownload BaixaArquivo(const PedidoDeDownload &pedido, int limiteParadoMs, const std::atomic<bool> &parar,
                           const std::function<void(qint64 veio, qint64 total)> &andou);

} // namespace tolmira
