#pragma once

#include "web/web_client.h"

#include <memory>

namespace tolmira {

// The web itself, by Qt Network and by libcurl. Made once, on the interface thread; its tasks end before it does.
class RealWebClient : public WebClient {
public:
  // The time is a try's, of a page, and how long a download may stand still.
  explicit RealWebClient(int limiteDeTempoMs = LimiteDeTempoMs);
  ~RealWebClient() override;

  std::unique_ptr<WebTask> FetchBy(int method, const QUrl &url,
                                   std::function<void(const QString &page)> pronto) override;
  std::unique_ptr<WebTask> Download(const PedidoDeDownload &pedido,
                                    std::function<void(qint64 veio, qint64 total)> andou,
                                    std::function<void(const FimDoDownload &fim)> pronto) override;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
