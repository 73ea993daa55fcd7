#include "web/update.h"

#include "foundation/text_utils.h"
#include "web/secure_address.h"

#include <QObject>
#include <algorithm>
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
QStringList CamposDe(QStringView resposta) {
  QStringList campos;
  for (const QStringView campo : resposta.tokenize(Separador)) {
    if (campos.size() >= MaiorNumeroDeCampos)
      break;
    campos << campo.left(MaiorCampo).trimmed().toString();
  }
  return campos;
}

// What would turn the letters round or hide them is a blank instead.
QString ParaLer(QString campo) {
  std::replace_if(
      campo.begin(), campo.end(),
      [](QChar letra) {
        return letra != u'\n' && (letra.category() == QChar::Other_Control || letra.category() == QChar::Other_Format);
      },
      QChar(u' '));
  return campo.trimmed();
}

QString ComEscapes(QString nome) {
  return nome.replace(u' ', QStringLiteral("%20"));
}

} // namespace

NovaVersao LeNovaVersao(QStringView resposta) {
  NovaVersao nova;
  const QStringList campos = CamposDe(resposta);
  for (qsizetype i = 0; i < campos.size(); ++i) {
    const QString &campo = campos.at(i);
    if (i == 2) {
      nova.versao = ParaLer(campo).simplified();
      continue;
    }
    if (i == 3) {
      const QUrl endereco(campo, QUrl::StrictMode);
      if (endereco.scheme() == u"https" && EnderecoSeguro(endereco)) {
        nova.instalador = endereco;
        continue;
      }
    }
    if (const QString texto = ParaLer(campo); !texto.isEmpty())
      nova.paragrafos << texto;
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

std::optional<QStringView> Atualizacao::RespostaComLink(QStringView resultado) {
  return resultado.endsWith(ComLink) ? std::optional(resultado.chopped(ComLink.size())) : std::nullopt;
}

QUrl Atualizacao::PaginaDeDownload() const {
  return m_endpoints.PaginaDoPrograma(Endpoint::PaginaDownload);
}

QString NomeDoInstalador() {
  return u"Instalar-" + QString(NomeDoPrograma).remove(u' ') + u".exe";
}

} // namespace tolmira
