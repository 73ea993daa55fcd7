#pragma once

#include <QString>
#include <QStringList>

#include "display/estado.h"
#include "foundation/seams.h"

namespace tolmira {

// The catalogue of effects: the operator's names, and what the page understands. `Random` variants draw anew at each
// call.
enum class GrupoEfeito { Imagem, Texto };
enum class DirecaoEfeito { In, Out };

QStringList FamiliasDeEfeito(GrupoEfeito grupo, DirecaoEfeito direcao);
QStringList VariantesDeEfeito(GrupoEfeito grupo, const QString &familia, DirecaoEfeito direcao); // empty: no combo

QString EfeitoCycle(const QString &familia, const QString &variante, RandomSource &random);
QString EfeitoTexto(const QString &familia, const QString &variante, RandomSource &random);
// The classes of an element that enters with the effect `fx` (EfeitoTexto): Animate.css plays it, and the page adds a fade
// or a zoom to it when the settings ask for them.
QString ClassesDeEntrada(const QString &fx, const AjustesTexto &ajustes);
QString ExtrasDeEntrada(const AjustesTexto &ajustes); // those additions alone
QString SorteiaEfeito(const QString &lista, RandomSource &random); // a comma list
extern const QString ListaEfeitosSelecionados;

} // namespace tolmira
