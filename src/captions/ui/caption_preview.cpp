#include "captions/ui/caption_preview.h"

#include "display/ui/web_page_host.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {
constexpr int PageSeconds = 8;
}

CaptionPreview::CaptionPreview(const AppFolder &app, const PageProfile &perfil, QWidget *parent)
    : ProjectionFrame(
          QStringLiteral("captions"), Altura::PelaLargura, [] { return nullptr; }, perfil, parent),
      m_pagina(app.At(u"\\html\\legendaPreview.html")) {
  setMinimumWidth(480);
  setAccessibleName(tr("The caption as the broadcast shows it"));
}

void CaptionPreview::Mostra(const QString &html) {
  m_html = html;
  if (m_navegou)
    Diz();
}

void CaptionPreview::Diz() {
  PageObject *page = PicWV()->WV();
  if (!page)
    return;
  const QString html = QString(m_html).replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
  page->ExecuteScript(u"ChangeinnerHTML('" + html + u"')");
}

void CaptionPreview::Navega() {
  PageObject *page = PicWV()->WV();
  if (!page)
    return;
  m_navegou = true;
  page->Navigate(PagePath(m_pagina), PageSeconds);
  Diz();
}

void CaptionPreview::Exibida() {
  if (!m_navegou)
    Navega();
}

void CaptionPreview::Recuperada() {
  Navega();
}

} // namespace tolmira
