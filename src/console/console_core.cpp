#include "console/console_core.h"

#include "console/projection_status.h"

namespace tolmira {

ConsoleCore::ConsoleCore(const ConsoleDoors &doors)
    : canal(estado, doors.telao),
      letras(estado, ajustes, canal, doors.telao, doors.previa, doors.measure, doors.random),
      biblia(estado, ajustes, legendaBiblia, canal, doors.telao, doors.previa,
             [this] { return contexto.view ? contexto.view->PreviewWidthPx() : 0; }, doors.random),
      paginas(doors.app, doors.store, estado, ajustes, canal, letras, Hosts(doors), doors.random, doors.yielder),
      contexto{doors.app, doors.store,  estado,       ajustes,        faixa,        painel,        canal,       letras,
               paginas,   doors.clock,  doors.random, doors.yielder,  doors.prompt, doors.measure, doors.telao, doors.previa},
      loja(doors.app, temas), lojaBiblia(doors.app, doors.store),
      agenda(doors.app, doors.store, estado, painel, faixa, contexto.view, doors.prompt),
      stepper(contexto), temaControle(contexto, temas), loader(contexto, stepper, temaControle),
      leitura(contexto, lojaBiblia, biblia, legendaBiblia, stepper, temaControle),
      controles(contexto, loader, leitura), formato(contexto, temas, loader, controles), flow(contexto, agenda, loader, leitura, temaControle),
      teclas(contexto, stepper, flow, agenda, leitura) {
  contexto.descreve = [this] {
    painel.situacao = DescreveSituacao({estado, painel, faixa, agenda.Lista(), lojaBiblia.Capitulo()});
  };
}

void ConsoleCore::PaginaVoltou() {
  loader.PaginaVoltou();
  leitura.PaginaVoltou();
}

void ConsoleCore::TelaMudou() {
  loader.AjustaQuadro();
  loader.RecarregaMusica(false);
  leitura.RecarregaVersiculo(false);
  paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, 0);
  leitura.ReenviaVersiculo();
}

PageBuilder::Hosts ConsoleCore::Hosts(const ConsoleDoors &doors) {
  PageBuilder::Hosts hosts;
  hosts.telao = doors.telao;
  hosts.previa = doors.previa;
  hosts.larguraPrevia = [this] { return contexto.view ? contexto.view->PreviewWidthPx() : 0; };
  hosts.fonteDisplay = [this] { return loader.FonteDisplay(); };
  hosts.ajustaTelaFundo = [](bool) {}; // the layers follow the display's own commands
  hosts.exibeBiblia = [this] {
    biblia.ExibeBiblia(estado.TextoBiblia, estado.ReferenciaAtual, estado.FonteTamanho, false, true);
  };
  return hosts;
}

} // namespace tolmira
