#include "slides/ui/slide_preview.h"

#include "display/display_channel.h"
#include "display/effects.h"
#include "display/page_builder.h"
#include "display/page_template.h"
#include "display/slide_html.h"
#include "display/slide_pages.h"
#include "display/text_style.h"
#include "display/ui/web_page_host.h"

namespace tolmira {

namespace {

QStringList ImagensDe(const SlideDocument &documento) {
  QStringList imagens;
  for (const Slide &slide : documento.slides)
    imagens.append(slide.Imagem);
  return imagens;
}

QString EfeitoDe(const TemaRecord &visual) {
  return visual.Efeito_Imagem_Fx + u'/' + visual.Efeito_Imagem_FxExtra;
}

} // namespace

SlidePreview::SlidePreview(const SlideDoors &doors, QWidget *parent)
    : ProjectionFrame(QStringLiteral("slides"), Altura::Livre, doors.telao, doors.perfil, parent),
      m_app(doors.store.App()), m_store(doors.store), m_estado(doors.estado), m_ajustes(doors.ajustes),
      m_random(doors.random) {
  setMinimumSize(320, 182);
  setAccessibleName(tr("The slide as the projection shows it"));
}

void SlidePreview::Mostra(const SlideDocument &documento, int index) {
  m_documento = documento;
  m_documento.visual.Font_Name = FonteInstalada(documento.visual.Font_Name);
  m_index = index;
  Conta();
}

QString SlidePreview::Html(const QString &efeito) const {
  if (!m_documento.Tem(m_index))
    return QString();
  return GetSlideTexto_Formatado(m_documento, m_index, PicWV()->width(), m_ajustes.TransparenciaFaixa, efeito,
                                 m_documento.Em(m_index).incluirTexto == 1);
}

bool SlidePreview::Move() const {
  return m_documento.visual.MoveImagens && !m_estado.ImagensCongeladas;
}

void SlidePreview::Navega() {
  PageObject *page = PicWV()->WV();
  if (!isVisible() || !page)
    return;
  m_contado = {true,     ImagensDe(m_documento),          m_index,
               Html({}), EstiloTexto(m_documento.visual), EfeitoDe(m_documento.visual),
               Move()};
  EstadoConsole estado; // the text can be seen here while it is hidden on the projection
  estado.ImagensCongeladas = m_estado.ImagensCongeladas;
  const QString path = m_contado.imagens.isEmpty() ? m_app.At(u"\\html\\emptyback.html")
                                                   : MontaPaginaDoEditor(m_app, m_store, estado, m_ajustes, m_documento,
                                                                         m_index, m_contado.html, m_random);
  page->Navigate(u"file:///" + path, TempoLimiteDaPagina);
}

void SlidePreview::Conta() {
  PageObject *page = PicWV()->WV();
  if (!isVisible() || !page)
    return;
  if (!m_contado.montada || ImagensDe(m_documento) != m_contado.imagens) {
    Navega();
    return;
  }
  if (m_contado.imagens.isEmpty())
    return;
  const TemaRecord &visual = m_documento.visual;
  if (m_index != m_contado.index) {
    m_contado.index = m_index;
    CallPageScript(page, QStringLiteral("GotoSlideImage"), QString::number(m_index - 1));
  }
  if (const QString estilo = EstiloTexto(visual); estilo != m_contado.estilo) {
    m_contado.estilo = estilo;
    AplicaEstiloTexto(page, visual);
  }
  if (const QString efeito = EfeitoDe(visual); efeito != m_contado.efeito) {
    m_contado.efeito = efeito;
    CallPageScript(page, QStringLiteral("ChangeOptions"), QStringLiteral("fx"),
                   EfeitoCycle(visual.Efeito_Imagem_Fx, visual.Efeito_Imagem_FxExtra, m_random));
  }
  if (Move() != m_contado.move) {
    m_contado.move = Move();
    CallPageScript(page, QStringLiteral("ChangeCSS"), QStringLiteral("img"), QStringLiteral("animation-play-state"),
                   m_contado.move ? QStringLiteral("running") : QStringLiteral("paused"));
  }
  if (const QString html = Html({}); html != m_contado.html)
    MandaTexto(html);
}

void SlidePreview::MandaTexto(const QString &html) {
  m_contado.html = html;
  CallPageScript(PicWV()->WV(), QStringLiteral("UpdateTextHtml"), EscapaApostrofos(html));
}

void SlidePreview::Entrada() {
  const TemaRecord &visual = m_documento.visual;
  if (m_contado.montada && m_documento.Tem(m_index))
    MandaTexto(
        Html(ClassesDeEntrada(EfeitoTexto(visual.Efeito_Texto_Fx, visual.Efeito_Texto_FxExtra, m_random), m_ajustes)));
}

void SlidePreview::Saida() {
  if (m_contado.montada && m_documento.Tem(m_index))
    MandaTexto(Html(ClassesDeEntrada(m_documento.visual.Efeito_Texto_FxOut, m_ajustes)));
}

void SlidePreview::Exibida() {
  Conta();
}

void SlidePreview::Ajustada() {
  if (m_contado.montada)
    Conta();
}

void SlidePreview::Recuperada() {
  m_contado.montada = false;
  Conta();
}

} // namespace tolmira
