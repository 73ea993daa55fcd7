#pragma once

#include <functional>

#include "console/agenda_desk.h"
#include "console/bible_loader.h"
#include "console/page_zoom.h"
#include "console/projection_place.h"
#include "console/screen_controls.h"
#include "console/song_loader.h"
#include "console/theme_control.h"

namespace tolmira {

// Start and stop in their order. What needs windows comes in as functions.
class ConsoleStartup {
public:
  struct Janelas {
    std::function<void()> CarregaFontes;
    std::function<void()> AjustaPreview;
    std::function<void()> positionInicial;
    std::function<bool()> CriaPrevia;      // the engine on the console's PicWV; false when it cannot start
    std::function<bool()> CriaTelao;       // the engine on the projection
    std::function<void()> MostraTelao;
    std::function<void()> IniciaFade;
    std::function<void()> CarregaTiles;
    std::function<void()> DescarregaJanelas;
    std::function<void()> InicioTerminou = {}; // the program stands; may be empty
  };

  ConsoleStartup(ConsoleContext &console, AgendaDesk &agenda, ThemeControl &temas, ThemeStore &loja,
                 ScreenControls &controles, SongLoader &loader, BibleLoader &leitura, ProjectionPlace &lugar,
                 Janelas janelas);

  void Load();              // the console's load event
  void carregaInicio();
  void initApp();           // once
  void TimerTerminaLoad();  // once, ends the loading
  void Unload();            // once
  bool Descarregado() const { return m_descarregado; } // the console was closed, perhaps in the middle of the start

private:
  void Guarda();

  ConsoleContext &m_console;
  AgendaDesk &m_agenda;
  ThemeControl &m_temas;
  ThemeStore &m_loja;
  ScreenControls &m_controles;
  SongLoader &m_loader;
  BibleLoader &m_leitura;
  ProjectionPlace &m_lugar;
  Janelas m_janelas;
  std::unique_ptr<PeriodicTimer> m_timerTerminaLoad;
  bool m_initAppRodou = false;
  bool m_lido = false; // carregaInicio has read what Unload keeps
  bool m_descarregado = false;
};

} // namespace tolmira
