#pragma once

#include <QString>

namespace tolmira {

// A place in the Bible by its numbers.
struct Passagem {
  int livro = 0; // 1 to 66; 0: no place
  int capitulo = 0;
  int versiculo = 0;

  bool operator==(const Passagem &) const = default;
};

// Of a reference "book chapter:verse", the book in full and in any case; no place when no book leads it.
Passagem PassagemDe(const QString &reference);
// "John 3:16"; empty for no place.
QString ReferenciaDe(const Passagem &passagem);

} // namespace tolmira
