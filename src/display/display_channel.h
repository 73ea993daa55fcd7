#pragma once

#include <QString>

#include <functional>
#include <vector>

#include "display/display_seams.h"
#include "display/estado.h"

namespace tolmira {

// The first road to the screen: one command string, acted on before the call returns.
class DisplayChannel {
public:
  // `display` gives the projection window, null while there is none.
  DisplayChannel(const EstadoConsole &estado, std::function<Display *()> display);

  // Drops the command without a word while TelaPronta is false.
  void SendToDisplay(const QString &comando);
  void AddObserver(DisplayObserver *observer); // not owned; outlives the channel

  // Makes the projection window for a command that finds none. Without it, or when there is none afterwards, the command
  // is lost.
  std::function<void()> CriaTelao;

private:
  const EstadoConsole &m_estado;
  std::function<Display *()> m_display;
  std::vector<DisplayObserver *> m_observers;
};

// The second road: calls a page function with text arguments, pasted between single quotes without any escaping.
// Strips every CR LF out of a1 for "UpdateTextHtml" (in the caller's variable too). An unknown name does nothing, a
// null page reports nothing here.
void CallPageScript(PageObject *pagina, const QString &nome, QString &a1, const QString &a2 = {}, const QString &a3 = {},
                    const QString &a4 = {}, const QString &a5 = {}, const QString &a6 = {}, const QString &a7 = {});
void CallPageScript(PageObject *pagina, const QString &nome, QString &&a1 = QString(), const QString &a2 = {},
                    const QString &a3 = {}, const QString &a4 = {}, const QString &a5 = {}, const QString &a6 = {},
                    const QString &a7 = {});

// What a text has to be to stand between the single quotes of a call and arrive as it is.
QString LiteralDeScript(QString texto);

// "'" becomes "\'", one that is escaped already stays escaped once.
QString EscapaApostrofos(QString texto);

} // namespace tolmira
