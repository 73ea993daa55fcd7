#pragma once

#include <QString>

#include <functional>
#include <vector>

#include "console/presentation.h"
#include "display/display_seams.h"
#include "display/estado.h"

namespace tolmira {

class AgendaDesk;
class DisplayChannel;
class ScreenControls;
class ThemeControl;

struct EntradaAgenda {
  int kind = 0;
  QString label;
  QString target;
  friend bool operator==(const EntradaAgenda &, const EntradaAgenda &) = default;
};

// What the control interface may reach of the program. Everything referred to outlives the server.
struct ControlDoors {
  const EstadoConsole &estado;
  Presentation &apresentacao;
  std::function<std::vector<EntradaAgenda>()> agenda; // the active one, group by group
  std::function<void(int n)> SelectTab;
  std::function<void(int index)> SetScreenState;
  std::function<void(int slot)> PressTile;
  std::function<void(const QString &comando)> SendToDisplay;
  std::function<bool()> displayVisivel;
  std::function<QString()> textoLegenda = {}; // the caption
  std::function<QString()> telaoEm = {};   // name of the monitor that the projection is on
  std::function<bool()> semProjetor = {};  // it was taken away
  std::function<PageObject *(const QString &name)> pagina; // "display", "preview" or a window's name; may give null
  std::function<void()> fechaConsole;                      // as the operator closes the console
  std::function<bool()> cedendo; // true inside a yield to the message loop: requests wait, as the user's input does
};

// The doors of the real console. `telao` may give null while there is no projection.
ControlDoors DoorsOf(const EstadoConsole &estado, Presentation &apresentacao, AgendaDesk &agenda,
                     ScreenControls &controles, ThemeControl &temas, DisplayChannel &canal,
                     std::function<Display *()> telao);

} // namespace tolmira
