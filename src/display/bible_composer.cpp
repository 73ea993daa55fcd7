#include "display/bible_composer.h"

#include "display/effects.h"
#include "display/text_style.h"
#include "display/verse_text.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

// The title lies a little higher over the text's edge on the projection than on the preview, whose title box has
// another proportion.
const QString TopoNoTelao = QStringLiteral("-3vw");
const QString TopoNaPrevia = QStringLiteral("-2.4vw");

const QString Normal = QStringLiteral(" fontNormal");
const QString Negrito = QStringLiteral(" fontBold");

// How a style from 2 to 6 opens its title and its text. Both go up to the point where the colours follow.
struct Moldura {
  QString titulo;      // class of the title
  QString lugarTitulo; // the rest of its style behind the background colour
  QString texto;       // opening of the text
};

Moldura MolduraDoEstilo(int estilo) {
  const QString largo =
      QStringLiteral("<div class='biblia2 [efeito] ") + Normal + u"' style='font-size:[fontsize]pt; color:";
  const auto recuado = [](QStringView classe) -> QString {
    return u"<div class='biblia2 " + classe + u" [efeito] " + Normal +
           u"' style='width:90%; left:5%; font-size:[fontsize]pt; color:";
  };
  switch (estilo) {
  case 2:
    return {u"titulo tituloQuadrado " + Negrito, QStringLiteral(";  top:[top]; left:8%;"), recuado(u"tituloQuadrado")};
  case 3:
    return {u"titulo tituloRedondo " + Negrito, QStringLiteral(";  top:[top]; left:8%;"), recuado(u"tituloRedondo")};
  case 4:
    return {u"titulo tituloQuadrado " + Negrito, QStringLiteral("; top:[top]; left:0;"), largo};
  case 5:
    return {u"titulo tituloRedondo " + Negrito, QStringLiteral("; top:[top]; left:-2vw;"), largo};
  case 6:
    return {u"titulo" + Negrito + u' ', QStringLiteral(";  top:[top]; left:5vw;"), largo};
  default:
    return {};
  }
}

QString PoeTamanho(QString html, const QString &tamanho, const QString &topo) {
  html.replace(QStringLiteral("[fontsize]"), tamanho);
  html.replace(QStringLiteral("[top]"), topo);
  // An apostrophe that was escaped in the text itself has two backslashes now.
  return html.replace(QStringLiteral("\\\\'"), QStringLiteral("\\'"));
}

} // namespace

QString RgbTexto(int cor) {
  const auto parte = [cor](int bits) { return QString::number((cor >> bits) & 0xFF); };
  return parte(0) + u',' + parte(8) + u',' + parte(16);
}

QString AlfaVerso(int sombraVerso) {
  return sombraVerso >= 10 ? QStringLiteral("1") : QString(u"0." + QString::number(sombraVerso));
}

BibleComposer::BibleComposer(EstadoConsole &estado, const AjustesTexto &ajustes, const LegendaBiblia &legenda,
                             DisplayChannel &canal, std::function<Display *()> telao,
                             std::function<PageObject *()> previa, std::function<int()> larguraPrevia,
                             RandomSource &random)
    : m_estado(estado), m_ajustes(ajustes), m_legenda(legenda), m_canal(canal), m_telao(std::move(telao)),
      m_previa(std::move(previa)), m_larguraPrevia(std::move(larguraPrevia)), m_random(random) {}

QString BibleComposer::MontaBiblia(const QString &verso, const QString &referencia, const QString &versao,
                                   const LegendaBiblia &legenda) const {
  const QString texto = TextoParaPagina(legenda.maiusculas ? verso.toUpper() : verso);
  const QString ref = TextoParaPagina(referencia + u" (" + versao + u')');
  const QString alinh =
      m_ajustes.AlinhamentoBiblia == 2 ? QStringLiteral("text-align:center;") : QStringLiteral("text-align:left;");
  const QString corTitulo = u"rgb(" + RgbTexto(legenda.fontColorTitulo) + u')';
  const QString fundoTitulo = u"rgb(" + RgbTexto(legenda.backColorTitulo) + u", 1)";
  const QString cores = CorDoTexto(m_estado.TemaAtual.Font_Cor) + u"; background-color: rgb(0,0,0," +
                        AlfaVerso(m_ajustes.SombraVerso) + u"); " + alinh + u"'><div style='width: 90%;'>" + texto +
                        u"</div></div>";

  QString html;
  if (m_ajustes.EstiloBiblia == 1) {
    html = u"<div class='biblia2 [efeito]" + Normal + u"' style='padding-top:2vw; font-size:[fontsize]pt; color:" +
           cores + u"  <div class='[efeito] " + Negrito + u"' style='font-size:[fontsize]pt;color:" + corTitulo +
           u"; background-color:rgb(0,0,0,0); text-align:right; padding-right:20%; padding-top:2vw;'>" + ref +
           u"</div>";
  } else if (const Moldura m = MolduraDoEstilo(m_ajustes.EstiloBiblia); !m.titulo.isEmpty()) {
    html = u"<div class='" + m.titulo + u"' style='font-size:[fontsize]pt;color:" + corTitulo +
           u"; background-color: " + fundoTitulo + m.lugarTitulo + u"'>" + ref + u"</div>" + m.texto + cores;
  }
  return html.replace(u'\'', QStringLiteral("\\'"));
}

void BibleComposer::ExibeBiblia(const QString &texto, const QString &referencia, const QString &tamanho, bool comEfeito,
                                bool soPrevia) {
  Exibe({texto, referencia, m_estado.VersaoBiblia}, tamanho, comEfeito, soPrevia ? Alvo::Previa : Alvo::Ambas);
}

void BibleComposer::ReenviaBiblia(const QString &tamanho, Alvo alvo) {
  if (!m_noTelao.referencia.isEmpty())
    Exibe(VersoNoTelao(m_noTelao), tamanho, false, alvo);
}

void BibleComposer::Exibe(const VersoNoTelao &verso, const QString &tamanho, bool comEfeito, Alvo alvo) {
  const QString h0 = MontaBiblia(verso.texto, verso.referencia, verso.versao, m_legenda);
  const QString slot = QStringLiteral("[efeito]");
  const QString semEfeito = QString(h0).remove(slot);
  QString h = semEfeito;
  if (comEfeito) {
    const TemaRecord &tema = m_estado.TemaAtual;
    const QString fx = EfeitoTexto(tema.Efeito_Texto_Fx, tema.Efeito_Texto_FxExtra, m_random);
    h = QString(h0).replace(slot, ClassesDeEntrada(fx, m_ajustes));
  }

  const double tam = NumericPrefix(tamanho);
  if (alvo != Alvo::Previa) {
    m_noTelao = verso;
    const QString html = PoeTamanho(h, NumberText(tam), TopoNoTelao);
    const QString plano = QString(verso.texto).remove(QStringLiteral("<br>"), Qt::CaseInsensitive);
    m_canal.SendToDisplay(u"UpdateText|#" + html + u"|#" + SemSeparador(plano) + u"|#" +
                          SemSeparador(verso.referencia) + u"|#");
  }

  const Display *telao = m_telao ? m_telao() : nullptr;
  const int larguraTelao = telao ? telao->SizePx().width() : 0;
  const int larguraPrevia = m_larguraPrevia ? m_larguraPrevia() : 0;
  const double escala = larguraTelao > 0 && larguraPrevia > 0 ? static_cast<double>(larguraPrevia) / larguraTelao : 1;
  const QString tam2 = QString::number(RoundHalfEven(tam * escala));
  if (alvo != Alvo::Telao)
    CallPageScript(m_previa ? m_previa() : nullptr, QStringLiteral("UpdateTextHtml"),
                   PoeTamanho(h, tam2, TopoNaPrevia));

  m_estado.VersoHtmlAtual = PoeTamanho(semEfeito, tam2, TopoNaPrevia);
  m_estado.VersoBibliaAtual = verso.texto;
}

} // namespace tolmira
