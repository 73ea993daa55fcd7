#include "web/own_network.h"

#include <QHostAddress>
#include <QLatin1String>
#include <algorithm>
#include <array>

namespace tolmira {

namespace {

constexpr std::array Redes = {
    QLatin1String("0.0.0.0/8"),      QLatin1String("10.0.0.0/8"),     QLatin1String("100.64.0.0/10"),
    QLatin1String("127.0.0.0/8"),    QLatin1String("169.254.0.0/16"), QLatin1String("172.16.0.0/12"),
    QLatin1String("192.168.0.0/16"), QLatin1String("224.0.0.0/3"),    QLatin1String("::/127"),
    QLatin1String("fc00::/7"),       QLatin1String("fe80::/9"),       QLatin1String("ff00::/8"),
};
constexpr std::array Finais = {
    QLatin1String(".local"), QLatin1String(".localhost"), QLatin1String(".lan"),      QLatin1String(".home"),
    QLatin1String(".corp"),  QLatin1String(".internal"),  QLatin1String(".intranet"), QLatin1String(".home.arpa"),
};

} // namespace

bool DaRedePropria(const QString &host) {
  QString nome = host.toLower();
  while (nome.endsWith(u'.'))
    nome.chop(1);
  QHostAddress numero;
  if (numero.setAddress(nome)) {
    bool quatro = false;
    const quint32 v4 = numero.toIPv4Address(&quatro); // also of one that is written as of the sixth version
    if (quatro)
      numero.setAddress(v4);
    return std::any_of(Redes.begin(), Redes.end(), [&numero](QLatin1String rede) {
      return numero.isInSubnet(QHostAddress::parseSubnet(QString(rede)));
    });
  }
  return !nome.contains(u'.') ||
         std::any_of(Finais.begin(), Finais.end(), [&nome](QLatin1String fim) { return nome.endsWith(fim); });
}

} // namespace tolmira
