#include "web/page_body.h"

#include "foundation/code_page.h"
#include "web/web_client.h"

#include <QByteArrayList>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStringDecoder>
#include <algorithm>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <utility>
#include <zlib.h>

namespace tolmira {

namespace {

constexpr size_t TamanhoDoPedaco = 1 << 20;
constexpr qsizetype FatiaDeTexto = 1 << 16; // bytes that become text at a time
constexpr qsizetype InicioComMeta = 4096;

bool EhWindows1252(const QByteArray &conjunto) {
  // What calls itself one of these is written in windows-1252.
  static const QByteArrayList nomes = {"windows-1252", "cp1252",  "x-cp1252", "iso-8859-1",     "iso8859-1",
                                       "latin1",       "latin-1", "l1",       "ascii",          "us-ascii",
                                       "iso_8859-1",   "cp819",   "ibm819",   "iso_8859-1:1987"};
  return nomes.contains(conjunto);
}

// The other sets that pages are written in. The decoder knows more of them, some of which make a page grow.
bool EhConhecido(const QByteArray &conjunto) {
  static const QRegularExpression nomes(QStringLiteral(
      "^(utf-8|utf8|utf-16|utf-16le|utf-16be|iso-8859-([2-8]|1[0-6])|windows-(125[01345678]|874)|koi8-[ru]|macintosh|"
      "ibm866|shift_jis|shift-jis|euc-jp|iso-2022-jp|gbk|gb2312|gb18030|big5|euc-kr)$"));
  return nomes.match(QString::fromLatin1(conjunto)).hasMatch();
}

} // namespace

PageBody::Pedaco::Pedaco() {
  void *memoria = mmap(nullptr, TamanhoDoPedaco, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memoria == MAP_FAILED)
    throw std::bad_alloc();
  m_bytes.reset(static_cast<char *>(memoria));
}

void PageBody::Pedaco::Devolve::operator()(char *bytes) const {
  munmap(bytes, TamanhoDoPedaco);
}

size_t PageBody::Pedaco::Junta(const char *bytes, size_t size) {
  const size_t part = std::min(size, TamanhoDoPedaco - m_size);
  std::memcpy(m_bytes.get() + m_size, bytes, part);
  m_size += part;
  return part;
}

QByteArray ConjuntoDoCabecalho(const QByteArray &contentType) {
  static const QRegularExpression charset(QStringLiteral(R"(charset\s*=\s*["']?([A-Za-z0-9_.:-]{1,40}))"),
                                          QRegularExpression::CaseInsensitiveOption);
  return charset.match(QString::fromLatin1(contentType)).captured(1).toLower().toLatin1();
}

QByteArray ConjuntoDaMeta(QByteArrayView inicio) {
  static const QRegularExpression meta(QStringLiteral("<meta\\b[^>]{0,300}"),
                                       QRegularExpression::CaseInsensitiveOption);
  QRegularExpressionMatchIterator tags = meta.globalMatch(QString::fromLatin1(inicio));
  while (tags.hasNext()) {
    const QByteArray conjunto = ConjuntoDoCabecalho(tags.next().captured(0).toLatin1());
    if (!conjunto.isEmpty())
      return conjunto.startsWith("utf-16") ? QByteArray("utf-8") : conjunto; // a tag that could be read is not UTF-16
  }
  return {};
}

bool PageBody::Recebe(const char *bytes, size_t size) {
  if (m_total < 0 || size > static_cast<size_t>(LimiteDePagina - m_total)) {
    m_pedacos.clear();
    m_total = -1;
    return false;
  }
  m_total += static_cast<qsizetype>(size);
  while (size > 0) {
    size_t part = m_pedacos.empty() ? 0 : m_pedacos.back().Junta(bytes, size);
    if (part == 0)
      part = m_pedacos.emplace_back().Junta(bytes, size);
    bytes += part;
    size -= part;
  }
  return true;
}

bool PageBody::Desembrulha(const QByteArray &contentEncoding) {
  const QByteArray como = contentEncoding.trimmed().toLower();
  if (como.isEmpty() || como == "identity" || m_pedacos.empty())
    return true;
  std::deque<Pedaco> embrulhado = std::exchange(m_pedacos, {});
  m_total = 0;
  if (como != "gzip" && como != "x-gzip" && como != "deflate")
    return false;
  z_stream stream{};
  if (inflateInit2(&stream, MAX_WBITS + 32) != Z_OK) // it finds out by itself which of the two it is
    return false;
  const auto fim = qScopeGuard([&stream] { inflateEnd(&stream); });
  QByteArray saida(FatiaDeTexto, Qt::Uninitialized);
  int estado = Z_OK;
  while ((estado == Z_OK || estado == Z_STREAM_END) && !embrulhado.empty()) {
    const Pedaco pedaco = std::move(embrulhado.front());
    embrulhado.pop_front();
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(pedaco.Bytes().data()));
    stream.avail_in = static_cast<uInt>(pedaco.Bytes().size());
    do {
      if (estado == Z_STREAM_END) // another packed part follows the first
        inflateReset(&stream);
      stream.next_out = reinterpret_cast<Bytef *>(saida.data());
      stream.avail_out = static_cast<uInt>(saida.size());
      estado = inflate(&stream, Z_NO_FLUSH);
      if (!Recebe(saida.constData(), static_cast<size_t>(saida.size()) - stream.avail_out))
        return false;
    } while ((estado == Z_OK && (stream.avail_in > 0 || stream.avail_out == 0)) ||
             (estado == Z_STREAM_END && stream.avail_in > 0));
    if (estado == Z_BUF_ERROR && stream.avail_in == 0)
      estado = Z_OK; // it waits for the next piece
  }
  if (estado != Z_STREAM_END)
    m_pedacos.clear();
  return estado == Z_STREAM_END;
}

QByteArray PageBody::ConjuntoDeclarado(const QByteArray &contentType) const {
  const QByteArrayView inteiro = m_pedacos.front().Bytes();
  const QByteArrayView inicio = inteiro.first(std::min(inteiro.size(), InicioComMeta));
  if (inicio.startsWith("\xef\xbb\xbf"))
    return "utf-8";
  if (inicio.startsWith("\xff\xfe") || inicio.startsWith("\xfe\xff"))
    return "utf-16";
  const QByteArray conjunto = ConjuntoDoCabecalho(contentType);
  return conjunto.isEmpty() ? ConjuntoDaMeta(inicio) : conjunto;
}

bool PageBody::EhUtf8() const {
  QStringDecoder decoder(QStringDecoder::Utf8);
  for (const Pedaco &pedaco : m_pedacos) {
    const QByteArrayView bytes = pedaco.Bytes();
    for (qsizetype at = 0; at < bytes.size() && !decoder.hasError(); at += FatiaDeTexto)
      static_cast<void>(QString(decoder(bytes.sliced(at, std::min(FatiaDeTexto, bytes.size() - at)))));
  }
  static_cast<void>(QString(decoder(QByteArrayView(" ")))); // a letter that was cut off at the end is an error as well
  return !decoder.hasError();
}

QString PageBody::Texto(const QByteArray &contentType, bool crua) {
  const QByteArray tipo = contentType.trimmed().toLower();
  for (const char *imagem : {"image/", "audio/", "video/", "font/"})
    if (tipo.startsWith(imagem))
      m_pedacos.clear();
  if (m_pedacos.empty())
    return {};
  const QByteArray conjunto = crua ? QByteArray() : ConjuntoDeclarado(contentType);
  QStringDecoder decoder;
  if (EhConhecido(conjunto))
    decoder = QStringDecoder(conjunto.constData());
  if (!decoder.isValid() && !EhWindows1252(conjunto) && EhUtf8())
    decoder = QStringDecoder(QStringDecoder::Utf8);

  QString texto;
  texto.reserve(m_total);
  while (!m_pedacos.empty()) {
    const Pedaco pedaco = std::move(m_pedacos.front());
    m_pedacos.pop_front();
    const QByteArrayView bytes = pedaco.Bytes();
    for (qsizetype at = 0; at < bytes.size() && texto.size() <= LimiteDePagina; at += FatiaDeTexto) {
      const QByteArrayView fatia = bytes.sliced(at, std::min(FatiaDeTexto, bytes.size() - at));
      if (decoder.isValid()) {
        texto += QString(decoder(fatia));
      } else {
        for (const char byte : fatia)
          texto += QChar(CharacterOfByte(static_cast<unsigned char>(byte)));
      }
    }
  }
  m_total = 0;
  return texto;
}

} // namespace tolmira
