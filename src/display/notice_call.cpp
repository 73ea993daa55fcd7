#include "display/notice_call.h"

#include "display/display_channel.h"

namespace tolmira {

namespace {
const QString Funcao = QStringLiteral("ExibeAviso");
}

void PassaAviso(PageObject *pagina, QStringList campos) {
  for (QString &campo : campos)
    campo = LiteralDeScript(std::move(campo));
  CallPageScript(pagina, Funcao, campos[1], campos[2], campos[3], campos[4], campos[5], campos[6], campos[7]);
}

void TiraAviso(PageObject *pagina) {
  CallPageScript(pagina, Funcao);
}

void PassaComandoDeAviso(PageObject *pagina, const QString &comando) {
  const QStringList campos = comando.split(QStringLiteral("|#"));
  if (comando == VerboCancelaAviso)
    TiraAviso(pagina);
  else if (comando.startsWith(VerboAviso) && campos.size() >= CamposDoAviso)
    PassaAviso(pagina, campos);
}

} // namespace tolmira
