#include "display/slide_pages.h"

#include "display/page_template.h"
#include "display/slide_html.h"
#include "display/text_style.h"
#include "foundation/code_page.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

constexpr int LarguraSemTelao = 1280; // px
constexpr int TamanhoBase = 36;       // points; every size of a slide's text stands in the slide's own HTML

// Slide n is picture n of the cycle, so a slide without a picture keeps its place by an element that shows nothing.
QString HtmlDasImagens(const SlideDocument &documento) {
  QString html;
  for (const Slide &slide : documento.slides)
    html += HtmlDaImagem(slide.Imagem);
  return html;
}

// What the pages of one document do not share.
struct FolhaDeSlides {
  QString letra;
  double tamanhoBase = TamanhoBase; // points
  double escala = 1;                // of the shadow
};

// Where the values come from that no document holds.
struct Fontes {
  const AppFolder &app;
  const IniStore &store;
  const EstadoConsole &estado;
  const AjustesTexto &ajustes;
  RandomSource &random;
};

QString Preenche(const Fontes &fontes, const SlideDocument &documento, int index, const QString &imagens,
                 const FolhaDeSlides &folha) {
  Preenchimento p;
  const TemaRecord &visual = documento.visual;
  const bool emMovimento = visual.MoveImagens && !fontes.estado.ImagensCongeladas;
  const int inicial = documento.Tem(index) ? index - 1 : 0;
  DefineImagens(p, visual, {imagens, documento.Count(), inicial, emMovimento}, fontes.random);
  p.Define(u"fadeimage", fontes.ajustes.FadeImagem ? QStringLiteral("1") : QStringLiteral("0"));
  p.Define(u"zoomimage", fontes.ajustes.ZoomImagem ? QStringLiteral("1") : QStringLiteral("0"));
  p.Define(u"TransparenciaFaixa", QStringLiteral("0.0"));
  DefineComum(p, fontes.app, visual, fontes.estado.EstadoTela, folha.escala);
  p.Define(u"VerticalAlign", LeAlinhamentoVertical(fontes.store));
  p.Define(u"ComandoInicial", QString());
  p.Define(u"letra", folha.letra);
  p.Define(u"fontsize", QString::number(RoundHalfEven(folha.tamanhoBase)));
  return p.Preenche(LeModelo(fontes.app, QStringLiteral("imagem.html")));
}

QString CaminhoDaPagina(bool previa) {
  return TempFolder() + (previa ? u"\\temp-pv.html" : u"\\temp.html");
}

} // namespace

SlidePages::SlidePages(const AppFolder &app, const IniStore &store, EstadoConsole &estado, const AjustesTexto &ajustes,
                       DisplayChannel &canal, PageBuilder::Hosts hosts, RandomSource &random, Yielder &yielder)
    : m_app(app), m_store(store), m_estado(estado), m_ajustes(ajustes), m_canal(canal), m_hosts(std::move(hosts)),
      m_random(random), m_yielder(yielder) {}

int SlidePages::LarguraPx(bool previa) const {
  if (previa)
    return m_hosts.larguraPrevia();
  const Display *telao = m_hosts.telao ? m_hosts.telao() : nullptr;
  return telao ? telao->SizePx().width() : LarguraSemTelao;
}

void SlidePages::CarregarSlides(const SlideDocument &documento, int index, int alvo) {
  // Whatever runs during the yields may replace the document, and both pages shall show the same one.
  const SlideDocument noInicio = documento;
  m_imagens = HtmlDasImagens(noInicio);
  m_estado.PaginaAtual = QStringLiteral("slide");
  if (alvo != 2)
    MontaAlvo(noInicio, index, false);
  if (alvo != 1)
    MontaAlvo(noInicio, index, true);
}

QString SlidePages::Pagina(const SlideDocument &documento, int index, bool previa) const {
  FolhaDeSlides folha;
  if (index >= 1)
    folha.letra = GetSlideTextoFormatado(documento, index, LarguraPx(previa), m_ajustes.TransparenciaFaixa);
  const int larguraTelao = LarguraPx(false);
  if (previa) {
    folha.tamanhoBase = TamanhoNaPrevia(TamanhoBase, larguraTelao, m_hosts.larguraPrevia());
    folha.escala = larguraTelao > 0 ? m_hosts.larguraPrevia() / static_cast<double>(larguraTelao) : 1;
  }
  return Preenche({m_app, m_store, m_estado, m_ajustes, m_random}, documento, index, m_imagens, folha);
}

void SlidePages::MontaAlvo(const SlideDocument &documento, int index, bool previa) {
  const QString caminho = CaminhoDaPagina(previa);
  GravaPagina(caminho, Pagina(documento, index, previa));
  if (!previa) {
    m_canal.SendToDisplay(u"CarregaTema|#" + caminho);
    return;
  }
  if (PageObject *pagina = m_hosts.previa ? m_hosts.previa() : nullptr)
    pagina->Navigate(u"file:///" + caminho, TempoLimiteDaPagina);
  m_yielder.Yield(ConcessoesPorPagina);
}

void SlidePages::AnotaPaginas(const SlideDocument &documento, int index) {
  for (const bool previa : {false, true})
    ReplaceFile(CaminhoDaPagina(previa), EncodePage(Pagina(documento, index, previa)));
}

QString MontaPaginaDoEditor(const AppFolder &app, const IniStore &store, const EstadoConsole &estado,
                            const AjustesTexto &ajustes, const SlideDocument &documento, int index, const QString &html,
                            RandomSource &random) {
  FolhaDeSlides folha;
  folha.letra = html;
  const QString caminho = TempFolder() + u"\\temp-ts.html";
  GravaPagina(caminho,
              Preenche({app, store, estado, ajustes, random}, documento, index, HtmlDasImagens(documento), folha));
  return caminho;
}

} // namespace tolmira
