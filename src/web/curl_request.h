#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>
#include <atomic>
#include <cstddef>
#include <functional>

namespace tolmira {

// One GET by libcurl, with its redirections, on the thread that calls it, which waits for it. Bodies come as they are
// sent, packed or not.
struct CurlRequest {
  QUrl endereco;
  QByteArray agente;
  bool http2 = false;
  QList<QByteArray> cabecalhos; // further ones, "Name: value"
  int limiteTotalMs = 0;        // 0: none
  int limiteParadoMs = 0;       // without a byte; 0: none

  struct Cabeca {
    int status = 0;
    QByteArray tipo;           // Content-Type
    QByteArray embrulho;       // Content-Encoding
    QByteArray etiqueta;       // a strong ETag, else Last-Modified
    QByteArray trecho;         // Content-Range
    qint64 tamanho = -1;       // of the body that follows, where that is said
    bool fimConhecido = false; // by its size or by chunks
  };
  // Before the first byte of an answer that is not a redirection; false ends the request.
  std::function<bool(const Cabeca &)> comeca;
  std::function<bool(const char *bytes, size_t size)> recebe; // false ends the request

  struct Fim {
    bool completa = false; // the answer came to its end
    Cabeca cabeca;
    QUrl endereco;         // where it came from in the end
    bool porHttps = false; // all the way
  };
  // Ends soon after `parar` is set.
  Fim Executa(const std::atomic<bool> &parar) const;
};

} // namespace tolmira
