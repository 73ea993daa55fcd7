#pragma once

#include <QString>

#include "display/display_channel.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "foundation/seams.h"

namespace tolmira {

// Shadow and outline of a theme as CSS text. `k` scales for a preview: the preview host's width over the display's
// width, 1 for the display.
QString SombraTexto(const TemaRecord &tema, double k);
QString ContornoTexto(const TemaRecord &tema);
QString EstiloTexto(const TemaRecord &tema);
void AplicaEstiloTexto(PageObject *pagina, const TemaRecord &tema);

// The band alpha as text: "1" when the strength is at least 10, otherwise "0." and the strength.
QString AlfaFaixa(const QString &transparenciaFaixa);

// Cuts a text at its blank lines into verses whose lines are joined by "<br>".
QStringList CarregaEstrofes(const QString &texto);

// Turns one verse into the HTML of a command and sends it to the display and the preview.
class LyricsComposer {
public:
  // `telao` gives the display (null while there is none), `previa` the preview's page object (may give null).
  LyricsComposer(EstadoConsole &estado, const AjustesTexto &ajustes, DisplayChannel &canal,
                 std::function<Display *()> telao, std::function<PageObject *()> previa, TextMeasure &measure,
                 RandomSource &random);

  void ExibeVerso(int posicao, bool comEfeito); // 1-based; -1 sends nothing
  QString MontaVerso(const QString &texto);     // "[efeito]" left in it, apostrophes escaped
  double AjustaFonte(const QString &texto, double base, double percentual, double tamanho);
  QString AjustaFonteTexto(const QString &texto, double base, double percentual, double tamanho);
  QString AlturaLinha(int linhas) const;
  bool Chance(int pct);
  void MostraEfeitoSaida(PageObject *pagina, const QString &fx, const QString &texto, QString &saida);

private:
  bool TelaQuatroTerco() const;
  EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  DisplayChannel &m_canal;
  std::function<Display *()> m_telao;
  std::function<PageObject *()> m_previa;
  TextMeasure &m_measure;
  RandomSource &m_random;
};

} // namespace tolmira
