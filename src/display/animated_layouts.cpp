#include "display/animated_layouts.h"

#include <algorithm>

#include "display/verse_text.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

constexpr int MaisBlocos = 5;
constexpr int MaisAtrasos = 5;           // the page has delays for five elements that follow each other
constexpr double MargemEm = 0.8;         // the band's padding above and below the text
constexpr double SeparadorEm = 0.5;      // between two groups
constexpr double DestaqueDaLinha = 1.15; // the first line of a group against the others
constexpr double MenorEm = 0.1;

double TamanhoDesejado(qsizetype linhas) {
  if (linhas <= 2)
    return 1.6;
  if (linhas <= 4)
    return 1.4;
  return linhas <= 6 ? 1.2 : 1;
}

// The size at which lines that weigh `peso` together fill the height that `fixoEm` leaves, or the wanted one if
// smaller.
double TamanhoQueCabe(const LayoutAnimado &layout, qsizetype linhas, double peso, double fixoEm) {
  const double alturaLinha = std::max(NumericPrefix(layout.alturaLinha), 1.0);
  const double limite = (layout.alturaEm - fixoEm) / (std::max(peso, 1.0) * alturaLinha);
  return std::max(MenorEm, std::min(TamanhoDesejado(linhas), limite));
}

QString Abre(const LayoutAnimado &layout, QStringView classes, QStringView estilo) {
  return u"<div class='" + classes + u" faixaAnimada [efeito]' style='--faixa:" + layout.alfa + u"; display:flex; " +
         estilo + u" line-height:" + layout.alturaLinha + u";'>";
}

struct Lado {
  QStringView texto; // "textoL"
  QStringView anima; // "animaL"
};
constexpr Lado Esquerdo{u"textoL", u"animaL"};
constexpr Lado Direito{u"textoR", u"animaR"};

// `numero` counts the lines of the verse, `ordem` says when the line comes in; both from 1.
QString Linha(const LayoutAnimado &layout, const Lado &lado, qsizetype numero, qsizetype ordem, const QString &texto,
              const QString &tamanho, bool destaque) {
  return u"<div id='texto" + QString::number(numero) + u"' class='" + lado.texto + u' ' + lado.anima +
         QString::number(std::min<qsizetype>(ordem, MaisAtrasos)) + u' ' + layout.efeito +
         u" [efeito]' style='font-size:" + tamanho + u"em;" + (destaque ? u" color: yellow;" : u"") + u"'>" +
         TextoParaPagina(texto) + u"</div>";
}

// Groups of two lines, or of more where five groups of two are not enough. Groups come in from the left and from the
// right in turn.
QString MontaBlocos(const QStringList &linhas, const LayoutAnimado &layout) {
  constexpr double LarguraPorcento = 84;
  const qsizetype total = linhas.size();
  const qsizetype blocos = std::min<qsizetype>(MaisBlocos, (total + 1) / 2);
  const double peso = static_cast<double>(total) + static_cast<double>(blocos) * (DestaqueDaLinha - 1);
  const double separadores = blocos > 1 ? static_cast<double>(blocos - 1) * SeparadorEm : 0;
  const double em = TamanhoQueCabe(layout, total, peso, MargemEm + separadores);

  QString html = Abre(layout, u"container-grid areas1", u"flex-direction:column; gap:0;");
  qsizetype n = 0;
  for (qsizetype bloco = 1; bloco <= blocos; ++bloco) {
    if (bloco > 1)
      html += u"<div class='blocosepara' style='height: 0.5em;'></div>";
    html += u"<div class='bloco" + QString::number(bloco) + u"'>";
    // The lines that are left, shared out over the groups that are left, the larger shares first.
    const qsizetype fim = n + (total - n + blocos - bloco) / (blocos - bloco + 1);
    const bool destaque = fim - n > 1;
    for (bool primeira = true; n < fim; ++n, primeira = false) {
      const QString tamanho = layout.tamanho(linhas[n], LarguraPorcento, primeira ? em * DestaqueDaLinha : em);
      html += Linha(layout, bloco % 2 ? Esquerdo : Direito, n + 1, n + 1, linhas[n], tamanho, primeira && destaque);
    }
    html += u"</div>";
  }
  return html + u"</div>";
}

// The first half of the lines left of the bar, the second half right of it. A single line stands left of the bar, both
// in the middle.
QString MontaColunas(const QStringList &linhas, const LayoutAnimado &layout) {
  const qsizetype total = linhas.size();
  const qsizetype aEsquerda = (total + 1) / 2;
  const bool duas = total > 1;
  const QString largura = duas ? QStringLiteral("42vw") : QStringLiteral("fit-content");
  const double percentual = duas ? 41 : 83;
  const double em = TamanhoQueCabe(layout, total, static_cast<double>(aEsquerda) + DestaqueDaLinha - 1, MargemEm);

  double altura = 0; // of the higher column
  const auto coluna = [&](const Lado &lado, QStringView classe, qsizetype de, qsizetype ate) {
    QString html = u"<div class='" + classe + u"' style='width:" + largura + u";'>";
    double soma = 0;
    for (qsizetype n = de; n < ate; ++n) {
      const QString tamanho = layout.tamanho(linhas[n], percentual, n == 0 ? em * DestaqueDaLinha : em);
      html += Linha(layout, lado, n + 1, n - de + 1, linhas[n], tamanho, n == 0 && duas);
      soma += NumericPrefix(tamanho);
    }
    altura = std::max(altura, soma * NumericPrefix(layout.alturaLinha));
    return QString(html + u"</div>");
  };

  QString html = Abre(layout, u"text-container", u"flex-direction:row; gap:1.6vw;");
  if (total > 0) {
    const QString esquerda = coluna(Esquerdo, u"blocoTextoL", 0, aEsquerda);
    const QString direita = duas ? coluna(Direito, u"blocoTextoR", aEsquerda, total) : QString();
    html += esquerda + u"<div class='cor1' style='height:" + QString::number(altura, 'f', 2) + u"em;'></div>" + direita;
  }
  return html + u"</div>";
}

} // namespace

QString MontaLayoutAnimado(const QStringList &linhas, const LayoutAnimado &layout) {
  return layout.estilo == 7 ? MontaBlocos(linhas, layout) : MontaColunas(linhas, layout);
}

} // namespace tolmira
