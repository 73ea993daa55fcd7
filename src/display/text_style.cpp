#include "display/text_style.h"

#include "display/display_channel.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

namespace tolmira {

QString CorDoTexto(const QString &numero) { return ColorToHex(RoundHalfEven(NumericPrefix(numero))); }

QString SombraTexto(const TemaRecord &tema, double k) {
  if (!tema.FontSombra_Enabled)
    return QStringLiteral(" 0px 0px 0px ");
  const auto pixels = [k](const QString &campo) { return QString(NumberText(ReadNumber(campo) * k) + u"px "); };
  return CorDoTexto(tema.FontSombra_Cor) + u' ' + pixels(tema.FontSombra_Right) + pixels(tema.FontSombra_Down) +
         pixels(tema.FontSombra_Blur);
}

QString ContornoTexto(const TemaRecord &tema) {
  const QString cor = CorDoTexto(tema.FontBorda_Cor);
  if (!tema.FontBorda_Enabled)
    return cor + u" 0px 0px 0px ";
  return cor + u" 0px 1px " + tema.FontBorda_Espessura + u"px ";
}

QString EstiloTexto(const TemaRecord &tema) {
  const QString inicio = u"font-family:" + tema.Font_Name + u"; color:" + CorDoTexto(tema.Font_Cor) + u"; text-shadow:";
  if (!tema.FontSombra_Enabled && !tema.FontBorda_Enabled)
    return inicio + u" rgba(0, 0, 0, 0) 0px 0px 0px ,rgba(0, 0, 0, 0) 0px 0px 0px;";
  return inicio + ContornoTexto(tema) + u',' + SombraTexto(tema, 1) + u';';
}

void AplicaEstiloTexto(PageObject *pagina, const TemaRecord &tema) {
  // A font name with an apostrophe must not end the script's string.
  CallPageScript(pagina, QStringLiteral("SetAttribute"), QStringLiteral("texto"), QStringLiteral("style"),
                 EscapaApostrofos(EstiloTexto(tema)));
}

QString LeAlinhamentoVertical(const IniStore &store) {
  const QString centro = QStringLiteral("center");
  const QString valor = store.ReadConfig(QStringLiteral("Config"), QStringLiteral("VerticalAlign"), centro);
  return valor == u"flex-start" || valor == u"flex-end" ? valor : centro;
}

QString AlfaFaixa(const QString &transparenciaFaixa) {
  if (NumericPrefix(transparenciaFaixa) >= 10)
    return QStringLiteral("1");
  return u"0." + transparenciaFaixa;
}

} // namespace tolmira
