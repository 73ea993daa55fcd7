#pragma once

#include <QPushButton>

namespace tolmira {

// A push button that never asks for more width than it is given: a caption that does not fit ends in an ellipsis and
// `text()` stays whole. Mnemonics work as in its base.
class FlatButton : public QPushButton {
  Q_OBJECT

public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool CaptionIsCut() const;

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  int CaptionWidth() const;
};

} // namespace tolmira
