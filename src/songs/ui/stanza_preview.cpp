#include "songs/ui/stanza_preview.h"

#include "display/ui/web_page_host.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"
#include "songs/song_text.h"

#include <QShowEvent>

namespace tolmira {

namespace {

constexpr int FirstAnimatedStyle = 7;
constexpr QSize UsualProjection{1280, 720};
constexpr int PageSeconds = 8;

// As the composer gets it: "-" lines as empty ones, capitals by the theme.
QString VerseOf(const QString &stanza, const TemaRecord &tema) {
  const QString text = SplitStanzas(CleanSongText(stanza)).value(0);
  return QString(tema.Maiusculas ? text.toUpper() : text).replace(CRLF.toString(), QStringLiteral("<br>"));
}

} // namespace

StanzaPreview::StanzaPreview(const SongEditorDoors &doors, QWidget *parent)
    : QFrame(parent), m_telao(doors.telao), m_ajustes(doors.ajustes), m_canal(m_estado, [] { return nullptr; }),
      m_letras(
          m_estado, m_ajustes, m_canal, doors.telao, [] { return nullptr; }, doors.measure, doors.random),
      m_paginas(doors.store.App(), doors.store, m_estado, m_ajustes, m_canal, m_letras, Hosts(), doors.random,
                doors.yielder),
      m_host(new WebPageHost(QStringLiteral("editor"), this, doors.perfil)) {
  setObjectName(QStringLiteral("PicPreview"));
  setProperty("look", QStringLiteral("screen"));
  setMinimumSize(240, 137);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(tr("The stanza at the caret as the projection shows it"));
  m_host->setObjectName(QStringLiteral("PicWV"));
  m_host->setFocusPolicy(Qt::NoFocus);
  m_host->OnRecovered = [this] { Send(); };
}

PageBuilder::Hosts StanzaPreview::Hosts() {
  PageBuilder::Hosts hosts;
  hosts.telao = m_telao;
  hosts.larguraPrevia = [this] { return m_host->width(); };
  hosts.fonteDisplay = [this] { return m_base; };
  return hosts;
}

PageObject *StanzaPreview::WV() {
  return m_host->WV();
}

int StanzaPreview::TelaoWidth() const {
  const Display *display = m_telao ? m_telao() : nullptr;
  return display ? display->SizePx().width() : UsualProjection.width();
}

void StanzaPreview::Define(double tamanhoBase, const TemaRecord &tema, const AjustesTexto &ajustes) {
  const Display *display = m_telao ? m_telao() : nullptr;
  const QSize size = display ? display->SizePx() : UsualProjection;
  m_base = tamanhoBase;
  m_ajustes = ajustes;
  m_estado.TemaAtual = tema;
  m_estado.TelaLarga = size.height() <= 0 || static_cast<double>(size.width()) / size.height() > 1.34;
  m_estado.FonteTamanho = QString::number(RoundHalfEven(tamanhoBase));
}

VerseSize StanzaPreview::SizeOf(const QString &verse, double tamanhoBase, const TemaRecord &tema,
                                const AjustesTexto &ajustes) {
  Define(tamanhoBase, tema, ajustes);
  const QString base = m_estado.FonteTamanho;
  // In the animated layouts each line has a size of its own.
  if (ajustes.EstiloLouvor >= FirstAnimatedStyle)
    return {NumericPrefix(base), NumericPrefix(base)};
  const QString shown = VerseOf(verse, tema);
  const int lines = static_cast<int>(SplitText(shown, QStringLiteral("<br>")).size());
  return {m_letras.TamanhoEm(shown, lines) * NumericPrefix(base), m_letras.TamanhoEm({}, lines) * NumericPrefix(base)};
}

void StanzaPreview::Show(const QString &stanza, double tamanhoBase, const TemaRecord &tema,
                         const AjustesTexto &ajustes) {
  Define(tamanhoBase, tema, ajustes);
  m_stanza = stanza;
  if (!isVisible() || !m_host->WV())
    return;
  TemaRecord page = tema;
  page.Font_Size.clear(); // set by whoever builds a page; no reason to build this one anew
  if (!m_built || page != m_pageOf) {
    m_built = true;
    m_pageOf = page;
    m_host->WV()->Navigate(QString(u"file:///" + m_paginas.MontaPaginaConfig(m_host->size(), page, 1, QString())),
                           PageSeconds);
  }
  Send();
}

// The host keeps the scripts until a page that was just sent for is there.
void StanzaPreview::Send() {
  PageObject *page = m_host->WV();
  if (!page)
    return;
  const double points = TamanhoNaPrevia(NumericPrefix(m_estado.FonteTamanho), TelaoWidth(), m_host->width());
  CallPageScript(page, QStringLiteral("ChangeCSS"), QStringLiteral("set_text"), QStringLiteral("font-size"),
                 QString(NumberText(points) + u"pt"));
  page->ExecuteScript(u"SetAttributeByClass('textoContainer','style','justify-content: " +
                      m_ajustes.AlinhamentoVertical + u"')");
  const QString verse = VerseOf(m_stanza, m_estado.TemaAtual);
  // At rest: an effect at every key would make the page restless.
  QString html = m_letras.MontaVerso(verse).remove(QStringLiteral("[efeito]"));
  html.replace(QStringLiteral("\\\\'"), QStringLiteral("\\'"));
  CallPageScript(page, QStringLiteral("UpdateTextHtml"), verse.isEmpty() ? QString() : html);
}

void StanzaPreview::Fit() {
  const Display *display = m_telao ? m_telao() : nullptr;
  const QSize projection = display && !display->SizePx().isEmpty() ? display->SizePx() : UsualProjection;
  const int inside = width() - 2;
  const int height = inside * projection.height() / projection.width();
  setFixedHeight(height + 2);
  m_host->setGeometry(1, 1, inside, height);
}

void StanzaPreview::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  Fit();
  if (m_built)
    Send();
}

void StanzaPreview::showEvent(QShowEvent *event) {
  QFrame::showEvent(event);
  Fit();
  if (!m_host->WV())
    m_host->CriaBrowser();
}

} // namespace tolmira
