#include "captions/local_address.h"

#include <QHostAddress>
#include <algorithm>
#include <cerrno>
#include <ifaddrs.h>
#include <netinet/in.h>

namespace tolmira {

TabelaDeEnderecos GetIpAddrTable() {
  TabelaDeEnderecos tabela;
  ifaddrs *first = nullptr;
  if (getifaddrs(&first) != 0) {
    tabela.resultado = errno;
    return tabela;
  }
  for (const ifaddrs *row = first; row; row = row->ifa_next)
    if (row->ifa_addr && row->ifa_addr->sa_family == AF_INET)
      tabela.enderecos.append(ntohl(reinterpret_cast<const sockaddr_in *>(row->ifa_addr)->sin_addr.s_addr));
  freeifaddrs(first);
  std::sort(tabela.enderecos.begin(), tabela.enderecos.end());
  return tabela;
}

QString ObtemIpLocal(const TabelaDeEnderecos &tabela, QString &erro) {
  erro.clear();
  if (tabela.resultado != 0) {
    erro = QStringLiteral("GetIpAddrTable failed with return value %1.").arg(tabela.resultado);
    return {};
  }
  QString ip;
  for (const quint32 endereco : tabela.enderecos)
    if (const QString texto = QHostAddress(endereco).toString(); texto.startsWith(u"192"))
      ip = texto;
  return ip;
}

} // namespace tolmira
