#pragma once

#include <QString>

#include "console/console_context.h"

namespace tolmira {

// Walking through a loaded song: arrow keys, the drag of the strip, the glide, and the moment of sending, which is that of
// Bible verses too.
class VerseStepper {
public:
  explicit VerseStepper(ConsoleContext &console);

  // Sends the Bible verse on the console. `soltouCtrl`: because Ctrl was let go.
  std::function<void(bool soltouCtrl)> EnviaVersiculo;

  void TeclaEstrofe(int delta); // +1 or -1
  void Label1MouseDown(int yTwips);  // y inside the strip
  void Label1MouseMove(int yTwips);  // while the button is held: the strip follows
  void Label1MouseUp(int yTwips);
  void movem(int index, bool fitPrevious); // starts the glide to that verse
  void MouseUp_Finaliza(bool force, bool noSend);
  int fimdolabel() const; // y of the song's end in the panel

  void CtrlDown();
  void CtrlUp();

  // The strip below the frame, nothing of the song in it yet; stops a glide.
  void PlaceBelowFrame();
  // Straight to a verse, without glide and without sending.
  void PlaceAt(int index);
  bool Gliding() const;

private:
  void TickMove();
  void LimpaTela(const QString &modo);
  void FinalizaBiblia(bool soltouCtrl);
  int VersoNoQuadro() const;
  int VersoEm(int yTwips) const;
  int Destino(int index, bool fitPrevious) const;

  ConsoleContext &m_console;
  std::unique_ptr<PeriodicTimer> m_timerMove;
  std::unique_ptr<PeriodicTimer> m_timerFinaliza;
  std::unique_ptr<PeriodicTimer> m_timerDica4;
  int m_passoMovimento = 0; // twips a tick
  int m_passosDados = 0;
  int m_topoAoClicar = 0;
  int m_posMouseY = 0;
  bool m_arrastando = false;
  bool m_movePorTecla = false;
  qint64 m_ultimaTecla = -1;
  int m_contaTeclas = 0;
};

} // namespace tolmira
