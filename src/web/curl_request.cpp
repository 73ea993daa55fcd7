#include "web/curl_request.h"

#include "web/environment_proxy.h"
#include "web/redirects.h"

#include <QByteArrayView>
#include <QElapsedTimer>
#include <curl/curl.h>
#include <memory>
#include <mutex>

namespace tolmira {

namespace {

constexpr int OlhaACadaMs = 100; // for the wish to stop
constexpr size_t MaximoDeCabecalhos = 256 * 1024;

// One answer of one server.
struct Troca {
  const CurlRequest &pedido;
  CURL *curl = nullptr;
  CurlRequest::Cabeca cabeca;
  size_t cabecalhos = 0; // bytes
  bool comecou = false;
  bool recusada = false;
  bool redireciona = false; // which its head says; what the body tells people may be endless
};

QByteArray Cabecalho(CURL *curl, const char *nome) {
  curl_header *achado = nullptr;
  return curl_easy_header(curl, nome, 0, CURLH_HEADER, -1, &achado) == CURLHE_OK ? QByteArray(achado->value)
                                                                                 : QByteArray();
}

CurlRequest::Cabeca LeCabeca(CURL *curl) {
  CurlRequest::Cabeca cabeca;
  long status = 0;
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
  cabeca.status = static_cast<int>(status);
  cabeca.tipo = Cabecalho(curl, "Content-Type");
  cabeca.embrulho = Cabecalho(curl, "Content-Encoding");
  cabeca.etiqueta = Cabecalho(curl, "ETag");
  if (!cabeca.etiqueta.startsWith('"')) // a weak one does not promise the same bytes
    cabeca.etiqueta = Cabecalho(curl, "Last-Modified");
  cabeca.trecho = Cabecalho(curl, "Content-Range");
  curl_off_t tamanho = -1;
  curl_easy_getinfo(curl, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &tamanho);
  cabeca.tamanho = tamanho;
  long versao = 0;
  curl_easy_getinfo(curl, CURLINFO_HTTP_VERSION, &versao);
  cabeca.fimConhecido = tamanho >= 0 || versao >= CURL_HTTP_VERSION_2_0 ||
                        Cabecalho(curl, "Transfer-Encoding").toLower().contains("chunked");
  return cabeca;
}

bool Comeca(Troca &troca) {
  if (troca.comecou)
    return !troca.recusada;
  troca.comecou = true;
  troca.cabeca = LeCabeca(troca.curl);
  troca.recusada = troca.pedido.comeca && !troca.pedido.comeca(troca.cabeca);
  return !troca.recusada;
}

// Every line of a head, and of what may come behind the last chunk.
size_t RecebeCabecalho(char *bytes, size_t size, size_t count, void *dados) {
  auto &troca = *static_cast<Troca *>(dados);
  const size_t total = size * count;
  troca.cabecalhos += total;
  if (troca.cabecalhos > MaximoDeCabecalhos)
    return 0;
  long status = 0;
  curl_easy_getinfo(troca.curl, CURLINFO_RESPONSE_CODE, &status);
  const bool fimDaCabeca = QByteArrayView(bytes, static_cast<qsizetype>(total)).trimmed().isEmpty();
  troca.redireciona = fimDaCabeca && Redirects::EhRedirecionamento(static_cast<int>(status));
  return troca.redireciona ? 0 : total;
}

size_t Recebe(char *bytes, size_t size, size_t count, void *dados) {
  auto &troca = *static_cast<Troca *>(dados);
  return Comeca(troca) && (!troca.pedido.recebe || troca.pedido.recebe(bytes, size * count)) ? size * count : 0;
}

struct ApagaCurl {
  void operator()(CURL *curl) const { curl_easy_cleanup(curl); }
};
struct ApagaMulti {
  void operator()(CURLM *multi) const { curl_multi_cleanup(multi); }
};

} // namespace

CurlRequest::Fim CurlRequest::Executa(const std::atomic<bool> &parar) const {
  static std::once_flag umaVez;
  std::call_once(umaVez, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });

  QElapsedTimer relogio;
  relogio.start();
  Redirects caminho(endereco);
  Fim fim;
  if (!Redirects::EhDaWeb(endereco))
    return fim;
  const std::unique_ptr<CURLM, ApagaMulti> multi(curl_multi_init());
  while (!parar) {
    const std::unique_ptr<CURL, ApagaCurl> curl(curl_easy_init());
    if (!multi || !curl)
      return fim;
    Troca troca{*this, curl.get(), {}};
    curl_slist *lista = nullptr;
    for (const QByteArray &linha : cabecalhos)
      lista = curl_slist_append(lista, linha.constData());
    const auto set = [&curl](CURLoption option, auto value) { curl_easy_setopt(curl.get(), option, value); };
    set(CURLOPT_URL, caminho.Atual().toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_USERAGENT, agente.constData());
    set(CURLOPT_HTTPHEADER, lista);
    set(CURLOPT_PROXY, ProxyDoAmbiente(caminho.Atual()).toEncoded().constData()); // empty: none
    set(CURLOPT_NOPROXY, "");
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L); // a name that is still being looked up does not hold up the end
    set(CURLOPT_HTTP_VERSION, static_cast<long>(http2 ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1));
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limiteParadoMs > 0 ? limiteParadoMs : limiteTotalMs));
    if (limiteTotalMs > 0)
      set(CURLOPT_TIMEOUT_MS, static_cast<long>(qMax<qint64>(1, limiteTotalMs - relogio.elapsed())));
    if (limiteParadoMs > 0) {
      set(CURLOPT_LOW_SPEED_LIMIT, 1L);
      set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(qMax(1, limiteParadoMs / 1000)));
    }
    set(CURLOPT_HEADERFUNCTION, &RecebeCabecalho);
    set(CURLOPT_HEADERDATA, &troca);
    set(CURLOPT_WRITEFUNCTION, &Recebe);
    set(CURLOPT_WRITEDATA, &troca);

    curl_multi_add_handle(multi.get(), curl.get());
    int correm = 1;
    while (correm > 0 && !parar && curl_multi_perform(multi.get(), &correm) == CURLM_OK)
      if (correm > 0)
        curl_multi_poll(multi.get(), nullptr, 0, OlhaACadaMs, nullptr);
    bool completa = false;
    int restam = 0;
    while (const CURLMsg *msg = curl_multi_info_read(multi.get(), &restam))
      completa = completa || (msg->msg == CURLMSG_DONE && msg->data.result == CURLE_OK);
    const CurlRequest::Cabeca cabeca = LeCabeca(curl.get());
    const QByteArray location = Cabecalho(curl.get(), "Location");
    curl_multi_remove_handle(multi.get(), curl.get());
    curl_slist_free_all(lista);

    if (troca.redireciona) {
      if (!caminho.Segue(location))
        return fim;
      continue;
    }
    // An answer without a body has not begun yet.
    if (completa && !troca.comecou && comeca && !comeca(cabeca))
      completa = false;
    fim.completa = completa && !troca.recusada && !parar;
    fim.cabeca = cabeca;
    fim.endereco = caminho.Atual();
    fim.porHttps = caminho.PorHttps();
    return fim;
  }
  return fim;
}

} // namespace tolmira
