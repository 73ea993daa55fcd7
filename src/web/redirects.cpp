#include "web/redirects.h"

#include "web/own_network.h"
#include "web/web_client.h"

namespace tolmira {

bool Redirects::EhDaWeb(const QUrl &url) {
  return url.isValid() && (url.scheme() == u"https" || url.scheme() == u"http") && !url.host().isEmpty() &&
         url.userInfo().isEmpty();
}

bool Redirects::EhRedirecionamento(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool Redirects::Segue(const QByteArray &location) {
  const QUrl next = m_atual.resolved(QUrl::fromEncoded(location));
  const bool lessSafe = m_atual.scheme() == u"https" && next.scheme() != u"https";
  const bool paraDentro = DaRedePropria(next.host()) && !DaRedePropria(m_atual.host());
  if (location.isEmpty() || !EhDaWeb(next) || lessSafe || paraDentro || ++m_vezes > LimiteDeRedirecionamentos)
    return false;
  m_atual = next;
  m_porHttps = m_porHttps && next.scheme() == u"https";
  return true;
}

} // namespace tolmira
