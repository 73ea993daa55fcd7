#include "display/slide_html.h"

#include "display/text_style.h"
#include "display/verse_text.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

// No backslash is left to the escaping of apostrophes, so "\'" is shown as it was typed.
QString ComoDigitado(const QString &texto) { return TextoParaPagina(texto).replace(u'\\', QStringLiteral("&#92;")); }

// What the two forms do not share.
struct Forma {
  QString abertura; // up to the colour's alpha
  QString alfa;
  QString linha;
  QString unidadeDoTexto;
  bool comTexto = true;
};

QString Monta(const SlideDocument &documento, int index, int larguraPx, const QString &transparencia,
              const Forma &forma) {
  const Slide slide = documento.Tem(index) ? documento.Em(index) : Slide{{}, {}, {}, 0, 0, 0, 0};
  QString titulo = forma.comTexto ? slide.Titulo : QString();
  QString texto = forma.comTexto ? slide.Texto : QString();
  if (documento.visual.Maiusculas) {
    titulo = titulo.toUpper();
    texto = texto.toUpper();
  }
  titulo = ComoDigitado(titulo);
  texto = ComoDigitado(texto).replace(QStringLiteral("\r\n"), QStringLiteral("<br>"));

  const bool centro = slide.Alinhamento == AlinhamentoCentrado;
  const QString alinh = centro ? QStringLiteral("center") : QStringLiteral("left");
  const QString pad = centro ? QStringLiteral("2%") : QStringLiteral("10%");
  const QString tamanho = QString::number(RoundHalfEven(larguraPx * slide.FontSize / 100.0));
  return forma.abertura + forma.alfa + u"); text-align:" + alinh + u"; padding-left:" + pad + u"; font-size:" +
         tamanho + u"px; box-shadow: 0px 0px 10px rgba(0,0,0,0." + transparencia + u"); margin-bottom: 1%;'>" + titulo +
         u"</div><div id='textoSlide' style='line-height: " + forma.linha + u"; padding-left:" + pad +
         u"; text-align:" + alinh + u"; font-size:" + tamanho + forma.unidadeDoTexto + u"'>" + texto + u"</div>";
}

} // namespace

QString GetSlideTextoFormatado(const SlideDocument &documento, int index, int larguraPx, const QString &transparencia) {
  const bool tem = documento.Tem(index);
  Forma forma;
  forma.abertura = QStringLiteral("<div id='verso' style='background-color: rgba(0, 0, 0, 0.");
  forma.alfa = transparencia;
  forma.linha = QString::number(tem ? RoundHalfEven(documento.Em(index).Espacamento / 10.0) : 0);
  forma.unidadeDoTexto = QStringLiteral("px");
  forma.comTexto = tem && documento.Em(index).incluirTexto == 1;
  return Monta(documento, index, larguraPx, transparencia, forma);
}

QString GetSlideTexto_Formatado(const SlideDocument &documento, int index, int larguraPx, const QString &transparencia,
                                const QString &efeito, bool comTexto) {
  const QString espacamento =
      documento.Tem(index) ? QString::number(documento.Em(index).Espacamento) : QStringLiteral("0");
  Forma forma;
  forma.abertura = u"<div id='verso' class='verso " + efeito + u"' style='background-color: rgba(0, 0, 0, ";
  forma.alfa = AlfaFaixa(transparencia);
  forma.linha = QString(espacamento.front()) + u'.' + espacamento.back();
  forma.unidadeDoTexto = QStringLiteral("pt");
  forma.comTexto = comTexto;
  return Monta(documento, index, larguraPx, transparencia, forma);
}

} // namespace tolmira
