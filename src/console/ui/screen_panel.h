#pragma once

#include <QWidget>

#include <array>

#include "console/ui/console_parts.h"

class QLabel;

namespace tolmira {

class PreviewBox;
class StateButton;

// What is out: the preview, the banner that can be read from across the room, and the five screen states.
class ScreenPanel : public QWidget {
  Q_OBJECT

public:
  ScreenPanel(ConsoleParts parts, PreviewBox *preview, QWidget *parent);
  void Atualiza();

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  ConsoleParts m_parts;
  QLabel *m_banner;
  std::array<StateButton *, 5> m_lbTela{};
};

} // namespace tolmira
