#pragma once

#include "console/console_context.h"

namespace tolmira {

// The five screen states, and the picture of the default background.
class ScreenControls {
public:
  explicit ScreenControls(ConsoleContext &console) : m_console(console) {}

  void SetScreenState(int index); // 0 Normal, 1 Text Hidden, 2 Black Screen, 3 Background, 4 No Projection

  QString FundoPadrao() const; // stored path; empty when there is none
  void Image11(); // opens the gallery for the picture of the default background
  // That picture becomes the default background; while the default background is on show, the new one is shown at once.
  // A path without a file changes nothing. The file's bare name is kept, so it lies in <app>\Images\.
  void trocarFundoPadrao(const QString &path);

  std::function<void()> AbreGaleria; // for trocarFundoPadrao; set by the owner of the windows

  static QString LegendaDoEstado(int index); // captions and tool tips of LBTela
  static QString DicaDoEstado(int index);

private:
  void CobreTexto(int index, const QString &fundo);

  ConsoleContext &m_console;
};

} // namespace tolmira
