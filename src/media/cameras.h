#pragma once

#include "display/display_seams.h"
#include "foundation/seams.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace tolmira {

// The cameras that the page on show can put behind its text, one at a time. The page does the capture. The console's
// page is asked for them, and answers by an address that it wants to go to.
class Cameras {
public:
  enum class Situacao { Desligada, Abrindo, NoTelao, Falhou, Saiu };

  // `script` runs a script on one of the two pages, or on the projection's and then the console's. `mudou` is called
  // when a camera goes on or off, or what became of it is known.
  Cameras(std::function<void(const QString &script, Alvo alvo)> script, std::function<void()> mudou,
          UserPrompt &prompt);

  // The window opened, closed, or wants to know again. It is told of each camera that the page has by AoListar.
  void Abre();
  void Fecha(); // takes the camera off the screen
  void Procura();
  std::function<void(const QStringList &nomes)> AoListar;
  std::function<void()> AoMudar; // what its buttons show

  void Liga(int indice); // as AoListar numbers them, from 0
  void Desliga(int indice);

  // The page on show is one that has cameras, or is none any more. `mudou` is not called: the console says so itself.
  void StatusTelaCamera(bool pode);
  bool Pode() const { return m_pode; }
  int Ligada() const { return m_ligada; } // -1 for none
  Situacao Como() const { return m_situacao; }
  QString Nome() const; // of the one that is on; empty for none

  // The console's page wants to go to that address. May show a message, so not to be called from within the page's
  // event.
  void Respondeu(const QString &uri);
  // That page was loaded, so that nothing of the camera is left on it.
  void PaginaMontada(Alvo qual);

private:
  void Listou(const QString &lista);
  void Relatou(const QString &relato);
  void Muda(int ligada, Situacao situacao);

  std::function<void(const QString &script, Alvo alvo)> m_script;
  std::function<void()> m_mudou;
  UserPrompt &m_prompt;
  QString m_modo; // "true" while the window is open
  QStringList m_nomes;
  bool m_pode = false;
  int m_ligada = -1;
  Situacao m_situacao = Situacao::Desligada;
};

} // namespace tolmira
