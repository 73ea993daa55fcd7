#pragma once

#include <QRect>
#include <QString>

#include <vector>

#include "foundation/ini_store.h"
#include "foundation/seams.h"

namespace tolmira {

// One monitor, in pixels. `Handle` tells monitors apart.
class clsMonitor {
public:
  quintptr Handle = 0;
  int Left = 0, Right = 0, Top = 0, Bottom = 0; // Right and Bottom lie one past the last pixel
  int WorkLeft = 0, WorkRight = 0, WorkTop = 0, WorkBottom = 0;
  int Height = 0, Width = 0;
  QRect Rect() const { return {Left, Top, Width, Height}; }
  QRect WorkArea() const { return {WorkLeft, WorkTop, WorkRight - WorkLeft, WorkBottom - WorkTop}; }
};

// The platform's monitors; the real one asks the toolkit.
class MonitorSource {
public:
  virtual ~MonitorSource() = default;
  virtual std::vector<clsMonitor> Monitors() const = 0; // the first is the primary one
  virtual quintptr ConsoleMonitor() const = 0;          // handle of the monitor that holds the console
};

// Where the projection goes.
struct PlacaDoTelao {
  QRect tela;              // pixels
  bool segundoMonitor = false; // false: a window on the console's own screen, for rehearsal
};

// Shows the message about the missing projector when there is one monitor, looks again, and chooses: the first monitor
// that does not hold the console, else a centred window of half the screen's size.
PlacaDoTelao PosicionarFrmQuendar(const MonitorSource &monitores, UserPrompt &prompt);
// The same choice without the message, for changes while the program runs.
PlacaDoTelao EscolheTela(const MonitorSource &monitores);

// The console's normal rectangle, in pixels; Data\FormPositions.dat keeps it in twips.
QRect RetanguloPadrao(const QRect &tela);
void GravaRetanguloPadrao(const IniStore &store, const QRect &tela);
void GravaRetanguloNormal(const IniStore &store, const QRect &pixels);
QRect LeRetanguloNormal(const IniStore &store, const QRect &tela); // below 101 twips in a direction: the default

// The preview's panel inside its container, pixels: the projection's aspect, centred.
QRect AjustaPreview(const QSize &container, const QSize &monitor);

} // namespace tolmira
