#pragma once

#include <QUrl>

namespace tolmira {

// The proxy through which the environment wants this address to be read: http_proxy, https_proxy, all_proxy and
// no_proxy (of all but the first the form in capitals counts as well). Empty for none, and always for this machine
// itself.
QUrl ProxyDoAmbiente(const QUrl &url);

} // namespace tolmira
