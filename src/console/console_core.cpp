#include "console/console_core.h"

namespace tolmira {

ConsoleCore::ConsoleCore(const ConsoleDoors &doors)
    : canal(estado, doors.telao),
      letras(estado, ajustes, canal, doors.telao, doors.previa, doors.measure, doors.random),
      paginas(doors.app, doors.store, estado, ajustes, canal, letras, Hosts(doors), doors.random, doors.yielder),
      contexto{doors.app, doors.store,  estado,       ajustes,        faixa,        painel,        canal,       letras,
               paginas,   doors.clock,  doors.random, doors.yielder,  doors.prompt, doors.measure, doors.telao, doors.previa},
      loja(doors.app, temas), agenda(doors.app, doors.store, estado, painel, faixa, contexto.view, doors.prompt),
      stepper(contexto), temaControle(contexto, temas), loader(contexto, stepper, temaControle),
      controles(contexto, loader), flow(contexto, agenda, loader, temaControle),
      teclas(contexto, stepper, flow, agenda) {}

PageBuilder::Hosts ConsoleCore::Hosts(const ConsoleDoors &doors) {
  PageBuilder::Hosts hosts;
  hosts.telao = doors.telao;
  hosts.previa = doors.previa;
  hosts.larguraPrevia = [this] { return contexto.view ? contexto.view->PreviewWidthPx() : 0; };
  hosts.fonteDisplay = [this] { return loader.FonteDisplay(); };
  hosts.ajustaTelaFundo = [](bool) {}; // the layers follow the display's own commands
  return hosts;
}

} // namespace tolmira
