#pragma once

#include <QByteArray>
#include <QUrl>

namespace tolmira {

// The way of one request from address to address.
class Redirects {
public:
  explicit Redirects(const QUrl &primeiro) : m_atual(primeiro), m_porHttps(primeiro.scheme() == u"https") {}

  // Whether that is an address to ask at all: of the web, with a host, without a name and password in it.
  static bool EhDaWeb(const QUrl &url);
  static bool EhRedirecionamento(int status);

  // Goes where a server points to. False when that is not followed: the eleventh time, from https to anything else,
  // from outside into this machine's own network, and to anything that is not of the web.
  bool Segue(const QByteArray &location);

  const QUrl &Atual() const { return m_atual; }
  bool PorHttps() const { return m_porHttps; } // all the way

private:
  QUrl m_atual;
  bool m_porHttps;
  int m_vezes = 0;
};

} // namespace tolmira
