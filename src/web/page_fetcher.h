#pragma once

#include "foundation/ini_store.h"
#include "web/web_client.h"

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

namespace tolmira {

// Reads pages by the eleven methods in turn, beginning with the one that worked last time for the caller's key, and
// remembers the one that did. It never blocks: each round goes back to the message loop, and dropping the task ends all
// rounds at once.
class PageFetcher {
public:
  PageFetcher(const IniStore &store, WebClient &client) : m_store(store), m_client(client) {}

  static constexpr int Rodadas = 11;

  // The method of that round (from 1), by the key in the section `Config`: stored + round - 1, and behind 9 from 1
  // again.
  // Callers that scrape what they fetch learn for themselves, by Tenta.
  static int NextMethod(int round, const QString &keyName, const IniStore &store);

  // Neither of the first two may drop the task.
  using Aceita = std::function<bool(const QString &page)>;
  using Rodada = std::function<void(int round)>;           // before each; may be empty
  using Pronto = std::function<void(const QString &page)>; // empty when all rounds failed

  // The first page that is not blank and holds `mustHold`, where that is not empty.
  [[nodiscard]] std::unique_ptr<WebTask> FetchPage(const QString &keyName, const QUrl &url, const QString &mustHold,
                                                   Pronto pronto, Rodada rodada = {});
  // The first page that `aceita` finds something in. It is not asked about a blank one.
  [[nodiscard]] std::unique_ptr<WebTask> Tenta(const QString &keyName, const QUrl &url, Aceita aceita, Pronto pronto,
                                               Rodada rodada = {});
  // One method, once, whatever is stored.
  [[nodiscard]] std::unique_ptr<WebTask> FetchBy(int method, const QUrl &url, Pronto pronto);

  WebClient &Cliente() { return m_client; }

private:
  const IniStore &m_store;
  WebClient &m_client;
};

} // namespace tolmira
