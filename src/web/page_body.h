#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstddef>
#include <deque>
#include <memory>

namespace tolmira {

// The bytes of a page as they come. They are kept in pieces that go back to the system one by one while they become
// text, so that the largest page never stands in memory as bytes and as text at once.
class PageBody {
public:
  // False when the page has grown beyond LimiteDePagina, after which nothing is kept.
  bool Recebe(const char *bytes, size_t size);

  // Unpacks what came by that Content-Encoding. False when it cannot be, or becomes too large; nothing is kept then.
  bool Desembrulha(const QByteArray &contentEncoding);

  // The text, by the mark at its beginning, the character set of the header `contentType` or that of a meta tag. Where
  // none of them says one that the web knows, or `crua` is set, as the text files of people are read: UTF-8 where it is
  // that, else windows-1252. Empty for what says that it is a picture, sound or film. Leaves nothing behind.
  QString Texto(const QByteArray &contentType, bool crua);

private:
  // Memory of its own from the system: what the heap gets back in small pieces stays with the program.
  class Pedaco {
  public:
    Pedaco();
    size_t Junta(const char *bytes, size_t size); // how much of it still had room
    QByteArrayView Bytes() const { return {m_bytes.get(), static_cast<qsizetype>(m_size)}; }

  private:
    struct Devolve {
      void operator()(char *bytes) const;
    };
    std::unique_ptr<char, Devolve> m_bytes;
    size_t m_size = 0;
  };

  QByteArray ConjuntoDeclarado(const QByteArray &contentType) const;
  bool EhUtf8() const;

  std::deque<Pedaco> m_pedacos;
  qsizetype m_total = 0; // bytes; -1 when there were too many
};

// The character set that a Content-Type names; empty when it names none.
QByteArray ConjuntoDoCabecalho(const QByteArray &contentType);
// The one that a meta tag near the beginning of a page names.
QByteArray ConjuntoDaMeta(QByteArrayView inicio);

} // namespace tolmira
