#pragma once

#include "web/web_client.h"

#include <atomic>
#include <functional>
#include <memory>

namespace tolmira {

// Runs `trabalho` on a thread of its own, beside the interface's, and then `pronto` on the caller's thread, from the
// message loop. What the work writes is the reader's once `pronto` is called; it looks at `para` often, for dropping
// the task sets it and waits for the work to return, and nothing is reported then.
[[nodiscard]] std::unique_ptr<WebTask> TrabalhaAoLado(std::function<void(const std::atomic_bool &para)> trabalho,
                                                      std::function<void()> pronto);

} // namespace tolmira
