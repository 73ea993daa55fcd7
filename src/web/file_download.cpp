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
  Parte(const QString &arquivo, const QUrl &endereco)
      : m_destino(arquivo), m_endereco(endereco.toEncoded()), m_file(arquivo + u".part"),
        m_etiqueta(arquivo + u".part.tag") {}

  // How much of an earlier try from the same address is there and can be gone on with.
  qint64 JaVeio() {
    if (!m_etiqueta.open(QIODevice::ReadOnly))
      return 0;
    const QList<QByteArray> linhas = m_etiqueta.read(LimiteDaEtiqueta).split('\n');
    m_etiqueta.close();
    m_de = linhas.value(1).trimmed();
    return linhas.value(0) == m_endereco && !m_de.isEmpty() ? m_file.size() : 0;
  }
  const QByteArray &De() const { return m_de; }

  // From that byte on. A new beginning is marked as what it is a part of, where the server lets itself be asked for
  // more.
  bool Abre(qint64 desde, const QByteArray &etiqueta) {
    if (!m_file.open(QIODevice::ReadWrite) || !m_file.resize(desde) || !m_file.seek(desde))
      return false;
    if (desde > 0)
      return true;
    m_etiqueta.remove();
    const QByteArray marca = m_endereco + '\n' + etiqueta;
    if (!etiqueta.isEmpty() && marca.size() < LimiteDaEtiqueta && m_etiqueta.open(QIODevice::WriteOnly)) {
      m_etiqueta.write(marca);
      m_etiqueta.close();
    }
    return true;
  }
  bool Escreve(const char *bytes, qint64 count) {
    m_escrita = m_escrita && m_file.write(bytes, count) == count;
    return m_escrita;
  }
  bool FoiEscrita() const { return m_escrita; }

  bool PoeNoLugar(qint64 tamanho) {
    // Whole means on the disk: a file of full length and no content is what a power cut would leave otherwise.
    m_escrita = m_escrita && m_file.flush() && m_file.size() == tamanho && fsync(m_file.handle()) == 0;
    m_file.close();
    if (!m_escrita ||
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
  void Guarda() {
    if (m_file.isOpen())
      m_escrita = m_file.flush() && m_escrita;
    m_file.close();
  }

private:
  static constexpr qint64 LimiteDaEtiqueta = 4000; // bytes

  QString m_destino;
  QByteArray m_endereco;
  QFile m_file;
  QFile m_etiqueta;
  QByteArray m_de;
  bool m_escrita = true; // nothing that was written got lost, as on a full disk
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

// One request of the file, or of the rest of it.
class Tentativa {
public:
  enum class Fim { Inteiro, Interrompido, NaoServe, OutroTrecho };

  Tentativa(const PedidoDeDownload &pedido, Parte &parte, qint64 jaVeio)
      : m_pedido(pedido), m_parte(parte), m_jaVeio(jaVeio), m_veio(jaVeio) {}

  Fim Executa(int limiteParadoMs, const std::atomic<bool> &parar, const std::function<void(qint64, qint64)> &andou,
              FimDoDownload &fim) {
    CurlRequest get;
    get.endereco = m_pedido.endereco;
    get.agente = AgenteDoDL();
    get.http2 = true;
    get.cabecalhos.append("Accept-Encoding: identity"); // the sizes that are told are those of the file
    get.limiteParadoMs = limiteParadoMs;
    if (m_jaVeio > 0) {
      get.cabecalhos.append("Range: bytes=" + QByteArray::number(m_jaVeio) + '-');
      get.cabecalhos.append("If-Range: " + m_parte.De());
    }
    m_relogio.start();
    get.comeca = [this](const CurlRequest::Cabeca &cabeca) { return Comeca(cabeca); };
    get.recebe = [this, &andou](const char *bytes, size_t size) {
      m_veio += static_cast<qint64>(size);
      if (m_veio > m_pedido.limiteBytes || !m_parte.Escreve(bytes, static_cast<qint64>(size)))
        return false;
      if (andou && (m_relogio.elapsed() >= AndouACadaMs || m_veio == m_total)) {
        m_relogio.restart();
        andou(m_veio, m_total);
      }
      return true;
    };
    const CurlRequest::Fim resposta = get.Executa(parar);
    fim.endereco = resposta.endereco;
    fim.porHttps = resposta.porHttps;
    const bool jaInteira = resposta.completa && resposta.cabeca.status == 416 && m_jaVeio > 0 &&
                           LeTrecho(resposta.cabeca.trecho).total == m_jaVeio;
    if (jaInteira && m_parte.Abre(m_jaVeio, {}) && m_parte.PoeNoLugar(m_jaVeio))
      return Fim::Inteiro;
    if (m_aberta && resposta.completa && (m_total < 0 || m_veio == m_total) && m_parte.PoeNoLugar(m_veio))
      return Fim::Inteiro;
    if (!m_aberta && m_jaVeio > 0 && (resposta.cabeca.status == 206 || resposta.cabeca.status == 416))
      return Fim::OutroTrecho;
    return m_veio > m_pedido.limiteBytes || m_grande ? Fim::NaoServe : Fim::Interrompido;
  }

private:
  bool Comeca(const CurlRequest::Cabeca &cabeca) {
    if (cabeca.status == 416)
      return true; // it says whether the part is the whole
    const Trecho trecho = LeTrecho(cabeca.trecho);
    // A server may answer with a part of another file, whatever it was asked.
    const bool resto = cabeca.status == 206 && m_jaVeio > 0 && trecho.desde == m_jaVeio &&
                       (cabeca.etiqueta.isEmpty() || cabeca.etiqueta == m_parte.De());
    if (cabeca.status != 200 && !resto)
      return false;
    m_veio = resto ? m_jaVeio : 0;
    m_total = cabeca.tamanho < 0 ? trecho.total : m_veio + cabeca.tamanho;
    m_grande = m_total > m_pedido.limiteBytes;
    const bool embrulhado = !cabeca.embrulho.isEmpty() && cabeca.embrulho.toLower() != "identity";
    if (!cabeca.fimConhecido || m_grande || embrulhado || (resto && trecho.total >= 0 && trecho.total != m_total))
      return false;
    m_aberta = m_parte.Abre(m_veio, cabeca.etiqueta);
    return m_aberta;
  }

  const PedidoDeDownload &m_pedido;
  Parte &m_parte;
  qint64 m_jaVeio;
  qint64 m_veio;
  qint64 m_total = -1;
  bool m_aberta = false;
  bool m_grande = false;
  QElapsedTimer m_relogio;
};

} // namespace

bool LugaresEmUso::Toma(const QString &arquivo, const std::atomic<bool> &parar, int esperaMs) {
  std::unique_lock lock(m_mutex);
  QElapsedTimer relogio;
  relogio.start();
  while (m_arquivos.contains(arquivo)) {
    if (parar || relogio.elapsed() > esperaMs)
      return false;
    m_livre.wait_for(lock, std::chrono::milliseconds(AndouACadaMs));
  }
  m_arquivos.insert(arquivo);
  return true;
}

void LugaresEmUso::Deixa(const QString &arquivo) {
  const std::lock_guard lock(m_mutex);
  m_arquivos.remove(arquivo);
  m_livre.notify_all();
}

QByteArray AgenteDoDL() {
  return "Tolmira/" TOLMIRA_VERSION;
}

FimDoDownload BaixaArquivo(const PedidoDeDownload &pedido, int limiteParadoMs, LugaresEmUso &lugares,
                           const std::atomic<bool> &parar, const std::function<void(qint64, qint64)> &andou) {
  FimDoDownload fim;
  const QString arquivo = MapStoredPath(pedido.arquivo).text();
  if (!lugares.Toma(arquivo, parar, limiteParadoMs))
    return fim;
  Parte parte(arquivo, pedido.endereco);
  const qint64 jaVeio = pedido.continua ? parte.JaVeio() : 0;
  using Fim = Tentativa::Fim;
  Fim como = Tentativa(pedido, parte, jaVeio).Executa(limiteParadoMs, parar, andou, fim);
  if (como == Fim::OutroTrecho) { // the rest is not to be had there, so the whole is
    parte.Apaga();
    como = Tentativa(pedido, parte, 0).Executa(limiteParadoMs, parar, andou, fim);
  }
  fim.inteiro = como == Fim::Inteiro;
  if (!fim.inteiro) {
    parte.Guarda();
    // What was stopped or broke off can be gone on with; what is not wanted any more leaves nothing, nor does a full
    // disk.
    if (!pedido.continua || como != Fim::Interrompido || !parte.FoiEscrita())
      parte.Apaga();
  }
  lugares.Deixa(arquivo);
  return fim;
}

} // namespace tolmira
