#include "web/real_web_client.h"

#include "web/curl_request.h"
#include "web/file_download.h"
#include "web/qt_request.h"
#include "web/side_threads.h"

#include <QNetworkAccessManager>
#include <array>
#include <optional>
#include <utility>

namespace tolmira {

namespace {

const QByteArray UA1 = QByteArrayLiteral("Mozilla/5.0 (compatible; MSIE 11.0; Windows NT 10.0)");
const QByteArray UA2 =
    QByteArrayLiteral("Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 (KHTML, like Gecko) "
                      "Chrome/91.0.4472.124 Safari/537.36 Edg/91.0.864.59");

enum class Familia { Qt, Curl };
enum class Agente { DoSistema, Um, Dois, DoDL };

// Hosts tell clients apart by more than their names, so the rows of one family and one name differ in the version of
// the protocol, or in what becomes of the bytes.
struct Metodo {
  Familia familia;
  Agente agente;
  bool http2 = true;
  bool crua = false; // the bytes are read as a text file of people, whatever character set is declared
};

constexpr std::array<Metodo, MetodosDeBusca> Metodos{{
    {Familia::Qt, Agente::DoSistema},
    {Familia::Qt, Agente::Um},
    {Familia::Qt, Agente::Dois},
    {Familia::Curl, Agente::Um},
    {Familia::Curl, Agente::Dois},
    {Familia::Curl, Agente::Um, true, true},
    {Familia::Curl, Agente::Dois, true, true},
    {Familia::Curl, Agente::DoDL},
    {Familia::Curl, Agente::Um, false},
    {Familia::Qt, Agente::Um, false},
    {Familia::Qt, Agente::Dois, false},
}};

QByteArray NomeDoAgente(Agente agente) {
  switch (agente) {
  case Agente::Um:
    return UA1;
  case Agente::Dois:
    return UA2;
  case Agente::DoDL:
    return AgenteDoDL();
  case Agente::DoSistema:
    break;
  }
  return {};
}

using Pronto = std::function<void(const QString &page)>;

// What the thread has read, on the way to who asked for it.
SideThreads::Relato Pagina(const std::shared_ptr<QString> &texto) {
  return [texto](SideThreads::Ouvintes &ouvintes) {
    const auto pronto = std::move(ouvintes.pagina); // it may drop the task
    pronto(*texto);
  };
}

// The texts are handed over unshared, so that the largest is there once.
std::shared_ptr<QString> TextoDe(PageBody &corpo, const QByteArray &tipo, const QByteArray &embrulho, bool crua) {
  auto texto = std::make_shared<QString>();
  if (corpo.Desembrulha(embrulho))
    *texto = corpo.Texto(tipo, crua);
  return texto;
}

// A page by Qt Network: the wire belongs to the interface thread, and turning a large page into text does not.
class PaginaPorQt : public WebTask {
public:
  PaginaPorQt(QNetworkAccessManager &gerente, SideThreads &fios, const Metodo &metodo, int limiteMs, const QUrl &url,
              Pronto pronto)
      : m_fios(fios), m_crua(metodo.crua), m_pronto(std::move(pronto)) {
    m_request.emplace(gerente, url, NomeDoAgente(metodo.agente), metodo.http2, limiteMs,
                      [this](QtRequest::Fim fim) { Veio(std::move(fim)); });
  }

private:
  void Veio(QtRequest::Fim fim) {
    if (!fim.completa) {
      const Pronto pronto = std::move(m_pronto);
      pronto(QString());
      return;
    }
    auto veio = std::make_shared<QtRequest::Fim>(std::move(fim));
    m_texto = m_fios.Comeca(
        [veio, crua = m_crua](const std::atomic<bool> &, const SideThreads::Avisa &) {
          return Pagina(TextoDe(veio->corpo, veio->tipo, veio->embrulho, crua));
        },
        {std::move(m_pronto), {}, {}});
  }

  SideThreads &m_fios;
  bool m_crua;
  Pronto m_pronto;
  std::optional<QtRequest> m_request;
  std::unique_ptr<WebTask> m_texto;
};

SideThreads::Relato PaginaPorCurl(const Metodo &metodo, int limiteMs, const QUrl &url, const std::atomic<bool> &parar) {
  PageBody corpo;
  CurlRequest get;
  get.endereco = url;
  get.agente = NomeDoAgente(metodo.agente);
  get.http2 = metodo.http2;
  get.cabecalhos.append("Accept-Encoding: gzip");
  get.limiteTotalMs = limiteMs;
  get.comeca = [](const CurlRequest::Cabeca &cabeca) { return cabeca.status == 200; };
  get.recebe = [&corpo](const char *bytes, size_t size) { return corpo.Recebe(bytes, size); };
  const CurlRequest::Fim fim = get.Executa(parar);
  return Pagina(fim.completa ? TextoDe(corpo, fim.cabeca.tipo, fim.cabeca.embrulho, metodo.crua)
                             : std::make_shared<QString>());
}

} // namespace

struct RealWebClient::Impl {
  explicit Impl(int limite) : limiteMs(limite) {}
  int limiteMs;
  QNetworkAccessManager gerente;
  std::shared_ptr<LugaresEmUso> lugares = std::make_shared<LugaresEmUso>();
  SideThreads fios;
};

RealWebClient::RealWebClient(int limiteDeTempoMs) : m_impl(std::make_unique<Impl>(limiteDeTempoMs)) {
  UsaProxyDoAmbiente(m_impl->gerente);
}
RealWebClient::~RealWebClient() = default;

std::unique_ptr<WebTask> RealWebClient::FetchBy(int method, const QUrl &url, Pronto pronto) {
  const Metodo metodo = Metodos.at(static_cast<size_t>(qBound(1, method, MetodosDeBusca) - 1));
  if (metodo.familia == Familia::Qt)
    return std::make_unique<PaginaPorQt>(m_impl->gerente, m_impl->fios, metodo, m_impl->limiteMs, url,
                                         std::move(pronto));
  return m_impl->fios.Comeca(
      [metodo, limiteMs = m_impl->limiteMs, url](const std::atomic<bool> &parar, const SideThreads::Avisa &) {
        return PaginaPorCurl(metodo, limiteMs, url, parar);
      },
      {std::move(pronto), {}, {}});
}

std::unique_ptr<WebTask> RealWebClient::Download(const PedidoDeDownload &pedido,
                                                 std::function<void(qint64, qint64)> andou,
                                                 std::function<void(const FimDoDownload &)> pronto) {
  return m_impl->fios.Comeca(
      [pedido, limiteMs = m_impl->limiteMs, lugares = m_impl->lugares](const std::atomic<bool> &parar,
                                                                       const SideThreads::Avisa &avisa) {
        const auto conta = [&avisa](qint64 veio, qint64 total) {
          avisa([veio, total](SideThreads::Ouvintes &ouvintes) {
            const auto andando = ouvintes.andou;
            if (andando)
              andando(veio, total);
          });
        };
        const FimDoDownload fim = BaixaArquivo(pedido, limiteMs, *lugares, parar, conta);
        return SideThreads::Relato([fim](SideThreads::Ouvintes &ouvintes) {
          const auto acabou = std::move(ouvintes.fim);
          acabou(fim);
        });
      },
      {{}, std::move(andou), std::move(pronto)});
}

} // namespace tolmira
