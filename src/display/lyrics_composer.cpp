#include "display/lyrics_composer.h"

#include <cmath>

#include "display/animated_layouts.h"
#include "display/effects.h"
#include "display/verse_text.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

constexpr int PrimeiroEstiloAnimado = 7;
constexpr double AumentoQuatroTerco = 1.3; // a narrower screen takes a larger text in proportion
constexpr double PixelsPorPonto = 96.0 / 72;

const QString &SlotEfeito() {
  static const QString slot = QStringLiteral("[efeito]");
  return slot;
}

// What a style from 2 to 6 adds to the style attribute of its bands.
QString ExtraDaFaixa(int estilo, int fontSizeClass) {
  switch (estilo) {
  case 2:
    return QStringLiteral("min-width: 80%; border-radius: 1.6vw; ");
  case 3:
    return QStringLiteral("min-width: auto; border-radius: 1.6vw; padding:1.2vw; padding-left:2vw; padding-right:2vw;");
  case 4: {
    const QStringView largura = fontSizeClass == 0 ? u"50%" : fontSizeClass == 1 ? u"60%" : u"70%";
    return u"min-width: " + largura + u" ;";
  }
  case 5:
    return QStringLiteral("border-radius: 1.2vw; ");
  case 6:
    return QStringLiteral("min-width: auto; border-radius: 1.5vw; padding-left:1.2vw; padding-right:1.2vw;");
  default:
    return QString();
  }
}

} // namespace

QStringList CarregaEstrofes(const QString &texto) {
  const QString fim = CRLF.toString();
  const QString corte = QStringLiteral("@#@");
  QString t = NormalizeLineEnds(texto);
  for (int i = 0; i < 10; ++i)
    t.replace(fim + fim + fim, fim + fim);
  t.replace(fim + fim, corte);
  t = TrimAll(t);
  t.replace(fim, QStringLiteral("<br>"));
  return SplitText(t, corte);
}

LyricsComposer::LyricsComposer(EstadoConsole &estado, const AjustesTexto &ajustes, DisplayChannel &canal,
                               std::function<Display *()> telao, std::function<PageObject *()> previa,
                               TextMeasure &measure, RandomSource &random)
    : m_estado(estado), m_ajustes(ajustes), m_canal(canal), m_telao(std::move(telao)), m_previa(std::move(previa)),
      m_measure(measure), m_random(random) {}

void LyricsComposer::ExibeVerso(int posicao, bool comEfeito) {
  if (posicao == -1)
    return;
  const TemaRecord &tema = m_estado.TemaAtual;
  const QString fx = EfeitoTexto(tema.Efeito_Texto_Fx, tema.Efeito_Texto_FxExtra, m_random);
  const QString verso = m_estado.TextoEstrofes.value(posicao - 1);
  const bool animado = m_ajustes.EstiloLouvor >= PrimeiroEstiloAnimado;

  QString h = MontaComSlots(verso);
  QString semEfeito = h;
  semEfeito.remove(SlotEfeito());
  // Each line of an animated layout names an effect of its own already.
  const QString efeito = animado ? QString(u"animated" + ExtrasDeEntrada(m_ajustes)) : ClassesDeEntrada(fx, m_ajustes);
  h.replace(SlotEfeito(), comEfeito ? efeito : QString());

  if (verso == m_estado.VersoTextoAtual) {
    Envia(semEfeito, verso);
  } else {
    // This draw changes nothing that is sent. It stays because the draws behind it would come out otherwise.
    if (animado)
      SorteiaEfeito(ListaEfeitosSelecionados, m_random);
    Envia(h, verso);
  }
  m_estado.VersoHtmlAtual = h;
  m_estado.VersoTextoAtual = verso;
}

void LyricsComposer::ReenviaVerso(Alvo alvo) {
  if (m_estado.VersoHtmlAtual.isEmpty())
    return;
  QString html = MontaComSlots(m_estado.VersoTextoAtual).remove(SlotEfeito());
  Envia(html, m_estado.VersoTextoAtual, alvo);
}

// An apostrophe that the song's author escaped has two backslashes when it comes out of MontaVerso.
QString LyricsComposer::MontaComSlots(const QString &verso) {
  return MontaVerso(verso).replace(QStringLiteral("\\\\'"), QStringLiteral("\\'"));
}

void LyricsComposer::Envia(QString &html, const QString &verso, Alvo alvo) {
  if (alvo != Alvo::Previa)
    m_canal.SendToDisplay(u"UpdateText|#" + html + u"|#|#|#" + SemSeparador(verso));
  if (alvo != Alvo::Telao)
    CallPageScript(m_previa ? m_previa() : nullptr, QStringLiteral("UpdateTextHtml"), html);
}

QString LyricsComposer::MontaVerso(const QString &verso) {
  if (m_ajustes.EstiloLouvor >= PrimeiroEstiloAnimado)
    return EscapaApostrofos(MontaAnimado(verso));

  const QString texto = TextoParaPagina(verso);
  const QStringList linhas = SplitText(texto, QStringLiteral("<br>"));
  const int quantas = static_cast<int>(linhas.size());
  // Long verses mostly come in as one block, short ones line by line. The draw is made for every verse.
  const bool emBloco = Chance(80) && quantas > 3;
  const QString efeitoBloco = emBloco ? SlotEfeito() : QString();
  const QString efeitoLinha = emBloco ? QString() : SlotEfeito();

  const QString em = NumberText(TamanhoEm(verso, quantas));
  const QString alturaLinha = AlturaLinha(quantas);
  const QString alfa = AlfaFaixa(m_ajustes.TransparenciaFaixa);
  const int estilo = m_ajustes.EstiloLouvor;

  QString html;
  if (estilo == 1) {
    const bool centrado = m_ajustes.Alinhamento == 2;
    // A bare "%" is no length, so the page keeps its own padding for centred text.
    html = u"<div class='verso [efeito]' id='verso' style='line-height:" + alturaLinha + u"; text-align:" +
           (centrado ? u"center" : u"left") + u"; font-size:" + em + u"em; background-color:rgb(0,0,0," + alfa +
           u"); padding-left:" + (centrado ? u"%" : u"2%") + u";'>" + texto + u"</div>";
  } else {
    const QString faixa = u"<div class='textbackgroundDiv " + efeitoLinha + u"' style='font-size:" + em +
                          u"em; background-color:rgb(0,0,0," + alfa + u"); " +
                          ExtraDaFaixa(estilo, m_ajustes.FontSizeClass) + u"'>";
    html = u"<div class='textbackground " + efeitoBloco + u"' style='line-height:" + alturaLinha + u";'>";
    if (estilo == 2 || estilo == 3) {
      html += faixa + texto + u"</div>";
    } else {
      for (const QString &linha : linhas)
        html += faixa + u"<div class=''>" + linha + u"</div></div>";
    }
    html += u"</div>";
  }
  return html.replace(u'\'', QStringLiteral("\\'"));
}

QString LyricsComposer::MontaAnimado(const QString &texto) {
  const QStringList linhas = SplitText(texto, QStringLiteral("<br>"));
  const double f = NumericPrefix(m_estado.FonteTamanho);
  const Display *telao = m_telao ? m_telao() : nullptr;
  // The page keeps a free margin above and below. Without a display no height is the limit.
  const double altura = telao ? 0.84 * telao->SizePx().height() : 1e6;
  const double aumento = TelaQuatroTerco() ? AumentoQuatroTerco : 1; // AjustaFonte applies it, the limit must hold

  LayoutAnimado layout;
  layout.estilo = m_ajustes.EstiloLouvor;
  layout.alturaLinha = AlturaLinha(static_cast<int>(linhas.size()));
  layout.alfa = AlfaFaixa(m_ajustes.TransparenciaFaixa);
  layout.efeito = SorteiaEfeito(ListaEfeitosSelecionados, m_random);
  layout.alturaEm = f > 0 ? altura / (f * PixelsPorPonto) : 0;
  layout.tamanho = [&](const QString &linha, double percentual, double maximoEm) {
    return AjustaFonteTexto(linha, f, percentual, f * maximoEm / aumento);
  };
  return MontaLayoutAnimado(linhas, layout);
}

double LyricsComposer::TamanhoEm(const QString &texto, int linhas) {
  QString plano = texto;
  plano.replace(QStringLiteral("<br>"), CRLF.toString());
  const double f = NumericPrefix(m_estado.FonteTamanho);
  const bool muitasLinhas = linhas > 5 && !TelaQuatroTerco();

  if (m_ajustes.AlinhamentoVertical != u"center")
    return muitasLinhas ? 1.1 : AjustaFonte(plano, f, 86, f * 1.4);
  if (m_ajustes.FontSizeClass == 2)
    return muitasLinhas ? 0.98 : AjustaFonte(plano, f, 84, f * 1.26);
  if (m_ajustes.FontSizeClass == 1)
    return muitasLinhas ? 1.1 : AjustaFonte(plano, f, 84, f * 1.3);
  return AjustaFonte(plano, f, 84, f * 1.3);
}

double LyricsComposer::AjustaFonte(const QString &texto, double base, double percentual, double tamanho) {
  if (base <= 0)
    return 0;
  if (TelaQuatroTerco())
    tamanho *= AumentoQuatroTerco;

  double resultado = tamanho;
  if (const Display *telao = m_telao ? m_telao() : nullptr) {
    const int alvo = RoundHalfEven(percentual / 100 * telao->SizePx().width());
    const double largura = m_measure.Width(texto, FontSpec{m_estado.TemaAtual.Font_Name, tamanho, true});
    if (largura > alvo)
      resultado = alvo / largura * tamanho;
  }
  // Decimal factors such as 1.26 have no exact binary form, and a product that should be 126 can come out a hair
  // below it. The hair is added before the cut, or such a size would lose a hundredth.
  constexpr double UmFio = 1e-9;
  return std::floor(resultado / base * 100 + UmFio) / 100;
}

QString LyricsComposer::AjustaFonteTexto(const QString &texto, double base, double percentual, double tamanho) {
  return NumberText(AjustaFonte(texto, base, percentual, tamanho));
}

QString LyricsComposer::AlturaLinha(int linhas) const {
  const bool animado = m_ajustes.EstiloLouvor >= PrimeiroEstiloAnimado;
  if (linhas == 1 || linhas == 2)
    return QStringLiteral("1.5");
  if (linhas == 3 || linhas == 4)
    return animado ? QStringLiteral("1.3") : QStringLiteral("1.2");
  return animado ? QStringLiteral("1.2") : QStringLiteral("1");
}

bool LyricsComposer::Chance(int pct) { return static_cast<int>(m_random.Draw() * 100) + 1 < pct; }

void LyricsComposer::MostraEfeitoSaida(PageObject *pagina, const QString &fx, const QString &texto, QString &saida) {
  saida.clear();
  // The second tag opens where it should close. Browsers repair that.
  CallPageScript(pagina, QStringLiteral("UpdateTextHtml"),
                 u"<div class=\\'animated " + fx + u" faster\\'>" + texto + u"<div>");
}

bool LyricsComposer::TelaQuatroTerco() const { return !m_estado.TelaLarga; }

} // namespace tolmira
