#include "console/bible_fit.h"

#include <algorithm>
#include <cmath>

namespace tolmira {

namespace {

constexpr double PontosPorPixel = 72.0 / 96.0;
constexpr int TamanhoMinimo = 8; // points
// The largest size, as a part of the projection's height: a short verse is read from the back of a hall and is no
// shout.
constexpr double MaiorTamanho = 0.11;
constexpr double AlturaUtil = 0.89;    // of the projection's height, what the page's margins leave
constexpr double FolgaDaLinha = 0.985; // of the line's width: the page breaks lines a hair earlier than the measure

// What the page gives a verse, in em of its size; tolmira.css says the same.
constexpr double LinhaDoTexto = 1.22;
constexpr double EscalaDoTitulo = 0.72;
constexpr double LinhaDoTitulo = 1.1;
constexpr double BordasComTitulo = 2.0; // half the title, and the paddings of the text
constexpr double BordaDoEstilo1 = 0.6;

int Linhas(const QString &texto, const FontSpec &fonte, double larguraPx, TextMeasure &measure) {
  const double uma = measure.Height(QStringLiteral("x"), fonte, 0);
  return uma > 0 ? std::max(1, static_cast<int>(std::lround(measure.Height(texto, fonte, larguraPx) / uma))) : 1;
}

// The height in pixels that a verse of that size takes on the page.
double Altura(const QString &texto, const QString &ref, int tamanhoPt, const AjusteDeVersiculo &tela,
              TextMeasure &measure) {
  const double em = tamanhoPt / PontosPorPixel;
  const double largura = tela.telaPx.width();
  const double vw = largura / 100;
  const bool recuado = tela.EstiloBiblia == 2 || tela.EstiloBiblia == 3;
  const double linha = largura * (recuado ? 0.81 : 0.9) * FolgaDaLinha;
  const int linhas = Linhas(texto, {tela.fonte, static_cast<double>(tamanhoPt), false}, linha, measure);

  // The reference of style 1 keeps a fifth of the width free at its right, a title its beginning and its paddings.
  const bool noPe = tela.EstiloBiblia == 1;
  const double linhaDoTitulo = noPe ? largura * 0.8 : largura * 0.86 - 1.5 * em * EscalaDoTitulo;
  const int linhasDoTitulo =
      Linhas(ref, {tela.fonte, tamanhoPt * EscalaDoTitulo, true}, linhaDoTitulo * FolgaDaLinha, measure);

  double altura = linhas * LinhaDoTexto * em;
  if (noPe)
    altura += 4 * vw + BordaDoEstilo1 * em + linhasDoTitulo * EscalaDoTitulo * LinhaDoTexto * em;
  else
    altura += BordasComTitulo * em + (linhasDoTitulo - 1) * LinhaDoTitulo * em;
  return altura;
}

} // namespace

int TamanhoBiblia(const QString &texto, const QString &ref, const AjusteDeVersiculo &tela, TextMeasure &measure) {
  const double lado = std::min<double>(tela.telaPx.height(), 0.75 * tela.telaPx.width());
  const double maior = lado * PontosPorPixel * MaiorTamanho;
  const double fator = (tela.centrado ? 0.9 : 0.7) * tela.escala / 100;

  // Laying out a long verse is the dearest step between the key and the screen, so the second search is made only where
  // the first one's answer does not hold.
  const auto cabe = [&](int tamanho, const AjusteDeVersiculo &onde, double parte) {
    return Altura(texto, ref, tamanho, onde, measure) <= parte * onde.telaPx.height();
  };
  // The largest whole size below `passa` at which the verse takes no more than that part of the height, by halving.
  const auto ajuste = [&](int passa, const AjusteDeVersiculo &onde, double parte) {
    int menor = TamanhoMinimo;
    while (passa - menor > 1) {
      const int meio = (menor + passa) / 2;
      (cabe(meio, onde, parte) ? menor : passa) = meio;
    }
    return menor;
  };
  // The factor is what leaves the margin, so the fit itself takes the whole height.
  const int acima = static_cast<int>(maior * std::max(1.0, fator)) + 1;
  const double inteiro = std::min<double>(maior, ajuste(acima, tela, 1));
  const int desejado = std::max(TamanhoMinimo, static_cast<int>(std::floor(inteiro * fator)));
  // A page at 150 per cent has two thirds of the projection's pixels to lay its text out in.
  AjusteDeVersiculo visivel = tela;
  visivel.telaPx = tela.telaPx * 100 / std::max(tela.zoom, 1);
  return cabe(desejado, visivel, AlturaUtil) ? desejado : ajuste(desejado, visivel, AlturaUtil);
}

} // namespace tolmira
