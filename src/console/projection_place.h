#pragma once

#include <functional>
#include <optional>

#include "console/console_context.h"
#include "console/monitors.h"

namespace tolmira {

// Where the projection and the console stand while the program runs: what is done when monitors come, go or change, and
// when the operator chooses another one. Writes SemProjetor, TelaoEm and telas of the panel.
class ProjectionPlace {
public:
  struct Janelas {
    // The projection's window goes there. Nothing may be seen of it when it stands there already.
    std::function<void(const PlacaDoTelao &)> Posiciona;
    std::function<void()> Esconde;                       // there is no place for it
    std::function<void(const clsMonitor &)> LevaConsole; // the console goes to that monitor, filling it if it filled its own
    std::function<QRect()> Retangulo;                    // of the projection's window; empty for none
    std::function<QSize()> Tamanho;                      // of the projection's window, pixels; empty for none
    std::function<void()> TelaMudou;                     // that size is another than what the item on show is fitted to
  };
  ProjectionPlace(ConsoleContext &console, const MonitorSource &monitores, Janelas janelas);

  void PosicionarFrmQuendar(); // at the start; asks for the projector when there is one monitor
  void Reavalia();             // the desktop changed, or the console stands on another monitor
  void Recoloca();             // the projection has a new window
  void TamanhoMudou();         // its window has another size, by the operator's hand or the desktop's
  void EscolheTela(int opcao); // index into the panel's `telas`

private:
  void Poe(const PlacaDoTelao &placa);
  void CuidaDoConsole();
  const clsMonitor *Presente(const std::optional<clsMonitor> &monitor) const; // null when it is not in the list
  void ListaTelas();

  ConsoleContext &m_console;
  Janelas m_janelas;
  clsMonitors m_monitores;
  EscolhaDeMonitor m_escolha;
  std::optional<clsMonitor> m_casa;    // the console's monitor, which may be away
  std::optional<clsMonitor> m_refugio; // the one that it was taken to meanwhile
  bool m_tinhaProjetor = false;        // the projection stands, or last stood, on a monitor of its own
  PlacaDoTelao m_placa;
  QSize m_ajustado; // the size that the item on show is fitted to
};

} // namespace tolmira
