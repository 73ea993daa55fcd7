#include "console/song_fit.h"

#include <algorithm>
#include <cmath>

#include "foundation/text_fields.h"

namespace tolmira {

namespace {

constexpr double PontosPorPixel = 72.0 / 96.0;
constexpr double AlturaUtil = 0.88;  // of the projection's height, the rest is margin
constexpr double LarguraUtil = 0.86; // of its width, what the composer's bands leave
const QString LinhaDeCalibragem = QStringLiteral("Sacia a minha sede lava o meu interior");

// The sizes that the composer gives a verse, relative to the base size: the em before its own fit to the width, and the
// line height with the air that bands put round each line.
struct Composicao {
  double em;
  double linha;
};

Composicao ComposicaoDe(int linhas, const AjusteDeTela &tela) {
  const bool animado = tela.EstiloLouvor >= 7;
  double em = !tela.centrado ? 1.4 : tela.FontSizeClass == 2 ? 1.26 : 1.3;
  if (linhas > 5 && !(tela.centrado && tela.FontSizeClass == 0))
    em = tela.centrado && tela.FontSizeClass == 2 ? 0.98 : 1.1;
  const double altura = linhas <= 2 ? 1.5 : linhas <= 4 ? 1.2 : 1.0;
  return {em, std::max(altura, 1.15) + (animado ? 0.35 : tela.EstiloLouvor >= 4 ? 0.2 : 0.05)};
}

} // namespace

double TamanhoBase(const QString &texto, const AjusteDeTela &tela, TextMeasure &measure) {
  const double alturaPt = tela.telaPx.height() * PontosPorPixel;
  const double classes[] = {0.070, 0.085, 0.100};
  const double fator = tela.centrado ? 0.86 : 0.8;
  double ajuste = alturaPt * classes[std::clamp(tela.FontSizeClass, 0, 2)];

  for (const QString &estrofe : SplitText(texto, QStringLiteral("\r\n\r\n"))) {
    const QStringList linhas = SplitText(TrimAll(estrofe), QStringLiteral("\r\n"));
    if (linhas.isEmpty())
      continue;
    const int n = static_cast<int>(linhas.size());
    const Composicao c = ComposicaoDe(n, tela);
    ajuste = std::min(ajuste, alturaPt * AlturaUtil / (n * c.em * c.linha) / fator);
    if (n > 5) {
      // Long stanzas take a fixed em whatever their width, so here the base size has to see to the width.
      const double largura = measure.Width(estrofe, {tela.fonte, 100, tela.negrito});
      if (largura > 0)
        ajuste = std::min(ajuste, 100 * LarguraUtil * tela.telaPx.width() / largura / c.em / fator);
    }
  }
  return std::max(8.0, std::floor(ajuste * fator));
}

double TamanhoLabel1(const QString &texto, const FontSpec &fonte, double larguraPx, TextMeasure &measure) {
  const auto tamanho = [&](const QString &amostra) {
    const double largura = measure.Width(amostra, {fonte.family, 14, fonte.bold});
    return largura > 0 ? 14 * larguraPx / largura * 0.8 : 0;
  };
  const double calibrado = tamanho(LinhaDeCalibragem);
  return std::clamp(std::max(calibrado, tamanho(texto)), 6.0, 2 * std::max(calibrado, 6.0));
}

} // namespace tolmira
