#pragma once

#include "captions/estado_legenda.h"
#include "display/display_channel.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "foundation/seams.h"

#include <QString>
#include <functional>

namespace tolmira {

// "255,255,255": the components of a colour number 0x00BBGGRR, red first.
QString RgbTexto(int cor);
// The alpha of the band behind a verse: "1" from a strength of 10 on, otherwise "0." and the strength.
QString AlfaVerso(int sombraVerso);

// A verse as it was last sent to the projection.
struct VersoNoTelao {
  QString texto;
  QString referencia;
  QString versao;
};

// Turns a Bible verse into the HTML of one command and sends it to the projection and to the preview.
class BibleComposer {
public:
  BibleComposer(EstadoConsole &estado, const AjustesTexto &ajustes, const LegendaBiblia &legenda, DisplayChannel &canal,
                std::function<Display *()> telao, std::function<PageObject *()> previa,
                std::function<int()> larguraPrevia, RandomSource &random);

  // `tamanho` in points, as text. `comEfeito` plays the entrance effect, and does so each time: a verse is not compared
  // with the one on show. `soPrevia` leaves the projection alone. The translation is that of the state.
  void ExibeBiblia(const QString &texto, const QString &referencia, const QString &tamanho, bool comEfeito,
                   bool soPrevia);
  // What the projection shows once more, without effect, for pages that were built anew. The operator may be looking at
  // another verse meanwhile. Nothing when no verse was sent.
  void ReenviaBiblia(const QString &tamanho, Alvo alvo = Alvo::Ambas);
  const VersoNoTelao &NoTelao() const { return m_noTelao; } // empty texts for none
  void EsqueceTelao() { m_noTelao = {}; }                   // something else is on show now

  // The HTML with "[efeito]", "[fontsize]" and "[top]" left in it, apostrophes escaped. Empty for an unknown style.
  QString MontaBiblia(const QString &texto, const QString &referencia, const QString &versao,
                      const LegendaBiblia &legenda) const;

private:
  void Exibe(const VersoNoTelao &verso, const QString &tamanho, bool comEfeito, Alvo alvo);
  EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  const LegendaBiblia &m_legenda;
  DisplayChannel &m_canal;
  std::function<Display *()> m_telao;
  std::function<PageObject *()> m_previa;
  std::function<int()> m_larguraPrevia; // px
  RandomSource &m_random;
  VersoNoTelao m_noTelao;
};

} // namespace tolmira
