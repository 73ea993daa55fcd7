#include "web/secure_address.h"

namespace tolmira {

bool EnderecoSeguro(const QUrl &endereco) {
  if (!endereco.isValid() || endereco.host().isEmpty() || !endereco.userInfo().isEmpty())
    return false;
  const QString host = endereco.host();
  return endereco.scheme() == u"https" ||
         (endereco.scheme() == u"http" && (host == u"127.0.0.1" || host == u"localhost"));
}

} // namespace tolmira
