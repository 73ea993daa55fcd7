#include "songs/lyrics_sites.h"

#include <QStringList>

namespace tolmira {

namespace {

// The host of a configured address, without "www.".
QString Dominio(const QString &siteBusca) {
  QString host = Endpoints::EnderecoEm(siteBusca, QStringLiteral("/")).host();
  if (host.startsWith(u"www."))
    host.remove(0, 4);
  return host;
}

bool EhPrimeiroEndereco(const SiteEmUso &em) {
  return Dominio(em.SiteBusca) == Dominio(Endpoints::HostPadrao(PaginaDe(em.site).endpoint));
}

// As the site spells its own name. What stands in for the site under a name that is not its own keeps the site's
// titles.
QString DominioAZLyrics(const QString &siteBusca) {
  const QString proprio = QStringLiteral("AZLyrics");
  QString dominio = Dominio(siteBusca);
  return dominio.contains(proprio, Qt::CaseInsensitive) ? dominio.replace(proprio, proprio, Qt::CaseInsensitive)
                                                        : QString(proprio + u".com");
}

// Words inside a query. What would end the value, or mean something else there, is written out; accents are left to the
// address.
QString PalavrasNaBusca(const QString &palavras) {
  return QString(palavras)
      .replace(u'%', QStringLiteral("%25"))
      .replace(u'&', QStringLiteral("%26"))
      .replace(u'#', QStringLiteral("%23"))
      .replace(u'+', QStringLiteral("%2B"))
      .replace(u' ', QStringLiteral("%20"));
}

} // namespace

const PaginaDeLetra &PaginaDe(SiteDeLetras site) {
  static const std::array Paginas = {
      PaginaDeLetra{Endpoint::Genius, QStringLiteral("Genius"), QStringLiteral("<print-component :lyrics="), QString(),
                    QStringLiteral(":song=")},
      // Nobody has told how this site marks its lyrics; they stand in the first block of the class of that name.
      PaginaDeLetra{Endpoint::Letras, QStringLiteral("Letras"), QStringLiteral("lyric-original"), QStringLiteral(">"),
                    QStringLiteral("</div>")},
      PaginaDeLetra{Endpoint::AZLyrics, QStringLiteral("AZLyrics"), QStringLiteral("ringtone"), QStringLiteral("-->"),
                    QStringLiteral("</div>")},
      PaginaDeLetra{Endpoint::ZionLyrics, QStringLiteral("Zion Lyrics"), QStringLiteral("title text-center"),
                    QStringLiteral("<p>"), QStringLiteral("<h2 class")},
  };
  return Paginas.at(static_cast<size_t>(site));
}

QString MarcaDepoisDoTitulo(const SiteEmUso &em) {
  switch (em.site) {
  case SiteDeLetras::ZionLyrics:
    return QStringLiteral(" - Zion Lyrics</div>");
  case SiteDeLetras::AZLyrics:
    return u" | " + DominioAZLyrics(em.SiteBusca) + u"</div>";
  case SiteDeLetras::Letras:
    return EhPrimeiroEndereco(em) ? QStringLiteral(" - LETRAS</div>")
                                  : QString(u" - " + Dominio(em.SiteBusca).toUpper() + u"</div>");
  case SiteDeLetras::Genius:
    break; // searched by itself
  }
  return {};
}

Endpoint EndpointDaBusca(SiteDeLetras site) {
  return site == SiteDeLetras::Genius ? Endpoint::Genius : Endpoint::PesquisaWeb;
}

QUrl EnderecoDaBusca(const Endpoints &endpoints, const SiteEmUso &em, const QString &palavras) {
  if (em.site == SiteDeLetras::Genius)
    return Endpoints::EnderecoEm(em.SiteBusca, u"/search?q=" + PalavrasNaBusca(palavras));
  return endpoints.Endereco(EndpointDaBusca(em.site),
                            u"/search?num=20&as_q=" + PalavrasNaBusca(palavras) + u"&as_sitesearch=" + em.SiteBusca);
}

QUrl LinkDoSite(const SiteEmUso &em, const QString &link) {
  const QUrl base = Endpoints::EnderecoEm(em.SiteBusca, QStringLiteral("/"));
  const QUrl escrito(link, QUrl::TolerantMode);
  if (link.isEmpty() || !base.isValid() || !escrito.isValid())
    return {};
  const QUrl address = base.resolved(escrito);
  const bool web = address.scheme() == u"https" || address.scheme() == u"http";
  if (!web || !address.userInfo().isEmpty())
    return {};
  if (base.port() >= 0)
    return address.host() == base.host() && address.port() == base.port() ? address : QUrl();
  const QString dominio = Dominio(em.SiteBusca);
  const bool dele = address.host() == dominio || address.host().endsWith(QString(u'.' + dominio));
  return dele && address.port() < 0 ? address : QUrl();
}

QUrl EnderecoDoArtista(const QUrl &letra) {
  const QStringList partes = letra.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts);
  if (partes.isEmpty())
    return {};
  // A result may be the artist's own page already.
  const QStringList acima = partes.size() > 1 ? partes.first(partes.size() - 1) : partes;
  QUrl artista = letra.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
  artista.setPath(u'/' + acima.join(u'/') + u'/', QUrl::TolerantMode);
  return artista;
}

} // namespace tolmira
