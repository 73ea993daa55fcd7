#pragma once

#include "web/web_client.h"

#include <functional>
#include <memory>

namespace tolmira {

// Reports what is known already as everything of the web is reported: from the message loop, once, and not any more
// when the task was dropped.
[[nodiscard]] std::unique_ptr<WebTask> ContaDepois(std::function<void()> pronto);

} // namespace tolmira
