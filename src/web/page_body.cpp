#include "web/page_body.h"

#include "foundation/code_page.h"
#include "web/web_client.h"

#include <QRegularExpression>
#include <QScopeGuard>
#include <QStringDecoder>
#include <algorithm>
#include <utility>
#include <zlib.h>

namespace tolmira {

namespace {

constexpr qsizetype Pedaco = 1 << 20;
constexpr qsizetype InicioComMeta = 4096;

bool EhWindows1252(const QByteArray &conjunto) {
  // What calls itself one of these is written in windows-1252.
  static const QByteArrayList nomes = {"windows-1252", "cp1252", "x-cp1252", "iso-8859-1", "iso8859-1",
                                       "latin1",       "l1",     "ascii",    "us-ascii",   "iso_8859-1"};
  return nomes.contains(conjunto);
}

} // namespace

QByteArray ConjuntoDoCabecalho(const QByteArray &contentType) {
  static const QRegularExpression charset(QStringLiteral(R"(charset\s*=\s*["']?([A-Za-z0-9_.:-]{1,40}))"),
                                          QRegularExpression::CaseInsensitiveOption);
  return charset.match(QString::fromLatin1(contentType)).captured(1).toLower().toLatin1();
}

QByteArray ConjuntoDaMeta(const QByteArray &inicio) {
  static const QRegularExpression meta(QStringLiteral("<meta\\b[^>]{0,300}"),
                                       QRegularExpression::CaseInsensitiveOption);
  QRegularExpressionMatchIterator tags =
      meta.globalMatch(QString::fromLatin1(inicio.first(qMin(inicio.size(), InicioComMeta))));
  while (tags.hasNext()) {
    const QByteArray conjunto = ConjuntoDoCabecalho(tags.next().captured(0).toLatin1());
    if (!conjunto.isEmpty())
      return conjunto.startsWith("utf-16") ? QByteArray("utf-8") : conjunto; // a tag that could be read is not UTF-16
  }
  return {};
}

bool PageBody::Recebe(const char *bytes, size_t size) {
  const auto count = static_cast<qsizetype>(size);
  if (m_total < 0 || count > LimiteDePagina - m_total) {
    m_pedacos.clear();
    m_total = -1;
    return false;
  }
  m_total += count;
  for (qsizetype at = 0; at < count;) {
    if (m_pedacos.isEmpty() || m_pedacos.last().size() == Pedaco) {
      m_pedacos.append(QByteArray());
      m_pedacos.last().reserve(Pedaco);
    }
    const qsizetype part = qMin(count - at, Pedaco - m_pedacos.last().size());
    m_pedacos.last().append(bytes + at, part);
    at += part;
  }
  return true;
}

bool PageBody::Desembrulha(const QByteArray &contentEncoding) {
  const QByteArray como = contentEncoding.trimmed().toLower();
  if (como.isEmpty() || como == "identity" || m_pedacos.isEmpty())
    return true;
  QList<QByteArray> embrulhado = std::exchange(m_pedacos, {});
  m_total = 0;
  if (como != "gzip" && como != "x-gzip" && como != "deflate")
    return false;
  z_stream stream{};
  if (inflateInit2(&stream, MAX_WBITS + 32) != Z_OK) // it finds out by itself which of the two it is
    return false;
  const auto fim = qScopeGuard([&stream] { inflateEnd(&stream); });
  QByteArray saida(Pedaco, Qt::Uninitialized);
  int estado = Z_OK;
  while (estado == Z_OK && !embrulhado.isEmpty()) {
    QByteArray pedaco = embrulhado.takeFirst();
    stream.next_in = reinterpret_cast<Bytef *>(pedaco.data());
    stream.avail_in = static_cast<uInt>(pedaco.size());
    do {
      stream.next_out = reinterpret_cast<Bytef *>(saida.data());
      stream.avail_out = static_cast<uInt>(saida.size());
      estado = inflate(&stream, Z_NO_FLUSH);
      const auto novos = static_cast<size_t>(saida.size()) - stream.avail_out;
      if (!Recebe(saida.constData(), novos))
        return false;
    } while (estado == Z_OK && (stream.avail_in > 0 || stream.avail_out == 0));
    if (estado == Z_BUF_ERROR && stream.avail_in == 0)
      estado = Z_OK; // it waits for the next piece
  }
  if (estado != Z_STREAM_END)
    m_pedacos.clear();
  return estado == Z_STREAM_END;
}

QByteArray PageBody::ConjuntoDeclarado(const QByteArray &contentType) const {
  const QByteArray inicio = m_pedacos.value(0).first(qMin(m_pedacos.value(0).size(), InicioComMeta));
  if (inicio.startsWith("\xef\xbb\xbf"))
    return "utf-8";
  if (inicio.startsWith("\xff\xfe") || inicio.startsWith("\xfe\xff"))
    return "utf-16";
  const QByteArray conjunto = ConjuntoDoCabecalho(contentType);
  return conjunto.isEmpty() ? ConjuntoDaMeta(inicio) : conjunto;
}

bool PageBody::EhUtf8() const {
  QStringDecoder decoder(QStringDecoder::Utf8);
  return std::all_of(m_pedacos.cbegin(), m_pedacos.cend(), [&decoder](const QByteArray &pedaco) {
    const QString text = decoder(pedaco);
    return !decoder.hasError() && !text.isNull();
  });
}

QString PageBody::Texto(const QByteArray &contentType, bool crua) {
  const QByteArray tipo = contentType.trimmed().toLower();
  for (const char *imagem : {"image/", "audio/", "video/", "font/"})
    if (tipo.startsWith(imagem))
      m_pedacos.clear();
  if (m_pedacos.isEmpty())
    return {};
  const QByteArray conjunto = crua ? QByteArray() : ConjuntoDeclarado(contentType);
  QStringDecoder decoder = conjunto.isEmpty() || EhWindows1252(conjunto)
                               ? QStringDecoder()
                               : QStringDecoder(conjunto.constData(), QStringDecoder::Flag::Default);
  if (!decoder.isValid() && !EhWindows1252(conjunto) && EhUtf8())
    decoder = QStringDecoder(QStringDecoder::Utf8);

  QString texto;
  texto.reserve(m_total);
  while (!m_pedacos.isEmpty()) {
    const QByteArray pedaco = m_pedacos.takeFirst();
    if (decoder.isValid()) {
      texto += decoder(pedaco);
    } else {
      for (const char byte : pedaco)
        texto += QChar(CharacterOfByte(static_cast<unsigned char>(byte)));
    }
  }
  m_total = 0;
  return texto;
}

} // namespace tolmira
