#include "web/file_download.h"

#include "foundation/real_path.h"
#include "web/curl_request.h"

#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr int AndouACadaMs = 100;

// The file beside its place, and beside that what it was begun from, by which the rest is asked for.
class Parte {
public:
  explicit Parte(const QString &arquivo)
      : m_destino(arquivo), m_file(arquivo + u".part"), m_etiqueta(arquivo + u".part.tag") {}

  // How much of an earlier try is there and can be gone on with.
  qint64 JaVeio() {
    if (!m_etiqueta.open(QIODevice::ReadOnly))
      return 0;
    m_de = m_etiqueta.read(300).trimmed();
    m_etiqueta.close();
    return m_de.isEmpty() ? 0 : m_file.size();
  }
  const QByteArray &De() const { return m_de; }

  bool Abre(bool desdeOFim, const QByteArray &etiqueta) {
    m_file.close(); // a redirected answer may come a second time
    if (!m_file.open(desdeOFim ? QIODevice::Append : QIODevice::WriteOnly))
      return false;
    m_etiqueta.remove();
    const bool forte = !etiqueta.startsWith("W/"); // a weak one does not promise the same bytes
    if (forte && !etiqueta.isEmpty() && m_etiqueta.open(QIODevice::WriteOnly)) {
      m_etiqueta.write(etiqueta);
      m_etiqueta.close();
    }
    return true;
  }
  bool Escreve(const char *bytes, qint64 count) { return m_file.write(bytes, count) == count; }
  qint64 Tamanho() const { return m_file.size(); }

  bool PoeNoLugar() {
    // Whole means on the disk: a file of full length and no content is what a power cut would leave otherwise.
    const bool escrito = m_file.flush() && fsync(m_file.handle()) == 0;
    m_file.close();
    if (!escrito ||
        std::rename(QFile::encodeName(m_file.fileName()).constData(), QFile::encodeName(m_destino).constData()) != 0)
      return false;
    m_etiqueta.remove();
    return true;
  }
  void Apaga() {
    m_file.close();
    m_file.remove();
    m_etiqueta.remove();
  }
  void Guarda() { m_file.close(); }

private:
  QString m_destino;
  QFile m_file;
  QFile m_etiqueta;
  QByteArray m_de;
};

// "bytes 100-199/200": where it begins and how long the whole is (-1 when it is not told).
struct Trecho {
  qint64 desde = -1;
  qint64 total = -1;
};

Trecho LeTrecho(const QByteArray &texto) {
  Trecho trecho;
  if (!texto.startsWith("bytes "))
    return trecho;
  bool numero = false;
  const qint64 desde = texto.sliced(6).split('-').value(0).trimmed().toLongLong(&numero);
  trecho.desde = numero ? desde : -1;
  const qint64 total = texto.split('/').value(1).trimmed().toLongLong(&numero);
  trecho.total = numero ? total : -1;
  return trecho;
}

} // namespace

QByteArray AgenteDoDL() {
  return "Tolmira/" TOLMIRA_VERSION;
}

FimDoDownload BaixaArquivo(const PedidoDeDownload &pedido, int limiteParadoMs, const std::atomic<bool> &parar,
                           const std::function<void(qint64, qint64)> &andou) {
  Parte parte(MapStoredPath(pedido.arquivo).text());
  const qint64 jaVeio = pedido.continua ? parte.JaVeio() : 0;

  CurlRequest get;
  get.endereco = pedido.endereco;
  get.agente = AgenteDoDL();
  get.http2 = true;
  get.descompacta = false; // the sizes that are told are those of the file
  get.cabecalhos.append("Accept-Encoding: identity");
  get.limiteParadoMs = limiteParadoMs;
  if (jaVeio > 0) {
    get.cabecalhos.append("Range: bytes=" + QByteArray::number(jaVeio) + '-');
    get.cabecalhos.append("If-Range: " + parte.De());
  }

  qint64 veio = 0;
  qint64 total = -1;
  bool aberta = false;
  QElapsedTimer relogio;
  relogio.start();
  get.comeca = [&](const CurlRequest::Cabeca &cabeca) {
    const Trecho trecho = LeTrecho(cabeca.trecho);
    const bool resto = cabeca.status == 206 && jaVeio > 0 && trecho.desde == jaVeio;
    if (cabeca.status != 200 && !resto)
      return false;
    veio = resto ? jaVeio : 0;
    total = cabeca.tamanho < 0 ? trecho.total : veio + cabeca.tamanho;
    if (!cabeca.fimConhecido || total > pedido.limiteBytes || (resto && trecho.total >= 0 && trecho.total != total))
      return false;
    aberta = parte.Abre(resto, cabeca.etiqueta);
    return aberta;
  };
  get.recebe = [&](const char *bytes, size_t size) {
    veio += static_cast<qint64>(size);
    if (veio > pedido.limiteBytes || !parte.Escreve(bytes, static_cast<qint64>(size)))
      return false;
    if (andou && relogio.elapsed() >= AndouACadaMs) {
      relogio.restart();
      andou(veio, total);
    }
    return true;
  };
  const CurlRequest::Fim resposta = get.Executa(parar);

  FimDoDownload fim;
  fim.endereco = resposta.endereco;
  fim.porHttps = resposta.porHttps;
  fim.inteiro = resposta.completa && aberta && (total < 0 || veio == total) && parte.PoeNoLugar();
  if (fim.inteiro)
    return fim;
  // What was stopped or broke off can be gone on with; what is not wanted any more leaves nothing.
  const bool naoServe = resposta.cabeca.status == 416 || veio > pedido.limiteBytes;
  if (pedido.continua && !naoServe)
    parte.Guarda();
  else
    parte.Apaga();
  return fim;
}

} // namespace tolmira
