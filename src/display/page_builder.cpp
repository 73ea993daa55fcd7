#include "display/page_builder.h"

#include <QFontDatabase>

#include "display/page_template.h"
#include "display/text_style.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

namespace tolmira {

namespace {

QString NomeDoModelo(const QString &tipo) {
  if (tipo == u"Imagem")
    return QStringLiteral("imagem.html");
  if (tipo == u"Video")
    return QStringLiteral("video.html");
  if (tipo == u"CorDeFundo")
    return QStringLiteral("backcolor.html");
  return QString();
}

QString TextoInteiro(double valor) { return QString::number(RoundHalfEven(valor)); }

QString ListaFechada(const QString &lista) { return lista.contains(u'|') ? lista : QString(lista + u'|'); }

void DefineFundo(Preenchimento &p, const TemaRecord &tema, bool emMovimento, RandomSource &random) {
  if (tema.Tipo == u"Imagem") {
    DefineImagens(p, tema,
                  {PageBuilder::ListaHtmlImagens(tema.Imagem), ContaImagens(ListaFechada(tema.Imagem)), 0, emMovimento},
                  random);
  } else if (tema.Tipo == u"CorDeFundo") {
    p.Define(u"backcolor", ColorToHex(tema.CordeFundo));
  } else if (tema.Tipo == u"Video") {
    const QString video = EnderecoDoArquivo(SplitField(tema.Video, QStringLiteral("|"), 1));
    p.Define(u"urlvideo", u"<source src='" + video + u"' type='video/mp4'>");
  }
}

} // namespace

PageBuilder::PageBuilder(const AppFolder &app, const IniStore &store, EstadoConsole &estado,
                         const AjustesTexto &ajustes, DisplayChannel &canal, LyricsComposer &letras, Hosts hosts,
                         RandomSource &random, Yielder &yielder)
    : m_app(app), m_store(store), m_estado(estado), m_ajustes(ajustes), m_canal(canal), m_letras(letras),
      m_hosts(std::move(hosts)), m_random(random), m_yielder(yielder) {}

QString PageBuilder::ListaHtmlImagens(const QString &lista) {
  const QStringList pedacos = ListaFechada(lista).split(u'|');
  QString html;
  for (qsizetype i = 0; i + 1 < pedacos.size(); ++i) {
    if (!pedacos[i].isEmpty())
      html += HtmlDaImagem(pedacos[i]);
  }
  return html;
}

void PageBuilder::MontaPagina(TemaRecord &tema, int posicao, int alvo) {
  tema.Font_Size = TextoInteiro(m_hosts.fonteDisplay());
  // Whatever runs during the yields may replace the record, and both pages shall show the same theme.
  const TemaRecord noInicio = tema;
  if (alvo != 2)
    MontaAlvo(noInicio, posicao, false);
  if (alvo != 1)
    MontaAlvo(noInicio, posicao, true);
  m_yielder.Yield(ConcessoesPorPagina);

  if (m_estado.EhLetra())
    m_letras.ExibeVerso(m_estado.EstrofeAtual, true);
  if (m_estado.TipoAtual == u"Bíblia" && m_ajustes.EstiloBiblia != 1 && m_hosts.exibeBiblia)
    m_hosts.exibeBiblia();
}

void PageBuilder::MontaAlvo(const TemaRecord &tema, int posicao, bool previa) {
  const Display *telao = m_hosts.telao ? m_hosts.telao() : nullptr;
  const int larguraTelao = telao ? telao->SizePx().width() : 0;
  const double escala = previa && larguraTelao > 0 ? m_hosts.larguraPrevia() / static_cast<double>(larguraTelao) : 1;

  const QString nome = NomeDoModelo(tema.Tipo);
  const QString modelo = LeModelo(m_app, nome);
  if (!nome.isEmpty())
    m_estado.PaginaAtual = nome;
  if (m_hosts.ajustaTelaFundo)
    m_hosts.ajustaTelaFundo(true);

  Preenchimento p;
  DefineFundo(p, tema, tema.MoveImagens && (!m_estado.ImagensCongeladas || !previa), m_random);
  p.Define(u"fadeimage", m_ajustes.FadeImagem ? QStringLiteral("1") : QStringLiteral("0"));
  p.Define(u"zoomimage", m_ajustes.ZoomImagem ? QStringLiteral("1") : QStringLiteral("0"));
  p.Define(u"letra", m_estado.TipoAtual == u"Slides" ? QStringLiteral("nada") : QString());
  p.Define(u"TransparenciaFaixa", TransparenciaInicial(posicao, previa));
  DefineComum(p, m_app, tema, m_estado.EstadoTela, escala);
  p.Define(u"VerticalAlign", LeAlinhamentoVertical(m_store));
  p.Define(u"ComandoInicial", QString());
  const double tamanho = NumericPrefix(tema.Font_Size);
  p.Define(u"fontsize",
           TextoInteiro(previa ? TamanhoNaPrevia(tamanho, larguraTelao, m_hosts.larguraPrevia()) : tamanho));

  // A template that cannot be read gives an empty page, which the host shows as black.
  const QString caminho = TempFolder() + (previa ? u"\\temp-pv.html" : u"\\temp.html");
  GravaPagina(caminho, p.Preenche(modelo));
  if (!previa)
    m_canal.SendToDisplay(u"CarregaTema|#file:///" + caminho);
  else if (PageObject *pagina = m_hosts.previa ? m_hosts.previa() : nullptr)
    pagina->Navigate(u"file:///" + caminho, TempoLimiteDaPagina);
  if (m_hosts.paginaMontada)
    m_hosts.paginaMontada(previa ? Alvo::Previa : Alvo::Telao);
  if (previa)
    m_yielder.Yield(ConcessoesPorPagina);
}

QString PageBuilder::TransparenciaInicial(int posicao, bool previa) const {
  const QString nenhuma = QStringLiteral("0.0");
  const bool biblia = m_estado.TipoAtual == u"Bíblia";
  if (m_estado.TipoAtual == u"Slides" || (previa && biblia && !m_estado.ReferenciaAtual.isEmpty()))
    return nenhuma;
  if (posicao >= 1)
    return QStringLiteral("0");
  return biblia || m_estado.VersoHtmlAtual.isEmpty() ? nenhuma : AlfaFaixa(m_ajustes.TransparenciaFaixa);
}

QString PageBuilder::MontaPaginaConfig(const QSize &host, TemaRecord &tema, int indiceCycle, const QString &html) {
  tema.Font_Size = TextoInteiro(m_hosts.fonteDisplay());

  Preenchimento p;
  DefineFundo(p, tema, tema.MoveImagens && !m_estado.ImagensCongeladas, m_random);
  if (tema.Tipo == u"Imagem")
    p.Define(u"timeoutimage", QStringLiteral("0"));
  DefineComum(p, m_app, tema, m_estado.EstadoTela, 1);
  p.Define(u"VerticalAlign", QStringLiteral("center"));
  p.Define(u"letra", QString());

  QString comando;
  if (!html.isEmpty()) {
    comando = u"\r\nUpdateTextHtml('" + html + u"');";
    if (indiceCycle != 1)
      comando += u"\r\n$('.slideshow').cycle(" + QString::number(indiceCycle) + u");";
  }
  p.Define(u"ComandoInicial", comando);
  p.Define(u"width", QString::number(host.width()) + u"px");
  p.Define(u"height", QString::number(host.height()) + u"px");
  p.Define(u"timeouttext", QStringLiteral("0"));
  p.Define(u"fontsize", QStringLiteral("36"));

  const QString caminho = TempFolder() + u"\\tempConfig.html";
  GravaPagina(caminho, p.Preenche(LeModelo(m_app, NomeDoModelo(tema.Tipo))));
  return caminho;
}

double TamanhoNaPrevia(double tamanho, int larguraTelao, int larguraPrevia) {
  if (larguraTelao <= 0 || larguraPrevia <= 0)
    return tamanho;
  return tamanho / (static_cast<double>(larguraTelao) / larguraPrevia);
}

QString FonteInstalada(const QString &nome) {
  return QFontDatabase::families().contains(nome) ? nome : QStringLiteral("Arial");
}

} // namespace tolmira
