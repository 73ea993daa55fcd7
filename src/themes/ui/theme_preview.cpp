#include "themes/ui/theme_preview.h"

#include "display/effects.h"
#include "display/text_style.h"
#include "display/ui/web_page_host.h"
#include "foundation/text_utils.h"

#include <QEventLoop>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

namespace tolmira {

namespace {

constexpr int PageSeconds = 8;
constexpr int PatienceMs = 2000; // for a page's picture, before the theme is saved with what there is
constexpr int LookMs = 20;
constexpr double PageFontPt = 36;
constexpr int PageWidth = 480; // px; the letters have their measure on it, so a larger preview magnifies the page

// The family as a quoted name in a style attribute: a name may begin with a digit or hold an apostrophe.
QString QuotedFamily(const QString &nome) {
  return u"&quot;" +
         EscapeHtml(nome).remove(u'"').replace(u'\\', QStringLiteral("&#92;")).replace(u'\'', QStringLiteral("&#39;")) +
         u"&quot;";
}

// Text of the operator's between the quotes of a script.
QString PlainText(const QString &texto) {
  return EscapeHtml(texto).replace(u'\\', QStringLiteral("&#92;")).replace(u'\'', QStringLiteral("&#39;"));
}

} // namespace

ThemePreview::ThemePreview(const ThemeEditorDoors &doors, QWidget *parent)
    : ProjectionFrame(QStringLiteral("theme"), Altura::Livre, doors.telao, doors.perfil, parent), m_telao(doors.telao),
      m_random(doors.random), m_canal(m_estado, [] { return nullptr; }),
      m_letras(
          m_estado, m_ajustes, m_canal, doors.telao, [] { return nullptr; }, doors.measure, doors.random),
      m_paginas(doors.store.App(), doors.store, m_estado, m_ajustes, m_canal, m_letras, Hosts(), doors.random,
                doors.yielder) {
  setMinimumSize(320, 182);
  setAccessibleName(tr("The theme as the projection shows it"));
}

PageBuilder::Hosts ThemePreview::Hosts() {
  PageBuilder::Hosts hosts;
  hosts.telao = m_telao;
  hosts.larguraPrevia = [] { return PageWidth; };
  hosts.fonteDisplay = [] { return PageFontPt; };
  return hosts;
}

QString ThemePreview::Html(const TemaRecord &tema, const QString &texto, const QString &classes) const {
  TemaRecord nomeado = tema;
  nomeado.Font_Name = QuotedFamily(tema.Font_Name);
  return EscapaApostrofos(u"<div class='" + classes + u"' style='" + EstiloTexto(nomeado) + u"'>" + PlainText(texto) +
                          u"</div>");
}

void ThemePreview::Monta(const TemaRecord &tema, const QString &texto) {
  m_tema = tema;
  m_texto = texto;
  Navega();
}

void ThemePreview::Navega() {
  PageObject *page = PicWV()->WV();
  if (!isVisible() || !page)
    return;
  m_montada = true;
  TemaRecord tema = m_tema;
  const QString path = m_paginas.MontaPaginaConfig(PicWV()->size() / Escala(), tema, 1, Html(tema, m_texto, {}));
  const int carga = ++m_carga;
  page->Navigate(u"file:///" + path, PageSeconds);
  page->Evaluate(QStringLiteral("document.readyState"),
                 [this, carga, alive = QPointer<ThemePreview>(this)](const QString &) {
                   if (alive)
                     m_pronta = carga;
                 });
}

void ThemePreview::EfeitoDaImagem(const TemaRecord &tema) {
  CallPageScript(PicWV()->WV(), QStringLiteral("ChangeOptions"), QStringLiteral("fx"),
                 EfeitoCycle(tema.Efeito_Imagem_Fx, tema.Efeito_Imagem_FxExtra, m_random));
}

void ThemePreview::Intervalo(int posicao) {
  CallPageScript(PicWV()->WV(), QStringLiteral("ChangeOptions"), QStringLiteral("timeout"),
                 posicao > 0 ? QString::number(posicao) : QString());
}

void ThemePreview::Filtros(const TemaRecord &tema) {
  if (PageObject *page = PicWV()->WV())
    page->ExecuteScript(QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(%1px) brightness(%2%) "
                                       "contrast(%3%) saturate(%4%)')")
                            .arg(tema.blur)
                            .arg(tema.brightness)
                            .arg(tema.contrast)
                            .arg(tema.saturate));
}

void ThemePreview::CorDeFundo(const TemaRecord &tema) {
  CallPageScript(PicWV()->WV(), QStringLiteral("SetAttribute"), QStringLiteral("wheader"), QStringLiteral("style"),
                 u"background-color:" + ColorToHex(tema.CordeFundo));
}

void ThemePreview::Movimento(const TemaRecord &tema) {
  CallPageScript(PicWV()->WV(), QStringLiteral("ChangeCSS"), QStringLiteral("img"),
                 QStringLiteral("animation-play-state"),
                 tema.MoveImagens ? QStringLiteral("running") : QStringLiteral("paused"));
}

void ThemePreview::Texto(const TemaRecord &tema, const QString &texto) {
  CallPageScript(PicWV()->WV(), QStringLiteral("UpdateTextHtml"), Html(tema, texto, {}));
}

void ThemePreview::Entrada(const TemaRecord &tema, const QString &texto) {
  const QString fx = EfeitoTexto(tema.Efeito_Texto_Fx, tema.Efeito_Texto_FxExtra, m_random);
  CallPageScript(PicWV()->WV(), QStringLiteral("UpdateTextHtml"), Html(tema, texto, u"animated " + fx + u" faster"));
}

void ThemePreview::Saida(const TemaRecord &tema, const QString &texto) {
  QString nenhuma;
  m_letras.MostraEfeitoSaida(PicWV()->WV(), tema.Efeito_Texto_FxOut, PlainText(texto), nenhuma);
}

void ThemePreview::GotoSlideImage(int posicao) {
  CallPageScript(PicWV()->WV(), QStringLiteral("GotoSlideImage"), QString::number(posicao - 1));
}

QImage ThemePreview::Retrato(const TemaRecord &tema, const QString &texto) {
  if (!m_montada || !PicWV()->WV())
    return {};
  Espera([this] { return m_pronta == m_carga; });
  Texto(tema, texto); // an effect may just have it out of sight
  m_quieta = false;
  PicWV()->WV()->ExecuteScript(QStringLiteral(
      "document.documentElement.dataset.quieta = ''; $(':animated').finish();"
      "requestAnimationFrame(() => requestAnimationFrame(() => document.documentElement.dataset.quieta = '1'))"));
  Espera([this] {
    PicWV()->WV()->Evaluate(QStringLiteral("document.documentElement.dataset.quieta"),
                            [this, alive = QPointer<ThemePreview>(this)](const QString &json) {
                              if (alive)
                                m_quieta = json == u"\"1\"";
                            });
    return m_quieta && !PicWV()->IsHolding();
  });
  return PicWV()->grab().toImage();
}

void ThemePreview::Espera(const std::function<bool()> &pronto) {
  QEventLoop loop;
  QTimer look;
  connect(&look, &QTimer::timeout, &loop, [&] {
    if (pronto())
      loop.quit();
  });
  look.start(LookMs);
  QTimer::singleShot(PatienceMs, &loop, &QEventLoop::quit);
  if (!pronto())
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

QImage ThemePreview::AoLadoDoTexto() const {
  if (!m_montada || m_pronta != m_carga || PicWV()->IsHolding())
    return {};
  const QImage page = PicWV()->grab().toImage();
  // One line of sample text leaves these rows free.
  const int strip = page.height() * 16 / 100;
  QImage beside(page.width(), 2 * strip, QImage::Format_RGB32);
  QPainter painter(&beside);
  painter.drawImage(QPoint(), page, QRect(0, page.height() * 22 / 100, page.width(), strip));
  painter.drawImage(QPoint(0, strip), page, QRect(0, page.height() * 62 / 100, page.width(), strip));
  painter.end();
  return beside.scaled(96, 2 * 9, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void ThemePreview::Ajustada() {
  if (PageObject *object = PicWV()->WV())
    object->SetZoomFactor(Escala());
}

double ThemePreview::Escala() const {
  return PicWV()->width() / double(PageWidth);
}

void ThemePreview::Exibida() {
  if (!m_montada)
    Navega();
}

} // namespace tolmira
