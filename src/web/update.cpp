#include "web/update.h"

#include "foundation/text_utils.h"
#include "web/secure_address.h"

#include <QObject>
#include <QUrlQuery>
#include <utility>

namespace tolmira {

namespace {

const QString Sigla = QStringLiteral("tol");
const QString Chave = QStringLiteral("updates");
const QString Separador = QStringLiteral("!*!");
const QString ComLink = QStringLiteral("!*!Link");
constexpr qsizetype MaiorNumeroDeCampos = 50;
constexpr qsizetype MaiorCampo = 4000;

// The fields of an answer, as many and as long as are looked at.
QStringList CamposDe(const QString &resposta) {
  QStringList campos;
  for (const QStringView campo : QStringView(resposta).tokenize(Separador)) {
    if (campos.size() >= MaiorNumeroDeCampos)
      break;
    campos << campo.left(MaiorCampo).trimmed().toString();
  }
  return campos;
}

QString ComEscapes(QString nome) {
  return nome.replace(u' ', QStringLiteral("%20"));
}

} // namespace

NovaVersao LeNovaVersao(const QString &resposta) {
  NovaVersao nova;
  const QStringList campos = CamposDe(resposta);
  for (qsizetype i = 0; i < campos.size(); ++i) {
    const QString &campo = campos.at(i);
    if (i == 2) {
      nova.versao = campo;
      continue;
    }
    if (i == 3) {
      const QUrl endereco(campo, QUrl::StrictMode);
      if (endereco.scheme() == u"https" && EnderecoSeguro(endereco)) {
        nova.instalador = endereco;
        continue;
      }
    }
    if (!campo.isEmpty())
      nova.paragrafos << campo;
  }
  return nova;
}

QUrl Atualizacao::Endereco() const {
  const QUrl endereco =
      m_endpoints.Endereco(Endpoint::Atualizacao, u"/update.php?vl=" + VersionCode(m_versao) + u"&sigla=" + Sigla +
                                                      u"&prog=" + ComEscapes(NomeDoPrograma));
  return EnderecoSeguro(endereco) ? endereco : QUrl();
}

QString Atualizacao::PorQueNao() const {
  if (!m_endpoints.Endereco(Endpoint::Atualizacao, QString()).isValid())
    return m_endpoints.PorQueNao(Endpoint::Atualizacao);
  if (!Endereco().isValid())
    return QObject::tr("Updates are only looked for over https. The key Atualizacao in Data\\Endpoints.dat is: %1")
        .arg(m_endpoints.Host(Endpoint::Atualizacao));
  return {};
}

std::unique_ptr<WebTask> Atualizacao::VerificaVersao(std::function<void(const QString &resultado)> pronto) {
  return m_paginas.FetchPage(Chave, Endereco(), QString(),
                             [versao = m_versao, pronto = std::move(pronto)](const QString &resposta) {
                               if (!resposta.contains(Separador))
                                 pronto(QStringLiteral("Could not connect to server"));
                               else if (VersionIsNewer(versao, CamposDe(resposta).value(2)))
                                 pronto(resposta + ComLink);
                               else
                                 pronto(u"You are already using the latest version of the " + NomeDoPrograma);
                             });
}

std::optional<QString> Atualizacao::RespostaComLink(const QString &resultado) {
  return resultado.endsWith(ComLink) ? std::optional<QString>(resultado.chopped(ComLink.size())) : std::nullopt;
}

QUrl Atualizacao::PaginaDeDownload() const {
  QUrl pagina = m_endpoints.Endereco(Endpoint::PaginaDownload, QString());
  if (!pagina.isValid())
    return {};
  QUrlQuery query(pagina);
  query.addQueryItem(QStringLiteral("prog"), NomeDoPrograma);
  pagina.setQuery(query);
  return pagina;
}

QString NomeDoInstalador() {
  return u"Instalar-" + QString(NomeDoPrograma).remove(u' ') + u".exe";
}

} // namespace tolmira
