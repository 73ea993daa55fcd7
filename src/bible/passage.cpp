#include "bible/passage.h"

#include "bible/books.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

// No chapter and no verse has a higher number; what is higher is no number of a place.
constexpr double MaiorNumero = 999;

int NumberOf(const QString &text) {
  const double value = NumericPrefix(text);
  return value >= 1 && value <= MaiorNumero ? static_cast<int>(value) : 0;
}

} // namespace

Passagem PassagemDe(const QString &reference) {
  const int livro = BookNumber(reference);
  if (livro == 0)
    return {};
  const QString numbers = reference.mid(BookName(livro).size());
  return {livro, NumberOf(numbers.section(u':', 0, 0)), NumberOf(numbers.section(u':', 1, 1))};
}

QString ReferenciaDe(const Passagem &passagem) {
  if (passagem.livro == 0)
    return {};
  return BookName(passagem.livro) + u' ' + QString::number(passagem.capitulo) + u':' +
         QString::number(passagem.versiculo);
}

} // namespace tolmira
