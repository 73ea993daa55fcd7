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
  QString Edid;     // maker, model and serial number as the monitor tells them; empty when it tells nothing
  QString Conector; // where it is plugged in, "HDMI-1"
  QString Nome;     // for the operator
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

// The monitors at one moment, in the order in which the choice goes through them: as a walk over the desktop from its
// upper left corner meets them. Which one is the primary does not count, and a monitor that lies wholly behind another
// (a mirrored one) is not met.
class clsMonitors {
public:
  explicit clsMonitors(const MonitorSource &fonte);
  void Refresh();

  std::vector<clsMonitor> Monitors;

  // Pointers into the list; null for none.
  const clsMonitor *MonitorFromWindow() const; // that of the console
  const clsMonitor *GetMonitorFromXYPoint(int x, int y) const;
  // It neither holds the console nor repeats a part of the monitor that does, which it would cover.
  bool LivreDoConsole(const clsMonitor &monitor) const;
  bool IsFormOnPrimaryMonitor(const QRect &form) const; // by its middle
  // Enough of the window's title bar lies on a monitor to drag it by.
  bool AoAlcance(const QRect &form) const;

private:
  const MonitorSource &m_fonte;
  std::vector<clsMonitor> m_todos; // as the platform lists them
};

// The operator's choice of a monitor for the projection, kept in Data\Config.dat by what the monitor says of itself and
// not by its place. Two monitors that say the same are told apart by their connectors.
class EscolhaDeMonitor {
public:
  explicit EscolhaDeMonitor(const IniStore &store);
  bool Automatica() const { return m_edid.isEmpty() && m_conector.isEmpty(); }
  // Null for automatic. `ensaio`: it holds the console, so what is chosen is a rehearsal there.
  void Escolhe(const clsMonitor *monitor, bool ensaio = false);
  const clsMonitor *Encontra(const clsMonitors &monitores) const; // null when automatic or not there
  bool Ensaio() const { return m_ensaio; }
  QString Nome() const { return m_nome; }

private:
  const IniStore &m_store;
  QString m_edid;
  QString m_conector;
  QString m_nome;
  bool m_ensaio = false;
};

// Where the projection goes.
struct PlacaDoTelao {
  QRect tela;                  // pixels
  bool segundoMonitor = false; // false: a window on a screen that is not its own, for rehearsal
  bool escolhida = false;      // by the operator, not by the rule
  quintptr monitor = 0;
  QString nome; // of the monitor
};

// The monitor that the operator chose, if it is there and the console is not on it. Else the first that does not hold
// the console and shows nothing of the console's monitor. Where that leaves none, or the console's own was chosen for a
// rehearsal: a centred window of half its size.
PlacaDoTelao EscolheTela(const clsMonitors &monitores, const EscolhaDeMonitor &escolha);
// With one monitor the message about the missing projector; the monitors are looked at again behind it.
void PerguntaPeloProjetor(clsMonitors &monitores, UserPrompt &prompt);

// The console's normal rectangle, in pixels; Data\FormPositions.dat keeps it in twips.
QRect RetanguloPadrao(const QRect &tela);
void GravaRetanguloPadrao(const IniStore &store, const QRect &tela);
void GravaRetanguloNormal(const IniStore &store, const QRect &pixels);
// Below 101 twips in a direction: the default for that screen.
QRect LeRetanguloNormal(const IniStore &store, const QRect &tela);

// The preview's panel inside its container, pixels: the projection's aspect, centred.
QRect AjustaPreview(const QSize &container, const QSize &monitor);

} // namespace tolmira
