#include "web/environment_proxy.h"

#include <QHostAddress>
#include <QString>
#include <QStringList>

namespace tolmira {

namespace {

QString Variavel(const char *nome) {
  return qEnvironmentVariable(nome).trimmed();
}

QString ComCapitais(const char *nome, const char *capitais) {
  const QString valor = Variavel(nome);
  return valor.isEmpty() ? Variavel(capitais) : valor;
}

bool SemProxy(const QString &host) {
  const QHostAddress numero(host);
  if (host == u"localhost" || host.endsWith(u".localhost") || numero.isLoopback())
    return true;
  const QString lista = ComCapitais("no_proxy", "NO_PROXY");
  for (QString nome : lista.split(u',', Qt::SkipEmptyParts)) {
    nome = nome.trimmed().toLower();
    if (nome == u"*")
      return true;
    while (nome.startsWith(u'.') || nome.startsWith(u'*'))
      nome.remove(0, 1);
    nome = nome.section(u':', 0, 0);
    if (!nome.isEmpty() && (host == nome || host.endsWith(u'.' + nome)))
      return true;
  }
  return false;
}

} // namespace

QUrl ProxyDoAmbiente(const QUrl &url) {
  if (SemProxy(url.host().toLower()))
    return {};
  // HTTP_PROXY is left out: a web server's own variable of that name can be set from outside.
  QString valor = url.scheme() == u"https" ? ComCapitais("https_proxy", "HTTPS_PROXY") : Variavel("http_proxy");
  if (valor.isEmpty())
    valor = ComCapitais("all_proxy", "ALL_PROXY");
  if (valor.isEmpty())
    return {};
  QUrl proxy(valor.contains(u"://") ? valor : QStringLiteral("http://") + valor);
  static const QStringList falados = {QStringLiteral("http"), QStringLiteral("socks5"), QStringLiteral("socks5h")};
  if (!proxy.isValid() || proxy.host().isEmpty() || !falados.contains(proxy.scheme()))
    return {};
  constexpr int Costume = 1080;
  proxy.setPort(proxy.port(Costume));
  return proxy;
}

} // namespace tolmira
