#include "songs/ui/stanza_preview.h"

#include "display/ui/web_page_host.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

constexpr int FirstAnimatedStyle = 7;
constexpr int PageSeconds = 8;

// As the composer gets it: "-" lines as empty ones, capitals by the theme.
QString VerseOf(const QString &stanza, const TemaRecord &tema) {
  const QString text = SplitStanzas(CleanSongText(stanza)).value(0);
  return QString(tema.Maiusculas ? text.toUpper() : text).replace(CRLF.toString(), QStringLiteral("<br>"));
}

} // namespace

StanzaPreview::StanzaPreview(const SongEditorDoors &doors, QWidget *parent)
    : ProjectionFrame(QStringLiteral("editor"), Altura::PelaLargura, doors.telao, doors.perfil, parent),
      m_ajustes(doors.ajustes), m_canal(m_estado, [] { return nullptr; }),
      m_letras(
          m_estado, m_ajustes, m_canal, doors.telao, [] { return nullptr; }, doors.measure, doors.random),
      m_paginas(doors.store.App(), doors.store, m_estado, m_ajustes, m_canal, m_letras, Hosts(doors.telao),
                doors.random, doors.yielder) {
  setMinimumSize(240, 137);
  setAccessibleName(tr("The stanza at the caret as the projection shows it"));
}

PageBuilder::Hosts StanzaPreview::Hosts(const std::function<Display *()> &telao) {
  PageBuilder::Hosts hosts;
  hosts.telao = telao;
  hosts.larguraPrevia = [this] { return PicWV()->width(); };
  hosts.fonteDisplay = [this] { return m_base; };
  return hosts;
}

PageObject *StanzaPreview::WV() {
  return PicWV()->WV();
}

void StanzaPreview::Define(double tamanhoBase, const TemaRecord &tema, const AjustesTexto &ajustes) {
  const QSize size = TamanhoDoTelao();
  m_base = tamanhoBase;
  m_ajustes = ajustes;
  m_estado.TemaAtual = tema;
  m_estado.TelaLarga = static_cast<double>(size.width()) / size.height() > 1.34;
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
  if (!isVisible() || !PicWV()->WV())
    return;
  TemaRecord page = tema;
  page.Font_Size.clear(); // set by whoever builds a page; no reason to build this one anew
  if (!m_built || page != m_pageOf) {
    m_built = true;
    m_pageOf = page;
    PicWV()->WV()->Navigate(QString(u"file:///" + m_paginas.MontaPaginaConfig(PicWV()->size(), page, 1, QString())),
                            PageSeconds);
  }
  Send();
}

// The host keeps the scripts until a page that was just sent for is there.
void StanzaPreview::Send() {
  PageObject *page = PicWV()->WV();
  if (!page)
    return;
  const double points =
      TamanhoNaPrevia(NumericPrefix(m_estado.FonteTamanho), TamanhoDoTelao().width(), PicWV()->width());
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

void StanzaPreview::Ajustada() {
  if (m_built)
    Send();
}

} // namespace tolmira
