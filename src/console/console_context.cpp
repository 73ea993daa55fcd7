#include "console/console_context.h"

#include "foundation/text_fields.h"

namespace tolmira {

void ConsoleContext::AjustaEstado() {
  const QSize tela = TelaPx();
  estado.TelaLarga = tela.height() <= 0 || static_cast<double>(tela.width()) / tela.height() > 1.34;
  estado.FonteTexto = FonteDoTema();
}

void ConsoleContext::ChamaPaginas(const QString &nome, const QString &a1, const QString &a2, const QString &a3,
                                  Alvo alvo) {
  if (alvo != Alvo::Previa)
    CallPageScript(Pagina(Alvo::Telao), nome, QString(a1), a2, a3);
  if (alvo != Alvo::Telao)
    CallPageScript(Pagina(Alvo::Previa), nome, QString(a1), a2, a3);
}

void ConsoleContext::ScriptNasPaginas(const QString &script, Alvo alvo) {
  for (const Alvo cada : {Alvo::Telao, Alvo::Previa})
    if (PageObject *pagina = alvo == cada || alvo == Alvo::Ambas ? Pagina(cada) : nullptr)
      pagina->ExecuteScript(script);
}

void ConsoleContext::SetPageStyle(const QString &element, const QString &property, const QString &value, Alvo alvo) {
  if (alvo != Alvo::Previa)
    canal.SendToDisplay(u"ChangeCSS|#" + element + u"|#" + property + u"|#" + value);
  if (alvo != Alvo::Telao)
    CallPageScript(previa(), QStringLiteral("ChangeCSS"), QString(element), property, value);
}

PageObject *ConsoleContext::Pagina(Alvo qual) const {
  if (qual == Alvo::Previa)
    return previa();
  Display *display = telao();
  return display ? display->WV() : nullptr;
}

void ConsoleContext::EnviaTamanhoDaFonte(Alvo alvo) {
  const double size = NumericPrefix(estado.FonteTamanho);
  const auto points = [](double value) -> QString { return QString::number(RoundHalfEven(value)) + u"pt"; };
  Display *display = telao();
  if (display && alvo != Alvo::Previa)
    CallPageScript(display->WV(), QStringLiteral("ChangeCSS"), QStringLiteral("set_text"),
                   QStringLiteral("font-size"), points(size));
  const int previewWidth = view ? view->PreviewWidthPx() : 0;
  if (display && alvo != Alvo::Telao && previewWidth > 0 && display->SizePx().width() > 0)
    CallPageScript(previa(), QStringLiteral("ChangeCSS"), QStringLiteral("set_text"), QStringLiteral("font-size"),
                   points(TamanhoNaPrevia(size, display->SizePx().width(), previewWidth)));
}

} // namespace tolmira
