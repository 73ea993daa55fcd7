#pragma once

#include "console/ui/console_parts.h"

#include <QWidget>
#include <array>

class QGridLayout;
class QLabel;
class QMenu;
class QPushButton;

namespace tolmira {

class PreviewBox;
class ReferenceBox;
class StateButton;

// What is out: the preview, the banner that can be read from across the room, and the five screen states. Under them
// the quick box for Bible references, with the version that they are read from.
class ScreenPanel : public QWidget {
  Q_OBJECT

public:
  ScreenPanel(ConsoleParts parts, PreviewBox *preview, QWidget *parent);
  void Atualiza();
  ReferenceBox *Text2() { return m_text2; }
  void SetVersionMenu(QMenu *menu) { m_mnIb = menu; }
  void Image9(); // opens the version menu
  // The states side by side, without their captions: for a window that is not high.
  void SetCompact(bool compact);

signals:
  void CamerasWanted();

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  QWidget *MakeLines();
  void MakeStates();
  void PlaceStates();
  void MoveMarker();
  QWidget *MakeReferenceRow();
  void SubmitReference();

  ConsoleParts m_parts;
  ReferenceBox *m_text2 = nullptr;
  QPushButton *m_image9 = nullptr;
  QLabel *m_lbVersao = nullptr;
  QMenu *m_mnIb = nullptr;
  QLabel *m_banner;
  bool m_compact = false;
  int m_aviso = 0; // least height of the banner, px
  QLabel *m_detalhe = nullptr;
  QLabel *m_proximo = nullptr;
  QLabel *m_depois = nullptr;
  QPushButton *m_imageCamera = nullptr;
  bool m_cameraNoTelao = false; // and its icon says so
  std::array<StateButton *, 5> m_lbTela{};
  QGridLayout *m_states = nullptr;
  QLabel *m_imgCombo = nullptr;     // stands beside the chosen state
  QPushButton *m_image11 = nullptr; // the same: chooses the picture of the default background
};

} // namespace tolmira
