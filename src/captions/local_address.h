#pragma once

#include <QList>
#include <QString>

namespace tolmira {

// The machine's IPv4 addresses as the system lists them.
struct TabelaDeEnderecos {
  int resultado = 0;        // not 0: the system's number for what went wrong
  QList<quint32> enderecos; // ascending
};

TabelaDeEnderecos GetIpAddrTable();

// The address to show: the last one that begins with "192"; empty when there is none. `erro` is empty when the table
// could be had.
QString ObtemIpLocal(const TabelaDeEnderecos &tabela, QString &erro);

} // namespace tolmira
