#include "console/page_zoom.h"

#include <algorithm>

#include "foundation/text_fields.h"

namespace tolmira {

namespace {
constexpr int ZoomMinimo = 60;      // per cent
constexpr int ZoomMaximo = 500;     // per cent, what a page takes
constexpr int ZoomAnimado = 92;     // per cent, animated layouts in the middle of the screen
constexpr int PrimeiroAnimado = 7;  // style of songs
} // namespace

void ApplyZoom(ConsoleContext &console) {
  PainelConsole &painel = console.painel;
  AjustesTexto &ajustes = console.ajustes;
  const auto stored = [&](const QString &key) {
    const QString text = console.store.ReadConfig(QStringLiteral("Config"), key, QStringLiteral("100"));
    return static_cast<int>(std::clamp<double>(NumericPrefix(text), ZoomMinimo, ZoomMaximo));
  };

  const bool biblia = console.estado.TipoAtual == u"Bíblia";
  const bool animado = !biblia && ajustes.EstiloLouvor >= PrimeiroAnimado;
  int zoom = 100;
  if (biblia)
    zoom = ajustes.ZoomAjustBiblia = stored(QStringLiteral("ZoomAjustBiblia"));
  else if (animado)
    zoom = ajustes.AlinhamentoVertical == u"center" ? ZoomAnimado : 100;
  else
    zoom = ajustes.ZoomAjust = stored(QStringLiteral("ZoomAjust"));

  painel.SliderZoomVisible = !biblia && !animado;
  painel.sliderZoomBibliaVisible = biblia;
  if (!animado)
    painel.SliderZoom = zoom;

  if (Display *display = console.telao(); display && display->WV())
    display->WV()->SetZoomFactor(zoom * 0.01);
  if (PageObject *pagina = console.previa())
    pagina->SetZoomFactor(zoom * 0.01);
}

} // namespace tolmira
