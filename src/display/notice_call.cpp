#include "display/notice_call.h"

#include "display/display_channel.h"

#include <QStringList>

namespace tolmira {

void PassaAviso(PageObject *pagina, const QString &comando) {
  const QString funcao = QStringLiteral("ExibeAviso");
  if (comando == VerboCancelaAviso) {
    CallPageScript(pagina, funcao);
    return;
  }
  QStringList campos = comando.split(QStringLiteral("|#"));
  if (!comando.startsWith(VerboAviso) || campos.size() < 8)
    return;
  for (QString &campo : campos)
    campo = LiteralDeScript(std::move(campo));
  CallPageScript(pagina, funcao, campos[1], campos[2], campos[3], campos[4], campos[5], campos[6], campos[7]);
}

} // namespace tolmira
