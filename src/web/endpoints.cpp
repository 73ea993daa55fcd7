#include "web/endpoints.h"

#include "foundation/ini_text.h"
#include "foundation/text_file.h"

#include <QObject>
#include <QUrlQuery>
#include <array>

namespace tolmira {

namespace {

const QString Secao = QStringLiteral("Endpoints");

struct Linha {
  Endpoint endpoint;
  QLatin1String chave;
  QLatin1String padrao;
};

// The maker's own services have no address of their own accord.
constexpr std::array Linhas = {
    Linha{Endpoint::Suporte, QLatin1String("Suporte"), QLatin1String("")},
    Linha{Endpoint::Atualizacao, QLatin1String("Atualizacao"), QLatin1String("")},
    Linha{Endpoint::PaginaDownload, QLatin1String("PaginaDownload"), QLatin1String("")},
    Linha{Endpoint::ListaBiblias, QLatin1String("ListaBiblias"), QLatin1String("")},
    Linha{Endpoint::Genius, QLatin1String("Genius"), QLatin1String("genius.com")},
    Linha{Endpoint::Letras, QLatin1String("Letras"), QLatin1String("www.letras.mus.br")},
    Linha{Endpoint::AZLyrics, QLatin1String("AZLyrics"), QLatin1String("www.azlyrics.com")},
    Linha{Endpoint::ZionLyrics, QLatin1String("ZionLyrics"), QLatin1String("")},
    Linha{Endpoint::PesquisaWeb, QLatin1String("PesquisaWeb"), QLatin1String("www.google.com")},
    Linha{Endpoint::PesquisaImagens, QLatin1String("PesquisaImagens"), QLatin1String("www.bing.com")},
    Linha{Endpoint::ImagensMv, QLatin1String("ImagensMv"), QLatin1String("")},
    Linha{Endpoint::VideosWeb, QLatin1String("VideosWeb"), QLatin1String("www.youtube.com")},
};

const Linha &LinhaDe(Endpoint endpoint) {
  return Linhas.at(static_cast<size_t>(endpoint)); // in the order of the enumeration, which a test makes sure of
}

QString Arquivo(const IniStore &store) {
  return store.App().At(u"\\Data\\Endpoints.dat");
}

} // namespace

void Endpoints::GravaPadroes() const {
  const QString texto = ReadWholeFile(Arquivo(m_store));
  for (const Linha &linha : Linhas) {
    QString arquivo = Arquivo(m_store);
    if (!IniValue(texto, Secao, linha.chave.toString()))
      m_store.WriteConfig(Secao, linha.chave, linha.padrao, arquivo);
  }
}

QString Endpoints::Host(Endpoint endpoint) const {
  QString arquivo = Arquivo(m_store);
  return m_store.ReadConfig(Secao, LinhaDe(endpoint).chave, QString(), arquivo).trimmed();
}

QString Endpoints::HostPadrao(Endpoint endpoint) {
  return LinhaDe(endpoint).padrao;
}

QUrl Endpoints::Endereco(Endpoint endpoint, const QString &caminho) const {
  return EnderecoEm(Host(endpoint), caminho);
}

QUrl Endpoints::EnderecoEm(const QString &host, const QString &caminho) {
  if (host.isEmpty())
    return {};
  QString base = host.contains(u"://") ? host : QStringLiteral("https://") + host;
  while (base.endsWith(u'/'))
    base.chop(1);
  const QUrl address(base + caminho, QUrl::TolerantMode);
  const bool web = address.scheme() == u"https" || address.scheme() == u"http";
  if (!address.isValid() || !web || address.host().isEmpty() || !address.userInfo().isEmpty())
    return {};
  return address;
}

QUrl Endpoints::PaginaDoPrograma(Endpoint endpoint) const {
  QUrl address = Endereco(endpoint, QString());
  if (!address.isValid())
    return {};
  QUrlQuery query(address);
  query.addQueryItem(QStringLiteral("prog"), QStringLiteral("Tolmira"));
  address.setQuery(query);
  return address;
}

QString Endpoints::PorQueNao(Endpoint endpoint) const {
  const QString host = Host(endpoint);
  if (host.isEmpty())
    return QObject::tr("No address is configured for this. It is the key %1 in the section Endpoints of "
                       "Data\\Endpoints.dat.")
        .arg(LinhaDe(endpoint).chave);
  return QObject::tr("The address of the key %1 in Data\\Endpoints.dat is not an address of the web: %2")
      .arg(LinhaDe(endpoint).chave, host);
}

} // namespace tolmira
