#pragma once

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

namespace tolmira {

// Something under way on the web. Dropping it ends it at once, and nothing is reported any more; it may be dropped from
// inside its own report.
class WebTask {
public:
  virtual ~WebTask() = default;
};

inline constexpr int MetodosDeBusca = 11;         // FetchBy's methods count from 1
inline constexpr int LimiteDePagina = 32'000'000; // bytes of a page, unpacked; what is larger is a failure
inline constexpr int LimiteDeTempoMs = 10'000;    // of one method's try, with all its redirections
inline constexpr int LimiteDeRedirecionamentos = 10;

// How a download went.
struct FimDoDownload {
  bool inteiro = false;  // the server said where it ends, every byte came, and the file is in its place
  bool porHttps = false; // so did all addresses on the way
  QUrl endereco;         // where it came from in the end
};

// A file that is to be fetched. It grows beside its place, as `arquivo` + ".part", and takes it in one step when it is
// whole.
struct PedidoDeDownload {
  QUrl endereco;
  QString arquivo;        // stored path; a file that is there is replaced only at the end
  qint64 limiteBytes = 0; // more than that is a failure; must be above 0
  bool continua = false;  // from where an earlier one of the same address was stopped, whose part is kept at a stop
};

// The clients by which the program reads the web. Answers come from the message loop, once, never from inside the call
// that asks for them.
class WebClient {
public:
  virtual ~WebClient() = default;

  // One GET by the numbered method, without a body. `pronto` gets the page as text, empty after any failure: a status
  // other than 200, an answer that broke off, took too long or became too large, a redirection that is not followed
  // (the eleventh; from https to anything else; from outside into this machine's own network; to anything but the
  // web).
  [[nodiscard]] virtual std::unique_ptr<WebTask> FetchBy(int method, const QUrl &url,
                                                         std::function<void(const QString &page)> pronto) = 0;

  // The control `DL`: `andou` (may be empty) is told now and then what has come, `total` being -1 where the server does
  // not say. An answer that stays away for LimiteDeTempoMs ends it.
  [[nodiscard]] virtual std::unique_ptr<WebTask> Download(const PedidoDeDownload &pedido,
                                                          std::function<void(qint64 veio, qint64 total)> andou,
                                                          std::function<void(const FimDoDownload &fim)> pronto) = 0;
};

} // namespace tolmira
