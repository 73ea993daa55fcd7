#include "web/page_fetcher.h"

#include <QLoggingCategory>
#include <utility>

namespace tolmira {

namespace {

constexpr int UltimoDaVolta = 9; // the two behind it are for who names them

Q_LOGGING_CATEGORY(logFetch, "tolmira.fetch", QtWarningMsg)

class TentativasEmRodadas : public WebTask {
public:
  TentativasEmRodadas(const IniStore &store, WebClient &client, QString keyName, QUrl url, PageFetcher::Aceita aceita,
                      PageFetcher::Pronto pronto, PageFetcher::Rodada rodada)
      : m_store(store), m_client(client), m_keyName(std::move(keyName)), m_url(std::move(url)),
        m_aceita(std::move(aceita)), m_pronto(std::move(pronto)), m_rodada(std::move(rodada)) {
    Proxima();
  }

private:
  void Proxima() {
    ++m_round;
    if (m_rodada)
      m_rodada(m_round);
    m_method = PageFetcher::NextMethod(m_round, m_keyName, m_store);
    m_tentativa = m_client.FetchBy(m_method, m_url, [this](const QString &page) { Veio(page); });
  }

  void Veio(const QString &page) {
    const bool serve = !QStringView(page).trimmed().isEmpty() && m_aceita(page);
    qCDebug(logFetch) << m_url << "round" << m_round << "method" << m_method << page.size() << "characters"
                      << (serve ? "taken" : "refused");
    if (!serve && m_round < PageFetcher::Rodadas) {
      Proxima();
      return;
    }
    if (serve)
      m_store.WriteConfig(QStringLiteral("Config"), m_keyName, QString::number(m_method));
    const PageFetcher::Pronto pronto = std::move(m_pronto); // it may drop this
    pronto(serve ? page : QString());
  }

  const IniStore &m_store;
  WebClient &m_client;
  QString m_keyName;
  QUrl m_url;
  PageFetcher::Aceita m_aceita;
  PageFetcher::Pronto m_pronto;
  PageFetcher::Rodada m_rodada;
  int m_round = 0;
  int m_method = 0;
  std::unique_ptr<WebTask> m_tentativa;
};

} // namespace

int PageFetcher::NextMethod(int round, const QString &keyName, const IniStore &store) {
  const int lido = store.ReadConfig(QStringLiteral("Config"), keyName, QStringLiteral("1")).toInt();
  // Anything else somebody wrote by hand.
  const int stored = lido >= 1 && lido <= MetodosDeBusca ? lido : 1;
  const int method = stored + round - 1;
  return method > UltimoDaVolta ? (method - 1) % UltimoDaVolta + 1 : method;
}

std::unique_ptr<WebTask> PageFetcher::FetchPage(const QString &keyName, const QUrl &url, const QString &mustHold,
                                                Pronto pronto, Rodada rodada) {
  return Tenta(
      keyName, url, [mustHold](const QString &page) { return page.contains(mustHold); }, std::move(pronto),
      std::move(rodada));
}

std::unique_ptr<WebTask> PageFetcher::Tenta(const QString &keyName, const QUrl &url, Aceita aceita, Pronto pronto,
                                            Rodada rodada) {
  return std::make_unique<TentativasEmRodadas>(m_store, m_client, keyName, url, std::move(aceita), std::move(pronto),
                                               std::move(rodada));
}

std::unique_ptr<WebTask> PageFetcher::FetchBy(int method, const QUrl &url, Pronto pronto) {
  return m_client.FetchBy(method, url, std::move(pronto));
}

} // namespace tolmira
