#include "captions/caption_composer.h"

#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

#include <QStringList>
#include <cstdlib>

namespace tolmira {

namespace {

const QString Marca = QStringLiteral("|#|"); // between the lines of a song
const QString Quebra = QStringLiteral("<br>");
const QString Margem = QStringLiteral("<div style='margin-bottom: 5vh;'></div>");
const QString MargemMaior = QStringLiteral("<div style='margin-bottom: 6vh;'></div>");
const QString EntreBlocos = QStringLiteral("<div style='width:100%; height:6px'></div>");
const QString FimDeDiv = QStringLiteral("</div>");
constexpr int Opaco = 10;

QString Rgb(qint32 cor) {
  const auto parte = [cor](int bits) { return QString::number((cor >> bits) & 0xFF); };
  return u"rgb(" + parte(0) + u',' + parte(8) + u',' + parte(16);
}

QString ClasseDoPeso(bool negrito) {
  return negrito ? QStringLiteral(" fontBold") : QStringLiteral(" fontNormal");
}

QString Classes(const EstiloLegenda &estilo) {
  QString classes;
  if (estilo.Contorno)
    classes = estilo.Sombra ? QStringLiteral("contornoeSombra") : QStringLiteral("contorno");
  else if (estilo.Sombra)
    classes = QStringLiteral("sombra");
  return classes + ClasseDoPeso(estilo.fontBold);
}

// The pieces that every style of a passage is made of.
struct Passagem {
  QString texto;
  QString referencia;
  QString versao;
  QString classes;
  QString fb; // the title's weight
  QString fonte;
  QString coresDoTexto;
  QString coresDoTitulo;

  QString Ref() const { return referencia + u" (" + versao + u')'; }

  // Styles 1 to 4; `lugar` ends the style attribute.
  QString Titulo(const QString &abertura, QStringView lugar, const QString &ref) const {
    return abertura + u"' style='font-family:" + fonte + u";font-size:1rem; " + coresDoTitulo + lugar + u"'>" + ref;
  }
  // Styles 1 and 2; the first of them closes one block more than it opens.
  QString Caixa(QStringView classe, QStringView fim) const {
    return u"</div><div class='" + classe + classes + u"' style='font-family:" + fonte + u';' + coresDoTexto + u";'>" +
           texto + fim + Margem;
  }
  // Styles 3 to 5: over the whole breadth.
  QString Faixa() const {
    return u"</div><div class='biblia2 " + classes + u"' style='font-family:" + fonte + u';' + coresDoTexto +
           u";'><div style='width: 90%;'>" + texto + u"</div></div>";
  }
  QString LadoDoTexto(QStringView largura) const {
    return u"</div><div class= 'bloco2b " + classes + u"' style='width:" + largura + u"; " + coresDoTexto + u";'>" +
           texto + u"</div></div>";
  }
  // Styles 6 and 7, which differ in the blank behind the name of the left side's class.
  QString LadoALado(QStringView branco) const {
    return u"<div class='bloco2' style='font-family:" + fonte + u";'><div class= 'bloco2a" + branco + fb +
           u"' style='font-size:1rem; " + coresDoTitulo + u"; width: 20vw;'>" + referencia + Quebra + versao +
           LadoDoTexto(u"80vw");
  }
  QString LadoALadoSolto() const {
    return u"<div class='bloco2" + fb + u"' style='font-family:" + fonte +
           u";font-size:1rem; width:94vw;'><div class= 'bloco2a' style='" + coresDoTitulo + u"; width:20vw;'>" +
           referencia + Quebra + versao + LadoDoTexto(u"74vw") + MargemMaior;
  }
};

QString Monta(const Passagem &p, int estilo) {
  const QString quadrado = QStringLiteral("<div class='titulo tituloQuadrado");
  const QString redondo = QStringLiteral("<div class='titulo tituloRedondo");
  switch (estilo) {
  case 1:
    return p.Titulo(quadrado + p.fb, u";", p.Ref()) + p.Caixa(u"biblia1 tituloQuadrado ", u"</div></div>");
  case 2:
    return p.Titulo(redondo + p.fb, u";", p.Ref()) + p.Caixa(u"biblia1 ", u"</div>");
  case 3:
    return p.Titulo(quadrado + u' ' + p.fb, u"; left:0%;", p.Ref()) + p.Faixa();
  case 4:
    return p.Titulo(redondo + p.fb, u"; left:-3%;", u"&nbsp; &nbsp; &nbsp; &nbsp;" + p.Ref()) + p.Faixa();
  case 5:
    return u"<div class='titulo" + p.fb + u"' style='font-size:0.8rem;  font-family:" + p.fonte + u';' +
           p.coresDoTitulo + u"; left:5%;'>" + p.Ref() + p.Faixa();
  case 6:
    return p.LadoALado(u" ");
  case 7:
    return p.LadoALado(u"") + Margem;
  default:
    return p.LadoALadoSolto();
  }
}

// How a block of a song's caption opens, up to the name of the font.
struct Abertura {
  QStringView classe;
  QStringView estilo;
};

QString Abre(const Abertura &abertura, const QString &classes) {
  return u"<div class='" + abertura.classe + u' ' + classes + u"' style='" + abertura.estilo + u"font-family:";
}

// Styles of one block.
Abertura BlocoUnico(int estilo) {
  switch (estilo) {
  case 1:
    return {u"textDefault", u""};
  case 2:
    return {u"textDefault", u"max-width:80%; "};
  case 3:
    return {u"textDefaultBackAuto tituloQuadrado", u""};
  case 4:
    return {u"textDefaultBackAuto", u""};
  case 11:
    return {u"textDefault", u"min-height:3rem; "};
  default:
    return {};
  }
}

// Styles of a block for each line.
Abertura BlocoDaLinha(int estilo) {
  switch (estilo) {
  case 5:
    return {u"textBackFixo", u"min-width:30%; border-radius: 0px; font-size:1rem; "};
  case 6:
    return {u"textBackFixo", u"min-width:30%; border-radius: 0.2rem; font-size:1rem; "};
  case 7:
    return {u"textBackFixo", u"border-radius: 0px; "};
  case 8:
    return {u"textBackFixo", u""};
  case 9:
    return {u"textBackAuto", u"border-radius: 0px; "};
  case 10:
    return {u"textBackAuto", u""};
  default:
    return {};
  }
}

} // namespace

QString ComposeCor(qint32 cor) {
  return Rgb(cor) + u')';
}

QString ComposeFundo(qint32 cor, int transparencia) {
  return transparencia >= Opaco ? QString(Rgb(cor) + u", 1)")
                                : QString(Rgb(cor) + u", 0." + QString::number(transparencia) + u')');
}

QString ComposeLegendaBiblia(const LegendaBiblia &estilo, const QString &texto, const QString &referencia,
                             const QString &versao) {
  Passagem p;
  p.texto = estilo.maiusculas ? texto.toUpper() : texto;
  p.referencia = referencia;
  p.versao = versao;
  p.classes = Classes(estilo);
  p.fb = ClasseDoPeso(estilo.fontBoldTitulo);
  p.fonte = estilo.fontName;
  p.coresDoTexto = u"color:" + ComposeCor(estilo.fontColor) + u"; background-color: " +
                   ComposeFundo(estilo.backColor, estilo.transparencia);
  p.coresDoTitulo = u"color:" + ComposeCor(estilo.fontColorTitulo) + u"; background-color: " +
                    ComposeFundo(estilo.backColorTitulo, Opaco);
  return Monta(p, estilo.estilo < 1 ? 1 : estilo.estilo);
}

QString EquilibraLinhas(const QString &texto) {
  const QStringList linhas = texto.split(Marca);
  const qsizetype n = linhas.size() - 1;
  if (n <= 1)
    return texto;
  const QString brancos = QStringLiteral("  ");
  qsizetype melhor = texto.size() - n * Marca.size();
  QString resultado;
  for (qsizetype i = 0; i <= n; ++i) {
    const QString esq = linhas.mid(0, i + 1).join(brancos);
    const QString dir = linhas.mid(i + 1).join(brancos);
    const qsizetype d = std::abs(esq.size() - dir.size());
    if (d >= melhor && i > 0) // the first cut stands even where it is no better than none: short lines, blank ones
      break;
    melhor = d;
    resultado = esq + Marca + dir;
  }
  return resultado;
}

QString ComposeLegendaLetra(LegendaLetras &estilo, const QString &texto) {
  QString verso = QString(texto).replace(Quebra, Marca, Qt::CaseInsensitive);
  verso = EquilibraLinhas(StripMarkup(verso));
  if (estilo.maiusculas)
    verso = verso.toUpper();
  if (estilo.estilo == 0)
    estilo.estilo = 1;

  const QString classes = Classes(estilo);
  const QString cor = estilo.fontName + u"; color:" + ComposeCor(estilo.fontColor);
  const QString fundo = ComposeFundo(estilo.backColor, estilo.transparencia);
  if (const Abertura unico = BlocoUnico(estilo.estilo); !unico.classe.isEmpty())
    return Abre(unico, classes) + cor + u"; background-color:" + fundo + u";'>" +
           QString(verso).replace(Marca, Quebra) + FimDeDiv + (estilo.estilo == 11 ? QString() : Margem);

  const Abertura daLinha = BlocoDaLinha(estilo.estilo);
  if (daLinha.classe.isEmpty())
    return Margem;
  QStringList blocos;
  for (const QString &linha : verso.split(Marca))
    blocos << QString(Abre(daLinha, classes) + cor + u"; background-color: " + fundo + u";'>" + linha + FimDeDiv);
  const bool duas = estilo.estilo == 5 || estilo.estilo == 6;
  return blocos.join(EntreBlocos) + Margem + (duas ? Margem : QString());
}

} // namespace tolmira
