#pragma once

#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QString>
#include <QStringList>
#include <QStringView>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

namespace tolmira {

inline const QString NomeDoPrograma = QStringLiteral("Tolmira");
inline constexpr qint64 LimiteDoInstalador = qint64(2) << 30; // bytes

// An answer of the update endpoint: fields joined by "!*!". The third is the newest version and the fourth the address
// of its installer; all others are for people to read.
struct NovaVersao {
  QString versao;         // in one line
  QUrl instalador;        // invalid when the answer has none that is read over https
  QStringList paragrafos; // plain text, whatever stands in it; without control characters but line ends
};
NovaVersao LeNovaVersao(QStringView resposta);

// Asks the maker's server whether there is a newer version. What is asked and what is fetched goes over https alone,
// for what comes is to be installed.
class Atualizacao {
public:
  Atualizacao(const Endpoints &endpoints, PageFetcher &paginas, QString versao = QStringLiteral(TOLMIRA_VERSION))
      : m_endpoints(endpoints), m_paginas(paginas), m_versao(std::move(versao)) {}

  // Why it cannot be asked; empty when it can.
  QString PorQueNao() const;
  QUrl Endereco() const; // invalid when it cannot be asked

  // `pronto` gets one of three: that the server could not be reached, that this version is the newest, or the answer of
  // the server with "!*!Link" behind it. PorQueNao must be empty.
  [[nodiscard]] std::unique_ptr<WebTask> VerificaVersao(std::function<void(const QString &resultado)> pronto);
  // The answer in such a result, which stands there; nothing in the other two.
  static std::optional<QStringView> RespostaComLink(QStringView resultado);

  // Where people get the newest version, with the program's name in the key `prog`; invalid when it is not configured.
  QUrl PaginaDeDownload() const;

private:
  const Endpoints &m_endpoints;
  PageFetcher &m_paginas;
  QString m_versao;
};

// "Instalar-Tolmira.exe".
QString NomeDoInstalador();

} // namespace tolmira
