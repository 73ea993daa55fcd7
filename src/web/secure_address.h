#pragma once

#include <QUrl>

namespace tolmira {

// Whether what is read there comes from where it says: over https, or from this machine itself (127.0.0.1, localhost).
bool EnderecoSeguro(const QUrl &endereco);

} // namespace tolmira
