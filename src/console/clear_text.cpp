#include "console/clear_text.h"

#include "console/stepping.h"

namespace tolmira {

void EsvaziaConsole(ConsoleContext &console, VerseStepper &stepper) {
  EstadoConsole &estado = console.estado;
  PainelConsole &painel = console.painel;
  stepper.PlaceBelowFrame();
  estado.Estrofes.clear();
  estado.TextoEstrofes.clear();
  estado.TotalEstrofes = 0;
  estado.EstrofeAtual = -1;
  estado.ArquivoAtual.clear();
  estado.ReferenciaAtual.clear();
  estado.TextoBiblia.clear();
  estado.VersoHtmlAtual.clear();
  estado.VersoTextoAtual.clear();
  estado.UltimoTexto.clear();
  console.legenda.TextoLegenda.clear();

  console.faixa.Label1Visible = false;
  painel.biblia.Visible = false;
  painel.MensagemTira.clear();
  painel.SliderExLouvorVisible = painel.SliderExBibliaVisible = painel.LbFaixaVisible = painel.ComboFontSizeVisible =
      false;
  painel.PicAviso = painel.PicAviso2 = painel.PicDica2 = painel.PicDica3 = painel.PicDica4 = painel.PicDicaAgenda =
      false;
}

} // namespace tolmira
