#pragma once

#include "captions/estado_legenda.h"
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
  EstadoLegenda &legenda;
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
  std::function<void()> descreve = {}; // brings painel.situacao up to date

  // The projection's size in pixels, the usual one while there is none.
  QSize TelaPx() const {
    const Display *display = telao();
    return display ? display->SizePx() : QSize(1280, 720);
  }
  QString FonteDoTema() const {
    return estado.TemaAtual.Font_Name.isEmpty() ? QStringLiteral("Arial") : estado.TemaAtual.Font_Name;
  }
  // FonteTexto and TelaLarga, which every item takes from the theme and the projection when it is loaded.
  void AjustaEstado();

  void Atualiza() {
    if (view)
      view->Atualiza();
  }
  // A page function on the display and then on the preview, as every direct call goes out.
  void ChamaPaginas(const QString &nome, const QString &a1, const QString &a2 = {}, const QString &a3 = {},
                    Alvo alvo = Alvo::Ambas);
  void ScriptNasPaginas(const QString &script, Alvo alvo = Alvo::Ambas);
  // A style property of an element, or of all of a class, on the display as a command and then on the preview.
  void SetPageStyle(const QString &element, const QString &property, const QString &value, Alvo alvo = Alvo::Ambas);
  PageObject *Pagina(Alvo qual) const; // one of the two; null while it is not there
  // SetPageStyle("set_text", "font-size", size): the preview gets the size scaled by the ratio of the widths.
  void EnviaTamanhoDaFonte(Alvo alvo = Alvo::Ambas);
};

} // namespace tolmira
