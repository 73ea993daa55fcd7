#include "display/display_channel.h"

#include <QLoggingCategory>
#include <QRegularExpression>

namespace tolmira {

namespace {
Q_LOGGING_CATEGORY(logDisplay, "tolmira.display", QtWarningMsg)
} // namespace

DisplayChannel::DisplayChannel(const EstadoConsole &estado, std::function<Display *()> display)
    : m_estado(estado), m_display(std::move(display)) {}

void DisplayChannel::SendToDisplay(const QString &comando) {
  if (!m_estado.TelaPronta)
    return;
  if (CriaTelao && m_display && !m_display())
    CriaTelao();
  Display *display = m_display ? m_display() : nullptr;
  if (!display)
    return;
  // The observers hear of the command first, so that their record shows it ahead of the scripts it causes.
  for (DisplayObserver *observer : m_observers)
    observer->OnCommand(comando);
  qCDebug(logDisplay).noquote() << comando;
  display->ProcessaComando(comando);
}

void DisplayChannel::AddObserver(DisplayObserver *observer) { m_observers.push_back(observer); }

void CallPageScript(PageObject *pagina, const QString &nome, QString &a1, const QString &a2, const QString &a3,
                    const QString &a4, const QString &a5, const QString &a6, const QString &a7) {
  if (nome == u"UpdateTextHtml")
    a1.remove(QStringLiteral("\r\n"));
  if (!pagina)
    return;

  if (nome == u"ExibeAviso")
    pagina->ExecuteScript(u"ExibeAviso('" + a1 + u"','" + a2 + u"','" + a3 + u"','" + a4 + u"','" + a5 + u"','" + a6 +
                          u"','" + a7 + u"')");
  else if (nome == u"StartCycle")
    pagina->ExecuteScript(QStringLiteral("StartCycle()"));
  else if (nome == u"ChangeCSS" || nome == u"SetAttribute")
    pagina->ExecuteScript(nome + u"('" + a1 + u"','" + a2 + u"','" + a3 + u"')");
  else if (nome == u"ChangeinnerHTML")
    pagina->SetPageProperty(u"document.getElementById('" + a1 + u"').innerHTML", a2);
  else if (nome == u"GotoSlideImage")
    pagina->ExecuteScript(u"GotoSlideImage(" + a1 + u")");
  else if (nome == u"GotoNextImage")
    pagina->ExecuteScript(QStringLiteral("GotoNextImage()"));
  else if (nome == u"ChangeOptions")
    pagina->ExecuteScript(u"ChangeOptions('" + a1 + u"','" + a2 + u"')");
  else if (nome == u"UpdateTextHtml")
    pagina->ExecuteScript(u"UpdateTextHtml('" + a1 + u"')");
}

void CallPageScript(PageObject *pagina, const QString &nome, QString &&a1, const QString &a2, const QString &a3,
                    const QString &a4, const QString &a5, const QString &a6, const QString &a7) {
  CallPageScript(pagina, nome, a1, a2, a3, a4, a5, a6, a7);
}

QString LiteralDeScript(QString texto) {
  texto.replace(u'\\', QStringLiteral("\\\\"));
  texto.replace(u'\'', QStringLiteral("\\'"));
  texto.replace(u'\r', QStringLiteral("\\r"));
  texto.replace(u'\n', QStringLiteral("\\n"));
  texto.replace(QChar::LineSeparator, QStringLiteral("\\u2028"));
  texto.replace(QChar::ParagraphSeparator, QStringLiteral("\\u2029"));
  return texto;
}

QString EscapaApostrofos(QString texto) {
  static const QRegularExpression unescaped(QStringLiteral("(?<!\\\\)'"));
  return texto.replace(unescaped, QStringLiteral("\\'"));
}

} // namespace tolmira
