#pragma once

#include <QString>
#include <QStringList>

#include <functional>

#include "display/display_channel.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "display/text_style.h"
#include "foundation/seams.h"

namespace tolmira {

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
  // The verse on show once more, at rest; nothing when none is. For a page that lost it: the other one sees nothing.
  void ReenviaVerso(Alvo alvo = Alvo::Ambas);
  // The only place where the layout is chosen. "[efeito]" is left in the result, apostrophes are escaped.
  QString MontaVerso(const QString &verso);

  // The size in em of the page's base size (`base`, points) at which the longest line of `texto` (lines end at CR LF)
  // takes at most `percentual` per cent of the display's width; never above `tamanho` points (1.3 times as much on a
  // 4:3 display). Two decimals; 0 for a base of 0. Without a display there is no limit to keep.
  double AjustaFonte(const QString &texto, double base, double percentual, double tamanho);
  QString AjustaFonteTexto(const QString &texto, double base, double percentual, double tamanho);

  // The size in em of the page's base size that a verse of `linhas` lines takes outside the animated layouts. The empty
  // text gives the size that it would have if all its lines were short.
  double TamanhoEm(const QString &texto, int linhas);

  QString AlturaLinha(int linhas) const;
  bool Chance(int pct); // true when a draw from 1 to 100 is below `pct`
  // Plays an exit effect on a page with `texto`; clears `saida` first.
  void MostraEfeitoSaida(PageObject *pagina, const QString &fx, const QString &texto, QString &saida);

private:
  bool TelaQuatroTerco() const;
  QString MontaAnimado(const QString &texto);
  QString MontaComSlots(const QString &verso);
  void Envia(QString &html, const QString &verso, Alvo alvo = Alvo::Ambas);
  EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  DisplayChannel &m_canal;
  std::function<Display *()> m_telao;
  std::function<PageObject *()> m_previa;
  TextMeasure &m_measure;
  RandomSource &m_random;
};

} // namespace tolmira
