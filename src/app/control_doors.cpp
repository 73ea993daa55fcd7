#include "app/control_doors.h"

#include "console/agenda_desk.h"
#include "console/screen_controls.h"
#include "console/theme_control.h"
#include "display/display_channel.h"

namespace tolmira {

ControlDoors DoorsOf(const EstadoConsole &estado, Presentation &apresentacao, AgendaDesk &agenda,
                     ScreenControls &controles, ThemeControl &temas, DisplayChannel &canal,
                     std::function<Display *()> telao) {
  return ControlDoors{
      .estado = estado,
      .apresentacao = apresentacao,
      .agenda =
          [&agenda] {
            const ListTarefas &lista = agenda.Lista();
            std::vector<EntradaAgenda> entries;
            entries.reserve(static_cast<size_t>(lista.ListCount()));
            for (int kind = 1; kind <= GruposDaAgenda; ++kind)
              for (int index = 1; index <= lista.Count(kind); ++index)
                entries.push_back({kind, lista.NameAt(kind, index), lista.CaptionAt(kind, index)});
            return entries;
          },
      .SelectTab = [&agenda](int n) { agenda.SelectTab(n); },
      .SetScreenState = [&controles](int index) { controles.SetScreenState(index); },
      .PressTile = [&temas](int slot) { temas.PressTile(slot); },
      .SendToDisplay = [&canal](const QString &comando) { canal.SendToDisplay(comando); },
      .displayVisivel =
          [telao = std::move(telao)] {
            const Display *display = telao ? telao() : nullptr;
            return display && display->DisplayVisivel();
          },
      .telaoEm = {},
      .semProjetor = {},
      .pagina = {},
      .fechaConsole = {},
      .cedendo = {},
  };
}

} // namespace tolmira
