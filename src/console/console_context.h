#pragma once

#include "console/console_panel.h"
#include "display/display_channel.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "display/lyrics_composer.h"
#include "display/page_builder.h"
#include "foundation/app_folder.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"

namespace tolmira {

// What the console's parts share, made once in main. References outlive every part; `view` is null until the window
// stands.
struct ConsoleContext {
  const AppFolder &app;
  const IniStore &store;
  EstadoConsole &estado;
  AjustesTexto &ajustes;
  FaixaTexto &faixa;
  PainelConsole &painel;
  DisplayChannel &canal;
  LyricsComposer &letras;
  PageBuilder &paginas;
  Clock &clock;
  RandomSource &random;
  Yielder &yielder;
  UserPrompt &prompt;
  TextMeasure &measure;
  std::function<Display *()> telao;
  std::function<PageObject *()> previa;
  ConsoleView *view = nullptr;

  void Atualiza() {
    if (view)
      view->Atualiza();
  }
  // A page function on the display and then on the preview, as every direct call goes out.
  void ChamaPaginas(const QString &nome, const QString &a1, const QString &a2 = {}, const QString &a3 = {});
  void ScriptNasPaginas(const QString &script);
  // SetPageStyle("set_text", "font-size", size): the preview gets the size scaled by the ratio of the widths.
  void EnviaTamanhoDaFonte();
};

} // namespace tolmira
