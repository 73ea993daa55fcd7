#pragma once

#include "foundation/app_folder.h"
#include "foundation/code_page.h"

#include <QStringList>

namespace tolmira {

// The ready-made notices, Data\notices.txt: one a line, without blank lines. Every change is in the file before it is in the list;
// one that cannot be written is not made. A file that could not be read to its end is never written over.
class ListaDeAvisos {
public:
  explicit ListaDeAvisos(const AppFolder &app);

  void ListarAvisos(); // makes sure that the file exists and reads it, as far as it can be read
  const QStringList &Avisos() const { return m_avisos; }

  // False when the file could not be written. An index names an existing line.
  bool Acrescenta(const QString &aviso);
  bool Troca(qsizetype indice, const QString &aviso);
  bool Exclui(qsizetype indice);
  bool ExcluiTodos();

private:
  bool GravaListaAvisos(const QStringList &avisos);

  QString m_arquivo;
  QStringList m_avisos;
  TextEncoding m_codificacao = TextEncoding::Windows1252;
  bool m_lidoInteiro = true;
};

} // namespace tolmira
