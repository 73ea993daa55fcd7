#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "themes/theme_record.h"

namespace tolmira {

// What every builder of pages does with a template: read it, put values in the place of its placeholders, write the page.

inline constexpr int TempoLimiteDaPagina = 8; // seconds after which a navigation is given up
inline constexpr int ConcessoesPorPagina = 4; // yields after which a page takes scripts

// The values of a page's placeholders, by name without the brackets. All are put in during one walk over the template,
// so a value that looks like a placeholder (a picture named "[blur].jpg") stays what it is.
class Preenchimento {
public:
  void Define(QStringView nome, const QString &valor) { m_valores.insert(nome.toString(), valor); }
  QString Preenche(const QString &modelo) const;

private:
  QHash<QString, QString> m_valores;
};

// A template of the folder html, empty when there is none of that name. Byte for byte, without a guess at the encoding:
// GravaPagina writes in the same way, so what the template's author wrote arrives as it was.
QString LeModelo(const AppFolder &app, const QString &nome);
void GravaPagina(const QString &caminho, const QString &texto);

// A stored path for the attribute `src`, between single quotes.
QString EnderecoDoArquivo(const QString &caminho);
// The element of one picture, with its line end.
QString HtmlDaImagem(const QString &caminho);

// The placeholders of a cycle of `quantas` pictures, whose elements are `imagens`. Effects and movement are those of
// `visual`; `inicial` is the picture to begin with, from 0.
struct CicloDeImagens {
  QString imagens;
  int quantas = 0;
  int inicial = 0;
  bool emMovimento = false;
};
void DefineImagens(Preenchimento &p, const TemaRecord &visual, const CicloDeImagens &ciclo, RandomSource &random);

// What every page says in the same way. `escalaDaSombra` as SombraTexto takes it.
void DefineComum(Preenchimento &p, const AppFolder &app, const TemaRecord &visual, const QString &estadoTela,
                 double escalaDaSombra);

} // namespace tolmira
