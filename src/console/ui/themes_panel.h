#pragma once

#include "console/ui/console_parts.h"

#include <QThreadPool>
#include <QWidget>
#include <array>
#include <deque>
#include <functional>

class QCheckBox;
class QMenu;
class QTimer;

namespace tolmira {

class FrameMark;
class ThemeTile;

// The sixteen themes, the frames of the active and the queued one, and the boxes of the rotation.
class ThemesPanel : public QWidget {
  Q_OBJECT

public:
  ThemesPanel(ConsoleParts parts, QWidget *parent);

  void Atualiza();      // frames and boxes
  void ThemesChanged(); // tiles whose theme changed are drawn anew, the ticks are copied
  // Reads all tiles, one by one when the loop is idle. A thumbnail that is missing is made beside the interface thread.
  void CarregaTiles();
  void SetCompact(bool compact); // lower tiles
  void RecarregaTile(int n); // its picture on the disk is another one
  std::function<void(int n)> AbreConfigTema; // the theme's editor; may be empty
  bool TilesPending() const { return !m_waiting.empty() || m_making > 0; }

  static constexpr QSize TamanhoDoTile{192, 108}; // of the stored pictures, px

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  void MakeTile(int n, QWidget *panel);
  void Configura(int n);
  void LoadNext();
  void MakeThumbnailOf(int n, TemaTile tile);
  void ShowTile(int n, const TemaTile &tile);
  void FitTiles();

  ConsoleParts m_parts;
  QCheckBox *m_altera;
  QWidget *m_panel;
  std::array<ThemeTile *, NumeroDeTemas + 1> m_tile{};
  std::array<QCheckBox *, NumeroDeTemas + 1> m_chkIM{};
  FrameMark *m_temaAtual;
  FrameMark *m_avisoProximo;
  QMenu *m_mntrocar;
  int m_menuTile = 0;
  TabelaTemas m_shown; // the themes that the tiles show
  bool m_loaded = false;
  bool m_compact = false;
  std::deque<int> m_waiting;
  QTimer *m_loader;
  int m_making = 0;
  QThreadPool m_maker; // last: it waits for what is under way before anything else goes
};

} // namespace tolmira
