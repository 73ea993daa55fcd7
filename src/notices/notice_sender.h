#pragma once

#include "foundation/ini_store.h"

#include <QString>
#include <functional>

namespace tolmira {

// The number of passes as it may be: from 1 to 20, a text without a number counting as 0. What is within stays as it is
// typed.
QString LimitaVezes(const QString &vezes);

// Sends notices to the projection and keeps what was sent last. Nothing is known of a notice once it is sent.
class AvisosNaTela {
public:
  // `envia` takes a command of the projection.
  AvisosNaTela(const IniStore &store, std::function<void(const QString &comando)> envia);

  QString UltimoTexto() const;
  QString Vezes() const;
  void ExibeAviso(const QString &texto, const QString &vezes); // a blank text takes a running notice away
  void CancelaAviso();

private:
  const IniStore &m_store;
  std::function<void(const QString &)> m_envia;
};

// What the settings of the notices hold; colours as 0x00BBGGRR.
struct VisualDoAviso {
  qint32 FundoAvisoColor = 192;
  qint32 LetraAvisoColor = 16777215;
  int PorcentoAviso = 6; // of the screen's height
  int VelocAviso = 10;
};
VisualDoAviso LeVisualDoAviso(const IniStore &store);
// Puts notices at the bottom again, whatever the file says. False when not all of it could be written.
bool GravaVisualDoAviso(const IniStore &store, const VisualDoAviso &visual);

// Why nobody would see a notice, by the state of the screen; empty while one is seen.
QString AvisoDeTelaCoberta(bool semProjetor, const QString &estadoTela);

} // namespace tolmira
