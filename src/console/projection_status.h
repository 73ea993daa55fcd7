#pragma once

#include <QString>
#include <QStringList>

#include "console/agenda.h"
#include "console/console_panel.h"
#include "display/estado.h"
#include "slides/slide_document.h"

namespace tolmira {

// What the status is taken from. Nothing is kept.
struct OlharDaTela {
  const EstadoConsole &estado;
  const PainelConsole &painel;
  const FaixaTexto &faixa;
  const ListTarefas &lista;      // of the active agenda
  const QStringList &capitulo;   // of the passage on the console; element n is verse n with its number
  const SlideDocument &slides;   // on the console
};

// The state of the projection in words: what is out, what the next key brings, what comes after it, who listens.
SituacaoDaTela DescreveSituacao(const OlharDaTela &olhar);

} // namespace tolmira
