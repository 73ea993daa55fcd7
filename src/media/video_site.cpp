#include "media/video_site.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace tolmira {

namespace {

constexpr qsizetype MaiorId = 64;
constexpr QStringView CaminhoDoEmbed = u"/embed/";
const QString SitePadrao = QStringLiteral("https://www.youtube.com");

bool EhDe(const QString &host, QStringView dominio) {
  return host == dominio || (host.endsWith(dominio) && host.at(host.size() - dominio.size() - 1) == u'.');
}

bool EhConhecido(const QString &host) {
  return EhDe(host, u"youtube.com") || EhDe(host, u"youtube-nocookie.com") || host == u"youtu.be";
}

bool EhDaWeb(const QUrl &url) {
  const bool web = url.scheme() == u"https" || url.scheme() == u"http";
  return url.isValid() && web && !url.host().isEmpty() && url.userInfo().isEmpty();
}

// Nothing but an id may stand behind: the engine makes another path of "..".
bool TerminaEmId(QStringView caminho, const QString &raiz) {
  if (!caminho.startsWith(raiz))
    return false;
  caminho = caminho.sliced(raiz.size());
  return EhIdDeVideo(caminho.endsWith(u'/') ? caminho.chopped(1) : caminho);
}

bool MesmoLugar(const QUrl &a, const QUrl &b) {
  return a.scheme() == b.scheme() && a.host() == b.host() && a.port() == b.port();
}

} // namespace

bool EhVideoDaWeb(const QString &texto) {
  static const QRegularExpression site(QStringLiteral("youtube(-nocookie)?\\.com|youtu\\.be"),
                                       QRegularExpression::CaseInsensitiveOption);
  return site.match(texto).hasMatch();
}

bool EhIdDeVideo(QStringView id) {
  const auto letra = [](QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-';
  };
  return !id.isEmpty() && id.size() <= MaiorId && std::all_of(id.begin(), id.end(), letra);
}

bool VideoSite::EhDoSite(const QUrl &url) const {
  if (!EhDaWeb(url))
    return false;
  const bool portaComum = url.port(-1) == -1 || url.port() == (url.scheme() == u"https" ? 443 : 80);
  return (EhConhecido(url.host()) && portaComum) || MesmoLugar(url, Base());
}

QString VideoSite::EnderecoDoTelao(const QString &link) const {
  // A command's fields must not be shifted, nor its line be broken.
  if (link.contains(QStringLiteral("|#")) || link.contains(u'\r') || link.contains(u'\n'))
    return {};
  const QString endereco = link.contains(u"://") ? link.trimmed() : u"https://" + link.trimmed();
  const QUrl url(endereco, QUrl::TolerantMode);
  if (!EhDoSite(url))
    return {};
  if (!EhEmbed(url))
    return LinkDe(endereco);
  const QString semCifra = QStringLiteral("http");
  return url.scheme() == semCifra && !MesmoLugar(url, Base())
             ? QString(QStringLiteral("https") + endereco.mid(semCifra.size()))
             : endereco;
}

bool VideoSite::PodeNoTelao(const QUrl &url) const {
  return EhDoSite(url) && EhEmbed(url) && (url.scheme() == u"https" || MesmoLugar(url, Base()));
}

bool VideoSite::EhEmbed(const QUrl &url) const {
  const QString raiz = MesmoLugar(url, Base()) ? Base().path(QUrl::FullyEncoded) : QString();
  return TerminaEmId(url.path(QUrl::FullyEncoded), raiz + CaminhoDoEmbed);
}

bool VideoSite::PodeNoDialogo(const QUrl &url) const {
  static const QStringList entrada = {QStringLiteral("accounts.google.com"), QStringLiteral("consent.google.com"),
                                      QStringLiteral("myaccount.google.com")};
  if (MesmoLugar(url, Base()) && EhDaWeb(url))
    return true;
  return url.scheme() == u"https" && (EhDoSite(url) || (EhDaWeb(url) && entrada.contains(url.host())));
}

QString VideoSite::Embed(const QString &id) const {
  const QUrl url = m_endpoints.Endereco(Endpoint::VideosWeb, CaminhoDoEmbed + id);
  return url.isValid() ? url.toString(QUrl::FullyEncoded) : QString(SitePadrao + CaminhoDoEmbed + id);
}

QString VideoSite::LinkDe(const QString &colado) const {
  static const QRegularExpression id(
      QStringLiteral("(?:[?&]v=|youtu\\.be/|/embed/|/shorts/|/live/)([A-Za-z0-9_-]{6,64})(?![A-Za-z0-9_-])"));
  const QRegularExpressionMatch achado = id.match(colado);
  if (!achado.hasMatch() || !(EhVideoDaWeb(colado) || EhDoSite(QUrl(colado))))
    return {};
  return Embed(achado.captured(1));
}

QUrl VideoSite::Busca(const QString &termo) const {
  // What has a meaning of its own in a query is escaped, so that all of the term is searched for.
  const QString escapado = QString::fromLatin1(QUrl::toPercentEncoding(termo, " "));
  return m_endpoints.Endereco(Endpoint::VideosWeb, u"/results?search_query=" + QString(escapado).replace(u' ', u'+'));
}

QUrl VideoSite::Inicio() const {
  return m_endpoints.Endereco(Endpoint::VideosWeb, QStringLiteral("/"));
}

} // namespace tolmira
